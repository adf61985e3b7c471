#pragma once

#include <string>

namespace brindlemoor::benchmarks {

// Disks full of files, built byte by byte: as large as their family comes.

/// The OS-9 part of a hard disk image, 44,533,120 bytes: 1,600 files of 1 to 55,000 bytes in 20
/// directories on two levels. 1,664 rows with the dot entries and the rows that stand for the map
/// and the root; the last of them is not listed.
std::string Os9HardDisk();

/// 80 tracks of both sides, 737,280 bytes, with 150 files of two extents.
std::string DragonDisk();

/// 80 tracks of 36 sectors, 737,280 bytes, with 237 files of 12 sectors.
std::string FlexDisk();

}  // namespace brindlemoor::benchmarks
