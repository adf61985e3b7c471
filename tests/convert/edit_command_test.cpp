#include "convert/edit_command.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/settings.h"
#include "filesystems/commit.h"
#include "image/read_disk.h"
#include "support/command_fixture.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/faulty_files.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

constexpr int kEdit = 1;
constexpr int kEditBytes = 2;

const std::string kWait = "Press OK when you are done editing the file";
const std::string kToText = "Would you like to convert the file to ASCII first?";
const std::string kLineFeeds = "Want to add to the CR LF at the end of existing lines";

/// A disk of four files, and an editor that remembers what it was given.
class EditTest : public CommandTest {
  protected:
    enum Row : int { kTokens, kAscii, kText, kHigh };

    void SetUp() override {
        CommandTest::SetUp();
        DecbBuilder disk;
        disk.File(kTokens, "TOKENS  ", "BAS", 0, 0, {5}, CocoTokens());
        disk.File(kAscii, "ASCII   ", "BAS", 0, 255, {6}, "10 CLS\r20 A\r");
        disk.File(kText, "TEXT    ", "TXT", 3, 255, {7}, "a\rb\r");
        disk.File(kHigh, "HIGH    ", "BIN", 2, 0, {8}, "\xEFkay\xC1");
        OpenDisk(disk.Image());
    }

    void TearDown() override {
        EXPECT_EQ(PcFiles(), left_) << "of temporary files nothing is left";
        CommandTest::TearDown();
    }

    /// The editor keeps what it got, and then writes what `change` makes of it.
    void Editor(const std::function<std::string(const std::string&)>& change) {
        script_.OnProgram = [this, change](const StartedProgram& program) {
            path_ = program.Arguments.back();
            given_ = FileBytes(path_);
            std::ofstream(path_, std::ios::binary | std::ios::trunc) << change(given_);
        };
    }

    /// An editor that changes nothing.
    void EditorLooks() {
        Editor([](const std::string& text) { return text; });
    }

    /// An editor that makes B of every A.
    void EditorChangesA() {
        Editor([](const std::string& text) { return ReplaceText(text, "A", "B"); });
    }

    void Edit(int row, std::deque<Answer> answers, int index = kEdit) {
        script_.Messages.clear();
        script_.Programs.clear();
        script_.Answers = std::move(answers);
        SelectRows({row});
        RunDisk(index);
    }

    Texts left_;  ///< the files that the test itself put into the folder
    std::string path_;
    std::string given_;
};

// The questions

TEST_F(EditTest, TokenizedBasicAsksForTextAndThenForLineFeeds) {
    EditorLooks();
    Edit(kTokens, {Answer::Yes, Answer::Yes, Answer::Ok});
    EXPECT_EQ(MessageTexts(script_), (Texts{kToText, kLineFeeds, kWait}));
    for (const std::size_t question : {0U, 1U}) {
        EXPECT_EQ(script_.Messages[question].Choice, Buttons::YesNoCancel);
        EXPECT_EQ(script_.Messages[question].Icon, MessageIcon::Question);
        EXPECT_EQ(script_.Messages[question].Title, Disk.AppTitle);
    }
    EXPECT_EQ(script_.Messages[2].Choice, Buttons::Ok);
    EXPECT_EQ(given_, "\r\n10 CLS\r\n20 A\r\n");
}

TEST_F(EditTest, WithoutLineFeedsTheTextHasCrAlone) {
    EditorLooks();
    Edit(kTokens, {Answer::Yes, Answer::No, Answer::Ok});
    EXPECT_EQ(given_, TokensAsText());
}

TEST_F(EditTest, TokensThatStayTokensAskForNoLineFeeds) {
    EditorLooks();
    Edit(kTokens, {Answer::No, Answer::Ok});
    EXPECT_EQ(MessageTexts(script_), (Texts{kToText, kWait}));
    EXPECT_EQ(given_, CocoTokens());
}

TEST_F(EditTest, AZeroByteAsTheFormatIsTokenizedToo) {
    DirTable[kTokens].FormatChar = std::string(1, '\0');
    EditorLooks();
    Edit(kTokens, {Answer::No, Answer::Ok});
    EXPECT_EQ(MessageTexts(script_), (Texts{kToText, kWait}));
    DirTable[kTokens].FormatChar = " ";
    Edit(kTokens, {Answer::Ok});
    EXPECT_EQ(MessageTexts(script_), Texts{kWait});
}

TEST_F(EditTest, AsciiBasicAsksForLineFeedsOnly) {
    EditorLooks();
    Edit(kAscii, {Answer::Yes, Answer::Ok});
    EXPECT_EQ(MessageTexts(script_), (Texts{kLineFeeds, kWait}));
    EXPECT_EQ(given_, "10 CLS\r\n20 A\r\n");
}

TEST_F(EditTest, OtherFilesAndTheHexadecimalEditorAskNothing) {
    EditorLooks();
    Edit(kText, {Answer::Ok});
    EXPECT_EQ(MessageTexts(script_), Texts{kWait});
    EXPECT_EQ(given_, "a\rb\r");
    Edit(kTokens, {Answer::Ok}, kEditBytes);
    EXPECT_EQ(MessageTexts(script_), Texts{kWait});
    EXPECT_EQ(given_, CocoTokens());
}

TEST_F(EditTest, TheFirstCancelInEitherQuestionEndsTheRun) {
    EditorChangesA();
    for (const std::deque<Answer>& answers :
         {std::deque<Answer>{Answer::Cancel}, {Answer::Yes, Answer::Cancel}}) {
        script_.Messages.clear();
        script_.Answers = answers;
        SelectRows({kTokens, kAscii, kText});
        RunDisk(kEdit);
        EXPECT_EQ(script_.Messages.size(), answers.size());
        EXPECT_TRUE(script_.Programs.empty());
        EXPECT_EQ(Disk.DirRows, 4);
    }
}

TEST_F(EditTest, AFileEditedBeforeTheCancelStaysEdited) {
    EditorChangesA();
    SelectRows({kTokens, kAscii, kText});
    script_.Answers = {Answer::No, Answer::Ok, Answer::Cancel};
    RunDisk(kEdit);
    EXPECT_EQ(MessageTexts(script_), (Texts{kToText, kWait, kLineFeeds}));
    EXPECT_EQ(script_.Programs.size(), 1U);
    EXPECT_EQ(LiveRows(), "TOKENS.BAS ASCII.BAS TEXT.TXT HIGH.BIN TOKENS.BAS ");
}

// The temporary file

TEST_F(EditTest, TheEditorWorksBesideWhereTheFileWouldGo) {
    EditorLooks();
    Edit(kText, {Answer::Ok});
    EXPECT_EQ(path_, PcFolder + "/TEXT.TXT.TMP");
}

TEST_F(EditTest, ItIsThereWhileTheMessageWaitsAndForTheUserAlone) {
    EditorLooks();
    unsigned mode = 0;
    script_.OnMessage = [&](const ShownMessage&) {
        struct stat status {};
        if (stat(path_.c_str(), &status) == 0) mode = status.st_mode & 0777U;
    };
    Edit(kText, {Answer::Ok});
    EXPECT_EQ(mode, 0600U);
}

TEST_F(EditTest, AFileOfTheUserOfItsNameStays) {
    WriteTestFile(PcFolder, "TEXT.TXT.TMP", "the user's");
    left_ = {"TEXT.TXT.TMP"};
    EditorChangesA();
    Edit(kText, {Answer::Ok});
    EXPECT_EQ(path_, PcFolder + "/TEXT.TXT.1.TMP");
    EXPECT_EQ(PcFile("TEXT.TXT.TMP"), "the user's");
}

TEST_F(EditTest, ANameFromTheDiskLeadsNowhere) {
    const char* const rows[][2] = {
        {"../../UP.BAS", "---..-UP.BAS.TMP"}, {"$(rm).BAS", "$(rm).BAS.TMP"},
        {"a b;c.BAS", "a b;c.BAS.TMP"},       {"-rf", "-rf.TMP"},
        {"A\n\x01.B", "A--.B.TMP"},           {"", "-.TMP"}};
    EditorLooks();
    for (const auto& row : rows) {
        DirTable[kText].FullName = row[0];
        Edit(kText, {Answer::Ok});
        EXPECT_EQ(path_, PcFolder + "/" + row[1]);
    }
}

// What is stored

TEST_F(EditTest, AfterANotepadEditThatChangesNothingNothingIsWritten) {
    const std::string image = Disk.ImageBytes;
    EditorLooks();
    for (const int row : {kTokens, kAscii, kText, kHigh}) {
        for (const Answer text : {Answer::Yes, Answer::No}) {
            for (const Answer lines : {Answer::Yes, Answer::No}) {
                Edit(row, {text, lines, Answer::Ok});
                EXPECT_EQ(Disk.ImageBytes, image);
                EXPECT_EQ(Disk.DirRows, 4);
            }
        }
    }
    EXPECT_EQ(Disk.ImageModified, 0);
}

TEST_F(EditTest, WithLineFeedsATextGoesBackToTokens) {
    EditorChangesA();
    Edit(kTokens, {Answer::Yes, Answer::Yes, Answer::Ok});
    std::string expected = CocoTokens();
    expected[13] = 'B';
    EXPECT_EQ(DirTable[4].FullName, "TOKENS.BAS");
    EXPECT_EQ(DirTable[4].Content, expected);
    EXPECT_EQ(DirTable[4].FormatChar, "B");
    EXPECT_EQ(Disk.ImageModified, -1);
}

TEST_F(EditTest, WithoutThemItStaysTextEvenIfItHadBeenTokenized) {
    EditorChangesA();
    Edit(kTokens, {Answer::Yes, Answer::No, Answer::Ok});
    EXPECT_EQ(DirTable[4].Content, "\r10 CLS\r20 B\r");
    EXPECT_EQ(DirTable[4].FormatChar, "A");
}

TEST_F(EditTest, AnAsciiProgramWithLineFeedsBecomesTokens) {
    EditorChangesA();
    Edit(kAscii, {Answer::Yes, Answer::Ok});
    std::string expected = CocoTokens();
    expected[13] = 'B';
    EXPECT_EQ(DirTable[4].FullName, "ASCII.BAS");
    EXPECT_EQ(DirTable[4].Content, expected);
}

TEST_F(EditTest, TheTokensAreThoseOfTheOpenDisksMachine) {
    Disk.DiskFamily = kOs9;
    DirTable[kTokens].Content = DragonTokens();
    EditorChangesA();
    Edit(kTokens, {Answer::Yes, Answer::Yes, Answer::Ok});
    std::string expected = DragonTokens();
    expected[19] = 'B';
    EXPECT_EQ(DirTable[4].Content, expected);
}

TEST_F(EditTest, LineFeedsThatTheEditorAddsWithoutACrStay) {
    Editor([](const std::string& text) { return text + "\n"; });
    Edit(kText, {Answer::Ok});
    EXPECT_EQ(DirTable[4].Content, "a\rb\r\n");
}

TEST_F(EditTest, AChangeThatComesBackToTheSameBytesIsNotWritten) {
    Editor([](const std::string& text) { return ReplaceText(text, "10 CLS", "10   CLS"); });
    Edit(kTokens, {Answer::Yes, Answer::Yes, Answer::Ok});
    EXPECT_EQ(Disk.DirRows, 4);
}

TEST_F(EditTest, AFileWithFirstByte239IsStrippedAndStoredStrippedIfTheEditChangesIt) {
    for (const int index : {kEdit, kEditBytes}) {
        Editor([](const std::string& text) { return text + "!"; });
        Edit(kHigh, {Answer::Ok}, index);
        EXPECT_EQ(given_, "o\rkayA\r");
    }
    EXPECT_EQ(DirTable[4].Content, "o\rkayA\r!");
}

// Programs and files that fail

TEST_F(EditTest, WithoutAProgramNothingIsAskedAndNothingChanges) {
    script_.IsInstalled = [](const std::string&) { return false; };
    for (const int index : {kEdit, kEditBytes}) {
        Edit(kTokens, {Answer::Yes, Answer::Yes}, index);
        ASSERT_EQ(script_.Messages.size(), 1U);
        EXPECT_NE(script_.Messages[0].Text.find(index == kEdit ? "BRINDLEMOOR_EDITOR"
                                                               : "BRINDLEMOOR_HEXEDITOR"),
                  std::string::npos);
    }
    EXPECT_EQ(Disk.DirRows, 4);
}

TEST_F(EditTest, AnEditorThatFailsToStartIsToldAndNothingWaits) {
    script_.ProgramsStart = false;
    Edit(kText, {});
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_NE(script_.Messages[0].Text.find("BRINDLEMOOR_EDITOR"), std::string::npos);
    EXPECT_EQ(Disk.DirRows, 4);
}

TEST_F(EditTest, AnEditorThatDeletesTheFileChangesNothing) {
    script_.OnProgram = [](const StartedProgram& program) { fs::remove(program.Arguments[0]); };
    Edit(kText, {Answer::Ok});
    EXPECT_EQ(MessageTexts(script_), (Texts{kWait, "Error!!! 2 No such file or directory"}));
    EXPECT_EQ(Disk.DirRows, 4);
}

TEST_F(EditTest, AnEditorThatLeavesItEmptyChangesNothingAndTheUserIsTold) {
    EditorWrites("");
    for (const int language : {0, 1}) {
        Settings.LanguageIndex = language;
        Edit(kText, {Answer::Ok});
        ASSERT_EQ(script_.Messages.size(), 2U);
        EXPECT_NE(script_.Messages[1].Text.find("TEXT.TXT"), std::string::npos);
        EXPECT_EQ(Disk.DirRows, 4);
    }
}

TEST_F(EditTest, AnEditorThatLeavesAHundredMegabytesIsToldAndNothingIsAsked) {
    script_.OnProgram = [](const StartedProgram& program) {
        fs::resize_file(program.Arguments[0], 100U << 20U);
    };
    Edit(kText, {Answer::Ok});
    EXPECT_EQ(MessageTexts(script_), (Texts{kWait, "Error!!! 27 File too large"}));
    EXPECT_TRUE(script_.Prompts.empty());
    EXPECT_EQ(Disk.DirRows, 4);
}

TEST_F(EditTest, WhatDoesNotFitOnTheDiskIsToldAndNothingChanges) {
    EditorWrites(std::string(200000, 'x'));
    const std::string image = Disk.ImageBytes;
    Edit(kText, {Answer::Ok});
    ASSERT_EQ(script_.Messages.size(), 2U);
    EXPECT_NE(script_.Messages[1].Text.find("200,000"), std::string::npos);
    EXPECT_EQ(Disk.ImageBytes, image);
    EXPECT_EQ(DirTable[kText].Content, "a\rb\r");
}

TEST_F(EditTest, AConversionThatFailsOnTheWayBackChangesNothing) {
    std::string text;
    while (text.size() < 140000) text += "10 PRINT\"" + std::string(200, 'X') + "\"\r\n";
    EditorWrites(text);
    Edit(kTokens, {Answer::Yes, Answer::Yes, Answer::Ok});
    ASSERT_EQ(script_.Messages.size(), 4U);
    EXPECT_EQ(script_.Messages[3].Text.substr(0, 18), "Run-time error '6'");
    EXPECT_EQ(Disk.DirRows, 4);
}

TEST_F(EditTest, AnErrorInTheTokensMayBeGivenUpWhichEndsTheRun) {
    DirTable[kTokens].Content[7] = '\xFE';
    EditorLooks();
    SelectRows({kTokens, kText});
    script_.Answers = {Answer::Yes, Answer::Cancel};
    RunDisk(kEdit);
    EXPECT_EQ(script_.Messages.size(), 2U);
    EXPECT_TRUE(script_.Programs.empty());
}

TEST_F(EditTest, ATemporaryFileThatCannotBeWrittenIsTold) {
    const FileOperationsKept kept;
    FileOperations = FailingAt(FileStep::Write);
    Edit(kText, {});
    EXPECT_EQ(MessageTexts(script_), Texts{"Error!!! 28 No space left on device"});
    EXPECT_TRUE(script_.Programs.empty());
}

TEST_F(EditTest, AFolderThatIsGoneIsTold) {
    fs::rename(PcFolder, PcFolder + "2");
    Edit(kText, {});
    fs::rename(PcFolder + "2", PcFolder);
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text, "Error!!! 2 No such file or directory");
}

// The way in which a file is stored over itself, which deletes nothing

/// The row of the old file is the one that gets the bytes in the image, with its old length; the
/// new row has them in the table alone.
TEST_F(EditTest, TheOldRowIsPlacedAnewAndANewRowHoldsTheBytes) {
    EditorChangesA();
    Edit(kAscii, {Answer::No, Answer::Ok});
    EXPECT_EQ(LiveRows(), "TOKENS.BAS ASCII.BAS TEXT.TXT HIGH.BIN ASCII.BAS ");
    EXPECT_EQ(DirTable[4].Content, "10 CLS\r20 B\r");
    const auto granule = static_cast<std::size_t>(DirTable[kAscii].FirstUnit);
    const std::size_t place = (granule > 33 ? granule + 2 : granule) * 2304;
    EXPECT_EQ(Disk.ImageBytes.substr(place, 12), "10 CLS\r20 B\r");
}

/// What README says of an edit, so that it stays true.
TEST_F(EditTest, ALongerEditIsReadBackWithTheOldLengthAndTheOldGranuleStaysTaken) {
    Editor([](const std::string& text) { return text + "30 END\r"; });
    const auto before = static_cast<std::size_t>(DirTable[kAscii].FirstUnit);
    Edit(kAscii, {Answer::No, Answer::Ok});
    ReadDisk();
    EXPECT_EQ(DirTable[kAscii].Content, "10 CLS\r20 A\r");
    EXPECT_NE(DirTable[kAscii].FirstUnit, static_cast<std::int32_t>(before));
    EXPECT_NE(Disk.FatBytes[before], '\xFF');
}

TEST_F(EditTest, TheSaveButtonsCommitPutsTheOldBytesBack) {
    EditorChangesA();
    Edit(kAscii, {Answer::No, Answer::Ok});
    CommitDirectory();
    ReadDisk();
    EXPECT_EQ(DirTable[kAscii].Content, "10 CLS\r20 A\r");
}

}  // namespace
}  // namespace brindlemoor::test
