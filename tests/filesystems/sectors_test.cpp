#include "filesystems/sectors.h"

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

/// An open image of three sectors and ten bytes.
class SectorsTest : public DiskTest {
  protected:
    void SetUp() override {
        DiskTest::SetUp();
        Disk.ImageBytes = Pattern(3 * 256 + 10, 1);
        ResetGatheredBytes();
    }
    void TearDown() override {
        ResetGatheredBytes();
        DiskTest::TearDown();
    }
};

TEST_F(SectorsTest, SectorsCountFrom0AndHave256Bytes) {
    EXPECT_EQ(SectorBytes(0), Disk.ImageBytes.substr(0, 256));
    EXPECT_EQ(SectorBytes(2), Disk.ImageBytes.substr(512, 256));
    EXPECT_EQ(SectorBytes(1, 300), Disk.ImageBytes.substr(256, 300));
    EXPECT_EQ(SectorBytes(1, 0), "");
}

TEST_F(SectorsTest, WhatLiesBehindTheImageIsMissing) {
    EXPECT_EQ(SectorBytes(3), Disk.ImageBytes.substr(768));
    EXPECT_EQ(SectorBytes(4), "");
    EXPECT_EQ(SectorBytes(0xFFFFFF), "");
}

TEST_F(SectorsTest, ANegativeSectorOrLengthFails) {
    EXPECT_EQ(FailureOf([] { SectorBytes(-1); }), kInvalidCall);
    EXPECT_EQ(FailureOf([] { SectorBytes(0, -1); }), kInvalidCall);
    std::string content = "kept";
    EXPECT_EQ(FailureOf([&] { GatherBytes(content, -1, 1); }), kInvalidCall);
    EXPECT_EQ(FailureOf([&] { GatherBytes(content, 0, -1); }), kInvalidCall);
    EXPECT_EQ(content, "kept");
}

TEST_F(SectorsTest, GatheringAppends) {
    std::string content = "before";
    GatherBytes(content, 100, 5);
    GatherBytes(content, 0, 2);
    EXPECT_EQ(content, "before" + Disk.ImageBytes.substr(100, 5) + Disk.ImageBytes.substr(0, 2));
    GatherBytes(content, 770, 100);
    EXPECT_EQ(content.size(), 6U + 5 + 2 + 8);
    GatherBytes(content, 778, 1);
    GatherBytes(content, 1LL << 40, 1LL << 40);
    EXPECT_EQ(content.size(), 6U + 5 + 2 + 8);
}

TEST_F(SectorsTest, FarMoreThanADiskHoldsRunsOutOfMemory) {
    Disk.ImageBytes.assign(64 * 1024 * 1024, 'x');
    std::string content;
    for (int i = 0; i < 8; ++i) {
        content.clear();
        GatherBytes(content, 0, 64 * 1024 * 1024);
    }
    content.clear();
    EXPECT_EQ(FailureOf([&] { GatherBytes(content, 0, 1); }), kOutOfMemory);
    EXPECT_EQ(content, "");
    // Another disk begins at none.
    ResetGatheredBytes();
    GatherBytes(content, 0, 1);
    EXPECT_EQ(content, "x");
}

TEST_F(SectorsTest, AMessageHasTheProgramsTitleAndOneButton) {
    ShowDiskMessage("text");
    ASSERT_EQ(script_.Messages.size(), 1U);
    EXPECT_EQ(script_.Messages[0].Text, "text");
    EXPECT_EQ(script_.Messages[0].Title, "Brindlemoor");
    EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
}

TEST_F(SectorsTest, BytesArePutWhereTheyLieInTheImage) {
    Disk.ImageBytes = "0123456789";
    PutImageBytes(2, "ab");
    EXPECT_EQ(Disk.ImageBytes, "01ab456789");
    PutImageBytes(8, "cdef");
    EXPECT_EQ(Disk.ImageBytes, "01ab4567cd");
    PutImageBytes(0, "0123456789 and more");
    EXPECT_EQ(Disk.ImageBytes, "0123456789");
    for (const std::int64_t outside : {std::int64_t{-1}, std::int64_t{10}, INT64_MAX, INT64_MIN}) {
        PutImageBytes(outside, "xy");
    }
    PutImageBytes(3, "");
    EXPECT_EQ(Disk.ImageBytes, "0123456789");
}

}  // namespace
}  // namespace brindlemoor::test
