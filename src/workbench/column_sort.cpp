#include "workbench/column_sort.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/failure_box.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "filesystems/decb_write.h"
#include "image/read_again.h"
#include "image/read_disk.h"
#include "workbench/cell_edit.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

constexpr int kAsciiFile = 255;
constexpr int kSizeColumn = 7;
constexpr double kMostOfByte = 255;

/// What a click on a header changes, set aside.
struct BeforeSort {
    DiskState State;
    DirectoryTable Rows;
    std::vector<GridColumn> Columns;
    std::vector<SortColumn> SortColumns;
    std::function<void()> ShowSectorView;
};

SortColumn& FoundOrAdded(int col) {
    std::vector<SortColumn>& columns = ListDirec.SortColumns;
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [col](const SortColumn& known) { return known.Column == col; });
    if (found != columns.end()) return *found;
    columns.push_back({col, 0});
    return columns.back();
}

/// One byte of a slot. Fails with 5 on a number that is none.
char SlotByte(double number) {
    if (number < 0 || number > kMostOfByte) Fail(kInvalidCall);
    return static_cast<char>(static_cast<int>(number));
}

/// The slot of a grid row, from the cells as they show.
std::string OrderedSlot(int gridRow) {
    const auto text = [gridRow](int column) { return CellOf(ListDirec, gridRow, column).Text; };
    std::string slot = text(1) + text(2);
    if (Left(slot, 1) == "?") slot.front() = '\0';
    slot += SlotByte(TextAsInteger(text(3)));
    slot += static_cast<char>(text(4) == "B" ? 0 : kAsciiFile);
    const double size = CellOf(ListDirec, gridRow, kSizeColumn).Number;
    slot += SlotByte(size);
    return slot + NumberToBytes(size, 2, "I");
}

void EndSorting(SortColumn& column) {
    if (column.Order == 0) return;
    column.Order = 0;
    GridColumn& shown = ColumnOf(ListDirec, column.Column);
    shown.HeaderPicture = 0;
    shown.Width = std::max(shown.Width - kSortWidening, 0);
}

void SortFurther(SortColumn& column) {
    ++column.Order;
    GridColumn& shown = ColumnOf(ListDirec, column.Column);
    if (column.Order == 1) shown.Width += kSortWidening;
    shown.HeaderPicture = column.Order == 1 ? kAscendingPicture : kDescendingPicture;
    if (Disk.ImageModified == 0) {
        Disk.ImageModified = -1;
        Screen.ShowModified();
    }
    Platform.ShowBusy(true);
    SortRows(ListDirec);
    Platform.ShowBusy(false);
    WriteDirectoryOrder();
}

void SortAndRead(int col) {
    SortColumn& column = FoundOrAdded(col);
    if (column.Order < 2) {
        SortFurther(column);
        ReadDiskAgain();
        return;
    }
    for (SortColumn& sorted : ListDirec.SortColumns) EndSorting(sorted);
    Disk.ImageBytes = Disk.ImageOnOpen;
    ReadDisk();
}

void PutBack(BeforeSort& before) {
    Disk = std::move(before.State);
    DirTable.Swap(before.Rows);
    ListDirec.Columns = std::move(before.Columns);
    ListDirec.SortColumns = std::move(before.SortColumns);
    before.ShowSectorView();
}

void ShowDiskAnew() {
    Screen.PaintTrackBlock(-1);
    FillDirectoryGrid();
    Screen.DrawSectorMap(-1);
}

}  // namespace

void SortByColumn(int col) {
    SeenColumn(ListDirec, col);
    if (!EndCellEdit()) return;
    BeforeSort before = {Disk, DirectoryTable(), ListDirec.Columns, ListDirec.SortColumns,
                         Screen.KeepSectorView()};
    before.Rows.Swap(DirTable);
    const auto failure = FailureOfStep([col] { SortAndRead(col); });
    if (failure) PutBack(before);
    ShowDiskAnew();
    if (failure) ShowFailure(*failure);
}

void WriteDirectoryOrder() {
    if (Disk.DiskFamily != kDecb) return;
    for (int row = 0; row < static_cast<int>(ListDirec.Rows.size()); ++row) {
        PutDecbSlot(row, OrderedSlot(row + 1));
    }
}

void GiveUpColumnSort() {
    for (SortColumn& column : ListDirec.SortColumns) EndSorting(column);
    ListDirec.SortColumns.clear();
}

void ConnectColumnSort() {
    ListDirec.HeaderClick = SortByColumn;
    Screen.GiveUpColumnSort = GiveUpColumnSort;
}

}  // namespace brindlemoor
