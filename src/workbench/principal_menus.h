#pragma once

namespace brindlemoor {

/// Hangs their routines on the menus of the menu bar: files, options, languages and help.
void ConnectMenus();

}  // namespace brindlemoor
