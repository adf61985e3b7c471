#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/picture.h"

namespace brindlemoor {

/// The width of a picture in four colours, pixels.
inline constexpr int kPaintedWidth = 128;

/// Its colours, 0x00BBGGRR, each by the two bits that stand for it.
extern std::array<std::int32_t, 4> PaintPalette;

/// 384 rows of 128 pixels, four to a byte, the first in the highest bits: the first place in
/// `PaintPalette` of the pixel's colour, or 3 for any other colour and outside the picture. 12,288
/// bytes always.
std::string PictureToBytes(const Picture& picture);

/// Copies `painted` into `surface`, from the upper left corner on, over its back colour; what would
/// lie outside is cut.
void PlacePicture(const Picture& painted, Picture& surface);

}  // namespace brindlemoor
