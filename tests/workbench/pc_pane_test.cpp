#include "workbench/pc_pane.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/byte_helpers.h"
#include "core/runtime_failure.h"
#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

using test::FailureOf;
using test::WriteTestFile;
using Texts = std::vector<std::string>;

/// A started program whose pane shows `PcFolder`: in it the folders "disks" (with "A.DSK") and
/// "tapes", and the files "B.BAS", "c.txt" and "D.DSK".
class PcPaneTest : public test::WorkbenchTest {
  protected:
    void SetUp() override {
        WorkbenchTest::SetUp();
        fs::create_directories(PcFolder + "/tapes");
        fs::create_directories(Disks());
        WriteTestFile(Disks(), "A.DSK", "small");
        for (const char* name : {"B.BAS", "c.txt", "D.DSK"}) WriteTestFile(PcFolder, name, name);
        script_.Drives = {{"/", "System"}, {PcFolder + "/tapes", "Tapes"}, {"", "no path"}};
        BuildAgain();
        Start();
    }

    std::string Disks() const { return PcFolder + "/disks"; }

    static Control& Drives() { return PrincipalControl("Drive1"); }
    static Control& Folders() { return PrincipalControl("Dir1"); }
    static Control& Files() { return PrincipalControl("File1"); }
    static Control& Patterns() { return PrincipalControl("DirPattern"); }

    /// The index in `Dir1` of the folder of that path.
    static int FolderIndex(const std::string& path) {
        const Texts& paths = Folders().ItemTags;
        return static_cast<int>(std::find(paths.begin(), paths.end(), path) - paths.begin());
    }

    /// Types a path and leaves the box.
    static void Visit(const std::string& path) {
        SetText(PrincipalControl("FilePath"), path);
        PrincipalControl("FilePath").Leave();
    }
};

// Folders and drives

TEST_F(PcPaneTest, StartsInTheFolderInWhichTheProgramWasStarted) {
    EXPECT_EQ(Folders().Path, PcFolder);
    EXPECT_EQ(Files().Path, PcFolder);
    EXPECT_EQ(Files().Items, (Texts{"B.BAS", "c.txt", "D.DSK"}));
    EXPECT_EQ(Files().ListIndex, -1);
    EXPECT_EQ(SelectedPcFile(), "");
}

TEST_F(PcPaneTest, TheFolderListHoldsThePathDownAndTheFoldersBelow) {
    const Control& list = Folders();
    ASSERT_EQ(list.Items.size(), list.ItemTags.size());
    ASSERT_EQ(list.Items.size(), list.ItemIndents.size());
    EXPECT_EQ(list.ItemTags.front(), "/");
    EXPECT_EQ(list.Items.front(), "/");
    const auto current = static_cast<std::size_t>(list.ListIndex);
    ASSERT_EQ(current + 3, list.Items.size());
    EXPECT_EQ(list.ItemTags[current], PcFolder);
    EXPECT_EQ(list.Items[current], "pc");
    EXPECT_EQ(list.Items[current + 1], "disks");
    EXPECT_EQ(list.ItemTags[current + 2], PcFolder + "/tapes");
    for (std::size_t entry = 0; entry <= current + 1; ++entry) {
        EXPECT_EQ(list.ItemIndents[entry], static_cast<int>(entry));
    }
    EXPECT_EQ(list.ItemIndents[current + 2], list.ItemIndents[current + 1]);
}

TEST_F(PcPaneTest, EnterGoesIntoTheMarkedFolderAndBackUp) {
    Folders().ListIndex = FolderIndex(Disks());
    EXPECT_FALSE(Folders().Key(kKeyDown));
    EXPECT_EQ(Folders().Path, PcFolder);
    EXPECT_TRUE(Folders().Key(kKeyEnter));
    EXPECT_EQ(Folders().Path, Disks());
    EXPECT_EQ(Files().Path, Disks());
    EXPECT_EQ(Files().Items, (Texts{"A.DSK"}));
    Folders().ListIndex = FolderIndex(PcFolder);
    Folders().Key(kKeyEnter);
    EXPECT_EQ(Files().Items, (Texts{"B.BAS", "c.txt", "D.DSK"}));
}

TEST_F(PcPaneTest, ADoubleClickGoesIntoAFolderToo) {
    Folders().ListIndex = FolderIndex(Disks());
    Folders().DoubleClick();
    EXPECT_EQ(Files().Path, Disks());
}

TEST_F(PcPaneTest, AMarkedFolderThatVanishedChangesNothing) {
    Folders().ListIndex = FolderIndex(PcFolder + "/tapes");
    fs::remove_all(PcFolder + "/tapes");
    Folders().Key(kKeyEnter);
    EXPECT_EQ(Folders().Path, PcFolder);
    EXPECT_EQ(Files().Path, PcFolder);
    Folders().ListIndex = -1;
    Folders().Key(kKeyEnter);
    EXPECT_EQ(Folders().Path, PcFolder);
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(PcPaneTest, TheFileListFollowsTheFolderListAndLosesItsSelection) {
    SetListIndex(Files(), 1);
    SetDir1Path(Disks());
    EXPECT_EQ(Files().Path, Disks());
    EXPECT_EQ(Files().ListIndex, -1);
    EXPECT_EQ(Files().ItemSelected, (std::vector<bool>{false}));
}

TEST_F(PcPaneTest, AFileOfTheSameNameInTheNextFolderIsNotSelected) {
    WriteTestFile(Disks(), "D.DSK", "");
    SetListIndex(Files(), 2);
    ShowPcFolder(Disks());
    EXPECT_EQ(Files().Items, (Texts{"A.DSK", "D.DSK"}));
    EXPECT_EQ(SelectedPcFile(), "");
}

TEST_F(PcPaneTest, TheDrivesAreThoseOfThePlatformThatHaveAPath) {
    EXPECT_EQ(Drives().Items, (Texts{"System", "Tapes"}));
    EXPECT_EQ(Drives().ItemTags, (Texts{"/", PcFolder + "/tapes"}));
    EXPECT_EQ(Drives().ListIndex, 0);
}

TEST_F(PcPaneTest, ChoosingADriveShowsItsFolder) {
    SetListIndex(Drives(), 1);
    EXPECT_EQ(Folders().Path, PcFolder + "/tapes");
    EXPECT_EQ(Files().Path, PcFolder + "/tapes");
    EXPECT_TRUE(Files().Items.empty());
}

TEST_F(PcPaneTest, ADriveThatFailsSaysSoAndLeavesTheFolders) {
    fs::remove_all(PcFolder + "/tapes");
    SetListIndex(Drives(), 1);
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text, "Error..!!! 76  Path not found");
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
    EXPECT_EQ(Folders().Path, PcFolder);
    EXPECT_FALSE(script_.Ended);
}

TEST_F(PcPaneTest, AFolderLiesOnTheDriveWithTheLongestPathAboveIt) {
    fs::create_directories(PcFolder + "/tapes/new");
    SetDriveOf(PcFolder + "/tapes/new");
    EXPECT_EQ(Drives().ListIndex, 1);
    SetDriveOf(PcFolder);
    EXPECT_EQ(Drives().ListIndex, 0);
    SetDriveOf(PcFolder + "/tapes");
    EXPECT_EQ(Drives().ListIndex, 1);
    SetDriveOf(PcFolder + "/tapes2");
    EXPECT_EQ(Drives().ListIndex, 0);
}

TEST_F(PcPaneTest, APathOnNoDriveLeavesTheDrive) {
    SetDriveOf(PcFolder + "/tapes");
    SetDriveOf("Q:\\disks");
    SetDriveOf("");
    EXPECT_EQ(Drives().ListIndex, 1);
}

TEST_F(PcPaneTest, ShowingAFolderSetsAllThree) {
    ShowPcFolder(PcFolder + "/tapes/");
    EXPECT_EQ(Drives().ListIndex, 1);
    EXPECT_EQ(Folders().Path, PcFolder + "/tapes");
    EXPECT_EQ(Files().Path, PcFolder + "/tapes");
}

TEST_F(PcPaneTest, AFolderThatIsNotThereFailsWith76AndChangesNothing) {
    const std::string gone = PcFolder + "/gone";
    EXPECT_EQ(FailureOf([&] { ShowPcFolder(gone); }), 76);
    EXPECT_EQ(FailureOf([&] { SetDir1Path(gone); }), 76);
    EXPECT_EQ(FailureOf([&] { SetFile1Path(PcFolder + "/D.DSK"); }), 76);
    EXPECT_EQ(Folders().Path, PcFolder);
    EXPECT_EQ(Files().Path, PcFolder);
    EXPECT_EQ(Files().Items.size(), 3U);
}

// The file list

TEST_F(PcPaneTest, ARefreshKeepsTheSelectionWithoutAClick) {
    SetListIndex(Files(), 2);
    Disk.PcFileBytes = "untouched";
    WriteTestFile(PcFolder, "AA.TXT", "");
    RefreshPcFiles();
    EXPECT_EQ(Files().Items, (Texts{"AA.TXT", "B.BAS", "c.txt", "D.DSK"}));
    EXPECT_EQ(Files().ListIndex, 3);
    EXPECT_EQ(Files().ItemSelected, (std::vector<bool>{false, false, false, true}));
    EXPECT_EQ(SelectedPcFile(), "D.DSK");
    EXPECT_EQ(Disk.PcFileBytes, "untouched");
    fs::remove(PcFolder + "/D.DSK");
    RefreshPcFiles();
    EXPECT_EQ(Files().ListIndex, -1);
    EXPECT_EQ(SelectedPcFile(), "");
}

TEST_F(PcPaneTest, AClickLoadsTheFileAndShowsItsPath) {
    ClickListEntry(Files(), 0);
    EXPECT_EQ(Disk.PcFileBytes, "B.BAS");
    EXPECT_EQ(Disk.PcFileTypeText, "0");
    EXPECT_EQ(PrincipalControl("FilePath").Text, PcFolder + "/B.BAS");
    EXPECT_EQ(PrincipalControl("PathDsk").Text, "");
    WriteTestFile(PcFolder, "B.BAS", "changed");
    ClickListEntry(Files(), 0);
    EXPECT_EQ(Disk.PcFileBytes, "changed");
}

TEST_F(PcPaneTest, NoEntryIsNoClick) {
    SetListIndex(Files(), 0);
    Disk.PcFileBytes = "untouched";
    SetListIndex(Files(), -1);
    EXPECT_EQ(Disk.PcFileBytes, "untouched");
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(PcPaneTest, AnImageOpensFromTheShortestLengthWithADirectoryTrack) {
    WriteTestFile(Disks(), "A.DSK", std::string(78335, '\0'));
    WriteTestFile(Disks(), "b.dsk", std::string(78336, '\0'));
    ShowPcFolder(Disks());
    SetListIndex(Files(), 0);
    EXPECT_TRUE(Disk.ImageBytes.empty());
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text,
              "Disco Virtual muy pequeño, como para leer el Directorio"_w);
    SetListIndex(Files(), 1);
    EXPECT_EQ(Disk.ImageBytes.size(), 78336U);
    EXPECT_EQ(PrincipalControl("PathDsk").Text, Disks() + "/b.dsk");
    EXPECT_EQ(Disk.ImageFolder, Disks());
}

TEST_F(PcPaneTest, AFileThatVanishedShowsTheErrorOfTheFileRoutine) {
    fs::remove(PcFolder + "/c.txt");
    ClickListEntry(Files(), 1);
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text.substr(0, 9), "Error!!! ");
    EXPECT_FALSE(script_.Ended);
}

// Patterns

TEST_F(PcPaneTest, APickedPatternFiltersTheListAndIsStored) {
    ClickListEntry(Patterns(), 3);
    EXPECT_EQ(Stored("MuestraActual"), "3");
    EXPECT_EQ(Files().Pattern, "*.BAS;*.BIN;*.TXT;*.DAT");
    EXPECT_EQ(Files().Items, (Texts{"B.BAS", "c.txt"}));
    ClickListEntry(Patterns(), 5);
    EXPECT_EQ(Stored("MuestraActual"), "5");
    EXPECT_EQ(Files().Items.size(), 3U);
}

TEST_F(PcPaneTest, ATypedPatternFiltersTheListAndIsNotStored) {
    const std::string before = SettingsFile();
    SetText(Patterns(), "Mine: *.DSK");
    EXPECT_EQ(Files().Pattern, "*.DSK");
    EXPECT_EQ(Files().Items, (Texts{"D.DSK"}));
    EXPECT_EQ(SettingsFile(), before);
}

TEST_F(PcPaneTest, ThePatternStandsFromTheSecondCharacterBehindTheFirstColonOn) {
    const std::pair<const char*, const char*> rows[] = {
        {"a: *.X", "*.X"}, {"a:*.X", ".X"}, {": b: *.Y", "b: *.Y"}, {"*.DSK", ""}, {"a:", ""},
        {"a: ", ""},       {"", ""}};
    for (const auto& [text, pattern] : rows) {
        SetText(Patterns(), "start: *.*");
        SetText(Patterns(), text);
        EXPECT_EQ(Files().Pattern, pattern) << text;
        if (*pattern == '\0') {
            EXPECT_TRUE(Files().Items.empty()) << text;
        }
    }
}

TEST_F(PcPaneTest, ThePatternStaysInTheNextFolder) {
    SetText(Patterns(), "Mine: *.BAS");
    ShowPcFolder(Disks());
    EXPECT_TRUE(Files().Items.empty());
}

// The path box

TEST_F(PcPaneTest, ATypedFolderIsShown) {
    Visit(Disks());
    EXPECT_EQ(Folders().Path, Disks());
    EXPECT_EQ(Files().Path, Disks());
    Visit(PcFolder + "/tapes/");
    EXPECT_EQ(Drives().ListIndex, 1);
    EXPECT_EQ(Files().Path, PcFolder + "/tapes");
    Visit(PcFolder + "/tapes/../disks/./");
    EXPECT_EQ(Files().Path, Disks());
}

TEST_F(PcPaneTest, ATextWithoutASeparatorIsMeantInTheFolderShown) {
    Visit("disks");
    EXPECT_EQ(Files().Path, Disks());
    Visit("A.DSK");
    EXPECT_EQ(Files().Path, Disks());
    EXPECT_EQ(Files().ListIndex, -1);
}

TEST_F(PcPaneTest, ATypedFileShowsItsFolder) {
    Visit(Disks() + "/A.DSK");
    EXPECT_EQ(Files().Path, Disks());
    EXPECT_EQ(Files().ListIndex, -1);
    EXPECT_TRUE(Disk.PcFileBytes.empty());
}

TEST_F(PcPaneTest, APathThatLeadsNowhereChangesNothingAndSaysNothing) {
    for (const std::string& path :
         {Disks() + "/GONE.DSK", PcFolder + "/gone/", std::string("gone"), std::string("\\"),
          std::string("Q:\\disks\\A.DSK"), PcFolder + "/D.DSK/x"}) {
        Visit(path);
        EXPECT_EQ(Folders().Path, PcFolder) << path;
        EXPECT_EQ(Files().Path, PcFolder) << path;
        EXPECT_EQ(Drives().ListIndex, 0) << path;
        EXPECT_EQ(PrincipalControl("FilePath").Text, path);
    }
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(PcPaneTest, LeavingTheBoxRefreshesTheFiles) {
    WriteTestFile(PcFolder, "NEW.TXT", "");
    Visit("");
    EXPECT_EQ(Files().Items.size(), 3U);
    Visit(PcFolder);
    EXPECT_EQ(Files().Items.size(), 4U);
    WriteTestFile(PcFolder, "NEWER.TXT", "");
    Visit(PcFolder + "/gone");
    EXPECT_EQ(Files().Items.size(), 5U);
}

TEST_F(PcPaneTest, DownEnterAndTabActAsLeavingTheBox) {
    for (const int key : {kKeyDown, kKeyEnter, kKeyTab}) {
        SetDir1Path(PcFolder);
        PrincipalControl("FilePath").Text = Disks();
        EXPECT_FALSE(PrincipalControl("FilePath").Key(key)) << key;
        EXPECT_EQ(Files().Path, Disks()) << key;
    }
    SetDir1Path(PcFolder);
    EXPECT_FALSE(PrincipalControl("FilePath").Key('A'));
    EXPECT_EQ(Files().Path, PcFolder);
}

TEST_F(PcPaneTest, EveryChangeOfTheBoxIsCopiedToTheWindowsField) {
    EXPECT_EQ(FilePathText, "");
    SetText(PrincipalControl("FilePath"), "typed");
    EXPECT_EQ(FilePathText, "typed");
    ClickListEntry(Files(), 0);
    EXPECT_EQ(FilePathText, PcFolder + "/B.BAS");
    SetText(PrincipalControl("FilePath"), "");
    EXPECT_EQ(FilePathText, "");
}

TEST_F(PcPaneTest, ADoubleQuoteIsDropped) {
    PrincipalControl("FilePath").Text = Disks();
    EXPECT_TRUE(PrincipalControl("FilePath").Key('"'));
    EXPECT_EQ(Files().Path, PcFolder);
}

}  // namespace
}  // namespace brindlemoor
