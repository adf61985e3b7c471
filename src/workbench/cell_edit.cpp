#include "workbench/cell_edit.h"

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/screen.h"
#include "filesystems/edit_entry.h"
#include "image/modified_state.h"
#include "workbench/directory_totals.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

constexpr int kNameColumn = 1;
constexpr int kExtensionColumn = 2;
constexpr int kTypeColumn = 3;
constexpr int kFormatColumn = 4;

constexpr int kNameLength = 8;
constexpr int kExtensionLength = 3;

constexpr int kEmptyMessage = 6;
constexpr int kTypeItemsMessage = 7;
constexpr int kFormatItemsMessage = 8;

bool IsListColumn(int col) {
    return col == kTypeColumn || col == kFormatColumn;
}

Control& EditorOf(int col) {
    return PrincipalControl(IsListColumn(col) ? "ComboEdit" : "txtEdit");
}

std::string CellText(int row, int col) {
    return ShownText(ListDirec, CellOf(ListDirec, row, col), col);
}

bool MayEdit(int row, int col) {
    return col >= 1 && col <= 4 && Left(CellText(row, kNameColumn), 1) != "?";
}

/// A list has more to show than the letter in its cell.
void WidenColumn(int col) {
    if (!IsListColumn(col)) return;
    ListDirec.Edited.Widening = 75 - (col - 4) * 80;
    SetColumnWidth(ListDirec, col, SeenColumn(ListDirec, col).Width + ListDirec.Edited.Widening);
    LayoutTotals();
}

void NarrowColumn() {
    const EditedCell edited = ListDirec.Edited;
    ListDirec.Edited.Widening = 0;
    if (edited.Widening == 0) return;
    SetColumnWidth(ListDirec, edited.Column,
                   SeenColumn(ListDirec, edited.Column).Width - edited.Widening);
    LayoutTotals();
}

}  // namespace

void PlaceCellEditor() {
    const EditedCell& edited = ListDirec.Edited;
    if (edited.Row == 0 || !ListDirec.PlaceOfCell) return;
    const CellPlace place = ListDirec.PlaceOfCell(edited.Row, edited.Column);
    Control& editor = EditorOf(edited.Column);
    editor.Left = place.Left * kTwipsPerPixel;
    editor.Top = place.Top * kTwipsPerPixel;
    SetSize(editor, place.Width * kTwipsPerPixel, place.Height * kTwipsPerPixel);
}

namespace {

/// What the editor shows of a cell: its text without blanks around it, in a text box as far as that
/// has room.
std::string EditedText(int col, const std::string& cell) {
    const std::string text = Trim(cell);
    return IsListColumn(col) ? text : Left(text, EditorOf(col).MaxLength);
}

void OpenEditor(int row, int col) {
    Control& editor = EditorOf(col);
    if (IsListColumn(col)) {
        const int items = col == kTypeColumn ? kTypeItemsMessage : kFormatItemsMessage;
        editor.Items = SplitText(MessageText(items), ",");
        editor.ListIndex = -1;
    } else {
        editor.MaxLength = col == kNameColumn ? kNameLength : kExtensionLength;
    }
    editor.Text = EditedText(col, CellText(row, col));
    const bool bold = CellOf(ListDirec, row, col).Bold;
    editor.Font = bold ? FontKind::FixedBold : FontKind::Fixed;
    editor.SelStart = 0;
    editor.SelLength = static_cast<int>(editor.Text.size());
    editor.Visible = true;
    GiveFocus(editor);
}

void StoreInRow(int col, const std::string& text) {
    DirEntry& entry = DirTable[Disk.DirCount];
    switch (col) {
        case kNameColumn:
            entry.Name = text;
            break;
        case kExtensionColumn:
            entry.Ext = text;
            break;
        case kTypeColumn:
            entry.FileType = static_cast<std::uint8_t>(TextAsInteger(text));
            break;
        default:
            entry.FormatChar = text;
    }
}

/// What counts of an editor's text. A text box takes as many characters as its field has bytes, but
/// one that Windows-1252 lacks is more than a byte.
std::string WhatCounts(int col, const std::string& text) {
    return Left(text, IsListColumn(col) ? 1 : EditorOf(col).MaxLength);
}

/// A cell that was only looked at changes nothing: else a padded name would lose its padding, a
/// long one its end, and a type its second digit.
bool IsAnotherText(int col, const std::string& cell) {
    const std::string& typed = EditorOf(col).Text;
    return typed != EditedText(col, cell) && WhatCounts(col, typed) != cell;
}

void CloseEditor() {
    Control& editor = EditorOf(ListDirec.Edited.Column);
    NarrowColumn();
    ListDirec.Edited = {};
    editor.Visible = false;
}

/// False when the editor stays open: it takes the focus again.
bool KeepEdit() {
    const EditedCell edited = ListDirec.Edited;
    std::string value;
    bool stay = false;
    FinishCellEdit(edited.Row, edited.Column, value, stay);
    if (stay) {
        ReturnToCellEditor();
    } else {
        CloseEditor();
    }
    return !stay;
}

/// The focus went elsewhere, and stays there.
void LeaveEditor() {
    if (ListDirec.Edited.Row != 0) KeepEdit();
}

bool EditorKey(int key) {
    if (key == kKeyEscape) CancelCellEdit();
    if (key == kKeyEnter) EndCellEdit();
    return key == kKeyEscape || key == kKeyEnter;
}

}  // namespace

void RequestCellEdit(int row, int col, int /*key*/, bool& cancel) {
    if (!MayEdit(row, col)) {
        cancel = true;
        return;
    }
    ListDirec.Edited = {row, col, 0};
    WidenColumn(col);
    PlaceCellEditor();
    OpenEditor(row, col);
}

void FinishCellEdit(int row, int col, std::string& value, bool& stayInEdit) {
    if (EditorOf(col).Text.empty()) {
        Platform.ShowMessage(MessageText(kEmptyMessage), Disk.AppTitle, Buttons::Ok,
                             MessageIcon::Exclamation);
        stayInEdit = true;
        return;
    }
    const std::string text = WhatCounts(col, EditorOf(col).Text);
    if (IsAnotherText(col, CellText(row, col))) {
        value = UpperCase(text);
        SetCellText(ListDirec, row, col, value);
        RefreshModified();
        StoreInRow(col, value);
        WriteEditedEntry(Disk.DirCount);
        Screen.DrawSectorMap(0);
    }
    RefreshModified();
}

bool EndCellEdit() {
    if (ListDirec.Edited.Row == 0) return true;
    if (!KeepEdit()) return false;
    GiveFocus(PrincipalControl("ListDirec"));
    return true;
}

void ReturnToCellEditor() {
    if (ListDirec.Edited.Row != 0) GiveFocus(EditorOf(ListDirec.Edited.Column));
}

void CancelCellEdit() {
    if (ListDirec.Edited.Row == 0) return;
    CloseEditor();
    GiveFocus(PrincipalControl("ListDirec"));
}

void ConnectCellEdit() {
    for (const char* name : {"txtEdit", "ComboEdit"}) {
        Control& editor = PrincipalControl(name);
        editor.Key = EditorKey;
        editor.Leave = LeaveEditor;
    }
    ListDirec.EditRequest = [](int row, int col, int key) {
        const bool current = Disk.DirCount >= 0 && Disk.DirCount < Disk.DirRows;
        if (!current || !EndCellEdit()) return;
        bool cancel = false;
        RequestCellEdit(row, col, key, cancel);
    };
    Principal.BeforeMenu = EndCellEdit;
}

}  // namespace brindlemoor
