#pragma once

#include <string>

namespace brindlemoor {

/// Writes the open disk, its header in front, to the PC file `path`, without a question. A disk
/// that is a part of the hard disk image at `path` goes back into its place there, so that the
/// other parts stay. `Disk.ImageOnOpen` becomes what was written. False when the file routine
/// showed an error message; the file and `Disk` are as they were then. `path` becomes the one that
/// was written to: a PC's file name may not hold every character.
bool SaveImage(std::string& path);

/// Gives up all changes: the image is again what was last loaded or saved, and is read again. The
/// messages of the reading appear again. The grid and the map are shown anew.
void ReOpenImage();

}  // namespace brindlemoor
