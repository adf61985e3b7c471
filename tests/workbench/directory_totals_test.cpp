#include "workbench/directory_totals.h"

#include <gtest/gtest.h>

#include <array>

#include "core/runtime_failure.h"
#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

using test::FailureOf;

// The cells of the lines

class TotalsTest : public test::DirectoryTest {};

TEST_F(TotalsTest, AnEmptyDiskHasZerosAndNoEfficiency) {
    FillDirectoryGrid();
    EXPECT_EQ(TotalsLines[0], "Files:|0|||0|0||||0.00%");
    EXPECT_EQ(TotalsLines[1], "Max:|0|||0|0|||      ");
    EXPECT_EQ(TotalsLines[2], "Free:|0|||0|0||| FREE BYTES");
}

TEST_F(TotalsTest, TheLinesAddUpTheDisk) {
    Disk.MaxDirEntries = 72;
    Disk.TotalUnits = 612;
    Disk.UsedSectors = 27;
    DirEntry& first = AddEntry("A");
    first.Size = 2000;
    first.UnitCount = 1;
    DirEntry& second = AddEntry("B");
    second.Size = 2500;
    second.UnitCount = 2;
    FillDirectoryGrid();
    EXPECT_EQ(TotalsLines[0], "Files:|2|||27|3|4,500|6,912|2,412|65.10%");
    EXPECT_EQ(TotalsLines[1], "Max:|72|||612|68|156,672|156,672|      ");
    EXPECT_EQ(TotalsLines[2], "Free:|70|||585|65|152,172|149,760| FREE BYTES");
}

TEST_F(TotalsTest, AnOverfullDiskHasNegativeFreeCells) {
    Disk.MaxDirEntries = 1;
    Disk.TotalUnits = 10;
    Disk.UsedSectors = 18;
    for (int row = 0; row < 2; ++row) AddEntry("A").UnitCount = 1;
    DirTable[0].Size = 5000;
    FillDirectoryGrid();
    EXPECT_EQ(TotalsLines[0], "Files:|2|||18|2|5,000|4,608|-392|108.51%");
    EXPECT_EQ(TotalsLines[2], "Free:|-1|||-8|-1|-2,440|-2,048| FREE BYTES");
}

TEST_F(TotalsTest, TheLargestDiskDoesNotOverflow) {
    Disk.TotalUnits = 16777215;
    Disk.UsedSectors = 16777215;
    ComputeTotals({6000000000, 7, 9});
    EXPECT_EQ(TotalsLines[0],
              "Files:|9|||16777215|7|6,000,000,000|4,294,967,040|-1,705,032,960|"
              "139.70%");
    EXPECT_EQ(TotalsLines[1], "Max:|0|||16777215|1864135|4,294,967,040|4,294,967,040|      ");
}

TEST_F(TotalsTest, RowsShownLeavesOutWhatTheBoxesHide) {
    NewDirectory(kDragon);
    for (int row = 0; row < 10; ++row) AddEntry("A");
    Disk.MaxDirEntries = 160;
    Disk.DeletedCount = 3;
    Disk.ContinuationCount = 2;
    const std::pair<bool, bool> boxes[] = {
        {false, false}, {false, true}, {true, false}, {true, true}};
    const int shown[] = {5, 8, 7, 10};
    for (std::size_t row = 0; row < 4; ++row) {
        PrincipalControl("VerContinuaciones").Checked = boxes[row].first;
        PrincipalControl("VerBorrados").Checked = boxes[row].second;
        FillDirectoryGrid();
        EXPECT_EQ(TotalsLines[0], "Files:|" + std::to_string(shown[row]) + "|||0|0||||0.00%");
        const std::string free = "Free:|" + std::to_string(160 - shown[row]) + "|";
        EXPECT_EQ(TotalsLines[2].substr(0, free.size()), free);
    }
}

TEST_F(TotalsTest, ContinuationRowsCountInTheFileBytesOnly) {
    NewDirectory(kDragon);
    AddEntry("A").Size = 100;
    DirEntry& continuation = AddEntry("A");
    continuation.Size = 1000;
    continuation.UnitCount = 4;
    continuation.Flags = 0x01;
    DirEntry& deleted = AddEntry("B");
    deleted.Size = 7;
    deleted.Flags = 0x80;
    FillDirectoryGrid();
    EXPECT_EQ(TotalsLines[0], "Files:|3|||0|4|107||-107|10700.00%");
    EXPECT_EQ(Disk.TotalFileBytes, 1107);
}

TEST_F(TotalsTest, Os9DotEntriesCountInTheFileBytesOnly) {
    NewDirectory(kOs9);
    AddEntry(".").Size = 64;
    AddEntry("..").Size = 64;
    AddEntry("startup").Size = 200;
    FillDirectoryGrid();
    EXPECT_EQ(TotalsLines[0].substr(0, 22), "Files:|3|||0|0|200||-2");
    EXPECT_EQ(Disk.TotalFileBytes, 328);
    NewDirectory(kFlex);
    AddEntry(".").Size = 64;
    FillDirectoryGrid();
    EXPECT_EQ(TotalsLines[0].substr(0, 17), "Files:|1|||0|0|64");
}

TEST_F(TotalsTest, TheFileBytesAreCountedAnewAtEachFill) {
    AddEntry("A").Size = 100;
    FillDirectoryGrid();
    FillDirectoryGrid();
    EXPECT_EQ(Disk.TotalFileBytes, 100);
}

TEST_F(TotalsTest, TheWordsAreThoseOfTheLanguage) {
    MenuOf(Principal, "LanguageMenu").Click(1);
    EXPECT_EQ(TotalsLines[0].substr(0, 9), "Archivos:");
    EXPECT_EQ(TotalsLines[1].substr(0, 4), "Max:");
    EXPECT_EQ(TotalsLines[2].substr(0, 6), "Libre:");
    EXPECT_EQ(TotalsLines[2].substr(TotalsLines[2].size() - 13), " BYTES LIBRES");
}

// Their setting out. The grid has three columns of 10, 5 and 4 characters.

class TotalsLayoutTest : public test::WorkbenchTest {
  protected:
    void SetUp() override {
        WorkbenchTest::SetUp();
        for (const int characters : {10, 5, 4}) {
            GridColumn column;
            column.Width = characters * kGridCharacterWidth;
            AddColumn(ListDirec, column);
        }
    }

    /// What the three labels show of these lines.
    static std::array<std::string, 3> LaidOut(const std::array<std::string, 3>& lines) {
        TotalsLines = lines;
        LayoutTotals();
        std::array<std::string, 3> shown;
        for (int line = 0; line < 3; ++line) {
            shown[static_cast<std::size_t>(line)] = PrincipalControl("totales", line).Text;
        }
        return shown;
    }

    static std::string FirstLine(const std::string& line) { return LaidOut({line, "", ""})[0]; }
};

TEST_F(TotalsLayoutTest, TheFirstCellIsLeftAlignedAndOneShorterTheOthersRightAligned) {
    EXPECT_EQ(FirstLine("Files:|12|3"), "Files:      12   3");
}

TEST_F(TotalsLayoutTest, CellsThatFillTheirColumnStandWithoutBlanks) {
    EXPECT_EQ(FirstLine("123456789|12345|1234"), "123456789123451234");
    EXPECT_EQ(FirstLine("1234567890|12345|1234"), "1234567890123451234");
}

TEST_F(TotalsLayoutTest, LongerCellsAreCut) {
    EXPECT_EQ(FirstLine("12345678901|123456|12345"), "1234567890123451234");
}

TEST_F(TotalsLayoutTest, OnlyTheLastCellOfTheLastLineSticksOut) {
    const std::string line = "12345678901|123456|12345";
    const auto shown = LaidOut({line, line, line});
    EXPECT_EQ(shown[0], "1234567890123451234");
    EXPECT_EQ(shown[1], "1234567890123451234");
    EXPECT_EQ(shown[2], "12345678901234512345");
    EXPECT_EQ(LaidOut({"a", "b", "c|123456"})[2], "c        123456");
}

TEST_F(TotalsLayoutTest, AFractionalWidthIsCutToWholeCharactersAndPadsRoundDown) {
    SetColumnWidth(ListDirec, 1, 65);  // 9.29 characters
    SetColumnWidth(ListDirec, 2, 33);  // 4.71
    SetColumnWidth(ListDirec, 3, 27);  // 3.86
    EXPECT_EQ(FirstLine("Files:|12|3"), "Files:    12  3");
    EXPECT_EQ(FirstLine("1234567890|12345|1234"), "1234567891234123");
    EXPECT_EQ(FirstLine("12345678|1234|123"), "123456781234123");
}

TEST_F(TotalsLayoutTest, AHiddenColumnEmptiesItsCellAndLeavesTheOthers) {
    ListDirec.Columns[1].Visible = false;
    EXPECT_EQ(FirstLine("Files:|12|3"), "Files:      3");
    ListDirec.Columns[1].Visible = true;
    ListDirec.Columns[0].Visible = false;
    EXPECT_EQ(FirstLine("Files:|12|3"), "   12   3");
}

TEST_F(TotalsLayoutTest, AHiddenLastColumnHidesTheTextThatSticksOut) {
    ListDirec.Columns[2].Visible = false;
    EXPECT_EQ(LaidOut({"a", "b", "Free:|7| FREE BYTES"})[2], "Free:        7");
}

TEST_F(TotalsLayoutTest, AColumnOfNoWidthShowsNothing) {
    SetColumnWidth(ListDirec, 1, 0);
    SetColumnWidth(ListDirec, 2, 0);
    EXPECT_EQ(FirstLine("Files:|12|3"), "   3");
}

TEST_F(TotalsLayoutTest, TheFirstEmptyLineEndsIt) {
    LaidOut({"a", "b", "c"});
    const auto shown = LaidOut({"d", "", "e"});
    EXPECT_EQ(shown[0], "d        ");
    EXPECT_EQ(shown[1], "b        ");
    EXPECT_EQ(shown[2], "c        ");
}

TEST_F(TotalsLayoutTest, ScrollingHidesWholeCharactersRounded) {
    const std::string whole = "Files:      12   3";
    const std::pair<int, std::size_t> rows[] = {{0, 0},   {-3, 0},  {-4, 1},  {-7, 1},
                                                {-10, 1}, {-11, 2}, {-70, 10}};
    for (const auto& [offset, hidden] : rows) {
        ListDirec.ScrollOffsetX = offset;
        EXPECT_EQ(FirstLine("Files:|12|3"), whole.substr(hidden)) << offset;
    }
    ListDirec.ScrollOffsetX = -7000;
    EXPECT_EQ(FirstLine("Files:|12|3"), "");
}

TEST_F(TotalsLayoutTest, MoreCellsThanColumnsFailWith9) {
    EXPECT_EQ(FailureOf([] { FirstLine("a|b|c|d"); }), 9);
}

TEST_F(TotalsLayoutTest, BeforeTheFirstDiskThereIsNothingToSetOut) {
    const auto shown = LaidOut({"", "", ""});
    for (const std::string& line : shown) EXPECT_EQ(line, "");
}

TEST_F(TotalsLayoutTest, SettingOutLeavesTheGridAsItIsShown) {
    const unsigned before = ListDirec.Revision;
    LaidOut({"a|b", "c", "d"});
    EXPECT_EQ(ListDirec.Revision, before);
}

TEST_F(TotalsLayoutTest, TheOrderOfTheColumnsDoesNotMoveTheCells) {
    MoveColumn(ListDirec, 1, 3);
    EXPECT_EQ(FirstLine("Files:|12|3"), "Files:      12   3");
}

}  // namespace
}  // namespace brindlemoor
