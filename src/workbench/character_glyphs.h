#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace brindlemoor {

/// Dots of a glyph across and down, and how many glyphs the video generator has.
inline constexpr int kGlyphWidth = 5;
inline constexpr int kGlyphHeight = 7;
inline constexpr int kGlyphCount = 64;

/// The table is drawn in bands of eight glyphs with a blank column between each two.
inline constexpr int kGlyphsInBand = 8;
inline constexpr int kGlyphBands = kGlyphCount / kGlyphsInBand;

/// One text for each row of dots from the top, "#" a dot that is lit.
using GlyphBand = std::array<std::string_view, kGlyphHeight>;

/// The letters of the MC6847 video generator by their six-bit code: "@", the capital letters and
/// five signs, then the space, the signs and digits.
extern const std::array<GlyphBand, kGlyphBands> kGlyphs;

/// True where the glyph of that code (0 to 63) has a dot; column and row from 0.
bool GlyphDot(int glyph, int x, int y);

}  // namespace brindlemoor
