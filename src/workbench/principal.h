#pragma once

#include <string_view>

#include "workbench/control.h"
#include "workbench/grid.h"
#include "workbench/window_layout.h"

namespace brindlemoor {

/// The main window, and the grid that its control `ListDirec` stands for.
extern Window Principal;
extern Grid ListDirec;

/// The main window's control of that name. Fails with 730 when there is none.
Control& PrincipalControl(std::string_view name, int index = 0);

/// Builds the main window as it is designed, hangs the event routines on its controls, and puts
/// the workbench's entries into `Screen`. Comes before `StartUp`.
void BuildPrincipal();

/// The start-up in its order, from the window's title to the image last open. Returns false when
/// the user cancelled at the question about the settings file: the program ends. Fails where the
/// settings file cannot be used.
bool StartUp();

/// The window's closing routine: stores the file selected in `File1` as `ArchivoActual`.
void ClosePrincipal();

}  // namespace brindlemoor
