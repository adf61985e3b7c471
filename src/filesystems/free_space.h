#pragma once

#include <cstdint>

#include "filesystems/file_names.h"

namespace brindlemoor {

/// What a file needs of the disk, and what there is.
struct SpaceNeed {
    std::int64_t FileSize = 0;     ///< bytes
    std::int64_t Unit = 0;         ///< bytes of what the family gives out: a granule, or a sector
    std::int64_t Needed = 0;       ///< bytes, in whole units
    std::int64_t FreeSectors = 0;  ///< by the totals of the disk, not by its allocation table
};

/// The need of a file of `fileSize` bytes that takes the place of one of `oldSectors` sectors. That
/// number is subtracted from the bytes as it is. Units are counted with a real number a hair below
/// one, so that from 16 on a whole number of units counts as one more.
SpaceNeed SpaceNeedOf(std::int64_t fileSize, std::int64_t oldSectors);

/// True when the file fits; otherwise shows `Messages[18]`. On FLEX it is the file's size that is
/// compared, and the message keeps its places unfilled and says nine times the free bytes. Fails
/// with 9 when the message has more places than values, as a name with "[]" in it makes.
bool FitsOnDisk(const SpaceNeed& need, const DiskFileName& name);

}  // namespace brindlemoor
