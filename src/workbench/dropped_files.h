#pragma once

#include <string>
#include <vector>

namespace brindlemoor {

/// True when files that the user drags over the window from outside can be dropped there: it is
/// one file, its name is one of a disk image, and the list of files could show it.
bool TakesDroppedFiles(const std::vector<std::string>& paths);

/// What dropping them does: their folder is shown, and the file is clicked in `File1`. A pattern
/// that hides it gives way to the first of `DirPattern`'s items that does not, as if the user had
/// picked that. Files that are not taken do nothing. The edit of a cell is kept first; while that
/// cannot be, nothing happens. Messages: those of the click.
void DropFilesFromOutside(const std::vector<std::string>& paths);

/// True when files that the user drags over `ListDirec` from outside can be dropped there, to be
/// copied into the open disk: there is one, and each of them is a file of the PC.
bool TakesFilesForDisk(const std::vector<std::string>& paths);

/// What dropping them there does: the same as if they came from `File1`. The edit of a cell is kept
/// first here too.
void DropFilesOnDirectory(const std::vector<std::string>& paths);

}  // namespace brindlemoor
