#include "workbench/viewer_drawing.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "workbench/character_set.h"

namespace brindlemoor {

namespace {

/// The first pixel whose centre lies at `place` or behind it, as far as `end` goes.
int FirstPixelAt(double place, int end) {
    if (!(place < end)) return end;
    return std::max(static_cast<int>(std::ceil(place - 0.5)), 0);
}

/// The place in a cell of the set, `length` pixels long, of the pixel whose centre lies `inside`
/// cells of `size` behind the cell's edge.
int PlaceInCell(double inside, double size, int length) {
    const int place = static_cast<int>(inside / size * length);
    return std::clamp(place, 0, length - 1);
}

/// Which cell each column of pixels belongs to, and the column of the set that it shows.
struct PixelColumn {
    std::size_t Cell;
    int SourceX;
};

std::vector<PixelColumn> PixelColumns(int width, double cellWidth, std::size_t cells) {
    std::vector<PixelColumn> columns;
    columns.reserve(static_cast<std::size_t>(width));
    for (int x = 0; x < width; ++x) {
        const double centre = x + 0.5;
        const double cell = std::floor(centre / cellWidth);
        if (cell >= static_cast<double>(cells)) break;
        columns.push_back({static_cast<std::size_t>(cell),
                           PlaceInCell(centre - cell * cellWidth, cellWidth, kCharacterWidth)});
    }
    return columns;
}

}  // namespace

void DrawCharacterCells(Picture& picture, const ViewerRow& place, std::string_view bytes) {
    const Picture& set = CharacterSet();
    const double top = place.Row * place.CellHeight;
    const int firstY = FirstPixelAt(top, picture.Height);
    const int endY = FirstPixelAt(top + place.CellHeight, picture.Height);
    if (firstY >= endY) return;
    const auto columns = PixelColumns(picture.Width, place.CellWidth, bytes.size());
    for (int y = firstY; y < endY; ++y) {
        const int sourceY = PlaceInCell(y + 0.5 - top, place.CellHeight, kCharacterHeight);
        std::int32_t* pixel =
            picture.Pixels.data() + static_cast<std::ptrdiff_t>(y) * picture.Width;
        for (const PixelColumn& column : columns) {
            const int code = static_cast<unsigned char>(bytes[column.Cell]);
            const int setY = code / kCharactersInRow * kCharacterHeight + sourceY;
            const int setX = code % kCharactersInRow * kCharacterWidth + column.SourceX;
            *pixel++ = PixelAt(set, setX, setY);
        }
    }
    ++picture.Revision;
}

std::string CodesOfBasicText(std::string_view bytes) {
    std::string codes(bytes);
    for (char& code : codes) {
        const int byte = static_cast<unsigned char>(code);
        if (byte < 64) code = static_cast<char>(byte + 64);
        if (byte > 96 && byte < 128) code = static_cast<char>(byte - 96);
    }
    return codes;
}

void DrawCocoMaxLine(Picture& picture, int row, std::string_view bytes, int skipped,
                     const std::array<std::int32_t, 4>& palette) {
    int x = 1;  // dots are counted from 1
    for (const char character : bytes) {
        unsigned byte = static_cast<unsigned char>(character);
        for (int dot = 0; dot < 4; ++dot, ++x) {
            if (x < skipped + 1) continue;
            const int left = 2 * x - skipped;
            FillBox(picture, left, row, left + 1, row, palette[byte >> 6]);
            byte = (byte << 2) & 0xFFU;
        }
        if (2 * x - skipped >= picture.Width) return;
    }
}

}  // namespace brindlemoor
