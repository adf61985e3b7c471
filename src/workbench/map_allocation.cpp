#include "workbench/map_allocation.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "workbench/map_picture.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

constexpr std::int64_t kDecbTablePosition = 78593;  ///< 1-based: track 17 sector 2
constexpr int kDecbFreeGranule = 255;
constexpr std::int64_t kMostBytesListed = 1000;  ///< of a bitmap

/// A part of the map that is not for files: opposite corners in pixels, both included.
struct FixedArea {
    int Left;
    int Top;
    int Right;
    int Bottom;
    std::int32_t Colour;
};

constexpr std::array<FixedArea, 2> kDecbAreas = {{
    {134, 13, 136, 23, kMapTable},      // track 17, sectors 1 to 3
    {137, 13, 151, 23, kMapDirectory},  // and the rest of it
}};

constexpr std::array<FixedArea, 4> kDragonAreas = {{
    {1, 25, 2, 35, kMapTable},          // track 20: the bitmap
    {115, 13, 116, 23, kMapTable},      // track 16: its copy
    {3, 25, 18, 35, kMapDirectory},     // track 20: the directory
    {117, 13, 132, 23, kMapDirectory},  // track 16: its copy
}};

template <typename Areas>
void FillAreas(const Areas& areas) {
    for (const FixedArea& area : areas) {
        FillBox(TrackBlockPicture, area.Left, area.Top, area.Right, area.Bottom, area.Colour);
    }
}

/// The first `count` bytes as decimal numbers, a blank behind each.
std::string ByteList(const std::string& bytes, std::int64_t count) {
    std::string list;
    for (std::int64_t place = 0; place < count; ++place) {
        list += DecimalText(ByteOr(bytes, place, 0)) + " ";
    }
    return list;
}

/// A granule that the table calls free and that the selected file uses shows as overlap; under any
/// other file it shows as free. Bitmaps are stricter.
void PaintFreeGranules(const std::string& table) {
    const auto length = static_cast<int>(table.size());
    for (int granule = 0; granule < length; ++granule) {
        if (ByteOr(table, granule, 0) != kDecbFreeGranule) continue;
        const MapPlace place = GranulePlaceOf(granule);
        if (place.Y >= TrackBlockPicture.Height) break;
        const bool selected = PixelAt(TrackBlockPicture, place.X, place.Y) == kMapSelectedFile;
        FillGranule(place, selected ? kMapOverlap : kMapFree);
    }
}

std::string PaintDecbTable() {
    const std::int64_t length = (std::int64_t{Disk.TrackCount} - 1) * 2;
    if (length < 0) return {};
    const std::string table = Mid(Disk.ImageBytes, kDecbTablePosition, length);
    if (static_cast<std::int64_t>(table.size()) < length) return {};
    PaintFreeGranules(table);
    FillAreas(kDecbAreas);
    return ByteList(table, length);
}

/// Dragon DOS: a set bit is a free sector, bit 0 comes first. OS-9: a clear bit, bit 7 first.
bool IsFree(int sector) {
    const int byte = ByteOr(Disk.FatBytes, sector / 8, 0);
    const int bit = sector % 8;
    if (Disk.DiskFamily == kDragon) return (byte >> bit & 1) != 0;
    return (byte >> (7 - bit) & 1) == 0;
}

std::string PaintBitmap() {
    const auto length = static_cast<std::int64_t>(Disk.FatBytes.size());
    const auto sectors = static_cast<int>(std::min<std::int64_t>(8 * length, PaintableSectors()));
    for (int sector = 0; sector < sectors; ++sector) {
        if (!IsFree(sector)) continue;
        const MapPlace place = SectorPlaceOf(sector);
        const bool white = PixelAt(TrackBlockPicture, place.X, place.Y) == kMapWhite;
        FillStrip(place, white ? kMapFree : kMapOverlap);
    }
    if (Disk.DiskFamily == kDragon) FillAreas(kDragonAreas);
    return ByteList(Disk.FatBytes, std::min(length, kMostBytesListed));
}

}  // namespace

void PaintAllocationOnMap() {
    std::string list;
    if (Disk.DiskFamily == kDecb) list = PaintDecbTable();
    if (Disk.DiskFamily == kDragon || Disk.DiskFamily == kOs9) list = PaintBitmap();
    SetText(PrincipalControl("EditFAT"), list);
}

}  // namespace brindlemoor
