#include "workbench/viewer_drawing.h"

#include <gtest/gtest.h>

#include <string>

#include "workbench/character_set.h"

namespace brindlemoor {
namespace {

constexpr std::array<std::int32_t, 4> kPalette = {0, 255, 0xFF0000, 0x0000FF00};

Picture White(int width, int height) {
    Picture picture;
    ResizePicture(picture, width, height);
    return picture;
}

/// The pixels of row `y`: "." for white, else the place in the palette.
std::string Row(const Picture& picture, int y) {
    std::string text;
    for (int x = 0; x < picture.Width; ++x) {
        char shown = '.';
        for (std::size_t i = 0; i < kPalette.size(); ++i) {
            if (PixelAt(picture, x, y) == kPalette[i]) shown = static_cast<char>('0' + i);
        }
        text += shown;
    }
    return text;
}

TEST(CharacterCellsTest, AtFullSizeEverySecondPixelOfTheSetIsShown) {
    Picture picture = White(40, 30);
    DrawCharacterCells(picture, {1, 8, 12}, "A\xAF");
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 8; ++x) {
            ASSERT_EQ(PixelAt(picture, x, 12 + y), PixelAt(CharacterSet(), 16 + 2 * x, 48 + 2 * y));
            ASSERT_EQ(PixelAt(picture, 8 + x, 12 + y),
                      PixelAt(CharacterSet(), 15 * 16 + 2 * x, 5 * 24 + 2 * y));
        }
    }
    EXPECT_EQ(PixelAt(picture, 0, 11), 0xFFFFFF);
    EXPECT_EQ(PixelAt(picture, 0, 24), 0xFFFFFF);
    EXPECT_EQ(PixelAt(picture, 16, 12), 0xFFFFFF);
}

TEST(CharacterCellsTest, AtDoubleSizeACellIsCopiedAsItStands) {
    Picture picture = White(32, 24);
    DrawCharacterCells(picture, {0, 16, 24}, "AB");
    for (int y = 0; y < 24; ++y) {
        for (int x = 0; x < 32; ++x) {
            ASSERT_EQ(PixelAt(picture, x, y), PixelAt(CharacterSet(), 16 + x, 48 + y));
        }
    }
}

TEST(CharacterCellsTest, CellsBelowAPixelStillFillTheLineWithoutGaps) {
    Picture picture = White(50, 9);
    const std::string line(100, '\x8F');  // green blocks
    for (int row = 0; row < 10; ++row) DrawCharacterCells(picture, {row, 0.56, 0.84}, line);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 50; ++x)
            ASSERT_EQ(PixelAt(picture, x, y), kScreenGreen) << x << " " << y;
    }
}

TEST(CharacterCellsTest, CellsLargerThanThePictureAreCutAtItsEdges) {
    Picture picture = White(20, 10);
    DrawCharacterCells(picture, {0, 208, 312},
                       "\x8F"
                       "A");
    EXPECT_EQ(PixelAt(picture, 19, 9), kScreenGreen);
    DrawCharacterCells(picture, {1, 208, 312}, "\x80");
    EXPECT_EQ(PixelAt(picture, 0, 0), kScreenGreen);
    DrawCharacterCells(picture, {7, 80000, 120000}, "\x80");
    EXPECT_EQ(PixelAt(picture, 19, 9), kScreenGreen);
}

TEST(CharacterCellsTest, AnEmptyLineOrPictureDrawsNothing) {
    Picture picture = White(20, 12);
    DrawCharacterCells(picture, {0, 8, 12}, "");
    EXPECT_EQ(PixelAt(picture, 0, 0), 0xFFFFFF);
    Picture none = White(0, 0);
    DrawCharacterCells(none, {0, 8, 12}, "A");
    EXPECT_TRUE(none.Pixels.empty());
}

TEST(BasicCodesTest, SignsGoUpSmallLettersGoDownAndTheRestStays) {
    for (int byte = 0; byte < 256; ++byte) {
        int code = byte;
        if (byte < 64) code = byte + 64;
        if (byte > 96 && byte < 128) code = byte - 96;
        EXPECT_EQ(CodesOfBasicText(std::string(1, static_cast<char>(byte))),
                  std::string(1, static_cast<char>(code)))
            << byte;
    }
}

TEST(CocoMaxTest, FourDotsAByteTwoPixelsWideStartAtPixelTwo) {
    Picture picture = White(24, 3);
    DrawCocoMaxLine(picture, 1, "\x1B\xFF", 0, kPalette);
    EXPECT_EQ(Row(picture, 1), "..0011223333333333......");
    EXPECT_EQ(Row(picture, 0), "........................");
}

TEST(CocoMaxTest, DotsOutOfViewKeepTheirBitsForTheNextOfTheSameByte) {
    Picture picture = White(16, 1);
    DrawCocoMaxLine(picture, 0, "\x1B\xE4", 2, kPalette);
    // Dots 3 and 4 take the first two pairs of bits of their byte; dot x stands at 2x - 2.
    EXPECT_EQ(Row(picture, 0), "....001133221100");
    Picture odd = White(16, 1);
    DrawCocoMaxLine(odd, 0, "\x1B\xE4", 5, kPalette);
    EXPECT_EQ(Row(odd, 0), ".......332211...");
}

TEST(CocoMaxTest, ALineLongerThanThePictureIsCut) {
    Picture picture = White(5, 1);
    DrawCocoMaxLine(picture, 0, std::string(100000, '\x55'), 0, kPalette);
    EXPECT_EQ(Row(picture, 0), "..111");
}

}  // namespace
}  // namespace brindlemoor
