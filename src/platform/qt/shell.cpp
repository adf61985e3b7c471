#include "platform/qt/shell.h"

#include <algorithm>
#include <utility>

#include "workbench/event_dispatcher.h"

namespace brindlemoor {

ShellState Shell;

namespace {

struct OpenWindow {
    QPointer<QWidget> Window;
    std::function<void()> Refresh;
};

std::vector<OpenWindow> openWindows;
bool refreshing = false;

}  // namespace

void UserAction(const std::function<void()>& event) {
    if (refreshing || Shell.Ended) return;
    Dispatch(event);
    if (!Shell.Ended) RefreshWindows();
}

void UserActionAt(QPoint place, const std::function<void()>& event) {
    Shell.PopupAt = place;
    UserAction(event);
    Shell.PopupAt.reset();
}

void RefreshWindows() {
    if (refreshing) return;
    refreshing = true;
    std::erase_if(openWindows, [](const OpenWindow& open) { return open.Window.isNull(); });
    for (const OpenWindow& open : openWindows) open.Refresh();
    refreshing = false;
}

bool IsRefreshing() {
    return refreshing;
}

void AddRefresh(QWidget* window, std::function<void()> refresh) {
    openWindows.push_back({window, std::move(refresh)});
}

void RemoveRefresh(QWidget* window) {
    for (OpenWindow& open : openWindows) {
        if (open.Window == window) open.Window.clear();
    }
}

void QuitProgram(int exitCode) {
    if (Shell.Quit) Shell.Quit(exitCode);
}

}  // namespace brindlemoor
