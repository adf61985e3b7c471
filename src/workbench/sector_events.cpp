#include "workbench/sector_events.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/screen.h"
#include "workbench/map_picture.h"
#include "workbench/principal.h"
#include "workbench/sector_view.h"

namespace brindlemoor {

namespace {

struct ColourTip {
    std::int32_t Colour;
    const char* Text;
};

constexpr std::array<ColourTip, 5> kTips = {{
    {kMapOtherFile, "Archivo actual"},
    {kMapOverlap, "Sectores Solapados"},
    {kMapSelectedFile, "Sectores Usados"},
    {MapColour(200, 100, 100), "Sectores o Granulos FAT incorrectamente libres"},
    {kMapFree, "Sectores Libres"},
}};

bool HasTracks() {
    return Disk.TrackCount > 0 && Disk.SectorsPerTrack > 0;
}

/// Brings a field into its range. True when its text was changed: its routine ran for the new one.
bool ClampField(const char* name, int least, int most) {
    Control& field = PrincipalControl(name);
    const double number = TypedNumber(field.Text);
    if (number >= least && number <= most) return false;
    SetText(field, DecimalText(number < least ? least : most));
    return true;
}

/// A bar follows its field without answering.
void FollowField(const char* bar, const char* field) {
    const WhileWindowBusy busy;
    Control& follower = PrincipalControl(bar);
    const int value = std::max(SectorFieldNumber(field), follower.Minimum);
    follower.Maximum = std::max(follower.Maximum, value);
    SetValue(follower, value);
}

void TrackChanged() {
    if (Disk.TrackCount <= 0) {
        SetText(PrincipalControl("Track"), "0");
        return;
    }
    if (ClampField("Track", 0, Disk.TrackCount - 1)) return;
    FollowField("HScroll1", "Track");
    if (!WindowBusy) DrawSectorMap(0);
}

void SectorChanged() {
    if (Disk.SectorsPerTrack > 0) {
        if (ClampField("Sector", 1, Disk.SectorsPerTrack)) return;
        FollowField("VScroll1", "Sector");
    }
    if (!WindowBusy) DrawSectorMap(0);
}

void GranuleChanged() {
    if (WindowBusy) return;
    constexpr int kLastGranuleBeforeDirectory = 33;
    const int granule = SectorFieldNumber("Granulo");
    const int track = granule / 2 + (granule > kLastGranuleBeforeDirectory ? 1 : 0);
    SetText(PrincipalControl("Sector"), DecimalText(granule % 2 * 9 + 1));
    SetText(PrincipalControl("Track"), DecimalText(track));
    DrawSectorMap(-1);
}

void CopyBar(const char* bar, const char* field) {
    if (WindowBusy) return;
    SetText(PrincipalControl(field), DecimalText(PrincipalControl(bar).Value));
}

void ShowPlace(int track, int sector) {
    SetText(PrincipalControl("Track"), DecimalText(track));
    SetText(PrincipalControl("Sector"), DecimalText(sector));
}

/// The outlines between tracks count for nothing; places right of ten tracks of 18 sectors are no
/// place, whatever the disk has.
void PickSector(const MouseAt& mouse) {
    const int perTrack = Disk.SectorsPerTrack;
    const int place = mouse.X - mouse.X / (perTrack + 1);
    if (place < 0 || place >= kPaintedBandSectors) return;
    const int track = mouse.Y / kBandHeight * kTracksInBand + place / perTrack;
    if (track < 0) {
        ShowPlace(0, 1);
    } else if (track >= Disk.TrackCount) {
        ShowPlace(Disk.TrackCount - 1, perTrack);
    } else {
        ShowPlace(track, std::clamp(place % perTrack + 1, 1, perTrack));
    }
}

/// Over a colour without a tip the last one stays.
void ShowTip(const MouseAt& mouse) {
    const std::int32_t colour = PixelAt(TrackBlockPicture, mouse.X, mouse.Y);
    for (const ColourTip& tip : kTips) {
        if (tip.Colour == colour) PrincipalControl("TrackBlock").ToolTip = tip.Text;
    }
}

void MouseOverMap(const MouseAt& mouse) {
    if ((mouse.LeftDown || mouse.RightDown) && HasTracks()) PickSector(mouse);
    ShowTip(mouse);
}

/// Left and right step a sector, up and down a band.
bool MapKey(int key) {
    if (key < kKeyLeft || key > kKeyDown) return false;
    if (!HasTracks()) return true;
    const int perTrack = Disk.SectorsPerTrack;
    const int total = Disk.TrackCount * perTrack;
    const int band = kTracksInBand * perTrack;
    int place = SectorFieldNumber("Track") * perTrack + SectorFieldNumber("Sector") - 1;
    if (key == kKeyRight) ++place;
    if (key == kKeyLeft) --place;
    if (key == kKeyUp && place - band >= 0) place -= band;
    if (key == kKeyDown && place + band < total) place += band;
    place = std::clamp(place, 0, total - 1);
    ShowPlace(place / perTrack, place % perTrack + 1);
    return true;
}

void GiveSurface(const char* name, Picture& surface) {
    Control& control = PrincipalControl(name);
    surface = Picture();
    ResizePicture(surface, SurfacePixels(control.Width), SurfacePixels(control.Height));
    control.Surface = &surface;
}

}  // namespace

void ConnectSectorMap() {
    SectorMap = SectorMapState();
    GiveSurface("TrackBlock", TrackBlockPicture);
    GiveSurface("Sectores", SectoresPicture);
    PrincipalControl("Track").Change = TrackChanged;
    PrincipalControl("Sector").Change = SectorChanged;
    PrincipalControl("Granulo").Change = GranuleChanged;
    PrincipalControl("HScroll1").Change = [] { CopyBar("HScroll1", "Track"); };
    PrincipalControl("VScroll1").Change = [] { CopyBar("VScroll1", "Sector"); };
    Control& map = PrincipalControl("TrackBlock");
    map.MouseDown = MouseOverMap;
    map.MouseMove = MouseOverMap;
    map.Key = MapKey;
    PrincipalControl("EditBat").Click = [] { Screen.EditFat(); };
}

}  // namespace brindlemoor
