#pragma once

#include <cstdint>
#include <string>

// OS-9 directories and file descriptors.
//
// File descriptor, one sector, numbers high byte first:
//    0  1  FD.ATT  attributes: bit 7 directory, bits 0 to 6 "rweRWES"
//    1  2  FD.OWN  owner
//    3  5  FD.DAT  last modified: year, month, day, hour, minute
//    8  1  FD.LNK  links
//    9  4  FD.SIZ  bytes of the file
//   13  3  FD.DCR  created: year, month, day
//   16 240 FD.SEG  segments of five bytes: start LSN (3), sectors (2)
//
// Directory entry, 32 bytes: 29 of name, the last character with bit 7 set, and the LSN of the
// file descriptor in three.

namespace brindlemoor {

inline constexpr int kOs9EntryBytes = 32;
inline constexpr int kOs9NameBytes = 29;
inline constexpr int kOs9SegmentBytes = 5;

/// Fills the row `row` of `DirTable` from the file descriptor at the 1-based `position` of the
/// image, and, when it is a directory, the rows behind it with all that it holds, depth first.
/// `name` is the entry's name, a first byte of 0 a deleted one; `level` the row's level in the
/// tree. `row` is left at the last row filled. A descriptor beyond the image leaves its row as it
/// was. Fails with 9 when the rows run out, with 6 or 7 as `ReadOs9Disk` says.
void WalkOs9Directory(const std::string& name, std::int64_t position, int& row, int level);

}  // namespace brindlemoor
