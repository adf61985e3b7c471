#include "workbench/grid.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/dates.h"
#include "core/runtime_failure.h"
#include "support/disk_fixture.h"

namespace brindlemoor {
namespace {

using test::FailureOf;

/// A grid of `columns` columns with the headers "1", "2" and so on.
Grid GridOf(int columns) {
    Grid grid;
    for (int number = 1; number <= columns; ++number) {
        GridColumn column;
        column.Key = std::to_string(number);
        column.Header = column.Key;
        AddColumn(grid, column);
    }
    return grid;
}

std::string Orders(const Grid& grid) {
    std::string text;
    for (const GridColumn& column : grid.Columns) text += std::to_string(column.Order) + " ";
    return text;
}

TEST(GridRows, ARowHasAnEmptyCellForEachColumnAndIsNumberedFrom1) {
    Grid grid = GridOf(3);
    EXPECT_EQ(AddRow(grid), 1);
    EXPECT_EQ(AddRow(grid), 2);
    EXPECT_EQ(grid.Rows[1].Cells.size(), 3U);
    EXPECT_EQ(grid.RowSelected.size(), 2U);
    const GridCell& cell = CellOf(grid, 2, 3);
    EXPECT_EQ(ShownText(grid, cell, 3), "");
    EXPECT_EQ(cell.BackColour, kNoColour);
    EXPECT_EQ(cell.ForeColour, kNoColour);
    EXPECT_FALSE(cell.Bold);
    EXPECT_TRUE(RowOf(grid, 1).Visible);
}

TEST(GridRows, ClearingRemovesRowsAndSelectionButNoColumn) {
    Grid grid = GridOf(2);
    AddRow(grid);
    grid.RowSelected[0] = true;
    grid.SelectedRow = 1;
    grid.ScrollOffsetX = -14;
    ClearGrid(grid);
    EXPECT_TRUE(grid.Rows.empty());
    EXPECT_TRUE(grid.RowSelected.empty());
    EXPECT_EQ(grid.SelectedRow, 0);
    EXPECT_EQ(grid.Columns.size(), 2U);
    EXPECT_EQ(grid.ScrollOffsetX, -14);
}

TEST(GridRows, NumbersOutsideTheGridFailWith9) {
    Grid grid = GridOf(2);
    AddRow(grid);
    for (const int number : {0, -1, 3}) {
        EXPECT_EQ(FailureOf([&] { ColumnOf(grid, number); }), 9) << number;
        EXPECT_EQ(FailureOf([&] { SeenColumn(grid, number); }), 9) << number;
        EXPECT_EQ(FailureOf([&] { CellOf(grid, 1, number); }), 9) << number;
        EXPECT_EQ(FailureOf([&] { AutoWidth(grid, number); }), 9) << number;
        EXPECT_EQ(FailureOf([&] { SetColumnWidth(grid, number, 5); }), 9) << number;
    }
    for (const int number : {0, -1, 2}) {
        EXPECT_EQ(FailureOf([&] { RowOf(grid, number); }), 9) << number;
        EXPECT_EQ(FailureOf([&] { SetCellText(grid, number, 1, ""); }), 9) << number;
        EXPECT_EQ(FailureOf([&] { SetCellNumber(grid, number, 1, 0); }), 9) << number;
        EXPECT_EQ(FailureOf([&] { SetCellDate(grid, number, 1, 0); }), 9) << number;
    }
}

TEST(GridCells, ANumberIsShownUnderItsColumnsPattern) {
    Grid grid = GridOf(3);
    ColumnOf(grid, 1).NumberFormat = "###,###";
    ColumnOf(grid, 2).NumberFormat = "##0.00\\%";
    AddRow(grid);
    for (int column = 1; column <= 3; ++column) SetCellNumber(grid, 1, column, 1234567.5);
    EXPECT_EQ(ShownText(grid, CellOf(grid, 1, 1), 1), "1,234,568");
    EXPECT_EQ(ShownText(grid, CellOf(grid, 1, 2), 2), "1234567.50%");
    EXPECT_EQ(ShownText(grid, CellOf(grid, 1, 3), 3), "1234567.5");
    EXPECT_EQ(FailureOf([&] { ShownText(grid, CellOf(grid, 1, 1), 4); }), 9);
}

TEST(GridCells, ZeroShowsNothingUnderAPatternWithoutZeros) {
    Grid grid = GridOf(1);
    ColumnOf(grid, 1).NumberFormat = "###,###";
    AddRow(grid);
    SetCellNumber(grid, 1, 1, 0);
    EXPECT_EQ(ShownText(grid, CellOf(grid, 1, 1), 1), "");
    SetCellNumber(grid, 1, 1, -1234);
    EXPECT_EQ(ShownText(grid, CellOf(grid, 1, 1), 1), "-1,234");
}

TEST(GridCells, ADateIsShownAsADateAndAnEmptyOneNotAtAll) {
    Grid grid = GridOf(1);
    AddRow(grid);
    SetCellDate(grid, 1, 1, DayCount(1989, 7, 4) + 0.5);
    EXPECT_EQ(ShownText(grid, CellOf(grid, 1, 1), 1), "04/07/1989 12:00");
    SetCellDate(grid, 1, 1, 0);
    EXPECT_EQ(ShownText(grid, CellOf(grid, 1, 1), 1), "");
}

TEST(GridCells, ACellTakesTheKindOfWhatWasSetLast) {
    Grid grid = GridOf(1);
    AddRow(grid);
    SetCellNumber(grid, 1, 1, 5);
    SetCellText(grid, 1, 1, "five");
    EXPECT_EQ(ShownText(grid, CellOf(grid, 1, 1), 1), "five");
    SetCellNumber(grid, 1, 1, 6);
    EXPECT_EQ(ShownText(grid, CellOf(grid, 1, 1), 1), "6");
}

TEST(GridWidths, AColumnFitsItsHeaderOrItsWidestVisibleCell) {
    Grid grid = GridOf(1);
    ColumnOf(grid, 1).Header = "ATT";
    AutoWidth(grid, 1);
    EXPECT_EQ(ColumnOf(grid, 1).Width, 3 * 7 + 2 * kGridCellMargin);
    SetCellText(grid, AddRow(grid), 1, "rweRWESD");
    SetCellText(grid, AddRow(grid), 1, "much longer than that");
    RowOf(grid, 2).Visible = false;
    AutoWidth(grid, 1);
    EXPECT_EQ(ColumnOf(grid, 1).Width, 8 * 7 + 2 * kGridCellMargin);
    ClearGrid(grid);
    AutoWidth(grid, 1);
    EXPECT_EQ(ColumnOf(grid, 1).Width, 3 * 7 + 2 * kGridCellMargin);
}

TEST(GridWidths, TheIndentOfACellNeedsRoomToo) {
    Grid grid = GridOf(1);
    SetCellText(grid, AddRow(grid), 1, "sub");
    CellOf(grid, 1, 1).Indent = 26;
    AutoWidth(grid, 1);
    EXPECT_EQ(ColumnOf(grid, 1).Width, 3 * 7 + 2 * kGridCellMargin + 26);
}

TEST(GridWidths, AWidthIsNeverNegative) {
    Grid grid = GridOf(1);
    SetColumnWidth(grid, 1, 40);
    EXPECT_EQ(ColumnOf(grid, 1).Width, 40);
    SetColumnWidth(grid, 1, -1);
    EXPECT_EQ(ColumnOf(grid, 1).Width, 0);
}

TEST(GridOrder, ColumnsStandByTheirOrderEqualOnesByNumber) {
    Grid grid = GridOf(4);
    EXPECT_EQ(ColumnsFromLeft(grid), (std::vector<int>{1, 2, 3, 4}));
    ColumnOf(grid, 1).Order = 3;
    ColumnOf(grid, 2).Order = 3;
    ColumnOf(grid, 3).Order = -7;
    ColumnOf(grid, 4).Order = 99;
    EXPECT_EQ(ColumnsFromLeft(grid), (std::vector<int>{3, 1, 2, 4}));
    EXPECT_TRUE(ColumnsFromLeft(Grid()).empty());
    Grid wide = GridOf(40);
    for (int number = 1; number <= 40; ++number) ColumnOf(wide, number).Order = number % 2;
    const std::vector<int> columns = ColumnsFromLeft(wide);
    EXPECT_TRUE(std::is_sorted(columns.begin(), columns.begin() + 20));
    EXPECT_TRUE(std::is_sorted(columns.begin() + 20, columns.end()));
}

TEST(GridOrder, MovingAColumnNumbersAllAnew) {
    Grid grid = GridOf(4);
    MoveColumn(grid, 1, 3);
    EXPECT_EQ(ColumnsFromLeft(grid), (std::vector<int>{2, 3, 1, 4}));
    EXPECT_EQ(Orders(grid), "3 1 2 4 ");
    MoveColumn(grid, 4, 1);
    EXPECT_EQ(ColumnsFromLeft(grid), (std::vector<int>{4, 2, 3, 1}));
    MoveColumn(grid, 4, 4);
    EXPECT_EQ(ColumnsFromLeft(grid), (std::vector<int>{2, 3, 1, 4}));
    MoveColumn(grid, 3, 2);
    EXPECT_EQ(ColumnsFromLeft(grid), (std::vector<int>{2, 3, 1, 4}));
}

TEST(GridOrder, AMoveOutsideTheGridFailsWith9AndMovesNothing) {
    Grid grid = GridOf(3);
    EXPECT_EQ(FailureOf([&] { MoveColumn(grid, 1, 4); }), 9);
    EXPECT_EQ(FailureOf([&] { MoveColumn(grid, 1, 0); }), 9);
    EXPECT_EQ(FailureOf([&] { MoveColumn(grid, 4, 1); }), 9);
    EXPECT_EQ(Orders(grid), "1 2 3 ");
}

TEST(GridRevision, GrowsWithEveryChange) {
    Grid grid;
    unsigned last = grid.Revision;
    const auto grew = [&] {
        const bool more = grid.Revision > last;
        last = grid.Revision;
        return more;
    };
    AddColumn(grid, {});
    EXPECT_TRUE(grew());
    AddRow(grid);
    EXPECT_TRUE(grew());
    SetCellText(grid, 1, 1, "a");
    EXPECT_TRUE(grew());
    SetCellNumber(grid, 1, 1, 2);
    EXPECT_TRUE(grew());
    AutoWidth(grid, 1);
    EXPECT_TRUE(grew());
    SetColumnWidth(grid, 1, 9);
    EXPECT_TRUE(grew());
    RowOf(grid, 1).Visible = false;
    EXPECT_TRUE(grew());
    MoveColumn(grid, 1, 1);
    EXPECT_TRUE(grew());
    EXPECT_EQ(ShownText(grid, grid.Rows[0].Cells[0], SeenColumn(grid, 1).Order), "2");
    EXPECT_FALSE(grew());
    ClearGrid(grid);
    EXPECT_TRUE(grew());
}

/// The first column's texts, row by row.
std::string FirstColumn(const Grid& grid) {
    std::string text;
    for (const GridRow& row : grid.Rows) text += row.Cells[0].Text + " ";
    return text;
}

TEST(GridSort, TextsGoByTheirBytesAndEqualRowsStayInTheirOrder) {
    Grid grid = GridOf(2);
    const char* const names[] = {"b", "B", "a", "10", "9", "\xE9"};
    for (const char* name : names) {
        const int row = AddRow(grid);
        SetCellText(grid, row, 1, name);
        SetCellText(grid, row, 2, "same");
    }
    grid.SortColumns = {{2, 1}};
    SortRows(grid);
    EXPECT_EQ(FirstColumn(grid), "b B a 10 9 \xE9 ");
    grid.SortColumns = {{1, 1}};
    SortRows(grid);
    EXPECT_EQ(FirstColumn(grid), "10 9 B a b \xE9 ");
    grid.SortColumns = {{1, 2}};
    SortRows(grid);
    EXPECT_EQ(FirstColumn(grid), "\xE9 b a B 9 10 ");
}

TEST(GridSort, AColumnOfNumbersGoesByThem) {
    Grid grid = GridOf(2);
    grid.Columns[1].Sort = SortKind::Number;
    for (const int number : {900, 10, -5, 1000}) {
        const int row = AddRow(grid);
        SetCellText(grid, row, 1, std::to_string(number));
        SetCellNumber(grid, row, 2, number);
    }
    grid.SortColumns = {{2, 1}};
    SortRows(grid);
    EXPECT_EQ(FirstColumn(grid), "-5 10 900 1000 ");
    grid.Columns[1].Sort = SortKind::Text;
    SortRows(grid);
    EXPECT_EQ(FirstColumn(grid), "-5 10 1000 900 ");
}

TEST(GridSort, TheFirstColumnOfTheListComesFirstAndOnesWithoutOrderDoNotCount) {
    Grid grid = GridOf(3);
    const char* const rows[][3] = {
        {"x", "2", "a"}, {"y", "1", "a"}, {"z", "1", "b"}, {"w", "2", "b"}};
    for (const auto& cells : rows) {
        const int row = AddRow(grid);
        for (int column = 1; column <= 3; ++column)
            SetCellText(grid, row, column, cells[column - 1]);
    }
    grid.SortColumns = {{1, 0}, {2, 1}, {3, 2}};
    SortRows(grid);
    EXPECT_EQ(FirstColumn(grid), "z y w x ");
    grid.SortColumns = {};
    SortRows(grid);
    EXPECT_EQ(FirstColumn(grid), "z y w x ");
}

TEST(GridSort, HiddenRowsAreSortedTooAndTheSelectionIsLost) {
    Grid grid = GridOf(1);
    for (const char* name : {"c", "b", "a"}) SetCellText(grid, AddRow(grid), 1, name);
    RowOf(grid, 2).Visible = false;
    grid.RowSelected = {true, false, false};
    grid.SelectedRow = 1;
    grid.SortColumns = {{1, 1}};
    SortRows(grid);
    EXPECT_EQ(FirstColumn(grid), "a b c ");
    EXPECT_FALSE(grid.Rows[1].Visible);
    EXPECT_EQ(grid.RowSelected, (std::vector<bool>{false, false, false}));
    EXPECT_EQ(grid.SelectedRow, 0);
}

}  // namespace
}  // namespace brindlemoor
