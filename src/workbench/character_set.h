#pragma once

#include <cstdint>

#include "core/picture.h"

namespace brindlemoor {

/// A cell of the character set in pixels, and how many stand in a row.
inline constexpr int kCharacterWidth = 16;
inline constexpr int kCharacterHeight = 24;
inline constexpr int kCharactersInRow = 32;

/// The green of the machine's text screen, 0x00BBGGRR.
inline constexpr std::int32_t kScreenGreen = 0x20E820;

/// `Picture1`: the 256 characters of the machine's video generator, 512 by 384 pixels. The cell of
/// a byte stands in column byte modulo 32 and row byte / 32; the lower half of the picture is
/// blank. 0 to 63 are letters light on dark, 64 to 127 the same dark on light, 128 to 255 blocks of
/// two by two in eight colours.
const Picture& CharacterSet();

}  // namespace brindlemoor
