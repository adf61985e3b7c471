#pragma once

#include <cstdint>
#include <string>

// FLEX.
//
// Every sector begins with a link: the track and sector of the next one, 0, 0 in the last.
// Sectors count from 1 within a track; the linear number of a sector is its track times the
// sectors per track plus its sector, and it lies at offset (number - 1) * 256.
//
//   track 0 sector 3, offset 512    System Information Record
//   track 0 sector 5, offset 1024   directory: linked sectors, 24-byte slots behind 16 bytes
//
// System Information Record:
//    0  2  zero
//   16 10  volume label, zero bytes removed
//   26  1  the label's eleventh byte, shown as a number
//   27  2  number of the volume (not used here)
//   29  4  free chain: first track and sector, last track and sector (not used here)
//   35  3  date: month, day, year
//   38  1  last track
//   39  1  sectors per track
//
// Directory slot, 24 bytes:
//    0  8  name; a first byte of 0 ends the directory, bit 7 of it marks a deleted file
//    8  3  extension
//   11  1  attributes
//   13  2  first track and sector
//   15  2  last track and sector (not used here)
//   17  2  sectors, high byte first
//   19  1  not 0: a random file
//   20  3  taken as a date: day, month, year. FLEX leaves byte 20 alone and writes month, day and
//          year from 21 on, so that its own dates have no day here

namespace brindlemoor {

inline constexpr int kFlexSlotBytes = 24;
inline constexpr int kFlexRandomAttribute = 0x08;

/// Reads the information record and the directory into `Disk` and `DirTable`, and gathers the
/// contents of the files, deleted ones too. Shows a message when the record does not begin with
/// two zero bytes, and one for each chain that leads out of the image. `DirCount` ends as the
/// number of rows. A second call for the same disk adds to the counts of `Disk`. Fails with 11
/// for 0 sectors per track, with 7 on links that lead round in a ring of several sectors, with 9
/// on more rows than the table has, and with 6 on more than 32,767 tracks.
void ReadFlexDisk();

/// Gathers a chain of linked sectors from the linear number `cursor` on into `out`, and counts
/// them in `count`. `cursor` is left at the sector after the last one gathered: 0 behind a
/// complete chain. A sector whose next one lies on track 0 gives its bytes from 16 on, any other
/// from 4 on; one that links to itself ends the chain and gives none. A link out of the image
/// shows "ERROR final inprevisto de archivo". A ring of several sectors fails with 7.
void ReadLinkedSectors(std::int32_t& cursor, std::string& out, int& count);

}  // namespace brindlemoor
