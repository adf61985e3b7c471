#include "filesystems/write_file.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/write_fixture.h"

// What holds for every family, looked at on Disk BASIC disks: names, rows, the verdicts.

namespace brindlemoor::test {
namespace {

class WriteFile : public WriteTest {
  protected:
    void SetUp() override {
        WriteTest::SetUp();
        Read(DecbBuilder().File(0, "OLD", "BIN", 2, 0, {32}, Pattern(100, 1)).Image());
    }

    /// Nothing of the disk changed, and the grid was not filled.
    void ExpectUntouched(const std::string& before) const {
        EXPECT_EQ(DiskFingerprint(), before);
        EXPECT_EQ(fills_, 0);
    }
};

TEST_F(WriteFile, FillsTheRowBehindTheLast) {
    DirTable[1].Chain = "";
    Write("C:\\PC\\my file.bas", "10 PRINT");
    EXPECT_EQ(RowNames(), "OLD.BIN MY-FILE.BAS ");
    const DirEntry& row = DirTable[1];
    EXPECT_EQ(row.Name, "MY-FILE ");
    EXPECT_EQ(row.Ext, "BAS");
    EXPECT_EQ(row.FileType, 0);
    EXPECT_EQ(row.FormatChar, "A");
    EXPECT_EQ(row.Flags, 0);
    EXPECT_EQ(row.Content, "10 PRINT");
    EXPECT_EQ(row.Size, 8);
    EXPECT_EQ(row.UnitCount, 1);
    EXPECT_EQ(row.LastGranuleSectors, 1);
    EXPECT_EQ(row.LastSectorBytes, 8);
    EXPECT_EQ(Disk.PcFileTypeText, "0");
    EXPECT_EQ(Disk.DirCount, 1);
    EXPECT_EQ(left_, "");
    EXPECT_EQ(fills_, 1);
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(WriteFile, TheUsedSectorsStayAsTheyWere) {
    const std::int32_t used = Disk.UsedSectors;
    Write("A.BIN", Pattern(5000, 1));
    EXPECT_EQ(Disk.UsedSectors, used);
}

TEST_F(WriteFile, TypeAndFormatGoByTheExtensionAndTheFirstByte) {
    struct Row {
        std::string Name, Data;
        int Type;
        std::string Format;
    };
    const std::string tokens = "\xFF\x01";
    for (const Row& expected : std::vector<Row>{{"A.BAS", "10", 0, "A"},
                                                {"B.BAS", tokens, 0, "B"},
                                                {"C.DAT", tokens, 1, "A"},
                                                {"D.BIN", "10", 2, "B"},
                                                {"E.TXT", tokens, 3, "A"},
                                                {"F.XYZ", "10", 2, "B"},
                                                {"NOEXT", "10", 2, "B"},
                                                {"G.BA", "10", 2, "B"}}) {
        Write(expected.Name, expected.Data);
        const DirEntry& row = DirTable[Disk.DirCount];
        EXPECT_EQ(row.FileType, expected.Type) << expected.Name;
        EXPECT_EQ(row.FormatChar, expected.Format) << expected.Name;
        EXPECT_EQ(Disk.PcFileTypeText, std::to_string(expected.Type)) << expected.Name;
    }
    EXPECT_EQ(RowNames(), "OLD.BIN A.BAS B.BAS C.DAT D.BIN E.TXT F.XYZ NOEXT. G.BA ");
}

TEST_F(WriteFile, TheLastGranuleAndSectorAreNeverEmptyButOfAnEmptyFile) {
    struct Row {
        std::size_t Size;
        int Sectors, Bytes, Granules;
    };
    for (const Row& expected : std::vector<Row>{{1, 1, 1, 1},
                                                {255, 1, 255, 1},
                                                {256, 1, 256, 1},
                                                {257, 2, 1, 1},
                                                {512, 2, 256, 1},
                                                {2303, 9, 255, 1},
                                                {2304, 9, 256, 1},
                                                {2305, 1, 1, 2}}) {
        Write("F" + std::to_string(expected.Size), Pattern(expected.Size, 3));
        const DirEntry& row = DirTable[Disk.DirCount];
        EXPECT_EQ(row.LastGranuleSectors, expected.Sectors) << expected.Size;
        EXPECT_EQ(row.LastSectorBytes, expected.Bytes) << expected.Size;
        EXPECT_EQ(row.UnitCount, expected.Granules) << expected.Size;
        EXPECT_EQ(row.Chain.size(), static_cast<std::size_t>(expected.Granules)) << expected.Size;
    }
}

// --- Names that are taken ---

TEST_F(WriteFile, ATakenNameBringsUpTheQuestion) {
    const std::string before = DiskFingerprint();
    Write("C:\\[]\\ old.bin", "new");
    ASSERT_EQ(script_.Prompts.size(), 1U);
    EXPECT_EQ(script_.Prompts[0].Prompt,
              "The file: C:\\[]\\ old.bin\r\nAlready exist, overwrite? or rename");
    EXPECT_EQ(script_.Prompts[0].Title, "Brindlemoor");
    EXPECT_EQ(script_.Prompts[0].Suggestion, "OLD.BIN");
    ExpectUntouched(before);
    EXPECT_EQ(left_, "new");
}

TEST_F(WriteFile, TheAnswerIsANewNameByTheSameRules) {
    script_.Texts = {" other name.txt"};
    Write("OLD.BIN", "new");
    EXPECT_EQ(RowNames(), "OLD.BIN OTHER-NA.TXT ");
    EXPECT_EQ(DirTable[1].FileType, 3);
}

TEST_F(WriteFile, AnAnswerIsNoPath) {
    script_.Texts = {"a\\b.bin"};
    Write("OLD.BIN", "new");
    EXPECT_EQ(RowNames(), "OLD.BIN A\\B.BIN ");
}

TEST_F(WriteFile, TheQuestionComesAgainUntilTheNameIsFree) {
    script_.Texts = {"old.bin", "OLD.BIN ", "new.bin"};
    Write("C:\\OLD.BIN", "new");
    EXPECT_EQ(script_.Prompts.size(), 3U);
    EXPECT_EQ(script_.Prompts[2].Prompt, script_.Prompts[0].Prompt);
    EXPECT_EQ(RowNames(), "OLD.BIN NEW.BIN ");
}

TEST_F(WriteFile, ANameThatIsCutIsNotComparedAsCut) {
    Write("OLD.BINARY", "new");
    EXPECT_TRUE(script_.Prompts.empty());
    EXPECT_EQ(RowNames(), "OLD.BIN OLD.BIN ");
    // Without a point it is not the name that the row bears.
    Write("NOEXT", "1");
    Write("NOEXT", "2");
    EXPECT_TRUE(script_.Prompts.empty());
    Write("NOEXT.", "3");
    EXPECT_EQ(script_.Prompts.size(), 1U);
}

TEST_F(WriteFile, ADeletedRowsNameIsFree) {
    DirTable[0].Flags = kFlagDeleted;
    Write("OLD.BIN", "new");
    EXPECT_TRUE(script_.Prompts.empty());
}

// --- Rows ---

TEST_F(WriteFile, TheLowestDeletedRowIsTaken) {
    DecbBuilder disk;
    disk.File(0, "A", "BIN", 2, 0, {0}, "a").File(1, "B", "BIN", 2, 0, {1}, "b");
    disk.File(2, "C", "BIN", 2, 0, {2}, "c").File(3, "D", "BIN", 2, 0, {3}, "d");
    disk.Delete(1).Delete(2).Fat(1, 255).Fat(2, 255);
    Read(disk.Image());
    Write("NEW.BIN", "new");
    EXPECT_EQ(DirTable[1].FullName, "NEW.BIN");
    EXPECT_EQ(Disk.DirRows, 4);
    EXPECT_EQ(Disk.DeletedCount, 1);
    EXPECT_EQ(ImagePart(78848 + 32, 11), "NEW     BIN");
    EXPECT_EQ(ImagePart(78848 + 64, 1), std::string(1, '\0'));
}

/// One more than a directory has slots.
TEST_F(WriteFile, ADecbDirectoryTakes69Rows) {
    Read(DecbBuilder().Image());
    for (int file = 0; file < 68; ++file) {
        Disk.TotalUnits = 612;
        Write(std::to_string(file) + ".BIN", "");
        // Empty files are loaded from the PC first, which has none.
        Write(std::to_string(file) + ".BIN", "x");
    }
    EXPECT_EQ(Disk.DirRows, 68);
    script_.Messages.clear();
    // All granules are taken by now; one is given back for the 69th.
    Disk.ImageBytes[78592 + 10] = '\xFF';
    Write("69.BIN", "x");
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(Disk.DirRows, 69);
    EXPECT_EQ(ImagePart(78848 + 68 * 32, 11), "69      BIN");

    fills_ = 0;
    const std::string before = DiskFingerprint();
    Write("70.BIN", "x");
    ExpectOneMessage("No entry free", MessageIcon::Exclamation);
    ExpectUntouched(before);
}

// --- What survives a verdict ---

TEST_F(WriteFile, TheNameIsSettledBeforeTheRowAndTheRowBeforeTheSpace) {
    Disk.MaxDirEntries = 0;
    Disk.TotalUnits = 0;
    const std::string before = DiskFingerprint();
    Write("OLD.BIN", "x");
    EXPECT_EQ(script_.Prompts.size(), 1U);
    EXPECT_TRUE(script_.Messages.empty());
    Write("NEW.BIN", "x");
    ExpectOneMessage("No entry free", MessageIcon::Exclamation);
    ExpectUntouched(before);
}

TEST_F(WriteFile, AFileThatDoesNotFitFillsTheGridAndNothingElse) {
    const std::string before = DiskFingerprint();
    Write("BIG.BIN", Pattern(67 * 2304 + 1, 1));
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Icon, MessageIcon::Critical);
    EXPECT_EQ(script_.Messages[0].Text.substr(0, 35), "BIG.BIN|C:\\DISKS\\TEST.DSK|Requested");
    EXPECT_EQ(DiskFingerprint(), before);
    EXPECT_EQ(fills_, 1);
    EXPECT_EQ(left_.size(), 67U * 2304 + 1);
}

TEST_F(WriteFile, AFailureBringsUpTheErrorBoxAndChangesNothing) {
    const std::string before = DiskFingerprint();
    Write("[].BIN", Pattern(200000, 1));
    ExpectOneMessage("Run-time error '9':\r\n\r\nSubscript out of range", MessageIcon::Critical);
    ExpectUntouched(before);
}

TEST_F(WriteFile, ATableWithoutAFurtherRowIsAFailure) {
    Disk.DiskFamily = kOs9;
    Disk.DirRows = kDirTableRows;
    Disk.MaxDirEntries = 5000;
    const std::string before = DiskFingerprint();
    Write("NEW", "x");
    ExpectOneMessage("Run-time error '9':\r\n\r\nSubscript out of range", MessageIcon::Critical);
    ExpectUntouched(before);
}

// --- Without data ---

TEST_F(WriteFile, WithoutDataThePcFileIsLoaded) {
    const std::string path = WriteTestFile(FreshFolder(), "from pc.dat", "bytes of the PC");
    Write(path, "");
    EXPECT_EQ(RowNames(), "OLD.BIN FROM-PC.DAT ");
    EXPECT_EQ(DirTable[1].Content, "bytes of the PC");
}

TEST_F(WriteFile, AnEmptyPcFileTakesAGranule) {
    const std::string path = WriteTestFile(FreshFolder(), "empty.dat", "");
    Write(path, "");
    const DirEntry& row = DirTable[1];
    EXPECT_EQ(row.Size, 0);
    EXPECT_EQ(row.UnitCount, 0);
    EXPECT_EQ(row.LastGranuleSectors, 0);
    EXPECT_EQ(row.LastSectorBytes, 0);
    EXPECT_EQ(row.FormatChar, "A");
    EXPECT_EQ(ChainText(1), "33 ");
    EXPECT_EQ(ImagePart(78592 + 33, 1), "\xC0");
}

TEST_F(WriteFile, APcFileThatCannotBeReadStoresNothing) {
    const std::string before = DiskFingerprint();
    Write(FreshFolder() + "/missing.dat", "");
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Shown()[0].substr(0, 9), "Error!!! ");
    ExpectUntouched(before);
}

}  // namespace
}  // namespace brindlemoor::test
