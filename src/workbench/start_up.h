#pragma once

namespace brindlemoor {

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
