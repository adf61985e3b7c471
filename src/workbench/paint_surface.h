#pragma once

#include "core/screen.h"

namespace brindlemoor {

/// Shows the picture `Archivo` of the main window in that size, in pixels, and draws what stands in
/// the viewer into it. `GiveBack` of the result gives it the size that it has now, but for a width
/// or a height that it got meanwhile because the window was laid out anew.
PaintSurface OpenPaintSurface(int width, int height);

}  // namespace brindlemoor
