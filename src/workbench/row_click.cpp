#include "workbench/row_click.h"

#include "workbench/principal.h"
#include "workbench/principal_viewer.h"

namespace brindlemoor {

void ConnectRowClick() {
    ListDirec.RowClick = [](int row) { ViewDirectoryRow(row - 1); };
}

}  // namespace brindlemoor
