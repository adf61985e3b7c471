#include "filesystems/commit_os9.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "filesystems/os9_text.h"
#include "filesystems/os9_walk.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

constexpr std::int64_t kMapOffset = 256;
constexpr std::size_t kDiskNameBytes = 32;
constexpr std::size_t kOptionBytes = 192;
constexpr std::size_t kSegmentListBytes = 240;
constexpr int kFullDate = 5;
constexpr int kShortDate = 3;

/// The lowest `length` bytes of `value`, highest first.
std::string Number(std::int64_t value, int length) {
    std::string bytes;
    for (int byte = length - 1; byte >= 0; --byte) bytes += static_cast<char>(value >> (8 * byte));
    return bytes;
}

std::string Padded(std::string bytes, std::size_t length) {
    bytes.resize(length, '\0');
    return bytes;
}

std::string IdentificationBytes() {
    return Number(Disk.TotalSectors, 3) + Number(Disk.SectorsPerTrack, 1) +
           Number(static_cast<std::int64_t>(Disk.FatBytes.size()), 2) +
           Number(Disk.Os9ClusterSize, 2) + Number(Disk.Os9RootLsn, 3) + Number(Disk.Os9Owner, 2) +
           Number(Disk.Os9DiskAttr, 1) + Number(Disk.Os9DiskId, 2) + Number(Disk.Os9Format, 1) +
           Number(Disk.Os9SectorsField, 2) + Padded(Disk.Os9Reserved, 2) +
           Number(Disk.Os9BootLsn, 3) + Number(Disk.Os9BootSize, 2) +
           Os9DateField(Disk.DiskDate, kFullDate) +
           Padded(Os9NameText(Disk.DiskName), kDiskNameBytes) +
           Padded(Disk.Os9Options, kOptionBytes);
}

/// The map, filled with 255 up to the end of the sector that it ends in, or by a whole sector.
std::string MapBytes() {
    std::string map = Disk.FatBytes;
    map.resize((map.size() / kSectorSize + 1) * kSectorSize, '\xFF');
    return map;
}

std::string BlankImage() {
    const std::int64_t bytes = std::int64_t{Disk.TotalSectors} * kSectorSize;
    if (bytes < 0 || bytes > kMostGatheredBytes) Fail(kOutOfMemory);
    return std::string(static_cast<std::size_t>(bytes), '\0');
}

/// Writes the boot track that is row 0, at the one segment of its chain.
void WriteBootRow() {
    const DirEntry& row = DirTable[Disk.DirCount];
    if (row.Name != "BOOTDECB") return;
    const int start = BigEndian(CutBytes(row.Chain, 0, 3));
    const int count = ByteOr(row.Chain, 3, 0) * 256 + ByteOr(row.Chain, 4, 0);
    PutImageBytes(std::int64_t{start} * kSectorSize,
                  CutBytes(row.Content, 0, std::int64_t{count} * kSectorSize));
    ++Disk.DirCount;
}

/// A row of the tree and where its descriptor goes.
struct TreeRow {
    int Row = 0;
    std::int64_t Position = 0;  ///< from 1
    std::string Name;
};

bool IsWritten(const TreeRow& place) {
    const bool inImage =
        place.Position >= 1 && place.Position <= static_cast<std::int64_t>(Disk.ImageBytes.size());
    return inImage && !DirTable[place.Row].DescriptorSector.empty();
}

/// The rows that count as what the directory `row` holds.
std::vector<int> ChildrenOf(int row) {
    std::vector<int> children;
    const int first = row + 1;
    if ((DirTable[row].Attributes & kAttributeDirectory) == 0 || first >= Disk.DirRows) return {};
    const int level = DirTable[first].TreeLevel;
    for (int child = first; child < Disk.DirRows; ++child) {
        if (DirTable[child].TreeLevel < level) break;
        if (DirTable[child].TreeLevel == level) children.push_back(child);
    }
    return children;
}

/// The row `row` of the tree below `root`: a row's own place, but for the root itself.
TreeRow PlaceOf(int row, const TreeRow& root) {
    if (row == root.Row) return root;
    const DirEntry& entry = DirTable[row];
    return {row, std::int64_t{entry.FirstUnit} * kSectorSize + 1, entry.Name};
}

/// `root` and all rows below it, each once, in the order in which they are written.
///
/// Going down the tree writes every row behind those that it holds, and writes a row again for each
/// of the rows that it counts under, which can be more times than could ever be finished. A row is
/// written in the same way each time, so that only its last time matters: seen from the end, the
/// first. From the end, a row stands before those that it holds, the last of them first.
std::vector<TreeRow> RowsInOrder(const TreeRow& root) {
    std::vector<TreeRow> order;
    std::vector<bool> seen(kDirTableRows, false);
    std::vector<int> open{root.Row};
    while (!open.empty()) {
        const int row = open.back();
        open.pop_back();
        if (seen.at(static_cast<std::size_t>(row))) continue;
        seen[static_cast<std::size_t>(row)] = true;
        TreeRow place = PlaceOf(row, root);
        if (!IsWritten(place)) continue;
        for (const int child : ChildrenOf(row)) open.push_back(child);
        order.push_back(std::move(place));
    }
    std::reverse(order.begin(), order.end());
    return order;
}

std::string DirectoryBytes(int row) {
    std::string entries;
    for (const int child : ChildrenOf(row)) {
        const DirEntry& entry = DirTable[child];
        entries += Padded(Os9NameText(entry.Name), kOs9NameBytes) + Number(entry.FirstUnit, 3);
    }
    return entries;
}

/// Writes the row's bytes along its segments.
void WriteSegments(const DirEntry& row) {
    const std::int64_t diskSectors = std::int64_t{Disk.TrackCount} * Disk.SectorsPerTrack;
    std::string_view left = row.Content;
    const auto chain = static_cast<std::int64_t>(row.Chain.size());
    for (std::int64_t place = 0; place < chain; place += kOs9SegmentBytes) {
        const std::int64_t start = BigEndian(CutBytes(row.Chain, place, 3));
        if (start > diskSectors) return;
        const std::int64_t asked =
            ByteOr(row.Chain, place + 3, 0) * 256 + ByteOr(row.Chain, place + 4, 0);
        const std::int64_t count = std::min(asked, diskSectors - start);
        const std::string_view piece =
            left.substr(0, static_cast<std::size_t>(count) * kSectorSize);
        PutImageBytes(start * kSectorSize, piece);
        left.remove_prefix(piece.size());
    }
}

void WriteRow(const TreeRow& place) {
    DirEntry& row = DirTable[place.Row];
    std::string descriptor = Padded(row.DescriptorSector, kSectorSize);
    const std::string fields = Number(row.Attributes, 1) + Number(row.OwnerId, 2) +
                               Os9DateField(row.ModifiedDate, kFullDate) +
                               Number(row.LinkCount, 1) + Number(row.Size, 4) +
                               Os9DateField(row.CreatedDate, kShortDate);
    descriptor.replace(0, fields.size(), fields);
    if ((row.Attributes & kAttributeDirectory) != 0) row.Content = DirectoryBytes(place.Row);
    if (ByteOr(place.Name, 0, -1) != 0) {
        WriteSegments(row);
        descriptor.replace(fields.size(), kSegmentListBytes, Padded(row.Chain, kSegmentListBytes));
    }
    PutImageBytes(place.Position - 1, descriptor);
}

}  // namespace

void WriteOs9Tree(const std::string& name, std::int64_t position, int row, int /*level*/) {
    for (const TreeRow& place : RowsInOrder({row, position, name})) WriteRow(place);
}

void CommitOs9Disk() {
    const std::string identification = IdentificationBytes();
    Disk.ImageBytes = BlankImage();
    PutImageBytes(0, identification);
    PutImageBytes(kMapOffset, MapBytes());
    Disk.DirCount = 0;
    WriteBootRow();
    const std::int64_t position = std::int64_t{Disk.Os9RootLsn} * kSectorSize + 1;
    WriteOs9Tree("ROOT", position, Disk.DirCount, 0);
}

}  // namespace brindlemoor
