#pragma once

namespace brindlemoor {

/// Hangs on the grid `ListDirec` what a click on one of its rows does: the row's file comes into
/// view.
void ConnectRowClick();

}  // namespace brindlemoor
