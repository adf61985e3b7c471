#include "filesystems/commit_decb.h"

#include <cstdint>
#include <string>
#include <string_view>

#include "core/disk_state.h"
#include "filesystems/decb.h"
#include "filesystems/decb_write.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

/// Bytes of 255 behind a file: a granule less a sector's last bytes.
constexpr std::size_t kFillBytes = 2295;

void CommitSlot(int row) {
    const DirEntry& entry = DirTable[row];
    std::string slot = DecbSlotBytes(entry);
    if (slot.front() == '?' || entry.Flags != 0) slot.front() = '\0';
    PutDecbSlot(row, slot);
}

/// Writes the row's bytes along its chain, and the chain into `fat`, a whole sector.
void CommitChain(const DirEntry& row, std::string& fat) {
    const std::string data = row.Content + std::string(kFillBytes, '\xFF');
    std::string_view left = data;
    for (std::size_t place = 0; place < row.Chain.size(); ++place) {
        const auto granule = static_cast<unsigned char>(row.Chain[place]);
        const std::string_view piece = left.substr(0, kDecbGranuleBytes);
        PutImageBytes(std::int64_t{PhysicalGranule(granule)} * kDecbGranuleBytes, piece);
        left.remove_prefix(piece.size());
        const bool last = place + 1 == row.Chain.size();
        fat[granule] = last ? static_cast<char>(row.LastGranuleSectors | kDecbLastGranule)
                            : row.Chain[place + 1];
    }
}

}  // namespace

void CommitDecbDisk() {
    std::string fat(kDecbFatBytes, static_cast<char>(kDecbFreeGranule));
    fat.resize(kSectorSize, '\0');
    for (int row = 0; row < Disk.DirRows; ++row) {
        CommitSlot(row);
        CommitChain(DirTable[row], fat);
    }
    const std::int64_t sector = std::int64_t{Disk.SectorsPerTrack} * kDecbDirectoryTrack + 1;
    PutImageBytes(sector * kSectorSize, fat);
}

}  // namespace brindlemoor
