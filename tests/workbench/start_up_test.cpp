// The start-up in its order, the restart with the image that was open last, and the closing.

#include "workbench/start_up.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "convert/basic_words.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "core/settings.h"
#include "core/settings_text.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

using test::DecbBuilder;
using test::FailureOf;
using test::WriteTestFile;
using Texts = std::vector<std::string>;

class StartUpTest : public test::WorkbenchTest {
  protected:
    /// A settings file as a run of the program leaves it, with these values of its own keys.
    void GiveOwnKeys(const std::string& keys) {
        GiveDefaultSettings("\r\n[Audio Options]", "\r\n" + keys + "\r\n[Audio Options]");
    }

    static std::string DiskImage() {
        return DecbBuilder()
            .File(0, "HELLO   ", "BAS", 0, 0, {3}, "abc")
            .DiskName("GAMES DISK")
            .Image();
    }

    /// A folder beside `PcFolder` with a disk in it; returns the path of the disk.
    std::string OtherDisk(const std::string& name = "GAMES.DSK") const {
        const std::string folder = PcFolder + "/disks";
        fs::create_directories(folder);
        return WriteTestFile(folder, name, DiskImage());
    }

    static const Control& Files() { return PrincipalControl("File1"); }
};

// The order of the steps

TEST_F(StartUpTest, TitleAndCursorAreSetBeforeTheSettingsAreRead) {
    GiveDefaultSettings("Version=1.1.3", "Version=1.0.0");
    bool asked = false;
    script_.OnMessage = [&](const ShownMessage& message) {
        asked = true;
        EXPECT_EQ(message.Title, "Brindlemoor");
        EXPECT_EQ(Disk.DirCount, -1);
        EXPECT_EQ(Disk.AppTitle, "Brindlemoor");
        EXPECT_EQ(Principal.Caption, "Brindlemoor Version: 1.1.3");
        EXPECT_EQ(PrincipalControl("OpciónChar"_w).ListIndex, 0);
        EXPECT_EQ(PrincipalControl("DirPattern").ListIndex, -1);
        EXPECT_EQ(PrincipalControl("Label3").Text, "Directorio CoCo:");
    };
    script_.Answers = {Answer::No};
    Start();
    EXPECT_TRUE(asked);
}

TEST_F(StartUpTest, TheWordsOfBasicAreBuiltFirst) {
    for (auto* list : {&CocoCommands, &CocoFunctions, &DragonCommands, &DragonFunctions}) {
        list->clear();
    }
    GiveDefaultSettings("Version=1.1.3", "Version=1.0.0");
    script_.Answers = {Answer::Cancel};
    EXPECT_FALSE(StartUp());
    EXPECT_EQ(CocoCommands.size(), 121U);
    EXPECT_EQ(CocoFunctions.size(), 46U);
    EXPECT_EQ(DragonCommands.size(), 104U);
    EXPECT_EQ(DragonFunctions.size(), 41U);
}

TEST_F(StartUpTest, TheFirstStartAsksNothingAndShowsEnglish) {
    Start();
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(Principal.Caption, "Brindlemoor Version: 1.1.3");
    EXPECT_EQ(Settings.CurrentLanguage, "English");
    EXPECT_TRUE(MenuOf(Principal, "LanguageMenu").Items[0].Checked);
    EXPECT_EQ(PrincipalControl("Label5").Text, "Type:");
    EXPECT_EQ(MenuOf(Principal, "FilesMenu").Items[8].Caption, "Exit");
    EXPECT_EQ(MenuOf(Principal, "OptionsMenu").Items[5].Caption, "Opciones");
}

TEST_F(StartUpTest, TheFirstStartAddsItsKeysInTheOrderOfTheSteps) {
    Start();
    EXPECT_EQ(SettingsFile(),
              ReplaceText(DefaultSettingsText(), "\r\n[Audio Options]",
                          "\r\nOpciónCharActual=2\r\nArchivoActual=\r\nMuestraActual=5"
                          "\r\n[Audio Options]"_w));
}

TEST_F(StartUpTest, AFileThatHoldsWhatTheStartUpStoresIsLeftUntouched) {
    GiveOwnKeys("OpciónCharActual=2\r\nArchivoActual=\r\nMuestraActual=5"_w);
    const std::string before = SettingsFile();
    Start();
    EXPECT_EQ(SettingsFile(), before);
}

TEST_F(StartUpTest, CancelEndsTheProgramOnTheSpot) {
    GiveDefaultSettings("Version=1.1.3", "Version=1.0.0");
    const std::string before = SettingsFile();
    script_.Answers = {Answer::Cancel};
    EXPECT_FALSE(StartUp());
    EXPECT_EQ(SettingsFile(), before);
    EXPECT_EQ(PrincipalControl("OpciónChar"_w).ListIndex, 0);
    EXPECT_EQ(PrincipalControl("DirPattern").ListIndex, -1);
}

TEST_F(StartUpTest, NoRunsWithTheKeysOfTheOldFile) {
    GiveSettings(
        "[General]\r\nVersion=1.0.0\r\nCurrentLanguage=English\r\nAnchoActual=77\r\n"
        "[Audio Options]\r\n[English]\r\nLabel5=Kind:");
    script_.Answers = {Answer::No};
    Start();
    EXPECT_EQ(PrincipalControl("Anchos").Text, "77");
    EXPECT_EQ(PrincipalControl("Label5").Text, "Kind:");
    EXPECT_EQ(Stored("Version"), "1.0.0");
    EXPECT_EQ(Stored("MuestraActual"), "5");
}

TEST_F(StartUpTest, FailsWhereTheSettingsFileCannotBeMade) {
    WriteTestFile(Base, "file", "");
    test::SetVariable("appdata", Base + "/file");
    EXPECT_NE(FailureOf([] { StartUp(); }), 0);
}

TEST_F(StartUpTest, AKeyThatNamesNoControlFailsWith730) {
    GiveDefaultSettings("[English]\r\n", "[English]\r\nLabel99=x\r\n");
    EXPECT_EQ(FailureOf([] { StartUp(); }), 730);
}

TEST_F(StartUpTest, TheSpanishStartLoadsTenConversions) {
    GiveDefaultSettings("CurrentLanguage=English", "CurrentLanguage=Spanish");
    Start();
    EXPECT_EQ(MenuOf(Principal, "ConvMenu").Items.size(), 10U);
    EXPECT_EQ(PrincipalControl("VerBorrados").Text, "Ver # Borrados");
}

// What is forced at every start

TEST_F(StartUpTest, TheCharacterSetIsForcedToCocoBasAndStored) {
    GiveOwnKeys("OpciónCharActual=0"_w);
    Start();
    EXPECT_EQ(PrincipalControl("OpciónChar"_w).ListIndex, 2);
    EXPECT_EQ(PrincipalControl("OpciónChar"_w).Text, "CoCo Bas");
    EXPECT_EQ(Stored("OpciónCharActual"_w), "2");
}

TEST_F(StartUpTest, ThePatternIsForcedToAllFilesAndStored) {
    GiveOwnKeys("MuestraActual=1");
    Start();
    EXPECT_EQ(PrincipalControl("DirPattern").ListIndex, 5);
    EXPECT_EQ(PrincipalControl("DirPattern").Text, "All files: *.*");
    EXPECT_EQ(Files().Pattern, "*.*");
    EXPECT_EQ(Stored("MuestraActual"), "5");
}

TEST_F(StartUpTest, APatternThatWasAddedByHandDoesNotKeepTheProgramFromStarting) {
    GiveDefaultSettings("All files: *.*", "All files: *.*,Mine: *.MNE");
    Start();
    ClickListEntry(PrincipalControl("DirPattern"), 6);
    EXPECT_EQ(Files().Pattern, "*.MNE");
    EXPECT_EQ(Stored("MuestraActual"), "6");
    BuildAgain();
    Start();
    EXPECT_EQ(PrincipalControl("DirPattern").Items.size(), 7U);
    EXPECT_EQ(PrincipalControl("DirPattern").ListIndex, 5);
}

TEST_F(StartUpTest, WidthAndBasicModeComeFromTheFile) {
    GiveOwnKeys("AnchoActual=64\r\nVerAscActual=2");
    Start();
    EXPECT_EQ(PrincipalControl("Anchos").Text, "64");
    EXPECT_EQ(PrincipalControl("VerAsc").ListIndex, 2);
    EXPECT_EQ(Stored("AnchoActual"), "64");
    EXPECT_EQ(Stored("VerAscActual"), "2");
}

TEST_F(StartUpTest, TheTitlesTagIsTheCaptionAlsoWithoutAText) {
    GiveDefaultSettings("Label3=CoCo Directory:\r\n", "");
    Start();
    EXPECT_EQ(PrincipalControl("Label3").Tag, "Directorio CoCo:");
}

TEST_F(StartUpTest, TheTitlesTagIsTheLanguagesCaption) {
    Start();
    EXPECT_EQ(PrincipalControl("Label3").Tag, "CoCo Directory:");
}

TEST_F(StartUpTest, TheAlternateRowColourOfANewFileChangesNothing) {
    Start();
    EXPECT_EQ(ListDirec.AlternateRowBackColour, 0xE6FCFC);
    EXPECT_EQ(Settings.ColourOptions[kAlternateRowColour].Name, "");
}

TEST_F(StartUpTest, AnAlternateRowColourWithACapitalGIsTaken) {
    GiveOwnKeys("AlternateRowBackGroundColor=255");
    Start();
    EXPECT_EQ(ListDirec.AlternateRowBackColour, 255);
}

// The image that was open last

TEST_F(StartUpTest, WithoutAStoredFileNothingOpensAndTheDriveStays) {
    script_.Drives = {{"/", "root"}, {PcFolder, "pc"}};
    BuildAgain();
    Start();
    EXPECT_EQ(Stored("ArchivoActual"), "");
    EXPECT_EQ(PrincipalControl("Drive1").ListIndex, 1);
    EXPECT_EQ(PrincipalControl("Dir1").Path, PcFolder);
    EXPECT_EQ(PrincipalControl("FilePath").Text, "");
    EXPECT_TRUE(Disk.ImageBytes.empty());
    EXPECT_EQ(Files().ListIndex, -1);
}

TEST_F(StartUpTest, TheRestartOpensTheLastImageAgain) {
    const std::string disk = OtherDisk();
    WriteTestFile(PcFolder + "/disks", "FIRST.TXT", "");
    Start();
    ShowPcFolder(PcFolder + "/disks");
    SetListIndex(PrincipalControl("File1"), 1);
    ClosePrincipal();
    EXPECT_EQ(Stored("ArchivoActual"), disk);

    BuildAgain();
    EXPECT_TRUE(Disk.ImageBytes.empty());
    Start();
    EXPECT_EQ(Disk.ImageBytes, DiskImage());
    EXPECT_EQ(PrincipalControl("Dir1").Path, PcFolder + "/disks");
    EXPECT_EQ(Files().Path, PcFolder + "/disks");
    EXPECT_EQ(SelectedPcFile(), "GAMES.DSK");
    EXPECT_EQ(PrincipalControl("FilePath").Text, disk);
    EXPECT_EQ(PrincipalControl("PathDsk").Text, disk);
    EXPECT_EQ(PrincipalControl("Label3").Text, "CoCo Directory:  GAMES DISK");
    ASSERT_EQ(ListDirec.Rows.size(), 1U);
    EXPECT_EQ(CellOf(ListDirec, 1, 1).Text, "HELLO   ");
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(StartUpTest, AFileThatIsNoImageIsSelectedAgainAndLoaded) {
    const std::string path = WriteTestFile(PcFolder, "NOTES.TXT", "text");
    GiveOwnKeys("ArchivoActual=" + path);
    BuildAgain();
    Start();
    EXPECT_EQ(SelectedPcFile(), "NOTES.TXT");
    EXPECT_EQ(Disk.PcFileBytes, "text");
    EXPECT_EQ(PrincipalControl("FilePath").Text, path);
    EXPECT_EQ(PrincipalControl("PathDsk").Text, "");
}

TEST_F(StartUpTest, AVanishedImageLeavesItsFolderShownAndNothingSelected) {
    fs::create_directories(PcFolder + "/disks");
    WriteTestFile(PcFolder + "/disks", "OTHER.DSK", DiskImage());
    GiveOwnKeys("ArchivoActual=" + PcFolder + "/disks/GAMES.DSK");
    Start();
    EXPECT_EQ(PrincipalControl("Dir1").Path, PcFolder + "/disks");
    EXPECT_EQ(Files().Items, (Texts{"OTHER.DSK"}));
    EXPECT_EQ(Files().ListIndex, -1);
    EXPECT_EQ(PrincipalControl("FilePath").Text, "");
    EXPECT_TRUE(Disk.ImageBytes.empty());
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(StartUpTest, TheStoredNameIsComparedExactly) {
    OtherDisk("games.dsk");
    GiveOwnKeys("ArchivoActual=" + PcFolder + "/disks/GAMES.DSK");
    Start();
    EXPECT_EQ(Files().Items.size(), 1U);
    EXPECT_EQ(Files().ListIndex, -1);
    EXPECT_TRUE(Disk.ImageBytes.empty());
}

TEST_F(StartUpTest, AVanishedFolderOrNonsenseIsNoFailure) {
    for (const std::string& path :
         {PcFolder + "/gone/GAMES.DSK", std::string("Q:\\gone\\GAMES.DSK"),
          std::string("no separator"), std::string("/"), std::string("\\")}) {
        GiveOwnKeys("ArchivoActual=" + path);
        BuildAgain();
        Start();
        EXPECT_TRUE(Disk.ImageBytes.empty()) << path;
        EXPECT_EQ(PrincipalControl("FilePath").Text, "") << path;
        EXPECT_EQ(PrincipalControl("DirPattern").ListIndex, 5) << path;
        EXPECT_TRUE(script_.Messages.empty()) << path;
    }
}

TEST_F(StartUpTest, AVanishedFolderLeavesThePaneAsItWas) {
    GiveOwnKeys("ArchivoActual=" + PcFolder + "/gone/GAMES.DSK");
    Start();
    EXPECT_EQ(PrincipalControl("Dir1").Path, PcFolder);
    EXPECT_EQ(Files().Path, PcFolder);
}

TEST_F(StartUpTest, TheLastImageIsLookedForUnderTheStoredPattern) {
    // The pattern for Dragon disks hides the file when it is looked for, and is replaced after.
    const std::string disk = OtherDisk();
    GiveOwnKeys("MuestraActual=2\r\nArchivoActual=" + disk);
    Start();
    EXPECT_EQ(Files().Items, (Texts{"GAMES.DSK"}));
    EXPECT_EQ(Files().ListIndex, -1);
    EXPECT_TRUE(Disk.ImageBytes.empty());
}

TEST_F(StartUpTest, TheLastPatternDoesNotLoseTheSelection) {
    GiveOwnKeys("MuestraActual=1\r\nArchivoActual=" + OtherDisk());
    Start();
    EXPECT_EQ(SelectedPcFile(), "GAMES.DSK");
    EXPECT_EQ(Disk.ImageBytes, DiskImage());
}

TEST_F(StartUpTest, AnImageThatCannotBeReadLeavesTheProgramRunning) {
    // Without column widths the grid cannot be filled.
    const std::string widths = "65,33,17,17,26,26,60,60,50,55,33,110,110,33,33,33,40,333";
    const std::string own = "\r\nArchivoActual=" + OtherDisk();
    GiveDefaultSettings("ColumnWidths=" + widths, "ColumnWidths=" + own);
    Start();
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text.substr(0, 19), "Run-time error '9':");
    EXPECT_TRUE(Disk.ImageBytes.empty());
    EXPECT_FALSE(script_.Ended);
    EXPECT_EQ(PrincipalControl("DirPattern").ListIndex, 5);
}

// Closing

TEST_F(StartUpTest, ClosingStoresTheSelectedFileAndNothingElse) {
    WriteTestFile(PcFolder, "A.BIN", "a");
    Start();
    SetFile1Path(PcFolder);
    RefreshPcFiles();
    SetListIndex(PrincipalControl("File1"), 0);
    const std::string before = SettingsFile();
    SetText(PrincipalControl("FilePath"), "elsewhere");
    ClosePrincipal();
    EXPECT_EQ(SettingsFile(),
              ReplaceText(before, "ArchivoActual=", "ArchivoActual=" + PcFolder + "/A.BIN"));
}

TEST_F(StartUpTest, ClosingWithoutASelectionKeepsTheFolder) {
    Start();
    fs::create_directories(PcFolder + "/disks");
    ShowPcFolder(PcFolder + "/disks");
    ClosePrincipal();
    EXPECT_EQ(Stored("ArchivoActual"), PcFolder + "/disks/");
    BuildAgain();
    Start();
    EXPECT_EQ(Files().Path, PcFolder + "/disks");
    EXPECT_EQ(Files().ListIndex, -1);
}

TEST_F(StartUpTest, ClosingAsksNothingAboutAChangedImage) {
    Start();
    Disk.ImageModified = -1;
    ClosePrincipal();
    EXPECT_TRUE(script_.Messages.empty());
}

}  // namespace
}  // namespace brindlemoor
