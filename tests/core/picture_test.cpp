#include "core/picture.h"

#include <gtest/gtest.h>

#include <string>

namespace brindlemoor {
namespace {

Picture White(int width, int height) {
    Picture picture;
    ResizePicture(picture, width, height);
    return picture;
}

/// The picture as rows of letters: "." for the back colour, else the colour as a digit.
std::string Drawn(const Picture& picture) {
    std::string text;
    for (int y = 0; y < picture.Height; ++y) {
        for (int x = 0; x < picture.Width; ++x) {
            const std::int32_t colour = PixelAt(picture, x, y);
            text += colour == picture.BackColour ? '.' : static_cast<char>('0' + colour);
        }
        text += '\n';
    }
    return text;
}

TEST(PictureTest, IsClearAfterTakingASize) {
    Picture picture = White(3, 2);
    FillBox(picture, 0, 0, 2, 1, 5);
    ResizePicture(picture, 2, 2);
    EXPECT_EQ(Drawn(picture), "..\n..\n");
    FillBox(picture, 0, 0, 0, 0, 5);
    ClearPicture(picture);
    EXPECT_EQ(Drawn(picture), "..\n..\n");
}

TEST(PictureTest, ANegativeSizeIsEmpty) {
    Picture picture = White(-3, 4);
    EXPECT_TRUE(picture.Pixels.empty());
    FillBox(picture, -5, -5, 5, 5, 1);
    OutlineBox(picture, 0, 0, 0, 0, 1);
    EXPECT_EQ(PixelAt(picture, 0, 0), kNoPixel);
}

TEST(PictureTest, ABoxHoldsBothCornersInAnyOrder) {
    Picture picture = White(5, 4);
    FillBox(picture, 3, 2, 1, 1, 7);
    EXPECT_EQ(Drawn(picture), ".....\n.777.\n.777.\n.....\n");
}

TEST(PictureTest, ABoxIsCutAtTheEdges) {
    Picture picture = White(3, 3);
    FillBox(picture, -2000000000, 1, 0, 2000000000, 4);
    EXPECT_EQ(Drawn(picture), "...\n4..\n4..\n");
    FillBox(picture, 3, 0, 9, 2, 4);
    FillBox(picture, 0, -7, 2, -1, 4);
    EXPECT_EQ(Drawn(picture), "...\n4..\n4..\n");
}

TEST(PictureTest, AnOutlineLeavesItsInsideAlone) {
    Picture picture = White(5, 4);
    FillBox(picture, 2, 1, 2, 1, 3);
    OutlineBox(picture, 0, 0, 3, 3, 1);
    EXPECT_EQ(Drawn(picture), "1111.\n1.31.\n1..1.\n1111.\n");
}

TEST(PictureTest, AnOutlineBeyondTheEdgesShowsTheSidesInside) {
    Picture picture = White(3, 3);
    OutlineBox(picture, 1, 1, 9, 9, 2);
    EXPECT_EQ(Drawn(picture), "...\n.22\n.2.\n");
}

TEST(PictureTest, PixelsOutsideHaveNoColour) {
    const Picture picture = White(2, 2);
    EXPECT_EQ(PixelAt(picture, 1, 1), 0xFFFFFF);
    EXPECT_EQ(PixelAt(picture, 2, 1), kNoPixel);
    EXPECT_EQ(PixelAt(picture, 1, 2), kNoPixel);
    EXPECT_EQ(PixelAt(picture, -1, 0), kNoPixel);
    EXPECT_EQ(PixelAt(picture, 0, -1), kNoPixel);
}

TEST(PictureTest, ACopyTakesThePixelUnderEachCentre) {
    Picture source = White(4, 2);
    FillBox(source, 0, 0, 0, 1, 1);
    FillBox(source, 1, 0, 1, 1, 2);
    FillBox(source, 2, 0, 2, 1, 3);
    FillBox(source, 3, 0, 3, 1, 4);
    Picture target = White(9, 2);
    CopyStretched(target, {0, 0, 8, 1}, source, {0, 0, 4, 1});
    CopyStretched(target, {1, 1, 2, 1}, source, {0, 0, 4, 2});
    EXPECT_EQ(Drawn(target), "11223344.\n.24......\n");
}

TEST(PictureTest, ACopyIsCutAtTheEdgesOfBothPictures) {
    Picture source = White(2, 2);
    FillBox(source, 0, 0, 1, 1, 6);
    Picture target = White(3, 3);
    CopyStretched(target, {-1, 1, 2, 5}, source, {0, 0, 2, 2});
    EXPECT_EQ(Drawn(target), "...\n6..\n6..\n");
    CopyStretched(target, {1, 0, 2, 1}, source, {1, 0, 2, 1});
    EXPECT_EQ(Drawn(target), ".6.\n6..\n6..\n");
    CopyStretched(target, {0, 0, 0, 3}, source, {0, 0, 2, 2});
    CopyStretched(target, {0, 0, 3, 3}, source, {0, 0, 0, 2});
    EXPECT_EQ(Drawn(target), ".6.\n6..\n6..\n");
}

TEST(PictureTest, EveryChangeCounts) {
    Picture picture = White(2, 2);
    unsigned before = picture.Revision;
    FillBox(picture, 0, 0, 0, 0, 1);
    EXPECT_NE(picture.Revision, before);
    before = picture.Revision;
    ClearPicture(picture);
    EXPECT_NE(picture.Revision, before);
    before = picture.Revision;
    CopyStretched(picture, {0, 0, 1, 1}, picture, {0, 0, 1, 1});
    EXPECT_NE(picture.Revision, before);
}

}  // namespace
}  // namespace brindlemoor
