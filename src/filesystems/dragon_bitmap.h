#pragma once

#include <cstdint>
#include <string>

namespace brindlemoor {

/// Bytes of the whole bitmap, both halves.
inline constexpr int kDragonBitmapBytes = 360;

/// The track that begins with the bitmap, and the one that holds a copy of it.
inline constexpr int kDragonDirectoryTrack = 20;
inline constexpr int kDragonCopyTrack = 16;

/// Writes the two halves of `Disk.FatBytes`, 180 bytes each, from the sectors `firstSector` and the
/// one behind it on.
void PutDragonBitmap(std::int64_t firstSector);

/// Reads the bitmap into `Disk.FatBytes`, compares track 20 with its copy on track 16 (two
/// messages: the bitmaps differ, the tracks differ), and starts `Disk.FatComputed` with nothing
/// used but 18 sectors of each of the two tracks.
void ReadDragonBitmap();

/// Marks `count` sectors from the 0-based `sector` on as used in a bitmap, where they lie in it.
void MarkDragonSectors(std::string& bitmap, int sector, int count);

/// Copies the bitmap between the image and `Disk.FatBytes`, on a Dragon disk; does nothing on any
/// other. With `write` false `Disk.FatBytes` takes the 180 bytes of each of the first two sectors
/// of track 20; with `write` true its halves go there and to the first two sectors of track 16.
void SyncDragonBitmap(bool write);

/// Shows the bytes of `Disk.FatBytes` and `Disk.FatComputed` that differ, if any do, and offers
/// the FAT editor for them.
void CompareDragonBitmap();

}  // namespace brindlemoor
