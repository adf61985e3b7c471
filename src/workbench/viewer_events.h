#pragma once

#include "workbench/viewer.h"

namespace brindlemoor {

/// Hangs the event routines of a viewer's controls on them, and its surface on the picture
/// `Archivo`. The choices of `VerAsc`, `OpciónChar` and `Anchos` are stored whenever they change;
/// every change shows the file anew. The picture also scrolls by mouse wheel and keys.
void ConnectViewer(Viewer& viewer);

}  // namespace brindlemoor
