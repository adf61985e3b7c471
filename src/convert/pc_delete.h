#pragma once

#include <vector>

#include "convert/file_run.h"

namespace brindlemoor {

/// Deletes `files`, all of them: several after one question with their number
/// (`Messages[10]`), one after a question with its path (`Messages[9]`); Cancel leaves it. A file
/// that cannot be deleted is told; folders stay. `run.DeletedPath` is the last path that was taken.
/// The list of files is read anew at the end. Without files nothing happens.
void DeletePcFiles(FileRun& run, const std::vector<PcFile>& files);

}  // namespace brindlemoor
