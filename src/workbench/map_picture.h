#pragma once

#include <cstdint>

#include "core/picture.h"

namespace brindlemoor {

/// The pixels of `TrackBlock`, the map of the disk, and of `Sectores`, the text of one sector.
extern Picture TrackBlockPicture;
extern Picture SectoresPicture;

// The map, in pixels of its picture. Tracks stand in bands of ten; a track is outlined and takes a
// pixel more than it has sectors; a sector is a strip one pixel wide inside its track's outline.

inline constexpr int kTracksInBand = 10;
inline constexpr int kBandHeight = 12;  ///< pixels from one band's top to the next
inline constexpr int kStripHeight = 11;

/// Files and free areas are painted as if every track had 18 sectors, whatever the disk has. Only
/// outlines and the mark follow the disk.
inline constexpr int kPaintedTrackSectors = 18;
inline constexpr int kPaintedBandSectors = kTracksInBand * kPaintedTrackSectors;

/// What the map keeps beside its pixels.
struct SectorMapState {
    int Bands = 4;  ///< of the disk, whether or not the map can show them all

    // The mark on the sector shown: the left edge and the band of its strip, and the colour that
    // it covers plus 1, 0 for no mark.
    int MarkX = 0;
    int MarkY = 0;
    std::int32_t MarkColour = 0;
};

extern SectorMapState SectorMap;

/// 0x00BBGGRR.
constexpr std::int32_t MapColour(int red, int green, int blue) {
    return red | (green << 8) | (blue << 16);
}

inline constexpr std::int32_t kMapBlack = MapColour(0, 0, 0);
inline constexpr std::int32_t kMapWhite = MapColour(255, 255, 255);  ///< nothing painted yet
inline constexpr std::int32_t kMapSelectedFile = MapColour(100, 100, 200);
inline constexpr std::int32_t kMapOtherFile = MapColour(150, 255, 255);
inline constexpr std::int32_t kMapSelectedDirectory = MapColour(255, 255, 0);
inline constexpr std::int32_t kMapDirectory = MapColour(220, 220, 0);
inline constexpr std::int32_t kMapTable = MapColour(180, 180, 180);
inline constexpr std::int32_t kMapFree = MapColour(100, 200, 100);

/// Two files on one sector, or a sector in use that the allocation table calls free.
inline constexpr std::int32_t kMapOverlap = MapColour(255, 50, 50);

/// A place of the map: the left edge of a strip or granule, and its topmost pixel.
struct MapPlace {
    int X = 0;
    int Y = 0;
};

/// Where a sector, counted from 0 over the whole disk, is painted.
MapPlace SectorPlaceOf(int sector);

/// Where a granule, counted from 0 without the two of the directory track, is painted.
MapPlace GranulePlaceOf(int granule);

/// The number of sectors whose strips lie inside the picture, from sector 0 on.
int PaintableSectors();

void FillStrip(MapPlace place, std::int32_t colour);
void FillGranule(MapPlace place, std::int32_t colour);

}  // namespace brindlemoor
