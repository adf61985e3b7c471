#include "workbench/principal_viewer.h"

#include <gtest/gtest.h>

#include "core/runtime_failure.h"
#include "core/screen.h"
#include "support/disk_fixture.h"
#include "support/viewer_fixture.h"

namespace brindlemoor::test {
namespace {

class RowClickTest : public ViewerTest {
  protected:
    static void AddRow(int row, const std::string& ext, int type, const std::string& content) {
        DirEntry& entry = DirTable[row];
        entry.Ext = ext;
        entry.FileType = static_cast<std::uint8_t>(type);
        entry.Content = content;
        Disk.DirRows = row + 1;
    }

    static void Click(int row) { ListDirec.RowClick(row); }
    static int Characters() { return PrincipalControl("OpciónChar"_w).ListIndex; }
};

TEST_F(RowClickTest, ChoosesTheRowAndShowsItsContents) {
    AddRow(0, "DAT", 1, "ONE");
    AddRow(1, "DAT", 1, "TWO\rLINES");
    Click(2);
    EXPECT_EQ(Disk.DirCount, 1);
    EXPECT_EQ(Disk.PcFileBytes, "TWO\rLINES");
    EXPECT_EQ(Lines(), (std::vector<std::string>{"TWO", "LINES"}));
    EXPECT_EQ(PrincipalViewer.ViewerMode, 1);
}

TEST_F(RowClickTest, TheCharactersFollowTheExtension) {
    AddRow(0, "BIN", 2, "X");
    AddRow(1, "BAS", 0, "X");
    AddRow(2, "MAX", 2, "X");
    AddRow(3, "TXT", 1, "X");
    AddRow(4, "bin", 2, "X");
    Click(1);
    EXPECT_EQ(Characters(), 1);
    EXPECT_EQ(Stored("OpciónCharActual"_w), "1");
    Click(2);
    EXPECT_EQ(Characters(), 2);
    Click(3);
    EXPECT_EQ(Characters(), 3);
    EXPECT_EQ(Stored("OpciónCharActual"_w), "3");
    Click(4);
    EXPECT_EQ(Characters(), 3);
    Click(5);
    EXPECT_EQ(Characters(), 3);
}

TEST_F(RowClickTest, ABinaryBehindABasicProgramIsNotTakenForBasic) {
    const std::string tokens("\xFF\x00\x08\x26\x07\x00\x0A\x9E\x00\x00\x00", 11);
    AddRow(0, "BAS", 0, tokens);
    AddRow(1, "BIN", 2, "\xFF\x80\x01");  // would be a program with a negative length
    Click(1);
    Click(2);
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_EQ(PrincipalViewer.ViewerText, "\xFF\x80\x01");
}

TEST_F(RowClickTest, ARowWithoutContentsEmptiesTheView) {
    AddRow(0, "DAT", 1, "ONE");
    AddRow(1, "DAT", 1, "");
    Click(1);
    Lines();
    Click(2);
    EXPECT_EQ(Lines(), std::vector<std::string>{});
    EXPECT_EQ(Disk.PcFileBytes, "");
}

TEST_F(RowClickTest, ARowBeyondTheTableFails) {
    EXPECT_EQ(FailureOf([] { ViewDirectoryRow(kDirTableRows); }), kIndexRange);
    EXPECT_EQ(FailureOf([] { ViewDirectoryRow(-1); }), kIndexRange);
}

TEST_F(RowClickTest, AFileOfThePcComesIntoViewByItsExtension) {
    Disk.PcFileBytes = "ONE\rTWO";
    Screen.ViewFile(-1, 1);
    EXPECT_EQ(Lines(), (std::vector<std::string>{"ONE", "TWO"}));
}

}  // namespace
}  // namespace brindlemoor::test
