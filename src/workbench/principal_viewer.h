#pragma once

#include "workbench/viewer.h"

namespace brindlemoor {

/// The viewer of the main window; it shows `Disk.PcFileBytes`.
extern Viewer PrincipalViewer;

/// Makes the viewer anew for the controls of a main window just built.
void BuildPrincipalViewer();

/// Chooses row `row` of `DirTable`, from 0: `Disk.DirCount` and `Disk.PcFileBytes` become that row
/// and its contents, `OpciónChar` follows its extension, and the viewer shows it. Fails with 9 when
/// there is no such row.
void ViewDirectoryRow(int row);

}  // namespace brindlemoor
