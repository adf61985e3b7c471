#pragma once

#include "convert/file_run.h"
#include "core/external_program.h"

namespace brindlemoor {

/// Has a program of the PC edit a file of the disk, whose bytes are in `Disk.PcFileBytes`, and
/// stores what came back, if the user changed it.
///
/// The text editor gets a BASIC program as text, and CR as CR LF, if the user says so
/// (`Messages[28]`, `Messages[31]`; Cancel ends the run); with CR LF added, the text goes back to
/// CR and to tokens. A text with high bits is mended first. The program works on a temporary file
/// beside where the file would go on the PC; a message (`Messages[23]`) waits until the user is
/// done. Without a program, and when anything fails on the way, the disk stays as it was.
RunStep EditDiskFile(FileRun& run, ProgramRole editor);

}  // namespace brindlemoor
