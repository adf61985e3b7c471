#include "filesystems/os9.h"

#include <cstdint>
#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "filesystems/os9_text.h"
#include "filesystems/os9_walk.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

namespace {

constexpr std::int64_t kMapOffset = 256;

std::string Grouped(double value) {
    return FormatNumber(value, "######,###");
}

/// Asks whether the image's size or the disk's own figure counts, where they differ.
void SettleTotalSectors() {
    const auto bytes = static_cast<std::int64_t>(Disk.ImageBytes.size());
    const auto sectors = static_cast<std::int32_t>(bytes / kSectorSize);
    if (sectors == Disk.TotalSectors) return;
    const double stored = Disk.TotalSectors;
    const Answer answer =
        Platform.ShowMessage("Según Archivo Virtual  : "_w + Grouped(sectors) +
                                 " sectores = " + Grouped(static_cast<double>(bytes)) +
                                 " Bytes\r\n" + "Según Cabecera Disco: "_w + Grouped(stored) +
                                 " sectores = " + Grouped(stored * kSectorSize) + " Bytes\r\n" +
                                 "Desea usar la 1ra cifra",
                             "Tamaño incorrecto"_w, Buttons::YesNo, MessageIcon::Question);
    if (answer == Answer::Yes) Disk.TotalSectors = sectors;
}

/// The field of LSN 0 at `offset`, `length` bytes.
std::string Field(int offset, int length) {
    return CutBytes(Disk.ImageBytes, offset, length);
}

/// DD.MAP, which is read as a signed number.
int MapBytes() {
    const int bytes = BigEndian(Field(4, 2));
    return bytes < 0 ? bytes + 65536 : bytes;
}

void ReadIdentification() {
    Disk.TotalSectors = BigEndian(Field(0, 3));
    SettleTotalSectors();
    Disk.SectorsPerTrack = static_cast<std::int16_t>(ByteOr(Disk.ImageBytes, 3, 0));
    Disk.FatBytes = CutBytes(Disk.ImageBytes, kMapOffset, MapBytes());
    Disk.Os9ClusterSize = static_cast<std::int16_t>(BigEndian(Field(6, 2)));
    Disk.Os9RootLsn = static_cast<std::int16_t>(BigEndian(Field(9, 2)));
    Disk.Os9Owner = ByteOr(Disk.ImageBytes, 11, 0);
    Disk.Os9DiskAttr = static_cast<std::int16_t>(ByteOr(Disk.ImageBytes, 13, 0));
    Disk.Os9DiskId = BigEndian(Field(14, 2));
    Disk.Os9Format = static_cast<std::int16_t>(ByteOr(Disk.ImageBytes, 16, 0));
    Disk.Os9SectorsField = BigEndian(Field(17, 2));
    Disk.Os9Reserved = Field(19, 2);
    Disk.Os9BootLsn = BigEndian(Field(21, 3));
    Disk.Os9BootSize = BigEndian(Field(24, 2));
    ReadOs9Date(Field(26, 5), Disk.DiskDate);
    Disk.DiskName = Os9NameText(Field(31, 32));
    Disk.Os9Options = Field(63, 192);
}

void SetGeometry() {
    if (Disk.SectorsPerTrack == 0) Fail(kDivisionByZero);
    Disk.TrackCount = WholeNumber16(static_cast<double>(Disk.TotalSectors) / Disk.SectorsPerTrack);
    const int track = Disk.Os9RootLsn / Disk.SectorsPerTrack;
    Screen.ShowSectorPlace(track, Disk.Os9RootLsn - track * Disk.SectorsPerTrack + 2);
}

/// A segment: start LSN in three bytes, sectors in two.
std::string Segment(int start, int count) {
    std::string bytes;
    for (const int byte : {start >> 16, start >> 8, start, count >> 8, count}) {
        bytes += static_cast<char>(byte & 0xFF);
    }
    return bytes;
}

/// The row for LSN 0 and the map behind it.
void MakeMapRow() {
    DirEntry& row = DirTable[Disk.DirCount];
    const std::int64_t bytes = kMapOffset + MapBytes();
    row.Name = "Ident+alloc. map [LSN0+1]";
    row.FullName = row.Name;
    GatherBytes(row.Content, 0, bytes);
    row.UnitCount = static_cast<std::int32_t>((bytes + kSectorSize - 1) / kSectorSize);
    row.Size = bytes;
    row.Chain = Segment(0, row.UnitCount);
    ++Disk.DirCount;
}

/// The row for a Disk BASIC boot track, if the disk has one. Its place says one sector more than
/// the one that its bytes come from.
void MakeBootRow() {
    int boot = 0;
    for (const int sector : {kOs9BootSectorOneSide, kOs9BootSectorTwoSides}) {
        if (SectorBytes(sector, 2) == "OS") boot = sector;
    }
    if (boot == 0) return;
    DirEntry& row = DirTable[Disk.DirCount];
    row.Name = "BOOTDECB";
    row.FullName = row.Name;
    row.FirstUnit = boot + 1;
    GatherBytes(row.Content, static_cast<std::int64_t>(boot) * kSectorSize, kOs9BootBytes);
    row.UnitCount = 2;
    row.SectorCount = 18;
    row.Size = kOs9BootBytes;
    row.Chain = Segment(boot + 1, 16);
    ++Disk.DirCount;
}

void WalkFromRoot() {
    DirEntry& row = DirTable[Disk.DirCount];
    row.Name = "ROOT";
    row.Ext = "DIR";
    row.FullName = "ROOT.DIR";
    row.Attributes = kAttributeDirectory;
    row.FirstUnit = Disk.Os9RootLsn;
    const std::int64_t position = static_cast<std::int64_t>(Disk.Os9RootLsn) * kSectorSize + 1;
    WalkOs9Directory(row.Name, position, Disk.DirCount, 0);
}

}  // namespace

void ReadOs9Disk() {
    ReadIdentification();
    SetGeometry();
    MakeMapRow();
    MakeBootRow();
    WalkFromRoot();
    Disk.MaxDirEntries = Disk.TotalSectors / 2;
    Disk.TotalUnits = Disk.TotalSectors - 2;
}

}  // namespace brindlemoor
