#include "filesystems/decb.h"

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

/// A chain longer than this is a loop.
constexpr std::size_t kLongestChain = 100;

/// The byte that fresh or unreadable sectors are filled with.
constexpr char kBlankByte = static_cast<char>(235);

constexpr int kDiskNameBytes = 256;

/// Bytes of a slot that hold something.
constexpr std::size_t kDecbSlotFields = 16;

/// The first byte of the slot behind the last one.
constexpr int kEndOfDirectory = 255;

void SetGeometry() {
    const double sectors = static_cast<double>(Disk.ImageBytes.size()) / kSectorSize;
    Disk.SectorsPerTrack = kDecbSectorsPerTrack;
    if (sectors <= 630) {
        Disk.TrackCount = 35;
    } else if (sectors <= 720) {
        Disk.TrackCount = 40;
    } else if (sectors <= 1440) {
        Disk.TrackCount = 80;
    } else {
        Disk.TrackCount = WholeNumber16(WholeNumber32(sectors) / kDecbSectorsPerTrack);
    }
    Disk.TotalSectors = Disk.TrackCount * kDecbSectorsPerTrack;
    Disk.MaxDirEntries = kDecbSlots;
    Disk.TotalUnits = (Disk.TrackCount - 1) * kDecbSectorsPerTrack;
}

/// The name before the first zero byte; a name without one is none.
std::string StoredDiskName() {
    const std::string bytes = CutBytes(Disk.ImageBytes, kDecbNameOffset, kDiskNameBytes);
    const std::size_t end = bytes.find('\0');
    return end == std::string::npos ? std::string() : bytes.substr(0, end);
}

void ReadSlot(const std::string& slot, DirEntry& row) {
    if (ByteOr(slot, 0, 0) == 0) {
        ++Disk.DeletedCount;
        row.Flags |= kFlagDeleted;
    }
    row.Name = UpperCase(CutBytes(slot, 0, 8));
    row.Ext = UpperCase(CutBytes(slot, 8, 3));
    row.FileType = static_cast<std::uint8_t>(ByteOr(slot, 11, 0));
    row.FormatChar = ByteOr(slot, 12, 0) == 0 ? "B" : "A";
    row.FirstUnit = ByteOr(slot, 13, 0);
    row.FullName = TrimRight(row.Name) + "." + TrimRight(row.Ext);
    row.LastSectorBytes = BigEndian(CutBytes(slot, 14, 2));
    if (row.LastSectorBytes > kSectorSize) {
        ShowDiskMessage("Error !!!, el archivo " + row.FullName + ", Tiene " +
                        DecimalText(row.LastSectorBytes) +
                        " Bytes en el último sector, esto es imposible solo puede tener 256"_w);
    }
}

/// Looks for an earlier row that begins with the same granule. True when one was reported.
bool ReportClash(const DirEntry& row) {
    for (int earlier = 0; earlier < Disk.DirCount; ++earlier) {
        const DirEntry& other = DirTable[earlier];
        if (ByteOr(other.Name, 0, 0) == 0 || other.FirstUnit != row.FirstUnit) continue;
        ShowDiskMessage("Ërror!!!... El granulo inicial "_w + DecimalText(row.FirstUnit) +
                        " del archivo: " + row.FullName + "\r\n" +
                        "Ya está usado, en el archivo: "_w + other.FullName);
        return true;
    }
    return false;
}

/// Writes the row's chain into the recomputed FAT.
void AddChainToFat(const DirEntry& row, std::string& fat) {
    for (std::size_t place = 0; place < row.Chain.size(); ++place) {
        const bool last = place + 1 == row.Chain.size();
        const auto granule = static_cast<unsigned char>(row.Chain[place]);
        fat.at(granule) = last ? static_cast<char>(row.LastGranuleSectors | kDecbLastGranule)
                               : row.Chain[place + 1];
    }
}

/// Reads the directory slot by slot, up to its end mark, and returns the FAT that the chains of
/// its files make.
std::string ReadDirectory() {
    std::string recomputed(kDecbFatBytes, static_cast<char>(kDecbFreeGranule));
    bool clashReported = false;
    for (Disk.DirCount = 0; Disk.DirCount < kDecbSlots; ++Disk.DirCount) {
        const std::string slot = CutBytes(
            Disk.ImageBytes, kDecbDirectoryOffset + std::int64_t{Disk.DirCount} * kDecbSlotBytes,
            kDecbSlotBytes);
        const bool whole = slot.size() >= kDecbSlotFields;
        if (!whole && ByteOr(slot, 0, 0) != kEndOfDirectory) {
            // The image ends inside its directory: the rows before this one stand.
            ShowDiskMessage("Error!!! " + DecimalText(kInvalidCall) + " " +
                            FailureText(kInvalidCall));
            break;
        }
        if (ByteAt(slot, 0) == kEndOfDirectory) break;
        DirEntry& row = DirTable[Disk.DirCount];
        ReadSlot(slot, row);
        if ((row.Flags & kFlagDeleted) == 0) {
            ReadChain(Disk.FatBytes);
            if (!clashReported) clashReported = ReportClash(row);
        }
        AddChainToFat(row, recomputed);
        row.SectorCount = row.UnitCount * kDecbGranuleSectors;
        Disk.UsedSectors += row.SectorCount;
    }
    return recomputed;
}

/// Shows where the FAT of the disk and the recomputed one differ.
void CompareFats(const std::string& recomputed) {
    std::string lines;
    for (int place = 1; place <= kDecbFatBytes; ++place) {
        const int stored = ByteOr(Disk.FatBytes, place - 1, -1);
        const int correct = ByteAt(recomputed, place - 1);
        if (stored < 0 || stored == correct) continue;
        // The lines count from 1, although the granules count from 0.
        lines += "\r\nGR" + DecimalText(place) + " -> " + FatByteText(stored) + "<>" +
                 FatByteText(correct) + " ";
    }
    if (lines.empty()) return;
    ShowDiskMessage(
        "Error!!!... En FAT en los granulos siguientes:\r\n"
        "                    Actual   |  Correcto" +
        lines);
}

/// Marks the row when a 256-byte piece of its content is all 235. `physical` is the file's last
/// granule. The last such piece stays; only whether there is a mark counts, so that it is kept to
/// the 16 bits that it has room for.
void MarkBlankSectors(DirEntry& row, int physical) {
    const std::string blank(kSectorSize, kBlankByte);
    for (std::size_t place = 0; place + kSectorSize <= row.Content.size(); place += kSectorSize) {
        if (row.Content.compare(place, kSectorSize, blank) != 0) continue;
        const auto mark = static_cast<std::int16_t>(
            static_cast<std::uint16_t>(place + 1 + static_cast<std::size_t>(9 * physical)));
        row.BadSectorMark = NumberToBytes(mark, 2, "I");
    }
}

/// Gathers the last granule of a chain, whose FAT byte is `value`.
void ReadLastGranule(DirEntry& row, int physical, int value, int granules) {
    row.LastGranuleSectors = static_cast<std::uint8_t>(value & kDecbLastGranuleSectors);
    const int bytes = (row.LastGranuleSectors - 1) * kSectorSize + row.LastSectorBytes;
    if (bytes > 0) {
        const std::int64_t offset = static_cast<std::int64_t>(physical) * kDecbGranuleBytes;
        GatherBytes(row.Content, offset, bytes);
    }
    MarkBlankSectors(row, physical);
    row.Size = static_cast<std::int64_t>(row.Content.size());
    row.UnitCount = granules;
}

}  // namespace

std::string FatByteText(int value) {
    if (value == kDecbFreeGranule) return " 255 (Libre)";
    if (value == 0) return " ProxGr=0";
    return DecimalText(value) + " (UltGr+" + DecimalText(value - kDecbLastGranule) + " Sec) ";
}

void ReadChain(const std::string& fat) {
    DirEntry& row = DirTable[Disk.DirCount];
    int granule = row.FirstUnit;
    int count = 0;
    while (true) {
        const bool outside = granule + 1 > static_cast<int>(fat.size());
        if (outside || row.Chain.size() > kLongestChain) {
            Disk.DiskFamily = kOs9;
            return;
        }
        const int value = ByteAt(fat, granule);
        const int physical = PhysicalGranule(granule);
        ++count;
        row.Chain += static_cast<char>(granule);
        if ((value & kDecbLastGranule) == kDecbLastGranule) {
            ReadLastGranule(row, physical, value, count);
            return;
        }
        GatherBytes(row.Content, static_cast<std::int64_t>(physical) * kDecbGranuleBytes,
                    kDecbGranuleBytes);
        granule = value;
    }
}

bool ReadDecbDisk() {
    Screen.ShowGranuleField(true);
    SetGeometry();
    Screen.ShowSectorPlace(kDecbDirectoryTrack, 3);
    if (kDecbFatOffset >= static_cast<std::int64_t>(Disk.ImageBytes.size())) {
        ShowDiskMessage("Error!!!...Archivo muy pequeño para leer FAT o No existe FAT"_w);
        return false;
    }
    Disk.FatBytes = CutBytes(Disk.ImageBytes, kDecbFatOffset, kDecbFatBytes);
    Disk.DiskName = StoredDiskName();
    CompareFats(ReadDirectory());
    return true;
}

}  // namespace brindlemoor
