#pragma once

namespace brindlemoor {

/// Puts the main window's entries into `Screen`.
void ConnectScreen();

}  // namespace brindlemoor
