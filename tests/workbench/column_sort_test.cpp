#include "workbench/column_sort.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "image/modified_state.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/dragon_builder.h"
#include "support/dragon_fixture.h"
#include "support/edit_fixture.h"
#include "workbench/cell_edit.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;

/// Files of a few bytes each, so that their order can be written, at granules whose numbers are
/// their sizes, so that what is written leads to them again.
std::string SmallDisk() {
    DecbBuilder disk;
    disk.File(0, "MOON    ", "BAS", 0, 0, {40}, Pattern(40, 1));
    disk.File(1, "APPLE   ", "TXT", 3, 255, {41}, Pattern(41, 2));
    disk.File(2, "ZEBRA   ", "BIN", 2, 0, {42}, Pattern(42, 3));
    return disk.Image();
}

class ColumnSortTest : public EditTest {
  protected:
    void SetUp() override {
        EditTest::SetUp();
        OpenSmall("");
    }

    void OpenSmall(const std::string& header) {
        Small = SmallDisk();
        OpenDisk(header + Small);
        script_.Messages.clear();
    }

    static std::string Names() {
        std::string names;
        for (int row = 1; row <= static_cast<int>(ListDirec.Rows.size()); ++row) {
            names += Shown(row, 1).substr(0, Shown(row, 1).find(' ')) + " ";
        }
        return names;
    }

    static int Width(int col) { return SeenColumn(ListDirec, col).Width; }
    static int Picture(int col) { return SeenColumn(ListDirec, col).HeaderPicture; }

    std::string Small;
};

TEST_F(ColumnSortTest, TheFirstClickOrdersUpwardsAndTheSecondDownwards) {
    SortByColumn(1);
    EXPECT_EQ(Names(), "APPLE MOON ZEBRA ");
    EXPECT_EQ(Picture(1), 17);
    SortByColumn(1);
    EXPECT_EQ(Names(), "ZEBRA MOON APPLE ");
    EXPECT_EQ(Picture(1), 18);
    EXPECT_EQ(DirTable[0].Name, "ZEBRA   ");
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(ColumnSortTest, TheSlotsHoldTheSizeForGranuleAndLastSector) {
    SortByColumn(1);
    EXPECT_EQ(Slot(0), "APPLE   TXT" + Bytes({3, 255, 41, 0, 41}));
    EXPECT_EQ(Slot(1), "MOON    BAS" + Bytes({0, 0, 40, 0, 40}));
    EXPECT_EQ(Slot(2), "ZEBRA   BIN" + Bytes({2, 0, 42, 0, 42}));
    EXPECT_EQ(Slot(3, 32), std::string(32, '\xFF'));
    EXPECT_EQ(Disk.ImageModified, -1);
    EXPECT_EQ(ListDirec.BackColour, 65535);
}

TEST_F(ColumnSortTest, ASortedColumnIsWiderUntilTheSortingEnds) {
    const int before = Width(1);
    SortByColumn(1);
    EXPECT_EQ(Width(1), before + 25);
    SortByColumn(1);
    EXPECT_EQ(Width(1), before + 25);
    FillDirectoryGrid();
    EXPECT_EQ(Width(1), before + 25);
    SortByColumn(1);
    EXPECT_EQ(Width(1), before);
    EXPECT_EQ(Picture(1), 0);
}

TEST_F(ColumnSortTest, TheWideningIsNotStoredWithTheWidths) {
    const int before = Width(1);
    SortByColumn(1);
    ListDirec.ColumnResized(2, 77);
    EXPECT_EQ(Stored("ColumnWidths").substr(0, 6), std::to_string(before) + ",77,");
}

TEST_F(ColumnSortTest, TheThirdClickGivesUpAllUnsavedChanges) {
    Disk.ImageBytes[9] = 'X';
    RefreshModified();
    SortByColumn(1);
    SortByColumn(2);
    SortByColumn(1);
    SortByColumn(1);
    EXPECT_EQ(Disk.ImageBytes, Small);
    EXPECT_EQ(Names(), "MOON APPLE ZEBRA ");
    EXPECT_EQ(Picture(1), 0);
    EXPECT_EQ(Picture(2), 0);
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_FALSE(PrincipalControl("UndoBtn").Enabled);
    for (const SortColumn& column : ListDirec.SortColumns) EXPECT_EQ(column.Order, 0);
    SortByColumn(1);  // and the next click begins anew
    EXPECT_EQ(Picture(1), 17);
}

TEST_F(ColumnSortTest, AColumnClickedLaterSortsBehindTheEarlierOnes) {
    DecbBuilder disk;
    disk.File(0, "D       ", "BAS", 0, 0, {40}, Pattern(40, 1));
    disk.File(1, "C       ", "BIN", 2, 0, {41}, Pattern(41, 2));
    disk.File(2, "B       ", "BAS", 0, 0, {42}, Pattern(42, 3));
    disk.File(3, "A       ", "BIN", 2, 0, {43}, Pattern(43, 4));
    OpenDisk(disk.Image());
    SortByColumn(2);
    EXPECT_EQ(Names(), "D B C A ");  // equal ones stay in their order
    SortByColumn(1);
    EXPECT_EQ(Names(), "B D A C ");
    SortByColumn(2);
    EXPECT_EQ(Names(), "A C B D ");
}

TEST_F(ColumnSortTest, ThePointerShowsTheWorkAndComesBack) {
    SortByColumn(1);
    EXPECT_EQ(script_.Busy, (std::vector<bool>{true, false}));
}

TEST_F(ColumnSortTest, ADeletedRowKeepsItsZeroByte) {
    DecbBuilder disk;
    disk.File(0, "MOON    ", "BAS", 0, 0, {40}, Pattern(40, 1));
    disk.File(1, "APPLE   ", "TXT", 3, 255, {41}, Pattern(41, 2));
    disk.Slot(2, "GONE    ", "DAT", 1, 0, 12, 0).Delete(2);
    OpenDisk(disk.Image());
    ASSERT_EQ(Shown(3, 1).substr(0, 4), "?ONE");
    script_.Messages.clear();
    SortByColumn(1);
    EXPECT_EQ(Slot(0).substr(0, 11), std::string(1, '\0') + "ONE    DAT");  // "?" comes first
    EXPECT_EQ(DirTable[0].Flags & kFlagDeleted, kFlagDeleted);
}

TEST_F(ColumnSortTest, ASizeAboveAByteFailsInTheWritingOfTheOrder) {
    OpenDisk(Original);  // BETA has 700 bytes
    EXPECT_EQ(FailureOf(WriteDirectoryOrder), kInvalidCall);
    EXPECT_EQ(Slot(0, 13), "ALPHA   BAS" + Bytes({0, 0}));
    EXPECT_EQ(Slot(0)[13], 30);  // the rows in front of it are written
    EXPECT_EQ(Slot(1, 14), "BETA    BIN" + Bytes({2, 0, 11}));
}

TEST_F(ColumnSortTest, TheClickThenShowsTheErrorBoxAndLeavesAllAsItWas) {
    OpenDisk(Original);
    const int width = Width(1);
    const std::string track = PrincipalControl("Track").Text;
    script_.Messages.clear();
    SortByColumn(1);
    EXPECT_EQ(MessageTexts(script_),
              Texts{"Run-time error '5':\r\n\r\nInvalid procedure call or argument"});
    EXPECT_FALSE(script_.Ended);
    EXPECT_EQ(Disk.ImageBytes, Original);
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_EQ(Disk.DirRows, 4);
    EXPECT_EQ(DirTable[3].Content, Pattern(250, 3));
    EXPECT_EQ(Names(), "ALPHA BETA ?ONE EIGHTLET ");
    EXPECT_EQ(Width(1), width);
    EXPECT_EQ(Picture(1), 0);
    EXPECT_TRUE(ListDirec.SortColumns.empty());
    EXPECT_EQ(PrincipalControl("Track").Text, track);
    EXPECT_EQ(ListDirec.BackColour, 16777215);
    EXPECT_EQ(script_.Busy, (std::vector<bool>{true, false}));
}

TEST_F(ColumnSortTest, TwoHundredFiftyFiveBytesAreStillWritten) {
    for (const std::size_t size : {255u, 256u}) {
        DecbBuilder disk;
        disk.File(0, "EDGE    ", "DAT", 1, 0, {40}, Pattern(size, 1));
        OpenDisk(disk.Image());
        EXPECT_EQ(FailureOf(WriteDirectoryOrder), size == 255 ? 0 : kInvalidCall);
    }
}

TEST_F(ColumnSortTest, ADragonDiskIsLeftAsItIs) {
    DragonBuilder disk;
    disk.File(0, "ZULU    ", "BIN", {{40, 2}}, Pattern(300, 1));
    disk.File(1, "ALFA    ", "BIN", {{50, 2}}, Pattern(300, 2));
    OpenDisk(disk.Image());
    ASSERT_EQ(Disk.DiskFamily, kDragon);
    script_.Messages.clear();
    SortByColumn(1);
    EXPECT_EQ(Disk.ImageBytes, disk.Image());
    EXPECT_EQ(Names(), "ZULU ALFA ");  // it was read again
    EXPECT_EQ(Picture(1), 17);
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(ColumnSortTest, OtherFamiliesAreNotWritten) {
    for (const Family family : {kOs9, kFlex}) {
        Disk.DiskFamily = family;
        WriteDirectoryOrder();
        EXPECT_EQ(Disk.ImageBytes, Small);
    }
}

TEST_F(ColumnSortTest, TheHeaderOfTheContainerIsKept) {
    const std::string header = "dk" + Bytes({12, 0, 16, 16, 0, 35, 1, 0, 0, 0});
    OpenSmall(header);
    ASSERT_EQ(Disk.ImageHeader, header);
    SortByColumn(1);
    EXPECT_EQ(Disk.ImageHeader, header);
    EXPECT_EQ(Disk.ImageBytes.size(), Small.size());
    EXPECT_EQ(Names(), "APPLE MOON ZEBRA ");
    SortByColumn(1);
    SortByColumn(1);
    EXPECT_EQ(Disk.ImageHeader, header);
    EXPECT_EQ(Disk.ImageBytes, Small);
    EXPECT_EQ(Disk.ImageModified, 0);
}

TEST_F(ColumnSortTest, AnOpenEditIsKeptFirst) {
    SelectRow(1);
    ListDirec.EditRequest(1, 1, 0);
    SetText(PrincipalControl("txtEdit"), "YELLOWED");
    SortByColumn(1);
    EXPECT_EQ(Names(), "APPLE YELLOWED ZEBRA ");
    SelectRow(1);
    ListDirec.EditRequest(1, 1, 0);
    SetText(PrincipalControl("txtEdit"), "");
    SortByColumn(1);  // it is empty: nothing is sorted
    EXPECT_EQ(Names(), "APPLE YELLOWED ZEBRA ");
    EXPECT_EQ(ListDirec.Edited.Row, 1);
}

TEST_F(ColumnSortTest, OpeningADiskGivesTheSortingUp) {
    const int before = Width(1);
    SortByColumn(1);
    SortByColumn(2);
    Screen.GiveUpColumnSort();
    EXPECT_EQ(Picture(1), 0);
    EXPECT_EQ(Picture(2), 0);
    EXPECT_EQ(Width(1), before);
    EXPECT_TRUE(ListDirec.SortColumns.empty());
}

TEST_F(ColumnSortTest, WithoutADiskNothingHappens) {
    OpenDisk("");
    SortByColumn(1);
    EXPECT_TRUE(Disk.ImageBytes.empty());
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_TRUE(ListDirec.Rows.empty());
    EXPECT_EQ(FailureOf([] { SortByColumn(19); }), kIndexRange);
    EXPECT_EQ(FailureOf([] { SortByColumn(0); }), kIndexRange);
}

}  // namespace
}  // namespace brindlemoor::test
