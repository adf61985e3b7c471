#pragma once

#include <string>

namespace brindlemoor {

// The directory can be edited in the cells of `ListDirec`: columns 1 (name) and 2 (extension) in
// the text box `txtEdit`, columns 3 (type) and 4 (format) in the list `ComboEdit`, each of them
// placed over the cell. Rows and columns of the grid count from 1.

/// The grid asks for an edit of a cell, by the key of that code or, 0, by the mouse. `cancel` is
/// set for a column above 4 and for a row whose name begins with "?", a deleted one. Otherwise the
/// editor stands over the cell, with the cell's trimmed text selected and the focus; for the lists
/// the column is 155 and 75 pixels wider until the editor closes.
void RequestCellEdit(int row, int col, int key, bool& cancel);

/// The edit of a cell ends and is to be kept. An empty text shows `Messages[6]` and sets
/// `stayInEdit`: the editor stays. Otherwise a text that differs from the cell goes, in capitals,
/// to the cell and to `value`, to the row `DirCount` of `DirTable` (which the mouse set last; the
/// grid's `row` only names the cell) and to the image, and the sector map is drawn. Of a list's
/// text the first character counts. Fails with 13 on a type that is no digit: the cell shows it
/// then, rows and image are as they were.
void FinishCellEdit(int row, int col, std::string& value, bool& stayInEdit);

/// Ends the edit that stands open, if one does, and keeps it; the grid has the focus then. False
/// when the editor stays open.
bool EndCellEdit();

/// Closes the editor and keeps nothing; the grid has the focus then. Does nothing while none is
/// open.
void CancelCellEdit();

/// The editor that stands open, if one does, takes the focus again.
void ReturnToCellEditor();

/// Puts the editor that stands open over its cell, which may have moved.
void PlaceCellEditor();

/// Hangs their events on the two editors and on the grid.
void ConnectCellEdit();

}  // namespace brindlemoor
