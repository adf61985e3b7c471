#pragma once

#include "convert/file_run.h"

namespace brindlemoor {

/// Has a paint program of the PC work on what the viewer draws of a file of the disk, 128 pixels
/// wide, and stores the bytes of the picture that came back: the file keeps its first and last five
/// bytes around them, with the new length at offset 1, and a file "NAME.TMP" of them goes onto the
/// disk. Without a program, without a picture in the file that came back, and when anything fails
/// before, the disk stays as it was.
RunStep PaintDiskFile(FileRun& run);

}  // namespace brindlemoor
