// The map of disks with a bitmap, Dragon DOS and OS-9, and of FLEX disks, strip by strip.

#include <gtest/gtest.h>

#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/flex_builder.h"
#include "support/map_fixture.h"
#include "support/map_reader.h"
#include "support/os9_builder.h"

namespace brindlemoor {
namespace {

using test::DragonBuilder;
using test::FlexBuilder;
using test::MapRows;
using test::MapTable;
using test::Os9Builder;
using test::Pattern;

const std::string kFreeTrack = "ffffffffffffffffff";
const std::string kWhiteTrack = "..................";

class BitmapMapTest : public test::MapTest {};

// Dragon DOS

/// ALPHA in the sectors 40 to 59 and 100 to 104, BETA in 715 to 719, at the disk's end.
DragonBuilder TwoDragonFiles() {
    DragonBuilder disk;
    disk.File(0, "ALPHA", "BIN", {{40, 20}, {100, 5}}, Pattern(25 * 256, 1));
    disk.File(1, "BETA", "BIN", {{715, 5}}, Pattern(5 * 256, 2));
    return disk;
}

TEST_F(BitmapMapTest, DragonTheWholeMapWithAFileSelected) {
    Paint(TwoDragonFiles().Image(), 0);
    EXPECT_EQ(Disk.DiskFamily, kDragon);
    EXPECT_EQ(MapRows(40), MapTable(40, kFreeTrack,
                                    {{2, "ffffssssssssssssss"},
                                     {3, "ssssssffffffffffff"},
                                     {5, "ffffffffffsssssfff"},
                                     {16, "ttdddddddddddddddd"},
                                     {20, "ttdddddddddddddddd"},
                                     {39, "fffffffffffffooooo"}}));
    test::ExpectOutlines(40, test::NoTrack::AnyColour);
}

// 360 bytes have bits for more sectors than the disk has.
TEST_F(BitmapMapTest, DragonBitsBehindTheDiskArePaintedAsFarAsTheMapGoes) {
    Paint(TwoDragonFiles().Image());
    EXPECT_EQ(TrackBlockPicture.Height, 50);
    EXPECT_EQ(PixelAt(TrackBlockPicture, 1, 49), 0x64C864);
    EXPECT_EQ(PixelAt(TrackBlockPicture, 189, 49), 0x64C864);
    EXPECT_EQ(PixelAt(TrackBlockPicture, 19, 49), 0xFFFFFF);
}

TEST_F(BitmapMapTest, DragonASectorOfTwoFilesShowsTheOverlapForItselfAlone) {
    DragonBuilder disk = TwoDragonFiles();
    disk.File(1, "BETA", "BIN", {{58, 4}}, Pattern(4 * 256, 2));
    Paint(disk.Image(), 0);
    EXPECT_EQ(MapRows(40)[3], "ssssXXooffffffffff");
    Paint(disk.Image(), 1);
    EXPECT_EQ(MapRows(40)[3], "ooooXXssffffffffff");
}

TEST_F(BitmapMapTest, DragonAFreeSectorUnderAnyFileIsAnOverlap) {
    DragonBuilder disk = TwoDragonFiles();
    disk.BitmapByte(5, 0x03);  // sectors 40 and 41 free, 42 to 47 used
    for (const int selected : {-1, 0, 1}) {
        Paint(disk.Image(), selected);
        const std::string row = MapRows(40)[2];
        EXPECT_EQ(row.substr(0, 6), "ffffXX") << selected;
        EXPECT_EQ(row[6], selected == 0 ? 's' : 'o');
    }
}

TEST_F(BitmapMapTest, DragonAUsedSectorOfNoFileStaysWhite) {
    DragonBuilder disk = TwoDragonFiles();
    disk.Use(180, 3);
    Paint(disk.Image());
    EXPECT_EQ(MapRows(40)[10], "...fffffffffffffff");
}

TEST_F(BitmapMapTest, DragonDeletedRowsAreNotPainted) {
    DragonBuilder disk = TwoDragonFiles();
    disk.EntryByte(0, 0, 0x80);
    Paint(disk.Image(), 0);
    ASSERT_NE(DirTable[0].Chain, "");
    EXPECT_EQ(MapRows(40)[2], "ffff..............");
    EXPECT_EQ(MapRows(40)[3], "......ffffffffffff");
}

TEST_F(BitmapMapTest, DragonTheBitmapIsListed) {
    DragonBuilder disk = TwoDragonFiles();
    Paint(disk.BitmapByte(0, 7).BitmapByte(359, 9).Image());
    const std::string& list = Text("EditFAT");
    EXPECT_EQ(list.substr(0, 10), "7 255 255 ");
    EXPECT_EQ(list.substr(list.size() - 6), "255 9 ");
}

TEST_F(BitmapMapTest, DragonOf36SectorsHasWideOutlinesUnderTheUsualPaint) {
    DragonBuilder disk(40, 36);
    disk.File(0, "ALPHA", "BIN", {{34, 4}}, Pattern(4 * 256, 1));
    Paint(disk.Image(), 0);
    EXPECT_EQ(Disk.SectorsPerTrack, 36);
    EXPECT_EQ(TrackBlockPicture.Width, 371);
    for (const int x : {0, 37, 74, 333, 370}) {
        EXPECT_EQ(PixelAt(TrackBlockPicture, x, 0), 0) << x;
    }
    EXPECT_EQ(PixelAt(TrackBlockPicture, 370, 5), 0);
    EXPECT_EQ(PixelAt(TrackBlockPicture, 0, 5), 0);
    EXPECT_EQ(PixelAt(TrackBlockPicture, 369, 5), 0xFFFFFF);
    // Sectors 34 to 37 as on the tracks 1 and 2 of 18 sectors; the outline at 37 is under 35.
    EXPECT_EQ(MapRows(40)[1], "ffffffffffffffffsX");
    EXPECT_EQ(MapRows(40)[2].substr(0, 3), "ssf");
}

// OS-9

/// The root with ALPHA (descriptor 10, sectors 11 to 13), BETA (20, 21 to 23), GAMMA right behind
/// it (24, 25 and 26) and LAST, whose row is not listed.
Os9Builder FourOs9Files() {
    Os9Builder disk;
    disk.File(10, Pattern(3 * 256, 1)).File(20, Pattern(3 * 256, 2)).File(24, Pattern(512, 3));
    disk.File(40, Pattern(256, 4));
    disk.RootNames({{"ALPHA", 10}, {"BETA", 20}, {"GAMMA", 24}, {"LAST", 40}});
    return disk;
}

int RowOf(const std::string& name) {
    for (int row = 0; row < Disk.DirRows; ++row) {
        if (DirTable[row].Name == name) return row;
    }
    ADD_FAILURE() << name;
    return -1;
}

TEST_F(BitmapMapTest, Os9TheWholeMapWithStripsOneSectorLonger) {
    Paint(FourOs9Files().Image());
    PaintTrackBlock(RowOf("BETA"));
    EXPECT_EQ(Disk.DiskFamily, kOs9);
    EXPECT_EQ(MapRows(35), MapTable(35, kFreeTrack,
                                    {{0, "ooodXfffff.oooXfff"},
                                     {1, "ff.ssssooXffffffff"},
                                     {2, "ffff..ffffffffffff"}}));
    test::ExpectOutlines(35, test::NoTrack::AnyColour);
    // 79 bytes have two bits more than 630 sectors.
    EXPECT_EQ(PixelAt(TrackBlockPicture, 5 * 19 + 1, 37), 0x64C864);
    EXPECT_EQ(PixelAt(TrackBlockPicture, 5 * 19 + 2, 37), 0x64C864);
    EXPECT_EQ(PixelAt(TrackBlockPicture, 5 * 19 + 3, 37), 0xFFFFFF);
}

TEST_F(BitmapMapTest, Os9ADirectoryHasItsOwnColours) {
    Paint(FourOs9Files().Image());
    EXPECT_EQ(MapRows(35)[0], "ooodXfffff.oooXfff");
    PaintTrackBlock(RowOf("ROOT"));
    EXPECT_EQ(MapRows(35)[0], "oooDXfffff.oooXfff");
    PaintTrackBlock(RowOf(".."));  // stands for a directory that has its own row
    EXPECT_EQ(MapRows(35)[0], "ooodXfffff.oooXfff");
}

TEST_F(BitmapMapTest, Os9ABitThatIsClearIsFreeHighestFirst) {
    Os9Builder disk = FourOs9Files();
    disk.Byte(256 + 10, 0x81);  // sectors 80 and 87 are used
    Paint(disk.Image());
    EXPECT_EQ(MapRows(35)[4], "ffffffff.ffffff.ff");
}

TEST_F(BitmapMapTest, Os9FilesOverEachOther) {
    Os9Builder disk = FourOs9Files();
    test::Os9Descriptor fields;
    fields.Size = 512;
    fields.Segments = {{12, 1}, {100, 1}};
    disk.Descriptor(24, fields);
    Paint(disk.Image());
    EXPECT_EQ(MapRows(35)[0], "ooodXfffff.oXXXfff");
    EXPECT_EQ(MapRows(35)[5], "ffffffffffXXffffff");  // the map knows of neither
}

TEST_F(BitmapMapTest, Os9DeletedRowsAreNotPainted) {
    Paint(FourOs9Files().Image());
    DirTable[RowOf("ALPHA")].Flags = kFlagDeleted;
    PaintTrackBlock(-1);
    EXPECT_EQ(MapRows(35)[0], "ooodXfffff....ffff");
}

TEST_F(BitmapMapTest, Os9AtMostAThousandBytesAreListedAndAllArePainted) {
    Paint(Os9Builder(9000).Image());
    EXPECT_EQ(Disk.FatBytes.size(), 1125U);
    std::size_t numbers = 0;
    for (const char letter : Text("EditFAT")) numbers += letter == ' ' ? 1U : 0U;
    EXPECT_EQ(numbers, 1000U);
}

TEST_F(BitmapMapTest, Os9AShortBitmapLeavesTheRestWhite) {
    Paint(FourOs9Files().Image());
    Disk.FatBytes.resize(9);
    PaintTrackBlock(-1);
    EXPECT_EQ(MapRows(35)[3], kFreeTrack);
    EXPECT_EQ(MapRows(35)[4], kWhiteTrack);
    EXPECT_EQ(Text("EditFAT").back(), ' ');
}

TEST_F(BitmapMapTest, Os9AChainThatIsNoWholeSegmentIsTakenAsFarAsItGoes) {
    Paint(FourOs9Files().Image());
    DirEntry& entry = DirTable[RowOf("ALPHA")];
    entry.Chain = std::string("\0\0\x32", 3);
    PaintTrackBlock(-1);
    EXPECT_EQ(MapRows(35)[2], "ffff..ffffffffXfff");
    entry.Chain = std::string("\xFF\xFF\xFF\xFF\xFF", 5);
    PaintTrackBlock(-1);
    EXPECT_EQ(MapRows(35)[2], "ffff..ffffffffffff");
}

// FLEX

TEST_F(BitmapMapTest, FlexHasOutlinesOnlyAndNoBytes) {
    Paint(TwoDragonFiles().Image());
    ASSERT_NE(Text("EditFAT"), "");
    FlexBuilder disk;
    disk.File(0, "ALPHA", "TXT", {{1, 1}, {1, 2}}, Pattern(400, 1));
    Paint(disk.Image(), 0);
    EXPECT_EQ(Disk.DiskFamily, kFlex);
    EXPECT_FALSE(Disk.FatBytes.empty());  // those of the disk before
    EXPECT_EQ(MapRows(35), MapTable(35, kWhiteTrack, {}));
    test::ExpectOutlines(35);
    EXPECT_EQ(Text("EditFAT"), "");
}

}  // namespace
}  // namespace brindlemoor
