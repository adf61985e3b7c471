#include "support/file_lists_fixture.h"

#include "support/disk_fixture.h"
#include "workbench/directory_grid.h"
#include "workbench/pc_pane.h"
#include "workbench/principal.h"

namespace brindlemoor::test {

void FileListsTest::SetUp() {
    DirectoryTest::SetUp();
    for (const char* name : {"A.BAS", "B.TXT", "C.DAT"}) WriteTestFile(PcFolder, name, name);
    RefreshPcFiles();
    AddEntry("ALPHA   ", "BAS").FullName = "ALPHA.BAS";
    AddEntry("BETA    ", "   ").FullName = "BETA.";
    FillDirectoryGrid();
}

Control& FileListsTest::Files() {
    return PrincipalControl("File1");
}

Control& FileListsTest::Directory() {
    return PrincipalControl("ListDirec");
}

}  // namespace brindlemoor::test
