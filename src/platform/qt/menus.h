#pragma once

#include <QMenuBar>
#include <string>
#include <vector>

#include "workbench/control.h"

namespace brindlemoor {

/// An item on the screen and where its record stands.
struct MenuAction {
    QAction* Action = nullptr;
    std::string MenuName;
    int Index = 0;
};

/// The menu bar of a window and what it shows.
struct MenuBarView {
    QMenuBar* Bar = nullptr;
    Window* Record = nullptr;
    std::vector<MenuAction> Actions;  ///< all items of all menus behind the bar
    std::string Structure;            ///< which menus hold how many items, with what behind them
};

/// Shows the window's menu "MainMenu" and what stands behind its items: captions, checks, enabled
/// state and shortcuts. The bar is built anew only when the arrays themselves differ.
void ShowMenuBar(MenuBarView& view);

/// An empty menu bar for a window.
QMenuBar* MakeMenuBar(QWidget* window);

/// Opens the first menu of the bar with its first item marked, as F10 does.
void OpenMenuBar(QMenuBar* bar);

/// Shows the popup menu `name` of `window` at `Shell.PopupAt`, else at the pointer, and runs the
/// click routine of the item chosen. A menu whose only item opens another one stands for that other
/// one.
void RunPopupMenu(Window& window, const std::string& name);

}  // namespace brindlemoor
