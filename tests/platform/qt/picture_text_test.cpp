#include "platform/qt/picture_text.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>

#include "core/byte_helpers.h"
#include "platform/qt/fixed_font.h"

namespace brindlemoor::test {
namespace {

Picture White(int width, int height) {
    Picture picture;
    ResizePicture(picture, width, height);
    return picture;
}

/// True when a pixel of the area is not white.
bool HasInk(const Picture& picture, const PictureArea& area) {
    for (int y = area.Top; y < area.Top + area.Height; ++y) {
        for (int x = area.Left; x < area.Left + area.Width; ++x) {
            if (PixelAt(picture, x, y) != 0xFFFFFF && PixelAt(picture, x, y) != kNoPixel)
                return true;
        }
    }
    return false;
}

TEST(PictureTextTest, AnImageHasThePicturesColours) {
    Picture picture = White(2, 1);
    FillBox(picture, 1, 0, 1, 0, 0x123456);  // blue 12, green 34, red 56
    const QImage image = ImageOf(picture);
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(1, 0), QColor(0x56, 0x34, 0x12));
}

TEST(PictureTextTest, EachByteHasItsCell) {
    // Two bytes that would make one character of UTF-8 are two of Windows-1252.
    const std::string text = std::string("A") + "\xC3\xA9" + "Z";
    Picture picture = White(48, 16);
    DrawPictureText(picture, {text, 0, 2, 8, 12, 0});
    for (int cell = 0; cell < 4; ++cell) {
        EXPECT_TRUE(HasInk(picture, {cell * 8, 2, 8, 12})) << cell;
    }
    EXPECT_FALSE(HasInk(picture, {34, 0, 14, 16}));
    EXPECT_FALSE(HasInk(picture, {0, 0, 48, 1}));
}

TEST(PictureTextTest, TheFontIsElevenTwelfthsOfACellHigh) {
    Picture picture = White(160, 240);
    DrawPictureText(picture, {"H", 0, 0, 160, 240, 0});
    int rows = 0;
    for (int y = 0; y < 240; ++y) rows += HasInk(picture, {0, y, 160, 1}) ? 1 : 0;
    QFont font = FixedFont();
    font.setPixelSize(220);
    EXPECT_NEAR(rows, QFontMetricsF(font).tightBoundingRect(QStringLiteral("H")).height(), 2);
}

TEST(PictureTextTest, BlanksAndControlBytesLeaveTheirCellsBlank) {
    Picture picture = White(160, 16);
    DrawPictureText(picture, {std::string(" \0\x01\t\r\n\x1F\x7F\x81\xA0", 10), 0, 0, 16, 12, 0});
    EXPECT_FALSE(HasInk(picture, {0, 0, 160, 16}));
}

TEST(PictureTextTest, TheColourIsTheLines) {
    Picture picture = White(200, 200);
    DrawPictureText(picture, {"M", 0, 0, 133, 200, 0x0000FF});
    bool red = false;
    for (const std::int32_t pixel : picture.Pixels) red = red || pixel == 0x0000FF;
    EXPECT_TRUE(red);
}

TEST(PictureTextTest, WhatLeavesThePictureIsCut) {
    Picture picture = White(20, 10);
    DrawPictureText(picture, {std::string(100000, 'M'), -50, 4, 8, 12, 0});
    DrawPictureText(picture, {"M", 0, 500, 8, 12, 0});
    DrawPictureText(picture, {"M", 500, 0, 8, 12, 0});
    DrawPictureText(picture, {"M", 0, 0, 80000, 120000, 0});
    DrawPictureText(picture, {"", 0, 0, 8, 12, 0});
    Picture none = White(0, 0);
    DrawPictureText(none, {"M", 0, 0, 8, 12, 0});
    EXPECT_EQ(picture.Pixels.size(), 200u);
}

TEST(PictureTextTest, CellsTooSmallForLettersShowGreyBoxes) {
    Picture picture = White(20, 3);
    DrawPictureText(picture, {"AB  C", 0, 0, 2, 3, 0});
    EXPECT_TRUE(HasInk(picture, {0, 0, 4, 2}));
    EXPECT_FALSE(HasInk(picture, {4, 0, 4, 3}));
    EXPECT_TRUE(HasInk(picture, {8, 0, 2, 2}));
    EXPECT_FALSE(HasInk(picture, {10, 0, 10, 3}));
}

}  // namespace
}  // namespace brindlemoor::test
