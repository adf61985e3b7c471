#include <gtest/gtest.h>

#include <algorithm>

#include "core/dates.h"
#include "core/disk_state.h"
#include "filesystems/flex.h"
#include "support/disk_fixture.h"
#include "support/sha256.h"

// The FLEX disks that are at hand: the one that the project made itself, and one of another
// project where the checkout has it beside itself.

namespace brindlemoor::test {
namespace {

using FlexSamplesTest = DiskTest;

/// The bytes of a row that count, with line feeds in the place of carriage returns.
std::string TextOf(int row) {
    std::string text = DirTable[row].Content;
    text.resize(static_cast<std::size_t>(DirTable[row].Size));
    std::replace(text.begin(), text.end(), '\r', '\n');
    return text;
}

struct NotesRow {
    std::string FullName;
    int Flags;
    int Attributes;
    int Sectors;
    std::int64_t Size;
    std::string Begins;
    std::string Ends;
};

TEST_F(FlexSamplesTest, TheProjectsOwnDiskIsListedAndItsTextsAreWhole) {
    const std::vector<NotesRow> rows = {
        {"README'TXT", 0, 0xC0, 1, 216, "A disk of plain texts", "list.\n"},
        {"LINKS'TXT", 0, 0, 4, 751, "HOW A FILE LIES", "for\nthat.\n"},
        {"WEATHER'TXT", 0, 0, 2, 392, "WEATHER AT THE HARBOUR\n", "paint still wet\n"},
        {"\xFFILLED'TXT", kFlagDeleted, 0, 1, 68, "This text", "free chain.\n"},
        {"LAMP'TXT", 0, 0, 9, 2034, "Night  1: lit", "Ada on watch.\n"},
    };
    Read(FileBytes(BRINDLEMOOR_SAMPLES "/flex-notes.dsk"));
    EXPECT_EQ(Disk.DiskFamily, kFlex);
    EXPECT_EQ(Disk.DiskName, "NOTES (0)");
    EXPECT_EQ(Disk.DiskDate, DayCount(1984, 5, 6));
    EXPECT_EQ(Disk.TrackCount, 35);
    EXPECT_EQ(Disk.SectorsPerTrack, 18);
    EXPECT_EQ(Disk.MaxDirEntries, 140);
    EXPECT_EQ(Disk.UsedSectors, 17);
    EXPECT_EQ(Disk.DeletedCount, 1);
    EXPECT_EQ(Shown(), std::vector<std::string>());
    ASSERT_EQ(Disk.DirRows, static_cast<int>(rows.size()));
    for (int row = 0; row < Disk.DirRows; ++row) {
        const NotesRow& expected = rows[static_cast<std::size_t>(row)];
        SCOPED_TRACE(expected.FullName);
        EXPECT_EQ(DirTable[row].FullName, expected.FullName);
        EXPECT_EQ(DirTable[row].Flags, expected.Flags);
        EXPECT_EQ(DirTable[row].Attributes, expected.Attributes);
        EXPECT_EQ(DirTable[row].SectorCount, expected.Sectors);
        EXPECT_EQ(DirTable[row].Size, expected.Size);
        const std::string text = TextOf(row);
        EXPECT_EQ(text.rfind(expected.Begins, 0), 0U);
        ASSERT_GE(text.size(), expected.Ends.size());
        EXPECT_EQ(text.substr(text.size() - expected.Ends.size()), expected.Ends);
        EXPECT_EQ(text.find('\0'), std::string::npos);
    }
}

#ifdef BRINDLEMOOR_SHARED_SAMPLES

/// What a reading of the disk that follows FLEX's own rule, 252 bytes of each sector, says.
struct FlexFacts {
    std::string Name;
    std::string Ext;
    int Sectors;
    std::int64_t UsedBytes;  ///< without the zero bytes at the end
    int LastTrack;
    int LastSector;
    std::string Sha256;
};

const std::vector<FlexFacts> kFlexFacts = {
    {"BGTTST", "ASM", 1, 154, 1, 1,
     "a6259935d4ca8cba431f1f770c07aa0ce797340189d42fb01c2a28d3385bb54f"},
    {"BGTTST", "HEX", 1, 78, 1, 2,
     "f92a4cc88f665bc3036d29382b38701d97836f8594667edc0ec2a31d0b48b7e1"},
    {"BGTTST", "LIS", 2, 472, 1, 4,
     "e7ca6602f5effd020e958b76bbafefd1863dd52c50461dc49e4e32e34435e58e"},
    {"FILL_VID", "ASM", 3, 624, 1, 7,
     "b16e434f905bccdf97c11fb31b83dbfeec34a2026ac32f66c4afe4dde117e697"},
    {"FILL_VID", "HEX", 2, 276, 1, 9,
     "2a5405885b7246e70f40419dd50b65eaf6b15cc22b790c8f9278c8e95f4fae8a"},
    {"FILL_VID", "LIS", 6, 1491, 2, 5,
     "bbd4a7e34852d970c17a39b318540fa9ffec2388eddfad4bad8da4bbc219292c"},
    {"NAFSTEST", "CMD", 1, 159, 2, 6,
     "9656fcc63808b4e88e97ff5f8ff37496590ee8b1c693443bfb239ea3d46a6410"},
    {"NAFSTEST", "TXT", 4, 773, 2, 10,
     "4cd68373581e31607adefacc10c2c3f94ba85e88e8217cfb05e47fcd45c5c86d"},
    {"PERFTEST", "ASM", 3, 576, 3, 3,
     "82c106a6cce8a50f44dddc56f235a79d37d47a66e5faa2c9c59be527d30bfcfd"},
    {"PERFTEST", "HEX", 1, 234, 3, 4,
     "dde4693b5b5db13b1a1033d1961604f7ea69d2bbec4125acce5bda6c86aefb16"},
    {"PERFTEST", "LIS", 6, 1302, 3, 10,
     "6d91f81562ed26d1fe732f54c0135bf37a68cb7852831f60f6ee4f47476c7745"},
    {"PT1", "ASM", 2, 482, 4, 2,
     "ea4e8bcb7023caeae183c1a4e7c7c91993f9079a0cea9928512312455d7326cc"},
    {"PT1", "HEX", 1, 202, 4, 3,
     "a3d4946d882432868e94e5fc1c38084017098c4d6a22374d37baab39779ea5e2"},
    {"PT1", "LIS", 5, 1095, 4, 8,
     "59933c1bbcb995270bd41eb6e66c14259593aae729d488e1c1d8bb343f1644ea"},
    {"SETCLR", "ASM", 2, 426, 4, 10,
     "9756775ee51ef24c01b64de5a19de255c7a5aa3711c4647c96ad534bb668fbdf"},
    {"SETCLR", "HEX", 1, 204, 5, 1,
     "38fa4a79e986749948ca39d494ab7f579fbc0104d3d9e2c1da60c641e5cb6528"},
    {"SETCLR", "LIS", 5, 1061, 5, 6,
     "cf6f7eae6881bd9e6daab965063e2b7a5b0535434b2f52efd13e168e678b18f6"},
    {"TERMINAL", "ASM", 1, 163, 5, 7,
     "153480eafc64034cc1f73d372d20cbf5b13778f69e62dca0b99089878eb1829c"},
    {"TERMINAL", "HEX", 1, 66, 5, 8,
     "3c6102d1440211af4fce3ba1cc63b6edfccd7cfec019b8139111097314a2ec24"},
    {"TERMINAL", "LIS", 3, 516, 6, 1,
     "1f73e31d8b3d871aa2b2a48a5b9d5b16827d7dc05cfad619ba2a5268b53f088e"},
    {"TEST", "ASM", 1, 58, 6, 2,
     "76ec6d292b102d2316e889180729d31768782f8bff2caa5a58de852540fefc07"},
    {"TF", "UNX", 1, 12, 6, 3, "e1a8ff135130e35343af271bb80ebd0c071a9d4ec4e8f3d47c12fb6c09856aae"},
    {"UFSTEST", "ASM", 4, 774, 6, 7,
     "4da4d48e9ea81e5295f64bcc77711c3d68cf2fe9ba5c0cd5eb6710e308839e06"},
};

constexpr std::size_t kMissing = 12;  // bytes of the last sector that our rule leaves out
constexpr int kSectorsPerTrack = 10;

void ExpectSameFile(const DirEntry& row, const FlexFacts& facts) {
    SCOPED_TRACE(facts.Name + "." + facts.Ext);
    EXPECT_EQ(row.FullName, facts.Name + "'" + facts.Ext);
    EXPECT_EQ(row.Attributes, 0);
    EXPECT_EQ(row.SectorCount, facts.Sectors);
    const auto whole = static_cast<std::size_t>(facts.Sectors) * 252;
    ASSERT_EQ(row.Content.size(), whole - kMissing);
    // Where the last sector holds no more than what is left out, the file ends with the sector
    // before it.
    const std::int64_t before = static_cast<std::int64_t>(whole) - 252;
    EXPECT_EQ(row.Size, std::max(before, facts.UsedBytes - static_cast<std::int64_t>(kMissing)));
    // With the bytes 4 to 15 of the last sector put back, the file is theirs.
    const int sector = facts.LastTrack * kSectorsPerTrack + facts.LastSector - 1;
    std::string content = row.Content;
    content.insert(whole - 252,
                   Disk.ImageBytes.substr(static_cast<std::size_t>(sector) * 256 + 4, kMissing));
    EXPECT_EQ(Sha256(content), facts.Sha256);
    // FLEX keeps a file's date in the bytes 21 to 23 of its slot. It is looked for in 20 to 22,
    // where the zero byte in front makes a day 0.
    EXPECT_EQ(row.CreatedDate, 0);
}

TEST_F(FlexSamplesTest, AnotherProjectsDiskIsReadAsItsChainsSayButForTheRulesOfTheLastSector) {
    Read(FileBytes(BRINDLEMOOR_SHARED_SAMPLES "/third-party/flex/test.dsk"));
    EXPECT_EQ(Disk.DiskFamily, kFlex);
    // The label is 11 bytes on such a disk and the volume's number, 1, stands behind it: the byte
    // shown as a number is the label's last.
    EXPECT_EQ(Disk.DiskName, "TEST (0)");
    EXPECT_EQ(Disk.DiskDate, DayCount(2020, 2, 9));
    EXPECT_EQ(Disk.TrackCount, 35);
    EXPECT_EQ(Disk.SectorsPerTrack, kSectorsPerTrack);
    EXPECT_EQ(Disk.TotalSectors, 350);
    EXPECT_EQ(Disk.MaxDirEntries, 6 * 10);
    EXPECT_EQ(Disk.DeletedCount, 0);
    EXPECT_EQ(Shown(), std::vector<std::string>());
    ASSERT_EQ(Disk.DirRows, static_cast<int>(kFlexFacts.size()));
    for (int row = 0; row < Disk.DirRows; ++row) {
        ExpectSameFile(DirTable[row], kFlexFacts[static_cast<std::size_t>(row)]);
    }
}

#endif

}  // namespace
}  // namespace brindlemoor::test
