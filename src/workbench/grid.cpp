#include "workbench/grid.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "core/dates.h"
#include "core/numbers.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

/// Checks a 1-based number against a count and makes it an index.
std::size_t IndexOf(int number, std::size_t count) {
    if (number < 1 || static_cast<std::size_t>(number) > count) Fail(kIndexRange);
    return static_cast<std::size_t>(number) - 1;
}

int TextWidth(const std::string& text) {
    return static_cast<int>(text.size()) * kGridCharacterWidth + 2 * kGridCellMargin;
}

}  // namespace

void ClearGrid(Grid& grid) {
    grid.Rows.clear();
    grid.RowSelected.clear();
    grid.SelectedRow = 0;
    ++grid.Revision;
}

void AddColumn(Grid& grid, GridColumn column) {
    column.Order = static_cast<int>(grid.Columns.size()) + 1;
    grid.Columns.push_back(std::move(column));
    ++grid.Revision;
}

int AddRow(Grid& grid) {
    grid.Rows.emplace_back();
    grid.Rows.back().Cells.resize(grid.Columns.size());
    grid.RowSelected.push_back(false);
    ++grid.Revision;
    return static_cast<int>(grid.Rows.size());
}

GridColumn& ColumnOf(Grid& grid, int column) {
    ++grid.Revision;
    return grid.Columns[IndexOf(column, grid.Columns.size())];
}

const GridColumn& SeenColumn(const Grid& grid, int column) {
    return grid.Columns[IndexOf(column, grid.Columns.size())];
}

GridRow& RowOf(Grid& grid, int row) {
    ++grid.Revision;
    return grid.Rows[IndexOf(row, grid.Rows.size())];
}

GridCell& CellOf(Grid& grid, int row, int column) {
    GridRow& cells = RowOf(grid, row);
    return cells.Cells[IndexOf(column, cells.Cells.size())];
}

void SetCellText(Grid& grid, int row, int column, std::string text) {
    GridCell& cell = CellOf(grid, row, column);
    cell.Kind = CellKind::Text;
    cell.Text = std::move(text);
}

void SetCellNumber(Grid& grid, int row, int column, double number) {
    GridCell& cell = CellOf(grid, row, column);
    cell.Kind = CellKind::Number;
    cell.Number = number;
}

void SetCellDate(Grid& grid, int row, int column, double date) {
    GridCell& cell = CellOf(grid, row, column);
    cell.Kind = CellKind::Date;
    cell.Number = date;
}

std::string ShownText(const Grid& grid, const GridCell& cell, int column) {
    if (cell.Kind == CellKind::Text) return cell.Text;
    if (cell.Kind == CellKind::Date) return DateText(cell.Number);
    return FormatNumber(cell.Number, SeenColumn(grid, column).NumberFormat);
}

void AutoWidth(Grid& grid, int column) {
    GridColumn& fitted = ColumnOf(grid, column);
    int width = TextWidth(fitted.Header);
    for (const GridRow& row : grid.Rows) {
        if (!row.Visible) continue;
        const GridCell& cell = row.Cells[IndexOf(column, row.Cells.size())];
        width = std::max(width, TextWidth(ShownText(grid, cell, column)) + cell.Indent);
    }
    fitted.Width = width;
}

void SetColumnWidth(Grid& grid, int column, int width) {
    ColumnOf(grid, column).Width = std::max(width, 0);
}

namespace {

/// A row with what it is sorted by, one value for each column sorted by.
struct SortableRow {
    GridRow Row;
    std::vector<std::string> Texts;
    std::vector<double> Numbers;
};

/// Below 0 where `left` comes first in ascending order, above 0 where it comes behind.
int Compare(const SortableRow& left, const SortableRow& right, std::size_t key, SortKind kind) {
    if (kind == SortKind::Text) return left.Texts[key].compare(right.Texts[key]);
    if (left.Numbers[key] == right.Numbers[key]) return 0;
    return left.Numbers[key] < right.Numbers[key] ? -1 : 1;
}

}  // namespace

void SortRows(Grid& grid) {
    std::vector<SortColumn> keys;
    for (const SortColumn& column : grid.SortColumns) {
        if (column.Order != 0) keys.push_back(column);
    }
    std::vector<SortableRow> rows;
    rows.reserve(grid.Rows.size());
    for (GridRow& row : grid.Rows) {
        SortableRow sortable;
        for (const SortColumn& key : keys) {
            const GridCell& cell = row.Cells[IndexOf(key.Column, row.Cells.size())];
            sortable.Texts.push_back(ShownText(grid, cell, key.Column));
            sortable.Numbers.push_back(cell.Number);
        }
        sortable.Row = std::move(row);
        rows.push_back(std::move(sortable));
    }
    const auto before = [&](const SortableRow& left, const SortableRow& right) {
        for (std::size_t key = 0; key < keys.size(); ++key) {
            const int order = Compare(left, right, key, SeenColumn(grid, keys[key].Column).Sort);
            if (order != 0) return (order < 0) == (keys[key].Order == 1);
        }
        return false;
    };
    std::stable_sort(rows.begin(), rows.end(), before);
    for (std::size_t row = 0; row < rows.size(); ++row) grid.Rows[row] = std::move(rows[row].Row);
    grid.RowSelected.assign(grid.Rows.size(), false);
    grid.SelectedRow = 0;
    ++grid.Revision;
}

std::vector<int> ColumnsFromLeft(const Grid& grid) {
    std::vector<int> columns(grid.Columns.size());
    std::iota(columns.begin(), columns.end(), 1);
    std::stable_sort(columns.begin(), columns.end(), [&grid](int left, int right) {
        return grid.Columns[static_cast<std::size_t>(left) - 1].Order <
               grid.Columns[static_cast<std::size_t>(right) - 1].Order;
    });
    return columns;
}

void MoveColumn(Grid& grid, int column, int place) {
    IndexOf(column, grid.Columns.size());
    std::vector<int> columns = ColumnsFromLeft(grid);
    columns.erase(std::find(columns.begin(), columns.end(), column));
    const auto target =
        columns.begin() + static_cast<std::ptrdiff_t>(IndexOf(place, grid.Columns.size()));
    columns.insert(target, column);
    int order = 0;
    for (const int moved : columns) ColumnOf(grid, moved).Order = ++order;
}

}  // namespace brindlemoor
