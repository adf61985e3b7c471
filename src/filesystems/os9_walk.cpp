#include "filesystems/os9_walk.h"

#include <algorithm>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "filesystems/os9_text.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

/// A directory whose entries are being walked. The walk keeps these in a list of its own, so that
/// a deep tree does not use up the machine's stack.
struct OpenDirectory {
    int Row = 0;
    int Level = 0;
    std::int64_t NextEntry = 0;  ///< offset in the row's content
};

/// Gathers the file along its segments, and counts their sectors.
void GatherSegments(DirEntry& row) {
    const int diskSectors = Disk.TrackCount * Disk.SectorsPerTrack;
    const auto chain = static_cast<std::int64_t>(row.Chain.size());
    for (std::int64_t place = 0; place < chain; place += kOs9SegmentBytes) {
        const int start = BigEndian(CutBytes(row.Chain, place, 3));
        int count = ByteOr(row.Chain, place + 3, 0) * 256 + ByteOr(row.Chain, place + 4, 0);
        if (start > diskSectors) return;
        count = std::min(count, diskSectors);
        row.SectorCount += count;
        // What lies behind the file's size is cut off anyway, and is not gathered at all.
        const auto wanted =
            std::min<std::int64_t>(static_cast<std::int64_t>(count) * kSectorSize,
                                   row.Size - static_cast<std::int64_t>(row.Content.size()));
        if (wanted > 0) {
            GatherBytes(row.Content, static_cast<std::int64_t>(start) * kSectorSize, wanted);
        }
    }
}

/// Adds to the sectors used, in the 32 bits that the sum has.
void AddUsedSectors(int sectors) {
    Disk.UsedSectors = WholeNumber32(static_cast<double>(Disk.UsedSectors) + sectors);
}

/// Fills a row from the descriptor at `position`. True when it is a directory to be walked.
bool ReadDescriptor(const std::string& name, std::int64_t position, DirEntry& row, int level) {
    if (position < 1 || position > static_cast<std::int64_t>(Disk.ImageBytes.size())) return false;
    const std::string descriptor = Mid(Disk.ImageBytes, position, kSectorSize);
    row.DescriptorSector = descriptor;
    row.Attributes = static_cast<std::uint8_t>(ByteAt(descriptor, 0));
    ReadOs9Date(CutBytes(descriptor, 3, 5), row.ModifiedDate);
    row.LinkCount = static_cast<std::int16_t>(ByteOr(descriptor, 8, 0));
    row.Size = BigEndian(CutBytes(descriptor, 9, 4));
    row.SectorCount =
        static_cast<std::int32_t>(row.Size / kSectorSize + (row.Size % kSectorSize != 0 ? 1 : 0));
    AddUsedSectors(row.SectorCount);
    if (row.Size < 0) return false;
    ReadOs9Date(CutBytes(descriptor, 13, 3), row.CreatedDate);
    row.TreeLevel = static_cast<std::int16_t>(level);
    row.SectorCount = 1;
    if (ByteOr(name, 0, -1) == 0) {
        row.Flags = kFlagDeleted;
        ++Disk.DeletedCount;
        row.Size = 0;
    } else {
        row.Chain = ReplaceText(CutBytes(descriptor, 16, 240), std::string(5, '\0'), "");
        GatherSegments(row);
    }
    if ((row.Attributes & kAttributeDirectory) == 0) return false;
    row.Ext = "DIR";
    return ByteOr(name, 0, 0) != '.';
}

/// The text behind the last point of a name, at most three characters.
std::string Os9Extension(const std::string& name) {
    const std::size_t point = name.rfind('.');
    return point == std::string::npos ? std::string() : name.substr(point + 1, 3);
}

/// Takes the next entry of the directory that was opened last: fills its row, and opens it in its
/// turn when it is a directory. Closes the directory at its end.
void TakeNextEntry(std::vector<OpenDirectory>& open, int& row) {
    OpenDirectory& directory = open.back();
    const std::string entry =
        CutBytes(DirTable[directory.Row].Content, directory.NextEntry, kOs9EntryBytes);
    directory.NextEntry += kOs9EntryBytes;
    // A deleted entry ends the listing, whatever stands behind it.
    if (ByteOr(entry, 0, 0) == 0) {
        open.pop_back();
        return;
    }
    const int level = directory.Level + 1;
    const std::string name = Os9NameText(CutBytes(entry, 0, kOs9NameBytes));
    ++row;
    DirEntry& child = DirTable[row];
    child.Name = name;
    child.Ext = Os9Extension(name);
    child.FullName = child.Name + "." + child.Ext;
    child.FirstUnit = BigEndian(CutBytes(entry, kOs9NameBytes, 3));
    if (ByteOr(name, 0, 0) == '.') ++Disk.ContinuationCount;
    const std::int64_t position = static_cast<std::int64_t>(child.FirstUnit) * kSectorSize + 1;
    if (ReadDescriptor(name, position, child, level)) open.push_back({row, level, 0});
}

}  // namespace

void WalkOs9Directory(const std::string& name, std::int64_t position, int& row, int level) {
    std::vector<OpenDirectory> open;
    if (ReadDescriptor(name, position, DirTable[row], level)) open.push_back({row, level, 0});
    while (!open.empty()) TakeNextEntry(open, row);
}

}  // namespace brindlemoor
