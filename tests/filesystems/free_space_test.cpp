#include "filesystems/free_space.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "support/write_fixture.h"

namespace brindlemoor::test {
namespace {

class FreeSpace : public WriteTest {
  protected:
    void SetUp() override {
        WriteTest::SetUp();
        Disk.TotalUnits = 612;
    }

    static bool Fits(std::int64_t size, const std::string& name = "FILE.BIN") {
        return FitsOnDisk(SpaceNeedOf(size, 0), NameForDisk(name));
    }
};

TEST_F(FreeSpace, DecbGivesOutGranulesAndTheOthersSectors) {
    struct Row {
        std::int64_t Size, Granules, Sectors;
    };
    for (const Row& row : std::vector<Row>{{0, 0, 0},
                                           {1, 1, 1},
                                           {255, 1, 1},
                                           {256, 1, 1},
                                           {257, 1, 2},
                                           {2303, 1, 9},
                                           {2304, 1, 9},
                                           {2305, 2, 10},
                                           {4608, 2, 19}}) {
        Disk.DiskFamily = kDecb;
        EXPECT_EQ(SpaceNeedOf(row.Size, 0).Needed, row.Granules * 2304) << row.Size;
        for (const Family family : {kDragon, kOs9, kFlex}) {
            Disk.DiskFamily = family;
            EXPECT_EQ(SpaceNeedOf(row.Size, 0).Needed, row.Sectors * 256) << row.Size;
        }
    }
}

/// What is added lies 10^-15 below one. From 16 units on, numbers that fine round up to the next
/// whole one.
TEST_F(FreeSpace, AWholeNumberOfUnitsCountsAsOneMoreFrom16On) {
    EXPECT_EQ(SpaceNeedOf(15 * 2304, 0).Needed, 15 * 2304);
    EXPECT_EQ(SpaceNeedOf(16 * 2304, 0).Needed, 17 * 2304);
    EXPECT_EQ(SpaceNeedOf(16 * 2304 - 1, 0).Needed, 16 * 2304);
    EXPECT_EQ(SpaceNeedOf(68 * 2304, 0).Needed, 69 * 2304);
    EXPECT_EQ(SpaceNeedOf(68 * 2304 - 1, 0).Needed, 68 * 2304);
}

TEST_F(FreeSpace, TheSectorsOfTheOldFileAreSubtractedFromTheBytes) {
    EXPECT_EQ(SpaceNeedOf(2305, 1).Needed, 2304);
    EXPECT_EQ(SpaceNeedOf(2305, 0).Needed, 4608);
    Disk.DiskFamily = kDragon;
    EXPECT_EQ(SpaceNeedOf(0, 9).Needed, 0);
    EXPECT_EQ(SpaceNeedOf(0, 720).Needed, -256);
}

TEST_F(FreeSpace, AFileThatJustFitsShowsNothing) {
    Disk.UsedSectors = 603;
    EXPECT_TRUE(Fits(2304));
    Disk.DiskFamily = kDragon;
    EXPECT_TRUE(Fits(2304 - 256));
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(FreeSpace, OneByteMoreShowsNineValues) {
    Disk.UsedSectors = 603;
    EXPECT_FALSE(Fits(2305, "my file.bin"));
    ExpectOneMessage(
        "MY-FILE.BIN|C:\\DISKS\\TEST.DSK|Requested      2,305 in disk 4608 = 18 Sectors\r\n"
        "Free      2,304 = 9|Insufficient          1 = 1",
        MessageIcon::Critical);
}

TEST_F(FreeSpace, AFullDiskHasNoRoomForAByteAndRoomForNone) {
    Disk.UsedSectors = 612;
    EXPECT_TRUE(Fits(0));
    EXPECT_FALSE(Fits(1));
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_NE(Shown()[0].find("Free            = 0|Insufficient          1 = 1"), std::string::npos)
        << Shown()[0];
}

/// Damaged disks say that they use more than they have.
TEST_F(FreeSpace, FewerThanNoFreeSectorsHaveRoomForNothing) {
    Disk.UsedSectors = 2147483647;
    Disk.TotalUnits = -3;
    EXPECT_FALSE(Fits(0));
    Disk.DiskFamily = kFlex;
    EXPECT_FALSE(Fits(0));
}

TEST_F(FreeSpace, ANameWithAPlaceInItUpsetsTheMessage) {
    EXPECT_EQ(FailureOf([] { Fits(1000000, "[]"); }), kIndexRange);
}

TEST_F(FreeSpace, FlexComparesTheSizeAndSaysNineTimesTheFreeBytes) {
    Disk.DiskFamily = kFlex;
    Disk.UsedSectors = 602;
    Disk.Messages[20] = "<20>";
    EXPECT_TRUE(Fits(2560));
    EXPECT_FALSE(Fits(2561));
    ExpectOneMessage(Disk.Messages[18] + "\r\n10 Sect. * 256 Bytes = 23040 FREE BYTES\r\n<20>2561",
                     MessageIcon::Critical);
}

}  // namespace
}  // namespace brindlemoor::test
