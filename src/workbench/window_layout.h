#pragma once

namespace brindlemoor {

/// Lays the main window out anew for the inner size `width` by `height` (twips, without the menu
/// bar). A window that is too narrow for the viewer leaves the layout as it was.
void ResizePrincipal(int width, int height);

}  // namespace brindlemoor
