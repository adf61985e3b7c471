#include "filesystems/commit_os9.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "filesystems/commit.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/dragon_fixture.h"
#include "support/os9_builder.h"
#include "support/write_fixture.h"

namespace brindlemoor::test {
namespace {

class CommitOs9 : public WriteTest {
  protected:
    /// "file" at LSN 10, "sub" at LSN 20 with "inner" at LSN 30 and "deep" at 40, "last" at 50.
    static Os9Builder Tree() {
        Os9Builder disk;
        disk.DiskName("Disk").Number(14, 2, 0x1234).Put(26, "\x56\5\4\14\36").Number(21, 3, 99);
        disk.Put(63, Pattern(192, 1));
        disk.RootNames({{"file", 10}, {"sub", 20}, {"last", 50}});
        disk.File(10, Pattern(700, 2)).Directory(20, disk.Root(), {{"inner", 30}, {"deep", 40}});
        return disk.File(30, Pattern(300, 3)).File(40, "d").File(50, "l");
    }

    static std::string Sector(int lsn) {
        return ImagePart(static_cast<std::size_t>(lsn) * 256, 256);
    }
};

/// Rows of the tree: 0 map, 1 ROOT, 2 "..", 3 ".", 4 file, 5 sub, 6 "..", 7 ".", 8 inner, 9 deep.
constexpr int kRootRow = 1;
constexpr int kFileRow = 4;
constexpr int kSubRow = 5;

TEST_F(CommitOs9, OnlyTheIdentificationAndTheMapAreLeft) {
    const std::string before = Tree().Image();
    Read(before);
    CommitDirectory();
    std::string expected(before.size(), '\0');
    // All of LSN 0 but the owner is as it was; 79 bytes of map fill a sector.
    expected.replace(0, 255, before, 0, 255);
    expected.replace(256, 79, before, 256, 79);
    expected.replace(256 + 79, 256 - 79, std::string(256 - 79, '\xFF'));
    EXPECT_TRUE(ImageIs(expected));
    EXPECT_EQ(Disk.DirCount, 0);
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(CommitOs9, TheByteReadAtOffset11ComesBackAt12) {
    Read(Tree().Number(11, 2, 0x4267).Image());
    CommitDirectory();
    EXPECT_EQ(ImagePart(11, 2), Bytes({0, 0x42}));
}

TEST_F(CommitOs9, TheFieldsOfTheDiskGoToTheirPlaces) {
    Read(Tree().Image());
    Disk.TotalSectors = 0x000276;
    Disk.SectorsPerTrack = 0x11;
    Disk.FatBytes = "map";
    Disk.Os9ClusterSize = -2;
    Disk.Os9RootLsn = -3;
    Disk.Os9Owner = 0x0102;
    Disk.Os9DiskAttr = 0x55;
    Disk.Os9DiskId = 0xFFFE;
    Disk.Os9Format = 7;
    Disk.Os9SectorsField = 0x0304;
    Disk.Os9Reserved = "r";
    Disk.Os9BootLsn = 0x010203;
    Disk.Os9BootSize = -1;
    Disk.DiskDate = 0;
    Disk.DiskName = "A name of more than 32 characters!";
    Disk.Os9Options = "opt";
    CommitDirectory();
    EXPECT_EQ(ImagePart(0, 31),
              Bytes({0, 2, 0x76, 0x11, 0, 3, 255, 254, 255, 255, 253, 1, 2, 0x55, 255, 254,
                     7, 3, 4,    'r',  0, 1, 2,   3,   255, 255, 0,   0, 0, 0,    0}));
    EXPECT_EQ(ImagePart(31, 32), "A name of more than 32 character");
    EXPECT_EQ(ImagePart(63, 193), "opt" + std::string(190, '\0'));
    EXPECT_EQ(ImagePart(256, 256), "map" + std::string(253, '\xFF'));
}

/// A map of whole sectors gets one more of 255.
TEST_F(CommitOs9, TheMapIsFilledUpBehindItsLastSector) {
    Read(Tree().Image());
    Disk.FatBytes.assign(512, 'm');
    CommitDirectory();
    EXPECT_EQ(ImagePart(256, 1024),
              std::string(512, 'm') + std::string(256, '\xFF') + std::string(256, '\0'));
}

TEST_F(CommitOs9, AMapLongerThanTheDiskIsCut) {
    Read(Tree().Image());
    Disk.TotalSectors = 3;
    Disk.FatBytes.assign(65535, 'm');
    CommitDirectory();
    EXPECT_EQ(Disk.ImageBytes.size(), 768U);
    EXPECT_EQ(ImagePart(4, 2), "\xFF\xFF");
    EXPECT_EQ(ImagePart(256, 512), std::string(512, 'm'));
}

TEST_F(CommitOs9, ADiskOfNoSectorsIsAnEmptyImage) {
    Read(Tree().Image());
    Disk.TotalSectors = 0;
    CommitDirectory();
    EXPECT_EQ(Disk.ImageBytes, "");
}

TEST_F(CommitOs9, AnImpossibleNumberOfSectorsFailsAndChangesNothing) {
    for (const std::int32_t sectors : {-1, -2147483647, 2097153, 16777215, 2147483647}) {
        Read(Tree().Image());
        Disk.TotalSectors = sectors;
        EXPECT_EQ(FailureOf(CommitDirectory), kOutOfMemory) << sectors;
        EXPECT_TRUE(ImageIs(Tree().Image())) << sectors;
    }
}

TEST_F(CommitOs9, AnImpossibleDateOfTheDiskFailsAndChangesNothing) {
    Read(Tree().Image());
    Disk.DiskDate = 1e9;
    EXPECT_EQ(FailureOf(CommitDirectory), kOverflow);
    EXPECT_TRUE(ImageIs(Tree().Image()));
}

/// No disk has its boot track in row 0; the step is there for one that had.
TEST_F(CommitOs9, ABootTrackInRow0IsWrittenAndTheTreeBeginsBehindIt) {
    Read(Tree().Image());
    DirEntry& boot = DirTable[0];
    boot.Name = "BOOTDECB";
    boot.Content = "OS" + Pattern(600, 4);
    boot.Chain = Bytes({0, 0, 100, 0, 2});
    CommitDirectory();
    EXPECT_EQ(Disk.DirCount, 1);
    EXPECT_EQ(ImagePart(100 * 256, 600), boot.Content.substr(0, 512) + std::string(88, '\0'));
    // Row 1 is the root, so that the whole tree is there.
    EXPECT_EQ(ImagePart(11 * 256, 700), Pattern(700, 2));
    EXPECT_EQ(Sector(30).substr(0, 16), Tree().Image().substr(30 * 256, 16));
}

// --- The tree ---

TEST_F(CommitOs9, ARowIsWrittenWhereItWasWithItsFields) {
    const std::string before = Tree().Number(10 * 256 + 1, 2, 0x0A0B).Image();
    Read(before);
    Disk.ImageBytes.assign(before.size(), '\0');
    WriteOs9Tree("file", 10 * 256 + 1, kFileRow, 1);
    // The owner is not read, and becomes 0.
    std::string expected(before.size(), '\0');
    expected.replace(10 * 256, 4 * 256, before, 10 * 256, 4 * 256);
    expected.replace(10 * 256 + 1, 2, 2, '\0');
    // The last segment's sector is written as far as the file goes.
    EXPECT_TRUE(ImageIs(expected));
}

TEST_F(CommitOs9, TheDescriptorTakesTheFieldsOfTheRow) {
    Read(Tree().Image());
    DirEntry& row = DirTable[kFileRow];
    row.Attributes = 0x3F;
    row.OwnerId = 0x0102;
    row.LinkCount = 9;
    row.Size = 0x01020304;
    row.ModifiedDate = 0;
    row.CreatedDate = 0;
    row.Chain = Bytes({0, 0, 60, 0, 1});
    row.Content = "new";
    WriteOs9Tree("file", 70 * 256 + 1, kFileRow, 1);
    EXPECT_EQ(Sector(70).substr(0, 21),
              Bytes({0x3F, 1, 2, 0, 0, 0, 0, 0, 9, 1, 2, 3, 4, 0, 0, 0, 0, 0, 60, 0, 1}));
    EXPECT_EQ(Sector(70).substr(21), std::string(235, '\0'));
    EXPECT_EQ(ImagePart(60 * 256, 3), "new");
}

TEST_F(CommitOs9, ADirectoryIsMadeAnewWithWhatItHolds) {
    Read(Tree().Image());
    DirTable[8].Name = "renamed";
    Disk.ImageBytes.assign(Disk.ImageBytes.size(), '\0');
    WriteOs9Tree("sub", 20 * 256 + 1, kSubRow, 1);
    const std::string entries = Os9Entry(Os9Name(".."), 2) + Os9Entry(Os9Name("."), 20) +
                                Os9Entry(Os9Name("renamed"), 30) + Os9Entry(Os9Name("deep"), 40);
    EXPECT_EQ(DirTable[kSubRow].Content, entries);
    EXPECT_EQ(ImagePart(31 * 256, 300), Pattern(300, 3));
    EXPECT_EQ(ImagePart(41 * 256, 1), "d");
}

/// "." is a directory too: it counts the rows behind it on its own level as what it holds, and is
/// written to the same sectors before the directory itself.
TEST_F(CommitOs9, TheDotEntriesTakeUpTheirNeighbours) {
    Read(Tree().Image());
    WriteOs9Tree("sub", 20 * 256 + 1, kSubRow, 1);
    EXPECT_EQ(DirTable[7].Content, Os9Entry(Os9Name("inner"), 30) + Os9Entry(Os9Name("deep"), 40));
    EXPECT_EQ(ImagePart(21 * 256, 32), Os9Entry(Os9Name(".."), 2));
}

TEST_F(CommitOs9, ARowWithoutADescriptorIsLeftOutWithAllThatItHolds) {
    Read(Tree().Image());
    DirTable[kSubRow].DescriptorSector.clear();
    Disk.ImageBytes.assign(Disk.ImageBytes.size(), '\0');
    WriteOs9Tree("ROOT", Disk.Os9RootLsn * 256 + 1, kRootRow, 0);
    EXPECT_EQ(ImagePart(31 * 256, 300), std::string(300, '\0'));
    EXPECT_EQ(ImagePart(11 * 256, 700), Pattern(700, 2));
}

TEST_F(CommitOs9, APositionOutsideTheImageWritesNothing) {
    Read(Tree().Image());
    const std::string image = Disk.ImageBytes;
    for (const std::int64_t position :
         {std::int64_t{0}, std::int64_t{-255}, static_cast<std::int64_t>(image.size()) + 1}) {
        WriteOs9Tree("ROOT", position, kRootRow, 0);
        EXPECT_TRUE(ImageIs(image)) << position;
    }
    WriteOs9Tree("file", static_cast<std::int64_t>(image.size()), kFileRow, 1);
    EXPECT_EQ(Disk.ImageBytes.size(), image.size());
}

TEST_F(CommitOs9, ADeletedRowKeepsItsSegmentsAndWritesNoBytes) {
    Read(Tree().Image());
    const std::string segments = DirTable[kFileRow].DescriptorSector.substr(16);
    DirTable[kFileRow].Chain = Bytes({0, 0, 60, 0, 1});
    WriteOs9Tree(std::string("\0ile", 4), 10 * 256 + 1, kFileRow, 1);
    EXPECT_EQ(Sector(10).substr(16), segments);
    EXPECT_EQ(Sector(60), std::string(256, '\0'));
}

TEST_F(CommitOs9, SegmentsBeyondTheDiskEndTheFileAndLongOnesAreCut) {
    Read(Tree().Image());
    DirEntry& row = DirTable[kFileRow];
    row.Content = Pattern(2000, 5);
    row.Chain = Bytes({0, 2, 117, 255, 255, 0, 0, 60, 0, 1});  // 629, cut to one sector
    WriteOs9Tree("file", 10 * 256 + 1, kFileRow, 1);
    EXPECT_EQ(Sector(629), row.Content.substr(0, 256));
    EXPECT_EQ(Sector(60), row.Content.substr(256, 256));
    row.Chain = Bytes({0, 2, 119, 0, 1, 0, 0, 62, 0, 1});  // 631 is behind 630
    WriteOs9Tree("file", 10 * 256 + 1, kFileRow, 1);
    EXPECT_EQ(Sector(62), std::string(256, '\0'));
}

/// Each of these directories counts all rows behind it as its own, and those do the same: going
/// down would write the last row 2 to the power of 1,698 times.
TEST_F(CommitOs9, DirectoriesThatTakeUpEachOtherAreWrittenOnce) {
    Read(Tree().Image());
    const DirEntry model = DirTable[kSubRow];
    for (int row = 1; row < kDirTableRows; ++row) {
        DirTable[row] = model;
        DirTable[row].FirstUnit = 3 + row % 600;
        DirTable[row].Chain = "";
    }
    Disk.DirRows = kDirTableRows;
    WriteOs9Tree("sub", 20 * 256 + 1, 1, 0);
    EXPECT_EQ(DirTable[1].Content.size(), 1699U * 32);
    EXPECT_EQ(DirTable[1699].Content.size(), 32U);
}

/// The order of the tree shows where two rows share a sector: what stands above is written last.
TEST_F(CommitOs9, ADirectoryIsWrittenBehindWhatItHolds) {
    Read(Tree().Image());
    for (const int row : {8, 9}) DirTable[row].FirstUnit = 20;
    WriteOs9Tree("sub", 20 * 256 + 1, kSubRow, 1);
    EXPECT_EQ(Sector(20)[0], '\xBF');
    // Of two on the same level the later one stays.
    DirTable[8].LinkCount = 8;
    DirTable[9].LinkCount = 9;
    for (const int row : {8, 9}) DirTable[row].FirstUnit = 70;
    WriteOs9Tree("sub", 20 * 256 + 1, kSubRow, 1);
    EXPECT_EQ(Sector(70)[8], '\x09');
}

TEST_F(CommitOs9, ADirectoryInTheLastRowHoldsNothing) {
    Read(Tree().Image());
    Disk.DirRows = kSubRow + 1;
    WriteOs9Tree("sub", 20 * 256 + 1, kSubRow, 1);
    EXPECT_EQ(DirTable[kSubRow].Content, "");
}

TEST_F(CommitOs9, ADecbDiskThatCountsAsOs9IsBlankedToo) {
    Read(DecbBuilder().File(0, "A", "BIN", 2, 0, {32}, "x").Fat(32, 32).Image());
    ASSERT_EQ(Disk.DiskFamily, kOs9);
    CommitDirectory();
    EXPECT_EQ(Disk.ImageBytes.size(), 161280U);
    EXPECT_EQ(ImagePart(512, 161280), std::string(161280 - 512, '\0'));
}

}  // namespace
}  // namespace brindlemoor::test
