#include "workbench/map_files.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "workbench/map_picture.h"

namespace brindlemoor {

namespace {

constexpr int kDragonExtentBytes = 3;  ///< start 2, count 1
constexpr int kOs9SegmentBytes = 5;    ///< start 3, count 2

/// The strips that painting can still change. One that shows an overlap shows it whatever comes
/// over it: it is stepped over from then on, so that a damaged disk whose files lie over each
/// other ten thousand times is painted as fast as any.
struct OpenStrips {
    std::vector<int> Next;  ///< a strip that is done leads on, an open one to itself

    explicit OpenStrips(int count) : Next(static_cast<std::size_t>(count) + 1) {
        std::iota(Next.begin(), Next.end(), 0);
    }

    int Count() const { return static_cast<int>(Next.size()) - 1; }
    int& At(int strip) { return Next[static_cast<std::size_t>(strip)]; }

    /// The first open strip from `strip` on, `Count()` when there is none.
    int From(int strip) {
        while (At(strip) != strip) {
            At(strip) = At(At(strip));
            strip = At(strip);
        }
        return strip;
    }
};

bool IsPainted(MapPlace place) {
    return PixelAt(TrackBlockPicture, place.X, place.Y) != kMapWhite;
}

/// Paints the sectors from `first` up to, not with, `end`.
void PaintRun(OpenStrips& strips, std::int64_t first, std::int64_t end, std::int32_t colour) {
    const auto count = static_cast<std::int64_t>(strips.Count());
    const int last = static_cast<int>(std::clamp<std::int64_t>(end, 0, count));
    int strip = strips.From(static_cast<int>(std::clamp<std::int64_t>(first, 0, count)));
    while (strip < last) {
        const MapPlace place = SectorPlaceOf(strip);
        const bool painted = IsPainted(place);
        FillStrip(place, painted ? kMapOverlap : colour);
        if (painted) strips.At(strip) = strip + 1;
        strip = strips.From(strip + 1);
    }
}

/// A granule has one colour, decided by its first strip.
void PaintGranules(const DirEntry& entry, std::int32_t colour) {
    for (const char granule : entry.Chain) {
        const MapPlace place = GranulePlaceOf(static_cast<unsigned char>(granule));
        FillGranule(place, IsPainted(place) ? kMapOverlap : colour);
    }
}

void PaintExtents(const DirEntry& entry, OpenStrips& strips, std::int32_t colour) {
    const auto length = static_cast<std::int64_t>(entry.Chain.size());
    for (std::int64_t place = 0; place < length; place += kDragonExtentBytes) {
        const std::int64_t start =
            ByteOr(entry.Chain, place, 0) * 256 + ByteOr(entry.Chain, place + 1, 0);
        PaintRun(strips, start, start + ByteOr(entry.Chain, place + 2, 0), colour);
    }
}

/// A segment is painted one sector longer than it is, for the file's descriptor.
void PaintSegments(const DirEntry& entry, OpenStrips& strips, std::int32_t colour) {
    const auto length = static_cast<std::int64_t>(entry.Chain.size());
    for (std::int64_t place = 0; place < length; place += kOs9SegmentBytes) {
        const std::int64_t start = BigEndian(CutBytes(entry.Chain, place, 3));
        const std::int64_t count =
            ByteOr(entry.Chain, place + 3, 0) * 256 + ByteOr(entry.Chain, place + 4, 0);
        PaintRun(strips, start, start + count + 1, colour);
    }
}

std::int32_t ColourOf(const DirEntry& entry, bool selected) {
    const bool directory =
        Disk.DiskFamily != kDecb && (entry.Attributes & kAttributeDirectory) != 0;
    if (directory) return selected ? kMapSelectedDirectory : kMapDirectory;
    return selected ? kMapSelectedFile : kMapOtherFile;
}

/// Deleted files own nothing; the "." and ".." of OS-9 stand for directories that have their rows.
bool IsOnMap(const DirEntry& entry) {
    if ((entry.Flags & kFlagDeleted) != 0) return false;
    return Disk.DiskFamily != kOs9 || entry.Name.empty() || entry.Name.front() != '.';
}

}  // namespace

void PaintFilesOnMap(int selectedRow) {
    if (Disk.DiskFamily == kFlex) return;
    OpenStrips strips(PaintableSectors());
    for (int row = 0; row < Disk.DirRows; ++row) {
        const DirEntry& entry = DirTable[row];
        if (!IsOnMap(entry)) continue;
        const std::int32_t colour = ColourOf(entry, row == selectedRow);
        if (Disk.DiskFamily == kDecb) PaintGranules(entry, colour);
        if (Disk.DiskFamily == kDragon) PaintExtents(entry, strips, colour);
        if (Disk.DiskFamily == kOs9) PaintSegments(entry, strips, colour);
    }
}

}  // namespace brindlemoor
