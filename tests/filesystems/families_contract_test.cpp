#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <set>
#include <tuple>

#include "core/disk_state.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/dragon_builder.h"
#include "support/flex_builder.h"

// What every disk keeps to after it was read, whatever its family.

namespace brindlemoor::test {
namespace {

/// A FLEX disk with live files, a deleted one and one whose bytes end in zero bytes.
std::string FlexDisk() {
    FlexBuilder disk;
    disk.File(0, "ONE", "TXT", {{1, 1}, {1, 2}, {1, 3}}, Pattern(700, 1));
    disk.File(1, "TWO", "CMD", {{2, 5}}, "short");
    disk.File(2, "GONE", "BIN", {{3, 1}, {3, 2}}, Pattern(300, 2)).SlotByte(2, 0, 'G' | 0x80);
    disk.File(3, "FOUR", "SYS", {{4, 1}}, Pattern(200, 3));
    return disk.Image();
}

/// A Dragon disk whose tracks have both sides.
std::string DragonDiskOfTwoSides() {
    DragonBuilder disk(40, 36);
    disk.File(0, "ONE", "BAS", {{40, 3}}, Pattern(700, 4));
    disk.File(1, "TWO", "DAT", {{50, 1}, {60, 2}}, Pattern(600, 5));
    return disk.Image();
}

struct Sample {
    std::string Name;
    Family Expected;
    std::function<std::string()> Image;
};

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << sample.Name;
}

std::function<std::string()> File(const std::string& path) {
    return [path] { return TestData(path); };
}

/// The sample disks of 40 tracks with files behind granule 67, and of Dragon DOS on two sides, are
/// not among them: by the rules of their families they are no such disks.
const std::vector<Sample>& Samples() {
    static const std::vector<Sample> samples = {
        {"Decb35Files", kDecb, File("decb/decb35-files.dsk")},
        {"Decb35Full", kDecb, File("decb/decb35-full.dsk")},
        {"Decb35FullDirectory", kDecb, File("decb/decb35-fulldir.dsk")},
        {"Decb35Dmk", kDecb, File("decb/decb35-imgtool.dmk")},
        {"Dragon40", kDragon, File("dragon/dragon40-ss.dsk")},
        {"Dragon40Fragmented", kDragon, File("dragon/dragon40-ss-frag.vdk")},
        {"Dragon40Named", kDragon, File("dragon/dragon40-ss-named.vdk")},
        {"Dragon80", kDragon, File("dragon/dragon80-ss.vdk")},
        {"Dragon40TwoSides", kDragon, DragonDiskOfTwoSides},
        {"Os9Tracks35", kOs9, File("os9/os9-35x1.dsk")},
        {"Os9Tracks40Boot", kOs9, File("os9/os9-40x2-boot.dsk")},
        {"Os9Tracks80Short", kOs9, File("os9/os9-80x2-short.dsk")},
        {"Os9DragonBoot", kOs9, File("os9/os9-40x1-dragonboot.dsk")},
        {"Flex35", kFlex, FlexDisk},
    };
    return samples;
}

class FamiliesContractTest : public DiskTest, public testing::WithParamInterface<Sample> {
  protected:
    void SetUp() override {
        DiskTest::SetUp();
        file_ = GetParam().Image();
        Read(file_);
    }

    bool IsOs9() const { return GetParam().Expected == kOs9; }

    /// Rows that were filled: OS-9 walks one more than it lists.
    int Filled() const { return IsOs9() ? Disk.DirRows + 1 : Disk.DirRows; }

    std::string file_;
};

auto Fields(const DirEntry& row) {
    return std::tie(row.Name, row.Ext, row.FullName, row.FileType, row.FormatChar, row.Flags,
                    row.Content, row.UnitCount, row.Chain, row.SectorCount, row.Size,
                    row.ContinuationLink, row.BadSectorMark, row.FirstUnit, row.LastSectorBytes,
                    row.LastGranuleSectors, row.DescriptorSector, row.Attributes, row.OwnerId,
                    row.LinkCount, row.ModifiedDate, row.CreatedDate, row.TreeLevel);
}

auto Totals(const DiskState& disk) {
    return std::tie(disk.ImageBytes, disk.ImageHeader, disk.ImageOnOpen, disk.DiskName,
                    disk.ImageModified, disk.DiskFamily, disk.TrackCount, disk.SectorsPerTrack,
                    disk.TotalSectors, disk.FatBytes, disk.MaxDirEntries, disk.TotalUnits,
                    disk.UsedSectors, disk.DeletedCount, disk.ContinuationCount, disk.DirCount,
                    disk.DirRows, disk.DiskDate);
}

/// Reads `between`, and then the file again, and expects all that there was before.
void ExpectSameAgain(const std::vector<std::string>& between) {
    const DiskState disk = Disk;
    std::vector<DirEntry> rows;
    for (int row = 0; row < kDirTableRows; ++row) rows.push_back(DirTable[row]);
    for (const std::string& other : between) {
        Disk.ImageBytes = other;
        ReadDisk();
    }
    // FLEX has no table: it keeps the one of the disk before.
    if (disk.DiskFamily == kFlex) Disk.FatBytes = disk.FatBytes;
    Disk.ImageBytes = Disk.ImageOnOpen;
    ReadDisk();
    EXPECT_TRUE(Totals(Disk) == Totals(disk));
    for (int row = 0; row < kDirTableRows; ++row) {
        const auto index = static_cast<std::size_t>(row);
        EXPECT_TRUE(Fields(DirTable[row]) == Fields(rows[index])) << "row " << row;
    }
}

TEST_P(FamiliesContractTest, OpensAsItsFamilyAndHasRows) {
    EXPECT_EQ(Disk.DiskFamily, GetParam().Expected);
    EXPECT_GT(Disk.DirRows, 0);
    EXPECT_LT(Disk.DirRows, kDirTableRows);
    EXPECT_GT(Disk.MaxDirEntries, 0);
    EXPECT_GT(Disk.TotalUnits, 0);
    EXPECT_GT(Disk.SectorsPerTrack, 0);
    EXPECT_EQ(Disk.ImageModified, 0);
}

TEST_P(FamiliesContractTest, HeaderAndSectorsAreTheFile) {
    EXPECT_EQ(Disk.ImageOnOpen, file_);
    if (GetParam().Name == "Decb35Dmk") {
        // The sectors of a DMK are put in order, without what stands between them.
        EXPECT_EQ(Disk.ImageHeader, file_.substr(0, 16));
        EXPECT_EQ(Disk.ImageBytes.size(), 161280U);
        return;
    }
    EXPECT_EQ(Disk.ImageHeader + Disk.ImageBytes, file_);
}

TEST_P(FamiliesContractTest, RowsBehindTheLastFilledOneAreEmpty) {
    const DirEntry empty;
    // The entry that ends a Dragon directory keeps its flags.
    const int first = Disk.DiskFamily == kDragon ? Filled() + 1 : Filled();
    for (int row = first; row < kDirTableRows; ++row) {
        ASSERT_TRUE(Fields(DirTable[row]) == Fields(empty)) << row;
    }
}

TEST_P(FamiliesContractTest, FullNamesAreKeysOfLiveFiles) {
    std::set<std::string> names;
    for (int row = 0; row < Disk.DirRows; ++row) {
        const DirEntry& entry = DirTable[row];
        if ((entry.Flags & (kFlagDeleted | kFlagContinuationEntry)) != 0) continue;
        std::string key = entry.FullName;
        if (IsOs9()) {
            // A name is a key in its own directory only, the row of a lower level before it.
            int parent = row;
            while (parent > 0 && DirTable[parent].TreeLevel >= entry.TreeLevel) --parent;
            key = std::to_string(parent) + "/" + key;
        }
        EXPECT_TRUE(names.insert(key).second) << key;
    }
}

TEST_P(FamiliesContractTest, UsedSectorsIsTheSumOverTheRows) {
    std::int64_t used = 0;
    for (int row = 0; row < Filled(); ++row) {
        const DirEntry& entry = DirTable[row];
        // OS-9 sums up what the sizes of the walked files need, without descriptors and gaps.
        const bool walked = !entry.DescriptorSector.empty();
        const std::int64_t needed = walked ? (entry.Size + 255) / 256 : 0;
        used += IsOs9() ? needed : entry.SectorCount;
    }
    EXPECT_EQ(Disk.UsedSectors, used);
}

TEST_P(FamiliesContractTest, SizesAgreeWithTheContent) {
    for (int row = 0; row < Filled(); ++row) {
        const DirEntry& entry = DirTable[row];
        const auto bytes = static_cast<std::int64_t>(entry.Content.size());
        SCOPED_TRACE(entry.FullName);
        if (Disk.DiskFamily == kFlex) {
            // Zero bytes at the end do not count.
            const std::size_t used = entry.Content.find_last_not_of('\0') + 1;
            EXPECT_EQ(entry.Size, static_cast<std::int64_t>(used));
        } else {
            EXPECT_EQ(entry.Size, bytes);
        }
    }
}

TEST_P(FamiliesContractTest, DeletedRowsAreCounted) {
    const auto isDeleted = [](int row) { return (DirTable[row].Flags & kFlagDeleted) != 0; };
    int deleted = 0;
    for (int row = 0; row < Filled(); ++row) deleted += isDeleted(row) ? 1 : 0;
    EXPECT_EQ(Disk.DeletedCount, deleted);
}

TEST_P(FamiliesContractTest, ReadAgainItGivesTheSame) {
    ExpectSameAgain({});
}

TEST_P(FamiliesContractTest, DisksOfOtherFamiliesReadBetweenLeaveNothingBehind) {
    ExpectSameAgain({TestData("decb/decb35-fulldir.dsk"), DragonDiskOfTwoSides(),
                     TestData("os9/os9-40x2-boot.dsk"), FlexDisk()});
}

INSTANTIATE_TEST_SUITE_P(Families, FamiliesContractTest, testing::ValuesIn(Samples()),
                         [](const auto& sample) { return sample.param.Name; });

}  // namespace
}  // namespace brindlemoor::test
