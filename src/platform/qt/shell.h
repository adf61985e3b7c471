#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

namespace brindlemoor {

/// The one way of a user's action into the records: runs `event` through the event dispatcher, and
/// then shows what it changed. Does nothing while the records are being shown (a widget that is
/// set by the program also reports a change) and once the program has ended.
void UserAction(const std::function<void()>& event);

/// The same for a key that may bring up a popup: it appears at `place` of the screen and not at the
/// pointer, which may be anywhere.
void UserActionAt(QPoint place, const std::function<void()>& event);

/// Shows all records that differ from their widgets, in every window that stands open.
void RefreshWindows();

/// True while `RefreshWindows` runs: changes that widgets report now are not the user's.
bool IsRefreshing();

/// Adds a window to those that `RefreshWindows` shows, as long as `window` lives.
void AddRefresh(QWidget* window, std::function<void()> refresh);

/// Takes the window out again, before its widgets go: one that loses the focus on the way still
/// reports it, and the others must not be shown any more by then.
void RemoveRefresh(QWidget* window);

/// What the whole shell shares.
struct ShellState {
    QPointer<QWidget> MainWindow;
    std::optional<QPoint> PopupAt;  ///< where a popup appears that a key asked for, on the screen
    bool Ended = false;  ///< `EndProgram` was asked for: no further event reaches the records
    std::function<void(int exitCode)> Quit;  ///< leaves the event loop; the program sets it
};

extern ShellState Shell;

/// Leaves the event loop, if the program has one.
void QuitProgram(int exitCode);

}  // namespace brindlemoor
