#include "filesystems/allocate_granule.h"

#include <algorithm>
#include <cstdint>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "filesystems/decb.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

/// A search that comes to a number beyond these has walked past all granules.
constexpr int kHighestStep = 70;
constexpr int kLowestStep = -6;

/// The first granule behind the directory track, and the pair before it where an upward walk
/// goes on.
constexpr int kBehindDirectory = 34;
constexpr int kBelowDirectory = 30;

/// The first granule lies as near the directory as can be: a pair behind it, a pair before it.
int StepOutwards(int granule) {
    if (granule % 2 == 0) return granule + 1;
    return granule < kBehindDirectory ? 67 - granule : 65 - granule;
}

/// A file grows upwards from where it begins, and then downwards by pairs.
int StepOnwards(int granule) {
    if (granule % 2 != 0 && granule < 32) return granule - 3;
    return granule + 1 > kDecbFatBytes - 1 ? kBelowDirectory : granule + 1;
}

int FindFreeGranule(int granule, int mode, const std::string& fat) {
    while (ByteOr(fat, granule, 0) != kDecbFreeGranule) {
        do {
            granule = mode == kNextGranule ? StepOnwards(granule) : StepOutwards(granule);
            if (granule > kHighestStep || granule < kLowestStep) return kNoGranule;
        } while (granule < 0 || granule >= kDecbFatBytes);
    }
    return granule;
}

void SetFatByte(std::string& fat, int granule, int value) {
    const auto place = static_cast<std::size_t>(granule);
    if (place < fat.size()) fat[place] = static_cast<char>(value);
}

}  // namespace

int AllocateGranule(int& granule, int mode, std::string& fat, std::string_view& data) {
    DirEntry& row = DirTable[Disk.DirCount];
    const int found = FindFreeGranule(granule, mode, fat);
    if (found == kNoGranule) return kNoGranule;
    granule = found;
    if (mode == kFirstGranule) {
        row.FirstUnit = found;
        row.Chain.clear();
    }
    row.Chain += static_cast<char>(found);

    const std::int64_t offset = std::int64_t{PhysicalGranule(found)} * kDecbGranuleBytes;
    // Counted from position 1, the end of the granule comes out one byte too far.
    const auto end = static_cast<std::size_t>(offset) + kDecbGranuleBytes + 1;
    if (Disk.ImageBytes.size() < end) Disk.ImageBytes.resize(end, '\0');
    const std::string_view piece = data.substr(0, kDecbGranuleBytes);
    PutImageBytes(offset, piece);
    data.remove_prefix(piece.size());

    if (row.Chain.size() > 1) {
        SetFatByte(fat, ByteAt(row.Chain, static_cast<std::int64_t>(row.Chain.size()) - 2), found);
    }
    SetFatByte(fat, found, row.LastGranuleSectors + kDecbLastGranule);
    return found;
}

}  // namespace brindlemoor
