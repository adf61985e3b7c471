#include "filesystems/allocate_granule.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/disk_state.h"
#include "support/decb_builder.h"
#include "support/write_fixture.h"

namespace brindlemoor::test {
namespace {

class AllocateGranuleTest : public WriteTest {
  protected:
    void SetUp() override {
        WriteTest::SetUp();
        Disk.ImageBytes = DecbBuilder().Image();
        fat_.assign(68, '\xFF');
    }

    /// Takes all granules in the order of a walk from `granule` on.
    std::vector<int> Walk(int granule, int mode) {
        std::vector<int> order;
        std::string_view none;
        while (AllocateGranule(granule, mode, fat_, none) != kNoGranule) order.push_back(granule);
        return order;
    }

    std::string fat_;
};

TEST_F(AllocateGranuleTest, TheFirstGranuleIsSoughtOnBothSidesOfTheDirectory) {
    const std::vector<int> order = Walk(32, kFirstGranule);
    ASSERT_EQ(order.size(), 68U);
    const std::vector<int> head(order.begin(), order.begin() + 16);
    EXPECT_EQ(head,
              (std::vector<int>{32, 33, 34, 35, 30, 31, 36, 37, 28, 29, 38, 39, 26, 27, 40, 41}));
    const std::vector<int> tail(order.end() - 4, order.end());
    EXPECT_EQ(tail, (std::vector<int>{0, 1, 66, 67}));
}

TEST_F(AllocateGranuleTest, TheNextGranulesAreSoughtUpwardsAndThenDownByPairs) {
    const std::vector<int> order = Walk(32, kNextGranule);
    std::vector<int> expected;
    for (int granule = 32; granule < 68; ++granule) expected.push_back(granule);
    for (int pair = 30; pair >= 0; pair -= 2) {
        expected.push_back(pair);
        expected.push_back(pair + 1);
    }
    EXPECT_EQ(order, expected);
}

TEST_F(AllocateGranuleTest, AWalkFromBelowDoesNotComeUpAgain) {
    EXPECT_EQ(Walk(4, kNextGranule), (std::vector<int>{4, 5, 2, 3, 0, 1}));
}

TEST_F(AllocateGranuleTest, AStartBehindTheTableGoesOnAt30) {
    for (const int start : {68, 71, 100, 255}) {
        int granule = start;
        std::string_view none;
        EXPECT_EQ(AllocateGranule(granule, kNextGranule, fat_, none), 30) << start;
        fat_[30] = '\xFF';
    }
    int granule = 255;
    std::string_view none;
    EXPECT_EQ(AllocateGranule(granule, kFirstGranule, fat_, none), kNoGranule);
}

/// Every start that a chain can name, with every granule taken: the search ends.
TEST_F(AllocateGranuleTest, WithoutAFreeGranuleNothingChanges) {
    fat_.assign(68, '\xC1');
    const std::string image = Disk.ImageBytes;
    for (const int mode : {kFirstGranule, kNextGranule, 1}) {
        for (int start = -10; start < 256; ++start) {
            int granule = start;
            std::string_view data = "abc";
            EXPECT_EQ(AllocateGranule(granule, mode, fat_, data), kNoGranule);
            EXPECT_EQ(granule, start);
            EXPECT_EQ(data, "abc");
        }
    }
    EXPECT_EQ(fat_, std::string(68, '\xC1'));
    EXPECT_EQ(Disk.ImageBytes, image);
    EXPECT_EQ(DirTable[0].Chain, "");
}

TEST_F(AllocateGranuleTest, TheLastFreeGranuleIsFoundAtEitherEnd) {
    for (const int only : {0, 1, 66, 67}) {
        for (const int mode : {kFirstGranule, kNextGranule}) {
            fat_.assign(68, '\xC1');
            fat_[static_cast<std::size_t>(only)] = '\xFF';
            int granule = 32;
            std::string_view none;
            EXPECT_EQ(AllocateGranule(granule, mode, fat_, none), only);
        }
    }
}

TEST_F(AllocateGranuleTest, AShortTableHasNoGranulesBehindItsEnd) {
    fat_ = "\xC1\xFF";
    int granule = 32;
    std::string_view none;
    EXPECT_EQ(AllocateGranule(granule, kFirstGranule, fat_, none), 1);
    fat_.clear();
    EXPECT_EQ(AllocateGranule(granule, kFirstGranule, fat_, none), kNoGranule);
}

TEST_F(AllocateGranuleTest, TheFirstGranuleBeginsTheChainAnewAndTheOthersAddToIt) {
    Disk.DirCount = 3;
    DirEntry& row = DirTable[3];
    row.Chain = "old";
    row.LastGranuleSectors = 5;
    int granule = 32;
    std::string_view none;
    AllocateGranule(granule, kFirstGranule, fat_, none);
    EXPECT_EQ(row.FirstUnit, 32);
    EXPECT_EQ(ChainText(3), "32 ");
    EXPECT_EQ(fat_[32], '\xC5');
    AllocateGranule(granule, kNextGranule, fat_, none);
    EXPECT_EQ(row.FirstUnit, 32);
    EXPECT_EQ(ChainText(3), "32 33 ");
    EXPECT_EQ(fat_[32], '\x21');
    EXPECT_EQ(fat_[33], '\xC5');
}

TEST_F(AllocateGranuleTest, BytesGoToTheGranuleAndTheRestOfItStays) {
    Disk.ImageBytes.assign(161280, 'o');
    const std::string bytes = Pattern(2304 + 10, 1);
    std::string_view data = bytes;
    int granule = 33;
    AllocateGranule(granule, kFirstGranule, fat_, data);
    EXPECT_EQ(data.size(), 10U);
    AllocateGranule(granule, kNextGranule, fat_, data);
    EXPECT_EQ(data.size(), 0U);
    // Granule 34 lies behind the directory's track.
    std::string expected(161280, 'o');
    expected.replace(33 * 2304, 2304, bytes, 0, 2304);
    expected.replace(36 * 2304, 10, bytes, 2304, 10);
    EXPECT_EQ(Disk.ImageBytes, expected);
}

TEST_F(AllocateGranuleTest, AShortImageGrowsByZeroBytesToOneByteBehindTheGranule) {
    Disk.ImageBytes.assign(100, 'o');
    std::string_view data = "xyz";
    int granule = 34;
    AllocateGranule(granule, kFirstGranule, fat_, data);
    EXPECT_EQ(Disk.ImageBytes.size(), 37U * 2304 + 1);
    EXPECT_EQ(Disk.ImageBytes.substr(0, 100), std::string(100, 'o'));
    EXPECT_EQ(Disk.ImageBytes.substr(100, 36 * 2304 - 100), std::string(36 * 2304 - 100, '\0'));
    EXPECT_EQ(Disk.ImageBytes.substr(36 * 2304, 4), std::string("xyz\0", 4));
}

/// So the last granule of a disk of 35 tracks makes its image a byte longer.
TEST_F(AllocateGranuleTest, TheLastGranuleOf35TracksAddsAByteToTheImage) {
    std::string_view none;
    int granule = 66;
    AllocateGranule(granule, kFirstGranule, fat_, none);
    EXPECT_EQ(Disk.ImageBytes.size(), 161280U);
    AllocateGranule(granule, kNextGranule, fat_, none);
    EXPECT_EQ(granule, 67);
    EXPECT_EQ(Disk.ImageBytes.size(), 161281U);
}

}  // namespace
}  // namespace brindlemoor::test
