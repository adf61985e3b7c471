#include "convert/pc_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "convert/audio_fixture.h"
#include "convert/file_commands.h"
#include "convert/tape_fixture.h"
#include "core/disk_state.h"
#include "support/command_fixture.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/faulty_files.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

class PcCommandsTest : public CommandTest {
  protected:
    void SetUp() override {
        CommandTest::SetUp();
        DecbBuilder disk;
        disk.File(0, "OLD     ", "BAS", 0, 0, {5}, CocoTokens());
        OpenDisk(disk.Image());
    }
};

// Programs of the PC

TEST_F(PcCommandsTest, EachOfTheThreeStartsItsProgramOnTheFileItself) {
    SetVariable("BRINDLEMOOR_EDITOR", "text");
    SetVariable("BRINDLEMOOR_HEXEDITOR", "hex");
    SetVariable("BRINDLEMOOR_PAINT", "paint");
    SelectFiles({{"A.BAS", CocoTokens()}});
    for (const int index : {1, 2, 3}) RunPc(index);
    ASSERT_EQ(script_.Programs.size(), 3U);
    const char* const programs[] = {"text", "hex", "paint"};
    for (std::size_t place = 0; place < 3; ++place) {
        EXPECT_EQ(script_.Programs[place].Program, programs[place]);
        EXPECT_EQ(script_.Programs[place].Arguments, Texts{PcFolder + "/A.BAS"});
    }
    for (const char* name : {"BRINDLEMOOR_EDITOR", "BRINDLEMOOR_HEXEDITOR", "BRINDLEMOOR_PAINT"}) {
        SetVariable(name, "");
    }
}

TEST_F(PcCommandsTest, WhatWasMadeOfOneDriveNeverTakesThePlaceOfTheHardDisk) {
    constexpr std::uintmax_t kHardDisk = 94371840 + 1;
    SelectFiles({{"HARDCCC", "no dot, so that the name stays"}});
    fs::resize_file(PcFolder + "/HARDCCC", kHardDisk);
    RunPc(25);
    EXPECT_EQ(fs::file_size(PcFolder + "/HARDCCC"), kHardDisk);
    ASSERT_FALSE(script_.Messages.empty());
    EXPECT_EQ(script_.Messages.back().Text,
              "Only a part of this file was read, which therefore stays as it is:\r\n" + PcFolder +
                  "/HARDCCC");
    EXPECT_EQ(PcFiles(), Texts{"HARDCCC"});
}

TEST_F(PcCommandsTest, Command1OnAPcFileNeverConvertsAnything) {
    SelectFiles({{"A.BAS", CocoTokens()}, {"HIGH.TXT", "\xEF\xC1"}});
    RunPc(1);
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(PcFile("A.BAS"), CocoTokens());
    EXPECT_EQ(PcFile("HIGH.TXT"), "\xEF\xC1");
    EXPECT_EQ(script_.Programs.size(), 2U);
}

TEST_F(PcCommandsTest, OddNamesReachTheProgramAsTheyAre) {
    SelectFiles({{"$(rm).BAS", "x"}, {"-rf.BAS", "x"}, {"a b;c.BAS", "x"}});
    RunPc(1);
    ASSERT_EQ(script_.Programs.size(), 3U);
    EXPECT_EQ(script_.Programs[0].Arguments, Texts{PcFolder + "/$(rm).BAS"});
    EXPECT_EQ(script_.Programs[1].Arguments, Texts{PcFolder + "/-rf.BAS"});
    EXPECT_EQ(script_.Programs[2].Arguments, Texts{PcFolder + "/a b;c.BAS"});
}

TEST_F(PcCommandsTest, WithoutAProgramTheUserIsToldOnceForAllFiles) {
    script_.IsInstalled = [](const std::string&) { return false; };
    SelectFiles({{"A.BAS", "x"}, {"B.BAS", "x"}});
    RunPc(1);
    EXPECT_EQ(script_.Messages.size(), 1U);
    EXPECT_TRUE(script_.Programs.empty());
}

// Into the image

TEST_F(PcCommandsTest, ACopyGoesIntoTheImageByTheFilesName) {
    SelectFiles({{"new file.bas", CocoTokens()}});
    RunPc(6);
    EXPECT_EQ(LiveRows(), "OLD.BAS NEW-FILE.BAS ");
    EXPECT_EQ(DirTable[1].Content, CocoTokens());
    EXPECT_EQ(DirTable[1].FormatChar, "B");
    // granule 32, in front of the directory
    EXPECT_EQ(Disk.ImageBytes.substr(std::size_t{32} * 2304, 17), CocoTokens());
    EXPECT_TRUE(script_.Prompts.empty());
}

TEST_F(PcCommandsTest, AnEmptyFileIsCopiedToo) {
    SelectFiles({{"EMPTY.DAT", ""}});
    RunPc(6);
    EXPECT_EQ(LiveRows(), "OLD.BAS EMPTY.DAT ");
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(PcCommandsTest, ANameThatIsThereAsksAndTheAnswerIsTheName) {
    SelectFiles({{"old.bas", "new text"}});
    script_.Texts = {"other.bas"};
    RunPc(6);
    ASSERT_EQ(script_.Prompts.size(), 1U);
    EXPECT_EQ(script_.Prompts[0].Suggestion, "OLD.BAS");
    EXPECT_EQ(LiveRows(), "OLD.BAS OTHER.BAS ");
    EXPECT_EQ(DirTable[0].Content, CocoTokens());
}

TEST_F(PcCommandsTest, GivingThatQuestionUpEndsTheRunAndWhatIsDoneStays) {
    SelectFiles({{"A.BAS", "a"}, {"OLD.BAS", "b"}, {"Z.BAS", "c"}});
    RunPc(6);
    EXPECT_EQ(script_.Prompts.size(), 1U);
    EXPECT_EQ(LiveRows(), "OLD.BAS A.BAS ");
}

// Deleting

TEST_F(PcCommandsTest, OneFileIsDeletedAfterAQuestionWithItsPath) {
    SelectFiles({{"A.BAS", "x"}});
    RunPc(7);
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text,
              "Are you sure you want to delete the file: \r\n" + PcFolder + "/A.BAS");
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::OkCancel);
    EXPECT_EQ(script_.Messages[0].Icon, MessageIcon::Question);
    EXPECT_EQ(script_.Messages[0].Title, Disk.AppTitle);
    EXPECT_EQ(PcFile("A.BAS"), "x");
    script_.Answers = {Answer::Ok};
    RunPc(7);
    EXPECT_EQ(PcFiles(), Texts{});
    EXPECT_EQ(SelectedPcFile(), "");
}

TEST_F(PcCommandsTest, SeveralFilesAreDeletedAfterOneQuestionWithTheirNumber) {
    SelectFiles({{"A.BAS", "x"}, {"B.BAS", "x"}, {"C.BAS", "x"}});
    RunPc(7);
    EXPECT_EQ(MessageTexts(script_), Texts{"Are you sure you want to delete this files: 3"});
    EXPECT_EQ(PcFiles().size(), 3U);
    script_.Answers = {Answer::Ok};
    RunPc(7);
    EXPECT_EQ(script_.Messages.size(), 2U);
    EXPECT_EQ(PcFiles(), Texts{});
}

TEST_F(PcCommandsTest, AFileThatCannotBeDeletedIsToldAndTheOthersGo) {
    SelectFiles({{"A.BAS", "x"}, {"B.BAS", "x"}, {"C.BAS", "x"}});
    fs::remove(PcFolder + "/A.BAS");
    fs::remove(PcFolder + "/B.BAS");
    fs::create_directory(PcFolder + "/B.BAS");
    script_.Answers = {Answer::Ok};
    RunPc(7);
    EXPECT_EQ(MessageTexts(script_),
              (Texts{"Are you sure you want to delete this files: 3",
                     "Error!!! 2 No such file or directory", "Error!!! 21 Is a directory"}));
    EXPECT_EQ(PcFiles(), Texts{"B.BAS"});
}

TEST_F(PcCommandsTest, OfALinkTheLinkGoes) {
    const std::string target = WriteTestFile(Base, "target", "x");
    fs::create_symlink(target, PcFolder + "/LINK.BAS");
    RefreshPcFiles();
    SelectFiles({{"LINK.BAS", "x"}});
    script_.Answers = {Answer::Ok};
    RunPc(7);
    EXPECT_EQ(PcFiles(), Texts{});
    EXPECT_EQ(FileBytes(target), "x");
}

// BASIC in place

TEST_F(PcCommandsTest, BasicChangesItsFormInPlaceWithoutAQuestion) {
    for (const int index : {20, 26, 27}) {
        SelectFiles({{"A.BAS", CocoTokens()}});
        RunPc(index);
        EXPECT_EQ(PcFile("A.BAS"), TokensAsText()) << index;
        RunPc(index);
        EXPECT_EQ(PcFile("A.BAS"), CocoTokens()) << index;
    }
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_TRUE(script_.Prompts.empty());
}

TEST_F(PcCommandsTest, TextBecomesTokensOfTheOpenDisksMachine) {
    Disk.DiskFamily = kDragon;
    SelectFiles({{"A.BAS", TokensAsText()}});
    RunPc(26);
    EXPECT_EQ(PcFile("A.BAS"), DragonTokens());
}

TEST_F(PcCommandsTest, CancelAtAnErrorInTheTokensEndsTheRunAndOkGoesOn) {
    std::string wrong = CocoTokens();
    wrong[7] = '\xFE';
    for (const int index : {20, 26, 27}) {
        for (const Answer answer : {Answer::Ok, Answer::Cancel}) {
            const bool cancel = answer == Answer::Cancel;
            SelectFiles({{"A.BAS", CocoTokens()}, {"B.BAS", wrong}, {"C.BAS", CocoTokens()}});
            script_.Answers = {answer};
            RunPc(index);
            EXPECT_EQ(PcFile("A.BAS"), TokensAsText());
            EXPECT_EQ(PcFile("B.BAS") == wrong, cancel);
            EXPECT_EQ(PcFile("C.BAS") == CocoTokens(), cancel);
        }
    }
}

TEST_F(PcCommandsTest, OfManyFilesTheBytesAreFlushedOneByOneTheirNamesTogether) {
    const FileOperationsKept kept;
    Texts flushed;
    FileOperations = Watching([&flushed](FileStep step) {
        if (step == FileStep::FlushToDisk) flushed.emplace_back("bytes");
        if (step == FileStep::FlushFolder) flushed.emplace_back("names");
    });
    FileOperations.FlushFileSystem = [&flushed](const std::string& folder) {
        flushed.push_back(folder);
        return std::error_code();
    };
    SelectFiles({{"A.BAS", CocoTokens()}, {"B.BAS", CocoTokens()}});
    RunPc(20);
    EXPECT_EQ(PcFile("B.BAS"), TokensAsText());
    EXPECT_EQ(flushed, (Texts{"bytes", "bytes", PcFolder}));
    flushed.clear();
    SelectFiles({{"A.BAS", CocoTokens()}});
    RunPc(20);
    EXPECT_EQ(flushed, (Texts{"bytes", "names"}));
}

TEST_F(PcCommandsTest, FilesThatAreDoneAreFlushedAlsoWhenAFailureEndsTheRun) {
    const FileOperationsKept kept;
    int flushed = 0;
    CountCommonFlushes(flushed);
    std::string wrong = CocoTokens();
    wrong[7] = '\xFE';
    SelectFiles({{"A.BAS", CocoTokens()}, {"B.BAS", wrong}});
    Platform.ShowMessage = [](auto&&...) -> Answer { throw std::bad_alloc(); };
    EXPECT_ANY_THROW(RunPc(20));
    EXPECT_EQ(PcFile("A.BAS"), TokensAsText());
    EXPECT_EQ(flushed, 1);
}

TEST_F(PcCommandsTest, AConversionThatFailsIsToldAndStoresNothing) {
    const std::string negative = "\xFF\xFF\xFFrest";
    SelectFiles({{"A.BAS", negative}, {"B.BAS", CocoTokens()}});
    RunPc(20);
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text.substr(0, 18), "Run-time error '5'");
    EXPECT_EQ(PcFile("A.BAS"), negative);
    EXPECT_EQ(PcFile("B.BAS"), TokensAsText());
}

TEST_F(PcCommandsTest, AnEmptyFileStaysAsItIs) {
    SelectFiles({{"A.BAS", ""}});
    for (const int index : {20, 26, 27}) RunPc(index);
    EXPECT_EQ(PcFile("A.BAS"), "");
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(PcCommandsTest, AFileThatMayNotBeWrittenIsToldAndStays) {
    SelectFiles({{"A.BAS", CocoTokens()}});
    fs::permissions(PcFolder + "/A.BAS", fs::perms::owner_read);
    RunPc(20);
    EXPECT_EQ(MessageTexts(script_), Texts{"Error!!! 13 Permission denied"});
    EXPECT_EQ(PcFile("A.BAS"), CocoTokens());
}

// Tapes

TEST_F(PcCommandsTest, AFileBecomesATapeNamedWithADotAtItsEnd) {
    SelectFiles({{"PROG.BAS", CocoTokens()}});
    RunPc(23);
    // The length field says 14, so that the body is what stands behind the field.
    const std::string expected =
        Leader() + TapeBlock(0, NameBody("PROG    ", 0, 0, 0, std::string(4, '\0'))) + Leader() +
        TapeBlock(1, CocoTokens().substr(3)) + TapeBlock(255, "");
    EXPECT_EQ(PcFile("PROG."), expected);
    EXPECT_EQ(PcFile("PROG.BAS"), CocoTokens());
}

TEST_F(PcCommandsTest, ATapeBecomesAFileNextToItByItsOwnName) {
    SelectFiles({{"TAPE.CAS", WholeTape(NameBody("HELLO   ", 0, 0, 0, std::string(4, '\0')),
                                        CocoTokens().substr(3))}});
    RunPc(23);
    EXPECT_EQ(PcFile("HELLO.BAS"), CocoTokens());
    EXPECT_EQ(PcFiles(), (Texts{"HELLO.BAS", "TAPE.CAS"}));
}

TEST_F(PcCommandsTest, TheNameOnATapeLeadsNowhere) {
    const char* const rows[][2] = {{"../../UP", "---..-UP.BAS"},
                                   {"/etc/X  ", "-etc-X.BAS"},
                                   {"..      ", "---BAS"},
                                   {"        ", "-BAS"},
                                   {"-rf     ", "-rf.BAS"},
                                   {"A\nB\x7F"
                                    "    ",
                                    "A-B-.BAS"}};
    for (const auto& row : rows) {
        SelectFiles(
            {{"TAPE.CAS", WholeTape(NameBody(row[0], 0, 0, 0, std::string(4, '\0')), "body")}});
        RunPc(23);
        EXPECT_NE(PcFile(row[1]), "(none)") << row[0];
        fs::remove(PcFolder + "/" + row[1]);
        EXPECT_EQ(PcFiles(), Texts{"TAPE.CAS"}) << row[0];
    }
}

TEST_F(PcCommandsTest, AnAsciiFileStopsTheTapeAndNothingIsStored) {
    SelectFiles({{"A.BAS", TokensAsText()}});
    RunPc(23);
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text.substr(0, 19), "Run-time error '17'");
    EXPECT_EQ(PcFiles(), Texts{"A.BAS"});
}

TEST_F(PcCommandsTest, ATapeGivesNothingWhileAnotherFamilyIsOpen) {
    Disk.DiskFamily = kOs9;
    SelectFiles(
        {{"TAPE.CAS", WholeTape(NameBody("HELLO   ", 0, 0, 0, std::string(4, '\0')), "body")}});
    RunPc(23);
    EXPECT_EQ(PcFiles(), Texts{"TAPE.CAS"});
}

// Sound

TEST_F(PcCommandsTest, ATapeBecomesSoundUnderItsOwnNameAndStays) {
    GiveAudioOptions({{"SilenceStart", "1"}, {"SampleRate", "11025"}});
    const std::string tape = Leader() + TapeBlock(255, "");
    SelectFiles({{"TAPE.ONE.CAS", tape}});
    RunPc(24);
    EXPECT_EQ(PcFile("TAPE.WAV").substr(0, 4), "RIFF");
    EXPECT_EQ(PcFile("TAPE.ONE.CAS"), tape);
    EXPECT_EQ(PcFiles(), (Texts{"TAPE.ONE.CAS", "TAPE.WAV"}));
}

TEST_F(PcCommandsTest, OtherFilesAreNoSoundAndNothingIsStored) {
    SelectFiles({{"A.BIN", "x"}});
    RunPc(24);
    EXPECT_EQ(MessageTexts(script_), Texts{"El Archivo de entrada debe ser CAS o WAV"});
    EXPECT_EQ(PcFiles(), Texts{"A.BIN"});
}

// Cartridges

TEST_F(PcCommandsTest, ARomGoesIntoItsFrameAndBack) {
    const std::string rom = Pattern(300, 1);
    SelectFiles({{"ROM.ccc", rom}});
    RunPc(25);
    const std::string framed =
        std::string("\xC0\0\x2C\x01", 4) + rom + std::string("\xC0\0", 2) + std::string(33, '\0');
    EXPECT_EQ(PcFile("ROM.PAK"), framed);
    fs::remove(PcFolder + "/ROM.ccc");
    SelectFiles({{"ROM.PAK", framed}});
    RunPc(25);
    EXPECT_EQ(PcFile("ROM.CCC"), rom);
}

TEST_F(PcCommandsTest, ADotInTheFoldersNameBeginsNoExtension) {
    const std::string folder = PcFolder + "/a.b";
    fs::create_directory(folder);
    ShowPcFolder(folder);
    PcFolder = folder;
    SelectFiles({{"ROM", std::string(50, 'r')}});
    RunPc(25);
    EXPECT_EQ(PcFiles(), Texts{"ROM"});
    EXPECT_EQ(PcFile("ROM"), std::string(11, 'r'));  // without a dot the name stays
}

TEST_F(PcCommandsTest, ATargetThatIsAFolderIsToldAndStays) {
    fs::create_directory(PcFolder + "/ROM.PAK");
    SelectFiles({{"ROM.CCC", "rom"}});
    RunPc(25);
    EXPECT_EQ(MessageTexts(script_), Texts{"Error!!! 21 Is a directory"});
    EXPECT_TRUE(fs::is_directory(PcFolder + "/ROM.PAK"));
    EXPECT_EQ(PcFile("ROM.CCC"), "rom");
}

TEST_F(PcCommandsTest, WhatAConversionMadeStandsInTheFileList) {
    SelectFiles({{"ROM.CCC", "rom"}});
    RunPc(25);
    const auto& items = PrincipalControl("File1").Items;
    EXPECT_NE(std::find(items.begin(), items.end(), "ROM.PAK"), items.end());
}

}  // namespace
}  // namespace brindlemoor::test
