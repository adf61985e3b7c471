#pragma once

#include "platform/qt/main_window.h"

namespace brindlemoor {

/// Carries out, once the window is painted for the first time, what the environment asks for:
/// `BRINDLEMOOR_FOLDER` shows a folder in the PC pane where the start opened no image,
/// `BRINDLEMOOR_OPEN` clicks the file of that name in the list, `BRINDLEMOOR_SCREENSHOT` saves a
/// picture of the window and ends the program, `BRINDLEMOOR_TIMING` prints the milliseconds from
/// the start of the process to the first paint. Call it just before the window is shown.
void PrepareDemonstration(MainWindow& window);

}  // namespace brindlemoor
