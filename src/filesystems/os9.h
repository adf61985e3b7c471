#pragma once

// OS-9 and NitrOS-9, the volume.
//
// Logical sectors (LSN) count from 0, 256 bytes each; numbers are high byte first. LSN 0:
//    0  3  DD.TOT  sectors of the disk
//    3  1  DD.TKS  sectors of a track
//    4  2  DD.MAP  bytes of the allocation map, which begins at LSN 1
//    6  2  DD.BIT  sectors of a cluster
//    8  3  DD.DIR  LSN of the root directory's file descriptor
//   11  2  DD.OWN  owner; only the byte at 11 is read
//   13  1  DD.ATT  attributes
//   14  2  DD.DSK  disk identification
//   16  1  DD.FMT  format: density and sides
//   17  2  DD.SPT  sectors of a track again
//   19  2  DD.RES  reserved
//   21  3  DD.BT   LSN of the boot file
//   24  2  DD.BSZ  bytes of the boot file
//   26  5  DD.DAT  date of creation
//   31 32  DD.NAM  name of the disk
//   63 192         options

namespace brindlemoor {

/// LSN at which a Disk BASIC boot track lies on a disk of one side, and of two.
inline constexpr int kOs9BootSectorOneSide = 612;
inline constexpr int kOs9BootSectorTwoSides = 1224;
inline constexpr int kOs9BootBytes = 4608;

/// Reads LSN 0 and the allocation map into `Disk`, makes the rows that stand for the map, the boot
/// track and the root, and walks the tree. Asks which figure counts when the image's size is not
/// that of DD.TOT.
///
/// `DirCount` ends as the number of the last row filled, one less than there are: the last row is
/// not listed. Fails with 11 for 0 sectors of a track, with 6 for more than 32,767 tracks or
/// 2,147,483,647 sectors used, with 9 on more rows than the table has, with 7 on files that lie
/// over each other again and again.
void ReadOs9Disk();

}  // namespace brindlemoor
