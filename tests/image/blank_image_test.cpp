#include "image/blank_image.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

TEST(BlankImageTest, TheStandardShapeIs161280BytesOf255) {
    EXPECT_EQ(BlankImage({}), std::string(161280, '\xFF'));
}

TEST(BlankImageTest, AHeaderIsSixteenBytesMoreAtTheEnd) {
    BlankShape shape;
    shape.Header = true;
    EXPECT_EQ(BlankImage(shape), std::string(161280 + 16, '\xFF'));
}

TEST(BlankImageTest, SidesTracksAndSectorsMakeTheSize) {
    EXPECT_EQ(BlankImage({2, 80, 36, 256, false, false}).size(), 2u * 80 * 36 * 256);
    EXPECT_EQ(BlankImage({2, 255, 255, 256, true, false}).size(), 2u * 255 * 255 * 256 + 16);
}

BlankShape DragonShape() {
    return {1, 40, 18, 256, true, true};
}

TEST(BlankImageTest, ADragonDiskCarriesItsGeometryInBothPlaces) {
    const std::string image = BlankImage(DragonShape());
    EXPECT_EQ(image.size(), 184336u);
    const std::string geometry = {40, 18, static_cast<char>(215), static_cast<char>(237)};
    EXPECT_EQ(image.substr(92160 + 252, 4), geometry);
    EXPECT_EQ(image.substr(73728 + 252, 4), geometry);
    EXPECT_EQ(image.substr(92160, 256), image.substr(73728, 256));
}

TEST(BlankImageTest, ADragonBitmapHasTracks16And20Used) {
    // A set bit is a free sector, counted from bit 0 of each byte; both tracks have 18 sectors.
    const std::string bitmap = BlankImage(DragonShape()).substr(92160, 252);
    for (std::size_t sector = 0; sector < bitmap.size() * 8; ++sector) {
        const std::size_t track = sector / 18;
        const bool free = (static_cast<unsigned char>(bitmap[sector / 8]) >> (sector % 8) & 1) != 0;
        EXPECT_EQ(free, track != 16 && track != 20) << sector;
    }
    const std::string image = BlankImage(DragonShape());
    EXPECT_EQ(image.substr(92160 + 256, 256), std::string(256, '\xFF'));
}

TEST(BlankImageTest, ABitmapWithoutRoomIsLeftOut) {
    EXPECT_EQ(BlankImage({1, 16, 18, 256, false, true}), std::string(16 * 18 * 256, '\xFF'));
    EXPECT_EQ(BlankImage({0, 40, 18, 256, false, true}), "");
    // 255 sectors a track: their bits lie beyond the sector.
    EXPECT_EQ(BlankImage({1, 40, 255, 256, false, true}).size(), 40u * 255 * 256);
}

class BlankDiskTest : public DiskTest {};

TEST_F(BlankDiskTest, ABlankDiskOpensAsAnEmptyDiskOfDiskBasic) {
    Read(BlankImage({}));
    EXPECT_EQ(Disk.DiskFamily, kDecb);
    EXPECT_EQ(Disk.TrackCount, 35);
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(BlankDiskTest, ABlankDragonDiskOpensAsOne) {
    Read(BlankImage(DragonShape()));
    EXPECT_EQ(Disk.DiskFamily, kDragon);
    EXPECT_EQ(Disk.TrackCount, 40);
    EXPECT_EQ(Disk.DirRows, 0);
}

}  // namespace
}  // namespace brindlemoor::test
