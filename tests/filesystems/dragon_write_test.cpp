#include "filesystems/dragon_write.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "filesystems/dragon_bitmap.h"
#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/dragon_fixture.h"
#include "support/write_fixture.h"

namespace brindlemoor::test {
namespace {

class DragonWrite : public WriteTest {
  protected:
    /// Opens a disk whose row 5 is a new file of that content.
    DirEntry& Open(const DragonBuilder& disk, const std::string& content) {
        Read(disk.Image());
        script_.Messages.clear();
        DirEntry& row = DirTable[5];
        row.Content = content;
        row.UnitCount = static_cast<std::int32_t>((content.size() + 255) / 256);
        return row;
    }

    /// True when the bitmap has a sector as free.
    static bool IsFree(int sector) {
        return (Disk.FatBytes.at(static_cast<std::size_t>(sector) / 8) >> sector % 8 & 1) != 0;
    }
};

/// The first and second sectors of the tracks 16 and 20: the bitmap, twice.
std::string BitmapInImage(int track) {
    const auto offset = static_cast<std::size_t>(track) * 18 * 256;
    return ImagePart(offset, 180) + ImagePart(offset + 256, 180);
}

TEST_F(DragonWrite, EverySecondSectorFromTrack18OnIsAnExtentOfItsOwn) {
    const DirEntry& row = Open(DragonBuilder(), Pattern(600, 1));
    AllocateDragonSectors(5);
    EXPECT_EQ(row.Chain, Bytes({1, 68, 1, 1, 70, 1, 1, 72, 1}));
}

TEST_F(DragonWrite, TheSectorsMarkedAndWrittenLieOneHigher) {
    const std::string content = Pattern(600, 2);
    Open(DragonBuilder(), content);
    DragonBuilder expected;
    expected.Use(325, 1).Use(327, 1).Use(329, 1);
    expected.Sectors(325, content.substr(0, 256)).Sectors(327, content.substr(256, 256));
    expected.Sectors(329, content.substr(512));
    AllocateDragonSectors(5);
    EXPECT_TRUE(ImageIs(expected.Image()));
    EXPECT_TRUE(IsFree(324));
    EXPECT_FALSE(IsFree(325));
}

/// Nothing was marked where the first file's chain is, so that the next file begins there too.
TEST_F(DragonWrite, TheNextFileBeginsAtTheSameSector) {
    Open(DragonBuilder(), Pattern(300, 3));
    AllocateDragonSectors(5);
    DirTable[6].Content = Pattern(300, 4);
    DirTable[6].UnitCount = 2;
    AllocateDragonSectors(6);
    EXPECT_EQ(DirTable[5].Chain, Bytes({1, 68, 1, 1, 70, 1}));
    EXPECT_EQ(DirTable[6].Chain, Bytes({1, 68, 1, 1, 70, 1}));
}

TEST_F(DragonWrite, AChainThatIsThereIsAddedTo) {
    DirEntry& row = Open(DragonBuilder(), "x");
    row.Chain = Bytes({0, 50, 2});
    AllocateDragonSectors(5);
    EXPECT_EQ(row.Chain, Bytes({0, 50, 2, 1, 68, 1}));
}

TEST_F(DragonWrite, TheFirstSectorIsSoughtTwoTracksLowerEachTime) {
    DragonBuilder disk;
    disk.Use(324, 1).Use(252, 1);  // 288 is track 16
    const DirEntry& row = Open(disk, "x");
    AllocateDragonSectors(5);
    EXPECT_EQ(row.Chain, Bytes({0, 216, 1}));
}

TEST_F(DragonWrite, TheOtherSectorsAreSoughtUpwards) {
    DragonBuilder disk;
    disk.Use(326, 34);  // up to track 20, which is used too
    const DirEntry& row = Open(disk, Pattern(512, 5));
    AllocateDragonSectors(5);
    EXPECT_EQ(row.Chain, Bytes({1, 68, 1, 1, 122, 1}));  // 378
}

/// The 37th sector jumps by a track; behind the disk's end it begins at track 18 again, one sector
/// further on.
TEST_F(DragonWrite, Every36SectorsTheSearchJumpsByTracks) {
    const DirEntry& row = Open(DragonBuilder(), Pattern(std::size_t{37} * 256, 6));
    AllocateDragonSectors(5);
    // 18 sectors to 358, 18 from 378 to 412; 413 is marked, and the next try is 431.
    ASSERT_EQ(row.Chain.size(), 37U * 3);
    EXPECT_EQ(row.Chain.substr(17 * 3, 6), Bytes({1, 102, 1, 1, 122, 1}));
    EXPECT_EQ(row.Chain.substr(35 * 3), Bytes({1, 156, 1, 1, 175, 1}));
}

TEST_F(DragonWrite, TheNumberBehindTheLastSectorCountsAsASector) {
    DragonBuilder disk;
    disk.Use(326, 34).Use(378, 700 - 378);
    const DirEntry& row = Open(disk, Pattern(std::size_t{12} * 256, 7));
    AllocateDragonSectors(5);
    // 324, then 700, 702 and so on up to 720.
    ASSERT_EQ(row.Chain.size(), 12U * 3);
    EXPECT_EQ(row.Chain.substr(3, 3), Bytes({2, 188, 1}));
    EXPECT_EQ(row.Chain.substr(33), Bytes({2, 208, 1}));
}

/// The first 36 sectors end at 412 here; the next are 431 and so on, a track further each time.
TEST_F(DragonWrite, AJumpBehindTheEndBeginsOnTrack18OneSectorFurtherOn) {
    DragonBuilder disk;
    for (int sector = 431; sector < 720; sector += 18) disk.Use(sector, 1);
    disk.Use(325, 1);  // the second try; the chain then has 326 instead, and 325 - 36 is free
    const DirEntry& row = Open(disk, Pattern(std::size_t{37} * 256, 7));
    AllocateDragonSectors(5);
    ASSERT_EQ(row.Chain.size(), 37U * 3);
    EXPECT_EQ(row.Chain.substr(36 * 3), Bytes({0, 253, 1}));  // 325, 289 of track 16, 253
}

TEST_F(DragonWrite, BytesBehindTheEndOfTheImageAreDropped) {
    DragonBuilder disk;
    disk.Use(325, 720 - 325);
    const std::string content = Pattern(512, 8);
    const DirEntry& row = Open(disk, content);
    AllocateDragonSectors(5);
    EXPECT_EQ(row.Chain, Bytes({1, 68, 1, 2, 208, 1}));
    EXPECT_EQ(Disk.ImageBytes.size(), 184320U);
    EXPECT_EQ(ImagePart(325 * 256, 256), content.substr(0, 256));
}

TEST_F(DragonWrite, PastTheEndOfTheDiskTheFileEndsAndTheBitmapIsNotStored) {
    DragonBuilder disk;
    disk.Use(325, 725 - 325);  // 720 too
    const std::string before = disk.Image();
    const std::string content = Pattern(768, 9);
    const DirEntry& row = Open(disk, content);
    AllocateDragonSectors(5);
    EXPECT_EQ(row.Chain, Bytes({1, 68, 1}));
    std::string expected = before;
    expected.replace(325 * 256, 256, content, 0, 256);
    EXPECT_TRUE(ImageIs(expected));
    EXPECT_TRUE(script_.Messages.empty());
}

/// The totals say that there is room, and no first sector of an even track is free: the search
/// would go round from track 18 to track 0 for ever.
TEST_F(DragonWrite, ASearchThatGoesRoundForEverFailsAndChangesNothing) {
    DragonBuilder disk;
    for (int sector = 0; sector <= 324; sector += 36) disk.Use(sector, 1);
    Open(disk, "x");
    const std::string before = DiskFingerprint();
    EXPECT_EQ(FailureOf([] { AllocateDragonSectors(5); }), kOutOfMemory);
    EXPECT_EQ(DiskFingerprint(), before);
    EXPECT_EQ(DirTable[5].Chain, "");
}

/// The same at the 37th sector: what the first 36 would have changed is not there.
TEST_F(DragonWrite, ALaterSearchThatGoesRoundForEverChangesNothingEither) {
    DragonBuilder disk;
    for (int sector = 431; sector < 720; sector += 18) disk.Use(sector, 1);
    for (int sector = 1; sector <= 325; sector += 36) disk.Use(sector, 1);
    Open(disk, Pattern(std::size_t{37} * 256, 10));
    const std::string before = DiskFingerprint();
    EXPECT_EQ(FailureOf([] { AllocateDragonSectors(5); }), kOutOfMemory);
    EXPECT_EQ(DiskFingerprint(), before);
}

TEST_F(DragonWrite, AFileOfNoSectorsStoresTheBitmap) {
    Open(DragonBuilder(), "");
    Disk.FatBytes.assign(360, 'f');
    AllocateDragonSectors(5);
    EXPECT_EQ(DirTable[5].Chain, "");
    EXPECT_EQ(BitmapInImage(20), std::string(360, 'f'));
}

TEST_F(DragonWrite, SyncCopiesTheHalvesOfTheBitmapBothWays) {
    Open(DragonBuilder(), "");
    const std::string half1(180, '1');
    const std::string half2(180, '2');
    std::string expected = Disk.ImageBytes;
    for (const int track : {16, 20}) {
        const auto offset = static_cast<std::size_t>(track) * 18 * 256;
        expected.replace(offset, 180, half1).replace(offset + 256, 180, half2);
    }
    Disk.FatBytes = half1 + half2;
    SyncDragonBitmap(true);
    EXPECT_TRUE(ImageIs(expected));
    Disk.FatBytes.clear();
    SyncDragonBitmap(false);
    EXPECT_EQ(Disk.FatBytes, half1 + half2);
}

TEST_F(DragonWrite, SyncFollowsTheSectorsOfATrack) {
    Open(DragonBuilder(40, 36), "");
    Disk.FatBytes.assign(360, 'x');
    SyncDragonBitmap(true);
    EXPECT_EQ(ImagePart(720 * 256, 180), std::string(180, 'x'));
    EXPECT_EQ(ImagePart(577 * 256, 180), std::string(180, 'x'));
}

TEST_F(DragonWrite, SyncLeavesOtherFamiliesAlone) {
    Read(DecbBuilder().Image());
    Disk.FatBytes = "fat";
    SyncDragonBitmap(false);
    EXPECT_EQ(Disk.FatBytes, "fat");
    SyncDragonBitmap(true);
    EXPECT_TRUE(ImageIs(DecbBuilder().Image()));
}

TEST_F(DragonWrite, AnImageThatEndsInTheBitmapKeepsItsLength) {
    Read(DragonBuilder().Image());
    Disk.ImageBytes.resize(360 * 256 + 100);
    Disk.FatBytes.assign(360, 'x');
    SyncDragonBitmap(true);
    EXPECT_EQ(Disk.ImageBytes.size(), 360U * 256 + 100);
    EXPECT_EQ(ImagePart(360 * 256, 200), std::string(100, 'x'));
    SyncDragonBitmap(false);
    EXPECT_EQ(Disk.FatBytes, std::string(100, 'x'));
    AllocateDragonSectors(5);
}

TEST_F(DragonWrite, TheFirstFreeEntryIsADeletedOneOrTheEnd) {
    DragonBuilder disk;
    disk.File(0, "A", "BIN", {{400, 1}}, "a").File(1, "B", "BIN", {{401, 1}}, "b");
    Read(disk.Image());
    EXPECT_EQ(FindFreeDragonEntry(), 2);
    disk.EntryByte(0, 0, 0x80);
    Read(disk.Image());
    EXPECT_EQ(FindFreeDragonEntry(), 0);
}

/// From the eleventh entry on it looks between the entries.
TEST_F(DragonWrite, BehindTenLiveEntriesNoFreeOneIsFound) {
    DragonBuilder disk;
    for (int entry = 0; entry < 10; ++entry) disk.Entry(entry, 0, "A", "BIN", {{400, 1}}, 1);
    Read(disk.Image());
    EXPECT_EQ(FindFreeDragonEntry(), -1);
    Disk.ImageBytes.resize(100);
    EXPECT_EQ(FindFreeDragonEntry(), -1);
}

}  // namespace
}  // namespace brindlemoor::test
