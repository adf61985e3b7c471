#include "filesystems/flex.h"

#include <algorithm>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "filesystems/os9_text.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

constexpr int kInformationSector = 2;  // logical sectors count from 0
constexpr std::int32_t kDirectoryCursor = 5;
constexpr int kDataOffset = 4;
constexpr int kTrackZeroDataOffset = 16;

/// Links name a track and a sector in a byte each: no linear number is larger.
constexpr std::size_t kMostLinearSectors = 255 * 255 + 255 + 1;

std::string WithoutZeroBytes(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), '\0'), text.end());
    return text;
}

int LinearSector(int track, int sector) {
    return track * Disk.SectorsPerTrack + sector;
}

void ReadInformationRecord() {
    const std::string record = SectorBytes(kInformationSector);
    if (ByteOr(record, 0, 0) != 0 || ByteOr(record, 1, 0) != 0) {
        ShowDiskMessage("Error al leer System Information Record (SIR).");
    }
    Disk.DiskName = WithoutZeroBytes(CutBytes(record, 16, 10)) + " (" +
                    DecimalText(ByteOr(record, 26, 0)) + ")";
    // Year, month, day from month, day, year.
    ReadOs9Date(CutBytes(record, 37, 1) + CutBytes(record, 35, 2), Disk.DiskDate);
    Disk.TrackCount = static_cast<std::int16_t>(ByteOr(record, 38, 0));
    Disk.SectorsPerTrack = static_cast<std::int16_t>(ByteOr(record, 39, 0));
}

/// The 1-based position of the last byte that is not 0; `otherwise` when there is none.
std::int64_t LastUsedPosition(const std::string& content, std::int64_t otherwise) {
    const std::size_t last = content.find_last_not_of('\0');
    return last == std::string::npos ? otherwise : static_cast<std::int64_t>(last) + 1;
}

/// Gathers the file of a row, and fills what only a row with a first sector has.
void ReadFlexFile(const std::string& slot, DirEntry& row) {
    int count = 0;
    // The row's own first sector is the cursor: behind a whole file it is 0.
    ReadLinkedSectors(row.FirstUnit, row.Content, count);
    row.Size = LastUsedPosition(row.Content, row.Size);
    row.SectorCount = BigEndian(CutBytes(slot, 17, 2));
    if (ByteOr(slot, 19, 0) != 0) row.Attributes |= kFlexRandomAttribute;
    // These three bytes are turned round whole, so that month and day change places.
    ReadOs9Date(CutBytes(slot, 22, 1) + CutBytes(slot, 21, 1) + CutBytes(slot, 20, 1),
                row.CreatedDate);
}

void ReadFlexSlot(const std::string& slot, DirEntry& row) {
    row.Name = WithoutZeroBytes(CutBytes(slot, 0, 8));
    const bool deleted = (ByteOr(row.Name, 0, 0) & 0x80) != 0;
    // A row that was only deleted in the table is back when the same disk is read again.
    row.Flags = deleted ? kFlagDeleted : 0;
    if (deleted) ++Disk.DeletedCount;
    row.Ext = WithoutZeroBytes(CutBytes(slot, 8, 3));
    row.FullName = row.Name + "'" + row.Ext;
    row.Attributes = static_cast<std::uint8_t>(ByteOr(slot, 11, 0));
    row.FirstUnit = LinearSector(ByteOr(slot, 13, 0), ByteOr(slot, 14, 0));
    if (row.FirstUnit != 0) ReadFlexFile(slot, row);
    Disk.UsedSectors += row.SectorCount;
}

void ReadFlexDirectory() {
    const auto slots = static_cast<int>(Disk.FlexDirectory.size() / kFlexSlotBytes);
    for (Disk.DirCount = 0; Disk.DirCount < slots; ++Disk.DirCount) {
        const std::string slot =
            CutBytes(Disk.FlexDirectory, static_cast<std::int64_t>(Disk.DirCount) * kFlexSlotBytes,
                     kFlexSlotBytes);
        if (ByteAt(slot, 0) == 0) return;
        ReadFlexSlot(slot, DirTable[Disk.DirCount]);
    }
}

/// The tracks that the image holds. The view goes to the root of the OS-9 disk that was read last.
void SetFlexGeometry() {
    if (Disk.SectorsPerTrack == 0) Fail(kDivisionByZero);
    const double tracks = static_cast<double>(Disk.TotalSectors) / Disk.SectorsPerTrack;
    Disk.TrackCount = WholeNumber16(tracks);
    const int track = Disk.Os9RootLsn / Disk.SectorsPerTrack;
    Screen.ShowSectorPlace(track, Disk.Os9RootLsn - track * Disk.SectorsPerTrack + 2);
    Disk.MaxDirEntries = static_cast<std::int32_t>(Disk.FlexDirectory.size() / kFlexSlotBytes);
    Disk.TotalUnits = Disk.TotalSectors - 2;
}

}  // namespace

void ReadLinkedSectors(std::int32_t& cursor, std::string& out, int& count) {
    out.clear();
    std::vector<bool> visited(kMostLinearSectors, false);
    do {
        const std::int64_t offset = (static_cast<std::int64_t>(cursor) - 1) * kSectorSize;
        const std::string link = CutBytes(Disk.ImageBytes, offset, 2);
        if (link.empty()) {
            ShowDiskMessage("ERROR final inprevisto de archivo");
            return;
        }
        const int track = ByteAt(link, 0);
        const int next = LinearSector(track, ByteOr(link, 1, 0));
        if (next == cursor) return;
        // A chain that comes back to a sector goes round for ever.
        std::vector<bool>::reference seen = visited.at(static_cast<std::size_t>(cursor));
        if (seen) Fail(kOutOfMemory);
        seen = true;
        cursor = next;
        const int start = track == 0 ? kTrackZeroDataOffset : kDataOffset;
        GatherBytes(out, offset + start, kSectorSize - start);
        ++count;
    } while (cursor != 0);
}

void ReadFlexDisk() {
    Disk.TotalSectors = static_cast<std::int32_t>(Disk.ImageBytes.size() / kSectorSize);
    ReadInformationRecord();
    std::int32_t cursor = kDirectoryCursor;
    int count = 0;
    ReadLinkedSectors(cursor, Disk.FlexDirectory, count);
    ReadFlexDirectory();
    SetFlexGeometry();
}

}  // namespace brindlemoor
