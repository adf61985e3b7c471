#include "filesystems/dragon_write.h"

#include <string>
#include <vector>

#include "core/bitmap.h"
#include "core/byte_helpers.h"
#include "core/runtime_failure.h"
#include "filesystems/dragon_bitmap.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

constexpr int kFirstChoiceTrack = 18;

/// After so many sectors the search jumps by tracks again, as for the first one.
constexpr int kSectorsInARow = 36;

/// The jumps: two tracks down on the tracks below 20, one track up on the others.
constexpr int kJumpDown = 36;
constexpr int kJumpUp = 18;

/// The placing of a file, kept apart from row and image until it is done: a search that never ends
/// leaves no trace.
struct Placement {
    int Start = 0;  ///< first sector of track 18
    int Top = 0;    ///< first sector of track 20
    int End = 0;    ///< sectors of the disk; that number itself still counts as a sector
    int Cursor = 0;
    int WrapCount = 0;
    int Previous = 0;  ///< sector that went into the chain last
    std::string Chain;
    std::string Bitmap;
    std::vector<int> Written;  ///< for each of the file's sectors, the one that its bytes go to
};

bool IsFree(Placement& placement) {
    int start = placement.Cursor + 1;
    int end = 0;
    std::string mode = "?";
    return BitmapOp(placement.Bitmap, start, end, mode) == 1;
}

/// The next sector to try. `jump`: by tracks.
void Step(Placement& placement, bool jump) {
    if (!jump) {
        ++placement.Cursor;
    } else if (placement.Cursor < placement.Top) {
        placement.Cursor -= kJumpDown;
        if (placement.Cursor < 0) placement.Cursor += placement.Top;
    } else {
        placement.Cursor += kJumpUp;
        if (placement.Cursor > placement.End) {
            ++placement.WrapCount;
            placement.Cursor = placement.Start + placement.WrapCount;
        }
    }
}

/// Moves the cursor to a free sector. False when it ran past the end of the disk. Fails with 7 when
/// it comes to a sector again without having run past the end in between: so it would for ever.
bool FindFreeSector(Placement& placement, bool jump) {
    std::vector<bool> tried;
    int wraps = -1;
    while (placement.Cursor <= placement.End) {
        if (placement.Cursor < 0) placement.Cursor = placement.Top;
        if (IsFree(placement)) return true;
        if (wraps != placement.WrapCount) {
            tried.assign(static_cast<std::size_t>(placement.End) + 1, false);
            wraps = placement.WrapCount;
        }
        if (placement.Cursor <= placement.End) {
            std::vector<bool>::reference again =
                tried.at(static_cast<std::size_t>(placement.Cursor));
            if (again) Fail(kOutOfMemory);
            again = true;
        }
        Step(placement, jump);
    }
    return false;
}

/// Adds the sector at the cursor to the chain, and marks the one behind it as used.
void TakeSector(Placement& placement) {
    if (placement.Previous + 1 == placement.Cursor) {
        if (placement.Chain.empty()) Fail(kInvalidCall);
        ++placement.Chain.back();
    } else {
        placement.Chain += static_cast<char>(placement.Cursor >> 8);
        placement.Chain += static_cast<char>(placement.Cursor);
        placement.Chain += '\1';
    }
    placement.Previous = placement.Cursor;
    ++placement.Cursor;
    MarkDragonSectors(placement.Bitmap, placement.Cursor, 1);
    placement.Written.push_back(placement.Cursor);
}

Placement StartPlacement(const DirEntry& row) {
    Placement placement;
    placement.Start = Disk.SectorsPerTrack * kFirstChoiceTrack;
    placement.Top = Disk.SectorsPerTrack * kDragonDirectoryTrack;
    placement.End = Disk.TrackCount * Disk.SectorsPerTrack;
    placement.Cursor = placement.Start;
    placement.Chain = row.Chain;
    placement.Bitmap = Disk.FatBytes;
    return placement;
}

}  // namespace

int FindFreeDragonEntry() {
    for (int entry = 0; entry < kDragonEntries; ++entry) {
        const int flags = ByteOr(Disk.ImageBytes, DragonEntryOffset(entry), 0);
        if ((flags & (kFlagDeleted | kFlagEndOfDirectory)) != 0) return entry;
    }
    return -1;
}

void AllocateDragonSectors(int row) {
    DirEntry& file = DirTable[row];
    Placement placement = StartPlacement(file);
    bool whole = true;
    for (int sector = 0; whole && sector < file.UnitCount; ++sector) {
        whole = FindFreeSector(placement, sector % kSectorsInARow == 0);
        if (whole) TakeSector(placement);
    }

    file.Chain = placement.Chain;
    Disk.FatBytes = placement.Bitmap;
    std::int64_t from = 0;
    for (const int sector : placement.Written) {
        PutImageBytes(std::int64_t{sector} * kSectorSize,
                      CutBytes(file.Content, from, kSectorSize));
        from += kSectorSize;
    }
    if (whole) SyncDragonBitmap(true);
}

}  // namespace brindlemoor
