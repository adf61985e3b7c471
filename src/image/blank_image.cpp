#include "image/blank_image.h"

#include <algorithm>

#include "core/bitmap.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kSector = 256;
constexpr std::size_t kGeometry = 252;  ///< offset of the geometry in the first bitmap sector
constexpr int kHeaderBytes = 16;
constexpr int kDirectoryTrack = 20;
constexpr int kCopyTrack = 16;

void MarkTrackUsed(std::string& bitmap, int track, int sectors) {
    int start = sectors * track + 1;
    int end = -1;
    std::string mode = "0";
    BitmapOp(bitmap, start, end, mode, sectors);
}

/// The first bitmap sector: its two tracks used, the geometry and its complement at the end.
std::string FirstBitmapSector(const BlankShape& shape) {
    std::string sector(kSector, '\xFF');
    sector[kGeometry] = static_cast<char>(shape.Tracks);
    sector[kGeometry + 1] = static_cast<char>(shape.Sectors);
    sector[kGeometry + 2] = static_cast<char>(255 - shape.Tracks);
    sector[kGeometry + 3] = static_cast<char>(255 - shape.Sectors);
    MarkTrackUsed(sector, kDirectoryTrack, shape.Sectors);
    MarkTrackUsed(sector, kCopyTrack, shape.Sectors);
    return sector;
}

void PutSector(std::string& image, const std::string& sector, int number) {
    const std::size_t offset = static_cast<std::size_t>(number) * kSector;
    if (offset + sector.size() <= image.size()) image.replace(offset, sector.size(), sector);
}

}  // namespace

std::string BlankImage(const BlankShape& shape) {
    const int size = shape.Sides * shape.Tracks * shape.Sectors * shape.SectorBytes +
                     (shape.Header ? kHeaderBytes : 0);
    std::string image(static_cast<std::size_t>(std::max(size, 0)), '\xFF');
    if (!shape.Dragon) return image;
    const std::string bitmap = FirstBitmapSector(shape);
    PutSector(image, bitmap, shape.Sectors * kDirectoryTrack);
    PutSector(image, bitmap, shape.Sectors * kCopyTrack);
    return image;
}

}  // namespace brindlemoor
