#include "filesystems/decb_write.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "support/decb_builder.h"
#include "support/dragon_fixture.h"
#include "support/write_fixture.h"

namespace brindlemoor::test {
namespace {

class DecbWrite : public WriteTest {
  protected:
    void SetUp() override {
        WriteTest::SetUp();
        Read(DecbBuilder().Image());
        DirEntry& row = DirTable[0];
        row.Name = "A       ";
        row.Ext = "BIN";
        row.FormatChar = "B";
        row.LastGranuleSectors = 1;
    }

    /// Places `bytes` granules of a row whose chain is `chain`, and returns whether that went well.
    static bool Place(const std::string& chain, std::size_t granules) {
        DirTable[0].Chain = chain;
        Disk.DirCount = 0;
        const std::string data(granules * 2304, 'x');
        std::string_view left = data;
        return PlaceDecbFile(left);
    }
};

TEST_F(DecbWrite, TheSlotIsSixteenBytesOfTheRow) {
    DirEntry row;
    row.Name = "SHORT";
    row.Ext = "B";
    row.FileType = 3;
    row.FormatChar = "A";
    row.FirstUnit = 67;
    row.LastSectorBytes = 256;
    EXPECT_EQ(DecbSlotBytes(row), "SHORT   B  " + Bytes({3, 255, 67, 1, 0}));
    row.Name = "MUCHTOOLONG";
    row.FormatChar = "B";
    row.LastSectorBytes = -2;
    EXPECT_EQ(DecbSlotBytes(row), "MUCHTOOLB  " + Bytes({3, 0, 67, 255, 254}));
}

TEST_F(DecbWrite, TheOtherSixteenBytesOfASlotStay) {
    PutDecbSlot(2, std::string(16, 's'));
    EXPECT_EQ(ImagePart(78848 + 64, 32), std::string(16, 's') + std::string(16, '\xFF'));
}

TEST_F(DecbWrite, AnOldChainIsWhereEachSearchBegins) {
    EXPECT_TRUE(Place(Bytes({40, 10, 50}), 5));
    EXPECT_EQ(ChainText(0), "40 10 50 51 52 ");
}

TEST_F(DecbWrite, AnOldChainOfTakenGranulesIsSteppedOver) {
    ASSERT_TRUE(Place("", 3));
    EXPECT_EQ(ChainText(0), "32 33 34 ");
    EXPECT_TRUE(Place(DirTable[0].Chain, 3));
    // 32 outwards, 33 and 34 onwards.
    EXPECT_EQ(ChainText(0), "35 36 37 ");
}

TEST_F(DecbWrite, AnOldChainBelowTheDirectoryMayRunOutOfGranules) {
    EXPECT_FALSE(Place(Bytes({40, 2}), 6));
    ExpectOneMessage("No granules free", MessageIcon::Exclamation);
    EXPECT_EQ(ChainText(0), "40 2 3 0 1 ");
    EXPECT_EQ(ImagePart(78592, 68), std::string(68, '\xFF'));
}

}  // namespace
}  // namespace brindlemoor::test
