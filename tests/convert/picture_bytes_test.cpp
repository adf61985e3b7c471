#include "convert/picture_bytes.h"

#include <gtest/gtest.h>

namespace brindlemoor {
namespace {

/// A picture in one colour.
Picture Plain(int width, int height, std::int32_t colour) {
    Picture picture;
    picture.BackColour = colour;
    ResizePicture(picture, width, height);
    return picture;
}

std::string Rows(int count, char byte) {
    return std::string(static_cast<std::size_t>(count) * 32, byte);
}

TEST(PictureToBytes, FourPixelsMakeAByteTheFirstInItsHighestBits) {
    Picture picture = Plain(128, 384, 0);
    FillBox(picture, 1, 0, 1, 0, 128);
    FillBox(picture, 2, 0, 2, 0, 0x800000);
    FillBox(picture, 3, 0, 3, 0, 0xC0C0C0);
    FillBox(picture, 127, 383, 127, 383, 128);
    const std::string bytes = PictureToBytes(picture);
    ASSERT_EQ(bytes.size(), 12288U);
    EXPECT_EQ(bytes[0], '\x1B');  // 00 01 10 11
    EXPECT_EQ(bytes.substr(1, 12286), std::string(12286, '\0'));
    EXPECT_EQ(bytes[12287], '\x01');
}

TEST(PictureToBytes, AColourOutsideThePaletteIsTheLast) {
    EXPECT_EQ(PictureToBytes(Plain(128, 384, 0xFFFFFF)), Rows(384, '\xFF'));
    EXPECT_EQ(PictureToBytes(Plain(128, 384, 255)), Rows(384, '\xFF'));
}

TEST(PictureToBytes, OfEqualColoursTheFirstPlaceCounts) {
    const auto palette = PaintPalette;
    PaintPalette = {5, 128, 128, 5};
    EXPECT_EQ(PictureToBytes(Plain(128, 384, 128)), Rows(384, '\x55'));
    EXPECT_EQ(PictureToBytes(Plain(128, 384, 5)), Rows(384, '\0'));
    PaintPalette = palette;
}

TEST(PictureToBytes, Are12288BytesWhateverThePicturesHeight) {
    EXPECT_EQ(PictureToBytes(Plain(128, 2, 0)), Rows(2, '\0') + Rows(382, '\xFF'));
    EXPECT_EQ(PictureToBytes(Plain(128, 1000, 0)), Rows(384, '\0'));
    EXPECT_EQ(PictureToBytes(Plain(500, 384, 0)), Rows(384, '\0'));
    EXPECT_EQ(PictureToBytes(Picture()), Rows(384, '\xFF'));
}

TEST(PictureToBytes, WhatANarrowPictureLacksIsTheLastColour) {
    const std::string bytes = PictureToBytes(Plain(2, 1, 0));
    EXPECT_EQ(bytes.substr(0, 2), "\x0F\xFF");
}

TEST(PlacePicture, CutsALargerPictureAndLeavesTheBackColourAroundASmallerOne) {
    Picture surface = Plain(3, 2, 7);
    PlacePicture(Plain(5, 5, 1), surface);
    EXPECT_EQ(surface.Pixels, std::vector<std::int32_t>(6, 1));
    PlacePicture(Plain(1, 1, 2), surface);
    EXPECT_EQ(surface.Pixels, (std::vector<std::int32_t>{2, 7, 7, 7, 7, 7}));
    PlacePicture(Picture(), surface);
    EXPECT_EQ(surface.Pixels, std::vector<std::int32_t>(6, 7));
}

}  // namespace
}  // namespace brindlemoor
