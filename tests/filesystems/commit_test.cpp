#include "filesystems/commit.h"

#include <gtest/gtest.h>

#include "core/disk_state.h"
#include "filesystems/sectors.h"
#include "support/decb_builder.h"
#include "support/flex_builder.h"
#include "support/write_fixture.h"

namespace brindlemoor::test {
namespace {

class Commit : public WriteTest {
  protected:
    static std::string FlexDisk() {
        FlexBuilder disk;
        disk.File(0, "ONE", "TXT", {{1, 1}, {1, 2}}, Pattern(500, 1));
        disk.File(1, "GONE", "BIN", {{2, 1}}, Pattern(200, 2)).SlotByte(1, 0, 'G' | 0x80);
        return disk.Image();
    }
};

TEST_F(Commit, AFlexDiskIsReadAgainAndNotChanged) {
    Read(FlexDisk());
    DirTable[0].Name = "EDITED";
    DirTable[0].Content = "edited";
    const std::int32_t used = Disk.UsedSectors;
    CommitDirectory();
    EXPECT_TRUE(ImageIs(FlexDisk()));
    EXPECT_EQ(DirTable[0].Name, "ONE");
    EXPECT_EQ(DirTable[0].Content.size(), 492U);
    EXPECT_EQ(Disk.DeletedCount, 2);
    EXPECT_EQ(Disk.UsedSectors, 2 * used);
}

TEST_F(Commit, ARowWrittenToAFlexDiskStaysInTheTable) {
    Read(FlexDisk());
    DirTable[1].Flags = 0;
    Write("NEW.TXT", "x");
    CommitDirectory();
    EXPECT_EQ(Disk.DirRows, 3);
    EXPECT_EQ(DirTable[2].Content, "x");
}

/// The bytes of the files count anew each time.
TEST_F(Commit, AFlexDiskMayBeCommittedAgainAndAgain) {
    Read(FlexDisk());
    // Up to some 130,000 bytes below what all files of a disk may have.
    for (int part = 0; part < 3328; ++part) {
        std::string content;
        GatherBytes(content, 0, 161280);
    }
    for (int commit = 0; commit < 60; ++commit) {
        Disk.DeletedCount = 0;
        CommitDirectory();
    }
    EXPECT_EQ(Disk.DeletedCount, 1);
}

TEST_F(Commit, WithoutADiskNothingIsWritten) {
    CommitDirectory();
    EXPECT_EQ(Disk.ImageBytes, "");
}

}  // namespace
}  // namespace brindlemoor::test
