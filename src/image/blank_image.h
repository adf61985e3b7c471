#pragma once

#include <string>

namespace brindlemoor {

/// The shape of a disk that is not there yet.
struct BlankShape {
    int Sides = 1;
    int Tracks = 35;
    int Sectors = 18;  ///< in a track
    int SectorBytes = 256;
    bool Header = false;  ///< 16 bytes more, which stay at the end of the data
    bool Dragon = false;  ///< with the first sector of Dragon DOS's bitmap in both its places
};

/// The bytes of a blank disk: all 255, which is an empty directory and a free allocation table of
/// Disk BASIC. A shape without room for a bitmap gets none of it.
std::string BlankImage(const BlankShape& shape);

}  // namespace brindlemoor
