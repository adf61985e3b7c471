#pragma once

namespace brindlemoor {

/// Number of the grid's columns.
inline constexpr int kDirectoryColumns = 18;

/// Rebuilds the grid `ListDirec` and all that belongs to it (totals, check boxes, geometry line,
/// title line, modified state) from `DirTable` and `Disk`. Widths, order and visibility of the
/// columns are those of the settings again. Fails with 9 or 13 on column settings that are
/// missing or no numbers.
void FillDirectoryGrid();

/// Hangs the grid's event routines, and those of the check boxes under it, on their controls.
void ConnectDirectoryGrid();

}  // namespace brindlemoor
