#include "convert/picture_bytes.h"

#include <algorithm>
#include <cstddef>

namespace brindlemoor {

std::array<std::int32_t, 4> PaintPalette = {0, 128, 0x800000, 0xC0C0C0};

namespace {

constexpr int kPaintedRows = 384;
constexpr int kPixelsInByte = 4;
constexpr int kOtherColour = 3;

int IndexOf(std::int32_t colour) {
    const auto place = std::find(PaintPalette.begin(), PaintPalette.end(), colour);
    return place == PaintPalette.end() ? kOtherColour
                                       : static_cast<int>(place - PaintPalette.begin());
}

}  // namespace

std::string PictureToBytes(const Picture& picture) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(kPaintedRows) * (kPaintedWidth / kPixelsInByte));
    int acc = 0;
    for (int y = 0; y < kPaintedRows; ++y) {
        for (int x = 0; x < kPaintedWidth; ++x) {
            acc += IndexOf(PixelAt(picture, x, y));
            if (x % kPixelsInByte == kPixelsInByte - 1) {
                bytes += static_cast<char>(acc);
                acc = 0;
            } else {
                acc *= 4;
            }
        }
    }
    return bytes;
}

void PlacePicture(const Picture& painted, Picture& surface) {
    ClearPicture(surface);
    const auto width = static_cast<std::size_t>(std::min(painted.Width, surface.Width));
    const int height = std::min(painted.Height, surface.Height);
    for (int y = 0; y < height; ++y) {
        const auto row = static_cast<std::ptrdiff_t>(y);
        std::copy_n(painted.Pixels.begin() + row * painted.Width, width,
                    surface.Pixels.begin() + row * surface.Width);
    }
}

}  // namespace brindlemoor
