#pragma once

#include <vector>

namespace brindlemoor {

/// Runs the command `index` (the place in the menus, without the side) on the files of `rows` of
/// `DirTable`, one after the other as `Disk.DirCount` and `Disk.PcFileBytes`. Rows of deleted files
/// are passed over, names are those before the run changed them. An index without a command does
/// nothing. The list of the PC's files is read anew at the end.
void RunDiskCommand(int index, const std::vector<int>& rows);

}  // namespace brindlemoor
