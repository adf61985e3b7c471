#include "filesystems/commit_decb.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "filesystems/commit.h"
#include "filesystems/delete_file.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/dragon_fixture.h"
#include "support/write_fixture.h"

namespace brindlemoor::test {
namespace {

class CommitDecb : public WriteTest {
  protected:
    static DecbBuilder TwoFiles() {
        DecbBuilder disk;
        disk.File(0, "ONE", "BAS", 0, 0, {32, 7}, Pattern(2404, 1));
        return disk.File(1, "TWO", "TXT", 3, 255, {40}, Pattern(512, 2));
    }

    /// The sector of the FAT behind its 68 bytes is cleared.
    static DecbBuilder& Committed(DecbBuilder& disk) {
        for (int byte = 68; byte < 256; ++byte) disk.Byte(78592 + byte, 0);
        return disk;
    }
};

TEST_F(CommitDecb, AnUnchangedDiskGetsItsLastGranulesFilledUp) {
    Read(TwoFiles().Image());
    CommitDirectory();
    DecbBuilder expected = TwoFiles();
    // 2295 bytes of 255 behind the file, and no further.
    expected.Fill(7, 100, 2304 - 100, 255).Fill(40, 512, 2304 - 512, 255);
    EXPECT_TRUE(ImageIs(Committed(expected).Image()));
    EXPECT_TRUE(script_.Messages.empty());
}

TEST_F(CommitDecb, AShortFileLeavesTheEndOfItsGranule) {
    DecbBuilder disk;
    disk.File(0, "A", "BIN", 2, 0, {20}, "xyz").Fill(20, 3, 2301, 'o');
    Read(disk.Image());
    CommitDirectory();
    disk.Fill(20, 3, 2295, 255);
    EXPECT_TRUE(ImageIs(Committed(disk).Image()));
}

TEST_F(CommitDecb, TwoCommitsGiveTheSameImage) {
    Read(TwoFiles().Image());
    CommitDirectory();
    const std::string image = Disk.ImageBytes;
    CommitDirectory();
    EXPECT_TRUE(ImageIs(image));
}

TEST_F(CommitDecb, TheGranulesOfADeletedFileAreFree) {
    Read(TwoFiles().Image());
    Disk.DirCount = 0;
    DeleteDiskFile();
    CommitDirectory();
    EXPECT_EQ(ImagePart(78592 + 32, 1), "\xFF");
    EXPECT_EQ(ImagePart(78592 + 7, 1), "\xFF");
    EXPECT_EQ(ImagePart(78848, 4), std::string("\0NE ", 4));
    ReadDisk();
    EXPECT_EQ(Disk.DeletedCount, 1);
    EXPECT_EQ(DirTable[1].Content, Pattern(512, 2));
}

TEST_F(CommitDecb, ARowThatIsMarkedOrBeginsWithAQuestionMarkIsDeleted) {
    Read(TwoFiles().Image());
    DirTable[0].Flags = 1;
    DirTable[1].Name = "?WO     ";
    CommitDirectory();
    EXPECT_EQ(ImagePart(78848, 1), std::string(1, '\0'));
    EXPECT_EQ(ImagePart(78848 + 32, 3), std::string("\0WO", 3));
}

TEST_F(CommitDecb, TheSlotTakesTheFieldsOfTheRow) {
    Read(TwoFiles().Image());
    DirEntry& row = DirTable[1];
    row.Name = "NEW";
    row.Ext = "TOOLONG";
    row.FileType = 1;
    row.FormatChar = "B";
    row.FirstUnit = 41;
    row.LastSectorBytes = 0x0102;
    CommitDirectory();
    EXPECT_EQ(ImagePart(78848 + 32, 16), "NEW     TOO" + Bytes({1, 0, 41, 1, 2}));
    row.FormatChar = " ";
    CommitDirectory();
    EXPECT_EQ(ImagePart(78848 + 32 + 12, 1), "\xFF");
}

TEST_F(CommitDecb, ARowWithoutAChainWritesASlotAndNoBytes) {
    Read(TwoFiles().Image());
    DirTable[1].Chain = "";
    CommitDirectory();
    EXPECT_EQ(ImagePart(78592 + 40, 1), "\xFF");
    EXPECT_EQ(ImagePart(78848 + 32, 3), "TWO");
    EXPECT_EQ(ImagePart(42 * 2304, 512), Pattern(512, 2));
}

TEST_F(CommitDecb, TheFatFollowsTheChainsAndBytesThatRunOutLeaveGranulesAlone) {
    Read(TwoFiles().Image());
    DirEntry& row = DirTable[1];
    row.Chain = Bytes({40, 41, 42});
    row.LastGranuleSectors = 33;
    CommitDirectory();
    EXPECT_EQ(ImagePart(78592 + 40, 3), Bytes({41, 42, 225}));
    EXPECT_EQ(ImagePart(42 * 2304, 600), Pattern(512, 2) + std::string(88, '\xFF'));
    // The fill goes on into the second granule; the third keeps its zero bytes.
    EXPECT_EQ(ImagePart(43 * 2304, 600), std::string(503, '\xFF') + std::string(97, '\0'));
    EXPECT_EQ(ImagePart(44 * 2304, 2304), std::string(2304, '\0'));
}

TEST_F(CommitDecb, AChainBeyondTheFatStaysInItsSector) {
    Read(TwoFiles().Image());
    DirTable[1].Chain = Bytes({255});
    CommitDirectory();
    EXPECT_EQ(ImagePart(78592 + 255, 1), "\xC2");
    EXPECT_EQ(Disk.ImageBytes.size(), 161280U);
}

TEST_F(CommitDecb, The69thRowGoesBehindTheDirectory) {
    Read(TwoFiles().Image());
    Disk.DirRows = 69;
    DirTable[68].Name = "LAST    ";
    DirTable[68].Ext = "BIN";
    CommitDirectory();
    EXPECT_EQ(ImagePart(78848 + 68 * 32, 11), "LAST    BIN");
}

TEST_F(CommitDecb, AShortImageKeepsItsLength) {
    for (const std::size_t length : {0U, 100U, 78600U, 78850U, 80000U, 90000U}) {
        Read(TwoFiles().Image());
        CommitDirectory();
        const std::string whole = Disk.ImageBytes;
        Read(TwoFiles().Image());
        Disk.ImageBytes.resize(length);
        CommitDirectory();
        EXPECT_TRUE(ImageIs(whole.substr(0, length))) << length;
    }
}

TEST_F(CommitDecb, TheFatGoesToTrack17OfTheDisksOwnSectors) {
    Read(TwoFiles().Image());
    Disk.SectorsPerTrack = 10;
    CommitDirectory();
    EXPECT_EQ(ImagePart(171 * 256 + 32, 1), "\x07");
}

}  // namespace
}  // namespace brindlemoor::test
