#include "filesystems/os9.h"

#include "core/byte_helpers.h"
#include "core/dates.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/os9_builder.h"

namespace brindlemoor::test {
namespace {

using Os9Test = DiskTest;

/// A disk with `bytes` at LSN 0.
Os9Builder WithField(int offset, const std::string& bytes) {
    Os9Builder disk;
    disk.Put(offset, bytes);
    return disk;
}

TEST_F(Os9Test, ADiskOfTheSizeThatItSaysBringsUpNoQuestion) {
    Read(Os9Builder(630).Image());
    EXPECT_EQ(Disk.DiskFamily, kOs9);
    EXPECT_EQ(Disk.TotalSectors, 630);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(Os9Test, AnOddRestBehindTheLastSectorBringsUpNoQuestion) {
    Read(Os9Builder(630).Image() + std::string(255, 'x'));
    EXPECT_TRUE(Shown().empty());
    Read(Os9Builder(630).Image() + std::string(256, 'x'));
    EXPECT_EQ(Shown().size(), 1U);
}

TEST_F(Os9Test, AnotherSizeAsksWhichFigureCounts) {
    script_.Answers = {Answer::Yes};
    Read(Os9Builder(1000).Number(0, 3, 630).Image());
    ASSERT_EQ(script_.Messages.size(), 1U);
    const ShownMessage& question = script_.Messages[0];
    EXPECT_EQ(question.Text,
              "Seg\xFAn Archivo Virtual  : 1,000 sectores = 256,000 Bytes\r\n"
              "Seg\xFAn Cabecera Disco: 630 sectores = 161,280 Bytes\r\n"
              "Desea usar la 1ra cifra");
    EXPECT_EQ(question.Title, "Tama\xF1o incorrecto");
    EXPECT_EQ(question.Choice, Buttons::YesNo);
    EXPECT_EQ(Disk.TotalSectors, 1000);
    EXPECT_EQ(Disk.TrackCount, 56);
    EXPECT_EQ(Disk.TotalUnits, 998);
    EXPECT_EQ(Disk.MaxDirEntries, 500);
}

TEST_F(Os9Test, NoKeepsTheFigureOfTheDisk) {
    script_.Answers = {Answer::No};
    Read(Os9Builder(1000).Number(0, 3, 630).Image());
    EXPECT_EQ(Disk.TotalSectors, 630);
    EXPECT_EQ(Disk.TrackCount, 35);
    EXPECT_EQ(Disk.TotalUnits, 628);
    EXPECT_EQ(Disk.MaxDirEntries, 315);
}

TEST_F(Os9Test, TheQuestionShowsNothingForZeroAndGroupsOfThreeForMillions) {
    Read(Os9Builder(630).Number(0, 3, 0).Image());
    Read(Os9Builder(630).Number(0, 3, 8355585).Number(3, 1, 255).Number(17, 2, 255).Image() +
         std::string(511, '\0'));
    ASSERT_EQ(Shown().size(), 2U);
    EXPECT_EQ(Shown()[0],
              "Seg\xFAn Archivo Virtual  : 630 sectores = 161,280 Bytes\r\n"
              "Seg\xFAn Cabecera Disco:  sectores =  Bytes\r\n"
              "Desea usar la 1ra cifra");
    EXPECT_EQ(Shown()[1],
              "Seg\xFAn Archivo Virtual  : 631 sectores = 161,791 Bytes\r\n"
              "Seg\xFAn Cabecera Disco: 8,355,585 sectores = 2,139,029,760 Bytes\r\n"
              "Desea usar la 1ra cifra");
}

TEST_F(Os9Test, TheFieldsOfTheIdentificationSectorGoIntoTheState) {
    Os9Builder disk;
    disk.Number(6, 2, 4).Number(11, 2, 0x1234).Number(13, 1, 0xA5).Number(14, 2, 0x4321);
    disk.Number(16, 1, 7).Put(19, "\1\xFE").Number(21, 3, 0x010203).Number(24, 2, 0x0B00);
    disk.Put(26, "\x57\3\x9\x15\x2C").DiskName("HARBOUR").Put(63, Pattern(193, 1));
    Read(disk.Image());
    EXPECT_EQ(Disk.SectorsPerTrack, 18);
    EXPECT_EQ(Disk.Os9SectorsField, 18);
    EXPECT_EQ(Disk.Os9ClusterSize, 4);
    EXPECT_EQ(Disk.Os9RootLsn, 2);
    EXPECT_EQ(Disk.Os9Owner, 0x12);  // only the first of the two bytes
    EXPECT_EQ(Disk.Os9DiskAttr, 0xA5);
    EXPECT_EQ(Disk.Os9DiskId, 0x4321);
    EXPECT_EQ(Disk.Os9Format, 7);
    EXPECT_EQ(Disk.Os9Reserved, "\1\xFE");
    EXPECT_EQ(Disk.Os9BootLsn, 0x010203);
    EXPECT_EQ(Disk.Os9BootSize, 0x0B00);
    EXPECT_EQ(DateText(Disk.DiskDate), "09/03/1987 21:44");
    EXPECT_EQ(Disk.DiskName, "HARBOUR");
    EXPECT_EQ(Disk.Os9Options, Pattern(193, 1).substr(0, 192));
}

TEST_F(Os9Test, NumbersOfTwoBytesAreSignedAndThoseOfThreeAreNot) {
    Os9Builder disk;
    disk.Number(6, 2, 0xFFFE).Number(14, 2, 0x8000).Number(24, 2, 40000).Number(21, 3, 0xFFFFFF);
    Read(disk.Image());
    EXPECT_EQ(Disk.Os9ClusterSize, -2);
    EXPECT_EQ(Disk.Os9DiskId, -32768);
    EXPECT_EQ(Disk.Os9BootSize, 40000 - 65536);
    EXPECT_EQ(Disk.Os9BootLsn, 0xFFFFFF);
}

TEST_F(Os9Test, TheRootsPlaceKeepsItsLow16BitsSigned) {
    Read(WithField(8, std::string("\5\0\2", 3)).Image());
    EXPECT_EQ(Disk.Os9RootLsn, 2);
    EXPECT_EQ(DirTable[1].FirstUnit, 2);
    EXPECT_EQ(DirTable[1].DescriptorSector.size(), 256U);
    Read(WithField(8, std::string("\0\x80\0", 3)).Image());
    EXPECT_EQ(Disk.Os9RootLsn, -32768);
}

TEST_F(Os9Test, ARootBeforeTheImageCountsAsBehindIt) {
    Read(WithField(8, "\1\xFF\xFF").Image());
    EXPECT_EQ(Disk.Os9RootLsn, -1);
    const DirEntry& root = DirTable[1];
    EXPECT_EQ(root.FullName, "ROOT.DIR");
    EXPECT_EQ(root.FirstUnit, -1);
    EXPECT_EQ(root.Attributes, 128);
    EXPECT_EQ(root.DescriptorSector, "");
    EXPECT_EQ(root.SectorCount, 0);
    EXPECT_EQ(Disk.UsedSectors, 0);
    EXPECT_EQ(Disk.DirRows, 1);
}

TEST_F(Os9Test, ARootBehindTheImageLeavesItsRowAsItWasMade) {
    Read(WithField(8, std::string("\0\2\x76", 3)).Image());  // 630, one behind the last
    EXPECT_EQ(DirTable[1].FullName, "ROOT.DIR");
    EXPECT_EQ(DirTable[1].DescriptorSector, "");
    EXPECT_EQ(Disk.DirRows, 1);
    Read(WithField(8, std::string("\0\2\x75", 3)).Image());
    EXPECT_EQ(DirTable[1].DescriptorSector, std::string(256, '\0'));
}

TEST_F(Os9Test, AnUnnamedDiskKeepsItsFirstZeroByteFlipped) {
    Read(Os9Builder().Image());
    EXPECT_EQ(Disk.DiskName, "\x80");
    Read(WithField(31, std::string(32, 'n')).Image());
    EXPECT_EQ(Disk.DiskName, std::string(31, 'n') + "\xEE");
}

TEST_F(Os9Test, AnImpossibleDateOfTheDiskIsNone) {
    Read(WithField(26, std::string("\x57\x0D\1\0\0", 5)).Image());
    EXPECT_EQ(Disk.DiskDate, 0);
}

TEST_F(Os9Test, TheMapLiesBehindTheFirstSectorHoweverLongItIs) {
    Os9Builder disk(4000);  // a map of 500 bytes, in two sectors
    disk.Put(256, Pattern(500, 3));
    Read(disk.Image());
    EXPECT_EQ(Disk.FatBytes, Pattern(500, 3));
    EXPECT_EQ(Disk.Os9RootLsn, 3);
}

TEST_F(Os9Test, TheMapsLengthIsUnsigned) {
    Read(WithField(4, "\xFF\xFF").Image());
    EXPECT_EQ(Disk.FatBytes.size(), 65535U);
    EXPECT_EQ(DirTable[0].Size, 256 + 65535);
    EXPECT_EQ(DirTable[0].UnitCount, 257);
}

TEST_F(Os9Test, AMapLongerThanTheImageIsShortWithoutComplaint) {
    Os9Builder disk(100);
    disk.Number(4, 2, 0xFFFF);
    Read(disk.Image());
    EXPECT_EQ(Disk.FatBytes, disk.Image().substr(256));
    EXPECT_EQ(DirTable[0].Content, disk.Image());
    // What the row says of its length and place is what the disk says.
    EXPECT_EQ(DirTable[0].Size, 256 + 65535);
    EXPECT_EQ(DirTable[0].UnitCount, 257);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(Os9Test, HalfTracksRoundToTheEvenNumber) {
    struct Row {
        int Sectors;
        int Tracks;
    };
    for (const Row& row : {Row{9, 0}, Row{10, 1}, Row{27, 2}, Row{45, 2}, Row{46, 3}, Row{63, 4}}) {
        Read(Os9Builder().Number(0, 3, row.Sectors).Image());
        EXPECT_EQ(Disk.TrackCount, row.Tracks) << row.Sectors;
    }
}

TEST_F(Os9Test, MoreThan32767TracksOverflow) {
    Os9Builder disk;
    disk.Number(3, 1, 1).Number(17, 2, 1);
    Read(disk.Number(0, 3, 32767).Image());
    EXPECT_EQ(Disk.TrackCount, 32767);
    disk.Number(0, 3, 32768);
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kOverflow);
    EXPECT_EQ(Disk.DirRows, 0);
}

TEST_F(Os9Test, NoSectorsOnATrackIsADivisionByZero) {
    Disk.ImageBytes = Os9Builder().Byte(3, 0).Image();
    EXPECT_EQ(FailureOf([] { ReadOs9Disk(); }), kDivisionByZero);
}

TEST_F(Os9Test, TheSectorViewGoesTwoBehindTheRootsPlaceInItsTrack) {
    std::vector<std::string> places;
    Screen.ShowSectorPlace = [&places](int track, int sector) {
        places.push_back(std::to_string(track) + "/" + std::to_string(sector));
        EXPECT_EQ(Disk.TrackCount, 35);
    };
    Read(Os9Builder().Image());
    Read(WithField(9, std::string("\0\x23", 2)).Image());  // 35: the last of track 1
    Read(WithField(9, "\xFF\xFF").Image());
    EXPECT_EQ(places, (std::vector<std::string>{"0/4", "1/19", "0/1"}));
}

TEST_F(Os9Test, TheMapRowHoldsTheFirstSectorAndTheMap) {
    const Os9Builder disk;
    Read(disk.Image());
    const DirEntry& row = DirTable[0];
    EXPECT_EQ(row.Name, "Ident+alloc. map [LSN0+1]");
    EXPECT_EQ(row.Ext, "");
    EXPECT_EQ(row.FullName, "Ident+alloc. map [LSN0+1]");
    EXPECT_EQ(row.Attributes, 0);
    EXPECT_EQ(row.FirstUnit, 0);
    EXPECT_EQ(row.Content, disk.Image().substr(0, 256 + 79));
    EXPECT_EQ(row.UnitCount, 2);
    EXPECT_EQ(row.SectorCount, 0);
    EXPECT_EQ(row.Size, 256 + 79);
    EXPECT_EQ(row.Chain, std::string("\0\0\0\0\2", 5));
    EXPECT_EQ(row.DescriptorSector, "");
    EXPECT_EQ(row.TreeLevel, 0);
}

TEST_F(Os9Test, AFullMapSectorNeedsNoOther) {
    Read(WithField(4, std::string("\1\0", 2)).Image());
    EXPECT_EQ(DirTable[0].UnitCount, 2);
    Read(WithField(4, "\1\1").Image());
    EXPECT_EQ(DirTable[0].UnitCount, 3);
}

TEST_F(Os9Test, TheMapAndBootRowsAddNothingToTheSectorsUsed) {
    Os9Builder disk(1440);
    Read(disk.Image());
    EXPECT_EQ(Disk.UsedSectors, 3);  // the root's 64 bytes, for "ROOT", ".." and "."
    Read(disk.Put(612 * 256, "OS").Image());
    EXPECT_EQ(DirTable[1].Name, "BOOTDECB");
    EXPECT_EQ(Disk.UsedSectors, 3);
}

TEST_F(Os9Test, WithoutABootTrackTheRootIsRow1) {
    Read(Os9Builder(1440).Put(612 * 256, "O").Put(1224 * 256 + 1, "S").Image());
    EXPECT_EQ(DirTable[1].FullName, "ROOT.DIR");
    EXPECT_EQ(DirTable[2].Name, "..");
}

TEST_F(Os9Test, ABootTrackMakesARowWhosePlaceIsOneSectorAhead) {
    Os9Builder disk(1440);
    disk.Put(612 * 256, "OS" + Pattern(4700, 4));
    Read(disk.Image());
    const DirEntry& row = DirTable[1];
    EXPECT_EQ(row.Name, "BOOTDECB");
    EXPECT_EQ(row.Ext, "");
    EXPECT_EQ(row.FullName, "BOOTDECB");
    EXPECT_EQ(row.Attributes, 0);
    EXPECT_EQ(row.FirstUnit, 613);
    EXPECT_EQ(row.Content, "OS" + Pattern(4700, 4).substr(0, 4606));
    EXPECT_EQ(row.UnitCount, 2);
    EXPECT_EQ(row.SectorCount, 18);
    EXPECT_EQ(row.Size, 4608);
    EXPECT_EQ(row.Chain, std::string("\0\2\x65\0\x10", 5));
    EXPECT_EQ(DirTable[2].FullName, "ROOT.DIR");
}

TEST_F(Os9Test, TheBootTrackOfTheSecondSideWins) {
    Os9Builder disk(1440);
    disk.Put(1224 * 256, "OS9");
    Read(disk.Image());
    EXPECT_EQ(DirTable[1].FirstUnit, 1225);
    EXPECT_EQ(DirTable[1].Chain, std::string("\0\4\xC9\0\x10", 5));
    Read(disk.Put(612 * 256, "OS").Image());
    EXPECT_EQ(DirTable[1].FullName, "BOOTDECB");
    EXPECT_EQ(DirTable[1].FirstUnit, 1225);
    EXPECT_EQ(DirTable[1].Content.substr(0, 3), "OS9");
    EXPECT_EQ(DirTable[2].FullName, "ROOT.DIR");
}

TEST_F(Os9Test, ABootTrackThatTheImageCutsKeepsItsNominalSize) {
    Os9Builder disk(1440);
    disk.Put(612 * 256, "OS");
    Read(disk.Image().substr(0, 613 * 256 + 10));
    EXPECT_EQ(DirTable[1].Content.size(), 266U);
    EXPECT_EQ(DirTable[1].Size, 4608);
    EXPECT_EQ(DirTable[1].SectorCount, 18);
}

TEST_F(Os9Test, TheRootRowHasANameThatTheDiskDoesNotKeep) {
    const Os9Builder disk;
    Read(disk.Image());
    const DirEntry& row = DirTable[1];
    EXPECT_EQ(row.Name, "ROOT");
    EXPECT_EQ(row.Ext, "DIR");
    EXPECT_EQ(row.FullName, "ROOT.DIR");
    EXPECT_EQ(row.Attributes, 0xBF);  // as its descriptor says
    EXPECT_EQ(row.FirstUnit, 2);
    EXPECT_EQ(row.Content, disk.Image().substr(3 * 256, 64));
    EXPECT_EQ(row.Size, 64);
    EXPECT_EQ(row.SectorCount, 2);
    EXPECT_EQ(row.UnitCount, 0);
    EXPECT_EQ(row.Chain, std::string("\0\0\3\0\1", 5));
    EXPECT_EQ(row.TreeLevel, 0);
}

TEST_F(Os9Test, ARootThatIsNoDirectoryIsNotFollowed) {
    Read(Os9Builder().Byte(2 * 256, 0x7F).Image());
    EXPECT_EQ(DirTable[1].Ext, "DIR");
    EXPECT_EQ(DirTable[1].Attributes, 0x7F);
    EXPECT_EQ(DirTable[1].Size, 64);
    EXPECT_EQ(Disk.DirRows, 1);
}

TEST_F(Os9Test, TheLastRowWalkedIsNotListed) {
    Read(Os9Builder().RootNames({{"first", 10}, {"last", 12}}).File(10, "1").File(12, "2").Image());
    // Map, root, "..", ".", "first", "last": six rows.
    EXPECT_EQ(DirTable[5].Name, "last");
    EXPECT_EQ(DirTable[5].Content, "2");
    EXPECT_EQ(Disk.DirCount, 5);
    EXPECT_EQ(Disk.DirRows, 5);
}

TEST_F(Os9Test, TotalsFollowFromTheSectors) {
    Read(Os9Builder().Number(0, 3, 629).Image());
    EXPECT_EQ(Disk.MaxDirEntries, 314);
    EXPECT_EQ(Disk.TotalUnits, 627);
    Read(Os9Builder().Number(0, 3, 1).Image());
    EXPECT_EQ(Disk.MaxDirEntries, 0);
    EXPECT_EQ(Disk.TotalUnits, -1);
}

TEST_F(Os9Test, NothingOfTheLastDiskIsLeft) {
    Os9Builder disk(1440);
    disk.DiskName("OLD").Put(26, "\x57\3\x9\x15\x2C").Put(612 * 256, "OS");
    Read(disk.RootNames({{"a", 20}}).File(20, "bytes").Image());
    Read(Os9Builder().Image());
    EXPECT_EQ(Disk.DiskDate, 0);
    EXPECT_EQ(Disk.DiskName, "\x80");
    EXPECT_EQ(Disk.ContinuationCount, 2);
    EXPECT_EQ(Disk.DirRows, 3);
    EXPECT_EQ(DirTable[4].Name, "");
    EXPECT_EQ(Disk.FatBytes.size(), 79U);
}

}  // namespace
}  // namespace brindlemoor::test
