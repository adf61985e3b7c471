// The map of Disk BASIC disks, strip by strip.

#include <gtest/gtest.h>

#include "support/decb_builder.h"
#include "support/map_fixture.h"
#include "support/map_reader.h"

namespace brindlemoor {
namespace {

using test::DecbBuilder;
using test::MapRows;
using test::MapTable;
using test::Pattern;

const std::string kFreeTrack = "ffffffffffffffffff";
const std::string kDirectoryTrack = "tttddddddddddddddd";

class DecbMapTest : public test::MapTest {};

/// Granules 0, 1 and 5 of ALPHA; 33, 34 and 67 of BETA, on both sides of the directory track and
/// at the disk's end; granule 20 is still taken though its file was deleted.
DecbBuilder TwoFiles() {
    DecbBuilder disk;
    disk.File(0, "ALPHA   ", "BIN", 2, 0, {0, 1, 5}, Pattern(5000, 1));
    disk.File(1, "BETA    ", "BIN", 2, 0, {33, 34, 67}, Pattern(6000, 2));
    disk.Slot(2, "GONE    ", "BIN", 2, 0, 20, 100).Delete(2).Fat(20, 195);
    return disk;
}

TEST_F(DecbMapTest, TheWholeMapWithAFileSelected) {
    Paint(TwoFiles().Image(), 0);
    const auto expected = MapTable(35, kFreeTrack,
                                   {{0, "ssssssssssssssssss"},
                                    {2, "fffffffffsssssssss"},
                                    {10, ".........fffffffff"},
                                    {16, "fffffffffooooooooo"},
                                    {17, kDirectoryTrack},
                                    {18, "ooooooooofffffffff"},
                                    {34, "fffffffffooooooooo"}});
    EXPECT_EQ(MapRows(35), expected);
    test::ExpectOutlines(35);
}

TEST_F(DecbMapTest, TheSelectedRowDecidesWhichFileHasTheOtherColour) {
    Paint(TwoFiles().Image(), 1);
    EXPECT_EQ(MapRows(35)[0], "oooooooooooooooooo");
    EXPECT_EQ(MapRows(35)[16], "fffffffffsssssssss");
    EXPECT_EQ(MapRows(35)[34], "fffffffffsssssssss");
    Paint(TwoFiles().Image(), -1);
    EXPECT_EQ(MapRows(35)[0], "oooooooooooooooooo");
    EXPECT_EQ(MapRows(35)[16], "fffffffffooooooooo");
}

TEST_F(DecbMapTest, ADeletedRowIsNotPaintedEvenWhenItIsSelected) {
    Paint(TwoFiles().Image(), 2);
    EXPECT_EQ(MapRows(35)[10], ".........fffffffff");
}

TEST_F(DecbMapTest, AGranuleOfTwoFilesShowsTheOverlapAndTheFileGoesOnInItsColour) {
    DecbBuilder disk;
    disk.File(0, "ALPHA   ", "BIN", 2, 0, {4, 6, 7}, Pattern(6000, 1));
    disk.File(1, "BETA    ", "BIN", 2, 0, {5, 6, 7}, Pattern(6000, 2));
    for (const int selected : {-1, 0, 1}) {
        Paint(disk.Image(), selected);
        EXPECT_EQ(MapRows(35)[2], selected == 0   ? "sssssssssooooooooo"
                                  : selected == 1 ? "ooooooooosssssssss"
                                                  : "oooooooooooooooooo");
        EXPECT_EQ(MapRows(35)[3], "XXXXXXXXXXXXXXXXXX");
    }
    DirTable[1].Chain = "\6\5";
    PaintTrackBlock(1);
    EXPECT_EQ(MapRows(35)[2], "ooooooooosssssssss");
    EXPECT_EQ(MapRows(35)[3], "XXXXXXXXXooooooooo");
}

TEST_F(DecbMapTest, AFreeByteUnderTheSelectedFileIsAnOverlapUnderAnotherItIsFree) {
    DecbBuilder disk = TwoFiles();
    Paint(disk.Image());
    Disk.ImageBytes = disk.Fat(1, 255).Fat(34, 255).Image();
    PaintTrackBlock(0);
    EXPECT_EQ(MapRows(35)[0], "sssssssssXXXXXXXXX");
    EXPECT_EQ(MapRows(35)[18], kFreeTrack);
    PaintTrackBlock(1);
    EXPECT_EQ(MapRows(35)[0], "ooooooooofffffffff");
    EXPECT_EQ(MapRows(35)[18], "XXXXXXXXXfffffffff");
}

TEST_F(DecbMapTest, TheAllocationBytesAreListedAsDecimals) {
    Paint(TwoFiles().Image());
    EXPECT_EQ(Text("EditFAT").substr(0, 16), "1 5 255 255 255 ");
    std::size_t numbers = 0;
    for (const char letter : Text("EditFAT")) numbers += letter == ' ' ? 1U : 0U;
    EXPECT_EQ(numbers, 68U);
    EXPECT_EQ(Text("EditFAT").back(), ' ');
}

TEST_F(DecbMapTest, EightyTracksTakeEightBandsAndTheTableHas158Bytes) {
    DecbBuilder disk(80);
    disk.File(0, "ALPHA   ", "BIN", 2, 0, {67}, Pattern(100, 1));
    disk.Byte(78592 + 100, 255);  // behind the 68 granules that the directory can use
    Paint(disk.Image(), 0);
    const auto rows = MapRows(80);
    EXPECT_EQ(rows[34], "fffffffffsssssssss");
    EXPECT_EQ(rows[17], kDirectoryTrack);
    EXPECT_EQ(rows[0], kFreeTrack);
    EXPECT_EQ(rows[33], kFreeTrack);
    EXPECT_EQ(rows[35], "..................");
    EXPECT_EQ(rows[51], "fffffffff.........");
    EXPECT_EQ(rows[79], "..................");
    test::ExpectOutlines(80);
    std::size_t numbers = 0;
    for (const char letter : Text("EditFAT")) numbers += letter == ' ' ? 1U : 0U;
    EXPECT_EQ(numbers, 158U);
}

TEST_F(DecbMapTest, FortyTracksTakeFourFullBands) {
    Paint(DecbBuilder(40).Image());
    EXPECT_EQ(MapRows(40)[34], kFreeTrack);
    EXPECT_EQ(MapRows(40)[35], "..................");
    test::ExpectOutlines(40);
}

TEST_F(DecbMapTest, AnImageThatEndsWithinItsTableHasFilesButNoFreeAreas) {
    Paint(TwoFiles().Image(), 0);
    Disk.ImageBytes.resize(78592 + 67);
    PaintTrackBlock(0);
    EXPECT_EQ(MapRows(35), MapTable(35, "..................",
                                    {{0, "ssssssssssssssssss"},
                                     {2, ".........sssssssss"},
                                     {16, ".........ooooooooo"},
                                     {18, "ooooooooo........."},
                                     {34, ".........ooooooooo"}}));
    EXPECT_EQ(Text("EditFAT"), "");
    Disk.ImageBytes.resize(1000);
    PaintTrackBlock(-1);
    EXPECT_EQ(Text("EditFAT"), "");
    EXPECT_EQ(MapRows(35)[17], "..................");
}

TEST_F(DecbMapTest, OneByteMoreIsEnough) {
    Paint(TwoFiles().Image());
    Disk.ImageBytes.resize(78592 + 68);
    PaintTrackBlock(-1);
    EXPECT_EQ(MapRows(35)[17], kDirectoryTrack);
}

TEST_F(DecbMapTest, WithoutAnImageTheMapStaysAsItIs) {
    Paint(TwoFiles().Image());
    const auto before = TrackBlockPicture.Pixels;
    Disk.ImageBytes.clear();
    PaintTrackBlock(0);
    EXPECT_EQ(TrackBlockPicture.Pixels, before);
}

TEST_F(DecbMapTest, GranulesBehindTheLastBandArePaintedNowhere) {
    Paint(TwoFiles().Image());
    DirTable[0].Chain = "\xFF\xC8\x46";  // 255, 200 and 70 of 68
    PaintTrackBlock(0);
    auto rows = MapRows(35);
    EXPECT_EQ(rows[34], "fffffffffooooooooo");
    EXPECT_EQ(rows[0], "..................");
    EXPECT_EQ(TrackBlockPicture.Height, 50);
    EXPECT_EQ(PixelAt(TrackBlockPicture, 115, 37), 0xC86464);  // 70 lies on track 36
}

}  // namespace
}  // namespace brindlemoor
