#pragma once

#include <string_view>

#include "workbench/control.h"
#include "workbench/grid.h"

namespace brindlemoor {

/// The main window, and the grid that its control `ListDirec` stands for. `BuildPrincipal` fills
/// them.
extern Window Principal;
extern Grid ListDirec;

/// The main window's control of that name. Fails with 730 when there is none.
Control& PrincipalControl(std::string_view name, int index = 0);

}  // namespace brindlemoor
