#include "image/read_disk.h"

#include <array>
#include <cstdint>
#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/screen.h"
#include "filesystems/decb.h"
#include "filesystems/dragon.h"
#include "filesystems/flex.h"
#include "filesystems/os9.h"
#include "filesystems/sectors.h"
#include "image/containers.h"

namespace brindlemoor {

namespace {

/// A floppy of up to 35 tracks, or of exactly 40, on one side.
bool HasDecbSize() {
    const std::size_t sectors = Disk.ImageBytes.size() / kSectorSize;
    return sectors <= 630 || sectors == 720;
}

/// Track 20 sector 1 of a Dragon disk ends in its tracks and sectors and their complements.
bool HasDragonGeometryBlock() {
    constexpr std::int64_t kGeometrySector = 92160;
    const std::string sector = CutBytes(Disk.ImageBytes, kGeometrySector, kSectorSize);
    return sector.size() == kSectorSize && ByteAt(sector, 252) + ByteAt(sector, 254) == 255 &&
           ByteAt(sector, 253) + ByteAt(sector, 255) == 255;
}

/// LSN 0 of an OS-9 disk says the sectors of a track twice: DD.TKS and DD.SPT.
bool HasOs9TrackSize() {
    const int sectors = ByteOr(Disk.ImageBytes, 3, 0);
    return sectors > 0 && BigEndian(CutBytes(Disk.ImageBytes, 17, 2)) == sectors;
}

/// The first directory sector of a FLEX disk, track 0 sector 5, links to sector 6.
bool HasFlexDirectoryLink() {
    return BigEndian(CutBytes(Disk.ImageBytes, 1024, 2)) == 6;
}

struct FamilyTest {
    Family Finding;
    bool (*Holds)();
};

/// From the weakest evidence to the strongest: a later test that holds overrides earlier ones.
/// DECB has no mark of its own, and is what remains.
constexpr std::array<FamilyTest, 4> kFamilyTests = {{{kDecb, HasDecbSize},
                                                     {kDragon, HasDragonGeometryBlock},
                                                     {kOs9, HasOs9TrackSize},
                                                     {kFlex, HasFlexDirectoryLink}}};

void DecideFamily() {
    Disk.DiskFamily = kUndecided;
    for (const FamilyTest& test : kFamilyTests) {
        if (test.Holds()) Disk.DiskFamily = test.Finding;
    }
    if (Disk.DiskFamily == kUndecided) Disk.DiskFamily = kDecb;
}

/// Runs the family's reader. False when it gave the disk up: no rows are shown then.
bool ReadFamily() {
    switch (Disk.DiskFamily) {
        case kDragon:
            return ReadDragonDisk();
        case kOs9:
            ReadOs9Disk();
            return true;
        case kFlex:
            ReadFlexDisk();
            return true;
        default:
            return ReadDecbDisk();
    }
}

}  // namespace

void ReadDisk() {
    ResetDisk();
    ResetGatheredBytes();
    if (Disk.ImageBytes.empty()) return;
    RemoveContainer();
    DecideFamily();
    Screen.ShowGranuleField(false);
    if (ReadFamily()) Disk.DirRows = Disk.DirCount;
}

}  // namespace brindlemoor
