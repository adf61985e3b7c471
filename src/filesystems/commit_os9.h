#pragma once

#include <cstdint>
#include <string>

namespace brindlemoor {

/// Makes the image of an OS-9 disk anew from `Disk` and `DirTable`: `TotalSectors` sectors of zero
/// bytes, LSN 0, the map padded with 255 to whole sectors, and the tree. The tree begins at row 0,
/// where every disk that was read has its map, a row without a file descriptor: nothing of it is
/// written, and the image holds LSN 0 and the map alone. (A row 0 named BOOTDECB is written as the
/// boot track, and the tree begins behind it.)
///
/// `DirCount` is left at the row where the tree began. Fails with 7 for a number of sectors below 0
/// or of more than 512 MiB, and with 6 for a date of the disk outside the years 100 to 9999; the
/// image is as it was then.
void CommitOs9Disk();

/// Writes the row `row` of `DirTable` and, when it is a directory, what it holds into the image:
/// the bytes along its segments, and its file descriptor at the 1-based `position`. Rows below it
/// go to where their `FirstUnit` says. `name` is the name of the row, a first byte of 0 a deleted
/// one, whose bytes are not written; `level` is its level in the tree, which says nothing that
/// `TreeLevel` does not.
///
/// A directory's `Content` is made anew from the rows behind it of the same `TreeLevel` as the
/// first of them, up to one of a lower level: also for "." and "..", which so take up their
/// neighbours. A row without `DescriptorSector`, and one whose position is beyond the image, is
/// left out with all that it holds. The map is not changed. Fails with 6 for a date outside the
/// years 100 to 9999.
void WriteOs9Tree(const std::string& name, std::int64_t position, int row, int level);

}  // namespace brindlemoor
