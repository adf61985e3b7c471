#pragma once

#include <cstdint>

#include "core/disk_state.h"
#include "filesystems/dragon.h"

namespace brindlemoor {

/// The 0-based offset at which a Dragon directory entry is looked up and marked in place. Only for
/// the first ten is it the entry's own: the spare bytes of the directory's sectors are counted as
/// one in sixty entries.
constexpr std::int64_t DragonEntryOffset(int entry) {
    return std::int64_t{kDragonDirectorySector} * kSectorSize +
           std::int64_t{entry} * kDragonEntryBytes + entry / 60;
}

/// The first of the 160 entries whose flag byte at `DragonEntryOffset` says deleted or end of the
/// directory, or -1.
int FindFreeDragonEntry();

/// Places the `Content` of a row of a Dragon disk: finds `UnitCount` free sectors by the bitmap in
/// `Disk.FatBytes`, from track 18 on, adds them to the row's `Chain`, marks them as used and writes
/// the bytes.
///
/// The sector that is marked and written is the one behind the sector that goes into `Chain`, so
/// that a file takes every second sector, each an extent of its own; `CommitDirectory` writes the
/// bytes to where `Chain` says. Bytes behind the end of the image are dropped.
///
/// A search that runs past the end of the disk ends here, with what was placed by then; only after
/// the last sector does the bitmap go into the image. Fails with 7 when the search goes round for
/// ever, and with 5 when it finds sector 1 for the first sector of a row without a chain: the row,
/// the bitmap and the image are as they were then.
void AllocateDragonSectors(int row);

}  // namespace brindlemoor
