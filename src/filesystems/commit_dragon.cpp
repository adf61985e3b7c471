#include "filesystems/commit_dragon.h"

#include <cstdint>
#include <string>
#include <string_view>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "filesystems/dragon.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kNameBytes = 8;
constexpr std::size_t kExtBytes = 3;

/// Bytes of extents in a file's own entry, and in one that continues it.
constexpr std::size_t kOwnExtentBytes = 12;
constexpr std::size_t kContinuedExtentBytes = 21;

/// Bytes of a continuation entry between its flags and its last byte.
constexpr std::size_t kContinuationBytes = 23;

/// Entries behind the last row that are written as never used. With no rows at all the last entry
/// of the directory is left without one.
constexpr int kUnusedEntries = 159;

/// The copy of the directory, on track 16 of a disk of 18 sectors a track, on every disk.
constexpr int kDirectoryCopySector = 290;

std::string Padded(std::string bytes, std::size_t length, char filler) {
    bytes.resize(length, filler);
    return bytes;
}

/// Writes the row's bytes along its chain.
void WriteExtents(const DirEntry& row) {
    std::string_view left = row.Content;
    const auto length = static_cast<std::int64_t>(row.Chain.size());
    for (std::int64_t place = 0; place < length; place += kDragonExtentBytes) {
        const int count = ByteOr(row.Chain, place + 2, 0);
        if (count == 0) return;
        const int sector = ByteAt(row.Chain, place) * 256 + ByteAt(row.Chain, place + 1);
        const auto bytes = static_cast<std::size_t>(count) * kSectorSize;
        const std::string_view piece = left.substr(0, bytes);
        PutImageBytes(std::int64_t{sector} * kSectorSize, piece);
        left.remove_prefix(piece.size());
    }
}

/// Gives the extents behind the fourth to the rows that the links lead to.
void SpreadChain(DirEntry& row) {
    std::string left = row.Chain.substr(kOwnExtentBytes);
    const int lastSectorBytes = row.LastSectorBytes;
    row.Chain.resize(kOwnExtentBytes);
    int link = row.ContinuationLink;
    while (true) {
        DirEntry& next = DirTable[link];
        next.Chain = left.substr(0, kContinuedExtentBytes);
        next.Name.clear();
        next.Ext.clear();
        left.erase(0, next.Chain.size());
        if (left.empty()) {
            next.LastSectorBytes = lastSectorBytes;
            return;
        }
        link = next.ContinuationLink;
    }
}

char LastByte(const DirEntry& row) {
    if ((row.Flags & kFlagContinued) != 0) return static_cast<char>(row.ContinuationLink);
    return static_cast<char>(row.LastSectorBytes);  // 256 is 0
}

std::string EntryBytes(const DirEntry& row) {
    std::string entry(1, static_cast<char>(row.Flags));
    if ((row.Flags & kFlagContinuationEntry) != 0) {
        entry += Padded(row.Chain, kContinuationBytes, '\0');
    } else {
        entry += row.Name + row.Ext + Padded(row.Chain, kOwnExtentBytes, '\0');
    }
    return entry + LastByte(row);
}

}  // namespace

void CommitDragonDisk() {
    std::string entries;
    for (int index = 0; index < Disk.DirRows; ++index) {
        DirEntry& row = DirTable[index];
        if (row.Chain.size() <= kOwnExtentBytes) {
            WriteExtents(row);
        } else {
            SpreadChain(row);
        }
        row.Name = Padded(Trim(row.Name), kNameBytes, ' ');
        row.Ext = Padded(Trim(row.Ext), kExtBytes, ' ');
        entries += EntryBytes(row);
    }
    const std::string unused =
        Padded(std::string(1, static_cast<char>(kDragonUnusedEntry)), kDragonEntryBytes, '\0');
    for (int count = 0; count < kUnusedEntries; ++count) entries += unused;
    for (int sector = 0; sector < kDragonDirectorySectors; ++sector) {
        const std::string bytes =
            CutBytes(entries, std::int64_t{sector} * kDragonDirectorySectorBytes,
                     kDragonDirectorySectorBytes) +
            std::string(kSectorSize - kDragonDirectorySectorBytes, '\0');
        for (const int first : {kDragonDirectorySector, kDirectoryCopySector}) {
            PutImageBytes((std::int64_t{first} + sector) * kSectorSize, bytes);
        }
    }
}

}  // namespace brindlemoor
