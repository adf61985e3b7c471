#include "filesystems/decb.h"

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

using DecbTest = DiskTest;

TEST_F(DecbTest, AnEmptyDirectoryHasNoRowsAndAFreeFatAgrees) {
    Read(DecbBuilder().Image());
    EXPECT_EQ(Disk.DiskFamily, kDecb);
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(DecbTest, AnEmptyDirectoryIsComparedWithTheStoredFat) {
    Read(DecbBuilder().Fat(3, 193).Image());
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Shown()[0],
              "Error!!!... En FAT en los granulos siguientes:\r\n"
              "                    Actual   |  Correcto\r\n"
              "GR4 -> 193 (UltGr+1 Sec) <> 255 (Libre) ");
}

TEST_F(DecbTest, GeometryFollowsTheNumberOfSectors) {
    struct Row {
        int Tracks;
        int Expected;
    };
    // 36 tracks are 648 sectors: above 630, up to 720.
    for (const Row& row : {Row{35, 35}, Row{36, 40}, Row{40, 40}, Row{41, 80}, Row{80, 80},
                           Row{81, 81}, Row{160, 160}}) {
        Read(DecbBuilder(row.Tracks).Image());
        EXPECT_EQ(Disk.TrackCount, row.Expected) << row.Tracks;
        EXPECT_EQ(Disk.SectorsPerTrack, 18);
        EXPECT_EQ(Disk.TotalSectors, row.Expected * 18);
        EXPECT_EQ(Disk.TotalUnits, (row.Expected - 1) * 18);
        EXPECT_EQ(Disk.MaxDirEntries, 68);
    }
}

TEST_F(DecbTest, AnOddByteBehind35TracksMakes40) {
    Read(DecbBuilder(35).Image() + std::string(1, '\0'));
    EXPECT_EQ(Disk.TrackCount, 40);
}

TEST_F(DecbTest, SlotFieldsGoIntoTheRow) {
    Read(DecbBuilder()
             .File(0, "hello", "bas", 0, 255, {33}, Pattern(300, 1))
             .File(1, "GAME", "BIN", 2, 0, {34, 5}, Pattern(2304 + 512, 2))
             .Image());
    ASSERT_EQ(Disk.DirRows, 2);
    const DirEntry& first = DirTable[0];
    EXPECT_EQ(first.Name, "HELLO   ");
    EXPECT_EQ(first.Ext, "BAS");
    EXPECT_EQ(first.FullName, "HELLO.BAS");
    EXPECT_EQ(first.FileType, 0);
    EXPECT_EQ(first.FormatChar, "A");
    EXPECT_EQ(first.Flags, 0);
    EXPECT_EQ(first.FirstUnit, 33);
    EXPECT_EQ(first.LastSectorBytes, 44);
    EXPECT_EQ(first.LastGranuleSectors, 2);
    const DirEntry& second = DirTable[1];
    EXPECT_EQ(second.FormatChar, "B");
    EXPECT_EQ(second.FileType, 2);
    EXPECT_EQ(second.Chain, std::string("\x22\x05"));
    EXPECT_EQ(second.UnitCount, 2);
    EXPECT_EQ(second.SectorCount, 18);
    EXPECT_EQ(second.Size, 2304 + 512);
    EXPECT_EQ(Disk.UsedSectors, 27);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(DecbTest, Granule33LiesOnTrack16AndGranule34OnTrack18) {
    Read(DecbBuilder()
             .File(0, "A", "DAT", 1, 0, {33}, Pattern(10, 3))
             .File(1, "B", "DAT", 1, 0, {34}, Pattern(10, 4))
             .Image());
    EXPECT_EQ(Disk.ImageBytes.substr((16 * 18 + 9) * 256, 10), DirTable[0].Content);
    EXPECT_EQ(Disk.ImageBytes.substr(18 * 18 * 256, 10), DirTable[1].Content);
    EXPECT_EQ(DirTable[0].Content, Pattern(10, 3));
    EXPECT_EQ(DirTable[1].Content, Pattern(10, 4));
}

TEST_F(DecbTest, TheDirectoryEndsAtItsMark) {
    DecbBuilder disk;
    disk.File(0, "A", "DAT", 1, 0, {1}, "x").File(2, "C", "DAT", 1, 0, {2}, "y");
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 1);
}

TEST_F(DecbTest, ADirectoryWithoutEndMarkHas68Rows) {
    DecbBuilder disk;
    for (int slot = 0; slot < 68; ++slot) disk.File(slot, "F", "DAT", 1, 0, {slot}, "z");
    Read(disk.Image());
    EXPECT_EQ(Disk.DirRows, 68);
    EXPECT_EQ(DirTable[67].FirstUnit, 67);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(DecbTest, ADeletedEntryStaysWithItsFlagAndIsNotFollowed) {
    DecbBuilder disk;
    disk.Slot(0, "GONE", "DAT", 1, 0, 7, 20).Delete(0).File(1, "B", "DAT", 1, 0, {7}, "b");
    Read(disk.Image());
    ASSERT_EQ(Disk.DirRows, 2);
    EXPECT_EQ(Disk.DeletedCount, 1);
    EXPECT_EQ(DirTable[0].Name, std::string("\0ONE    ", 8));
    EXPECT_EQ(DirTable[0].FullName, std::string("\0ONE.DAT", 8));
    EXPECT_EQ(DirTable[0].Flags, kFlagDeleted);
    EXPECT_EQ(DirTable[0].Chain, "");
    EXPECT_EQ(DirTable[0].Content, "");
    EXPECT_EQ(DirTable[0].SectorCount, 0);
    // The live file has the same first granule; a deleted row makes no clash.
    EXPECT_TRUE(Shown().empty());
}

TEST_F(DecbTest, AFatByteOf192IsAFileWithoutBytes) {
    Read(DecbBuilder().Slot(0, "EMPTY", "DAT", 1, 0, 4, 0).Fat(4, 192).Image());
    EXPECT_EQ(DirTable[0].LastGranuleSectors, 0);
    EXPECT_EQ(DirTable[0].Content, "");
    EXPECT_EQ(DirTable[0].Size, 0);
    EXPECT_EQ(DirTable[0].UnitCount, 1);
    EXPECT_EQ(DirTable[0].SectorCount, 9);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(DecbTest, ZeroBytesInTheOnlySectorGiveAnEmptyFile) {
    Read(DecbBuilder().Slot(0, "EMPTY", "DAT", 1, 0, 4, 0).Fat(4, 193).Image());
    EXPECT_EQ(DirTable[0].Size, 0);
    EXPECT_EQ(DirTable[0].Content, "");
    EXPECT_EQ(DirTable[0].LastGranuleSectors, 1);
}

TEST_F(DecbTest, AFullLastSectorCounts256) {
    Read(DecbBuilder().File(0, "FULL", "DAT", 1, 0, {4}, Pattern(512, 5)).Image());
    EXPECT_EQ(DirTable[0].LastSectorBytes, 256);
    EXPECT_EQ(DirTable[0].Size, 512);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(DecbTest, MoreThan256BytesInTheLastSectorAreReportedAndKept) {
    Read(DecbBuilder().Slot(0, "BIG", "DAT", 1, 0, 4, 257).Fat(4, 193).Image());
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Shown()[0],
              "Error !!!, el archivo BIG.DAT, Tiene 257 Bytes en el \xFAltimo sector, esto es "
              "imposible solo puede tener 256");
    EXPECT_EQ(DirTable[0].LastSectorBytes, 257);
    EXPECT_EQ(DirTable[0].Size, 257);
}

TEST_F(DecbTest, TheLastSectorCountIsSigned) {
    Read(DecbBuilder().Slot(0, "NEG", "DAT", 1, 0, 4, 65535).Fat(4, 194).Image());
    EXPECT_EQ(DirTable[0].LastSectorBytes, -1);
    EXPECT_EQ(DirTable[0].Size, 255);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(DecbTest, AGranuleMarkedFreeInAChainEndsItWith31Sectors) {
    Read(DecbBuilder().Slot(0, "FREED", "DAT", 1, 0, 4, 10).Image());
    EXPECT_EQ(DirTable[0].LastGranuleSectors, 31);
    EXPECT_EQ(DirTable[0].Size, 30 * 256 + 10);
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_NE(Shown()[0].find("GR5 ->  255 (Libre)<>223 (UltGr+31 Sec)  "), std::string::npos);
}

TEST_F(DecbTest, TwoFilesWithTheSameFirstGranuleAreReportedOnce) {
    DecbBuilder disk;
    disk.File(0, "ONE", "DAT", 1, 0, {8}, "1").File(1, "TWO", "DAT", 1, 0, {8}, "2");
    disk.File(2, "THREE", "DAT", 1, 0, {8}, "3");
    Read(disk.Image());
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Shown()[0],
              "\xCBrror!!!... El granulo inicial 8 del archivo: TWO.DAT\r\n"
              "Ya est\xE1 usado, en el archivo: ONE.DAT");
}

TEST_F(DecbTest, AClashFurtherAlongAChainShowsOnlyInTheFat) {
    DecbBuilder disk;
    disk.File(0, "ONE", "DAT", 1, 0, {8, 9}, Pattern(2400, 1));
    disk.Slot(1, "TWO", "DAT", 1, 0, 10, 3).Fat(10, 9);
    disk.Slot(2, "THREE", "DAT", 1, 0, 11, 3).Fat(11, 9);
    Read(disk.Image());
    EXPECT_TRUE(Shown().empty());
    EXPECT_EQ(DirTable[1].Chain, std::string("\x0A\x09"));
}

TEST_F(DecbTest, AChainOutOfTheFatMakesTheDiskOs9AndReadingGoesOn) {
    DecbBuilder disk;
    disk.Slot(0, "BROKEN", "DAT", 1, 0, 2, 3).Fat(2, 68);
    disk.File(1, "FINE", "DAT", 1, 0, {3}, "fine");
    Read(disk.Image());
    EXPECT_EQ(Disk.DiskFamily, kOs9);
    EXPECT_EQ(Disk.DirRows, 2);
    EXPECT_EQ(DirTable[0].Chain, std::string("\x02"));
    EXPECT_EQ(DirTable[0].Content.size(), 2304U);
    EXPECT_EQ(DirTable[0].Size, 0);
    EXPECT_EQ(DirTable[0].UnitCount, 0);
    EXPECT_EQ(DirTable[1].Content, "fine");
    ASSERT_EQ(Shown().size(), 1U);
    // The broken chain's last granule counts as one with no sectors.
    EXPECT_NE(Shown()[0].find("GR3 -> 68 (UltGr+-124 Sec) <>192 (UltGr+0 Sec)  "),
              std::string::npos);
}

TEST_F(DecbTest, AFirstGranuleOutOfTheFatGathersNothing) {
    Read(DecbBuilder().Slot(0, "OUT", "DAT", 1, 0, 68, 3).Image());
    EXPECT_EQ(Disk.DiskFamily, kOs9);
    EXPECT_EQ(DirTable[0].Chain, "");
    EXPECT_TRUE(Shown().empty());
}

TEST_F(DecbTest, Granule67IsTheLastOfTheFat) {
    Read(DecbBuilder().File(0, "LAST", "DAT", 1, 0, {67}, "end").Image());
    EXPECT_EQ(Disk.DiskFamily, kDecb);
    EXPECT_EQ(DirTable[0].Content, "end");
}

TEST_F(DecbTest, ALoopingChainStopsAbove100GranulesAndMakesTheDiskOs9) {
    Read(DecbBuilder().Slot(0, "LOOP", "DAT", 1, 0, 6, 3).Fat(6, 6).Image());
    EXPECT_EQ(Disk.DiskFamily, kOs9);
    EXPECT_EQ(DirTable[0].Chain, std::string(101, '\x06'));
    EXPECT_EQ(DirTable[0].Content.size(), 101U * 2304);
    EXPECT_EQ(DirTable[0].Size, 0);
}

TEST_F(DecbTest, FatDifferencesCountFromOne) {
    Read(DecbBuilder().File(0, "A", "DAT", 1, 0, {0}, "x").Fat(67, 5).Fat(66, 0).Image());
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Shown()[0],
              "Error!!!... En FAT en los granulos siguientes:\r\n"
              "                    Actual   |  Correcto\r\n"
              "GR67 ->  ProxGr=0<> 255 (Libre) \r\n"
              "GR68 -> 5 (UltGr+-187 Sec) <> 255 (Libre) ");
    EXPECT_EQ(static_cast<unsigned char>(Disk.FatBytes[67]), 5);
}

TEST_F(DecbTest, FatByteTexts) {
    EXPECT_EQ(FatByteText(255), " 255 (Libre)");
    EXPECT_EQ(FatByteText(0), " ProxGr=0");
    EXPECT_EQ(FatByteText(5), "5 (UltGr+-187 Sec) ");
    EXPECT_EQ(FatByteText(193), "193 (UltGr+1 Sec) ");
}

TEST_F(DecbTest, AWholeSectorOf235MarksTheRow) {
    DecbBuilder disk;
    std::string bytes = Pattern(768, 6);
    bytes.replace(256, 256, std::string(256, '\xEB'));
    disk.File(0, "MARKED", "DAT", 1, 0, {4}, bytes);
    // Only 255 of them, at the file's end: no whole sector.
    disk.File(1, "SHORT", "DAT", 1, 0, {5}, Pattern(256, 7) + std::string(255, '\xEB'));
    // 256 of them that do not begin at a sector.
    disk.File(2, "SHIFTED", "DAT", 1, 0, {6}, "x" + std::string(256, '\xEB') + Pattern(255, 8));
    Read(disk.Image());
    // The piece begins at the 1-based position 257; 9 sectors a granule come before it.
    EXPECT_EQ(DirTable[0].BadSectorMark, std::string("\x01\x25"));
    EXPECT_EQ(DirTable[1].BadSectorMark, "");
    EXPECT_EQ(DirTable[2].BadSectorMark, "");
}

TEST_F(DecbTest, TheLastBlankSectorOfAFileGivesTheMarkBehindTheDirectoryTrack) {
    std::string bytes = Pattern(1024, 6);
    bytes.replace(0, 256, std::string(256, '\xEB'));
    bytes.replace(512, 256, std::string(256, '\xEB'));
    Read(DecbBuilder().File(0, "TWICE", "DAT", 1, 0, {40}, bytes).Image());
    // Position 513, and nine sectors for each of the 42 granules before this one.
    EXPECT_EQ(DirTable[0].BadSectorMark, std::string("\x03\x7B"));
}

TEST_F(DecbTest, AMarkFarIntoALongFileDoesNotEndTheReading) {
    std::vector<int> granules;
    for (int granule = 0; granule < 30; ++granule) granules.push_back(granule);
    std::string bytes = Pattern(30 * 2304, 9);
    bytes.replace(40960, 256, std::string(256, '\xEB'));
    Read(DecbBuilder().File(0, "LONG", "DAT", 1, 0, granules, bytes).Image());
    EXPECT_EQ(DirTable[0].BadSectorMark.size(), 2U);
    EXPECT_EQ(DirTable[0].Content, bytes);
    EXPECT_EQ(Disk.DirRows, 1);
}

TEST_F(DecbTest, TheDiskNameEndsBeforeItsZeroByte) {
    Read(DecbBuilder().DiskName("My disk").Image());
    EXPECT_EQ(Disk.DiskName, "My disk");
}

TEST_F(DecbTest, ADiskNameWithoutZeroByteIsEmpty) {
    DecbBuilder disk;
    for (int offset = 82432; offset < 82432 + 256; ++offset) disk.Byte(offset, 'N');
    Read(disk.Image());
    EXPECT_EQ(Disk.DiskName, "");
    disk.Byte(82432 + 255, 0);
    Read(disk.Image());
    EXPECT_EQ(Disk.DiskName, std::string(255, 'N'));
}

TEST_F(DecbTest, AnImageThatEndsBeforeTheFatIsReportedAndHasNoRows) {
    Read(DecbBuilder().Image().substr(0, 78592));
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Shown()[0], "Error!!!...Archivo muy peque\xF1o para leer FAT o No existe FAT");
    EXPECT_EQ(Disk.DirRows, 0);
    // One byte of the FAT is enough to go on.
    script_.Messages.clear();
    Read(DecbBuilder().Image().substr(0, 78593));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Error!!! 5 Invalid procedure call or argument"});
}

TEST_F(DecbTest, AnImageCutInItsDirectoryKeepsTheRowsBeforeTheCut) {
    DecbBuilder disk;
    for (int slot = 0; slot < 5; ++slot) disk.File(slot, "F", "DAT", 1, 0, {slot}, "z");
    Read(disk.Image().substr(0, 78848 + 3 * 32));
    EXPECT_EQ(Disk.DirRows, 3);
    EXPECT_EQ(Shown()[0], "Error!!! 5 Invalid procedure call or argument");
}

TEST_F(DecbTest, ASlotThatIsCutIsNoRow) {
    DecbBuilder disk;
    for (int slot = 0; slot < 3; ++slot) disk.File(slot, "F", "DAT", 1, 0, {slot}, "z");
    for (const int bytes : {1, 5, 13, 15}) {
        Read(disk.Image().substr(0, static_cast<std::size_t>(78848 + 2 * 32 + bytes)));
        EXPECT_EQ(Disk.DirRows, 2) << bytes;
    }
    Read(disk.Image().substr(0, 78848 + 2 * 32 + 16));
    EXPECT_EQ(Disk.DirRows, 3);
}

TEST_F(DecbTest, AnEndMarkCountsAlsoWhereTheImageEndsBehindIt) {
    Read(DecbBuilder().Image().substr(0, 78849));
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(DecbTest, ADeletedEntrysLastSectorCountIsCheckedToo) {
    Read(DecbBuilder().Slot(0, "GONE", "DAT", 1, 0, 7, 300).Delete(0).Image());
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Shown()[0].rfind(std::string("Error !!!, el archivo \0ONE.DAT, Tiene 300", 41), 0),
              0U);
}

TEST_F(DecbTest, MessagesComeRowByRowAndTheFatLast) {
    DecbBuilder disk;
    disk.File(0, "ONE", "DAT", 1, 0, {8}, "1");
    disk.Slot(1, "TWO", "DAT", 1, 0, 8, 999);
    disk.Slot(2, "THREE", "DAT", 1, 0, 9, 258).Fat(9, 193).Fat(50, 1);
    Read(disk.Image());
    ASSERT_EQ(Shown().size(), 4U);
    EXPECT_NE(Shown()[0].find("TWO.DAT, Tiene 999"), std::string::npos);
    EXPECT_NE(Shown()[1].find("granulo inicial 8 del archivo: TWO.DAT"), std::string::npos);
    EXPECT_NE(Shown()[2].find("THREE.DAT, Tiene 258"), std::string::npos);
    EXPECT_EQ(Shown()[3].rfind("Error!!!... En FAT", 0), 0U);
}

TEST_F(DecbTest, ATruncatedImageYieldsShortFiles) {
    DecbBuilder disk;
    disk.File(0, "LATE", "DAT", 1, 0, {67}, Pattern(1000, 10));
    Read(disk.Image().substr(0, 69 * 2304 + 100));
    EXPECT_EQ(DirTable[0].Size, 100);
    EXPECT_EQ(DirTable[0].Content, Pattern(1000, 10).substr(0, 100));
}

TEST_F(DecbTest, TheGranuleFieldIsHiddenThenShownAndTheViewSetToTheDirectory) {
    std::vector<std::string> calls;
    Screen.ShowGranuleField = [&calls](bool visible) {
        calls.push_back(visible ? "show" : "hide");
    };
    Screen.ShowSectorPlace = [&calls](int track, int sector) {
        calls.push_back(std::to_string(track) + "/" + std::to_string(sector));
        EXPECT_EQ(Disk.TrackCount, 35);
    };
    Read(DecbBuilder().Image());
    EXPECT_EQ(calls, (std::vector<std::string>{"hide", "show", "17/3"}));
}

}  // namespace
}  // namespace brindlemoor::test
