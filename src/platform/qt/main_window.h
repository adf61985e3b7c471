#pragma once

#include <QMainWindow>
#include <memory>

#include "platform/qt/menus.h"
#include "platform/qt/window_widgets.h"

namespace brindlemoor {

/// The main window on the screen: the widgets of `Principal` and its menus. Drop it to close it
/// without the closing routine.
struct MainWindow {
    std::unique_ptr<QMainWindow> Widget;
    std::shared_ptr<WindowWidgets> Controls;
    std::shared_ptr<MenuBarView> Menus;
};

/// Makes the window of the table `Principal`, which must be built, in the size of its record; it is
/// not shown yet. From now on `RefreshWindows` shows the records in it, a new size of the window
/// runs `ResizePrincipal`, a new size of the record makes the window follow, files dropped on it
/// from outside are taken as the workbench decides, and closing it runs `ClosePrincipal`, after
/// which the event loop is left.
MainWindow MakeMainWindow();

}  // namespace brindlemoor
