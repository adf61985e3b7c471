#include "filesystems/dragon.h"

#include <array>
#include <string>

#include "core/bitmap.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "filesystems/dragon_bitmap.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

constexpr int kMostSectorsPerTrack = 36;
constexpr int kMostContinuations = 180;

void WarnOfGeometry(int messageNumber) {
    ShowDiskMessage(MessageText(32) + "\r\n" + MessageText(messageNumber));
}

/// Takes the geometry from the block and compares it with its check bytes.
void ReadGeometry() {
    const std::string block = CutBytes(SectorBytes(kDragonGeometrySector), 252, 4);
    Disk.TrackCount = static_cast<std::int16_t>(ByteOr(block, 0, 0));
    Disk.SectorsPerTrack = static_cast<std::int16_t>(ByteOr(block, 1, 0));
    if (Disk.SectorsPerTrack > kMostSectorsPerTrack) {
        Disk.SectorsPerTrack = kMostSectorsPerTrack;
        // The text about the tracks, although it is the sectors that are wrong.
        WarnOfGeometry(33);
    }
    Disk.SideCount = static_cast<std::int16_t>(Disk.SectorsPerTrack == 36 ? 2 : 1);
    if (255 - Disk.TrackCount != ByteOr(block, 2, 0)) WarnOfGeometry(33);
    if (255 - Disk.SectorsPerTrack != ByteOr(block, 3, 0)) WarnOfGeometry(34);
}

std::string ReadDirectorySectors() {
    std::string directory;
    for (int sector = 0; sector < kDragonDirectorySectors; ++sector) {
        directory += SectorBytes(kDragonDirectorySector + sector, kDragonDirectorySectorBytes);
    }
    return directory;
}

std::string EntryAt(const std::string& directory, int index) {
    return CutBytes(directory, static_cast<std::int64_t>(index) * kDragonEntryBytes,
                    kDragonEntryBytes);
}

/// Names the row `index` by its entry. The full name and the type go by the file's first row.
void NameRow(const std::string& entry, int index) {
    DirEntry& row = DirTable[index];
    const DirEntry& first = DirTable[Disk.DirCount];
    std::string name = CutBytes(entry, 1, 11);
    for (char& letter : name) letter = letter == '\0' ? ' ' : letter;
    name = UpperCase(name);
    row.Name = CutBytes(name, 0, 8);
    row.Ext = CutBytes(name, 8, 3);
    row.FullName = TrimRight(first.Name) + "." + TrimRight(first.Ext);
    row.FileType = first.Ext == "BAS" ? 0 : 2;
    row.FormatChar = "B";
}

/// A row that continues the file takes its names, and has no bytes of its own.
void NameContinuation(int index) {
    const DirEntry& first = DirTable[Disk.DirCount];
    DirEntry& row = DirTable[index];
    row.Name = first.Name;
    row.Ext = first.Ext;
    row.FullName = first.FullName;
    row.FileType = first.FileType;
    row.FormatChar = first.FormatChar;
    row.Content.clear();
    row.Chain.clear();
    row.Size = 0;
}

/// The extents of a file, from its entry and those that continue it.
struct ExtentList {
    std::string Bytes;
    int LastByte = 0;  ///< byte 24 of the last entry
};

/// Follows the entries of the file in the row `DirCount`. A continuation takes all 24 bytes from
/// offset 1 on, so that its last group of three ends in the link byte.
ExtentList FollowEntries(const std::string& directory) {
    ExtentList extents;
    std::array<bool, 256> visited = {};
    int index = Disk.DirCount;
    std::string entry = EntryAt(directory, index);
    while (true) {
        // An entry that is met again leads on for ever.
        if (visited.at(static_cast<std::size_t>(index))) Fail(kOutOfMemory);
        visited.at(static_cast<std::size_t>(index)) = true;
        const int flags = ByteOr(entry, 0, 0);
        if ((flags & kFlagContinuationEntry) == 0) {
            NameRow(entry, index);
            extents.Bytes = CutBytes(entry, 12, 12);
        } else {
            extents.Bytes += CutBytes(entry, 1, 24);
            NameContinuation(index);
        }
        extents.LastByte = ByteOr(entry, 24, 0);
        if ((flags & kFlagContinued) == 0) return extents;
        DirTable[Disk.DirCount].ContinuationLink = static_cast<std::uint8_t>(extents.LastByte);
        index = extents.LastByte;
        entry = EntryAt(directory, index);
        DirTable[index].Flags = static_cast<std::uint8_t>(ByteOr(entry, 0, 0));
    }
}

/// Gathers the bytes of the file's extents, and marks their sectors as used.
void GatherExtents(const std::string& extents, DirEntry& row) {
    row.Content.clear();
    for (std::int64_t place = 0;
         place + kDragonExtentBytes <= static_cast<std::int64_t>(extents.size());
         place += kDragonExtentBytes) {
        const int count = ByteAt(extents, place + 2);
        if (count == 0) return;
        const int sector = BigEndian(CutBytes(extents, place, 2));
        if (place == 0) row.FirstUnit = sector;
        MarkDragonSectors(Disk.FatComputed, sector, count);
        if (sector < 0 || sector >= kDragonSectorLimit) continue;
        GatherBytes(row.Content, static_cast<std::int64_t>(sector) * kSectorSize,
                    static_cast<std::int64_t>(count) * kSectorSize);
        row.Chain += CutBytes(extents, place, kDragonExtentBytes);
    }
}

void ReadFile(const std::string& directory) {
    const ExtentList extents = FollowEntries(directory);
    DirEntry& row = DirTable[Disk.DirCount];
    row.LastSectorBytes = extents.LastByte == 0 ? kSectorSize : extents.LastByte;
    if (!extents.Bytes.empty()) GatherExtents(extents.Bytes, row);
    // Fails where the extents hold fewer bytes than the last sector leaves unused.
    row.Content = Left(row.Content, static_cast<std::int64_t>(row.Content.size()) - kSectorSize +
                                        row.LastSectorBytes);
    row.Size = static_cast<std::int64_t>(row.Content.size());
}

/// Reads all entries up to the end mark. Deleted ones are read like live ones. False when there
/// are too many continuations.
bool ReadEntries(const std::string& directory) {
    for (Disk.DirCount = 0; Disk.DirCount < kDragonEntries; ++Disk.DirCount) {
        const int flags = ByteOr(EntryAt(directory, Disk.DirCount), 0, 0);
        DirTable[Disk.DirCount].Flags = static_cast<std::uint8_t>(flags);
        if ((flags & kFlagEndOfDirectory) != 0) break;
        const bool deleted = (flags & kFlagDeleted) != 0;
        if (deleted) ++Disk.DeletedCount;
        if ((flags & kFlagContinuationEntry) == 0) {
            ReadFile(directory);
        } else {
            if (!deleted) ++Disk.ContinuationCount;
            if (Disk.ContinuationCount > kMostContinuations) return false;
        }
        DirEntry& row = DirTable[Disk.DirCount];
        row.SectorCount = static_cast<std::int32_t>((row.Size + kSectorSize - 1) / kSectorSize);
        row.UnitCount = (row.SectorCount + kDragonGranuleSectors - 1) / kDragonGranuleSectors;
        Disk.UsedSectors += row.SectorCount;
    }
    return true;
}

}  // namespace

bool ReadDragonDisk() {
    ReadGeometry();
    ReadDragonBitmap();
    if (!ReadEntries(ReadDirectorySectors())) return false;
    CompareDragonBitmap();
    Disk.MaxDirEntries = kDragonEntries;
    Disk.TotalUnits = (Disk.TrackCount - 2) * Disk.SectorsPerTrack;
    Screen.ShowSectorPlace(kDragonDirectoryTrack, 3);
    return true;
}

}  // namespace brindlemoor
