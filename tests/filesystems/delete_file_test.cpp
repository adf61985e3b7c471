#include "filesystems/delete_file.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "filesystems/dragon_write.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/dragon_fixture.h"
#include "support/flex_builder.h"
#include "support/os9_builder.h"
#include "support/write_fixture.h"

namespace brindlemoor::test {
namespace {

class DeleteFile : public WriteTest {
  protected:
    /// Three files, the second of three granules.
    static DecbBuilder ThreeFiles() {
        DecbBuilder disk;
        disk.File(0, "ONE", "BAS", 0, 0, {32}, Pattern(100, 1));
        disk.File(1, "TWO", "BIN", 2, 0, {33, 34, 5}, Pattern(5000, 2));
        return disk.File(2, "THREE", "TXT", 3, 255, {40}, Pattern(2304, 3));
    }

    void ReadThreeFiles() { Read(ThreeFiles().Image()); }

    /// Deletes the file of a row.
    static void Delete(int row, bool keepChain = false) {
        Disk.DirCount = row;
        EXPECT_EQ(DeleteDiskFile(std::nullopt, keepChain), -1);
        EXPECT_EQ(Disk.DirCount, row);
    }
};

// --- With a name: only looking ---

TEST_F(DeleteFile, ANameMovesTheCursorToTheFirstRowOfThatName) {
    Read(ThreeFiles().File(3, "TWO", "BIN", 2, 0, {50}, "x").Image());
    Disk.DirCount = 0;
    std::string before = DiskFingerprint();
    EXPECT_EQ(DeleteDiskFile("TWO.BIN"), 0);
    EXPECT_EQ(Disk.DirCount, 1);
    Disk.DirCount = 0;
    EXPECT_EQ(DiskFingerprint(), before);
}

TEST_F(DeleteFile, ADeletedRowIsFoundByItsNameToo) {
    ReadThreeFiles();
    DirTable[1].Flags = kFlagDeleted;
    DeleteDiskFile("TWO.BIN");
    EXPECT_EQ(Disk.DirCount, 1);
}

TEST_F(DeleteFile, ANameThatNoRowHasChangesNothing) {
    ReadThreeFiles();
    Disk.DirCount = 2;
    const std::string before = DiskFingerprint();
    EXPECT_EQ(DeleteDiskFile("NONE.BIN"), 0);
    EXPECT_EQ(DeleteDiskFile(""), 0);
    EXPECT_EQ(DeleteDiskFile("two.bin"), 0);
    EXPECT_EQ(DiskFingerprint(), before);
}

// --- Every family ---

TEST_F(DeleteFile, TheRowIsEmptiedAndStays) {
    ReadThreeFiles();
    DirTable[1].BadSectorMark = "xx";
    Delete(1);
    const DirEntry& row = DirTable[1];
    EXPECT_EQ(row.Content, "");
    EXPECT_EQ(row.Size, 0);
    EXPECT_EQ(row.LastSectorBytes, 0);
    EXPECT_EQ(row.UnitCount, 0);
    EXPECT_EQ(row.FirstUnit, 0);
    EXPECT_EQ(row.LastGranuleSectors, 0);
    EXPECT_EQ(row.FileType, 0);
    EXPECT_EQ(row.BadSectorMark, "");
    EXPECT_EQ(row.Flags, kFlagDeleted);
    EXPECT_EQ(row.FormatChar, " ");
    EXPECT_EQ(Disk.DirRows, 3);
    EXPECT_EQ(Disk.DeletedCount, 1);
}

TEST_F(DeleteFile, TheUsedSectorsFallByThoseOfTheSize) {
    struct Row {
        std::int64_t Size;
        int Sectors;
    };
    for (const Row& expected :
         std::vector<Row>{{0, 0}, {1, 1}, {256, 1}, {257, 2}, {-1, 0}, {-256, 0}, {-1000, -2}}) {
        ReadThreeFiles();
        Disk.UsedSectors = 100;
        DirTable[0].Size = expected.Size;
        Delete(0);
        EXPECT_EQ(Disk.UsedSectors, 100 - expected.Sectors) << expected.Size;
    }
}

TEST_F(DeleteFile, ADeletedRowIsDeletedAndCountedAgain) {
    ReadThreeFiles();
    Delete(0);
    const std::string image = Disk.ImageBytes;
    const std::int32_t used = Disk.UsedSectors;
    Delete(0);
    EXPECT_EQ(Disk.DeletedCount, 2);
    EXPECT_EQ(Disk.UsedSectors, used);
    EXPECT_TRUE(ImageIs(image));
}

TEST_F(DeleteFile, ACursorOutsideTheTableFails) {
    ReadThreeFiles();
    for (const int row : {-1, kDirTableRows}) {
        Disk.DirCount = row;
        const std::string before = DiskFingerprint();
        EXPECT_EQ(FailureOf([] { DeleteDiskFile(); }), kIndexRange);
        EXPECT_EQ(DiskFingerprint(), before);
    }
}

TEST_F(DeleteFile, ASumThatLeavesItsRangeFailsAndChangesNothing) {
    ReadThreeFiles();
    Disk.UsedSectors = 2147483647;
    DirTable[0].Size = -2147483648;
    Disk.DirCount = 0;
    const std::string before = DiskFingerprint();
    EXPECT_EQ(FailureOf([] { DeleteDiskFile(); }), kOverflow);
    EXPECT_EQ(DiskFingerprint(), before);
}

// --- DECB ---

TEST_F(DeleteFile, ADecbFileIsWipedFromTheDisk) {
    ReadThreeFiles();
    Delete(1);
    DecbBuilder expected = ThreeFiles();
    expected.Delete(1).Fat(33, 255).Fat(34, 255).Fat(5, 255);
    for (const int granule : {33, 34, 5}) expected.Fill(granule, 0, 2304, 255);
    EXPECT_TRUE(ImageIs(expected.Image()));
    EXPECT_EQ(DirTable[1].Name, "?WO     ");
    EXPECT_EQ(DirTable[1].FullName, "?WO.BIN");
    EXPECT_EQ(DirTable[1].Chain, "");
}

TEST_F(DeleteFile, ADecbChainIsClearedEvenWhenItIsToBeKept) {
    ReadThreeFiles();
    Delete(1, true);
    EXPECT_EQ(DirTable[1].Chain, "");
}

TEST_F(DeleteFile, ADecbRowWithoutANameStaysWithoutOne) {
    ReadThreeFiles();
    DirTable[1].Name = "";
    DirTable[1].FullName = "";
    Delete(1);
    EXPECT_EQ(DirTable[1].Name, "");
    EXPECT_EQ(DirTable[1].FullName, "");
}

/// A chain is trusted: its bytes are places behind the start of the FAT, whatever lies there.
TEST_F(DeleteFile, ADecbChainBeyondTheFatChangesWhatLiesThere) {
    ReadThreeFiles();
    DirTable[0].Chain = Bytes({68, 200, 255});
    Delete(0);
    DecbBuilder expected = ThreeFiles();
    expected.Delete(0).Byte(78592 + 68, 255).Byte(78592 + 200, 255).Byte(78592 + 255, 255);
    EXPECT_TRUE(ImageIs(expected.Image()));
}

TEST_F(DeleteFile, OnALongDiskTheGranulesBeyondTheFatAreWipedToo) {
    DecbBuilder disk(80);
    disk.File(0, "ONE", "BAS", 0, 0, {32}, "x").Byte(70 * 2304, 'd').Byte(159 * 2304, 'd');
    Read(disk.Image());
    DirTable[0].Chain = Bytes({68, 157, 158});
    Delete(0);
    disk.Delete(0).Byte(78592 + 68, 255).Byte(78592 + 157, 255).Byte(78592 + 158, 255);
    for (int offset = 70 * 2304; offset < 71 * 2304; ++offset) disk.Byte(offset, 255);
    for (int offset = 159 * 2304; offset < 160 * 2304; ++offset) disk.Byte(offset, 255);
    EXPECT_TRUE(ImageIs(disk.Image()));
}

TEST_F(DeleteFile, WhatLiesBehindTheImagesEndIsDropped) {
    for (const std::size_t length : {0U, 10U, 78336U, 78600U, 78848U, 83000U}) {
        ReadThreeFiles();
        std::string expected = Disk.ImageBytes;
        Disk.ImageBytes.resize(length);
        DirTable[1].Chain = Bytes({0, 33, 34});
        Delete(1);
        expected.replace(0, 2304, std::string(2304, '\xFF'));
        expected.replace(33 * 2304, 2304, std::string(2304, '\xFF'));
        expected.replace(36 * 2304, 2304, std::string(2304, '\xFF'));
        expected[78592] = expected[78592 + 33] = expected[78592 + 34] = '\xFF';
        expected[78848 + 32] = '\0';
        EXPECT_TRUE(ImageIs(expected.substr(0, length))) << length;
    }
}

// --- Dragon ---

/// Twelve entries; the first of them goes on in the last.
DragonBuilder DragonDisk() {
    DragonBuilder disk;
    for (int entry = 0; entry < 11; ++entry) {
        disk.File(entry, "F" + std::to_string(entry), "BIN", {{400 + 2 * entry, 2}}, "x");
    }
    return disk;
}

TEST_F(DeleteFile, ADragonFileFreesSectorsOneLowerAndFromTheTopOfEachByte) {
    Read(DragonDisk().Image());
    Disk.FatBytes.assign(360, '\0');
    DirTable[1].Chain = Bytes({0, 1, 3, 1, 90, 1, 0, 0, 9});
    Delete(1);
    // 1 to 3 are the bits 7, 6 and 5 of byte 0; 346 is counted as 345, bit 6 of byte 43. A start of
    // 0 is no bit.
    std::string bitmap(360, '\0');
    bitmap[0] = '\xE0';
    bitmap[43] = '\x40';
    EXPECT_EQ(Disk.FatBytes, bitmap);
    EXPECT_EQ(ImagePart(360 * 256, 180), bitmap.substr(0, 180));
    EXPECT_EQ(ImagePart(361 * 256, 180), bitmap.substr(180));
    EXPECT_EQ(DirTable[1].Chain, "");
}

TEST_F(DeleteFile, ADragonDeleteLeavesTheCopyAndTheNamesAlone) {
    const DragonBuilder disk = DragonDisk();
    Read(disk.Image());
    Delete(2);
    std::string expected = disk.Image();
    // The file lay on the sectors 404 and 405, which are counted as 403 and 404 from the top.
    expected[360 * 256 + 50] = static_cast<char>(expected[360 * 256 + 50] | 0x18);
    expected[362 * 256 + 2 * 25] = '\x80';
    EXPECT_TRUE(ImageIs(expected));
    EXPECT_EQ(DirTable[2].Name, "F2      ");
    EXPECT_EQ(DirTable[2].Flags, 0x80);
}

/// Behind the tenth, the place that is marked is not the entry's own.
TEST_F(DeleteFile, TheEleventhDragonEntryIsMarkedBesideItsPlace) {
    Read(DragonDisk().Image());
    Delete(10);
    EXPECT_EQ(ImagePart(362 * 256 + 250, 1), "\x80");
    EXPECT_EQ(ImagePart(363 * 256, 1), std::string(1, '\0'));
    EXPECT_EQ(DragonEntryOffset(159), 362 * 256 + 159 * 25 + 2);
}

TEST_F(DeleteFile, AContinuedDragonEntryGoesOnAtTheLinkOfRow10) {
    Read(DragonDisk().Image());
    DirTable[3].Flags = kFlagContinued;
    DirTable[3].ContinuationLink = 7;
    DirTable[10].ContinuationLink = 5;
    DirTable[5].Flags = kFlagContinuationEntry | kFlagContinued;
    const std::string content = DirTable[5].Content;
    Delete(3);
    EXPECT_EQ(DirTable[3].Flags, 0x80);
    EXPECT_EQ(DirTable[5].Flags, 0x80);
    EXPECT_EQ(DirTable[5].Content, content);
    EXPECT_EQ(DirTable[7].Flags, 0);
    EXPECT_EQ(ImagePart(362 * 256 + 3 * 25, 1), "\x80");
    EXPECT_EQ(ImagePart(362 * 256 + 5 * 25, 1), "\x80");
    EXPECT_EQ(Disk.DeletedCount, 1);
}

TEST_F(DeleteFile, ADragonChainMayBeKept) {
    Read(DragonDisk().Image());
    const std::string chain = DirTable[4].Chain;
    Delete(4, true);
    EXPECT_EQ(DirTable[4].Chain, chain);
    EXPECT_EQ(DirTable[4].Content, "");
}

TEST_F(DeleteFile, ADragonImageThatEndsEarlyKeepsItsLength) {
    for (const std::size_t length : {0U, 92160U, 92260U, 92420U, 92672U, 92700U}) {
        Read(DragonDisk().Image());
        Disk.ImageBytes.resize(length);
        Disk.FatBytes = Disk.FatBytes.substr(0, 200);
        Delete(4);
        EXPECT_EQ(Disk.ImageBytes.size(), length);
        EXPECT_EQ(DirTable[4].Flags, 0x80);
    }
}

// --- OS-9 and FLEX ---

TEST_F(DeleteFile, AnOs9FileIsBackAtTheNextReading) {
    Read(Os9Builder().RootNames({{"file", 10}, {"last", 12}}).File(10, "x").File(12, "y").Image());
    const std::string image = Disk.ImageBytes;
    Delete(4);
    EXPECT_EQ(DirTable[4].Flags, kFlagDeleted);
    EXPECT_EQ(DirTable[4].Chain, "");
    EXPECT_TRUE(ImageIs(image));
    ReadDisk();
    EXPECT_EQ(DirTable[4].Content, "x");
}

TEST_F(DeleteFile, AFlexFileIsBackAtTheNextReading) {
    Read(FlexBuilder().File(0, "ONE", "TXT", {{1, 1}}, Pattern(200, 1)).Image());
    const std::string image = Disk.ImageBytes;
    Delete(0);
    EXPECT_EQ(DirTable[0].FullName, "ONE'TXT");
    EXPECT_TRUE(ImageIs(image));
    ReadDisk();
    EXPECT_EQ(DirTable[0].Flags, 0);
}

// --- The command ---

class DeleteCommandTest : public DeleteFile {
  protected:
    void SetUp() override {
        DeleteFile::SetUp();
        ReadThreeFiles();
        Screen.PcListFolder = [] { return std::string("/pc/files"); };
    }

    void Select(const std::vector<int>& rows) {
        Screen.SelectedRows = [rows] { return rows; };
    }
};

TEST_F(DeleteCommandTest, OneFileIsAskedForByItsName) {
    Select({1});
    script_.Answers = {Answer::Ok};
    DeleteCommand();
    ASSERT_EQ(script_.Messages.size(), 1U);
    const ShownMessage& question = script_.Messages[0];
    EXPECT_EQ(question.Text, "Delete the file: \r\n/pc/files/TWO.BIN");
    EXPECT_EQ(question.Title, "Brindlemoor");
    EXPECT_EQ(question.Choice, Buttons::OkCancel);
    EXPECT_EQ(question.Icon, MessageIcon::Question);
    EXPECT_EQ(RowNames(), "ONE.BAS ?WO.BIN THREE.TXT ");
    EXPECT_EQ(fills_, 1);
}

TEST_F(DeleteCommandTest, CancelLeavesTheDiskAndFillsTheGrid) {
    Select({1});
    Disk.DirCount = Disk.DirRows;
    script_.Answers = {Answer::Cancel};
    const std::string before = DiskFingerprint();
    DeleteCommand();
    EXPECT_EQ(DiskFingerprint(), before);
    EXPECT_EQ(fills_, 1);
}

TEST_F(DeleteCommandTest, SeveralFilesAreAskedForOnceAndAllGo) {
    Select({2, 0, 1});
    script_.Answers = {Answer::Ok};
    DeleteCommand();
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Shown()[0], "Delete this files: 3 archivos");
    EXPECT_EQ(script_.Messages[0].Icon, MessageIcon::Question);
    EXPECT_EQ(RowNames(), "?NE.BAS ?WO.BIN ?HREE.TXT ");
    EXPECT_EQ(Disk.DeletedCount, 3);
    EXPECT_EQ(fills_, 1);
}

TEST_F(DeleteCommandTest, CancelForSeveralEndsTheCommand) {
    Select({0, 1});
    script_.Answers = {Answer::Cancel};
    const std::string before = DiskFingerprint();
    DeleteCommand();
    EXPECT_EQ(DiskFingerprint(), before);
    EXPECT_EQ(fills_, 0);
}

TEST_F(DeleteCommandTest, WithoutASelectionTheGridIsFilled) {
    Select({});
    DeleteCommand();
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(fills_, 1);
}

}  // namespace
}  // namespace brindlemoor::test
