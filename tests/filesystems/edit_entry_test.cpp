#include "filesystems/edit_entry.h"

#include <gtest/gtest.h>

#include <string>

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "support/disk_fixture.h"
#include "support/dragon_fixture.h"

namespace brindlemoor::test {
namespace {

constexpr std::size_t kDirectory = 78848;

class EditEntryTest : public DiskTest {
  protected:
    void SetUp() override {
        DiskTest::SetUp();
        Disk.ImageBytes.assign(161280, '.');
        DirEntry& row = DirTable[2];
        row.Name = "GAMMA   ";
        row.Ext = "TXT";
        row.FileType = 3;
        row.FormatChar = "A";
        row.FirstUnit = 13;
        row.LastSectorBytes = 258;
    }

    static std::string Slot() { return Disk.ImageBytes.substr(kDirectory + 64, 32); }
};

TEST_F(EditEntryTest, TheSlotOfTheRowGetsSixteenBytes) {
    WriteEditedEntry(2);
    EXPECT_EQ(Slot(), "GAMMA   TXT" + Bytes({3, 255, 13, 1, 2}) + std::string(16, '.'));
    EXPECT_EQ(Disk.ImageBytes.substr(0, kDirectory + 64), std::string(kDirectory + 64, '.'));
    EXPECT_EQ(Disk.ImageBytes.size(), 161280u);
}

TEST_F(EditEntryTest, BinaryIsZeroAndAnyOtherFormatIsAscii) {
    for (const char* format : {"B", "A", "", "Z"}) {
        DirTable[2].FormatChar = format;
        WriteEditedEntry(2);
        EXPECT_EQ(Slot()[12], *format == 'B' ? '\0' : '\xFF') << format;
    }
}

TEST_F(EditEntryTest, AShorterNameMovesTheOtherBytesForward) {
    DirTable[2].Name = "SEVENLE";
    WriteEditedEntry(2);
    EXPECT_EQ(Slot(), "SEVENLETXT" + Bytes({3, 255, 13, 1, 2}) + std::string(17, '.'));
}

TEST_F(EditEntryTest, TheFamilyDoesNotMatter) {
    for (const Family family : {kDragon, kOs9, kFlex}) {
        Disk.ImageBytes.assign(161280, '.');
        Disk.DiskFamily = family;
        WriteEditedEntry(2);
        EXPECT_EQ(Slot().substr(0, 11), "GAMMA   TXT");
    }
}

TEST_F(EditEntryTest, OfAFirstUnitAboveAByteTheLowByteIsWritten) {
    DirTable[2].FirstUnit = 0x1234;
    WriteEditedEntry(2);
    EXPECT_EQ(Slot()[13], '\x34');
}

TEST_F(EditEntryTest, NothingIsWrittenBehindTheEndOfAShortImage) {
    Disk.ImageBytes.assign(kDirectory + 70, '.');
    WriteEditedEntry(2);
    EXPECT_EQ(Disk.ImageBytes.substr(kDirectory), std::string(64, '.') + "GAMMA ");
    Disk.ImageBytes.assign(kDirectory + 64, '.');
    WriteEditedEntry(2);
    EXPECT_EQ(Disk.ImageBytes, std::string(kDirectory + 64, '.'));
    Disk.ImageBytes.clear();
    WriteEditedEntry(2);
    EXPECT_TRUE(Disk.ImageBytes.empty());
}

TEST_F(EditEntryTest, ARowOutsideTheTableFails) {
    EXPECT_EQ(FailureOf([] { WriteEditedEntry(-1); }), kIndexRange);
    EXPECT_EQ(FailureOf([] { WriteEditedEntry(kDirTableRows); }), kIndexRange);
}

}  // namespace
}  // namespace brindlemoor::test
