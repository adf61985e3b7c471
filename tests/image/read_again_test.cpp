#include "image/read_again.h"

#include <gtest/gtest.h>

#include <string>

#include "core/disk_state.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/dragon_fixture.h"

namespace brindlemoor::test {
namespace {

using ReadAgainTest = DiskTest;

TEST_F(ReadAgainTest, ABareImageIsReadFromItsBytesAsTheyAre) {
    Read(OneFileDisk());
    Disk.ImageBytes[78848] = 'J';
    ReadDiskAgain();
    EXPECT_EQ(DirTable[0].Name, "JELLO   ");
    EXPECT_TRUE(Disk.ImageHeader.empty());
    EXPECT_EQ(Disk.ImageBytes.size(), 161280u);
}

TEST_F(ReadAgainTest, ADkHeaderIsTheSameBeforeAndAfter) {
    const std::string header = "dk" + Bytes({16, 0, 16, 16, 0, 35, 1, 0, 0, 8}) + "NAME";
    Read(header + OneFileDisk());
    ASSERT_EQ(Disk.ImageHeader, header);
    const std::string image = Disk.ImageBytes;
    const std::string name = Disk.DiskName;
    ReadDiskAgain();
    EXPECT_EQ(Disk.ImageHeader, header);
    EXPECT_EQ(Disk.ImageBytes, image);
    EXPECT_EQ(Disk.DiskName, name);
    EXPECT_EQ(Disk.DirRows, 1);
}

TEST_F(ReadAgainTest, TheHeaderOfAFlattenedDmkFileIsKeptBesideTheSectors) {
    Read(TestData("decb/decb35-imgtool.dmk"));
    const std::string header = Disk.ImageHeader;
    const std::string image = Disk.ImageBytes;
    const int rows = Disk.DirRows;
    ASSERT_EQ(header.size(), 16u);
    ASSERT_GT(rows, 0);
    ReadDiskAgain();
    EXPECT_EQ(Disk.ImageHeader, header);
    EXPECT_EQ(Disk.ImageBytes, image);
    EXPECT_EQ(Disk.DirRows, rows);
}

TEST_F(ReadAgainTest, NoDiskStaysNoDisk) {
    ReadDiskAgain();
    EXPECT_TRUE(Disk.ImageBytes.empty());
    EXPECT_EQ(Disk.DirRows, 0);
}

}  // namespace
}  // namespace brindlemoor::test
