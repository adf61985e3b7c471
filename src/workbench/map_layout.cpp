#include "workbench/map_layout.h"

#include <algorithm>
#include <string>

#include "core/disk_state.h"
#include "core/numbers.h"
#include "workbench/map_picture.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

// Twips.
constexpr int kGap = 90;
constexpr int kBandTwips = kBandHeight * kTwipsPerPixel;
constexpr int kBelowLastBand = 60;
constexpr int kMostMapHeight = 5000;   ///< a disk of more tracks is cut there
constexpr int kFrameBesideMap = 2700;  ///< what `Frame1` holds above and below the bands
constexpr int kBelowFrame = 900;       ///< for the allocation bytes
constexpr int kMapToBar = 15;
constexpr int kBarToText = 60;

/// Ten tracks of the usual 18 sectors: the room that the frame has for a band, in pixels.
constexpr int kLeastMapWidth = kTracksInBand * (kPaintedTrackSectors + 1) + 1;

int AllBandsHeight() {
    return SectorMap.Bands * kBandTwips + kBelowLastBand;
}

int WholeMapHeight() {
    return std::min(AllBandsHeight(), kMostMapHeight);
}

/// "Track " and the tracks of each band, a line a band. Of a map that shows only some of its bands
/// those from the first in view on, whose longer numbers take the word's room.
std::string BandTitles(int tracks, int firstBand) {
    std::string titles = firstBand == 0 ? "Track " : "";
    for (int track = firstBand * kTracksInBand; track < tracks; track += kTracksInBand) {
        titles += DecimalText(track) + "-" +
                  DecimalText(std::min(track + kTracksInBand, tracks) - 1) + "\r\n";
    }
    return titles;
}

int LastOffset(int whole, int shown) {
    return std::max(whole - shown, 0);
}

void SetMapView(int left, int top) {
    Control& map = PrincipalControl("TrackBlock");
    const int lastLeft = LastOffset(TrackBlockPicture.Width, SurfacePixels(map.Width));
    const int lastTop = LastOffset(TrackBlockPicture.Height, SurfacePixels(map.Height));
    left = std::clamp(left, 0, lastLeft);
    top = std::clamp(top, 0, lastTop) / kBandHeight * kBandHeight;
    if (map.ViewLeft == left && map.ViewTop == top) return;
    const bool otherBands = map.ViewTop != top;
    map.ViewLeft = left;
    map.ViewTop = top;
    ++TrackBlockPicture.Revision;
    if (!otherBands) return;
    SetText(PrincipalControl("Label11"), BandTitles(Disk.TrackCount, top / kBandHeight));
}

/// The bands that the window has room for, all of them if it can be.
int ShownMapHeight(int windowHeight) {
    const int whole = WholeMapHeight();
    const int room = windowHeight - PrincipalControl("Frame1").Top - kFrameBesideMap - kBelowFrame;
    if (whole <= room) return whole;
    const int bands = std::max((room - kBelowLastBand) / kBandTwips, 1);
    return std::min(bands * kBandTwips + kBelowLastBand, whole);
}

/// The titles are as high as the map, but no title is cut through.
int TitlesHeight(int mapHeight) {
    if (mapHeight == AllBandsHeight()) return mapHeight;
    return (mapHeight - kBelowLastBand) / kBandTwips * kBandTwips;
}

/// The allocation bytes fill the column below the map.
void PlaceAllocationBytes(int windowHeight) {
    const Control& frame = PrincipalControl("Frame1");
    Control& title = PrincipalControl("LabelFat");
    Control& button = PrincipalControl("EditBat");
    Control& bytes = PrincipalControl("EditFAT");
    title.Left = frame.Left;
    title.Top = frame.Top + frame.Height + kGap;
    button.Left = frame.Left + frame.Width - button.Width;
    button.Top = title.Top;
    bytes.Left = frame.Left;
    bytes.Top = title.Top + title.Height + kGap / 2;
    if (windowHeight - kGap > bytes.Top) bytes.Height = windowHeight - kGap - bytes.Top;
}

/// The offset, nearest to `offset`, at which `from` up to `to` are among `shown` pixels; where that
/// is too much, those around `at`.
int OffsetFor(int offset, int shown, int from, int to, int at) {
    if (at >= offset && at < offset + shown) return offset;
    if (to - from > shown) return at - shown / 2;
    return from < offset ? from : to - shown;
}

}  // namespace

void SizeMap() {
    SectorMap.Bands = std::max(Disk.TrackCount - 1, 0) / kTracksInBand + 1;
    const int width = std::max(kTracksInBand * (Disk.SectorsPerTrack + 1) + 1, kLeastMapWidth);
    const int height = SurfacePixels(WholeMapHeight());
    const bool fits = TrackBlockPicture.Width == width && TrackBlockPicture.Height == height;
    if (fits) {
        ClearPicture(TrackBlockPicture);
    } else {
        ResizePicture(TrackBlockPicture, width, height);
    }
    Control& titles = PrincipalControl("Label11");
    titles.WordWrap = false;  // a line a band, however long its numbers are
    const int firstBand = PrincipalControl("TrackBlock").ViewTop / kBandHeight;
    SetText(titles, BandTitles(Disk.TrackCount, firstBand));
}

int WindowHeightForMap() {
    return PrincipalControl("Frame1").Top + WholeMapHeight() + kFrameBesideMap + kBelowFrame;
}

void PlaceMap(int windowHeight) {
    Control& map = PrincipalControl("TrackBlock");
    Control& tracks = PrincipalControl("HScroll1");
    Control& text = PrincipalControl("Sectores");
    map.Height = ShownMapHeight(windowHeight);
    PrincipalControl("Label11").Height = TitlesHeight(map.Height);
    PrincipalControl("VScroll1").Height = map.Height;
    tracks.Top = map.Top + map.Height + kMapToBar;
    text.Top = tracks.Top + tracks.Height + kBarToText;
    PrincipalControl("Frame1").Height = map.Height + kFrameBesideMap;
    PlaceAllocationBytes(windowHeight);
    SetMapView(map.ViewLeft, map.ViewTop);
}

void ScrollMapTo(int x, int bandTop) {
    const Control& map = PrincipalControl("TrackBlock");
    const int columns = SurfacePixels(map.Width);
    const int rows = std::max(SurfacePixels(map.Height) / kBandHeight, 1) * kBandHeight;
    const int pitch = std::max(Disk.SectorsPerTrack + 1, 1);
    const int trackLeft = x / pitch * pitch;
    const int left = OffsetFor(map.ViewLeft, columns, trackLeft, trackLeft + pitch + 1, x);
    const int top = OffsetFor(map.ViewTop, rows, bandTop, bandTop + kBandHeight, bandTop);
    SetMapView(left, top);
}

}  // namespace brindlemoor
