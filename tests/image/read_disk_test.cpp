#include "image/read_disk.h"

#include <random>

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

using ReadDiskTest = DiskTest;

/// Puts a Dragon geometry block, for 40 tracks of 18 sectors, into track 20 sector 1.
void MakeDragon(DecbBuilder& disk) {
    disk.Byte(92160 + 252, 40).Byte(92160 + 253, 18);
    disk.Byte(92160 + 254, 215).Byte(92160 + 255, 237);
}

/// Puts the sectors of a track into LSN 0 twice, as OS-9 does.
void MakeOs9(DecbBuilder& disk, int sectors) {
    disk.Byte(3, sectors).Byte(17, 0).Byte(18, sectors);
}

TEST_F(ReadDiskTest, AnEmptyImageLeavesAnEmptyTable) {
    Disk.TotalUnits = 77;
    Disk.FatBytes = "old";
    DirTable[3].Name = "OLD";
    Read("");
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_EQ(DirTable[3].Name, "");
    // No branch ran: what only a branch sets is as it was.
    EXPECT_EQ(Disk.TotalUnits, 77);
    EXPECT_EQ(Disk.FatBytes, "old");
}

TEST_F(ReadDiskTest, ABareImageWithoutMarksIsDecbWith35Tracks) {
    Read(DecbBuilder().Image());
    EXPECT_EQ(Disk.DiskFamily, kDecb);
    EXPECT_EQ(Disk.TrackCount, 35);
}

TEST_F(ReadDiskTest, AnImageOfNoFamilysSizeIsDecb) {
    for (const int tracks : {37, 41, 80, 100}) {
        Read(DecbBuilder(tracks).Image());
        EXPECT_EQ(Disk.DiskFamily, kDecb) << tracks;
    }
}

TEST_F(ReadDiskTest, AGeometryBlockMakesADragonDisk) {
    DecbBuilder disk(40);
    MakeDragon(disk);
    Read(disk.Image());
    EXPECT_EQ(Disk.DiskFamily, kDragon);
    // Each of the two pairs counts.
    disk.Byte(92160 + 255, 236);
    Read(disk.Image());
    EXPECT_EQ(Disk.DiskFamily, kDecb);
    disk.Byte(92160 + 255, 237).Byte(92160 + 254, 214);
    Read(disk.Image());
    EXPECT_EQ(Disk.DiskFamily, kDecb);
}

TEST_F(ReadDiskTest, AGeometryBlockThatIsCutIsNone) {
    DecbBuilder disk(40);
    MakeDragon(disk);
    Read(disk.Image().substr(0, 92160 + 255));
    EXPECT_EQ(Disk.DiskFamily, kDecb);
}

TEST_F(ReadDiskTest, Os9ComesAfterDragonAndFlexAfterBoth) {
    DecbBuilder disk(40);
    MakeDragon(disk);
    MakeOs9(disk, 18);
    Read(disk.Image());
    EXPECT_EQ(Disk.DiskFamily, kOs9);
    // The link to sector 6, and the sectors of a track in FLEX's information record.
    disk.Byte(1024, 0).Byte(1025, 6).Byte(512 + 39, 18);
    Read(disk.Image());
    EXPECT_EQ(Disk.DiskFamily, kFlex);
}

TEST_F(ReadDiskTest, ZeroSectorsPerTrackAreNoOs9Disk) {
    DecbBuilder disk;
    MakeOs9(disk, 0);
    Read(disk.Image());
    EXPECT_EQ(Disk.DiskFamily, kDecb);
    MakeOs9(disk, 18);
    disk.Byte(17, 1);
    Read(disk.Image());
    EXPECT_EQ(Disk.DiskFamily, kDecb);
}

TEST_F(ReadDiskTest, TheHeaderIsTakenOffBeforeTheFamilyIsDecided) {
    DecbBuilder disk(40);
    MakeDragon(disk);
    std::string header(12, '\0');
    header.replace(0, 3, "dk\x0C");
    Read(header + disk.Image());
    EXPECT_EQ(Disk.DiskFamily, kDragon);
    EXPECT_EQ(Disk.ImageHeader, header);
}

TEST_F(ReadDiskTest, AnEarlierDiskLeavesNothingBehind) {
    Read(DecbBuilder().DiskName("FIRST").File(0, "A", "DAT", 1, 0, {3}, "bytes").Image());
    EXPECT_EQ(Disk.DirRows, 1);
    Disk.DiskDate = 5;
    Disk.ImageModified = -1;
    Disk.ContinuationCount = 4;
    Read(DecbBuilder().Image());
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_EQ(DirTable[0].Content, "");
    EXPECT_EQ(Disk.DiskName, "");
    EXPECT_EQ(Disk.DiskDate, 0);
    EXPECT_EQ(Disk.UsedSectors, 0);
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_EQ(Disk.ContinuationCount, 0);
}

TEST_F(ReadDiskTest, ARowBeyond1700IsARangeFailure) {
    EXPECT_EQ(FailureOf([] { DirTable[1700].Name = "LAST"; }), 0);
    EXPECT_EQ(FailureOf([] { DirTable[1701].Name = "NONE"; }), kIndexRange);
    EXPECT_EQ(FailureOf([] { DirTable[-1].Name = "NONE"; }), kIndexRange);
}

TEST_F(ReadDiskTest, TheFamiliesHaveNames) {
    EXPECT_EQ(FamilyName(kDecb), "CoCo");
    EXPECT_EQ(FamilyName(kDragon), "Dragon");
    EXPECT_EQ(FamilyName(kOs9), "OS9/NitrOS9");
    EXPECT_EQ(FamilyName(kFlex), "FLEX/UniFlex");
}

/// Reads what may be any bytes: a failure with a number is fine, anything else is not.
void ReadHostile(const std::string& image) {
    Disk.ImageBytes = image;
    Disk.ImageOnOpen = image;
    try {
        ReadDisk();
        ASSERT_LE(Disk.DirRows, kDirTableRows);
    } catch (const RuntimeFailure& failure) {
        ASSERT_NE(failure.Number, 0);
    }
}

TEST_F(ReadDiskTest, TruncationAtEverySectorAndAtOddPlacesIsSurvived) {
    const std::string disk = TestData("decb/decb35-files.dsk");
    for (std::size_t length = 0; length <= disk.size(); length += 256) {
        ReadHostile(disk.substr(0, length));
        ReadHostile(disk.substr(0, length + length % 251));
    }
    const std::string dmk = TestData("decb/decb35-imgtool.dmk");
    for (std::size_t length = 0; length <= dmk.size(); length += 1601) {
        ReadHostile(dmk.substr(0, length));
    }
}

TEST_F(ReadDiskTest, TenThousandSpoiledDisksAreSurvived) {
    const std::string good = TestData("decb/decb35-files.dsk");
    std::mt19937 random(20240229);
    std::string disk = good;
    for (int round = 0; round < 10000; ++round) {
        if (round % 20 == 0) disk = good;
        for (int change = 0; change < 8; ++change) {
            // Half of the changes hit the FAT and the directory, the others any byte.
            const std::size_t place =
                change % 2 == 0 ? 78592 + random() % (256 + 9 * 256) : random() % disk.size();
            disk[place] = static_cast<char>(random());
        }
        ReadHostile(disk);
    }
}

TEST_F(ReadDiskTest, RandomBytesOfEverySizeAreSurvived) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::string bytes = Pattern(random() % 200000, static_cast<unsigned>(round));
        if (round % 3 == 0) bytes.replace(0, std::min<std::size_t>(2, bytes.size()), "dk");
        ReadHostile(bytes);
    }
}

}  // namespace
}  // namespace brindlemoor::test
