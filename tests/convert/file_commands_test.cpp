#include "convert/file_commands.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/screen.h"
#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/directory_grid.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

class FileCommandsTest : public test::DirectoryTest {};

TEST_F(FileCommandsTest, AllIndexesButTheViewDoNothing) {
    test::WriteTestFile(PcFolder, "A.TXT", "text");
    AddEntry("ALPHA", "BAS");
    FillDirectoryGrid();
    ListDirec.RowSelected = {true};
    const unsigned grid = ListDirec.Revision;
    const std::string settings = SettingsFile();
    for (const std::int16_t side : {kPcSide, kDiskSide}) {
        for (int index = -1; index < 40; ++index) {
            if (index == kViewCommand) continue;
            PopupSide = side;
            RunFileCommand(index);
        }
    }
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_TRUE(script_.Programs.empty());
    EXPECT_EQ(SettingsFile(), settings);
    EXPECT_EQ(std::filesystem::file_size(PcFolder + "/A.TXT"), 4U);
    EXPECT_EQ(ListDirec.Revision, grid);
    EXPECT_EQ(Disk.DirRows, 1);
}

/// What the window `Archivos` was asked to show.
struct Seen {
    std::string Caption;
    std::string Bytes;
    int Mode;
    bool operator==(const Seen&) const = default;
};

class ViewCommandTest : public FileCommandsTest {
  protected:
    void SetUp() override {
        FileCommandsTest::SetUp();
        Screen.ShowDetached = [this](const std::string& caption, const std::string& bytes,
                                     int mode) {
            seen_.push_back({caption, bytes, mode});
        };
    }

    std::vector<Seen> seen_;
};

TEST_F(ViewCommandTest, ShowsEachSelectedFileOfThePcUnderItsPath) {
    test::WriteTestFile(PcFolder, "A.BAS", "10 CLS");
    test::WriteTestFile(PcFolder, "B.TXT", "text");
    test::WriteTestFile(PcFolder, "C.TXT", "other");
    RefreshPcFiles();
    PrincipalControl("File1").ItemSelected = {true, false, true};
    PopupSide = kPcSide;
    RunFileCommand(kViewCommand);
    EXPECT_EQ(seen_, (std::vector<Seen>{{PcFolder + "/A.BAS", "10 CLS", 0},
                                        {PcFolder + "/C.TXT", "other", 2}}));
    EXPECT_EQ(Disk.PcFileBytes, "other");
}

TEST_F(ViewCommandTest, AFileThatIsGoneShowsTheErrorAndTheNextIsShown) {
    test::WriteTestFile(PcFolder, "A.TXT", "a");
    const std::string next = test::WriteTestFile(PcFolder, "B.TXT", "b");
    RefreshPcFiles();
    std::filesystem::remove(PcFolder + "/A.TXT");
    PrincipalControl("File1").ItemSelected = {true, true};
    PopupSide = kPcSide;
    RunFileCommand(kViewCommand);
    EXPECT_EQ(MessageTexts(script_),
              std::vector<std::string>{"Error!!! 2 No such file or directory"});
    EXPECT_EQ(seen_, (std::vector<Seen>{{next, "b", 2}}));
}

TEST_F(ViewCommandTest, ShowsEachSelectedRowButTheDeletedOnes) {
    AddEntry("ALPHA", "BAS").Content = "10 CLS";
    DirEntry& gone = AddEntry("GONE", "DAT");
    gone.Flags = kFlagDeleted;
    DirEntry& last = AddEntry("OMEGA", "DAT");
    last.Content = "data";
    last.FileType = 1;
    last.FullName = "OMEGA.DAT  ";
    DirTable[0].FullName = "ALPHA.BAS";
    FillDirectoryGrid();
    ListDirec.RowSelected = {true, true, true};
    PopupSide = kDiskSide;
    RunFileCommand(kViewCommand);
    EXPECT_EQ(seen_, (std::vector<Seen>{{PcFolder + "/ALPHA.BAS", "10 CLS", 0},
                                        {PcFolder + "/OMEGA.DAT", "data", 1}}));
}

TEST_F(ViewCommandTest, WithNothingSelectedNothingIsShown) {
    AddEntry("ALPHA", "BAS").Content = "10 CLS";
    FillDirectoryGrid();
    for (const std::int16_t side : {kPcSide, kDiskSide}) {
        PopupSide = side;
        RunFileCommand(kViewCommand);
    }
    EXPECT_TRUE(seen_.empty());
}

}  // namespace
}  // namespace brindlemoor
