#pragma once

#include <cstdint>
#include <functional>

namespace brindlemoor {

/// The values of `PopupSide`: the list of the PC's files, `File1`, or that of the disk,
/// `ListDirec`.
inline constexpr std::int16_t kPcSide = 0;
inline constexpr std::int16_t kDiskSide = 100;

/// The item of `PopMenu` that shows files in the window `Archivos`.
inline constexpr int kViewCommand = 0;

/// Items of `PopMenu` that are also reached by a drop and by the Delete key.
inline constexpr int kSaveCommand = 6;
inline constexpr int kDeleteCommand = 7;

/// The first index of the items of `ConvMenu`.
inline constexpr int kFirstConversion = 20;

/// The list whose selection the next file command works on.
extern std::int16_t PopupSide;

/// The file commands, on the selection of the list of `PopupSide`. Only `kViewCommand` exists: each
/// file selected becomes `Disk.PcFileBytes` and comes into the window `Archivos`, which shows the
/// last of them. Any other index does nothing.
void FileCommand(int index);

/// Runs the file command `index` (the place in `PopMenu`, or `kFirstConversion` and the place in
/// `ConvMenu`) on what is selected in the list of `PopupSide`. `FileCommand` stands here from the
/// start; another routine in its place sees what the menus, keys and drops ask for.
extern std::function<void(int index)> RunFileCommand;

}  // namespace brindlemoor
