#pragma once

#include <vector>

#include "convert/file_run.h"

namespace brindlemoor {

/// Runs the command `index` (the place in the menus) on files of the PC, one after the other as
/// `Disk.PcFileBytes`; deleting works on all at once. An index without a command does nothing; a
/// file that cannot be read is told and passed over.
void RunPcCommand(int index, const std::vector<PcFile>& files);

}  // namespace brindlemoor
