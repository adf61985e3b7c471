#include "filesystems/dragon.h"

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/dragon_fixture.h"
#include "support/spoiled_disks.h"

namespace brindlemoor::test {
namespace {

// Geometry

TEST_F(DragonTest, AFormattedDiskHasNoRowsAndNoFindings) {
    std::vector<std::string> calls;
    Screen.ShowSectorPlace = [&calls](int track, int sector) {
        calls.push_back(std::to_string(track) + "/" + std::to_string(sector));
    };
    Read(DragonBuilder().Image());
    EXPECT_EQ(Disk.DiskFamily, kDragon);
    EXPECT_EQ(Disk.TrackCount, 40);
    EXPECT_EQ(Disk.SectorsPerTrack, 18);
    EXPECT_EQ(Disk.SideCount, 1);
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_EQ(Disk.MaxDirEntries, 160);
    EXPECT_EQ(Disk.TotalUnits, 38 * 18);
    EXPECT_EQ(Disk.TotalSectors, 0);
    EXPECT_EQ(Disk.UsedSectors, 0);
    EXPECT_EQ(Disk.DeletedCount, 0);
    EXPECT_EQ(calls, std::vector<std::string>{"20/3"});
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonTest, OnlyADiskOf36SectorsPerTrackHasTwoSides) {
    struct Row {
        int Sectors;
        int Sides;
    };
    for (const Row& row : {Row{18, 1}, Row{20, 1}, Row{35, 1}, Row{36, 2}}) {
        Read(DragonBuilder(40, row.Sectors).Image());
        EXPECT_EQ(Disk.DiskFamily, kDragon);
        EXPECT_EQ(Disk.SideCount, row.Sides) << row.Sectors;
        EXPECT_EQ(Disk.TotalUnits, 38 * row.Sectors);
    }
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonTest, MoreThan36SectorsPerTrackAreReportedWithTheTextAboutTracks) {
    // 36 in the place of 37 no longer agrees with its check byte: that is the second message.
    Read(DragonBuilder(40, 36).Geometry(40, 37, 215, 218).Image());
    EXPECT_EQ(Disk.SectorsPerTrack, 36);
    EXPECT_EQ(Disk.SideCount, 2);
    EXPECT_EQ(Shown(), (std::vector<std::string>{"Error in disk format,\r\ntracks",
                                                 "Error in disk format,\r\nsectors"}));
    EXPECT_EQ(script_.Messages[0].Title, "Brindlemoor");
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
}

TEST_F(DragonTest, TheCheckByteIsComparedWithTheSectorsAsTheyWereMended) {
    EXPECT_TRUE(ReadAsDragon(DragonBuilder(40, 36).Geometry(40, 200, 215, 219).Image()));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error in disk format,\r\ntracks"});
}

TEST_F(DragonTest, CheckBytesThatDisagreeOnlyWarn) {
    // Opening a disk asks for check bytes that agree; only the reader by itself meets others.
    EXPECT_TRUE(ReadAsDragon(DragonBuilder().Geometry(40, 18, 214, 237).Image()));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error in disk format,\r\ntracks"});
    EXPECT_EQ(Disk.TrackCount, 40);
    script_.Messages.clear();
    EXPECT_TRUE(ReadAsDragon(DragonBuilder().Geometry(40, 18, 215, 0).Image()));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error in disk format,\r\nsectors"});
    EXPECT_EQ(Disk.SectorsPerTrack, 18);
    EXPECT_EQ(script_.Messages[0].Title, "Brindlemoor");
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
}

TEST_F(DragonTest, AllThreeGeometryWarningsComeInTheirOrderBeforeTheBitmaps) {
    DragonBuilder disk(40, 36);
    disk.Geometry(40, 37, 0, 0).Byte(16 * 36 * 256, 0);
    EXPECT_TRUE(ReadAsDragon(disk.Image()));
    EXPECT_EQ(Shown(), (std::vector<std::string>{
                           "Error in disk format,\r\ntracks", "Error in disk format,\r\ntracks",
                           "Error in disk format,\r\nsectors",
                           "ERROR en los FATs, Diferencias entre el TRACK 16 y el 20",
                           "ERROR, Diferencias entre el TRACK 16 y el 20"}));
}

TEST_F(DragonTest, TheDirectoryStaysAtSector362OnADiskOf36SectorsPerTrack) {
    DragonBuilder disk(40, 36);
    disk.File(0, "FIXED", "DAT", {{100, 1}}, "here");
    // What a directory behind the bitmap would hold.
    disk.Sectors(722, std::string(256, 'X')).Sectors(578, std::string(256, 'X'));
    Read(disk.Image());
    ASSERT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(DirTable[0].FullName, "FIXED.DAT");
    EXPECT_EQ(DirTable[0].Content, "here");
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

// Entries

TEST_F(DragonTest, EntryFieldsGoIntoTheRow) {
    const std::string bytes = Pattern(10 * 256 + 44, 1);
    DragonBuilder disk;
    disk.File(0, "hello", "bas", {{259, 2}, {310, 9}}, bytes).EntryByte(0, 0, 0x02);
    disk.File(1, "A B", "B", {{4, 1}}, Pattern(256, 2));
    Read(disk.Image());
    ASSERT_EQ(Disk.DirRows, 2);
    const DirEntry& first = DirTable[0];
    EXPECT_EQ(first.Name, "HELLO   ");
    EXPECT_EQ(first.Ext, "BAS");
    EXPECT_EQ(first.FullName, "HELLO.BAS");
    EXPECT_EQ(first.FileType, 0);
    EXPECT_EQ(first.FormatChar, "B");
    EXPECT_EQ(first.Flags, kFlagProtected);
    EXPECT_EQ(first.FirstUnit, 259);
    EXPECT_EQ(first.LastSectorBytes, 44);
    EXPECT_EQ(first.Chain, Bytes({1, 3, 2, 1, 54, 9}));
    EXPECT_EQ(first.Content, bytes);
    EXPECT_EQ(first.Size, 10 * 256 + 44);
    EXPECT_EQ(first.SectorCount, 11);
    EXPECT_EQ(first.UnitCount, 2);
    EXPECT_EQ(first.ContinuationLink, 0);
    EXPECT_EQ(DirTable[1].Name, "A B     ");
    EXPECT_EQ(DirTable[1].Ext, "B  ");
    EXPECT_EQ(DirTable[1].FullName, "A B.B");
    EXPECT_EQ(DirTable[1].FileType, 2);
    EXPECT_EQ(Disk.UsedSectors, 12);
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonTest, AZeroByteInsideANameIsABlank) {
    DragonBuilder disk;
    disk.File(0, std::string("A\0B", 3), std::string("\0C", 2), {{4, 1}}, "x");
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Name, "A B     ");
    EXPECT_EQ(DirTable[0].Ext, " C ");
    EXPECT_EQ(DirTable[0].FullName, "A B. C");
}

TEST_F(DragonTest, AnEntryWithoutANameIsARowWithAPoint) {
    Read(DragonBuilder().File(0, "", "", {{4, 1}}, "x").Image());
    EXPECT_EQ(DirTable[0].Name, "        ");
    EXPECT_EQ(DirTable[0].FullName, ".");
    EXPECT_EQ(Disk.DirRows, 1);
}

TEST_F(DragonTest, SectorsAndGranulesAreRoundedUp) {
    struct Row {
        std::size_t Size;
        int Sectors;
        int Granules;
    };
    for (const Row& row : {Row{1, 1, 1}, Row{255, 1, 1}, Row{256, 1, 1}, Row{257, 2, 1},
                           Row{2304, 9, 1}, Row{2305, 10, 2}}) {
        Read(
            DragonBuilder().File(0, "F", "DAT", {{20, row.Sectors}}, Pattern(row.Size, 3)).Image());
        EXPECT_EQ(DirTable[0].Size, static_cast<std::int64_t>(row.Size));
        EXPECT_EQ(DirTable[0].SectorCount, row.Sectors) << row.Size;
        EXPECT_EQ(DirTable[0].UnitCount, row.Granules) << row.Size;
    }
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonTest, ALastByteOfZeroKeepsTheLastSectorWhole) {
    DragonBuilder disk;
    disk.Sectors(30, Pattern(512, 4)).Use(30, 2).Entry(0, 0, "WHOLE", "DAT", {{30, 2}}, 0);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].LastSectorBytes, 256);
    EXPECT_EQ(DirTable[0].Content, Pattern(512, 4));
}

TEST_F(DragonTest, TheEndMarkIsStoredButNeitherCountedNorRead) {
    DragonBuilder disk;
    disk.File(0, "A", "DAT", {{4, 1}}, "a").File(2, "C", "DAT", {{6, 1}}, "c");
    disk.Entry(1, 0x8B, "END", "DAT", {{5, 1}}, 1);
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(DirTable[1].Flags, 0x8B);
    EXPECT_EQ(DirTable[1].Name, "");
    EXPECT_EQ(DirTable[1].FullName, "");
    EXPECT_EQ(Disk.DeletedCount, 0);
    EXPECT_EQ(Disk.ContinuationCount, 0);
    // Nothing behind it is read, valid or not.
    EXPECT_EQ(DirTable[2].Name, "");
    EXPECT_TRUE(Free(6));
}

TEST_F(DragonTest, ADirectoryWithoutEndMarkHas160Rows) {
    DragonBuilder disk;
    for (int index = 0; index < 160; ++index) {
        disk.File(index, "F" + std::to_string(index), "DAT", {{index, 1}}, std::to_string(index));
    }
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 160);
    EXPECT_EQ(DirTable[159].FullName, "F159.DAT");
    EXPECT_EQ(DirTable[159].Content, "159");
    EXPECT_EQ(Disk.UsedSectors, 160);
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonTest, ADeletedFileIsReadLikeALiveOneAndItsSectorsCountAsUsed) {
    DragonBuilder disk;
    disk.Sectors(50, Pattern(700, 5)).Entry(0, 0x80, "GONE", "DAT", {{50, 3}}, 700 % 256);
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(Disk.DeletedCount, 1);
    EXPECT_EQ(DirTable[0].Flags, kFlagDeleted);
    EXPECT_EQ(DirTable[0].FullName, "GONE.DAT");
    EXPECT_EQ(DirTable[0].Content, Pattern(700, 5));
    EXPECT_EQ(Disk.UsedSectors, 3);
    EXPECT_FALSE(Free(50));
    EXPECT_FALSE(Free(52));
    EXPECT_TRUE(Free(53));
    // The disk's own bitmap has them free, as is right: the offer to edit it comes up.
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Shown()[0].rfind("Bit=0->(Used) Bit=1->(Free)", 0), 0U);
}

// Extents

TEST_F(DragonTest, ACountOfZeroEndsTheListOfExtents) {
    DragonBuilder disk;
    disk.Sectors(40, "one").Entry(0, 0, "CUT", "DAT", {{40, 1}, {0, 0}, {60, 1}}, 3).Use(40, 1);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Content, "one");
    EXPECT_EQ(DirTable[0].Chain, Bytes({0, 40, 1}));
    EXPECT_TRUE(Free(60));
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonTest, AnExtentFromSector721OnChangesTheBitmapOnly) {
    DragonBuilder disk(80);
    disk.Sectors(720, Pattern(512, 6)).Sectors(721, Pattern(256, 7)).Sectors(900, "far");
    disk.Entry(0, 0, "FAR", "DAT", {{720, 1}, {721, 2}, {900, 1}, {30, 1}}, 0);
    disk.Use(720, 3).Use(900, 1).Use(30, 1);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Chain, Bytes({2, 208, 1, 0, 30, 1}));
    EXPECT_EQ(DirTable[0].Content, Pattern(256, 6) + std::string(256, '\0'));
    EXPECT_EQ(DirTable[0].SectorCount, 2);
    EXPECT_FALSE(Free(721));
    EXPECT_FALSE(Free(722));
    EXPECT_TRUE(Free(723));
    EXPECT_FALSE(Free(900));
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonTest, AnExtentThatBeginsAtSector720IsGatheredToItsEnd) {
    DragonBuilder disk(80);
    const std::string bytes = Pattern(255 * 256, 8);
    Read(disk.File(0, "LONG", "DAT", {{720, 255}}, bytes).Image());
    EXPECT_EQ(DirTable[0].Content, bytes);
    EXPECT_EQ(DirTable[0].SectorCount, 255);
}

TEST_F(DragonTest, NegativeStartSectorsGatherAndMarkNothing) {
    for (const int sector : {-1, -2, -32768}) {
        DragonBuilder disk;
        disk.Sectors(70, "kept").Use(70, 1);
        disk.Entry(0, 0, "NEG", "DAT", {{sector, 4}, {70, 1}}, 4);
        Read(disk.Image());
        EXPECT_EQ(DirTable[0].FirstUnit, sector);
        EXPECT_EQ(DirTable[0].Content, "kept");
        EXPECT_EQ(DirTable[0].Chain, Bytes({0, 70, 1}));
        EXPECT_EQ(Shown(), std::vector<std::string>()) << sector;
    }
}

TEST_F(DragonTest, AStartSectorBehindTheBitmapMarksNothing) {
    DragonBuilder disk;
    disk.Sectors(70, "kept").Use(70, 1);
    Read(disk.Entry(0, 0, "OUT", "DAT", {{2880, 1}, {32767, 255}, {70, 1}}, 4).Image());
    EXPECT_EQ(DirTable[0].Content, "kept");
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonTest, AFileWithoutExtentsAndALastByteFailsWith5) {
    // Nothing is there to cut the unused part of a last sector from.
    const std::string image = DragonBuilder().Entry(0, 0, "NONE", "DAT", {}, 1).Image();
    EXPECT_EQ(FailureOf([&] { Read(image); }), kInvalidCall);
    EXPECT_EQ(Disk.DirRows, 0);
    // A last byte of 0 stands for 256: nothing is to be cut.
    Read(DragonBuilder().Entry(0, 0, "NONE", "DAT", {}, 0).Image());
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(DirTable[0].Size, 0);
    EXPECT_EQ(DirTable[0].FirstUnit, 0);
    EXPECT_EQ(DirTable[0].LastSectorBytes, 256);
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonTest, AFileWhoseOnlyExtentIsNotGatheredFailsWith5) {
    DragonBuilder disk(80);
    disk.Entry(0, 0, "FAR", "DAT", {{721, 1}}, 255);
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kInvalidCall);
    // So does a deleted one.
    disk.EntryByte(0, 0, 0x80);
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kInvalidCall);
    disk.EntryByte(0, 24, 0);
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), 0);
}

TEST_F(DragonTest, ExtentsThatLeaveTheImageGiveShortFiles) {
    DragonBuilder disk;
    disk.Sectors(718, Pattern(512, 9)).Entry(0, 0, "EDGE", "DAT", {{718, 4}}, 200);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Content, Pattern(512, 9).substr(0, 512 - 256 + 200));
    EXPECT_EQ(DirTable[0].Chain, Bytes({2, 206, 4}));
}

// Images that end early, and others that are spoiled

TEST_F(DragonTest, EntriesBehindTheEndOfTheImageAreEmptyRows) {
    DragonBuilder disk;
    disk.File(0, "THERE", "DAT", {{4, 1}}, "x").File(1, "CUT", "DAT", {{5, 1}}, "y");
    Read(disk.Image().substr(0, 362 * 256 + 25));
    EXPECT_EQ(Disk.DirRows, 160);
    EXPECT_EQ(DirTable[0].Content, "x");
    EXPECT_EQ(DirTable[1].FullName, ".");
    EXPECT_EQ(DirTable[1].Flags, 0);
    EXPECT_EQ(DirTable[1].Size, 0);
}

TEST_F(DragonTest, TruncationAtEverySectorAndAtOddPlacesIsSurvived) {
    ReadTruncated(TestData("dragon/dragon40-ss.dsk"));
    // The reader by itself, where no mark of the family is left.
    const std::string disk = TestData("dragon/dragon40-ss.dsk");
    for (std::size_t length = 0; length < 380 * 256; length += 199) {
        const int failure = FailureOf([&] { ReadAsDragon(disk.substr(0, length)); });
        EXPECT_TRUE(failure == 0 || failure == kInvalidCall) << length;
    }
}

TEST_F(DragonTest, TenThousandSpoiledDisksAreSurvived) {
    const ByteRange directory = {362 * 256, 4 * 256};
    const ByteRange bitmap = {360 * 256, 90};
    ReadSpoiled(TestData("dragon/dragon40-ss.dsk"), 20240301, 10000,
                {directory, directory, directory, bitmap});
    EXPECT_FALSE(Shown().empty());
}

TEST_F(DragonTest, ManySpoiledChainsOfEntriesAreSurvived) {
    // The header of 12 bytes stands before the sectors.
    ReadSpoiled(TestData("dragon/dragon40-ss-frag.vdk"), 20240302, 1000,
                {{12 + 362 * 256, 16 * 256}});
}

}  // namespace
}  // namespace brindlemoor::test
