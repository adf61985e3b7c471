#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "workbench/control.h"

namespace brindlemoor {

/// Pixels of a character of the grid's fixed-pitch font, and of the blank at each side of a cell.
inline constexpr int kGridCharacterWidth = 7;
inline constexpr int kGridCellMargin = 3;

enum class CellKind : std::uint8_t { Text, Number, Date };

/// One cell. Numbers and dates are kept as such and shown in their column's form.
struct GridCell {
    CellKind Kind = CellKind::Text;
    bool Bold = false;
    bool RightAligned = false;
    std::int16_t Indent = 0;  ///< pixels
    std::int32_t BackColour = kNoColour;
    std::int32_t ForeColour = kNoColour;
    double Number = 0;
    std::string Text;
};

struct GridRow {
    bool Visible = true;
    int Height = 17;  ///< pixels
    std::vector<GridCell> Cells;
};

enum class SortKind { Text, Number };

struct GridColumn {
    std::string Key;
    std::string Header;
    bool RightAligned = false;
    int Width = 0;  ///< pixels
    bool Visible = true;
    int Order = 0;             ///< 1-based place among the columns
    std::string NumberFormat;  ///< number pattern of `FormatNumber`; empty: as it stands
    SortKind Sort = SortKind::Text;
    int HeaderPicture = 0;  ///< `kAscendingPicture`, `kDescendingPicture` or 0 for none
};

/// The pictures of `Iconos` that headers show, by their numbers there.
inline constexpr int kAscendingPicture = 17;
inline constexpr int kDescendingPicture = 18;

/// Pixels by which a column that is sorted by is wider, for its picture.
inline constexpr int kSortWidening = 25;

/// A column that rows are sorted by.
struct SortColumn {
    int Column = 0;  ///< from 1
    int Order = 0;   ///< 0 none, 1 ascending, 2 descending
};

/// A cell by its numbers from 1; 0 for none.
struct CellNumbers {
    int Row = 0;
    int Column = 0;
};

/// The cell whose editor stands open.
struct EditedCell {
    int Row = 0;  ///< from 1, 0 while no editor is open
    int Column = 0;
    int Widening = 0;  ///< pixels by which its column is wider meanwhile
};

/// A rectangle of the grid in pixels, from the left end of its header and the top of its rows.
struct CellPlace {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

/// Numbers of the mouse's buttons, and of the keys held with them.
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kMiddleButton = 4;
inline constexpr int kShiftHeld = 1;
inline constexpr int kControlHeld = 2;
inline constexpr int kAltHeld = 4;

/// A grid of cells. Rows and columns are numbered from 1.
struct Grid {
    std::vector<GridColumn> Columns;
    std::vector<GridRow> Rows;
    bool Redraw = true;  ///< false while a routine fills it: nothing is shown
    std::int32_t AlternateRowBackColour = kNoColour;
    std::int32_t BackColour = 0xFFFFFF;
    int ScrollOffsetX = 0;  ///< pixels, zero or negative
    int SelectedRow = 0;    ///< the row clicked last, 0 for none
    std::vector<bool> RowSelected;
    std::string ToolTip;
    std::vector<SortColumn> SortColumns;  ///< the first comes first
    EditedCell Edited;
    unsigned Revision = 0;  ///< grows with every change of rows, columns or cells

    std::function<void(int column)> ColumnMoved;               ///< `Order`s are set already
    std::function<void(int column, int width)> ColumnResized;  ///< pixels; not stored yet
    std::function<void()> HeaderRightClick;
    std::function<void(int column)> MouseOver;  ///< 0: over no column
    std::function<void()> Scrolled;             ///< `ScrollOffsetX` is set already
    std::function<bool(int key)> Key;
    std::function<void(int row)> RowClick;
    std::function<void(int column)> HeaderClick;

    /// The user wants to change a cell, by the key of that code or, 0, by the mouse.
    std::function<void(int row, int column, int key)> EditRequest;

    /// A button of the mouse went down over the rows, behind `RowClick`.
    std::function<void(int button, int held, int x, int y)> MouseDown;

    // What is asked of the view that shows the grid; without one there is no answer.
    std::function<CellNumbers(int x, int y)> CellUnder;
    std::function<CellPlace(int row, int column)> PlaceOfCell;
};

/// Removes all rows, and with them the selection. Columns stay.
void ClearGrid(Grid& grid);

/// Adds a column behind the last; its `Order` is its number.
void AddColumn(Grid& grid, GridColumn column);

/// Appends a row with an empty cell for each column, and returns its number.
int AddRow(Grid& grid);

/// The column, row or cell of that number, to be changed. Fails with 9 when there is none.
GridColumn& ColumnOf(Grid& grid, int column);
GridRow& RowOf(Grid& grid, int row);
GridCell& CellOf(Grid& grid, int row, int column);

/// The column of that number, to be looked at only: the grid need not be shown anew. Fails with 9.
const GridColumn& SeenColumn(const Grid& grid, int column);

void SetCellText(Grid& grid, int row, int column, std::string text);
void SetCellNumber(Grid& grid, int row, int column, double number);

/// A date of 0 shows nothing.
void SetCellDate(Grid& grid, int row, int column, double date);

/// What a cell shows: its text, its number under the column's pattern, or its date.
std::string ShownText(const Grid& grid, const GridCell& cell, int column);

/// Fits a column to the widest of its header and the cells of its visible rows.
void AutoWidth(Grid& grid, int column);

/// Sets the width of a column in pixels; a negative width counts as 0.
void SetColumnWidth(Grid& grid, int column, int width);

/// Sorts the rows by the columns of `SortColumns` that have an order, the first of them first, each
/// by its own kind: as numbers, or by the bytes of what the cells show. Rows that are equal stay in
/// their order. The selection is lost.
void SortRows(Grid& grid);

/// The numbers of all columns, from left to right: by `Order`, equal ones by number.
std::vector<int> ColumnsFromLeft(const Grid& grid);

/// Puts a column at the 1-based place `place` among all columns, and numbers all `Order`s anew:
/// what dragging a header does, before `ColumnMoved` runs.
void MoveColumn(Grid& grid, int column, int place);

}  // namespace brindlemoor
