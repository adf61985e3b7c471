#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace brindlemoor {

/// A rectangle of pixels, X to the right and Y down, both from 0. Colours are 0x00BBGGRR. Drawing
/// that leaves the rectangle is cut at its edges.
struct Picture {
    int Width = 0;
    int Height = 0;
    std::int32_t BackColour = 0xFFFFFF;
    std::vector<std::int32_t> Pixels;  ///< row after row, `Width` in each
    unsigned Revision = 0;             ///< grows with every change
};

/// A rectangle of a picture in pixels: left and top edge, width and height.
struct PictureArea {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

/// A line of text in cells of one size, each character at the left edge of its cell.
struct TextLine {
    std::string Text;  ///< Windows-1252
    double Left = 0;   ///< pixels, of the first cell
    double Top = 0;
    double CellWidth = 8;  ///< pixels
    double CellHeight = 12;
    std::int32_t Colour = 0;
};

/// The colour that `PixelAt` gives for a place outside the picture.
inline constexpr std::int32_t kNoPixel = -1;

/// Gives the picture a size and clears it. A negative size counts as 0.
void ResizePicture(Picture& picture, int width, int height);

/// Fills the whole picture with its back colour.
void ClearPicture(Picture& picture);

/// The colour of a pixel, `kNoPixel` outside.
std::int32_t PixelAt(const Picture& picture, int x, int y);

/// Fills the box between two opposite corners, both included, given in any order.
void FillBox(Picture& picture, int x1, int y1, int x2, int y2, std::int32_t colour);

/// Draws the one pixel wide outline of the box between two opposite corners, both included.
void OutlineBox(Picture& picture, int x1, int y1, int x2, int y2, std::int32_t colour);

/// Copies an area of `source` stretched to the area `to` of `target`, without mixing colours: each
/// pixel takes the one of `source` under its centre.
void CopyStretched(Picture& target, const PictureArea& to, const Picture& source,
                   const PictureArea& from);

}  // namespace brindlemoor
