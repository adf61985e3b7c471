#include "workbench/map_picture.h"

namespace brindlemoor {

namespace {

constexpr int kGranuleSectors = 9;
constexpr int kGranulesInBand = 2 * kTracksInBand;
constexpr int kLastGranuleBeforeDirectory = 33;

}  // namespace

Picture TrackBlockPicture;
Picture SectoresPicture;
SectorMapState SectorMap;

MapPlace SectorPlaceOf(int sector) {
    const int inBand = sector % kPaintedBandSectors;
    return {inBand + inBand / kPaintedTrackSectors + 1,
            kBandHeight * (sector / kPaintedBandSectors) + 1};
}

MapPlace GranulePlaceOf(int granule) {
    const int onDisk = granule > kLastGranuleBeforeDirectory ? granule + 2 : granule;
    const int inBand = onDisk % kGranulesInBand;
    return {inBand * kGranuleSectors + inBand / 2 % kTracksInBand + 1,
            kBandHeight * (onDisk / kGranulesInBand) + 1};
}

int PaintableSectors() {
    const int bandsBegun = (TrackBlockPicture.Height + kBandHeight - 1) / kBandHeight;
    return bandsBegun * kPaintedBandSectors;
}

void FillStrip(MapPlace place, std::int32_t colour) {
    FillBox(TrackBlockPicture, place.X, place.Y, place.X, place.Y + kStripHeight - 1, colour);
}

void FillGranule(MapPlace place, std::int32_t colour) {
    FillBox(TrackBlockPicture, place.X, place.Y, place.X + kGranuleSectors - 1,
            place.Y + kStripHeight - 1, colour);
}

}  // namespace brindlemoor
