#include "platform/qt/picture_files.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <string>
#include <vector>

namespace brindlemoor::test {
namespace {

std::string FileOf(const QImage& image, const char* kind) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, kind));
    return bytes.toStdString();
}

TEST(PictureFiles, ABmpOf24BitsIsWritten) {
    Picture picture;
    ResizePicture(picture, 2, 1);
    picture.Pixels = {0x800000, 0x0000FF};  // dark blue, red
    const std::string bytes = PictureFileOf(picture);
    ASSERT_EQ(bytes.size(), 54U + 8U);
    EXPECT_EQ(bytes.substr(0, 2), "BM");
    EXPECT_EQ(bytes[28], 24);
    EXPECT_EQ(bytes.substr(54, 6), std::string("\x80\0\0\0\0\xFF", 6));  // blue, green, red
}

TEST(PictureFiles, EveryPixelComesBack) {
    Picture picture;
    ResizePicture(picture, 3, 2);
    picture.Pixels = {0, 128, 0x800000, 0xC0C0C0, 0xFFFFFF, 0x123456};
    Picture read;
    ASSERT_TRUE(ReadPictureFile(PictureFileOf(picture), read));
    EXPECT_EQ(read.Width, 3);
    EXPECT_EQ(read.Height, 2);
    EXPECT_EQ(read.Pixels, picture.Pixels);
}

TEST(PictureFiles, OtherKindsAreReadToo) {
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(0x80, 0, 0, 255));
    image.setPixel(1, 0, qRgba(0, 0, 0, 0));
    Picture read;
    ASSERT_TRUE(ReadPictureFile(FileOf(image, "PNG"), read));
    EXPECT_EQ(read.Pixels, (std::vector<std::int32_t>{128, 0xFFFFFF}));  // through to white
}

TEST(PictureFiles, WhatHoldsNoPictureLeavesTheOld) {
    Picture picture;
    ResizePicture(picture, 1, 1);
    const std::string whole = PictureFileOf(picture);
    for (const std::string& bytes : {std::string(), std::string("text"), whole.substr(0, 30)}) {
        Picture old;
        ResizePicture(old, 5, 5);
        EXPECT_FALSE(ReadPictureFile(bytes, old));
        EXPECT_EQ(old.Width, 5);
    }
}

}  // namespace
}  // namespace brindlemoor::test
