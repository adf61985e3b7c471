#include "filesystems/flex.h"

#include "core/dates.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/flex_builder.h"
#include "support/spoiled_disks.h"

namespace brindlemoor::test {
namespace {

using FlexTest = DiskTest;

const std::string kUnexpectedEnd = "ERROR final inprevisto de archivo";

// The information record

TEST_F(FlexTest, AFormattedDiskHasNoRowsAndNoFindings) {
    Read(FlexBuilder().Image());
    EXPECT_EQ(Disk.DiskFamily, kFlex);
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_EQ(Disk.TotalSectors, 35 * 18);
    EXPECT_EQ(Disk.TotalUnits, 35 * 18 - 2);
    EXPECT_EQ(Disk.SectorsPerTrack, 18);
    EXPECT_EQ(Disk.TrackCount, 35);
    // Sectors 5 to 14 of track 0, ten slots in each.
    EXPECT_EQ(Disk.FlexDirectory.size(), 10U * 240);
    EXPECT_EQ(Disk.MaxDirEntries, 100);
    EXPECT_EQ(Disk.UsedSectors, 0);
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(FlexTest, TheDiskNameIsTheLabelWithoutZeroBytesAndTheNumber) {
    Read(FlexBuilder().Label("WORK", 7).Image());
    EXPECT_EQ(Disk.DiskName, "WORK (7)");
    Read(FlexBuilder().Label(std::string("A\0B \0C", 6), 255).Image());
    EXPECT_EQ(Disk.DiskName, "AB C (255)");
    Read(FlexBuilder().Label("", 0).Image());
    EXPECT_EQ(Disk.DiskName, " (0)");
    // Of a label of 11 letters the last one is taken for the number.
    Read(FlexBuilder().Label("ABCDEFGHIJ", 'K').Record(27, 9).Record(28, 9).Image());
    EXPECT_EQ(Disk.DiskName, "ABCDEFGHIJ (75)");
}

TEST_F(FlexTest, TheRecordsDateIsMonthDayYear) {
    Read(FlexBuilder().Record(35, 3).Record(36, 24).Record(37, 82).Image());
    EXPECT_EQ(Disk.DiskDate, DayCount(1982, 3, 24));
    // Year bytes below 70 are in the 2000s.
    Read(FlexBuilder().Record(35, 12).Record(36, 31).Record(37, 69).Image());
    EXPECT_EQ(Disk.DiskDate, DayCount(2069, 12, 31));
    Read(FlexBuilder().Image());
    EXPECT_EQ(Disk.DiskDate, 0);
    // There is no month 24.
    Read(FlexBuilder().Record(35, 24).Record(36, 3).Record(37, 82).Image());
    EXPECT_EQ(Disk.DiskDate, 0);
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(FlexTest, ARecordThatDoesNotBeginWithTwoZeroBytesIsReportedAndUsed) {
    for (const int offset : {0, 1}) {
        script_.Messages.clear();
        FlexBuilder disk;
        disk.Record(offset, 1).Label("STILL", 2).File(0, "A", "TXT", {{1, 1}}, "text");
        Read(disk.Image());
        EXPECT_EQ(Shown(),
                  std::vector<std::string>{"Error al leer System Information Record (SIR)."});
        EXPECT_EQ(script_.Messages[0].Title, "Brindlemoor");
        EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
        EXPECT_EQ(Disk.DiskName, "STILL (2)");
        EXPECT_EQ(Disk.DirRows, 1);
    }
}

TEST_F(FlexTest, TheTracksAreThoseOfTheImageWithHalvesToTheEvenNumber) {
    struct Row {
        std::size_t Sectors;
        int PerTrack;
        int Tracks;
    };
    for (const Row& row : {Row{315, 10, 32}, Row{325, 10, 32}, Row{335, 10, 34}, Row{324, 10, 32},
                           Row{326, 10, 33}, Row{330, 10, 33}, Row{400, 255, 2}}) {
        FlexBuilder disk;
        disk.Record(39, row.PerTrack).Record(38, 77);
        // 100 bytes more are no sector.
        Read(disk.Image().substr(0, row.Sectors * 256) + std::string(100, '\0'));
        EXPECT_EQ(Disk.TotalSectors, static_cast<std::int32_t>(row.Sectors));
        EXPECT_EQ(Disk.TotalUnits, static_cast<std::int32_t>(row.Sectors) - 2);
        EXPECT_EQ(Disk.TrackCount, row.Tracks) << row.Sectors << " by " << row.PerTrack;
    }
}

TEST_F(FlexTest, ZeroSectorsPerTrackFailWith11BehindTheDirectory) {
    FlexBuilder disk;
    disk.File(0, "A", "TXT", {{1, 1}}, "text").Record(39, 0);
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kDivisionByZero);
    EXPECT_EQ(DirTable[0].FullName, "A'TXT");
    EXPECT_EQ(Disk.DirRows, 0);
}

TEST_F(FlexTest, MoreTracksThan16BitsHoldFailWith6) {
    std::string image = FlexBuilder().Record(39, 1).Image();
    image.resize(32767U * 256, '\0');
    Read(image);
    EXPECT_EQ(Disk.TrackCount, 32767);
    image.resize(32768U * 256, '\0');
    EXPECT_EQ(FailureOf([&] { Read(image); }), kOverflow);
}

TEST_F(FlexTest, TheViewGoesToTheRootOfTheOs9DiskReadLast) {
    struct Row {
        std::int16_t Root;
        std::string Place;
    };
    std::vector<std::string> calls;
    Screen.ShowSectorPlace = [&calls](int track, int sector) {
        calls.push_back(std::to_string(track) + "/" + std::to_string(sector));
    };
    for (const Row& row : {Row{0, "0/2"}, Row{4, "0/6"}, Row{18, "1/2"}, Row{39, "2/5"},
                           Row{35, "1/19"}, Row{-20, "-1/0"}}) {
        calls.clear();
        Disk.Os9RootLsn = row.Root;
        Read(FlexBuilder().Image());
        EXPECT_EQ(calls, std::vector<std::string>{row.Place}) << row.Root;
        EXPECT_EQ(Disk.Os9RootLsn, row.Root);
    }
}

TEST_F(FlexTest, TheAllocationTableOfThePreviousDiskStays) {
    Disk.FatBytes = "old";
    Disk.FatComputed = "older";
    Read(FlexBuilder().Image());
    EXPECT_EQ(Disk.FatBytes, "old");
    EXPECT_EQ(Disk.FatComputed, "older");
}

// The directory

TEST_F(FlexTest, SlotFieldsGoIntoTheRow) {
    const std::string bytes = Pattern(252 + 100, 1) + "!";
    FlexBuilder disk;
    disk.File(0, "LETTER", "TXT", {{1, 1}, {1, 2}}, bytes).SlotByte(0, 11, 0xA0);
    disk.File(1, "FULLNAME", "C", {{1, 3}}, "x");
    Read(disk.Image());
    ASSERT_EQ(Disk.DirRows, 2);
    const DirEntry& row = DirTable[0];
    EXPECT_EQ(row.Name, "LETTER");
    EXPECT_EQ(row.Ext, "TXT");
    EXPECT_EQ(row.FullName, "LETTER'TXT");
    EXPECT_EQ(row.FileType, 0);
    EXPECT_EQ(row.FormatChar, "");
    EXPECT_EQ(row.Flags, 0);
    EXPECT_EQ(row.Attributes, 0xA0);
    EXPECT_EQ(row.Content, FlexReading(bytes));
    EXPECT_EQ(row.Size, 252 + 89);
    EXPECT_EQ(row.SectorCount, 2);
    EXPECT_EQ(row.UnitCount, 0);
    EXPECT_EQ(row.Chain, "");
    // The walk through the file uses up its first sector.
    EXPECT_EQ(row.FirstUnit, 0);
    EXPECT_EQ(DirTable[1].FullName, "FULLNAME'C");
    EXPECT_EQ(Disk.UsedSectors, 3);
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(FlexTest, NamesLoseTheirZeroBytesAndKeepCaseAndBlanks) {
    FlexBuilder disk;
    disk.File(0, std::string("a\0B \0c", 6), std::string("\0x", 2), {{1, 1}}, "x");
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Name, "aB c");
    EXPECT_EQ(DirTable[0].Ext, "x");
    EXPECT_EQ(DirTable[0].FullName, "aB c'x");
}

TEST_F(FlexTest, AFirstByteOfZeroEndsTheListing) {
    FlexBuilder disk;
    disk.File(0, "A", "TXT", {{1, 1}}, "a").File(2, "C", "TXT", {{1, 2}}, "c");
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(DirTable[2].Name, "");
}

TEST_F(FlexTest, ADirectoryThatFillsItsSlotsEndsWithThem) {
    FlexBuilder disk;
    for (int slot = 0; slot < 100; ++slot) {
        disk.File(slot, "F" + std::to_string(slot), "TXT", {{1 + slot / 18, 1 + slot % 18}}, "x");
    }
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 100);
    EXPECT_EQ(DirTable[99].FullName, "F99'TXT");
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(FlexTest, ADirectoryGoesOnBeyondTrack0AndItsSlotsThenBeginAtByte4) {
    // The last sector of track 0 links to track 20: it gives its bytes from 4 on, 252 in all.
    FlexBuilder disk;
    disk.Link({0, 14}, {20, 1}).Data({20, 1}, 16, "LAST");
    Read(disk.Image());
    EXPECT_EQ(Disk.FlexDirectory.size(), 9U * 240 + 252 + 240);
    // 2652 bytes hold 110 slots and a half.
    EXPECT_EQ(Disk.MaxDirEntries, 110);
    EXPECT_EQ(Disk.FlexDirectory.substr(9 * 240 + 252, 4), "LAST");
}

TEST_F(FlexTest, ADeletedFileIsReadLikeALiveOne) {
    FlexBuilder disk;
    disk.File(0, "XONE", "TXT", {{1, 1}, {1, 2}}, Pattern(400, 2) + "!").SlotByte(0, 0, 255);
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(Disk.DeletedCount, 1);
    EXPECT_EQ(DirTable[0].Flags, kFlagDeleted);
    EXPECT_EQ(DirTable[0].Name, "\xFFONE");
    EXPECT_EQ(DirTable[0].Content, FlexReading(Pattern(400, 2) + "!"));
    EXPECT_EQ(Disk.UsedSectors, 2);
    // Bit 7 alone tells.
    disk.SlotByte(0, 0, 0x80);
    Read(disk.Image());
    EXPECT_EQ(Disk.DeletedCount, 1);
    disk.SlotByte(0, 0, 0x7F);
    Read(disk.Image());
    EXPECT_EQ(Disk.DeletedCount, 0);
}

TEST_F(FlexTest, ARowWithoutAFirstSectorSkipsItsSectorCountItsRandomBitAndItsDate) {
    FlexBuilder disk;
    disk.Slot(0, "EMPTY", "TXT", {0, 0}, {0, 0}, 9).SlotByte(0, 19, 1).SlotByte(0, 11, 0x10);
    disk.SlotByte(0, 20, 2).SlotByte(0, 21, 2);
    disk.File(1, "NEXT", "TXT", {{1, 1}}, "x");
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 2);
    EXPECT_EQ(DirTable[0].FullName, "EMPTY'TXT");
    EXPECT_EQ(DirTable[0].Content, "");
    EXPECT_EQ(DirTable[0].SectorCount, 0);
    EXPECT_EQ(DirTable[0].Attributes, 0x10);
    EXPECT_EQ(DirTable[0].CreatedDate, 0);
    EXPECT_EQ(Disk.UsedSectors, 1);
}

TEST_F(FlexTest, ARandomFileHasAttributeBit3) {
    FlexBuilder disk;
    disk.File(0, "RANDOM", "DAT", {{1, 1}}, "x").SlotByte(0, 11, 0xC0).SlotByte(0, 19, 2);
    disk.File(1, "PLAIN", "DAT", {{1, 2}}, "x").SlotByte(1, 11, 0x08);
    disk.File(2, "BOTH", "DAT", {{1, 3}}, "x").SlotByte(2, 11, 0x08).SlotByte(2, 19, 1);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Attributes, 0xC8);
    EXPECT_EQ(DirTable[1].Attributes, 0x08);
    EXPECT_EQ(DirTable[2].Attributes, 0x08);
}

TEST_F(FlexTest, TheSectorCountIsSigned) {
    FlexBuilder disk;
    disk.File(0, "A", "DAT", {{1, 1}}, "x").SlotByte(0, 17, 0x80).SlotByte(0, 18, 1);
    disk.File(1, "B", "DAT", {{1, 2}}, "x").SlotByte(1, 17, 1).SlotByte(1, 18, 2);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].SectorCount, -32767);
    EXPECT_EQ(DirTable[1].SectorCount, 258);
    EXPECT_EQ(Disk.UsedSectors, 258 - 32767);
}

TEST_F(FlexTest, AnEntrysDateHasMonthAndDayExchanged) {
    struct Row {
        int Month;  // offset 20, as FLEX stores it
        int Day;
        int Year;
        double Date;
    };
    const double none = 0;
    for (const Row& row :
         {Row{3, 8, 82, DayCount(1982, 8, 3)}, Row{12, 1, 103, DayCount(2003, 1, 12)},
          // The 24th is no month: such a date is not taken.
          Row{3, 24, 82, none}, Row{0, 0, 82, none}, Row{2, 2, 2, DayCount(2002, 2, 2)}}) {
        FlexBuilder disk;
        disk.File(0, "A", "TXT", {{1, 1}}, "x");
        disk.SlotByte(0, 20, row.Month).SlotByte(0, 21, row.Day).SlotByte(0, 22, row.Year);
        Read(disk.Image());
        EXPECT_EQ(DirTable[0].CreatedDate, row.Date) << row.Month << "/" << row.Day;
        EXPECT_EQ(DirTable[0].ModifiedDate, 0);
    }
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(FlexTest, MoreThan1701SlotsFailWith9) {
    FlexBuilder disk(40, 255);
    // 171 linked sectors on track 0 from sector 5 on: 1710 slots.
    for (int sector = 5; sector < 175; ++sector) disk.Link({0, sector}, {0, sector + 1});
    for (int slot = 0; slot < 1701; ++slot) disk.SlotByte(slot, 0, 'F');
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 1701);
    EXPECT_EQ(Disk.MaxDirEntries, 1710);
    disk.SlotByte(1701, 0, 'F');
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kIndexRange);
}

TEST_F(FlexTest, ReadingTheSameDiskAgainBringsBackARowDeletedInTheTable) {
    FlexBuilder disk;
    disk.File(0, "BACK", "TXT", {{1, 1}}, std::string(20, ' ') + "text");
    disk.File(1, "GONE", "TXT", {{1, 2}}, "x").SlotByte(1, 0, 255);
    Read(disk.Image());
    DirTable[0].Flags = kFlagDeleted;
    DirTable[0].Content.clear();
    ReadFlexDisk();
    EXPECT_EQ(DirTable[0].Flags, 0);
    EXPECT_EQ(DirTable[0].Size, 12);
    EXPECT_EQ(DirTable[1].Flags, kFlagDeleted);
    // The counts go on: only opening a disk clears them.
    EXPECT_EQ(Disk.DeletedCount, 2);
    EXPECT_EQ(Disk.UsedSectors, 4);
}

// Chains of sectors

TEST_F(FlexTest, AFileOfOneSectorGives240Bytes) {
    FlexBuilder disk;
    disk.Data({1, 1}, 2, Pattern(254, 3)).Slot(0, "ONE", "BIN", {1, 1}, {1, 1}, 1);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Content, Pattern(254, 3).substr(14));
    EXPECT_EQ(DirTable[0].Content.size(), 240U);
}

TEST_F(FlexTest, AFileOfTwoSectorsOnTrack1Gives252And240Bytes) {
    FlexBuilder disk;
    disk.Data({1, 1}, 2, Pattern(254, 4)).Data({1, 2}, 2, Pattern(254, 5));
    disk.Link({1, 1}, {1, 2}).Slot(0, "TWO", "BIN", {1, 1}, {1, 2}, 2);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Content, Pattern(254, 4).substr(2) + Pattern(254, 5).substr(14));
    EXPECT_EQ(DirTable[0].Content.size(), 492U);
}

TEST_F(FlexTest, TheTrackOfTheLinkDecidesWhereTheBytesBeginNotTheTrackOfTheSector) {
    FlexBuilder disk;
    // From track 2 to track 0 and on to track 3.
    disk.Data({2, 1}, 0, Pattern(256, 6)).Data({0, 17}, 0, Pattern(256, 7));
    disk.Data({3, 1}, 0, Pattern(256, 8));
    disk.Link({2, 1}, {0, 17}).Link({0, 17}, {3, 1}).Link({3, 1}, {0, 0});
    disk.Slot(0, "MIXED", "BIN", {2, 1}, {3, 1}, 3);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Content,
              Pattern(256, 6).substr(16) + Pattern(256, 7).substr(4) + Pattern(256, 8).substr(16));
}

TEST_F(FlexTest, ASectorLinkedToItselfEndsTheFileWithoutItsBytes) {
    FlexBuilder disk;
    disk.File(0, "SELF", "TXT", {{1, 1}, {1, 2}, {1, 3}}, Pattern(750, 9) + "!");
    disk.Link({1, 3}, {1, 3});
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Content, Pattern(750, 9).substr(0, 504));
    // The walk stands at the sector that ended it: linear number 18 + 3.
    EXPECT_EQ(DirTable[0].FirstUnit, 21);
    EXPECT_EQ(DirTable[0].SectorCount, 3);
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(FlexTest, ALinkBeyondTheImageIsReportedAndTheListingGoesOn) {
    FlexBuilder disk;
    disk.File(0, "LOST", "TXT", {{1, 1}, {1, 2}}, Pattern(504, 10));
    disk.Link({1, 2}, {35, 1}).File(1, "NEXT", "TXT", {{2, 1}}, std::string(12, ' ') + "next");
    disk.Slot(2, "OUT", "TXT", {200, 1}, {200, 1}, 5);
    Read(disk.Image());
    EXPECT_EQ(Shown(), (std::vector<std::string>{kUnexpectedEnd, kUnexpectedEnd}));
    EXPECT_EQ(script_.Messages[0].Title, "Brindlemoor");
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
    EXPECT_EQ(Disk.DirRows, 3);
    EXPECT_EQ(DirTable[0].Content, Pattern(504, 10));
    EXPECT_EQ(DirTable[0].FirstUnit, 35 * 18 + 1);
    EXPECT_EQ(DirTable[1].Content.substr(0, 4), "next");
    EXPECT_EQ(DirTable[2].Content, "");
    EXPECT_EQ(DirTable[2].Size, 0);
    EXPECT_EQ(DirTable[2].SectorCount, 5);
    EXPECT_EQ(DirTable[2].FirstUnit, 200 * 18 + 1);
}

TEST_F(FlexTest, TheLastSectorOfTheImageIsStillThere) {
    Read(FlexBuilder().File(0, "END", "TXT", {{34, 18}}, std::string(12, ' ') + "end").Image());
    EXPECT_EQ(DirTable[0].Content.substr(0, 3), "end");
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(FlexTest, ASectorCutByTheEndOfTheImageGivesTheBytesThatAreThere) {
    FlexBuilder disk;
    disk.File(0, "CUT", "TXT", {{34, 18}}, Pattern(252, 11));
    const std::string image = disk.Image();
    Read(image.substr(0, image.size() - 200));
    EXPECT_EQ(DirTable[0].Content, Pattern(252, 11).substr(12, 40));
    Read(image.substr(0, image.size() - 256 + 10));
    EXPECT_EQ(DirTable[0].Content, "");
    EXPECT_EQ(DirTable[0].FirstUnit, 0);
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(FlexTest, RingsOfTwoAndOfManySectorsFailWith7) {
    FlexBuilder disk;
    disk.File(0, "RING", "TXT", {{1, 1}, {1, 2}}, Pattern(504, 12)).Link({1, 2}, {1, 1});
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kOutOfMemory);
    for (int track = 1; track < 35; ++track) {
        for (int sector = 1; sector < 18; ++sector) disk.Link({track, sector}, {track, sector + 1});
        disk.Link({track, 18}, {track + 1, 1});
    }
    // Back into the middle of the chain.
    disk.Link({34, 18}, {20, 5});
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kOutOfMemory);
    disk.Link({34, 18}, {0, 0});
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), 0);
    EXPECT_EQ(DirTable[0].Content.size(), 34U * 18 * 252 - 12);
}

TEST_F(FlexTest, ARingInTheDirectoryFailsWith7) {
    FlexBuilder disk;
    disk.Link({0, 9}, {0, 5});
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kOutOfMemory);
    EXPECT_EQ(Disk.DirRows, 0);
}

TEST_F(FlexTest, ADirectoryThatLeavesTheImageKeepsWhatItHas) {
    FlexBuilder disk;
    disk.File(0, "A", "TXT", {{1, 1}}, "x").Link({0, 6}, {99, 1});
    Read(disk.Image());
    EXPECT_EQ(Shown(), std::vector<std::string>{kUnexpectedEnd});
    EXPECT_EQ(Disk.DirRows, 1);
    // Track 99 is not track 0: 252 bytes of sector 6 behind the 240 of sector 5.
    EXPECT_EQ(Disk.FlexDirectory.size(), 492U);
    EXPECT_EQ(Disk.MaxDirEntries, 20);
}

TEST_F(FlexTest, AChainStartsAtItsLinearNumberAndCountsItsSectors) {
    FlexBuilder disk;
    disk.File(0, "A", "TXT", {{1, 1}, {1, 2}, {2, 1}}, Pattern(700, 13));
    Read(disk.Image());
    std::int32_t cursor = 19;
    std::string out = "old";
    int count = 4;
    ReadLinkedSectors(cursor, out, count);
    EXPECT_EQ(cursor, 0);
    EXPECT_EQ(out, FlexReading(Pattern(700, 13)));
    // The caller's count goes on.
    EXPECT_EQ(count, 7);
    cursor = 20;
    ReadLinkedSectors(cursor, out, count);
    EXPECT_EQ(out, FlexReading(Pattern(700, 13)).substr(252));
    EXPECT_EQ(count, 9);
}

// Sizes

TEST_F(FlexTest, TheSizeEndsWithTheLastByteThatIsNotZero) {
    FlexBuilder disk;
    const std::string bytes =
        std::string(12, ' ') + Pattern(139, 14) + "!" + std::string(100, '\0');
    disk.File(0, "TAIL", "BIN", {{1, 1}}, bytes);
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Content.size(), 240U);
    EXPECT_EQ(DirTable[0].Size, 140);
    // A zero byte before it counts.
    Read(FlexBuilder()
             .File(0, "INNER", "BIN", {{1, 1}}, std::string(12, ' ') + std::string("a\0b", 3))
             .Image());
    EXPECT_EQ(DirTable[0].Size, 3);
}

TEST_F(FlexTest, AFileOfZeroBytesAloneHasTheSize0) {
    FlexBuilder disk;
    disk.File(0, "ZERO", "BIN", {{1, 1}, {1, 2}}, std::string(504, '\0'));
    Read(disk.Image());
    EXPECT_EQ(DirTable[0].Content, std::string(492, '\0'));
    EXPECT_EQ(DirTable[0].Size, 0);
    EXPECT_EQ(DirTable[0].SectorCount, 2);
}

// Images that end early, and others that are spoiled

FlexBuilder DiskOfTwentyFiles() {
    FlexBuilder disk;
    for (int slot = 0; slot < 20; ++slot) {
        std::vector<FlexPlace> places;
        for (int sector = 1; sector <= 18; ++sector) places.push_back({slot + 1, sector});
        disk.File(slot, "FILE" + std::to_string(slot), "BIN", places,
                  Pattern(18 * 252 - 30, static_cast<unsigned>(slot)));
    }
    return disk;
}

TEST_F(FlexTest, TruncationAtEverySectorAndAtOddPlacesIsSurvived) {
    ReadTruncated(DiskOfTwentyFiles().Image());
}

TEST_F(FlexTest, TenThousandSpoiledDisksAreSurvived) {
    const ByteRange directory = {4 * 256 + 2, 3 * 256};
    // The sectors per track, and the links of the first files.
    const ByteRange record = {512 + 38, 2};
    std::vector<ByteRange> ranges = {directory, directory, directory, directory, record};
    for (std::size_t sector = 18; sector < 18 + 40; ++sector) ranges.push_back({sector * 256, 2});
    ReadSpoiled(DiskOfTwentyFiles().Image(), 20240303, 10000, ranges);
    EXPECT_FALSE(Shown().empty());
}

}  // namespace
}  // namespace brindlemoor::test
