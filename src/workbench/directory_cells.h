#pragma once

#include "core/disk_state.h"

namespace brindlemoor {

/// Number of the column of the attributes, which always fits its contents.
inline constexpr int kAttributeColumn = 11;

/// Fills row `row` (from 1) of the grid `ListDirec` with what `entry` holds, in the form of the
/// family `Disk.DiskFamily`, and sets the row's colours, marks, indent and visibility.
void FillDirectoryRow(const DirEntry& entry, int row);

/// The entries "." and ".." of an OS-9 directory: shown like continuation rows, not counted.
bool IsOs9DotEntry(const DirEntry& entry);

/// Bytes of the sectors or units that the entry takes on the disk.
std::int64_t UsedBytes(const DirEntry& entry);

/// The granules, extents or segments of the entry, as column 18 shows them.
std::string ChainText(const DirEntry& entry);

/// The attribute letters of the entry, as column 11 shows them.
std::string AttributeText(const DirEntry& entry);

}  // namespace brindlemoor
