#include "core/picture.h"

#include <algorithm>

namespace brindlemoor {

namespace {

std::int32_t* RowAt(Picture& picture, int y) {
    return picture.Pixels.data() +
           static_cast<std::ptrdiff_t>(y) * static_cast<std::ptrdiff_t>(picture.Width);
}

bool IsInside(const Picture& picture, int x, int y) {
    return x >= 0 && y >= 0 && x < picture.Width && y < picture.Height;
}

/// The place of the source under the centre of pixel `index` of `length` pixels.
int SourcePlace(int index, int length, int sourceLength) {
    const auto doubled = 2 * static_cast<std::int64_t>(index) + 1;
    return static_cast<int>(doubled * sourceLength / (2 * static_cast<std::int64_t>(length)));
}

}  // namespace

void ResizePicture(Picture& picture, int width, int height) {
    picture.Width = std::max(width, 0);
    picture.Height = std::max(height, 0);
    const std::size_t count =
        static_cast<std::size_t>(picture.Width) * static_cast<std::size_t>(picture.Height);
    picture.Pixels.assign(count, picture.BackColour);
    ++picture.Revision;
}

void ClearPicture(Picture& picture) {
    std::fill(picture.Pixels.begin(), picture.Pixels.end(), picture.BackColour);
    ++picture.Revision;
}

std::int32_t PixelAt(const Picture& picture, int x, int y) {
    if (!IsInside(picture, x, y)) return kNoPixel;
    return picture.Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.Width) +
                          static_cast<std::size_t>(x)];
}

void FillBox(Picture& picture, int x1, int y1, int x2, int y2, std::int32_t colour) {
    const int left = std::max(std::min(x1, x2), 0);
    const int right = std::min(std::max(x1, x2), picture.Width - 1);
    const int top = std::max(std::min(y1, y2), 0);
    const int bottom = std::min(std::max(y1, y2), picture.Height - 1);
    ++picture.Revision;
    if (left > right) return;
    for (int y = top; y <= bottom; ++y) {
        std::fill(RowAt(picture, y) + left, RowAt(picture, y) + right + 1, colour);
    }
}

void OutlineBox(Picture& picture, int x1, int y1, int x2, int y2, std::int32_t colour) {
    FillBox(picture, x1, y1, x2, y1, colour);
    FillBox(picture, x1, y2, x2, y2, colour);
    FillBox(picture, x1, y1, x1, y2, colour);
    FillBox(picture, x2, y1, x2, y2, colour);
}

void CopyStretched(Picture& target, const PictureArea& to, const Picture& source,
                   const PictureArea& from) {
    if (to.Width <= 0 || to.Height <= 0 || from.Width <= 0 || from.Height <= 0) return;
    const int firstX = std::max(0, -to.Left);
    const int endX = std::min(to.Width, target.Width - to.Left);
    const int endY = std::min(to.Height, target.Height - to.Top);
    for (int y = std::max(0, -to.Top); y < endY; ++y) {
        const int sourceY = from.Top + SourcePlace(y, to.Height, from.Height);
        std::int32_t* row = RowAt(target, to.Top + y) + to.Left;
        for (int x = firstX; x < endX; ++x) {
            const int sourceX = from.Left + SourcePlace(x, to.Width, from.Width);
            const std::int32_t colour = PixelAt(source, sourceX, sourceY);
            if (colour != kNoPixel) row[x] = colour;
        }
    }
    ++target.Revision;
}

}  // namespace brindlemoor
