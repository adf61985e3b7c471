#include "workbench/directory_grid.h"

#include <gtest/gtest.h>

#include "core/byte_helpers.h"
#include "core/dates.h"
#include "core/runtime_failure.h"
#include "core/settings.h"
#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/directory_cells.h"
#include "workbench/directory_totals.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

using test::FailureOf;
using Texts = std::vector<std::string>;

class DirectoryGridTest : public test::DirectoryTest {
  protected:
    static GridColumn& Column(int number) { return ColumnOf(ListDirec, number); }

    static Control& Box(const char* name) { return PrincipalControl(name); }

    static std::string Title() { return PrincipalControl("Label3").Text; }
};

// Columns

TEST_F(DirectoryGridTest, TheFirstFillMakesTheEighteenColumns) {
    EXPECT_TRUE(ListDirec.Columns.empty());
    FillDirectoryGrid();
    struct Row {
        const char* Header;
        bool RightAligned;
        const char* Format;
        SortKind Sort;
    };
    constexpr SortKind kText = SortKind::Text;
    constexpr SortKind kNumber = SortKind::Number;
    const Row rows[] = {
        {"NAME", false, "", kText},
        {"EXT", false, "", kText},
        {"T", false, "", kText},
        {"F", false, "", kText},
        {"SE", false, "", kText},
        {"GR", true, "", kText},
        {"SIZE", true, "###,###", kNumber},
        {"USED", true, "###,###", kNumber},
        {"DIFER", true, "###,###", kNumber},
        {"EFFIC%", false, "##0.00\\%", kText},
        {"ATT", false, "", kText},
        {"CREATION DATE", false, "", kText},
        {"UPDATE", false, "", kText},
        {"IGR", false, "", kText},
        {"SLG", false, "", kText},
        {"BLS", false, "", kText},
        {"NCDE", false, "", kText},
        {"Granules Or Sectors secuence   ", false, "", kText},
    };
    ASSERT_EQ(ListDirec.Columns.size(), std::size(rows));
    for (int number = 1; number <= kDirectoryColumns; ++number) {
        const Row& row = rows[number - 1];
        EXPECT_EQ(Column(number).Key, std::to_string(number));
        EXPECT_EQ(Column(number).Header, row.Header);
        EXPECT_EQ(Column(number).RightAligned, row.RightAligned) << number;
        EXPECT_EQ(Column(number).NumberFormat, row.Format) << number;
        EXPECT_EQ(Column(number).Sort, row.Sort) << number;
        EXPECT_EQ(Column(number).Order, number);
    }
}

TEST_F(DirectoryGridTest, EachFamilyShowsItsOwnColumnsAtEveryFill) {
    const std::pair<Family, const char*> rows[] = {
        {kDecb, "1 2 3 4 6 7 8 9 10 14 15 16 18 "}, {kDragon, "1 2 3 4 5 7 8 9 10 11 16 17 18 "},
        {kOs9, "1 2 5 7 8 9 10 11 12 13 18 "},      {kFlex, "1 2 5 7 8 9 10 11 12 13 16 18 "},
        {kDecb, "1 2 3 4 6 7 8 9 10 14 15 16 18 "},
    };
    for (const auto& [family, columns] : rows) {
        NewDirectory(family);
        FillDirectoryGrid();
        EXPECT_EQ(ShownColumns(), columns) << family;
    }
}

TEST_F(DirectoryGridTest, AnyDigitBut0Shows) {
    Settings.VisibleColumnsList[0] = "920000000000000000";
    FillDirectoryGrid();
    EXPECT_EQ(ShownColumns(), "1 2 ");
}

TEST_F(DirectoryGridTest, AColumnHiddenByHandShowsAgainAtTheNextFill) {
    FillDirectoryGrid();
    Column(1).Visible = false;
    Column(5).Visible = true;
    FillDirectoryGrid();
    EXPECT_TRUE(Column(1).Visible);
    EXPECT_FALSE(Column(5).Visible);
}

TEST_F(DirectoryGridTest, WidthsComeFromTheSettingsAtEveryFillButForColumn11) {
    AddEntry("A name that is wider than its column");
    FillDirectoryGrid();
    const int widths[] = {65, 33, 17,  17,  26, 26, 60, 60, 50,
                          55, 27, 110, 110, 33, 33, 33, 40, 333};
    for (int number = 1; number <= kDirectoryColumns; ++number) {
        EXPECT_EQ(Column(number).Width, widths[number - 1]) << number;
        SetColumnWidth(ListDirec, number, 5);
    }
    FillDirectoryGrid();
    for (int number = 1; number <= kDirectoryColumns; ++number) {
        EXPECT_EQ(Column(number).Width, widths[number - 1]) << number;
    }
}

TEST_F(DirectoryGridTest, TheAttributesColumnFitsItsContents) {
    NewDirectory(kOs9);
    AddEntry("A").Attributes = 0x0B;
    FillDirectoryGrid();
    EXPECT_EQ(Column(kAttributeColumn).Width, 8 * kGridCharacterWidth + 2 * kGridCellMargin);
    NewDirectory(kDecb);
    FillDirectoryGrid();
    EXPECT_EQ(Column(kAttributeColumn).Width, 3 * kGridCharacterWidth + 2 * kGridCellMargin);
}

TEST_F(DirectoryGridTest, TheOrderComesFromTheSettingsAtEveryFill) {
    Settings.ColumnOrderList[0] = "2";
    Settings.ColumnOrderList[1] = "1";
    FillDirectoryGrid();
    EXPECT_EQ(ColumnsFromLeft(ListDirec)[0], 2);
    MoveColumn(ListDirec, 1, 1);
    FillDirectoryGrid();
    EXPECT_EQ(ColumnsFromLeft(ListDirec)[0], 2);
    EXPECT_EQ(ColumnsFromLeft(ListDirec)[1], 1);
}

TEST_F(DirectoryGridTest, ColumnSettingsThatAreMissingOrNoNumbersFail) {
    const Texts widths = Settings.ColumnWidthList;
    const Texts orders = Settings.ColumnOrderList;
    Settings.ColumnWidthList.clear();
    EXPECT_EQ(FailureOf(FillDirectoryGrid), 9);
    Settings.ColumnWidthList = widths;
    Settings.ColumnWidthList[17] = "";
    EXPECT_EQ(FailureOf(FillDirectoryGrid), 13);
    Settings.ColumnWidthList[17] = "wide";
    EXPECT_EQ(FailureOf(FillDirectoryGrid), 13);
    Settings.ColumnWidthList = widths;
    Settings.ColumnOrderList.clear();
    EXPECT_EQ(FailureOf(FillDirectoryGrid), 9);
    Settings.ColumnOrderList = orders;
    Settings.ColumnOrderList[3] = "x";
    EXPECT_EQ(FailureOf(FillDirectoryGrid), 13);
    Settings.ColumnOrderList = orders;
    Settings.VisibleColumnsList[0] = "1111";
    EXPECT_EQ(FailureOf(FillDirectoryGrid), 13);
    Settings.VisibleColumnsList.clear();
    EXPECT_EQ(FailureOf(FillDirectoryGrid), 9);
}

TEST_F(DirectoryGridTest, AFillThatFailedLeavesNoHalfOfTheColumns) {
    Settings.ColumnWidthList[17] = "wide";
    EXPECT_EQ(FailureOf(FillDirectoryGrid), 13);
    EXPECT_TRUE(ListDirec.Columns.empty());
    Settings.ColumnWidthList[17] = "333";
    FillDirectoryGrid();
    EXPECT_EQ(ListDirec.Columns.size(), 18U);
    EXPECT_TRUE(ListDirec.Redraw);
}

// Rows

TEST_F(DirectoryGridTest, OneRowForEachRowOfTheDirectoryHiddenOnesToo) {
    AddEntry("FIRST");
    AddEntry("GONE").Flags = 0x80;
    AddEntry("LAST");
    Disk.DeletedCount = 1;
    FillDirectoryGrid();
    ASSERT_EQ(ListDirec.Rows.size(), 3U);
    EXPECT_EQ(Shown(2, 1), "GONE");
    EXPECT_FALSE(RowOf(ListDirec, 2).Visible);
    EXPECT_EQ(Shown(3, 1), "LAST");
    EXPECT_EQ(Disk.DirCount, 3);
    FillDirectoryGrid();
    EXPECT_EQ(ListDirec.Rows.size(), 3U);
}

TEST_F(DirectoryGridTest, DrawingIsOnAgainAfterTheFill) {
    ListDirec.Redraw = false;
    FillDirectoryGrid();
    EXPECT_TRUE(ListDirec.Redraw);
}

TEST_F(DirectoryGridTest, AnImageThatCouldNotBeReadShowsAnEmptyGrid) {
    AddEntry("OLD");
    FillDirectoryGrid();
    Disk.DirRows = 0;
    FillDirectoryGrid();
    EXPECT_TRUE(ListDirec.Rows.empty());
    EXPECT_EQ(Disk.DirCount, 0);
    EXPECT_EQ(TotalsLines[0], "Files:|0|||0|0||||0.00%");
}

TEST_F(DirectoryGridTest, TheLargestDirectoryIsShownWhole) {
    Disk.DirRows = kDirTableRows;
    FillDirectoryGrid();
    EXPECT_EQ(ListDirec.Rows.size(), 1701U);
    Disk.DirRows = kDirTableRows + 1;
    EXPECT_EQ(FailureOf(FillDirectoryGrid), 9);
}

// The boxes under the grid

TEST_F(DirectoryGridTest, TheBoxesCountWhatTheyHide) {
    Disk.DeletedCount = 3;
    Disk.ContinuationCount = 12;
    FillDirectoryGrid();
    EXPECT_EQ(Box("VerBorrados").Text, "View 3 Deleted");
    EXPECT_EQ(Box("VerContinuaciones").Text, "View 12 Continues");
    EXPECT_TRUE(Box("VerBorrados").Enabled);
    EXPECT_TRUE(Box("VerContinuaciones").Enabled);
    Disk.DeletedCount = 0;
    Disk.ContinuationCount = 0;
    FillDirectoryGrid();
    EXPECT_EQ(Box("VerBorrados").Text, "View 0 Deleted");
    EXPECT_EQ(Box("VerBorrados").Tag, "View # Deleted");
    EXPECT_EQ(Box("VerContinuaciones").Text, "View 0 Continues");
    EXPECT_FALSE(Box("VerBorrados").Enabled);
    EXPECT_FALSE(Box("VerContinuaciones").Enabled);
}

TEST_F(DirectoryGridTest, ABoxWithoutATagKeepsItsCaptionThere) {
    Box("VerBorrados").Tag.clear();
    Box("VerBorrados").Text = "#/#";
    Disk.DeletedCount = 2;
    FillDirectoryGrid();
    EXPECT_EQ(Box("VerBorrados").Tag, "#/#");
    EXPECT_EQ(Box("VerBorrados").Text, "2/2");
}

TEST_F(DirectoryGridTest, CheckingABoxShowsItsRows) {
    NewDirectory(kDragon);
    AddEntry("A");
    AddEntry("B").Flags = 0x80;
    AddEntry("A").Flags = 0x01;
    Disk.DeletedCount = 1;
    Disk.ContinuationCount = 1;
    FillDirectoryGrid();
    EXPECT_EQ(TotalsLines[0].substr(0, 9), "Files:|1|");
    SetChecked(Box("VerBorrados"), true);
    EXPECT_TRUE(RowOf(ListDirec, 2).Visible);
    EXPECT_FALSE(RowOf(ListDirec, 3).Visible);
    EXPECT_EQ(TotalsLines[0].substr(0, 9), "Files:|2|");
    SetChecked(Box("VerContinuaciones"), true);
    EXPECT_TRUE(RowOf(ListDirec, 3).Visible);
    SetChecked(Box("VerBorrados"), false);
    EXPECT_FALSE(RowOf(ListDirec, 2).Visible);
    EXPECT_EQ(TotalsLines[0].substr(0, 9), "Files:|2|");
}

// The lines around the grid

TEST_F(DirectoryGridTest, TheGeometryLineMultipliesTheTracks) {
    Disk.TrackCount = 35;
    Disk.SectorsPerTrack = 18;
    FillDirectoryGrid();
    EXPECT_EQ(PrincipalControl("Info").Text,
              "35 Tracks X 18 SecXTracks = 630 Sectors = 161,280 Bytes");
    Disk.TrackCount = 255;
    Disk.SectorsPerTrack = 32767;
    FillDirectoryGrid();
    EXPECT_EQ(PrincipalControl("Info").Text,
              "255 Tracks X 32767 SecXTracks = 8355585 Sectors = 2,139,029,760 Bytes");
}

TEST_F(DirectoryGridTest, TheGeometryLineOfNoDisk) {
    FillDirectoryGrid();
    EXPECT_EQ(PrincipalControl("Info").Text, "0 Tracks X 0 SecXTracks = 0 Sectors =  Bytes");
}

TEST_F(DirectoryGridTest, TheTitleNamesTheFamilyAndTheDisk) {
    const std::pair<Family, const char*> rows[] = {
        {kDecb, "CoCo Directory:  GAMES"},
        {kDragon, "Dragon Directory:  GAMES"},
        {kOs9, "OS9/NitrOS9 Directory:  GAMES"},
        {kFlex, "FLEX/UniFlex Directory:  GAMES"},
    };
    for (const auto& [family, title] : rows) {
        NewDirectory(family);
        Disk.DiskName = "GAMES";
        FillDirectoryGrid();
        EXPECT_EQ(Title(), title);
        EXPECT_EQ(PrincipalControl("Label3").Tag, "CoCo Directory:");
    }
}

TEST_F(DirectoryGridTest, TheTitleHasTheDateOfADiskThatHasOne) {
    Disk.DiskName = "N";
    Disk.DiskDate = DayCount(1990, 5, 6) + 0.25;
    FillDirectoryGrid();
    EXPECT_EQ(Title(), "CoCo Directory:  N (06/05/1990 06:00)");
    Disk.DiskDate = DayCount(1990, 5, 6);
    FillDirectoryGrid();
    EXPECT_EQ(Title(), "CoCo Directory:  N (06/05/1990 00:00)");
}

TEST_F(DirectoryGridTest, ATextWithoutCocoShowsNoFamily) {
    PrincipalControl("Label3").Tag = "Disk:";
    Disk.DiskFamily = kDragon;
    FillDirectoryGrid();
    EXPECT_EQ(Title(), "Disk:  ");
}

TEST_F(DirectoryGridTest, AChangedImageTurnsTheGridYellowAndCanBeUndone) {
    Disk.ImageBytes = "new";
    Disk.ImageOnOpen = "old";
    FillDirectoryGrid();
    EXPECT_EQ(Disk.ImageModified, -1);
    EXPECT_EQ(ListDirec.BackColour, 65535);
    EXPECT_TRUE(PrincipalControl("UndoBtn").Enabled);
    const Menu& files = MenuOf(Principal, "FilesMenu");
    EXPECT_TRUE(files.Items[3].Enabled);
    EXPECT_TRUE(files.Items[5].Enabled);
    Disk.ImageHeader = "o";
    Disk.ImageBytes = "ld";
    FillDirectoryGrid();
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_EQ(ListDirec.BackColour, 0xFFFFFF);
    EXPECT_FALSE(PrincipalControl("UndoBtn").Enabled);
    EXPECT_FALSE(files.Items[3].Enabled);
    EXPECT_FALSE(files.Items[5].Enabled);
    EXPECT_TRUE(PrincipalControl("SaveBtn").Enabled);
}

// Moving, resizing and hiding columns

TEST_F(DirectoryGridTest, AMovedColumnIsStoredButComesBackAtTheNextFill) {
    FillDirectoryGrid();
    MoveColumn(ListDirec, 1, 3);
    ListDirec.ColumnMoved(1);
    EXPECT_EQ(Stored("ColumnOrder"), "3,1,2,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18");
    EXPECT_EQ(Settings.ColumnOrderList[0], "1");
    FillDirectoryGrid();
    EXPECT_EQ(Column(1).Order, 1);
}

TEST_F(DirectoryGridTest, AResizedColumnIsStoredButComesBackAtTheNextFill) {
    FillDirectoryGrid();
    const std::string totals = PrincipalControl("totales", 0).Text;
    ListDirec.ColumnResized(1, 100);
    EXPECT_EQ(Column(1).Width, 100);
    EXPECT_EQ(Stored("ColumnWidths"), "100,33,17,17,26,26,60,60,50,55,27,110,110,33,33,33,40,333");
    EXPECT_EQ(PrincipalControl("totales", 0).Text.size(), totals.size() + 5);
    EXPECT_EQ(Settings.ColumnWidthList[0], "65");
    FillDirectoryGrid();
    EXPECT_EQ(Column(1).Width, 65);
}

TEST_F(DirectoryGridTest, TheHeadersMenuShowsAndSetsWhichColumnsAreVisible) {
    FillDirectoryGrid();
    bool shown = false;
    script_.OnPopup = [&](const std::string&) {
        shown = true;
        const Menu& menu = MenuOf(Principal, "columnsMenu");
        for (int index = 0; index < kDirectoryColumns; ++index) {
            EXPECT_EQ(menu.Items[static_cast<std::size_t>(index)].Checked,
                      Column(index + 1).Visible);
        }
        menu.Click(1);
        menu.Click(4);
    };
    const std::string before = SettingsFile();
    ListDirec.HeaderRightClick();
    EXPECT_TRUE(shown);
    EXPECT_EQ(script_.PopupMenus, (Texts{"MenuColumns"}));
    EXPECT_EQ(ShownColumns(), "1 3 4 5 6 7 8 9 10 14 15 16 18 ");
    EXPECT_EQ(SettingsFile(), before);
}

TEST_F(DirectoryGridTest, HidingAColumnEmptiesItsTotalOnly) {
    Disk.UsedSectors = 90;
    FillDirectoryGrid();
    const std::string before = PrincipalControl("totales", 0).Text;
    EXPECT_EQ(before,
              "Files:     0"
              "      0"
              "          23,040"
              " 23,040"
              "  0.00%");
    script_.OnPopup = [](const std::string&) { MenuOf(Principal, "columnsMenu").Click(1); };
    ListDirec.HeaderRightClick();
    EXPECT_EQ(PrincipalControl("totales", 0).Text, ReplaceText(before, "Files:     0", "Files:  "));
}

TEST_F(DirectoryGridTest, TheHeadersMenuNeedsColumns) {
    ListDirec.HeaderRightClick();
    EXPECT_TRUE(script_.PopupMenus.empty());
}

TEST_F(DirectoryGridTest, AnItemOfTheColumnsMenuTogglesItsColumn) {
    FillDirectoryGrid();
    const Menu& menu = MenuOf(Principal, "columnsMenu");
    menu.Click(17);
    EXPECT_TRUE(menu.Items[17].Checked);
    EXPECT_TRUE(Column(18).Visible);
    menu.Click(17);
    EXPECT_FALSE(menu.Items[17].Checked);
    EXPECT_FALSE(Column(18).Visible);
    EXPECT_EQ(FailureOf([&] { menu.Click(18); }), 9);
}

TEST_F(DirectoryGridTest, TheTipIsTheLongNameOfTheColumn) {
    FillDirectoryGrid();
    ListDirec.MouseOver(15);
    EXPECT_EQ(ListDirec.ToolTip, "Sectors in the Last Granule");
    ListDirec.MouseOver(0);
    EXPECT_EQ(ListDirec.ToolTip, "Sectors in the Last Granule");
    ListDirec.MouseOver(1);
    EXPECT_EQ(ListDirec.ToolTip, "Name");
    ListDirec.MouseOver(18);
    EXPECT_EQ(ListDirec.ToolTip, "Granules or Sectors secuence");
}

TEST_F(DirectoryGridTest, ScrollingMovesTheTotals) {
    FillDirectoryGrid();
    const std::string whole = PrincipalControl("totales", 0).Text;
    ListDirec.ScrollOffsetX = -21;
    ListDirec.Scrolled();
    EXPECT_EQ(PrincipalControl("totales", 0).Text, whole.substr(3));
}

}  // namespace
}  // namespace brindlemoor
