#include "filesystems/delete_file.h"

#include <cmath>
#include <vector>

#include "core/bitmap.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/screen.h"
#include "filesystems/decb.h"
#include "filesystems/dragon.h"
#include "filesystems/dragon_bitmap.h"
#include "filesystems/dragon_write.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

/// What the bytes of a deleted DECB file are overwritten with.
constexpr char kWipedByte = static_cast<char>(255);

/// The row whose link leads on from a deleted Dragon entry that is continued, whichever it is.
constexpr int kLinkRow = 10;

void FindRow(const std::string& name) {
    for (int row = 0; row < Disk.DirRows; ++row) {
        if (DirTable[row].FullName != name) continue;
        Disk.DirCount = row;
        return;
    }
}

/// The sectors used without those of a file of `size` bytes.
std::int32_t UsedWithout(std::int64_t size) {
    const double sectors = std::trunc(static_cast<double>(size - 1) / kSectorSize + 1);
    return WholeNumber32(Disk.UsedSectors - sectors);
}

/// What happens to the row on every family.
void EmptyRow(DirEntry& row) {
    row.Content.clear();
    row.Size = 0;
    row.LastSectorBytes = 0;
    row.UnitCount = 0;
    row.FirstUnit = 0;
    row.LastGranuleSectors = 0;
    row.FileType = 0;
    row.BadSectorMark.clear();
    row.Flags |= kFlagDeleted;
    row.FormatChar = " ";
}

void HideFirstLetter(std::string& name) {
    if (!name.empty()) name.front() = '?';
}

void DeleteFromDecb(DirEntry& row) {
    HideFirstLetter(row.Name);
    HideFirstLetter(row.FullName);
    PutImageBytes(kDecbDirectoryOffset + std::int64_t{Disk.DirCount} * kDecbSlotBytes,
                  std::string(1, '\0'));
    const std::string wiped(kDecbGranuleBytes, kWipedByte);
    for (const char byte : row.Chain) {
        const int granule = static_cast<unsigned char>(byte);
        PutImageBytes(kDecbFatOffset + granule, std::string(1, kWipedByte));
        PutImageBytes(std::int64_t{PhysicalGranule(granule)} * kDecbGranuleBytes, wiped);
    }
    row.Chain.clear();
}

/// Sets the bits of the file's extents: one sector lower, and from the top of each byte.
void FreeExtents(const std::string& chain) {
    const auto length = static_cast<std::int64_t>(chain.size());
    for (std::int64_t place = 0; place < length; place += kDragonExtentBytes) {
        int start = BigEndian(CutBytes(chain, place, 2));
        int end = 0;
        std::string mode = "S-";
        BitmapOp(Disk.FatBytes, start, end, mode, ByteOr(chain, place + 2, 0));
    }
}

/// Marks the entry, and the ones that it is continued in, as deleted. It ends by itself: the walk
/// comes to two rows at most, and one that it comes back to is no longer continued.
void MarkDragonEntries() {
    const int kept = Disk.DirCount;
    int oldFlags = 0;
    do {
        DirEntry& row = DirTable[Disk.DirCount];
        oldFlags = row.Flags;
        row.Flags = kFlagDeleted;
        PutImageBytes(DragonEntryOffset(Disk.DirCount), std::string(1, '\x80'));
        if ((oldFlags & kFlagContinued) != 0) Disk.DirCount = DirTable[kLinkRow].ContinuationLink;
    } while ((oldFlags & kFlagContinued) != 0);
    Disk.DirCount = kept;
}

void DeleteFromDragon(const DirEntry& row) {
    FreeExtents(row.Chain);
    PutDragonBitmap(kDragonGeometrySector);
    MarkDragonEntries();
}

void DeleteRow(bool keepChain) {
    DirEntry& row = DirTable[Disk.DirCount];
    Disk.UsedSectors = UsedWithout(row.Size);
    ++Disk.DeletedCount;
    EmptyRow(row);
    if (Disk.DiskFamily == kDecb) DeleteFromDecb(row);
    if (Disk.DiskFamily == kDragon) DeleteFromDragon(row);
    if (!keepChain) row.Chain.clear();
}

bool MayDelete(const std::string& question) {
    return Platform.ShowMessage(question, Disk.AppTitle, Buttons::OkCancel,
                                MessageIcon::Question) != Answer::Cancel;
}

}  // namespace

std::int16_t DeleteDiskFile(const std::optional<std::string>& name, bool keepChain) {
    if (name) {
        FindRow(*name);
        return 0;
    }
    DeleteRow(keepChain);
    return -1;
}

void DeleteCommand() {
    const std::vector<int> rows = Screen.SelectedRows();
    const auto count = static_cast<std::int64_t>(rows.size());
    // The word stands as it is in every language.
    if (count > 1 && !MayDelete(MessageText(10) + DecimalText(count) + " archivos")) return;
    for (const int row : rows) {
        Disk.DirCount = row;
        if (count == 1 && !MayDelete(MessageText(9) + "\r\n" +
                                     JoinPath(Screen.PcListFolder(), DirTable[row].FullName))) {
            break;
        }
        DeleteDiskFile();
    }
    Screen.FillDirectoryGrid();
}

}  // namespace brindlemoor
