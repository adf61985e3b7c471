#include "real_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>

#include "core/disk_state.h"
#include "core/platform.h"
#include "core/screen.h"
#include "core/settings.h"
#include "platform/qt/event_hook.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/shell.h"
#include "workbench/acerca.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"
#include "workbench/start_up.h"

namespace brindlemoor::benchmarks {

namespace fs = std::filesystem;

namespace {

/// How long a window may take until it has painted; one that had nothing to paint takes this long.
constexpr std::chrono::seconds kPatience{60};

/// The window was given its picture at least once since this was cleared.
bool painted = false;

/// The folders of all windows, gone when the program ends: a system that has just deleted thousands
/// of files makes new ones slowly, which would be measured.
struct Folders {
    ~Folders() {
        std::error_code ignored;
        for (const fs::path& folder : Made) fs::remove_all(folder, ignored);
    }
    std::vector<fs::path> Made;
};

std::string NewFolder() {
    static Folders folders;
    const fs::path folder = fs::temp_directory_path() /
                            ("brindlemoor-window-" + std::to_string(std::random_device()()));
    fs::create_directories(folder / "disks");
    folders.Made.push_back(folder);
    return folder.string();
}

Answer AnswerAtOnce(const std::string& /*text*/, const std::string& /*title*/, Buttons buttons,
                    MessageIcon /*icon*/) {
    return buttons == Buttons::Ok || buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
}

void SendMouse(QWidget* widget, QEvent::Type type, QPointF place, Qt::KeyboardModifiers modifiers) {
    const bool press = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, place, widget->mapToGlobal(place), Qt::LeftButton,
                      press ? Qt::LeftButton : Qt::NoButton, modifiers);
    QApplication::sendEvent(widget, &event);
}

}  // namespace

RealWindow::RealWindow() : folder_(NewFolder()), startedIn_(fs::current_path().string()) {
    setenv("appdata", folder_.c_str(), 1);
    fs::current_path(folder_ + "/disks");
    Start();
}

RealWindow::~RealWindow() {
    window_ = MainWindow();
    Shell = ShellState();
    Settings = SettingsState();
    Disk = DiskState();
    DirTable.Wipe();
    WindowBusy = false;
    Platform = SilentPlatform();
    Screen = NoScreen();
    Principal = Window();
    ListDirec = Grid();
    fs::current_path(startedIn_);
}

void RealWindow::Start() {
    Shell = ShellState();
    Platform = QtPlatform();
    Platform.ShowMessage = AnswerAtOnce;
    Platform.AskText = [](const std::string&, const std::string&, const std::string& suggestion) {
        return suggestion;
    };
    BuildPrincipal();
    BuildAcerca();
    window_ = MakeMainWindow();
    bool started = false;
    UserAction([&started] { started = StartUp(); });
    if (!started) throw std::runtime_error("the program did not start");
    HookEvents(window_.Widget.get(), [](QEvent* event) {
        if (event->type() == QEvent::UpdateRequest) painted = true;
        return false;
    });
    window_.Widget->show();
    QApplication::processEvents();
}

void RealWindow::Give(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder_ + "/disks/" + name, std::ios::binary) << bytes;
}

void RealWindow::ListFolder() const {
    UserAction([this] { ShowPcFolder(folder_); });
    UserAction([this] { ShowPcFolder(folder_ + "/disks"); });
}

void RealWindow::Clear() const {
    for (const fs::directory_entry& file : fs::directory_iterator(folder_ + "/disks")) {
        fs::remove(file.path());
    }
}

void RealWindow::ListEmptyFolder(const std::string& name) const {
    fs::create_directory(folder_ + "/" + name);
    UserAction([&] { ShowPcFolder(folder_ + "/" + name); });
    QApplication::processEvents();
}

QListWidget* RealWindow::Files() const {
    return dynamic_cast<QListWidget*>(WidgetOf(*window_.Controls, "File1"));
}

QTableView* RealWindow::Directory() const {
    return dynamic_cast<QTableView*>(WidgetOf(*window_.Controls, "ListDirec"));
}

void RealWindow::ClickFile(const std::string& name) const {
    QListWidget* list = Files();
    const auto found = list->findItems(QString::fromStdString(name), Qt::MatchExactly);
    if (found.isEmpty()) throw std::runtime_error(name + " is not in the list");
    list->scrollToItem(found.first());
    PressAndRelease(list, list->indexFromItem(found.first()));
}

double RealWindow::SecondsUntilPainted(const std::function<void()>& act) const {
    QApplication::processEvents();
    painted = false;
    const auto start = std::chrono::steady_clock::now();
    act();
    while (!painted && std::chrono::steady_clock::now() - start < kPatience) {
        QApplication::processEvents();
    }
    if (!painted) throw std::runtime_error("the window had nothing to paint");
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void PressAndRelease(QAbstractItemView* view, const QModelIndex& index,
                     Qt::KeyboardModifiers modifiers) {
    const QPointF place = view->visualRect(index).center();
    SendMouse(view->viewport(), QEvent::MouseButtonPress, place, modifiers);
    SendMouse(view->viewport(), QEvent::MouseButtonRelease, place, modifiers);
}

void Key(QWidget* widget, int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers);
    QApplication::sendEvent(widget, &release);
}

}  // namespace brindlemoor::benchmarks
