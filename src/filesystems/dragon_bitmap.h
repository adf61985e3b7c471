#pragma once

#include <string>

namespace brindlemoor {

/// Reads the bitmap into `Disk.FatBytes`, compares track 20 with its copy on track 16 (two
/// messages: the bitmaps differ, the tracks differ), and starts `Disk.FatComputed` with nothing
/// used but 18 sectors of each of the two tracks.
void ReadDragonBitmap();

/// Marks `count` sectors from the 0-based `sector` on as used in a bitmap, where they lie in it.
void MarkDragonSectors(std::string& bitmap, int sector, int count);

/// Shows the bytes of `Disk.FatBytes` and `Disk.FatComputed` that differ, if any do, and offers
/// the FAT editor for them.
void CompareDragonBitmap();

}  // namespace brindlemoor
