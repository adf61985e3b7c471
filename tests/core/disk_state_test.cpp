#include "core/disk_state.h"

#include <gtest/gtest.h>

#include "core/runtime_failure.h"
#include "support/disk_fixture.h"

namespace brindlemoor {
namespace {

using test::FailureOf;

using DiskStateTest = test::DiskTest;

TEST_F(DiskStateTest, TheTableHasRows0To1700) {
    DirTable[0].Name = "first";
    DirTable[1700].Name = "last";
    EXPECT_EQ(DirTable[1700].Name, "last");
    EXPECT_EQ(FailureOf([] { DirTable[1701].Name = "x"; }), kIndexRange);
    EXPECT_EQ(FailureOf([] { DirTable[-1].Name = "x"; }), kIndexRange);
    EXPECT_EQ(FailureOf([] { DirTable[std::int64_t{1} << 40].Name = "x"; }), kIndexRange);
}

TEST_F(DiskStateTest, WipeEmptiesAllRows) {
    DirTable[0].Content = "x";
    DirTable[1700].Flags = kFlagDeleted;
    DirTable.Wipe();
    EXPECT_EQ(DirTable[0].Content, "");
    EXPECT_EQ(DirTable[1700].Flags, 0);
}

TEST_F(DiskStateTest, SwapExchangesAllRows) {
    DirectoryTable other;
    other[5].Name = "theirs";
    DirTable[5].Name = "ours";
    DirTable.Swap(other);
    EXPECT_EQ(DirTable[5].Name, "theirs");
    EXPECT_EQ(other[5].Name, "ours");
}

TEST_F(DiskStateTest, ResetClearsWhatEveryReadingStartsWithout) {
    Disk.DirCount = 3;
    Disk.DeletedCount = 1;
    Disk.ContinuationCount = 1;
    Disk.DiskFamily = kOs9;
    Disk.UsedSectors = 9;
    Disk.TotalSectors = 630;
    Disk.MaxDirEntries = 72;
    Disk.ImageModified = -1;
    Disk.DirRows = 3;
    Disk.SectorsPerTrack = 18;
    Disk.TrackCount = 35;
    Disk.ImageHeader = "dk";
    Disk.DiskName = "NAME";
    Disk.DiskDate = 1;
    DirTable[2].Name = "x";
    ResetDisk();
    EXPECT_EQ(Disk.DirCount, 0);
    EXPECT_EQ(Disk.DeletedCount, 0);
    EXPECT_EQ(Disk.ContinuationCount, 0);
    EXPECT_EQ(Disk.DiskFamily, kDecb);
    EXPECT_EQ(Disk.UsedSectors, 0);
    EXPECT_EQ(Disk.TotalSectors, 0);
    EXPECT_EQ(Disk.MaxDirEntries, 0);
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_EQ(Disk.SectorsPerTrack, 0);
    EXPECT_EQ(Disk.TrackCount, 0);
    EXPECT_EQ(Disk.ImageHeader, "");
    EXPECT_EQ(Disk.DiskName, "");
    EXPECT_EQ(Disk.DiskDate, 0);
    EXPECT_EQ(DirTable[2].Name, "");
}

TEST_F(DiskStateTest, ResetKeepsTheUnitsTheAllocationTableAndTheSides) {
    Disk.TotalUnits = 612;
    Disk.FatBytes = "fat";
    Disk.SideCount = 2;
    Disk.ImageBytes = "image";
    Disk.ImageOnOpen = "file";
    ResetDisk();
    EXPECT_EQ(Disk.TotalUnits, 612);
    EXPECT_EQ(Disk.FatBytes, "fat");
    EXPECT_EQ(Disk.SideCount, 2);
    EXPECT_EQ(Disk.ImageBytes, "image");
    EXPECT_EQ(Disk.ImageOnOpen, "file");
}

TEST_F(DiskStateTest, MessageTextIsEmptyWhereTheLanguageHasNone) {
    Disk.Messages = {"zero", "one"};
    EXPECT_EQ(MessageText(1), "one");
    EXPECT_EQ(MessageText(2), "");
    EXPECT_EQ(MessageText(-1), "");
}

TEST_F(DiskStateTest, FamiliesAreShownByName) {
    EXPECT_EQ(FamilyName(kDecb), "CoCo");
    EXPECT_EQ(FamilyName(kDragon), "Dragon");
    EXPECT_EQ(FamilyName(kOs9), "OS9/NitrOS9");
    EXPECT_EQ(FamilyName(kFlex), "FLEX/UniFlex");
    EXPECT_EQ(FamilyName(kUndecided), "");
}

}  // namespace
}  // namespace brindlemoor
