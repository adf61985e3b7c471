#include "filesystems/write_file.h"

#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/failure_box.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "filesystems/decb_write.h"
#include "filesystems/delete_file.h"
#include "filesystems/dragon_bitmap.h"
#include "filesystems/dragon_write.h"
#include "filesystems/file_names.h"
#include "filesystems/free_space.h"
#include "filesystems/sectors.h"
#include "image/pc_file.h"

namespace brindlemoor {

namespace {

constexpr int kClashMessage = 0;
constexpr int kNoEntryMessage = 16;

/// Added before a number of sectors is cut to its whole part.
constexpr double kNearlyOneSector = 0.999999999999;

/// A tokenised BASIC program begins with this byte.
constexpr int kTokenisedBasic = 255;

/// What a failed writing puts back.
struct Before {
    int Row = -1;  ///< of `Entry`; -1 while no row was touched
    DirEntry Entry;
    int DirRows = Disk.DirRows;
    int DirCount = Disk.DirCount;
    std::string PcFileTypeText = Disk.PcFileTypeText;
    std::string FatBytes = Disk.FatBytes;

    void PutBack() {
        if (Row >= 0) DirTable[Row] = std::move(Entry);
        Disk.DirRows = DirRows;
        Disk.DirCount = DirCount;
        Disk.PcFileTypeText = std::move(PcFileTypeText);
        Disk.FatBytes = std::move(FatBytes);
    }
};

/// How a writing ended.
enum class Ending {
    Written,  ///< or told that it does not fit: the grid is filled
    Refused,  ///< by a message; the grid stays
    GivenUp,  ///< by the user, at the question for another name
};

/// A row of the table, and whether it was that of a deleted file.
struct RowChoice {
    int Row = 0;
    bool Reused = false;
};

/// Walks all rows for live ones of that name. True when there is one; `sectors` is the count of the
/// last of them.
bool FindClash(const std::string& name, std::int64_t& sectors) {
    bool found = false;
    for (int row = 0; row < Disk.DirRows; ++row) {
        const DirEntry& entry = DirTable[row];
        if (entry.FullName != name || (entry.Flags & kFlagDeleted) != 0) continue;
        found = true;
        sectors = entry.SectorCount;
    }
    return found;
}

/// The path goes into the question last: its own bytes are no line breaks and no places.
std::string ClashQuestion(const std::string& path) {
    return ReplaceText(ReplaceText(MessageText(kClashMessage), "\xAC", "\r\n"), "[]", path);
}

/// Finds the file's name, asking for another while there is a clash that may not be overwritten.
/// `oldSectors` gets what the file to be overwritten takes, else 0. False when the user gave up.
bool SettleName(const std::string& path, bool overwrite, DiskFileName& name,
                std::int64_t& oldSectors) {
    name = NameForDisk(WantedName(path));
    while (true) {
        std::int64_t sectors = 0;
        const bool clash = FindClash(name.Text, sectors);
        oldSectors = overwrite ? sectors : 0;
        if (!clash || overwrite) return true;
        const std::string answer = Platform.AskText(ClashQuestion(path), Disk.AppTitle, name.Text);
        if (answer.empty()) return false;
        name = NameForDisk(answer);
    }
}

RowChoice ChooseRow() {
    for (int row = 0; row < Disk.DirRows; ++row) {
        if ((DirTable[row].Flags & kFlagDeleted) != 0) return {row, true};
    }
    return {Disk.DirRows, false};
}

/// The sectors used in the last granule, 1 to 9; 0 for an empty file.
std::uint8_t LastGranuleSectors(std::int64_t fileSize) {
    const auto sectors = static_cast<std::int64_t>(
        std::trunc(static_cast<double>(fileSize) / kSectorSize + kNearlyOneSector));
    const auto last = static_cast<std::uint8_t>(sectors % 9);
    return last == 0 && fileSize > 0 ? std::uint8_t{9} : last;
}

void FillRow(DirEntry& row, const DiskFileName& name, const SpaceNeed& need,
             const std::string& data) {
    row.Name = name.Name;
    row.Ext = name.Ext;
    row.FullName = Trim(row.Name) + "." + Trim(row.Ext);
    row.FileType = static_cast<std::uint8_t>(TypeOfExtension(row.Ext));
    Disk.PcFileTypeText = DecimalText(row.FileType);
    const bool tokens = row.FileType == 0 && ByteOr(data, 0, 0) == kTokenisedBasic;
    row.FormatChar = row.FileType == 2 || tokens ? "B" : "A";
    row.Size = need.FileSize;
    row.Content = data;
    row.Flags = 0;
    row.UnitCount = static_cast<std::int32_t>(need.Needed / need.Unit);
    row.LastGranuleSectors = LastGranuleSectors(need.FileSize);
    row.LastSectorBytes = static_cast<std::int32_t>(need.FileSize % kSectorSize);
    if (row.LastSectorBytes == 0 && need.FileSize > 0) row.LastSectorBytes = kSectorSize;
}

/// Puts the file of the row `DirCount` into the image. False when there was no room for it.
bool PlaceFile(std::string& data) {
    if (Disk.DiskFamily == kDragon) {
        SyncDragonBitmap(false);
        AllocateDragonSectors(Disk.DirCount);
    }
    if (Disk.DiskFamily != kDecb) return true;
    std::string_view left = data;
    const bool placed = PlaceDecbFile(left);
    data.erase(0, data.size() - left.size());
    return placed;
}

void RefreshGrid() {
    const int row = Disk.DirCount;
    Screen.FillDirectoryGrid();
    Disk.DirCount = row;
}

/// The whole writing but for the grid.
Ending WriteFile(std::string path, bool overwrite, std::string& data, Before& before) {
    if (data.empty() && !LoadPcFile("A", path, data, 0)) return Ending::Refused;
    DiskFileName name;
    std::int64_t oldSectors = 0;
    if (!SettleName(path, overwrite, name, oldSectors)) return Ending::GivenUp;
    const RowChoice choice = ChooseRow();
    if (choice.Row > Disk.MaxDirEntries) {
        ShowDiskMessage(MessageText(kNoEntryMessage));
        return Ending::Refused;
    }
    const SpaceNeed need = SpaceNeedOf(static_cast<std::int64_t>(data.size()), oldSectors);
    if (!FitsOnDisk(need, name)) {
        return Disk.DiskFamily != kFlex ? Ending::Written : Ending::Refused;
    }

    before.Entry = DirTable[choice.Row];
    before.Row = choice.Row;
    if (choice.Row >= Disk.DirRows) Disk.DirRows = choice.Row + 1;
    Disk.DirCount = choice.Row;
    FillRow(DirTable[choice.Row], name, need, data);
    if (oldSectors > 0) DeleteDiskFile(name.Text);
    if (!PlaceFile(data)) return Ending::Refused;
    if (choice.Reused) --Disk.DeletedCount;
    return Ending::Written;
}

}  // namespace

bool WriteFileToDisk(const std::string& path, bool overwrite, std::string& data) {
    Before before;
    Ending ending = Ending::Refused;
    const auto failure = FailureOfStep([&] { ending = WriteFile(path, overwrite, data, before); });
    if (failure) {
        before.PutBack();
        ShowFailure(*failure);
        return true;
    }
    if (ending == Ending::Written) RefreshGrid();
    return ending != Ending::GivenUp;
}

}  // namespace brindlemoor
