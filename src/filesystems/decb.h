#pragma once

#include <cstdint>
#include <string>

// Disk BASIC of the Color Computer.
//
// Tracks of 18 sectors of 256 bytes. Files are chains of granules, 9 sectors or half a track each;
// track 17 holds the file allocation table (FAT) and the directory and is left out of the granule
// numbers: granule 33 is the second half of track 16, granule 34 the first of track 18.
//
//   track 17 sector 2    offset 78,592   FAT: one byte a granule, 68 of them
//   track 17 sector 3    offset 78,848   directory: 68 slots of 32 bytes
//   track 17 sector 17   offset 82,432   disk name, ended by a zero byte
//
// FAT byte: 255 free; 192 to 223 the last granule of a file, its low five bits the sectors used in
// it; otherwise the number of the next granule.
//
// Directory slot, 32 bytes:
//    0  8  name, padded with blanks; a first byte of 0: deleted, 255: end of the directory
//    8  3  extension
//   11  1  type: 0 BASIC, 1 data, 2 machine language, 3 text
//   12  1  format: 0 binary, otherwise ASCII
//   13  1  first granule
//   14  2  bytes used in the last sector, high byte first
//   16 16  not used

namespace brindlemoor {

inline constexpr int kDecbSectorsPerTrack = 18;
inline constexpr int kDecbGranuleSectors = 9;
inline constexpr int kDecbGranuleBytes = 2304;
inline constexpr int kDecbFatBytes = 68;
inline constexpr int kDecbSlots = 68;
inline constexpr int kDecbSlotBytes = 32;
inline constexpr int kDecbDirectoryTrack = 17;
inline constexpr std::int64_t kDecbFatOffset = 78592;
inline constexpr std::int64_t kDecbDirectoryOffset = 78848;
inline constexpr std::int64_t kDecbNameOffset = 82432;
inline constexpr int kDecbFreeGranule = 255;
inline constexpr int kDecbLastGranule = 192;  ///< both top bits: the last granule of a file
inline constexpr int kDecbLastGranuleSectors = 31;

/// The granule counted with the two of track 17: its place in the image in units of 2304 bytes.
constexpr int PhysicalGranule(int granule) {
    return granule > 33 ? granule + 2 : granule;
}

/// Reads the disk's geometry, FAT and directory into `Disk` and `DirTable`, gathers the contents
/// of the files, and shows a message for each finding: a count above 256 in a last sector, two
/// files with the same first granule, and the differences of the FAT from the files' chains.
/// `DirCount` ends as the number of rows; a broken chain sets `DiskFamily` to OS-9. Returns false
/// when the image ends before the FAT, after the message for that. Fails with 6 on an image of
/// more than 32,767 tracks.
bool ReadDecbDisk();

/// Follows the chain of the row `DirCount` through `fat`, and fills the row's `Chain`, `Content`,
/// `LastGranuleSectors`, `BadSectorMark`, `Size` and `UnitCount`. A chain that leaves `fat`, or is
/// longer than 100 granules, sets `DiskFamily` to OS-9 and leaves what was gathered.
void ReadChain(const std::string& fat);

/// What a FAT byte says, for the comparison of two tables: " 255 (Libre)", " ProxGr=0" for 0, and
/// for any other value the value and the sectors of a last granule, as "193 (UltGr+1 Sec) ".
std::string FatByteText(int value);

}  // namespace brindlemoor
