#include "convert/file_commands.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/disk_fixture.h"
#include "support/workbench_fixture.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"

namespace brindlemoor {
namespace {

class FileCommandsTest : public test::DirectoryTest {};

TEST_F(FileCommandsTest, NoIndexDoesAnythingYet) {
    test::WriteTestFile(PcFolder, "A.TXT", "text");
    AddEntry("ALPHA", "BAS");
    FillDirectoryGrid();
    ListDirec.RowSelected = {true};
    const unsigned grid = ListDirec.Revision;
    const std::string settings = SettingsFile();
    for (const std::int16_t side : {kPcSide, kDiskSide}) {
        for (int index = -1; index < 40; ++index) {
            PopupSide = side;
            RunFileCommand(index);
        }
    }
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_TRUE(script_.Programs.empty());
    EXPECT_EQ(SettingsFile(), settings);
    EXPECT_EQ(std::filesystem::file_size(PcFolder + "/A.TXT"), 4U);
    EXPECT_EQ(ListDirec.Revision, grid);
    EXPECT_EQ(Disk.DirRows, 1);
}

}  // namespace
}  // namespace brindlemoor
