#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "filesystems/dragon.h"
#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/dragon_fixture.h"

// Files of Dragon DOS whose entries go on in other entries.

namespace brindlemoor::test {
namespace {

using DragonChainTest = DragonTest;

// Continuations

TEST_F(DragonChainTest, AContinuationAddsItsExtentsAndTakesTheNamesOfItsFile) {
    DragonBuilder disk;
    std::string expected;
    std::vector<Extent> extents;
    for (int part = 0; part < 10; ++part) {
        const int sector = 40 + 2 * part;
        disk.Sectors(sector, Pattern(256, 10U + static_cast<unsigned>(part))).Use(sector, 1);
        expected += Pattern(256, 10U + static_cast<unsigned>(part));
        extents.push_back({sector, 1});
    }
    disk.Entry(0, 0x22, "PARTS", "BAS", {extents.begin(), extents.begin() + 4}, 2);
    disk.File(1, "OTHER", "DAT", {{4, 1}}, "x");
    disk.Continuation(2, 0x03, {extents.begin() + 4, extents.end()}, 77);
    expected.resize(9 * 256 + 77);
    Read(disk.Image());
    ASSERT_EQ(Disk.DirRows, 3);
    EXPECT_EQ(DirTable[0].Content, expected);
    EXPECT_EQ(DirTable[0].Chain.size(), 30U);
    EXPECT_EQ(DirTable[0].ContinuationLink, 2);
    EXPECT_EQ(DirTable[0].LastSectorBytes, 77);
    EXPECT_EQ(DirTable[0].SectorCount, 10);
    EXPECT_EQ(DirTable[0].UnitCount, 2);
    EXPECT_EQ(DirTable[0].Flags, 0x22);
    const DirEntry& second = DirTable[2];
    EXPECT_EQ(second.Name, "PARTS   ");
    EXPECT_EQ(second.Ext, "BAS");
    EXPECT_EQ(second.FullName, "PARTS.BAS");
    EXPECT_EQ(second.FileType, 0);
    EXPECT_EQ(second.FormatChar, "B");
    EXPECT_EQ(second.Flags, 0x03);
    EXPECT_EQ(second.Content, "");
    EXPECT_EQ(second.Chain, "");
    EXPECT_EQ(second.Size, 0);
    EXPECT_EQ(second.SectorCount, 0);
    EXPECT_EQ(Disk.ContinuationCount, 1);
    EXPECT_EQ(Disk.UsedSectors, 11);
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonChainTest, TheContinuationLinkOfALongChainIsItsLastOne) {
    DragonBuilder disk;
    disk.Entry(0, 0x20, "CHAIN", "DAT", {{40, 1}}, 3);
    disk.Entry(1, 0, "X", "DAT", {}, 0).Entry(2, 0, "Y", "DAT", {}, 0);
    disk.Continuation(3, 0x21, {}, 4).Continuation(4, 0x01, {}, 9).Use(40, 1);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].ContinuationLink, 4);
    // Not the row that is continued, but the file's first row keeps the links.
    EXPECT_EQ(DirTable[3].ContinuationLink, 0);
    EXPECT_EQ(DirTable[0].LastSectorBytes, 9);
    EXPECT_EQ(Disk.ContinuationCount, 2);
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonChainTest, TheEighthGroupOfAContinuationEndsInItsLastByte) {
    DragonBuilder disk;
    std::vector<Extent> extents;
    for (int part = 0; part < 7; ++part) extents.push_back({100 + part, 1});
    disk.Sectors(96, Pattern(256, 30)).Sectors(100, Pattern(7 * 256, 31));
    disk.Sectors(200, Pattern(5 * 256, 32));
    disk.Entry(0, 0x20, "EIGHT", "DAT", {{96, 1}, {96, 1}, {96, 1}, {96, 1}}, 1);
    // 5 bytes in the last sector, and 5 sectors of an extent from sector 200 on.
    disk.Continuation(1, 0x01, extents, 5).EntryByte(1, 23, 200);
    disk.Use(96, 1).Use(100, 7).Use(200, 5);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Chain.size(), 12U * 3);
    EXPECT_EQ(DirTable[0].Chain.substr(33), Bytes({0, 200, 5}));
    EXPECT_EQ(DirTable[0].Size, (4 + 7 + 5) * 256 - 256 + 5);
    EXPECT_EQ(DirTable[0].Content.substr(11 * 256), Pattern(5 * 256, 32).substr(0, 4 * 256 + 5));
    EXPECT_FALSE(Free(204));
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonChainTest, TheEighthGroupIsSkippedWhenTheLastByteIsZeroOrAGroupBeforeItIs) {
    DragonBuilder disk;
    std::vector<Extent> extents;
    for (int part = 0; part < 7; ++part) extents.push_back({100 + part, 1});
    const std::vector<Extent> four = {{96, 1}, {97, 1}, {98, 1}, {99, 1}};
    disk.Entry(0, 0x20, "A", "DAT", four, 1).Continuation(1, 0x01, extents, 0);
    disk.Use(96, 4).Use(100, 7).Use(210, 4);
    disk.Entry(2, 0x20, "B", "DAT", {{210, 1}, {211, 1}, {212, 1}, {213, 1}}, 3);
    disk.Continuation(3, 0x01, {{106, 1}}, 5);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Size, 11 * 256);
    EXPECT_EQ(DirTable[2].Size, 4 * 256 + 5);
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonChainTest, AFullContinuationThatIsContinuedGivesAnExtentOfItsLink) {
    DragonBuilder disk;
    std::vector<Extent> extents;
    for (int part = 0; part < 7; ++part) extents.push_back({100 + part, 1});
    disk.Sectors(0, Pattern(512, 33)).Use(0, 2).Use(96, 1).Use(100, 8);
    disk.Sectors(107, "end");
    disk.Entry(0, 0x20, "LINKED", "DAT", {{96, 1}, {96, 1}, {96, 1}, {96, 1}}, 1);
    disk.Continuation(1, 0x21, extents, 2).Continuation(2, 0x01, {{107, 1}}, 3);
    Read(disk.Image());
    // Sector 0, as often as the number of the next entry says, between the eleventh and the last.
    EXPECT_EQ(DirTable[0].Content.substr(11 * 256), Pattern(512, 33) + "end");
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonChainTest, ContinuationsThatAreDeletedCountAsDeletedOnly) {
    DragonBuilder disk;
    disk.Continuation(0, 0x81, {}, 0).Continuation(1, 0x01, {}, 0);
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 2);
    EXPECT_EQ(Disk.DeletedCount, 1);
    EXPECT_EQ(Disk.ContinuationCount, 1);
}

TEST_F(DragonChainTest, AContinuationOfNoFileIsARowWithoutNameAndItsExtentsAreNotUsed) {
    DragonBuilder disk;
    Read(disk.Continuation(0, 0x21, {{40, 1}}, 0).Image());
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(DirTable[0].Name, "");
    EXPECT_EQ(DirTable[0].FullName, "");
    EXPECT_EQ(DirTable[0].FormatChar, "");
    EXPECT_EQ(DirTable[0].Flags, 0x21);
    EXPECT_EQ(DirTable[0].SectorCount, 0);
    EXPECT_TRUE(Free(40));
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonChainTest, ADirectoryOfContinuationsAloneStaysBelowTheLimit) {
    DragonBuilder disk;
    for (int index = 0; index < 160; ++index) disk.Continuation(index, 0x01, {}, 0);
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 160);
    EXPECT_EQ(Disk.ContinuationCount, 160);
}

TEST_F(DragonChainTest, MoreThan180LiveContinuationsEndTheReading) {
    // The directory has 160 entries and opening a disk starts the count at 0, so that this limit is
    // met only where the reader is run on a count that goes on.
    DragonBuilder disk;
    disk.File(0, "KEPT", "DAT", {{4, 1}}, "x").BitmapByte(0, 255);
    disk.Continuation(1, 0x01, {}, 0).Continuation(2, 0x01, {}, 0);
    bool viewSet = false;
    Screen.ShowSectorPlace = [&viewSet](int, int) { viewSet = true; };
    ResetDisk();
    Disk.ImageBytes = disk.Image();
    Disk.ContinuationCount = 179;
    EXPECT_FALSE(ReadDragonDisk());
    EXPECT_EQ(Disk.ContinuationCount, 181);
    EXPECT_EQ(DirTable[0].FullName, "KEPT.DAT");
    // Neither the bitmaps are compared nor the totals set.
    EXPECT_EQ(Shown(), std::vector<std::string>());
    EXPECT_EQ(Disk.MaxDirEntries, 0);
    EXPECT_FALSE(viewSet);
    ResetDisk();
    Disk.ContinuationCount = 178;
    EXPECT_TRUE(ReadDragonDisk());
}

// Links that lead elsewhere

TEST_F(DragonChainTest, ALinkToAFilesOwnEntryTakesOnlyThatEntrysExtents) {
    DragonBuilder disk;
    disk.File(0, "FIRST", "BAS", {{40, 1}}, "first").File(2, "LATER", "BAS", {{50, 1}}, "later");
    disk.Sectors(45, "mine").Use(45, 1);
    disk.Entry(1, 0x20, "LINKS", "DAT", {{45, 1}}, 0);
    Read(disk.Image());
    EXPECT_EQ(DirTable[1].Content, "first");
    EXPECT_EQ(DirTable[1].Chain, Bytes({0, 40, 1}));
    EXPECT_EQ(DirTable[1].LastSectorBytes, 5);
    // The row linked to keeps its name, but its full name and its type come from the linking file.
    EXPECT_EQ(DirTable[0].Name, "FIRST   ");
    EXPECT_EQ(DirTable[0].Ext, "BAS");
    EXPECT_EQ(DirTable[0].FullName, "LINKS.DAT");
    EXPECT_EQ(DirTable[0].FileType, 2);
    EXPECT_EQ(DirTable[0].Content, "first");
    // Its own extents are forgotten, and so not used.
    EXPECT_TRUE(Free(45));
    // A row behind the linking one is read again in its turn.
    disk.EntryByte(1, 24, 2);
    Read(disk.Image());
    EXPECT_EQ(DirTable[1].Content, "later");
    EXPECT_EQ(DirTable[2].FullName, "LATER.BAS");
    EXPECT_EQ(DirTable[2].FileType, 0);
}

TEST_F(DragonChainTest, ALinkBehindTheEndMarkIsFollowedAndItsRowGetsItsFlags) {
    DragonBuilder disk;
    disk.Entry(0, 0x20, "FIRST", "DAT", {}, 5).File(5, "BEHIND", "BAS", {{50, 1}}, "behind");
    disk.EntryByte(5, 0, 0x02).Entry(6, 0x20, "", "", {}, 0);
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(DirTable[0].Content, "behind");
    EXPECT_EQ(DirTable[5].Flags, 0x02);
    EXPECT_EQ(DirTable[5].Name, "BEHIND  ");
    EXPECT_EQ(DirTable[5].FullName, "FIRST.DAT");
    EXPECT_EQ(DirTable[5].Content, "");
    EXPECT_EQ(DirTable[6].Name, "");
}

TEST_F(DragonChainTest, ALinkToAnEntryThatIsNotThereGivesAnEmptyFile) {
    for (const int link : {160, 200, 255}) {
        DragonBuilder disk;
        Read(disk.Entry(0, 0x20, "LOST", "BAS", {{40, 1}}, link).Image());
        EXPECT_EQ(Disk.DirRows, 1);
        EXPECT_EQ(DirTable[0].ContinuationLink, link);
        EXPECT_EQ(DirTable[0].Content, "");
        EXPECT_EQ(DirTable[0].Chain, "");
        EXPECT_EQ(DirTable[0].LastSectorBytes, 256);
        EXPECT_EQ(DirTable[link].Flags, 0);
        EXPECT_EQ(DirTable[link].Name, "");
        EXPECT_EQ(DirTable[link].FullName, "LOST.BAS");
        EXPECT_EQ(DirTable[link].FileType, 0);
        EXPECT_TRUE(Free(40));
        EXPECT_EQ(Shown(), std::vector<std::string>());
    }
}

TEST_F(DragonChainTest, ALinkToAnUnusedEntryIsAContinuationWithoutExtents) {
    DragonBuilder disk;
    disk.Sectors(40, "bytes").Use(40, 1).Entry(0, 0x20, "SHORT", "DAT", {{40, 1}}, 9);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Content.size(), 256U);
    EXPECT_EQ(DirTable[9].Flags, 137);
    EXPECT_EQ(DirTable[9].FullName, "SHORT.DAT");
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(Disk.DeletedCount, 0);
}

TEST_F(DragonChainTest, AnEntryContinuedByItselfFailsWith7) {
    const std::string own = DragonBuilder().Entry(0, 0x20, "OWN", "DAT", {{40, 1}}, 0).Image();
    EXPECT_EQ(FailureOf([&] { Read(own); }), kOutOfMemory);
    DragonBuilder disk;
    disk.Entry(0, 0x20, "LOOP", "DAT", {{40, 1}}, 1).Continuation(1, 0x21, {{41, 1}}, 1);
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kOutOfMemory);
}

TEST_F(DragonChainTest, ARingOfContinuationsFailsWith7) {
    DragonBuilder disk;
    disk.Entry(0, 0x20, "RING", "DAT", {{40, 1}}, 1);
    for (int index = 1; index < 159; ++index) {
        disk.Continuation(index, 0x21, {{41, 1}}, index + 1);
    }
    // Back into the middle of the chain, and back to the first entry.
    for (const int back : {77, 0}) {
        disk.Continuation(159, 0x21, {}, back);
        EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kOutOfMemory) << back;
    }
    disk.Continuation(159, 0x01, {}, 0);
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), 0);
    EXPECT_EQ(Disk.DirRows, 160);
}

TEST_F(DragonChainTest, ARingOfDeletedEntriesFailsWith7Too) {
    DragonBuilder disk;
    disk.Entry(0, 0xA0, "DEL", "DAT", {{40, 1}}, 1).Continuation(1, 0xA1, {}, 1);
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kOutOfMemory);
}

}  // namespace
}  // namespace brindlemoor::test
