#pragma once

#include <cstdint>

// Dragon DOS.
//
// Sectors of 256 bytes, 18 to a track; on a two-sided disk both sides of a cylinder make one track
// of 36. Track 20 holds the allocation bitmap and the directory, track 16 a copy of it.
//
//   track 20, first two sectors   bitmap: 180 bytes of each; bit 0 of byte 0 is sector 0;
//                                 a set bit is a free sector
//   sector index 360, byte 252    geometry block: tracks, sectors per track, and 255 minus each
//   sector index 362 to 377       directory: 10 entries of 25 bytes in each sector
//
// Directory entry, 25 bytes:
//    0  1  flags: bit 7 deleted, 5 continued in another entry, 3 end of the directory,
//          1 protected, 0 this is a continuation entry
//    1  8  name, zero bytes standing for blanks      } a continuation entry has
//    9  3  extension                                 } extents from offset 1 on
//   12 12  four extents                              }
//   24  1  continued: the entry that continues this one; else the bytes used in the last sector,
//          0 standing for 256
//
// Extent, 3 bytes: first sector index, high byte first, and the number of sectors. None ends the
// list.

namespace brindlemoor {

inline constexpr int kDragonEntries = 160;
inline constexpr int kDragonEntryBytes = 25;
inline constexpr int kDragonExtentBytes = 3;

/// Sectors that a directory row counts as one granule, as on a CoCo disk.
inline constexpr int kDragonGranuleSectors = 9;

inline constexpr int kDragonGeometrySector = 360;
inline constexpr int kDragonDirectorySector = 362;
inline constexpr int kDragonDirectorySectors = 16;

/// Ten entries; the last six bytes of a directory sector are not used.
inline constexpr int kDragonDirectorySectorBytes = 250;

/// The flag byte of an entry that was never used.
inline constexpr int kDragonUnusedEntry = 137;

/// Files are only read from sectors below this one, also on larger disks.
inline constexpr int kDragonSectorLimit = 721;

/// Reads the disk's geometry, bitmap and directory into `Disk` and `DirTable`, gathers the
/// contents of the files, deleted ones too, and rebuilds the bitmap in `Disk.FatComputed`. Shows
/// a message for each finding: geometry bytes that disagree, tracks 16 and 20 that differ, and a
/// bitmap that differs from the files; that one offers the FAT editor.
///
/// `DirCount` ends as the number of rows. Returns false when more than 180 live continuation
/// entries were found: more than the directory has, and only where `Disk.ContinuationCount` does
/// not start at 0. Fails with 5 on a file whose extents hold less than the unused part of its last
/// sector, with 7 on continuation links that lead round in a ring.
bool ReadDragonDisk();

}  // namespace brindlemoor
