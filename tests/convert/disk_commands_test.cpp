#include "convert/disk_commands.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "convert/file_commands.h"
#include "convert/tape_fixture.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "support/command_fixture.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/dragon_builder.h"
#include "support/faulty_files.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

class DiskCommandsTest : public CommandTest {
  protected:
    void SetUp() override {
        CommandTest::SetUp();
        DecbBuilder disk;
        disk.File(0, "TOKENS  ", "BAS", 0, 0, {5}, CocoTokens());
        disk.File(1, "TEXT    ", "BAS", 0, 255, {6}, "10 B\r");
        disk.File(2, "DATA    ", "DAT", 1, 0, {7}, Pattern(300, 1));
        OpenDisk(disk.Image());
    }
};

// To the PC

TEST_F(DiskCommandsTest, ACopyToThePcIsTheFilesBytesAndAsksNothingBeforeItCreates) {
    SelectRows({0, 2});
    RunDisk(6);
    EXPECT_EQ(PcFile("TOKENS.BAS"), CocoTokens());
    EXPECT_EQ(PcFile("DATA.DAT"), Pattern(300, 1));
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_TRUE(script_.Prompts.empty());
}

TEST_F(DiskCommandsTest, ACopyAsksBeforeItOverwritesAndTheAnswerIsThePath) {
    WriteTestFile(PcFolder, "DATA.DAT", "old");
    SelectRows({2});
    script_.Texts = {PcFolder + "/OTHER.DAT"};
    RunDisk(6);
    ASSERT_EQ(script_.Prompts.size(), 1U);
    EXPECT_EQ(script_.Prompts[0].Suggestion, PcFolder + "/DATA.DAT");
    EXPECT_EQ(PcFile("DATA.DAT"), "old");
    EXPECT_EQ(PcFile("OTHER.DAT"), Pattern(300, 1));
    script_.Texts = {PcFolder + "/DATA.DAT"};
    RunDisk(6);
    EXPECT_EQ(PcFile("DATA.DAT"), Pattern(300, 1));
}

TEST_F(DiskCommandsTest, GivingThatQuestionUpEndsTheRunAndWhatIsDoneStays) {
    WriteTestFile(PcFolder, "TEXT.BAS", "old");
    SelectRows({0, 1, 2});
    RunDisk(6);
    EXPECT_EQ(script_.Prompts.size(), 1U);
    EXPECT_EQ(PcFiles(), (Texts{"TEXT.BAS", "TOKENS.BAS"}));
    EXPECT_EQ(PcFile("TEXT.BAS"), "old");
}

TEST_F(DiskCommandsTest, ANameFromTheDiskNeverLeadsOutOfTheFolder) {
    const std::string outside = WriteTestFile(Base, "UP.BAS", "outside");
    const char* const rows[][2] = {{"../UP.BAS", "---UP.BAS"},
                                   {"..\\UP.BAS", "---UP.BAS"},
                                   {"/etc/x", "-etc-x"},
                                   {"-rf", "-rf"},
                                   {"", "-"},
                                   {"..", "--"},
                                   {"A\nB", "A-B"},
                                   {"   ", "-"}};
    for (const auto& row : rows) {
        DirTable[2].FullName = row[0];
        SelectRows({2});
        RunDisk(6);
        EXPECT_EQ(PcFiles(), Texts{row[1]});
        fs::remove(PcFolder + "/" + row[1]);
    }
    EXPECT_EQ(FileBytes(outside), "outside");
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(DiskCommandsTest, ATargetThatIsAFolderReadOnlyOrGoneIsToldAndStays) {
    fs::create_directory(PcFolder + "/DATA.DAT");
    SelectRows({2});
    script_.Texts = {PcFolder + "/DATA.DAT"};
    RunDisk(6);
    fs::remove(PcFolder + "/DATA.DAT");
    WriteTestFile(PcFolder, "DATA.DAT", "old");
    fs::permissions(PcFolder + "/DATA.DAT", fs::perms::owner_read);
    script_.Texts = {PcFolder + "/DATA.DAT"};
    RunDisk(6);
    EXPECT_EQ(PcFile("DATA.DAT"), "old");
    fs::rename(PcFolder, PcFolder + "2");
    RunDisk(6);
    fs::rename(PcFolder + "2", PcFolder);
    EXPECT_EQ(MessageTexts(script_),
              (Texts{"Error!!! 21 Is a directory", "Error!!! 13 Permission denied",
                     "Error!!! 2 No such file or directory"}));
    EXPECT_EQ(PcFiles(), Texts{"DATA.DAT"});
}

TEST_F(DiskCommandsTest, ManyCopiesAreFlushedTogetherBehindTheLastAndOneByItself) {
    const FileOperationsKept kept;
    Texts flushed;
    FileOperations = Watching([&flushed](FileStep step) {
        if (step == FileStep::FlushToDisk) flushed.emplace_back("a file");
    });
    FileOperations.FlushFileSystem = [&](const std::string& folder) {
        flushed.push_back(folder + " with " + std::to_string(PcFiles().size()));
        return std::error_code();
    };
    SelectRows({0, 2});
    RunDisk(6);
    EXPECT_EQ(flushed, Texts{PcFolder + " with 2"});
    flushed.clear();
    SelectRows({1});
    RunDisk(6);
    EXPECT_EQ(flushed, Texts{"a file"});
}

TEST_F(DiskCommandsTest, CopiesThatAreDoneAreFlushedAlsoWhenTheRunIsGivenUp) {
    const FileOperationsKept kept;
    int flushed = 0;
    CountCommonFlushes(flushed);
    WriteTestFile(PcFolder, "TEXT.BAS", "old");
    SelectRows({0, 1, 2});
    script_.Texts = {""};
    RunDisk(6);
    EXPECT_EQ(PcFiles(), (Texts{"TEXT.BAS", "TOKENS.BAS"}));
    EXPECT_EQ(flushed, 1);
}

TEST_F(DiskCommandsTest, CopiesThatAreDoneAreFlushedAlsoWhenAFailureEndsTheRun) {
    const FileOperationsKept kept;
    int flushed = 0;
    CountCommonFlushes(flushed);
    WriteTestFile(PcFolder, "TEXT.BAS", "old");
    Platform.AskText = [](auto&&...) -> std::string { Fail(kOutOfMemory); };
    SelectRows({0, 1, 2});
    EXPECT_THROW(RunDisk(6), RuntimeFailure);
    EXPECT_EQ(PcFiles(), (Texts{"TEXT.BAS", "TOKENS.BAS"}));
    EXPECT_EQ(flushed, 1);
}

TEST_F(DiskCommandsTest, WhereNothingWasWrittenNothingIsFlushedNorToldOfIt) {
    const FileOperationsKept kept;
    FileOperations.FlushFileSystem = [](const std::string&) {
        return std::make_error_code(std::errc::io_error);
    };
    fs::rename(PcFolder, PcFolder + "2");
    SelectRows({0, 2});
    RunDisk(6);
    fs::rename(PcFolder + "2", PcFolder);
    EXPECT_EQ(MessageTexts(script_), Texts(2, "Error!!! 2 No such file or directory"));
}

// Deleting

TEST_F(DiskCommandsTest, DeletingWorksOnTheWholeSelectionAtOnce) {
    SelectRows({0, 2});
    script_.Answers = {Answer::Ok};
    RunDisk(7);
    EXPECT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(LiveRows(), "TEXT.BAS ");
    EXPECT_EQ(Disk.ImageModified, -1);
}

TEST_F(DiskCommandsTest, CancelLeavesTheDiskAsItWas) {
    const std::string image = Disk.ImageBytes;
    for (const std::vector<int>& rows : {std::vector<int>{0}, {0, 1, 2}}) {
        SelectRows(rows);
        RunDisk(7);
    }
    EXPECT_EQ(script_.Messages.size(), 2U);
    EXPECT_EQ(Disk.ImageBytes, image);
    EXPECT_EQ(Disk.ImageModified, 0);
}

// The change of BASIC that stores beside

TEST_F(DiskCommandsTest, Position0StoresTheOtherFormWithoutDeleting) {
    SelectRows({0});
    RunDisk(20);
    EXPECT_EQ(LiveRows(), "TOKENS.BAS TEXT.BAS DATA.DAT TOKENS.BAS ");
    EXPECT_EQ(DirTable[3].Content, TokensAsText());
    EXPECT_TRUE(script_.Prompts.empty());
}

// The change of BASIC that replaces

TEST_F(DiskCommandsTest, Position4ReplacesTheFileByItsOtherForm) {
    SelectRows({0, 1});
    RunDisk(24);
    EXPECT_EQ(LiveRows(), "TOKENS.BAS TEXT.BAS DATA.DAT ");
    EXPECT_EQ(DirTable[0].Content, TokensAsText());
    EXPECT_EQ(DirTable[0].FormatChar, "A");
    EXPECT_EQ(DirTable[1].Content, OtherCocoTokens());
    EXPECT_EQ(DirTable[1].FormatChar, "B");
    EXPECT_EQ(Disk.DeletedCount, 0);
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(Disk.ImageModified, -1);
}

TEST_F(DiskCommandsTest, ADragonsDiskGetsADragonsTokens) {
    DragonBuilder disk;
    OpenDisk(disk.Image());
    SelectFiles({{"PROG.BAS", TokensAsText()}});
    RunPc(6);
    ASSERT_EQ(LiveRows(), "PROG.BAS ");
    SelectRows({0});
    RunDisk(24);
    EXPECT_EQ(LiveRows(), "PROG.BAS ");
    EXPECT_EQ(DirTable[0].Content, DragonTokens());
}

TEST_F(DiskCommandsTest, AConversionThatFailsOrGivesNothingDeletesNothing) {
    DirTable[0].Content = "\xFF\xFF\xFFrest";
    DirTable[1].Content.clear();
    const std::string image = Disk.ImageBytes;
    for (const int index : {20, 23, 24}) {
        script_.Messages.clear();
        SelectRows({0, 1});
        RunDisk(index);
        ASSERT_EQ(script_.Messages.size(), 1U) << index;
        EXPECT_EQ(script_.Messages[0].Text.substr(0, 18), "Run-time error '5'");
        EXPECT_EQ(LiveRows(), "TOKENS.BAS TEXT.BAS DATA.DAT ");
        EXPECT_EQ(Disk.ImageBytes, image);
    }
}

TEST_F(DiskCommandsTest, CancelAtAnErrorInTheTokensEndsTheRunAndOkGoesOn) {
    for (const int index : {20, 24}) {
        DecbBuilder disk;
        std::string wrong = CocoTokens();
        wrong[7] = '\xFE';
        disk.File(0, "WRONG   ", "BAS", 0, 0, {5}, wrong);
        disk.File(1, "RIGHT   ", "BAS", 0, 0, {6}, CocoTokens());
        OpenDisk(disk.Image());
        SelectRows({0, 1});
        RunDisk(index);
        EXPECT_EQ(script_.Messages.size(), 1U);
        EXPECT_EQ(Disk.ImageBytes, disk.Image());
        script_.Answers = {Answer::Ok};
        SelectRows({0, 1});
        RunDisk(index);
        EXPECT_NE(Disk.ImageBytes, disk.Image());
        EXPECT_EQ(DirTable[index == 20 ? 3 : 1].Content, TokensAsText());
    }
}

// The change for tapes

TEST_F(DiskCommandsTest, Position3StoresTheOtherFormUnderTheNameOfTheTape) {
    SelectRows({1});
    RunDisk(23);
    EXPECT_EQ(LiveRows(), "TOKENS.BAS TEXT. DATA.DAT ");
    EXPECT_EQ(DirTable[1].Content, OtherCocoTokens());
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(DiskCommandsTest, ATextStopsTheTapeAndTheFileStays) {
    const std::string image = Disk.ImageBytes;
    SelectRows({0});
    RunDisk(23);
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text.substr(0, 19), "Run-time error '17'");
    EXPECT_EQ(Disk.ImageBytes, image);
    EXPECT_EQ(LiveRows(), "TOKENS.BAS TEXT.BAS DATA.DAT ");
}

}  // namespace
}  // namespace brindlemoor::test
