#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/picture.h"

namespace brindlemoor {

/// Where a line of the viewer is drawn.
struct ViewerRow {
    int Row = 0;           ///< 0-based, in cells
    double CellWidth = 8;  ///< pixels
    double CellHeight = 12;
};

/// Draws bytes as cells of the character set, stretched to the size of a cell; `bytes` are the
/// codes of its characters from the left edge on.
void DrawCharacterCells(Picture& picture, const ViewerRow& place, std::string_view bytes);

/// The characters that stand for the bytes of a BASIC text: signs, digits and capitals dark on
/// light, small letters as capitals light on dark.
std::string CodesOfBasicText(std::string_view bytes);

/// Draws a line of a CoCo MAX picture at pixel row `row`: four dots a byte, each two pixels wide,
/// in the colour that two bits of the byte choose. The first `skipped` dots are not drawn, and
/// their bits not used up.
void DrawCocoMaxLine(Picture& picture, int row, std::string_view bytes, int skipped,
                     const std::array<std::int32_t, 4>& palette);

}  // namespace brindlemoor
