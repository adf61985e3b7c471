#include "workbench/dropped_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "convert/file_commands.h"
#include "core/disk_state.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

using test::WriteTestFile;
using Texts = std::vector<std::string>;

/// A started program, and beside its folder another one with images of 35 empty tracks.
class DroppedFilesTest : public test::WorkbenchTest {
  protected:
    void SetUp() override {
        WorkbenchTest::SetUp();
        Elsewhere_ = PcFolder + "/elsewhere";
        fs::create_directories(Elsewhere_);
        for (const char* name : {"A.DSK", "b.vdk", "C.OS9", "NOTE.TXT", ".hidden.dsk"}) {
            WriteTestFile(Elsewhere_, name, std::string(161280, '\0'));
        }
        Start();
    }

    std::string At(const std::string& name) const { return Elsewhere_ + "/" + name; }

    /// Opens a disk with one file and types a name into its cell, without the Enter key.
    void EditTheOnlyName(const std::string& name) {
        const std::string image =
            test::DecbBuilder().File(0, "ALPHA   ", "BAS", 0, 0, {10}, "10 CLS").Image();
        WriteTestFile(Elsewhere_, "ONE.DSK", image);
        DropFilesFromOutside({At("ONE.DSK")});
        ListDirec.RowSelected.assign(1, true);
        ListDirec.SelectedRow = 1;
        Disk.DirCount = 0;
        ListDirec.EditRequest(1, 1, 0);
        SetText(PrincipalControl("txtEdit"), name);
        script_.Messages.clear();
    }

    static Control& Files() { return PrincipalControl("File1"); }

    std::string Elsewhere_;
};

TEST_F(DroppedFilesTest, OneImageIsTaken) {
    for (const char* name : {"A.DSK", "b.vdk", "C.OS9"}) {
        EXPECT_TRUE(TakesDroppedFiles({At(name)})) << name;
    }
}

TEST_F(DroppedFilesTest, AnythingElseIsNot) {
    EXPECT_FALSE(TakesDroppedFiles({}));
    EXPECT_FALSE(TakesDroppedFiles({""}));
    EXPECT_FALSE(TakesDroppedFiles({"A.DSK"}));
    EXPECT_FALSE(TakesDroppedFiles({At("NOTE.TXT")}));
    EXPECT_FALSE(TakesDroppedFiles({At("A.DSK"), At("b.vdk")}));
    EXPECT_FALSE(TakesDroppedFiles({At("GONE.DSK")}));
    EXPECT_FALSE(TakesDroppedFiles({At(".hidden.dsk")}));
    EXPECT_FALSE(TakesDroppedFiles({At("A.DSK") + std::string("\0.DSK", 5)}));
    fs::create_directories(At("FOLDER.DSK"));
    EXPECT_FALSE(TakesDroppedFiles({At("FOLDER.DSK")}));
    EXPECT_FALSE(TakesDroppedFiles({Elsewhere_}));
}

TEST_F(DroppedFilesTest, ANameWithoutAFolderIsNotTakenThoughItIsThere) {
    WriteTestFile(PcFolder, "HERE.DSK", "");
    EXPECT_FALSE(TakesDroppedFiles({"HERE.DSK"}));
}

TEST_F(DroppedFilesTest, TheImageIsClickedInTheFolderThatHoldsIt) {
    DropFilesFromOutside({At("A.DSK")});
    EXPECT_EQ(PrincipalControl("Dir1").Path, Elsewhere_);
    EXPECT_EQ(Files().Path, Elsewhere_);
    EXPECT_EQ(SelectedPcFile(), "A.DSK");
    EXPECT_EQ(Files().ItemSelected, (std::vector<bool>{true, false, false, false}));
    EXPECT_EQ(PrincipalControl("FilePath").Text, At("A.DSK"));
    EXPECT_EQ(PrincipalControl("PathDsk").Text, At("A.DSK"));
    EXPECT_EQ(Disk.ImageBytes.size(), 161280U);
    EXPECT_EQ(PrincipalControl("DirPattern").ListIndex, 5);
}

TEST_F(DroppedFilesTest, AFileThatCameSinceTheFolderWasListedIsFound) {
    DropFilesFromOutside({At("A.DSK")});
    WriteTestFile(Elsewhere_, "AA.DSK", std::string(161280, '\0'));
    DropFilesFromOutside({At("AA.DSK")});
    EXPECT_EQ(SelectedPcFile(), "AA.DSK");
    EXPECT_EQ(PrincipalControl("PathDsk").Text, At("AA.DSK"));
}

TEST_F(DroppedFilesTest, TheOpenImageOpensAnew) {
    DropFilesFromOutside({At("A.DSK")});
    WriteTestFile(Elsewhere_, "A.DSK", std::string(368640, '\0'));
    DropFilesFromOutside({At("A.DSK")});
    EXPECT_EQ(Disk.ImageBytes.size(), 368640U);
}

TEST_F(DroppedFilesTest, APatternThatHidesTheImageGivesWayToTheFirstThatDoesNot) {
    ClickListEntry(PrincipalControl("DirPattern"), 3);
    DropFilesFromOutside({At("b.vdk")});
    EXPECT_EQ(SelectedPcFile(), "b.vdk");
    EXPECT_EQ(PrincipalControl("DirPattern").ListIndex, 0);
    EXPECT_EQ(Files().Items, (Texts{"A.DSK", "b.vdk", "C.OS9"}));
    EXPECT_EQ(Stored("MuestraActual"), "0");
    WriteTestFile(Elsewhere_, "D.DMK", std::string(161280, '\0'));
    DropFilesFromOutside({At("D.DMK")});
    EXPECT_EQ(SelectedPcFile(), "D.DMK");
    EXPECT_EQ(PrincipalControl("DirPattern").ListIndex, 5);
}

TEST_F(DroppedFilesTest, APatternThatShowsTheImageStays) {
    SetText(PrincipalControl("DirPattern"), "Mine: A*.*");
    DropFilesFromOutside({At("A.DSK")});
    EXPECT_EQ(SelectedPcFile(), "A.DSK");
    EXPECT_EQ(PrincipalControl("DirPattern").Text, "Mine: A*.*");
}

TEST_F(DroppedFilesTest, WithoutAPatternThatShowsTheImageAllFilesAreShown) {
    PrincipalControl("DirPattern").Items = {"Texts: *.TXT", "nothing"};
    ClickListEntry(PrincipalControl("DirPattern"), 0);
    DropFilesFromOutside({At("A.DSK")});
    EXPECT_EQ(SelectedPcFile(), "A.DSK");
    EXPECT_EQ(Files().Items.size(), 4U);
    EXPECT_EQ(PrincipalControl("DirPattern").Text, "*.*: *.*");
}

TEST_F(DroppedFilesTest, UnsavedChangesAreAskedForAsAtAClick) {
    DropFilesFromOutside({At("A.DSK")});
    Disk.ImageModified = -1;
    script_.Messages.clear();
    DropFilesFromOutside({At("b.vdk")});
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::OkCancel);
    EXPECT_EQ(PrincipalControl("PathDsk").Text, At("A.DSK"));
}

TEST_F(DroppedFilesTest, AnOpenEditIsKeptFirstAndAskedFor) {
    EditTheOnlyName("EIGHTCHR");
    DropFilesFromOutside({At("A.DSK")});
    EXPECT_EQ(MessageTexts(script_), Texts{MessageText(4)});  // the answer is Cancel
    EXPECT_EQ(PrincipalControl("PathDsk").Text, At("ONE.DSK"));
    EXPECT_EQ(Disk.ImageBytes.substr(78848, 8), "EIGHTCHR");
}

TEST_F(DroppedFilesTest, AnEmptyEditorKeepsTheDiskOpen) {
    EditTheOnlyName("");
    DropFilesFromOutside({At("A.DSK")});
    EXPECT_EQ(MessageTexts(script_), Texts{MessageText(6)});
    EXPECT_EQ(PrincipalControl("PathDsk").Text, At("ONE.DSK"));
    EXPECT_EQ(ListDirec.Edited.Row, 1);
}

TEST_F(DroppedFilesTest, WhatIsNotTakenDoesNothing) {
    DropFilesFromOutside({});
    DropFilesFromOutside({At("NOTE.TXT")});
    DropFilesFromOutside({At("A.DSK"), At("b.vdk")});
    DropFilesFromOutside({Elsewhere_});
    EXPECT_EQ(Files().Path, PcFolder);
    EXPECT_TRUE(Disk.ImageBytes.empty());
    EXPECT_TRUE(script_.Messages.empty());
}

// On the directory of the open disk

class DroppedOnDirectoryTest : public DroppedFilesTest {
  protected:
    void SetUp() override {
        DroppedFilesTest::SetUp();
        WriteTestFile(Elsewhere_, "first.bas", "10 CLS");
        WriteTestFile(PcFolder, "second.dat", "data");
        Disk.ImageBytes = test::DecbBuilder().Image();
        ReadDisk();
        script_.Messages.clear();
    }

    static std::string Rows() {
        std::string names;
        for (int row = 0; row < Disk.DirRows; ++row) names += DirTable[row].FullName + " ";
        return names;
    }
};

TEST_F(DroppedOnDirectoryTest, FilesOfThePcAreTakenAndNothingElse) {
    EXPECT_TRUE(TakesFilesForDisk({At("first.bas")}));
    EXPECT_TRUE(TakesFilesForDisk({At("first.bas"), PcFolder + "/second.dat", At("NOTE.TXT")}));
    EXPECT_FALSE(TakesFilesForDisk({}));
    EXPECT_FALSE(TakesFilesForDisk({""}));
    EXPECT_FALSE(TakesFilesForDisk({Elsewhere_}));
    Disk.ImageBytes.clear();
    EXPECT_FALSE(TakesFilesForDisk({At("first.bas")}));
    Disk.ImageBytes = test::DecbBuilder().Image();
    EXPECT_FALSE(TakesFilesForDisk({At("first.bas"), At("GONE.BAS")}));
    EXPECT_FALSE(TakesFilesForDisk({At("first.bas") + std::string("\0.BAS", 5)}));
}

TEST_F(DroppedOnDirectoryTest, TheyGoIntoTheDiskAsFromTheFileList) {
    PopupSide = kDiskSide;
    DropFilesOnDirectory({At("first.bas"), PcFolder + "/second.dat"});
    EXPECT_EQ(Rows(), "FIRST.BAS SECOND.DAT ");
    EXPECT_EQ(DirTable[0].Content, "10 CLS");
    EXPECT_EQ(DirTable[1].Content, "data");
    EXPECT_EQ(PopupSide, kPcSide);
    EXPECT_EQ(MenuOf(Principal, "PopMenu").Items[6].Tag, "Copiar PC");
    EXPECT_EQ(Files().Path, PcFolder);
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(DroppedOnDirectoryTest, AnOpenEditIsKeptFirst) {
    EditTheOnlyName("EIGHTCHR");
    DropFilesOnDirectory({At("first.bas")});
    EXPECT_EQ(DirTable[0].Name, "EIGHTCHR");
    EXPECT_EQ(Disk.ImageBytes.substr(78848, 11), "EIGHTCHRBAS");
    EXPECT_EQ(Disk.ImageBytes.substr(78848 + 32, 11), "FIRST   BAS");
}

TEST_F(DroppedOnDirectoryTest, GivingTheQuestionForANameUpEndsTheDrop) {
    DropFilesOnDirectory({At("first.bas")});
    DropFilesOnDirectory({At("first.bas"), PcFolder + "/second.dat"});
    EXPECT_EQ(script_.Prompts.size(), 1U);
    EXPECT_EQ(Rows(), "FIRST.BAS ");
}

TEST_F(DroppedOnDirectoryTest, WhatIsNotTakenDoesNothing) {
    DropFilesOnDirectory({At("first.bas"), At("GONE.BAS")});
    EXPECT_EQ(Rows(), "");
}

}  // namespace
}  // namespace brindlemoor
