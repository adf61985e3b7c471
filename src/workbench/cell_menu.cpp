#include "workbench/cell_menu.h"

#include <algorithm>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "filesystems/edit_entry.h"
#include "image/modified_state.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

constexpr int kNameColumn = 1;

struct MenuColumn {
    int Column;
    const char* Menu;
    const char* Items;
};

constexpr MenuColumn kTypes = {3, "MenuType", "TypeMenu"};
constexpr MenuColumn kFormats = {4, "MenuForm", "FormMenu"};

std::string CellText(int row, int col) {
    return ShownText(ListDirec, CellOf(ListDirec, row, col), col);
}

void MakeSelectedRowCurrent() {
    const std::vector<bool>& selected = ListDirec.RowSelected;
    const bool any = std::find(selected.begin(), selected.end(), true) != selected.end();
    if (any && ListDirec.SelectedRow > 0) Disk.DirCount = ListDirec.SelectedRow - 1;
}

void ChooseForCell(int row, const MenuColumn& column) {
    std::string value = CellText(row, column.Column);
    int changed = 0;
    const bool deleted = Left(CellText(row, kNameColumn), 1) == "?";
    ChooseFromMenu(column.Menu, column.Items, value, deleted, changed);
    if (changed == 0) return;
    DirEntry& entry = DirTable[Disk.DirCount];
    if (column.Column == kTypes.Column) {
        entry.FileType = static_cast<std::uint8_t>(TextAsInteger(value));
    } else {
        entry.FormatChar = value;
    }
    SetCellText(ListDirec, row, column.Column, value);
    WriteEditedEntry(Disk.DirCount);
    RefreshModified();  // every edit is shown as a change at once
}

}  // namespace

void CellMouseDown(int button, int /*shift*/, int x, int y) {
    MakeSelectedRowCurrent();
    if (button != kLeftButton || !ListDirec.CellUnder) return;
    const CellNumbers cell = ListDirec.CellUnder(x, y);
    const bool current = Disk.DirCount >= 0 && Disk.DirCount < Disk.DirRows;
    if (cell.Row == 0 || !current) return;
    for (const MenuColumn& column : {kTypes, kFormats}) {
        if (cell.Column == column.Column) ChooseForCell(cell.Row, column);
    }
}

void ChooseFromMenu(const std::string& menu, const std::string& items, std::string& value,
                    bool disabled, int& changed) {
    const auto length = static_cast<std::int64_t>(value.size());
    for (MenuItem& item : MenuOf(Principal, items).Items) {
        item.Checked = Left(item.Caption, length) == value;
        item.Enabled = !disabled;
    }
    Platform.PopupMenu(menu);
    std::string choice = value;
    for (const MenuItem& item : MenuOf(Principal, items).Items) {
        if (item.Checked) choice = Left(item.Caption, length);
    }
    if (choice == value) return;
    value = choice;
    changed = -1;
    RefreshModified();
}

void ConnectCellMenu() {
    ListDirec.MouseDown = CellMouseDown;
    for (const char* items : {kTypes.Items, kFormats.Items}) {
        MenuOf(Principal, items).Click = [items](int index) {
            Menu& menu = MenuOf(Principal, items);
            ItemOf(menu, index);
            for (int item = 0; item < static_cast<int>(menu.Items.size()); ++item) {
                ItemOf(menu, item).Checked = item == index;
            }
        };
    }
}

}  // namespace brindlemoor
