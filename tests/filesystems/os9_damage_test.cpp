#include <gtest/gtest.h>

#include <random>

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/os9_builder.h"

// OS-9 disks that are cut, spoiled or made to hurt. A failure with a number is a good end.

namespace brindlemoor::test {
namespace {

using Os9DamageTest = DiskTest;

/// Bytes in all rows of the table.
std::size_t GatheredBytes() {
    std::size_t bytes = 0;
    for (int row = 0; row < kDirTableRows; ++row) bytes += DirTable[row].Content.size();
    return bytes;
}

/// Reads what may be any bytes, and returns the number of its failure, 0 for none.
int FailureOfReading(const std::string& image) {
    Disk.ImageBytes = image;
    Disk.ImageOnOpen = image;
    return FailureOf([] {
        ReadDisk();
        ASSERT_GE(Disk.DirRows, 0);
        ASSERT_LT(Disk.DirRows, kDirTableRows);
    });
}

/// A small tree with files of several segments.
Os9Builder Tree() {
    Os9Builder disk(120, 18);
    disk.RootNames({{"SUB", 10}, {"one.txt", 20}, {"two", 30}});
    disk.Directory(10, 2, {{"three", 40}, {"DEEP", 50}}).Directory(50, 10, {{"four", 60}});
    disk.File(20, Pattern(1000, 1)).File(30, Pattern(300, 2)).File(60, Pattern(700, 3));
    Os9Descriptor fields;
    fields.Size = 600;
    fields.Segments = {{70, 1}, {72, 1}, {74, 1}};
    return disk.Descriptor(40, fields).Put(70 * 256, Pattern(256, 4));
}

TEST_F(Os9DamageTest, TruncationAtEverySectorAndAtOddPlacesIsSurvived) {
    const std::string disk = Tree().Image();
    for (std::size_t length = 0; length <= disk.size(); length += 256) {
        EXPECT_EQ(FailureOfReading(disk.substr(0, length)), 0) << length;
        EXPECT_EQ(FailureOfReading(disk.substr(0, length + length % 251)), 0) << length;
    }
    for (std::size_t length = 0; length < 4 * 256; ++length) {
        EXPECT_EQ(FailureOfReading(disk.substr(0, length)), 0) << length;
    }
}

TEST_F(Os9DamageTest, ATruncatedSampleKeepsTheFilesThatAreWhole) {
    const std::string disk = TestData("os9/os9-40x2-boot.dsk");
    for (std::size_t length = 0; length <= disk.size(); length += 8 * 256 + 1) {
        ASSERT_EQ(FailureOfReading(disk.substr(0, length)), 0) << length;
    }
    Read(disk.substr(0, 90 * 256));  // in front of the sector of "startup"
    EXPECT_EQ(DirTable[4].Name, "OS9Boot");
    EXPECT_EQ(DirTable[4].Content.size(), 2320U);
    EXPECT_EQ(Disk.DirRows, 30);
}

/// A byte of LSN 0, of a descriptor or of an entry of `Tree`; `.` and `..` stay out of it: nearly
/// every change of their names makes the walk run in a ring until the rows are used up.
std::size_t AnyTableByte(std::mt19937& random) {
    struct Range {
        std::size_t Sector;
        std::size_t From;
        std::size_t Bytes;
    };
    static const std::vector<Range> ranges = {{0, 0, 64},   {2, 0, 32},   {10, 0, 32}, {20, 0, 32},
                                              {30, 0, 32},  {40, 0, 32},  {50, 0, 32}, {60, 0, 32},
                                              {3, 64, 128}, {11, 64, 96}, {51, 64, 64}};
    const Range& range = ranges[random() % ranges.size()];
    return range.Sector * kSectorSize + range.From + random() % range.Bytes;
}

/// The parameter is the seed.
class Os9SpoiledTest : public DiskTest, public testing::WithParamInterface<unsigned> {};

TEST_P(Os9SpoiledTest, AThousandSpoiledDisksAreSurvived) {
    const std::string good = Tree().Image();
    std::mt19937 random(GetParam());
    int failures = 0;
    for (int round = 0; round < 1000; ++round) {
        std::string disk = good;
        for (int change = 0; change < 8; ++change) {
            const std::size_t place = change < 6 ? AnyTableByte(random) : random() % disk.size();
            disk[place] = static_cast<char>(random());
        }
        if (FailureOfReading(disk) != 0) ++failures;
    }
    // Most spoiled disks can still be read, and some cannot.
    EXPECT_GT(failures, 0);
    EXPECT_LT(failures, 200);
}

INSTANTIATE_TEST_SUITE_P(Os9, Os9SpoiledTest, testing::Range(1U, 11U));

TEST_F(Os9DamageTest, FilesThatLieOverEachOtherAgainAndAgainRunOutOfMemory) {
    // A thousand names for one file that has every sector of the disk 48 times.
    Os9Builder disk(1440);
    Os9Descriptor fields;
    fields.Size = 0x7FFFFF;
    fields.Segments = std::vector<Os9Segment>(48, {0, 0xFFFF});
    Os9Names names;
    for (int i = 0; i < 1000; ++i) names.emplace_back("n", 300);
    disk.RootNames(names).Descriptor(300, fields);
    EXPECT_EQ(FailureOfReading(disk.Image()), kOutOfMemory);
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_LE(GatheredBytes(), 512U * 1024 * 1024);
    DirTable.Wipe();
    // The same disk with small files is read.
    fields.Size = 1000;
    EXPECT_EQ(FailureOfReading(disk.Descriptor(300, fields).Image()), 0);
    EXPECT_EQ(Disk.DirRows, 1003);
}

TEST_F(Os9DamageTest, TheLargestCountsAndSizesGatherNoMoreThanTheImageHas) {
    Os9Builder disk;
    Os9Descriptor fields;
    fields.Size = 0x7FFFFFFF;
    fields.Segments = std::vector<Os9Segment>(48, {600, 0xFFFF});
    disk.RootNames({{"huge", 10}}).Descriptor(10, fields);
    EXPECT_EQ(FailureOfReading(disk.Image()), 0);
    EXPECT_EQ(DirTable[4].Content.size(), 48U * 30 * 256);
    EXPECT_EQ(DirTable[4].SectorCount, 1 + 48 * 630);
}

TEST_F(Os9DamageTest, SectorsUsedBeyond32BitsOverflow) {
    // 256 files of 8,388,608 sectors each are one sector too many.
    for (const int files : {255, 256}) {
        Os9Builder disk;
        Os9Descriptor fields;
        fields.Size = 0x7FFFFFFF;
        Os9Names names;
        for (int i = 0; i < files; ++i) names.emplace_back("n", 300);
        disk.RootNames(names).Descriptor(300, fields);
        EXPECT_EQ(FailureOfReading(disk.Image()), files == 255 ? 0 : kOverflow);
    }
}

TEST_F(Os9DamageTest, NegativeSizesTakeTheSectorsUsedBelowZeroAndOverflowToo) {
    Os9Builder disk;
    Os9Descriptor fields;
    fields.Size = -2147483648LL;
    Os9Names names;
    for (int i = 0; i < 300; ++i) names.emplace_back("n", 300);
    disk.RootNames(names).Descriptor(300, fields);
    EXPECT_EQ(FailureOfReading(disk.Image()), kOverflow);
}

TEST_F(Os9DamageTest, ADirectoryWhoseEntriesAreItsOwnDescriptorIsSurvived) {
    Os9Builder disk;
    Os9Descriptor fields;
    fields.Attributes = 0x80;
    fields.Size = 0x7FFFFFFF;
    fields.Segments = {{2, 1}, {0, 0xFFFF}};
    EXPECT_EQ(FailureOfReading(disk.Descriptor(2, fields).Image()), 0);
}

TEST_F(Os9DamageTest, NoSectorsAndNoTracksLeaveFilesEmpty) {
    Os9Builder disk;
    disk.RootNames({{"file", 10}}).File(10, "bytes").Number(0, 3, 0);
    EXPECT_EQ(FailureOfReading(disk.Image()), 0);
    EXPECT_EQ(Disk.TrackCount, 0);
    // The root's segment begins behind the disk: the root has no entries.
    EXPECT_EQ(DirTable[1].Content, "");
    EXPECT_EQ(Disk.DirRows, 1);
}

}  // namespace
}  // namespace brindlemoor::test
