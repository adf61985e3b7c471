#include "workbench/row_click.h"

#include "core/disk_state.h"
#include "workbench/principal.h"
#include "workbench/principal_viewer.h"
#include "workbench/sector_view.h"

namespace brindlemoor {

namespace {

/// `gridRow` counts from 1.
void RowClicked(int gridRow) {
    const int row = gridRow - 1;
    if (row < 0 || row >= Disk.DirRows) return;
    ViewDirectoryRow(row);
    ShowRowOnMap(row);
}

}  // namespace

void ConnectRowClick() {
    ListDirec.RowClick = RowClicked;
}

}  // namespace brindlemoor
