#include "workbench/sector_view.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "filesystems/flex.h"
#include "workbench/map_layout.h"
#include "workbench/map_picture.h"
#include "workbench/principal.h"
#include "workbench/track_block.h"

namespace brindlemoor {

namespace {

constexpr int kDecbDirectoryTrack = 17;
constexpr int kDecbTableSector = 2;
constexpr int kGranuleSectors = 9;
constexpr int kLastGranuleBeforeDirectory = 33;

/// Sectors are shown as if every track had 18 of them, whatever the disk has.
constexpr int kShownTrackSectors = 18;

/// Offset of the first track in a FLEX directory slot; its sector follows.
constexpr int kFlexSlotTrack = 13;

constexpr int kTextLines = 8;
constexpr int kTextColumns = 32;

// Pixels of a character of the sector's text, and where the first one stands.
constexpr int kTextCellWidth = 8;
constexpr int kTextCellHeight = 14;
constexpr int kTextLeft = 2;
constexpr int kTextTop = 3;

/// A value beyond a new maximum comes down with it.
void SetBarMaximum(const char* name, int maximum) {
    Control& bar = PrincipalControl(name);
    bar.Maximum = std::max(maximum, bar.Minimum);
    const WhileWindowBusy busy;
    if (bar.Value > bar.Maximum) SetValue(bar, bar.Maximum);
}

/// The granule of a sector of a Disk BASIC disk, or what stands on its directory track.
std::string GranuleText(int track, int sector) {
    if (track == kDecbDirectoryTrack) {
        if (sector < kDecbTableSector) return {};
        return sector == kDecbTableSector ? "FAT" : "DIR";
    }
    const int before = track > kDecbDirectoryTrack ? track - 1 : track;
    return DecimalText(before * 2 + (sector > kGranuleSectors ? 1 : 0));
}

/// What the image has of the sector; line ends and tabs do not break the lines.
std::string SectorText(int track, int sector) {
    const std::int64_t place =
        (static_cast<std::int64_t>(track) * kShownTrackSectors + sector - 1) * kSectorSize;
    if (place < 0) return {};
    std::string bytes = CutBytes(Disk.ImageBytes, place, kSectorSize);
    for (const char mark : {'\n', '\r', '\t'}) std::replace(bytes.begin(), bytes.end(), mark, '\0');
    return bytes;
}

void ShowSectorText(int track, int sector) {
    const std::string bytes = SectorText(track, sector);
    TextLine line;
    line.Left = kTextLeft;
    line.CellWidth = kTextCellWidth;
    line.CellHeight = kTextCellHeight;
    for (int row = 0; row < kTextLines; ++row) {
        line.Text = CutBytes(bytes, static_cast<std::int64_t>(row) * kTextColumns, kTextColumns);
        line.Top = kTextTop + row * kTextCellHeight;
        if (!line.Text.empty()) Platform.DrawText(SectoresPicture, line);
    }
}

/// The strip that is left gets its colour back only after that of the new one was read.
void MoveMark(int track, int sector) {
    const int band = track / kTracksInBand;
    const int x =
        (track - kTracksInBand * band) * Disk.SectorsPerTrack + sector + track % kTracksInBand;
    const int y = kBandHeight * band;
    const std::int32_t covered = PixelAt(TrackBlockPicture, x, y + 1);
    SectorMapState& mark = SectorMap;
    if (mark.MarkColour > 0) FillStrip({mark.MarkX, mark.MarkY + 1}, mark.MarkColour - 1);
    mark.MarkX = x;
    mark.MarkY = y;
    mark.MarkColour = covered + 1;
    FillStrip({x, y + 1}, covered == kMapWhite ? kMapBlack : kMapWhite);
    ScrollMapTo(x, y);
}

struct SectorPlace {
    int Track = 0;
    int Sector = 1;
};

/// Where the file of a row begins: its first granule, or its first sector. On FLEX the row's first
/// unit was the cursor that went along the file, but the directory still names the place.
SectorPlace FirstPlaceOf(int row) {
    const int unit = DirTable[row].FirstUnit;
    if (Disk.DiskFamily == kDecb) {
        const int track = unit / 2 + (unit > kLastGranuleBeforeDirectory ? 1 : 0);
        return {track, unit % 2 * kGranuleSectors + 1};
    }
    if (Disk.DiskFamily == kFlex) {
        const std::int64_t slot = static_cast<std::int64_t>(row) * kFlexSlotBytes;
        return {ByteOr(Disk.FlexDirectory, slot + kFlexSlotTrack, 0),
                ByteOr(Disk.FlexDirectory, slot + kFlexSlotTrack + 1, 1)};
    }
    const int sector = std::max(unit, 0);
    return {sector / Disk.SectorsPerTrack, sector % Disk.SectorsPerTrack + 1};
}

}  // namespace

int SectorFieldNumber(const char* name) {
    constexpr double kMost = 32767;
    const double number = TypedNumber(PrincipalControl(name).Text);
    return static_cast<int>(std::nearbyint(std::clamp(number, -kMost, kMost)));
}

void DrawSectorMap(int resetMark) {
    if (resetMark == -1) SectorMap.MarkColour = 0;
    ClearPicture(SectoresPicture);
    int track = SectorFieldNumber("Track");
    int sector = SectorFieldNumber("Sector");
    if (Disk.TrackCount <= 0) return;
    SetBarMaximum("HScroll1", Disk.TrackCount - 1);
    SetBarMaximum("VScroll1", Disk.SectorsPerTrack);
    track = std::min<int>(track, Disk.TrackCount - 1);
    if (track < 0) SetText(PrincipalControl("Track"), "0");
    sector = std::max(std::min<int>(sector, Disk.SectorsPerTrack), 1);
    if (Disk.DiskFamily == kDecb) {
        const WhileWindowBusy busy;
        SetText(PrincipalControl("Granulo"), GranuleText(track, sector));
    }
    ShowSectorText(track, sector);
    MoveMark(track, sector);
}

void ShowRowOnMap(int row) {
    if (row < 0 || row >= Disk.DirRows || Disk.SectorsPerTrack <= 0) return;
    PaintTrackBlock(row);
    const SectorPlace first = FirstPlaceOf(row);
    {
        const WhileWindowBusy busy;
        SetText(PrincipalControl("Track"), DecimalText(first.Track));
        SetText(PrincipalControl("Sector"), DecimalText(first.Sector));
    }
    DrawSectorMap(-1);
}

}  // namespace brindlemoor
