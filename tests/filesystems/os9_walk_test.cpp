#include "filesystems/os9_walk.h"

#include "core/dates.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/os9_builder.h"

namespace brindlemoor::test {
namespace {

using Os9WalkTest = DiskTest;

/// Rows 0 to 3 are the map, "ROOT", ".." and "."; the first name of the root directory is row 4.
constexpr int kFirst = 4;

/// A descriptor, for a file that has `size` bytes in `segments`.
Os9Descriptor Fields(std::int64_t size, std::vector<Os9Segment> segments) {
    Os9Descriptor fields;
    fields.Size = size;
    fields.Segments = std::move(segments);
    return fields;
}

/// A disk whose root holds one file with this descriptor.
Os9Builder OneFile(const Os9Descriptor& fields) {
    Os9Builder disk;
    disk.RootNames({{"file", 10}}).Descriptor(10, fields);
    return disk;
}

std::vector<std::string> Names(int from, int to) {
    std::vector<std::string> names;
    for (int row = from; row <= to; ++row) names.push_back(DirTable[row].Name);
    return names;
}

TEST_F(Os9WalkTest, AFileHasTheFieldsOfItsDescriptor) {
    Os9Builder disk = OneFile(Fields(300, {{20, 2}}));
    disk.Byte(2560, 0x5B).Number(2561, 2, 0x0102).Byte(2568, 3).Put(20 * 256, Pattern(512, 1));
    Read(disk.Image());
    const DirEntry& row = DirTable[kFirst];
    EXPECT_EQ(row.Name, "file");
    EXPECT_EQ(row.Ext, "");
    EXPECT_EQ(row.FullName, "file.");
    EXPECT_EQ(row.FileType, 0);
    EXPECT_EQ(row.FormatChar, "");
    EXPECT_EQ(row.Flags, 0);
    EXPECT_EQ(row.Attributes, 0x5B);
    EXPECT_EQ(row.OwnerId, 0);  // the disk's owner is not read
    EXPECT_EQ(DateText(row.ModifiedDate), "04/05/1986 12:30");
    EXPECT_EQ(row.LinkCount, 3);
    EXPECT_EQ(row.Size, 300);
    EXPECT_EQ(DateText(row.CreatedDate), "03/04/1985");
    EXPECT_EQ(row.Chain, std::string("\0\0\x14\0\2", 5));
    EXPECT_EQ(row.Content, Pattern(512, 1).substr(0, 300));
    EXPECT_EQ(row.SectorCount, 3);
    EXPECT_EQ(row.UnitCount, 0);
    EXPECT_EQ(row.FirstUnit, 10);
    EXPECT_EQ(row.TreeLevel, 1);
    EXPECT_EQ(row.DescriptorSector, disk.Image().substr(2560, 256));
}

TEST_F(Os9WalkTest, TheTreeIsWalkedDepthFirst) {
    Os9Builder disk;
    disk.RootNames({{"A", 10}, {"b", 20}, {"C", 30}});
    disk.Directory(10, 2, {{"D", 40}, {"e", 22}});
    disk.Directory(40, 10, {{"f", 24}});
    disk.File(20, "b").File(22, "e").File(24, "f").Directory(30, 2, {});
    Read(disk.Image());
    EXPECT_EQ(Names(1, Disk.DirCount),
              (std::vector<std::string>{"ROOT", "..", ".", "A", "..", ".", "D", "..", ".", "f", "e",
                                        "b", "C", "..", "."}));
    std::vector<int> levels;
    for (int row = 1; row <= Disk.DirCount; ++row) levels.push_back(DirTable[row].TreeLevel);
    EXPECT_EQ(levels, (std::vector<int>{0, 1, 1, 1, 2, 2, 2, 3, 3, 3, 2, 1, 1, 2, 2}));
    EXPECT_EQ(Disk.ContinuationCount, 8);
    EXPECT_EQ(Disk.DirRows, Disk.DirCount);
}

TEST_F(Os9WalkTest, DotEntriesHaveRowsWithTheDirectorysBytes) {
    const Os9Builder disk;
    Read(disk.Image());
    const std::string entries = disk.Image().substr(3 * 256, 64);
    EXPECT_EQ(DirTable[2].Name, "..");
    EXPECT_EQ(DirTable[2].Ext, "DIR");
    EXPECT_EQ(DirTable[2].FullName, "...");
    EXPECT_EQ(DirTable[2].Content, entries);
    EXPECT_EQ(DirTable[3].Name, ".");
    EXPECT_EQ(DirTable[3].Ext, "DIR");
    EXPECT_EQ(DirTable[3].FullName, "..");
    EXPECT_EQ(DirTable[3].Content, entries);
    EXPECT_EQ(DirTable[3].TreeLevel, 1);
    EXPECT_EQ(Disk.ContinuationCount, 2);
}

TEST_F(Os9WalkTest, ADirectoryWithADotInFrontIsCountedAndNotFollowed) {
    Os9Builder disk;
    disk.RootNames({{".hidden", 10}, {"last", 20}}).Directory(10, 2, {{"inside", 22}});
    Read(disk.File(20, "").File(22, "").Image());
    EXPECT_EQ(Names(kFirst, Disk.DirCount), (std::vector<std::string>{".hidden", "last"}));
    EXPECT_EQ(DirTable[kFirst].Content.size(), 96U);
    EXPECT_EQ(Disk.ContinuationCount, 3);
}

TEST_F(Os9WalkTest, AFileWithADotInFrontIsCountedToo) {
    Read(Os9Builder().RootNames({{".login", 10}}).File(10, "x").Image());
    EXPECT_EQ(Disk.ContinuationCount, 3);
    EXPECT_EQ(DirTable[kFirst].Ext, "log");
}

TEST_F(Os9WalkTest, TheExtensionIsWhatStandsBehindTheLastDot) {
    struct Row {
        std::string Name;
        std::string Ext;
    };
    const std::vector<Row> rows = {{"plain", ""},   {"a.b", "b"},         {"two.dots.asm", "asm"},
                                   {"end.", ""},    {"long.text", "tex"}, {"Case.Bas", "Bas"},
                                   {"x.y z", "y z"}};
    Os9Names names;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        names.emplace_back(rows[i].Name, 20 + static_cast<int>(i));
    }
    Read(Os9Builder().RootNames(names).Image());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const DirEntry& row = DirTable[kFirst + static_cast<int>(i)];
        EXPECT_EQ(row.Name, rows[i].Name);
        EXPECT_EQ(row.Ext, rows[i].Ext);
        EXPECT_EQ(row.FullName, rows[i].Name + "." + rows[i].Ext);
    }
}

TEST_F(Os9WalkTest, ADirectorysExtensionIsDirAndItsFullNameKeepsItsOwn) {
    Read(Os9Builder().RootNames({{"SRC.old", 10}}).Directory(10, 2, {}).Image());
    EXPECT_EQ(DirTable[kFirst].Name, "SRC.old");
    EXPECT_EQ(DirTable[kFirst].Ext, "DIR");
    EXPECT_EQ(DirTable[kFirst].FullName, "SRC.old.old");
}

TEST_F(Os9WalkTest, ADeletedEntryEndsTheListingOfItsDirectory) {
    Os9Builder disk;
    disk.RootNames({{"A", 10}, {"gone", 22}, {"behind", 24}, {"more", 26}});
    disk.Byte(3 * 256 + 3 * 32, 0);
    Read(disk.Directory(10, 2, {{"in", 28}}).File(28, "").Image());
    EXPECT_EQ(Names(kFirst, Disk.DirCount), (std::vector<std::string>{"A", "..", ".", "in"}));
    // The entry was never a row: only rows count as deleted.
    EXPECT_EQ(Disk.DeletedCount, 0);
}

TEST_F(Os9WalkTest, TheEntriesOfTheParentGoOnBehindADeletedEntry) {
    Os9Builder disk;
    disk.RootNames({{"A", 10}, {"b", 20}}).File(20, "b");
    disk.Directory(10, 2, {{"gone", 22}, {"behind", 24}}).Byte(11 * 256 + 64, 0);
    Read(disk.Image());
    EXPECT_EQ(Names(kFirst, Disk.DirCount), (std::vector<std::string>{"A", "..", ".", "b"}));
}

TEST_F(Os9WalkTest, ANameThatTurnsIntoAZeroByteIsADeletedRow) {
    // The byte 128 alone: its bit 7 is the mark of the last character, nothing is left of it.
    Os9Builder disk;
    disk.RootNames({{"x", 10}, {"next", 20}}).File(10, Pattern(300, 2)).File(20, "n");
    disk.Byte(3 * 256 + 64, 0x80);
    Read(disk.Image());
    const DirEntry& row = DirTable[kFirst];
    EXPECT_EQ(row.Name, std::string(1, '\0'));
    EXPECT_EQ(row.Flags, kFlagDeleted);
    EXPECT_EQ(Disk.DeletedCount, 1);
    EXPECT_EQ(row.Size, 0);
    EXPECT_EQ(row.Chain, "");
    EXPECT_EQ(row.Content, "");
    EXPECT_EQ(row.SectorCount, 1);
    EXPECT_EQ(row.TreeLevel, 1);
    EXPECT_EQ(DateText(row.CreatedDate), "03/04/1985");
    // "ROOT", "..", ".", 1 each, this row's 2 all the same, and "next".
    EXPECT_EQ(Disk.UsedSectors, 6);
    EXPECT_EQ(DirTable[kFirst + 1].Name, "next");
}

TEST_F(Os9WalkTest, ADeletedDirectoryHasNoChildren) {
    Os9Builder disk;
    disk.RootNames({{"x", 10}}).Directory(10, 2, {{"in", 20}}).Byte(3 * 256 + 64, 0x80);
    Read(disk.Image());
    EXPECT_EQ(DirTable[kFirst].Ext, "DIR");
    EXPECT_EQ(Disk.DirCount, kFirst);
}

TEST_F(Os9WalkTest, ANameOfBlanksIsEmptyAndNotDeleted) {
    Os9Builder disk;
    disk.RootNames({{"x", 10}}).File(10, "kept").Byte(3 * 256 + 64, ' ');
    Read(disk.Image());
    EXPECT_EQ(DirTable[kFirst].Name, "");
    EXPECT_EQ(DirTable[kFirst].FullName, ".");
    EXPECT_EQ(DirTable[kFirst].Flags, 0);
    EXPECT_EQ(DirTable[kFirst].Content, "kept");
}

TEST_F(Os9WalkTest, ANameOf29CharactersIsWhole) {
    const std::string name = "a23456789b23456789c23456789xy";
    Read(Os9Builder().RootNames({{name, 10}}).File(10, "x").Image());
    EXPECT_EQ(DirTable[kFirst].Name, name);
    EXPECT_EQ(DirTable[kFirst].FirstUnit, 10);
}

TEST_F(Os9WalkTest, ADotWithoutItsMarkIsNoDotEntry) {
    // Bit 7 is flipped, not cleared: an unmarked name comes out with the mark, and is followed.
    Os9Builder disk;
    disk.RootNames({{"x", 10}}).Directory(10, 2, {{"in", 20}}).Byte(3 * 256 + 64, '.');
    Read(disk.File(20, "").Image());
    EXPECT_EQ(Names(kFirst, Disk.DirCount), (std::vector<std::string>{"\xAE", "..", ".", "in"}));
    EXPECT_EQ(Disk.ContinuationCount, 4);
}

TEST_F(Os9WalkTest, EmptySegmentsGoWhereverTheyStand) {
    // A list with a hole: what stands behind it is read all the same.
    Os9Builder disk = OneFile(Fields(400, {{20, 1}, {0, 0}, {30, 1}}));
    disk.Put(20 * 256, Pattern(256, 1)).Put(30 * 256, Pattern(256, 2));
    Read(disk.Image());
    EXPECT_EQ(DirTable[kFirst].Chain, std::string("\0\0\x14\0\1\0\0\x1E\0\1", 10));
    EXPECT_EQ(DirTable[kFirst].Content, Pattern(256, 1) + Pattern(256, 2).substr(0, 144));
}

TEST_F(Os9WalkTest, FiveZeroBytesAcrossASegmentsBoundaryGoToo) {
    Os9Builder disk = OneFile(Fields(1, {}));
    disk.Put(2576, std::string("\0\0\x14\0\1", 5) + std::string("\0\x20\0\0\0", 5) +
                       std::string("\0\0\x1E\0\2", 5));
    Read(disk.Image());
    // The last three bytes of the second segment and the first two of the third are a run of five.
    // What is left is read in steps of five all the same.
    EXPECT_EQ(DirTable[kFirst].Chain, std::string("\0\0\x14\0\1\0\x20\x1E\0\2", 10));
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1 + 1);  // 0x00201E lies behind the disk
}

TEST_F(Os9WalkTest, ALongerRunKeepsWhatIsLeftOfIt) {
    // Seven zero bytes, from the low byte of a count on: two stay, for the count and the next
    // start.
    Os9Builder disk = OneFile(Fields(1, {}));
    disk.Put(2576, std::string("\0\0\x14\2\0", 5) + std::string("\0\0\0\0\0", 5) +
                       std::string("\0\x16\0\1\1", 5));
    Read(disk.Image());
    EXPECT_EQ(DirTable[kFirst].Chain, std::string("\0\0\x14\2\0\0\x16\0\1\1", 10));
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1 + 512);
}

TEST_F(Os9WalkTest, NoSegmentsAreNoContentAndOneSector) {
    Read(OneFile(Fields(0, {})).Image());
    EXPECT_EQ(DirTable[kFirst].Content, "");
    EXPECT_EQ(DirTable[kFirst].Chain, "");
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1);
    // Also where the descriptor promises bytes.
    Read(OneFile(Fields(1000, {})).Image());
    EXPECT_EQ(DirTable[kFirst].Content, "");
    EXPECT_EQ(DirTable[kFirst].Size, 1000);
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1);
}

TEST_F(Os9WalkTest, TheSizeCutsTheContentAndNotTheSectorsCounted) {
    Os9Builder disk = OneFile(Fields(257, {{20, 1}, {30, 4}, {40, 8}}));
    disk.Put(20 * 256, Pattern(256, 1)).Put(30 * 256, Pattern(1024, 2));
    Read(disk.Image());
    EXPECT_EQ(DirTable[kFirst].Content, Pattern(256, 1) + Pattern(1024, 2).substr(0, 1));
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1 + 1 + 4 + 8);
}

TEST_F(Os9WalkTest, UsedSectorsCountsWhatTheSizesNeed) {
    Read(OneFile(Fields(256, {{20, 9}})).Image());
    EXPECT_EQ(DirTable[kFirst].SectorCount, 10);
    EXPECT_EQ(Disk.UsedSectors, 3 + 1);
    Read(OneFile(Fields(257, {{20, 9}})).Image());
    EXPECT_EQ(Disk.UsedSectors, 3 + 2);
    Read(OneFile(Fields(0, {{20, 9}})).Image());
    EXPECT_EQ(Disk.UsedSectors, 3);
}

TEST_F(Os9WalkTest, SizeMayBeLargerThanTheSegments) {
    Read(OneFile(Fields(5000, {{20, 2}})).Image());
    EXPECT_EQ(DirTable[kFirst].Content.size(), 512U);
    EXPECT_EQ(DirTable[kFirst].Size, 5000);
}

TEST_F(Os9WalkTest, AStartBehindTheDiskEndsTheSegmentsAndItsOwnEndDoesNot) {
    // 35 tracks of 18 sectors: 630.
    Read(OneFile(Fields(5000, {{20, 1}, {630, 2}, {22, 1}})).Image());
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1 + 1 + 2 + 1);
    EXPECT_EQ(DirTable[kFirst].Content.size(), 512U);
    Read(OneFile(Fields(5000, {{20, 1}, {631, 2}, {22, 1}})).Image());
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1 + 1);
    EXPECT_EQ(DirTable[kFirst].Content.size(), 256U);
    // The list itself stays whole.
    EXPECT_EQ(DirTable[kFirst].Chain.size(), 15U);
}

TEST_F(Os9WalkTest, ACountAboveTheDisksSectorsIsCutToThem) {
    Os9Builder disk = OneFile(Fields(0x7FFFFFFF, {{600, 0xFFFF}}));
    Read(disk.Image());
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1 + 630);
    EXPECT_EQ(DirTable[kFirst].Content.size(), 30U * 256);
    Read(disk.Put(2576 + 3, std::string("\2\x76", 2)).Image());
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1 + 630);
    Read(disk.Put(2576 + 3, std::string("\2\x75", 2)).Image());
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1 + 629);
}

TEST_F(Os9WalkTest, TheProductOfTracksAndSectorsCountsNotTheTotal) {
    // 640 sectors make 36 tracks, whose sectors end at 648.
    Os9Builder disk(640);
    disk.RootNames({{"file", 10}}).Descriptor(10, Fields(9999, {{648, 1}, {20, 0xFFFF}}));
    Read(disk.Image());
    EXPECT_EQ(Disk.TrackCount, 36);
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1 + 1 + 648);
}

TEST_F(Os9WalkTest, ACountIsUnsigned) {
    Os9Builder disk(40000);
    disk.RootNames({{"file", 30}}).Descriptor(30, Fields(40000 * 256, {{100, 36864}}));
    Read(disk.Image());
    EXPECT_EQ(DirTable[kFirst].SectorCount, 1 + 36864);
    EXPECT_EQ(DirTable[kFirst].Content.size(), 36864U * 256);
}

TEST_F(Os9WalkTest, AllSegmentsOfTheDescriptorAreRead) {
    std::vector<Os9Segment> segments;
    for (int i = 0; i < 48; ++i) segments.push_back({100 + 2 * i, 1});
    Os9Builder disk = OneFile(Fields(48 * 256, segments));
    std::string bytes;
    for (int i = 0; i < 48; ++i) {
        disk.Put((100 + 2 * i) * 256, Pattern(256, static_cast<unsigned>(i)));
        bytes += Pattern(256, static_cast<unsigned>(i));
    }
    Read(disk.Image());
    EXPECT_EQ(DirTable[kFirst].Content, bytes);
    EXPECT_EQ(DirTable[kFirst].SectorCount, 49);
}

TEST_F(Os9WalkTest, ANegativeSizeEndsItsRowEarly) {
    Os9Builder disk;
    disk.RootNames({{"neg.bin", 10}, {"next", 20}}).File(20, "n");
    Os9Descriptor fields = Fields(-257, {{30, 2}});
    fields.Attributes = 0x80;
    Read(disk.Descriptor(10, fields).Image());
    const DirEntry& row = DirTable[kFirst];
    EXPECT_EQ(row.Size, -257);
    EXPECT_EQ(row.SectorCount, 0);  // -1, and 1 for the rest
    EXPECT_EQ(row.DescriptorSector, disk.Image().substr(2560, 256));
    EXPECT_EQ(row.Attributes, 0x80);
    EXPECT_EQ(DateText(row.ModifiedDate), "04/05/1986 12:30");
    EXPECT_EQ(row.LinkCount, 1);
    EXPECT_EQ(row.CreatedDate, 0);
    EXPECT_EQ(row.TreeLevel, 0);
    EXPECT_EQ(row.Chain, "");
    EXPECT_EQ(row.Content, "");
    EXPECT_EQ(row.Ext, "bin");
    EXPECT_EQ(DirTable[kFirst + 1].Name, "next");
    EXPECT_EQ(Disk.UsedSectors, 3 + 1);
}

TEST_F(Os9WalkTest, TheSizeIsSignedIn32Bits) {
    Read(OneFile(Fields(0x80000000LL, {{20, 1}})).Image());
    EXPECT_EQ(DirTable[kFirst].Size, -2147483648LL);
    EXPECT_EQ(DirTable[kFirst].SectorCount, -8388608);
    EXPECT_EQ(Disk.UsedSectors, 3 - 8388608);
    Read(OneFile(Fields(0x7FFFFFFF, {{20, 1}})).Image());
    EXPECT_EQ(DirTable[kFirst].Size, 0x7FFFFFFF);
    EXPECT_EQ(DirTable[kFirst].Content.size(), 256U);
    EXPECT_EQ(Disk.UsedSectors, 3 + 8388608);
}

TEST_F(Os9WalkTest, ADescriptorBehindTheImageLeavesTheRowWithItsEntryAlone) {
    Os9Builder disk;
    disk.RootNames({{"far.txt", 630}, {"farther", 0xFFFFFF}, {"next", 20}}).File(20, "n");
    Read(disk.Image());
    const DirEntry& row = DirTable[kFirst];
    EXPECT_EQ(row.Name, "far.txt");
    EXPECT_EQ(row.Ext, "txt");
    EXPECT_EQ(row.FullName, "far.txt.txt");
    EXPECT_EQ(row.FirstUnit, 630);
    EXPECT_EQ(row.DescriptorSector, "");
    EXPECT_EQ(row.SectorCount, 0);
    EXPECT_EQ(row.TreeLevel, 0);
    EXPECT_EQ(DirTable[kFirst + 1].FirstUnit, 0xFFFFFF);
    EXPECT_EQ(DirTable[kFirst + 2].Content, "n");
}

TEST_F(Os9WalkTest, ADescriptorThatTheImageCutsIsTakenAsFarAsItGoes) {
    Os9Builder disk;
    disk.RootNames({{"cut", 629}}).Descriptor(629, Fields(700, {{20, 1}, {22, 1}}));
    Read(disk.Image().substr(0, 629 * 256 + 24));
    const DirEntry& row = DirTable[kFirst];
    EXPECT_EQ(row.DescriptorSector.size(), 24U);
    EXPECT_EQ(row.Size, 700);
    EXPECT_EQ(row.Chain.size(), 8U);
    EXPECT_EQ(row.SectorCount, 2);
    EXPECT_EQ(row.Content.size(), 256U);
    Read(disk.Image().substr(0, 629 * 256 + 1));
    EXPECT_EQ(DirTable[kFirst].Attributes, 0x1B);
    EXPECT_EQ(DirTable[kFirst].Size, 0);
    EXPECT_EQ(DirTable[kFirst].ModifiedDate, 0);
}

TEST_F(Os9WalkTest, AnImageThatEndsEarlyYieldsShortFiles) {
    Os9Builder disk = OneFile(Fields(1000, {{20, 2}, {12, 2}}));
    disk.Put(20 * 256, Pattern(512, 1)).Put(12 * 256, Pattern(512, 2));
    Read(disk.Image().substr(0, 20 * 256 + 300));
    // What is missing of the first segment is not there; the second follows at once.
    EXPECT_EQ(DirTable[kFirst].Content, Pattern(512, 1).substr(0, 300) + Pattern(512, 2));
    EXPECT_EQ(DirTable[kFirst].Size, 1000);
    EXPECT_EQ(DirTable[kFirst].SectorCount, 5);
}

TEST_F(Os9WalkTest, ALastEntryShorterThan32BytesIsTakenAsFarAsItGoes) {
    Os9Builder disk;
    disk.RootNames({{"whole", 10}, {"part", 20}}).File(10, "w").File(20, "p");
    disk.Number(2 * 256 + 9, 4, 96 + 30);  // up to the first byte of the LSN
    Read(disk.Image());
    EXPECT_EQ(DirTable[kFirst + 1].Name, "part");
    EXPECT_EQ(DirTable[kFirst + 1].FirstUnit, 0);
    // LSN 0 is taken as its descriptor.
    EXPECT_EQ(DirTable[kFirst + 1].DescriptorSector, disk.Image().substr(0, 256));
    Read(disk.Number(2 * 256 + 9, 4, 96 + 2).Image());
    EXPECT_EQ(DirTable[kFirst + 1].Name, "p\xE1");  // cut before its marked character
    EXPECT_EQ(Disk.DirCount, kFirst + 1);
}

TEST_F(Os9WalkTest, ImpossibleDatesLeaveTheRowsDatesAtZero) {
    Os9Descriptor fields = Fields(0, {});
    fields.Modified = "\x56\2\x1E\x0C\x1E";  // 30 February
    fields.Created = "\x56\x0D\1";           // month 13
    Read(OneFile(fields).Image());
    EXPECT_EQ(DirTable[kFirst].ModifiedDate, 0);
    EXPECT_EQ(DirTable[kFirst].CreatedDate, 0);
}

TEST_F(Os9WalkTest, TheDateOfCreationHasNoTime) {
    // What follows it are segments: 10 and 30 are no hour and minute.
    Read(OneFile(Fields(0, {{0x0A1E00, 1}})).Image());
    EXPECT_EQ(DateText(DirTable[kFirst].CreatedDate), "03/04/1985");
}

TEST_F(Os9WalkTest, ADirectoryUnderAnotherNameOfItsAncestorFillsTheTableAndFails) {
    Os9Builder disk;
    disk.RootNames({{"A", 10}}).Directory(10, 2, {{"back", 2}});
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kIndexRange);
    EXPECT_EQ(Disk.DirRows, 0);
    EXPECT_EQ(DirTable[1700].DescriptorSector.size(), 256U);
}

TEST_F(Os9WalkTest, ADirectoryThatHoldsOnlyItselfDescends1700Levels) {
    // No dot entries: each row is one level deeper than the one before it.
    Os9Builder disk;
    disk.Put(3 * 256, std::string(64, '\0')).Put(3 * 256, Os9Entry(Os9Name("down"), 2));
    EXPECT_EQ(FailureOf([&] { Read(disk.Image()); }), kIndexRange);
    EXPECT_EQ(DirTable[1700].TreeLevel, 1699);
}

TEST_F(Os9WalkTest, TheTableHolds1701Rows) {
    Os9Names names;
    for (int i = 0; i < 1697; ++i) names.emplace_back("n", 400);
    Os9Builder disk;
    Read(disk.RootNames(names).File(400, "x").Image());
    EXPECT_EQ(Disk.DirCount, 1700);
    EXPECT_EQ(Disk.DirRows, 1700);
    names.emplace_back("n", 400);
    EXPECT_EQ(FailureOf([&] { Read(disk.RootNames(names).Image()); }), kIndexRange);
}

TEST_F(Os9WalkTest, AWalkThatBeginsAtARowLeavesTheCursorAtTheLastOneFilled) {
    Disk.ImageBytes = Os9Builder().RootNames({{"a", 10}}).File(10, "a").Image();
    Disk.TrackCount = 35;
    Disk.SectorsPerTrack = 18;
    int row = 100;
    WalkOs9Directory("any", 2 * 256 + 1, row, 7);
    EXPECT_EQ(row, 103);
    EXPECT_EQ(DirTable[100].TreeLevel, 7);
    EXPECT_EQ(DirTable[103].Name, "a");
    EXPECT_EQ(DirTable[103].TreeLevel, 8);
    row = 5;
    WalkOs9Directory(".any", 2 * 256 + 1, row, 0);
    EXPECT_EQ(row, 5);
}

}  // namespace
}  // namespace brindlemoor::test
