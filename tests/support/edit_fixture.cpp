#include "support/edit_fixture.h"

#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"

namespace brindlemoor::test {

void EditTest::SetUp() {
    WorkbenchTest::SetUp();
    Start();
    DecbBuilder disk;
    disk.File(0, "ALPHA   ", "BAS", 0, 0, {10}, Pattern(30, 1));
    disk.File(1, "BETA    ", "BIN", 2, 0, {11}, Pattern(700, 2));
    disk.Slot(2, "GONE    ", "DAT", 1, 0, 12, 10).Delete(2);
    disk.File(3, "EIGHTLET", "TXT", 3, 255, {13}, Pattern(250, 3));
    Original = disk.Image();
    PrincipalControl("VerBorrados").Checked = true;
    OpenDisk(Original);
    script_.Messages.clear();
}

void EditTest::OpenDisk(const std::string& image) {
    Disk.ImageBytes = image;
    Disk.ImageOnOpen = image;
    ReadDisk();
    FillDirectoryGrid();
}

void EditTest::SelectRow(int gridRow) {
    ListDirec.RowSelected.assign(ListDirec.Rows.size(), false);
    ListDirec.RowSelected.at(static_cast<std::size_t>(gridRow) - 1) = true;
    ListDirec.SelectedRow = gridRow;
    Disk.DirCount = gridRow - 1;
}

std::string EditTest::Shown(int row, int column) {
    return ShownText(ListDirec, CellOf(ListDirec, row, column), column);
}

std::string EditTest::Slot(int slot, std::size_t length) {
    return Disk.ImageBytes.substr(78848 + static_cast<std::size_t>(slot) * 32, length);
}

}  // namespace brindlemoor::test
