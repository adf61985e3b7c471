#include "filesystems/dragon_bitmap.h"

#include <cstdio>

#include "core/disk_state.h"
#include "core/screen.h"
#include "support/disk_fixture.h"
#include "support/dragon_builder.h"

namespace brindlemoor::test {
namespace {

const std::string kBitmapsDiffer = "ERROR en los FATs, Diferencias entre el TRACK 16 y el 20";
const std::string kTracksDiffer = "ERROR, Diferencias entre el TRACK 16 y el 20";

const std::string kHead =
    "Bit=0->(Used) Bit=1->(Free)\r\n\r\n"
    "Tr/Se - Tr/Sec  [Sectors]        Actual    <>   Correct";

class DragonBitmapTest : public DiskTest {
  protected:
    void SetUp() override {
        DiskTest::SetUp();
        Screen.EditFat = [this] { ++edits_; };
    }

    int edits_ = 0;
};

std::string Line(int firstSector, const std::string& stored, const std::string& computed) {
    const int last = firstSector + 7;
    char line[80];
    std::snprintf(line, sizeof line, "\r\n%02d:%02d - %02d/%02d [%03d-%03d] -> ", firstSector / 18,
                  firstSector % 18 + 1, last / 18, last % 18 + 1, firstSector, last);
    return line + stored + "<>" + computed;
}

int ByteOf(const std::string& bitmap, int place) {
    return static_cast<unsigned char>(bitmap.at(static_cast<std::size_t>(place)));
}

// Reading

TEST_F(DragonBitmapTest, TheBitmapIsTheFirst180BytesOfTwoSectors) {
    DragonBuilder disk;
    disk.BitmapByte(0, 1).BitmapByte(179, 2).BitmapByte(180, 3).BitmapByte(359, 4);
    Read(disk.Image());
    ASSERT_EQ(Disk.FatBytes.size(), 360U);
    EXPECT_EQ(ByteOf(Disk.FatBytes, 0), 1);
    EXPECT_EQ(ByteOf(Disk.FatBytes, 179), 2);
    EXPECT_EQ(ByteOf(Disk.FatBytes, 180), 3);
    EXPECT_EQ(ByteOf(Disk.FatBytes, 359), 4);
}

TEST_F(DragonBitmapTest, TheBitmapFollowsTheSectorsPerTrack) {
    DragonBuilder disk(40, 36);
    disk.BitmapByte(7, 0x5A);
    // Where the bitmap would be at 18 sectors per track; the directory stays there.
    disk.Byte(360 * 256 + 7, 0xA5).Byte(288 * 256 + 7, 0xA5);
    Read(disk.Image());
    EXPECT_EQ(ByteOf(Disk.FatBytes, 7), 0x5A);
    EXPECT_EQ(Shown(), std::vector<std::string>{kHead + Line(56, "01011010", "11111111") +
                                                "\r\n\r\nEDITAR?"});
}

TEST_F(DragonBitmapTest, ADifferenceOfTheBitmapsBringsUpBothMessages) {
    for (const int place : {0, 179}) {
        for (const int sector : {288, 289}) {
            script_.Messages.clear();
            Read(DragonBuilder().Byte(sector * 256 + place, 0x7F).Image());
            EXPECT_EQ(Shown(), (std::vector<std::string>{kBitmapsDiffer, kTracksDiffer}));
            EXPECT_EQ(script_.Messages[0].Title, "Brindlemoor");
            EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
            EXPECT_EQ(script_.Messages[1].Title, "Brindlemoor");
            EXPECT_EQ(script_.Messages[1].Choice, Buttons::Ok);
            // Track 20 is the one that counts.
            EXPECT_EQ(Disk.FatBytes, Disk.FatComputed);
        }
    }
}

TEST_F(DragonBitmapTest, ADifferenceElsewhereInTheTracksBringsUpTheSecondMessage) {
    // Behind the bitmap's half in its sector, in the directory, and in the last byte of 18 sectors.
    for (const int offset : {288 * 256 + 180, 290 * 256, 288 * 256 + 4607}) {
        script_.Messages.clear();
        Read(DragonBuilder().Byte(offset, 0x77).Image());
        EXPECT_EQ(Shown(), std::vector<std::string>{kTracksDiffer}) << offset;
    }
    script_.Messages.clear();
    Read(DragonBuilder().Byte(288 * 256 + 4608, 0x77).Byte(287 * 256, 0x77).Image());
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DragonBitmapTest, OnADiskOf36SectorsPerTrackHalfATrackIsCompared) {
    Read(DragonBuilder(40, 36).Byte(576 * 256 + 4607, 0x77).Image());
    EXPECT_EQ(Shown(), std::vector<std::string>{kTracksDiffer});
    script_.Messages.clear();
    Read(DragonBuilder(40, 36).Byte(576 * 256 + 4608, 0x77).Image());
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

// Rebuilding

TEST_F(DragonBitmapTest, EighteenSectorsOfTheTwoSystemTracksAreUsedOnEveryDisk) {
    for (const int sectors : {18, 20, 36}) {
        Read(DragonBuilder(40, sectors).Image());
        ASSERT_EQ(Disk.FatComputed.size(), 360U);
        for (int sector = 0; sector < 2880; ++sector) {
            const bool system = (sector >= sectors * 16 && sector < sectors * 16 + 18) ||
                                (sector >= sectors * 20 && sector < sectors * 20 + 18);
            const bool free = (ByteOf(Disk.FatComputed, sector / 8) >> sector % 8 & 1) != 0;
            ASSERT_EQ(free, !system) << sector;
        }
    }
}

TEST_F(DragonBitmapTest, MarkingClearsTheBitsOfTheSectorsThatLieInTheBitmap) {
    std::string bitmap(2, '\xFF');
    MarkDragonSectors(bitmap, 0, 1);
    MarkDragonSectors(bitmap, 6, 3);
    EXPECT_EQ(bitmap, "\x3E\xFE");
    MarkDragonSectors(bitmap, 14, 255);
    EXPECT_EQ(bitmap, "\x3E\x3E");
    MarkDragonSectors(bitmap, 16, 1);
    MarkDragonSectors(bitmap, 32767, 255);
    MarkDragonSectors(bitmap, -1, 255);
    MarkDragonSectors(bitmap, -32768, 255);
    EXPECT_EQ(bitmap, "\x3E\x3E");
}

// Comparing

TEST_F(DragonBitmapTest, ADifferenceIsListedAndOffersTheEditor) {
    DragonBuilder disk;
    disk.File(0, "A", "DAT", {{17, 1}}, "a").Use(8, 1).BitmapByte(16 / 8, 0xFF);
    Read(disk.Image());
    ASSERT_EQ(Shown().size(), 1U);
    // The lowest sector of a byte is the leftmost bit.
    EXPECT_EQ(Shown()[0], kHead +
                              "\r\n00:09 - 00/16 [008-015] -> 01111111<>11111111"
                              "\r\n00:17 - 01/06 [016-023] -> 11111111<>10111111"
                              "\r\n\r\nEDITAR?");
    EXPECT_EQ(script_.Messages[0].Title, "Error!!!... En FAT en los sectores siguientes:");
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::YesNo);
    EXPECT_EQ(edits_, 0);
    EXPECT_EQ(Disk.DirRows, 1);
}

TEST_F(DragonBitmapTest, YesOpensTheEditorBeforeTheTotalsAreSet) {
    script_.Answers = {Answer::Yes};
    int rows = -1;
    std::int32_t units = -1;
    Screen.EditFat = [&] {
        rows = Disk.DirRows;
        units = Disk.MaxDirEntries;
        Disk.FatBytes = Disk.FatComputed;
        ++edits_;
    };
    Read(DragonBuilder().Use(40, 1).File(0, "A", "DAT", {{4, 1}}, "a").Image());
    EXPECT_EQ(edits_, 1);
    EXPECT_EQ(rows, 0);
    EXPECT_EQ(units, 0);
    EXPECT_EQ(Disk.DirRows, 1);
    EXPECT_EQ(Disk.MaxDirEntries, 160);
}

TEST_F(DragonBitmapTest, BitmapsThatAgreeOfferNothing) {
    script_.Answers = {Answer::Yes};
    Read(DragonBuilder().Image());
    EXPECT_EQ(edits_, 0);
}

TEST_F(DragonBitmapTest, TheListCountsTracksOf18SectorsOnEveryDisk) {
    Read(DragonBuilder(40, 36).Use(999, 2).Image());
    EXPECT_EQ(Shown(),
              std::vector<std::string>{
                  kHead + "\r\n55:03 - 55/10 [992-999] -> 11111110<>11111111"
                          // A number longer than its pattern has a blank for each digit more.
                          "\r\n55:11 - 55/18 [ 1000- 1007] -> 01111111<>11111111"
                          "\r\n\r\nEDITAR?"});
    script_.Messages.clear();
    Read(DragonBuilder(80, 36).Use(1800, 1).Use(2879, 1).Image());
    EXPECT_EQ(Shown(), std::vector<std::string>{
                           kHead + "\r\n 100:01 -  100/08 [ 1800- 1807] -> 01111111<>11111111"
                                   "\r\n 159:11 -  159/18 [ 2872- 2879] -> 11111110<>11111111"
                                   "\r\n\r\nEDITAR?"});
}

TEST_F(DragonBitmapTest, TheListIsCutBehind925CharactersInTheMiddleOfALine) {
    DragonBuilder disk;
    std::string list;
    for (int place = 0; place < 36; ++place) {
        disk.BitmapByte(place, 0xF0);
        list += Line(place * 8, "00001111", "11111111");
    }
    Read(disk.Image());
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Shown()[0], kHead + list.substr(0, 925) + "\r\n\r\nEDITAR?");
    // 19 lines of 47 characters, and 32 characters of the next.
    EXPECT_EQ(list.substr(925 - 32, 32), "\r\n08:09 - 08/16 [152-159] -> 000");
}

TEST_F(DragonBitmapTest, AListOfUpTo925CharactersIsWhole) {
    DragonBuilder disk;
    std::string list;
    for (int place = 0; place < 19; ++place) {
        disk.BitmapByte(place, 0x0F);
        list += Line(place * 8, "11110000", "11111111");
    }
    Read(disk.Image());
    EXPECT_EQ(Shown(), std::vector<std::string>{kHead + list + "\r\n\r\nEDITAR?"});
}

TEST_F(DragonBitmapTest, BytesOfTheBitmapBehindTheEndOfTheImageAreNotListed) {
    // The image ends in the first bitmap sector: its copy on track 16 is longer.
    Read(DragonBuilder(40, 36).BitmapByte(3, 0xEF).Image().substr(0, 720 * 256 + 100));
    EXPECT_EQ(Disk.FatBytes.size(), 100U);
    EXPECT_EQ(Shown(), (std::vector<std::string>{
                           kBitmapsDiffer, kTracksDiffer,
                           kHead + Line(24, "11110111", "11111111") + "\r\n\r\nEDITAR?"}));
}

}  // namespace
}  // namespace brindlemoor::test
