#pragma once

namespace brindlemoor {

/// Hangs on the grid `ListDirec` what choosing one of its rows does: the row becomes the current
/// one (`Disk.DirCount`), its file comes into view, and the map shows where it lies.
void ConnectRowClick();

}  // namespace brindlemoor
