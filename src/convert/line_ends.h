#pragma once

#include <string>

#include "convert/file_run.h"

namespace brindlemoor {

/// The change between CR and CR LF of the file `run`, whose text is `text`. Nothing happens, and
/// nothing is said, unless `run.DeletedPath` ends in "BAS" or "TXT", which it never does in the
/// commands' own runs: the menu entry stands for a change that is not offered. Behind that test the
/// user is warned: Yes puts the changed text into `run.Result`, No leaves the file as it is, Cancel
/// ends the run.
RunStep FileLineEnds(FileRun& run, const std::string& text);

}  // namespace brindlemoor
