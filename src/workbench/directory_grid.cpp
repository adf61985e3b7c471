#include "workbench/directory_grid.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "convert/file_commands.h"
#include "core/byte_helpers.h"
#include "core/dates.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/settings.h"
#include "image/modified_state.h"
#include "workbench/cell_edit.h"
#include "workbench/directory_cells.h"
#include "workbench/directory_totals.h"
#include "workbench/file_popup.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

struct ColumnDesign {
    bool RightAligned;
    const char* NumberFormat;
    SortKind Sort;
};

constexpr std::array<ColumnDesign, kDirectoryColumns> kColumns = {{
    {false, "", SortKind::Text},           // 1 name
    {false, "", SortKind::Text},           // 2 extension
    {false, "", SortKind::Text},           // 3 type
    {false, "", SortKind::Text},           // 4 format
    {false, "", SortKind::Text},           // 5 sectors
    {true, "", SortKind::Text},            // 6 granules
    {true, "###,###", SortKind::Number},   // 7 size
    {true, "###,###", SortKind::Number},   // 8 used bytes
    {true, "###,###", SortKind::Number},   // 9 difference
    {false, "##0.00\\%", SortKind::Text},  // 10 efficiency
    {false, "", SortKind::Text},           // 11 attributes
    {false, "", SortKind::Text},           // 12 created
    {false, "", SortKind::Text},           // 13 modified
    {false, "", SortKind::Text},           // 14 first unit
    {false, "", SortKind::Text},           // 15 sectors in the last granule
    {false, "", SortKind::Text},           // 16 bytes in the last sector
    {false, "", SortKind::Text},           // 17 continuation entry
    {false, "", SortKind::Text},           // 18 chain
}};

/// Item `index` of a list of the settings. Fails with 9 when the list is shorter.
const std::string& SettingsItem(const std::vector<std::string>& list, int index) {
    if (index < 0 || index >= static_cast<int>(list.size())) Fail(kIndexRange);
    return list[static_cast<std::size_t>(index)];
}

bool ColumnShows(int column) {
    const std::string& digits = SettingsItem(Settings.VisibleColumnsList, Disk.DiskFamily);
    return TextAsNumber(Mid(digits, column, 1)) != 0;
}

int StoredWidth(int column) {
    return TextAsInteger(SettingsItem(Settings.ColumnWidthList, column - 1));
}

void CreateColumns() {
    std::vector<GridColumn> columns;  // a width that is no number leaves the grid without any
    for (int number = 1; number <= kDirectoryColumns; ++number) {
        const ColumnDesign& design = kColumns[static_cast<std::size_t>(number) - 1];
        GridColumn column;
        column.Key = DecimalText(number);
        column.RightAligned = design.RightAligned;
        column.NumberFormat = design.NumberFormat;
        column.Sort = design.Sort;
        column.Width = StoredWidth(number);
        columns.push_back(column);
    }
    for (const GridColumn& column : columns) AddColumn(ListDirec, column);
}

/// Headers, visibility and order come from the language and the settings at every fill.
void PrepareColumns() {
    if (ListDirec.Columns.empty()) CreateColumns();
    for (int number = 1; number <= kDirectoryColumns; ++number) {
        GridColumn& column = ColumnOf(ListDirec, number);
        column.Header = SettingsItem(Settings.ColumnHeaderList, number - 1);
        column.Visible = ColumnShows(number);
        column.Order = TextAsInteger(SettingsItem(Settings.ColumnOrderList, number - 1));
    }
}

/// Columns 1 and 11 fit their contents; then the stored widths come over all but column 11.
void SetColumnWidths() {
    AutoWidth(ListDirec, 1);
    for (int column = 1; column <= kDirectoryColumns; ++column) {
        SetColumnWidth(ListDirec, column, StoredWidth(column));
    }
    AutoWidth(ListDirec, kAttributeColumn);
    for (const SortColumn& sorted : ListDirec.SortColumns) {
        if (sorted.Order != 0) ColumnOf(ListDirec, sorted.Column).Width += kSortWidening;
    }
}

DirectorySums FillRows() {
    DirectorySums sums;
    Disk.TotalFileBytes = 0;
    for (Disk.DirCount = 0; Disk.DirCount < Disk.DirRows; ++Disk.DirCount) {
        const DirEntry& entry = DirTable[Disk.DirCount];
        FillDirectoryRow(entry, AddRow(ListDirec));
        const bool counted = (entry.Flags & kFlagContinuationEntry) == 0 && !IsOs9DotEntry(entry);
        if (counted) sums.Size += entry.Size;
        sums.Units += entry.UnitCount;
        Disk.TotalFileBytes += entry.Size;
    }
    const int hiddenContinuations =
        PrincipalControl("VerContinuaciones").Checked ? 0 : Disk.ContinuationCount;
    const int hiddenDeleted = PrincipalControl("VerBorrados").Checked ? 0 : Disk.DeletedCount;
    sums.RowsShown = Disk.DirCount - hiddenContinuations - hiddenDeleted;
    return sums;
}

/// A check box that says how many rows it shows, and can be pressed when there are any.
void ShowCount(Control& box, int count) {
    if (box.Tag.empty()) box.Tag = box.Text;
    SetText(box, ReplaceText(box.Tag, "#", DecimalText(count)));
    box.Enabled = count != 0;
}

void ShowGeometryLine() {
    const int sectors = Disk.TrackCount * Disk.SectorsPerTrack;
    const double bytes = static_cast<double>(sectors) * kSectorSize;
    SetText(PrincipalControl("Info"),
            DecimalText(Disk.TrackCount) + " Tracks X " + DecimalText(Disk.SectorsPerTrack) +
                " SecXTracks = " + DecimalText(sectors) +
                " Sectors = " + FormatNumber(bytes, "######,###") + " Bytes");
}

void ShowTitleLine() {
    Control& title = PrincipalControl("Label3");
    std::string text =
        ReplaceText(title.Tag, "CoCo", FamilyName(Disk.DiskFamily)) + "  " + Disk.DiskName;
    if (Disk.DiskDate != 0) text += " (" + DateAndTimeText(Disk.DiskDate) + ")";
    SetText(title, text);
}

std::string JoinedOrders() {
    std::vector<std::string> orders;
    for (const GridColumn& column : ListDirec.Columns) orders.push_back(DecimalText(column.Order));
    return JoinText(orders, ",");
}

/// The widths to be stored: a column that is wider while it is sorted by has its own.
std::string WidthsToStore() {
    std::vector<std::string> widths;
    int number = 0;
    for (const GridColumn& column : ListDirec.Columns) {
        ++number;
        int width = column.Width;
        for (const SortColumn& sorted : ListDirec.SortColumns) {
            if (sorted.Column == number && sorted.Order != 0) width -= kSortWidening;
        }
        widths.push_back(DecimalText(std::max(width, 0)));
    }
    return JoinText(widths, ",");
}

void ColumnWasResized(int column, int width) {
    SetColumnWidth(ListDirec, column, width);
    StoreSetting("ColumnWidths", WidthsToStore());
    LayoutTotals();
}

/// The header's menu: one item a column, checked while the column shows.
void ShowColumnsMenu() {
    if (ListDirec.Columns.empty()) return;
    Menu& menu = MenuOf(Principal, "columnsMenu");
    for (int column = 1; column <= kDirectoryColumns; ++column) {
        ItemOf(menu, column - 1).Checked = SeenColumn(ListDirec, column).Visible;
    }
    Platform.PopupMenu("MenuColumns");
    for (int column = 1; column <= kDirectoryColumns; ++column) {
        ColumnOf(ListDirec, column).Visible = ItemOf(menu, column - 1).Checked;
    }
    LayoutTotals();
}

/// Nothing is stored: the columns that the settings name come back at the next fill.
void ToggleColumn(int index) {
    MenuItem& item = ItemOf(MenuOf(Principal, "columnsMenu"), index);
    item.Checked = !item.Checked;
    ColumnOf(ListDirec, index + 1).Visible = item.Checked;
}

void ShowColumnTip(int column) {
    if (column < 1) return;
    ListDirec.ToolTip = ItemOf(MenuOf(Principal, "columnsMenu"), column - 1).Caption;
}

bool GridKey(int key) {
    if (key == kKeyEscape) Raise(PrincipalControl("UndoBtn").Click);
    if (key == kKeyDelete) DeleteByKey(kDiskSide);
    return key == kKeyEscape || key == kKeyDelete;
}

}  // namespace

void FillDirectoryGrid() {
    CancelCellEdit();  // its row may be gone
    ClearGrid(ListDirec);
    ListDirec.Redraw = false;
    PrepareColumns();
    const DirectorySums sums = FillRows();
    SetColumnWidths();
    ListDirec.Redraw = true;
    ComputeTotals(sums);
    ShowCount(PrincipalControl("VerBorrados"), Disk.DeletedCount);
    ShowCount(PrincipalControl("VerContinuaciones"), Disk.ContinuationCount);
    ShowGeometryLine();
    LayoutTotals();
    RefreshModified();
    ShowTitleLine();
}

void ConnectDirectoryGrid() {
    ListDirec.ColumnMoved = [](int) { StoreSetting("ColumnOrder", JoinedOrders()); };
    ListDirec.ColumnResized = ColumnWasResized;
    ListDirec.HeaderRightClick = ShowColumnsMenu;
    ListDirec.MouseOver = ShowColumnTip;
    ListDirec.Scrolled = [] {
        PlaceCellEditor();
        LayoutTotals();
    };
    ListDirec.Key = GridKey;
    MenuOf(Principal, "columnsMenu").Click = ToggleColumn;
    PrincipalControl("VerBorrados").Click = FillDirectoryGrid;
    PrincipalControl("VerContinuaciones").Click = FillDirectoryGrid;
}

}  // namespace brindlemoor
