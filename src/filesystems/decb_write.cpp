#include "filesystems/decb_write.h"

#include <cstdint>

#include "core/byte_helpers.h"
#include "filesystems/allocate_granule.h"
#include "filesystems/decb.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

/// The granule where the search begins on an empty disk: the last pair before the directory.
constexpr int kFirstChoice = 32;

constexpr int kAsciiFile = 255;
constexpr int kNoGranulesMessage = 17;

/// The old chain of a row, from which granules are taken as places to begin a search at.
struct OldChain {
    std::string Granules;

    /// Moves `granule` to the chain's next one, if there is one left.
    void Follow(int& granule) {
        if (Granules.empty()) return;
        granule = ByteAt(Granules, 0);
        Granules.erase(0, 1);
    }
};

bool TellNoGranules() {
    ShowDiskMessage(MessageText(kNoGranulesMessage));
    return false;
}

}  // namespace

std::string DecbSlotBytes(const DirEntry& row) {
    std::string slot = row.Name;
    slot.resize(8, ' ');
    slot += row.Ext;
    slot.resize(11, ' ');
    slot += static_cast<char>(row.FileType);
    slot += static_cast<char>(row.FormatChar == "B" ? 0 : kAsciiFile);
    slot += static_cast<char>(row.FirstUnit);
    slot += static_cast<char>(row.LastSectorBytes >> 8);
    slot += static_cast<char>(row.LastSectorBytes);
    return slot;
}

void PutDecbSlot(int row, const std::string& slot) {
    PutImageBytes(kDecbDirectoryOffset + std::int64_t{row} * kDecbSlotBytes, slot);
}

bool PlaceDecbFile(std::string_view& data) {
    std::string fat = CutBytes(Disk.ImageBytes, kDecbFatOffset, kDecbFatBytes);
    const DirEntry& row = DirTable[Disk.DirCount];
    OldChain old{row.Chain};
    int granule = kFirstChoice;
    old.Follow(granule);
    if (AllocateGranule(granule, kFirstGranule, fat, data) == kNoGranule) return TellNoGranules();
    PutDecbSlot(Disk.DirCount, DecbSlotBytes(row));
    while (!data.empty()) {
        old.Follow(granule);
        if (AllocateGranule(granule, kNextGranule, fat, data) == kNoGranule) {
            return TellNoGranules();
        }
    }
    PutImageBytes(kDecbFatOffset, fat);
    return true;
}

}  // namespace brindlemoor
