#include "platform/qt/picture_text.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/qt/colours.h"
#include "platform/qt/fixed_font.h"

namespace brindlemoor {

namespace {

constexpr std::int32_t kRedMask = 0x0000FF;
constexpr std::int32_t kGreenMask = 0x00FF00;
constexpr std::int32_t kBlueMask = 0xFF0000;

/// 0x00BBGGRR as 0xFFRRGGBB, and back.
QRgb ScreenColour(std::int32_t colour) {
    return qRgb(colour & kRedMask, (colour & kGreenMask) >> 8, (colour & kBlueMask) >> 16);
}

std::int32_t RecordColour(QRgb colour) {
    return qRed(colour) | (qGreen(colour) << 8) | (qBlue(colour) << 16);
}

QRgb* LineAt(QImage& image, int y) {
    return reinterpret_cast<QRgb*>(image.scanLine(y));
}

std::int32_t* RowAt(Picture& picture, int y) {
    return picture.Pixels.data() + static_cast<std::ptrdiff_t>(y) * picture.Width;
}

QImage ImageOfArea(const Picture& picture, const QRect& area) {
    QImage image(area.size(), QImage::Format_RGB32);
    for (int y = 0; y < area.height(); ++y) {
        const std::int32_t* row = picture.Pixels.data() +
                                  static_cast<std::ptrdiff_t>(area.top() + y) * picture.Width +
                                  area.left();
        std::transform(row, row + area.width(), LineAt(image, y), ScreenColour);
    }
    return image;
}

void PutBack(QImage& image, Picture& picture, const QRect& area) {
    for (int y = 0; y < area.height(); ++y) {
        const QRgb* line = LineAt(image, y);
        std::transform(line, line + area.width(), RowAt(picture, area.top() + y) + area.left(),
                       RecordColour);
    }
}

void DrawGreyBoxes(Picture& picture, const TextLine& line) {
    constexpr std::int32_t kGrey = 0xA0A0A0;
    const int top = static_cast<int>(std::lround(line.Top));
    const int bottom = static_cast<int>(std::lround(line.Top + line.CellHeight * 0.7));
    double left = line.Left;
    for (const char character : line.Text) {
        const int from = static_cast<int>(std::lround(left));
        left += line.CellWidth;
        const int to = static_cast<int>(std::lround(left));
        const bool blank = character == ' ' || character == '\0' || character == '\t';
        if (!blank && to > from)
            FillBox(picture, from, top, to - 1, std::max(top, bottom - 1), kGrey);
    }
}

}  // namespace

QImage ImageOf(const Picture& picture) {
    return ImageOfArea(picture, QRect(0, 0, picture.Width, picture.Height));
}

void DrawPictureText(Picture& picture, const TextLine& line) {
    if (line.CellHeight < kLeastTextHeight) {
        DrawGreyBoxes(picture, line);
        return;
    }
    const double room = std::max((picture.Width - line.Left) / line.CellWidth, 0.0);
    const auto count = std::min(line.Text.size(), static_cast<std::size_t>(room) + 1);
    const QRectF whole(line.Left, line.Top, static_cast<double>(count) * line.CellWidth,
                       line.CellHeight);
    const QRect area = whole.toAlignedRect() & QRect(0, 0, picture.Width, picture.Height);
    if (area.isEmpty()) return;
    QImage image = ImageOfArea(picture, area);
    QPainter painter(&image);
    painter.translate(-area.topLeft());
    painter.setPen(ColourOf(line.Colour));
    DrawByteCells(painter, whole, line.Text.substr(0, count), line.CellWidth);
    painter.end();
    PutBack(image, picture, area);
    ++picture.Revision;
}

}  // namespace brindlemoor
