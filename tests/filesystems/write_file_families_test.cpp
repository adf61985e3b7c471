#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "filesystems/write_file.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/dragon_fixture.h"
#include "support/flex_builder.h"
#include "support/os9_builder.h"
#include "support/write_fixture.h"

// Where the bytes of a written file go, family by family.

namespace brindlemoor::test {
namespace {

class WriteDecb : public WriteTest {};
class WriteDragon : public WriteTest {};
class WriteOthers : public WriteTest {};

/// The last 16 bytes of a slot keep what a fresh directory holds there.
DecbBuilder& FreshSlotTail(DecbBuilder& disk, int slot) {
    for (int byte = 16; byte < 32; ++byte) disk.Byte(78848 + slot * 32 + byte, 255);
    return disk;
}

TEST_F(WriteDecb, AFileOfThreeGranulesOnAnEmptyDisk) {
    Read(DecbBuilder().Image());
    const std::string data = Pattern(2 * 2304 + 700, 1);
    Write("THREE.BIN", data);
    DecbBuilder expected;
    expected.File(0, "THREE", "BIN", 2, 0, {32, 33, 34}, data);
    EXPECT_TRUE(ImageIs(FreshSlotTail(expected, 0).Image()));
    EXPECT_EQ(ChainText(0), "32 33 34 ");
    EXPECT_EQ(DirTable[0].FirstUnit, 32);
    EXPECT_EQ(ImagePart(78592 + 34, 1), "\xC3");
}

TEST_F(WriteDecb, EverySizeIsReadBackAsItWas) {
    for (const std::size_t size : {1U, 255U, 256U, 257U, 2303U, 2304U, 2305U, 4608U, 40000U}) {
        Read(DecbBuilder().Image());
        const std::string data = Pattern(size, static_cast<unsigned>(size));
        Write("FILE.DAT", data);
        ReadDisk();
        ASSERT_EQ(RowNames(), "FILE.DAT ") << size;
        EXPECT_EQ(DirTable[0].Content, data) << size;
        EXPECT_EQ(DirTable[0].FormatChar, "A") << size;
        EXPECT_TRUE(script_.Messages.empty()) << size;
    }
}

TEST_F(WriteDecb, ALongFileGoesOnBelowTheDirectoryByPairs) {
    Read(DecbBuilder().Image());
    Write("LONG.BIN", Pattern(40 * 2304 - 1, 1));
    std::string chain;
    for (int granule = 32; granule < 68; ++granule) chain += std::to_string(granule) + " ";
    EXPECT_EQ(ChainText(0), chain + "30 31 28 29 ");
}

TEST_F(WriteDecb, TheLargestFileOfAnEmptyDiskIsAByteLessThanItHas) {
    Read(DecbBuilder().Image());
    Write("ALL.BIN", Pattern(68 * 2304, 1));
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_EQ(Shown().size(), 1U);
    const std::string data = Pattern(68 * 2304 - 1, 1);
    Write("ALL.BIN", data);
    EXPECT_EQ(Shown().size(), 1U);
    EXPECT_EQ(DirTable[0].Chain.size(), 68U);
    // Granule 67 makes the image longer by a byte.
    EXPECT_EQ(Disk.ImageBytes.size(), 161281U);
    ReadDisk();
    EXPECT_EQ(DirTable[0].Content, data);
    EXPECT_EQ(Disk.TrackCount, 40);
}

TEST_F(WriteDecb, TheOnlyFreeGranuleIsTakenAtEitherEnd) {
    for (const int only : {0, 67}) {
        DecbBuilder disk;
        for (int granule = 0; granule < 68; ++granule) {
            if (granule != only) disk.Fat(granule, 0xC1);
        }
        Read(disk.Image());
        Write("ONE.BIN", Pattern(2304, 5));
        EXPECT_EQ(ChainText(0), std::to_string(only) + " ");
        const auto offset = static_cast<std::size_t>(only == 0 ? 0 : 69) * 2304;
        EXPECT_EQ(ImagePart(offset, 2304), Pattern(2304, 5));
    }
}

/// The totals of the rows leave room that the FAT does not have.
TEST_F(WriteDecb, WithoutAFreeGranuleTheRowStaysFilledAndTheImageAsItWas) {
    DecbBuilder disk;
    disk.File(0, "GONE", "BIN", 2, 0, {0}, "g").Delete(0);
    for (int granule = 0; granule < 68; ++granule) disk.Fat(granule, 0xC1);
    Read(disk.Image());
    script_.Messages.clear();
    Write("NEW.BIN", "x");
    ExpectOneMessage("No granules free", MessageIcon::Exclamation);
    EXPECT_TRUE(ImageIs(disk.Image()));
    EXPECT_EQ(RowNames(), "NEW.BIN ");
    EXPECT_EQ(DirTable[0].Chain, "");
    EXPECT_EQ(DirTable[0].Content, "x");
    EXPECT_EQ(Disk.DeletedCount, 1);
    EXPECT_EQ(fills_, 0);
    EXPECT_EQ(left_, "x");
}

TEST_F(WriteDecb, WithoutASecondGranuleTheFatStaysAsItWas) {
    DecbBuilder disk;
    for (int granule = 0; granule < 68; ++granule) disk.Fat(granule, granule == 5 ? 0xFF : 0xC1);
    Read(disk.Image());
    script_.Messages.clear();
    const std::string data = Pattern(3000, 1);
    Write("NEW.BIN", data);
    ExpectOneMessage("No granules free", MessageIcon::Exclamation);
    disk.Granule(5, data.substr(0, 2304)).Slot(0, "NEW", "BIN", 2, 0, 5, 184);
    EXPECT_TRUE(ImageIs(FreshSlotTail(disk, 0).Image()));
    EXPECT_EQ(ChainText(0), "5 ");
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(fills_, 0);
    EXPECT_EQ(left_, data.substr(2304));
}

/// The row found by the name is placed, not the one filled: it keeps its size and its end, and the
/// old chain is not freed, so that the search goes on from it.
TEST_F(WriteDecb, OverwritingPlacesTheOldRowAndFillsANewOne) {
    DecbBuilder disk;
    disk.File(0, "FILE", "BIN", 2, 0, {10, 11}, Pattern(2400, 1));
    Read(disk.Image());
    const std::string data = Pattern(5000, 2);
    Write("FILE.BIN", data, true);
    EXPECT_TRUE(script_.Prompts.empty());
    EXPECT_EQ(RowNames(), "FILE.BIN FILE.BIN ");
    EXPECT_EQ(Disk.DirCount, 0);
    // From 10 outwards, from 11 onwards, and on from there; 10 and 11 are taken still.
    EXPECT_EQ(ChainText(0), "56 8 9 ");
    EXPECT_EQ(DirTable[0].FirstUnit, 56);
    EXPECT_EQ(DirTable[0].Size, 2400);
    EXPECT_EQ(DirTable[1].Chain, "");
    EXPECT_EQ(DirTable[1].Content, data);
    disk.Slot(0, "FILE", "BIN", 2, 0, 56, 96).Fat(56, 8).Fat(8, 9).Fat(9, 0xC1);
    disk.Granule(56, data.substr(0, 2304)).Granule(8, data.substr(2304, 2304));
    disk.Granule(9, data.substr(4608));
    EXPECT_TRUE(ImageIs(disk.Image()));
}

/// Where the lowest deleted row comes before the old file's, it is the one found by the name.
TEST_F(WriteDecb, OverwritingMayFindTheRowJustFilled) {
    DecbBuilder disk;
    disk.File(0, "GONE", "BIN", 2, 0, {0}, "g").Delete(0).Fat(0, 255);
    disk.File(1, "FILE", "BIN", 2, 0, {10}, "old");
    Read(disk.Image());
    Write("FILE.BIN", "new", true);
    EXPECT_EQ(Disk.DirCount, 0);
    EXPECT_EQ(ChainText(0), "32 ");
    EXPECT_EQ(ChainText(1), "10 ");
    EXPECT_EQ(ImagePart(78592 + 10, 1), "\xC1");
}

/// A row that was written since the disk was read has no sector count: it is not looked for.
TEST_F(WriteDecb, OverwritingAFileJustWrittenMakesASecondOne) {
    Read(DecbBuilder().Image());
    Write("FILE.BIN", "one");
    Write("FILE.BIN", "two", true);
    EXPECT_EQ(RowNames(), "FILE.BIN FILE.BIN ");
    EXPECT_EQ(ChainText(0), "32 ");
    EXPECT_EQ(ChainText(1), "33 ");
}

TEST_F(WriteDecb, AnImageThatEndsBeforeTheFatHasNoGranules) {
    for (const std::size_t length : {78336U, 78592U}) {
        Read(DecbBuilder().Image().substr(0, length));
        script_.Messages.clear();
        const std::string image = Disk.ImageBytes;
        Write("NEW.BIN", "x");
        ExpectOneMessage("No granules free", MessageIcon::Exclamation);
        EXPECT_TRUE(ImageIs(image));
    }
}

TEST_F(WriteDecb, AnImageThatEndsInTheFatHasTheGranulesUpToThere) {
    Read(DecbBuilder().Image().substr(0, 78592 + 3));
    script_.Messages.clear();
    Write("NEW.BIN", "x");
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(ChainText(0), "2 ");
    EXPECT_EQ(Disk.ImageBytes.size(), 78592U + 3);
    EXPECT_EQ(ImagePart(78592, 3), "\xFF\xFF\xC1");
    EXPECT_EQ(ImagePart(2 * 2304, 1), "x");
}

TEST_F(WriteDecb, AnImageThatEndsInTheDirectoryGrowsToItsGranule) {
    Read(DecbBuilder().Image().substr(0, 78848 + 40));
    script_.Messages.clear();
    Write("A.BIN", Pattern(2 * 2304 + 1, 1));
    EXPECT_EQ(ChainText(0), "32 33 34 ");
    EXPECT_EQ(Disk.ImageBytes.size(), 37U * 2304 + 1);
    EXPECT_EQ(ImagePart(78848, 11), "A       BIN");
}

TEST_F(WriteDecb, TheFixedPlacesHoldOnDisksOf40And80Tracks) {
    for (const int tracks : {40, 80}) {
        Read(DecbBuilder(tracks).Image());
        const std::string data = Pattern(2305, 1);
        Write("A.BIN", data);
        DecbBuilder expected(tracks);
        expected.File(0, "A", "BIN", 2, 0, {32, 33}, data);
        EXPECT_TRUE(ImageIs(FreshSlotTail(expected, 0).Image()));
    }
}

// --- Dragon ---

TEST_F(WriteDragon, TheSectorsAndTheBitmapAreWrittenAndTheDirectoryIsNot) {
    DragonBuilder disk;
    disk.File(0, "OLD", "BIN", {{400, 2}}, Pattern(512, 1));
    Read(disk.Image());
    const std::string data = Pattern(300, 2);
    Write("my new.bas", data);
    disk.Sectors(325, data.substr(0, 256)).Sectors(327, data.substr(256)).Use(325, 1).Use(327, 1);
    EXPECT_TRUE(ImageIs(disk.Image()));
    EXPECT_EQ(RowNames(), "OLD.BIN MY-NEW.BAS ");
    EXPECT_EQ(DirTable[1].UnitCount, 2);
    EXPECT_EQ(DirTable[1].Chain, Bytes({1, 68, 1, 1, 70, 1}));
    EXPECT_EQ(DirTable[1].FormatChar, "A");
    EXPECT_EQ(left_, data);
    EXPECT_EQ(fills_, 1);
}

TEST_F(WriteDragon, TheBitmapIsTheOneInTheImage) {
    DragonBuilder disk;
    Read(disk.Image());
    Disk.ImageBytes = disk.Use(324, 1).Image();
    Write("A.BIN", "x");
    EXPECT_EQ(DirTable[0].Chain, Bytes({0, 252, 1}));
}

TEST_F(WriteDragon, ASearchWithoutAnEndLeavesTheDiskAsItWas) {
    DragonBuilder disk;
    disk.File(0, "GONE", "BIN", {{400, 1}}, "g").EntryByte(0, 0, 0x80);
    for (int sector = 0; sector <= 324; sector += 36) disk.Use(sector, 1);
    Read(disk.Image());
    script_.Messages.clear();
    Disk.FatBytes = "edited";
    Disk.PcFileTypeText = "9";
    const std::string before = DiskFingerprint();
    Write("NEW.BAS", "x");
    ExpectOneMessage("Run-time error '7':\r\n\r\nOut of memory", MessageIcon::Critical);
    EXPECT_EQ(DiskFingerprint(), before);
    EXPECT_EQ(fills_, 0);
    EXPECT_EQ(left_, "x");
}

/// A row takes up to number 160, one more than there are entries.
TEST_F(WriteDragon, TheDirectoryTakes161Rows) {
    Read(DragonBuilder().Image());
    Disk.DirRows = 160;
    DirTable[0].Flags = 0;  // where the end of the empty directory was
    Write("A.BIN", "x");
    EXPECT_EQ(Disk.DirRows, 161);
    const std::string before = DiskFingerprint();
    Write("B.BIN", "x");
    ExpectOneMessage("No entry free", MessageIcon::Exclamation);
    EXPECT_EQ(DiskFingerprint(), before);
}

/// What was read of a deleted file stays in its row, so that the new file's extents come behind it.
TEST_F(WriteDragon, TheChainOfADeletedRowThatWasReadStays) {
    DragonBuilder disk;
    disk.File(0, "GONE", "BIN", {{400, 1}}, "g").EntryByte(0, 0, 0x80);
    Read(disk.Image());
    Write("NEW.BIN", "x");
    EXPECT_EQ(DirTable[0].Chain, Bytes({1, 144, 1, 1, 68, 1}));
    EXPECT_EQ(Disk.DeletedCount, 0);
}

// --- OS-9 and FLEX: the table alone ---

TEST_F(WriteOthers, AnOs9RowIsGoneAtTheNextReading) {
    Read(Os9Builder().Image());
    const std::string image = Disk.ImageBytes;
    const int rows = Disk.DirRows;
    Write("a name of more than 29 characters.bas", "x");
    EXPECT_TRUE(ImageIs(image));
    EXPECT_EQ(Disk.DirRows, rows + 1);
    const DirEntry& row = DirTable[rows];
    EXPECT_EQ(row.Name, "");
    EXPECT_EQ(row.Ext, "");
    EXPECT_EQ(row.FullName, ".");
    EXPECT_EQ(row.Content, "x");
    EXPECT_EQ(row.FileType, 0);
    EXPECT_EQ(fills_, 1);
    EXPECT_TRUE(script_.Messages.empty());
    ReadDisk();
    EXPECT_EQ(Disk.DirRows, rows);
}

TEST_F(WriteOthers, AnOs9NameIsTakenAsItIs) {
    Read(Os9Builder()
             .RootNames({{"Mixed Case", 10}, {"last", 12}})
             .File(10, "x")
             .File(12, "y")
             .Image());
    Write("C:\\Mixed Case", "x");
    EXPECT_TRUE(script_.Prompts.empty());
    Write("C:\\Mixed Case.", "x");
    EXPECT_EQ(script_.Prompts.size(), 1U);
}

TEST_F(WriteOthers, AFlexRowIsGoneAtTheNextReading) {
    Read(FlexBuilder().File(0, "ONE", "TXT", {{1, 1}}, "x").Image());
    const std::string image = Disk.ImageBytes;
    Write("NEW.TXT", Pattern(1000, 1));
    EXPECT_TRUE(ImageIs(image));
    EXPECT_EQ(RowNames(), "ONE'TXT . ");
    EXPECT_EQ(DirTable[1].UnitCount, 4);
    ReadDisk();
    EXPECT_EQ(RowNames(), "ONE'TXT ");
}

TEST_F(WriteOthers, AFlexVerdictComparesTheSizeAndLeavesTheGridAlone) {
    Read(FlexBuilder(10, 10).Image());
    const std::string before = DiskFingerprint();
    Write("NEW.TXT", Pattern(98 * 256 + 1, 1));
    EXPECT_EQ(Shown().size(), 1U);
    EXPECT_EQ(DiskFingerprint(), before);
    EXPECT_EQ(fills_, 0);
    Write("NEW.TXT", Pattern(98 * 256, 1));
    EXPECT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Disk.DirRows, 1);
}

}  // namespace
}  // namespace brindlemoor::test
