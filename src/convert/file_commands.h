#pragma once

#include <cstdint>
#include <functional>

#include "convert/file_run.h"

namespace brindlemoor {

/// The values of `PopupSide`: the list of the PC's files, `File1`, or that of the disk,
/// `ListDirec`.
inline constexpr std::int16_t kPcSide = 0;
inline constexpr std::int16_t kDiskSide = 100;

/// The list whose selection the next file command works on.
extern std::int16_t PopupSide;

/// The file commands, on the selection of the list of `PopupSide` as it is at the start, file by
/// file. The commands are tied to the places of the menus' items, not to their words; an index
/// without a command does nothing. The first Cancel ends the run, and what is done stays done. What
/// a command does is told in `pc_commands` and `disk_commands`.
void FileCommand(int index);

/// Runs the file command `index` (the place in `PopMenu`, or `kFirstConversion` and the place in
/// `ConvMenu`) on what is selected in the list of `PopupSide`. `FileCommand` stands here from the
/// start; another routine in its place sees what the menus, keys and drops ask for.
extern std::function<void(int index)> RunFileCommand;

}  // namespace brindlemoor
