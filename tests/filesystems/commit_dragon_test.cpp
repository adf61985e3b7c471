#include "filesystems/commit_dragon.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "filesystems/commit.h"
#include "filesystems/delete_file.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/dragon_fixture.h"
#include "support/write_fixture.h"

namespace brindlemoor::test {
namespace {

constexpr std::size_t kDirectory = 362 * 256;
constexpr std::size_t kCopy = 290 * 256;

/// Where an entry lies behind the start of a directory.
std::size_t EntryPlace(int entry) {
    return static_cast<std::size_t>(entry / 10 * 256 + entry % 10 * 25);
}

class CommitDragon : public WriteTest {
  protected:
    static std::string Entry(int entry) { return ImagePart(kDirectory + EntryPlace(entry), 25); }
};

/// Names have blanks where they had zero bytes, and unused bytes of the directory are 0.
TEST_F(CommitDragon, AnUnchangedDiskGetsItsNamesPadded) {
    DragonBuilder disk;
    disk.File(0, "ONE", "BAS", {{400, 2}}, Pattern(300, 1));
    disk.File(1, "TWO", "B", {{410, 1}, {420, 1}}, Pattern(512, 2));
    for (const std::size_t place : {kDirectory, kCopy}) {
        disk.Byte(static_cast<int>(place) + 252, 'o');
    }
    Read(disk.Image());
    CommitDirectory();
    disk.Byte(static_cast<int>(kDirectory) + 252, 0).Byte(static_cast<int>(kCopy) + 252, 0);
    disk.Entry(0, 0, "ONE     ", "BAS", {{400, 2}}, 44);
    disk.Entry(1, 0, "TWO     ", "B  ", {{410, 1}, {420, 1}}, 0);
    EXPECT_TRUE(ImageIs(disk.Image()));
    EXPECT_TRUE(script_.Messages.empty());
    const std::string image = Disk.ImageBytes;
    CommitDirectory();
    EXPECT_TRUE(ImageIs(image));
}

TEST_F(CommitDragon, TheBytesGoAlongTheExtentsAndTheBitmapStays) {
    DragonBuilder disk;
    disk.File(0, "ONE", "BAS", {{400, 2}, {410, 1}}, Pattern(700, 1));
    Read(disk.Image());
    const std::string content = Pattern(700, 9);
    DirTable[0].Content = content;
    Disk.FatBytes.assign(360, '\0');
    CommitDirectory();
    disk.Sectors(400, content.substr(0, 512)).Sectors(410, content.substr(512));
    disk.Entry(0, 0, "ONE     ", "BAS", {{400, 2}, {410, 1}}, 700 - 512);
    EXPECT_TRUE(ImageIs(disk.Image()));
}

TEST_F(CommitDragon, AnExtentOfNoSectorsEndsTheList) {
    Read(DragonBuilder().File(0, "A", "BIN", {{400, 1}}, "abc").Image());
    DirTable[0].Content = "xyz";
    DirTable[0].Chain = Bytes({1, 150, 0, 1, 144, 1});
    CommitDirectory();
    EXPECT_EQ(ImagePart(400 * 256, 3), "abc");
    EXPECT_EQ(ImagePart(406 * 256, 3), std::string(3, '\0'));
}

TEST_F(CommitDragon, BytesThatRunOutLeaveTheRestOfTheExtents) {
    Read(DragonBuilder().Image());
    Disk.DirRows = 1;
    DirEntry& row = DirTable[0];
    row.Flags = 0;
    row.Content = Pattern(300, 1);
    row.Chain = Bytes({1, 144, 1, 1, 150, 3, 1, 160, 1});
    std::string expected = Disk.ImageBytes;
    expected.replace(400 * 256, 256, row.Content, 0, 256);
    expected.replace(406 * 256, 44, row.Content, 256, 44);
    CommitDirectory();
    EXPECT_EQ(ImagePart(378 * 256, 300 * 256), expected.substr(378 * 256, 300 * 256));
}

TEST_F(CommitDragon, ExtentsBehindTheImageAreDropped) {
    Read(DragonBuilder().Image());
    Disk.DirRows = 1;
    DirTable[0].Content = Pattern(600, 1);
    DirTable[0].Chain = Bytes({2, 207, 2, 255, 255, 1});
    CommitDirectory();
    EXPECT_EQ(Disk.ImageBytes.size(), 184320U);
    EXPECT_EQ(ImagePart(719 * 256, 256), Pattern(600, 1).substr(0, 256));
}

TEST_F(CommitDragon, ADeletedRowHasItsNameAndNoExtents) {
    Read(DragonBuilder().File(0, "GONE", "BIN", {{400, 1}}, "abc").Image());
    Disk.DirCount = 0;
    DeleteDiskFile();
    CommitDirectory();
    EXPECT_EQ(Entry(0), "\x80GONE    BIN" + std::string(13, '\0'));
}

/// From the eleventh entry on, what the delete marked lies beside the entry; the commit mends it.
TEST_F(CommitDragon, ADeletedRowFarBackIsMarkedByTheCommit) {
    DragonBuilder disk;
    for (int entry = 0; entry < 12; ++entry) {
        disk.File(entry, "F" + std::to_string(entry), "BIN", {{400 + entry, 1}}, "x");
    }
    Read(disk.Image());
    Disk.DirCount = 11;
    DeleteDiskFile();
    EXPECT_EQ(Entry(11)[0], '\0');
    CommitDirectory();
    EXPECT_EQ(Entry(11)[0], '\x80');
    EXPECT_EQ(ImagePart(kDirectory + 250, 6), std::string(6, '\0'));
    EXPECT_EQ(ImagePart(kDirectory, 4096), ImagePart(kCopy, 4096));
}

TEST_F(CommitDragon, AFileOfFiveExtentsUsesOneContinuationRow) {
    DragonBuilder disk;
    disk.Entry(0, kFlagContinued, "LONG", "BIN", {{400, 1}, {402, 1}, {404, 1}, {406, 1}}, 1);
    disk.Continuation(1, kFlagContinuationEntry, {{408, 1}}, 77);
    Read(disk.Image());
    ASSERT_EQ(DirTable[0].Chain.size(), 15U);
    const std::string data = ImagePart(400 * 256, 9 * 256);
    DirTable[0].Content = Pattern(1200, 5);
    CommitDirectory();
    EXPECT_EQ(DirTable[0].Chain, Bytes({1, 144, 1, 1, 146, 1, 1, 148, 1, 1, 150, 1}));
    EXPECT_EQ(DirTable[1].Chain, Bytes({1, 152, 1}));
    EXPECT_EQ(DirTable[1].LastSectorBytes, 77);
    EXPECT_EQ(Entry(0), "\x20LONG    BIN" + DirTable[0].Chain + "\x01");
    EXPECT_EQ(Entry(1), "\x01" + Bytes({1, 152, 1}) + std::string(20, '\0') + "M");
    // No bytes are written for such a file.
    EXPECT_EQ(ImagePart(400 * 256, 9 * 256), data);
}

/// A row that leads nowhere has the link 0: a new file of more than four extents takes over the
/// first row, whose entry is written by then.
TEST_F(CommitDragon, AFileWithoutAContinuationRowTakesTheFirst) {
    Read(DragonBuilder().File(0, "FIRST", "BIN", {{400, 1}}, "abc").Image());
    Write("NEW.BIN", Pattern(5 * 256, 1));
    CommitDirectory();
    EXPECT_EQ(Entry(0).substr(1, 11), "FIRST   BIN");
    EXPECT_EQ(DirTable[0].Name, "");
    EXPECT_EQ(DirTable[0].Chain, Bytes({1, 76, 1}));
    EXPECT_EQ(DirTable[1].Chain.size(), 12U);
}

/// Seven extents fit into a continuation row; what is more goes to the row of its own link. A row
/// behind the file's is looked at in its turn and keeps four.
TEST_F(CommitDragon, LongChainsGoFromLinkToLink) {
    Read(DragonBuilder().Image());
    Disk.DirRows = 4;
    for (int row = 0; row < 4; ++row) DirTable[row].Flags = 0;
    DirEntry& file = DirTable[1];
    for (int extent = 0; extent < 13; ++extent) file.Chain += Bytes({1, 144 + extent, 1});
    file.ContinuationLink = 2;
    file.LastSectorBytes = 9;
    DirTable[2].Flags = kFlagContinuationEntry;
    DirTable[2].ContinuationLink = 3;
    DirTable[2].Name = "GONE";
    DirTable[3].ContinuationLink = 3;
    CommitDirectory();
    EXPECT_EQ(DirTable[1].Chain.size(), 12U);
    // Seven extents came to row 2, of which it kept four; its last three went over the two in
    // row 3.
    EXPECT_EQ(DirTable[2].Chain, Bytes({1, 148, 1, 1, 149, 1, 1, 150, 1, 1, 151, 1}));
    EXPECT_EQ(DirTable[3].Chain, Bytes({1, 152, 1, 1, 153, 1, 1, 154, 1}));
    EXPECT_EQ(DirTable[2].Name, "        ");
    EXPECT_EQ(DirTable[3].LastSectorBytes, 0);
}

/// Where all links lead to the row itself, the last extents are what it is left with.
TEST_F(CommitDragon, ARowThatLeadsToItselfKeepsItsLastExtents) {
    Read(DragonBuilder().Image());
    Disk.DirRows = 1;
    DirTable[0].Flags = 0;
    for (int extent = 0; extent < 12; ++extent) DirTable[0].Chain += Bytes({1, 144 + extent, 1});
    CommitDirectory();
    EXPECT_EQ(DirTable[0].Chain, Bytes({1, 155, 1}));
}

/// 160 entries less one are added, so that the last place of an empty directory stays as it was but
/// for its first six bytes.
TEST_F(CommitDragon, AnEmptyDirectoryGets159UnusedEntries) {
    Read(DragonBuilder().EntryByte(159, 0, 'o').EntryByte(159, 6, 'o').Image());
    CommitDirectory();
    const std::string unused = "\x89" + std::string(24, '\0');
    for (int entry = 0; entry < 159; ++entry) EXPECT_EQ(Entry(entry), unused) << entry;
    EXPECT_EQ(Entry(159), std::string(6, '\0') + "o" + std::string(18, '\0'));
    EXPECT_EQ(ImagePart(kDirectory, 4096), ImagePart(kCopy, 4096));
}

TEST_F(CommitDragon, TheDirectoryIsAtItsFixedPlacesOnTwoSidesToo) {
    Read(DragonBuilder(40, 36).File(0, "A", "BIN", {{40, 1}}, "abc").Image());
    CommitDirectory();
    EXPECT_EQ(ImagePart(kDirectory, 12), std::string("\0A       BIN", 12));
    EXPECT_EQ(ImagePart(kCopy, 12), std::string("\0A       BIN", 12));
}

TEST_F(CommitDragon, AShortImageKeepsItsLength) {
    for (const std::size_t length : {0U, 290U * 256 + 5, 362U * 256, 362U * 256 + 700}) {
        Read(DragonBuilder().File(0, "A", "BIN", {{40, 1}}, "abc").Image());
        CommitDirectory();
        const std::string whole = Disk.ImageBytes;
        Read(DragonBuilder().File(0, "A", "BIN", {{40, 1}}, "abc").Image());
        Disk.ImageBytes.resize(length);
        CommitDirectory();
        EXPECT_TRUE(ImageIs(whole.substr(0, length))) << length;
    }
}

TEST_F(CommitDragon, ANewFileOfUpToFourSectorsIsPutRight) {
    for (const std::size_t size : {1U, 255U, 256U, 257U, 1023U, 1024U}) {
        Read(DragonBuilder().Image());
        const std::string data = Pattern(size, static_cast<unsigned>(size));
        Write("NEW.BIN", data);
        CommitDirectory();
        ReadDisk();
        EXPECT_EQ(RowNames(), "NEW.BIN ") << size;
        EXPECT_EQ(DirTable[0].Content, data) << size;
    }
}

}  // namespace
}  // namespace brindlemoor::test
