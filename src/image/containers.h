#pragma once

#include <string>

// The containers in which the sectors of a disk come.
//
// "dk" header, at the start of the file:
//    0  2  "dk", in any case
//    2  2  header length, low byte first; below 12 counts as 12
//   11  1  bits 3 to 7: length of the disk name; bits 0 to 2: compression code
//   12     disk name
//
// JVC header fields, where a "dk" image's name ends in a JVC extension: sectors per track, sides,
// sector size code (1: 256 bytes), first sector number, sector attribute flag; a byte each.
//
// DMK file: a header of 16 bytes (0 at offset 0, tracks at 1, track length at 2 and 3), then tracks
// of 6400 bytes. A track begins with a table of 128 bytes; the data of the sector in slot K lies
// at offset 216 + 338 * K, and logical sector S (from 0) is in slot Skew[S].

namespace brindlemoor {

/// Takes the container off `Disk.ImageBytes`: "dk" header, header by extension, DMK, in that
/// order. The header cut off goes to `Disk.ImageHeader`; the tracks, sides and name that the
/// header's rules give go to `Disk`. Shows "Solo se aceptan Sectores de 256 bytes" for another
/// sector size. Fails with 11 or 6 on a header whose geometry divides by zero or is out of range.
void RemoveContainer();

/// Whether the bytes of a file are those of a DMK file that `RemoveContainer` turns into plain
/// sectors. Nothing turns sectors into one: saving such a disk does not give a DMK file.
bool IsDmkFile(const std::string& file);

}  // namespace brindlemoor
