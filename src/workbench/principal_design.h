#pragma once

#include <vector>

#include "workbench/control.h"

namespace brindlemoor {

/// The controls of the main window in tab order, with the texts and places of its design. Places
/// that follow the window's size are those of the smallest window; `ResizePrincipal` sets them.
std::vector<Control> DesignedControls();

/// The menu arrays of the main window, with the texts of its design.
std::vector<Menu> DesignedMenus();

}  // namespace brindlemoor
