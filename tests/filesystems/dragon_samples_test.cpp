#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "core/disk_state.h"
#include "filesystems/dragon.h"
#include "support/disk_fixture.h"
#include "support/manifest.h"
#include "support/sha256.h"

// The disks that independent tools made, against what those tools say that they hold.

namespace brindlemoor::test {
namespace {

using DragonSamplesTest = DiskTest;

/// An extent that our reading of a file has beside those of the tools.
struct AddedExtent {
    std::size_t Place;  ///< its number among our extents, from 0
    int Count;          ///< sectors from sector 0 on
};

/// A file that our rules read otherwise than the tools do.
struct Departure {
    std::string Image;
    std::string FullName;  ///< as the tools list it
    std::string OurFullName;
    int OurFileType;
    std::vector<AddedExtent> Added;
    std::string Reason;
};

const std::string kEighthGroup =
    "the 24 bytes from offset 1 of a continuation are extents: in a full one the eighth group of "
    "three ends in the link byte, and gives as many sectors from sector 0 on";
const std::string kClearedLink =
    "deleted files are read like live ones: those of this disk say that they are continued and "
    "have the link 0, so that the first row takes the full name and the type of the last of them";

const std::vector<AddedExtent> kAddedToBigfrag = {{11, 5}};
const std::vector<AddedExtent> kAddedToMore = {{11, 11}, {19, 13}, {27, 15},
                                               {35, 17}, {43, 19}, {51, 21}};

const std::vector<Departure> kDepartures = {
    {"dragon/dragon40-ss-frag.vdk", "TRIANGLE.BAS", "P87.DAT", 2, {}, kClearedLink},
    {"dragon/dragon40-ss-frag.vdk", "BIGFRAG.DAT", "BIGFRAG.DAT", 2, kAddedToBigfrag, kEighthGroup},
    {"dragon/dragon40-ss-frag.vdk", "MORE.BIN", "MORE.BIN", 2, kAddedToMore, kEighthGroup},
    {"dragon/dragon40-ss-named.vdk", "TRIANGLE.BAS", "P87.DAT", 2, {}, kClearedLink},
    {"dragon/dragon40-ss-named.vdk", "BIGFRAG.DAT", "BIGFRAG.DAT", 2, kAddedToBigfrag,
     kEighthGroup},
    {"dragon/dragon40-ss-named.vdk", "MORE.BIN", "MORE.BIN", 2, kAddedToMore, kEighthGroup},
};

/// Images that are not taken for a Dragon disk at all, with the reason.
const std::map<std::string, std::string> kNotRecognised = {
    {"dragon/dragon40-ds.vdk",
     "two sides make tracks of 36 sectors, so that this disk's geometry block ends sector 720; it "
     "is looked for at the end of sector 360 on every disk"},
};

/// What our reading of a file is expected to be: the tools' own but for the rows of the table.
Departure ExpectationOf(const std::string& image, const DragonFacts& facts) {
    const std::string name = facts.Name + "." + facts.Ext;
    for (const Departure& departure : kDepartures) {
        if (departure.Image == image && departure.FullName == name) return departure;
    }
    return {image, name, name, facts.Ext == "BAS" ? 0 : 2, {}, ""};
}

std::string ChainOf(const std::vector<ChainPart>& extents) {
    std::string chain;
    for (const ChainPart& extent : extents) {
        chain += static_cast<char>(extent.First >> 8);
        chain += static_cast<char>(extent.First);
        chain += static_cast<char>(extent.Count);
    }
    return chain;
}

/// The row's extents and bytes without those that were added to it.
void TakeOut(const std::vector<AddedExtent>& added, std::string& chain, std::string& content) {
    for (auto extent = added.rbegin(); extent != added.rend(); ++extent) {
        const std::string group = {'\0', '\0', static_cast<char>(extent->Count)};
        ASSERT_EQ(chain.substr(extent->Place * 3, 3), group);
        std::size_t before = 0;
        for (std::size_t place = 0; place < extent->Place; ++place) {
            before += static_cast<unsigned char>(chain[place * 3 + 2]) * std::size_t{256};
        }
        const std::size_t length = static_cast<std::size_t>(extent->Count) * 256;
        ASSERT_EQ(content.substr(before, length), Disk.ImageBytes.substr(0, length));
        chain.erase(extent->Place * 3, 3);
        content.erase(before, length);
    }
}

void ExpectSameFile(const DragonFacts& facts, const Departure& expected) {
    SCOPED_TRACE(facts.Name + "." + facts.Ext + " " + expected.Reason);
    const DirEntry& row = DirTable[facts.Entries.front()];
    EXPECT_EQ(row.FullName, expected.OurFullName);
    EXPECT_EQ(row.FileType, expected.OurFileType);
    EXPECT_EQ(row.Flags & kFlagDeleted, 0);
    EXPECT_EQ((row.Flags & kFlagProtected) != 0, facts.Protected);
    EXPECT_EQ(row.FirstUnit, facts.Extents.front().First);
    std::string chain = row.Chain;
    std::string content = row.Content;
    TakeOut(expected.Added, chain, content);
    EXPECT_EQ(chain, ChainOf(facts.Extents));
    EXPECT_EQ(static_cast<std::int64_t>(content.size()), facts.Size);
    EXPECT_EQ(Sha256(content), facts.Sha256);
    EXPECT_EQ(row.Size, static_cast<std::int64_t>(row.Content.size()));
    EXPECT_EQ(row.ContinuationLink, facts.Entries.size() == 1 ? 0 : facts.Entries.back());
    for (std::size_t entry = 1; entry < facts.Entries.size(); ++entry) {
        const DirEntry& next = DirTable[facts.Entries[entry]];
        EXPECT_EQ(next.FullName, facts.Name + "." + facts.Ext);
        EXPECT_EQ(next.Flags & kFlagContinuationEntry, kFlagContinuationEntry);
        EXPECT_EQ(next.Content, "");
    }
}

std::vector<const DirEntry*> LiveFiles() {
    std::vector<const DirEntry*> rows;
    for (int row = 0; row < Disk.DirRows; ++row) {
        const int flags = DirTable[row].Flags;
        if ((flags & (kFlagDeleted | kFlagContinuationEntry)) == 0) rows.push_back(&DirTable[row]);
    }
    return rows;
}

std::vector<ImageFacts> DragonImages() {
    std::vector<ImageFacts> images;
    for (const ImageFacts& image : ReadImageTable()) {
        if (image.Family == "Dragon") images.push_back(image);
    }
    return images;
}

TEST_F(DragonSamplesTest, EveryFileIsReadAsTheToolsReadItButForTheTable) {
    int files = 0;
    for (const ImageFacts& image : DragonImages()) {
        if (kNotRecognised.count(image.Image) == 1) continue;
        SCOPED_TRACE(image.Image);
        Read(TestData(image.Image));
        ASSERT_EQ(Disk.DiskFamily, kDragon);
        EXPECT_EQ(Disk.TrackCount, image.Tracks);
        EXPECT_EQ(Disk.SectorsPerTrack, image.Sectors);
        EXPECT_EQ(Disk.SideCount, image.Sides);
        EXPECT_EQ(static_cast<std::int64_t>(LiveFiles().size()), image.Files);
        for (const DragonFacts& facts : RowsOf(ReadDragonTable(), image.Image)) {
            ExpectSameFile(facts, ExpectationOf(image.Image, facts));
            ++files;
        }
    }
    EXPECT_EQ(files, 13 + 32 + 13 + 32);
}

TEST_F(DragonSamplesTest, EveryRowOfTheTableIsAFileOfItsImage) {
    const std::vector<DragonFacts> table = ReadDragonTable();
    for (const Departure& departure : kDepartures) {
        const bool found = std::any_of(table.begin(), table.end(), [&](const DragonFacts& facts) {
            return facts.Image == departure.Image &&
                   facts.Name + "." + facts.Ext == departure.FullName;
        });
        EXPECT_TRUE(found) << departure.Image << " " << departure.FullName;
    }
}

TEST_F(DragonSamplesTest, DisksWhoseGeometryBlockLiesElsewhereAreNotRecognised) {
    for (const auto& [image, reason] : kNotRecognised) {
        Read(TestData(image));
        EXPECT_EQ(Disk.DiskFamily, kDecb) << reason;
        EXPECT_EQ(Disk.DirRows, 0) << reason;
        const std::string block = Disk.ImageBytes.substr(720 * 256 + 252, 4);
        EXPECT_EQ(block, "\x28\x24\xD7\xDB") << reason;
    }
}

TEST_F(DragonSamplesTest, NoImageMeetsAFailure) {
    // The tool that deleted files here cleared their extents and the last byte with them, which
    // stands for a whole sector. A deleted file with a last byte would end the reading with 5.
    for (const ImageFacts& image : DragonImages()) {
        const std::string bytes = TestData(image.Image);
        EXPECT_EQ(FailureOf([&] { Read(bytes); }), 0) << image.Image;
    }
}

TEST_F(DragonSamplesTest, DeletedFilesAreRowsOfTheirOwn) {
    Read(TestData("dragon/dragon40-ss.dsk"));
    EXPECT_EQ(Disk.DeletedCount, 1);
    EXPECT_EQ(DirTable[12].FullName, "LAST.BIN");
    EXPECT_EQ(DirTable[12].Flags, kFlagDeleted);
    EXPECT_EQ(DirTable[12].Content, "");
    Read(TestData("dragon/dragon40-ss-frag.vdk"));
    EXPECT_EQ(Disk.DeletedCount, 89);
    EXPECT_EQ(Disk.ContinuationCount, 29);
    EXPECT_EQ(DirTable[28].FullName, "P27.DAT");
    EXPECT_EQ(DirTable[28].Flags, kFlagDeleted | kFlagContinued);
    EXPECT_EQ(DirTable[28].ContinuationLink, 0);
    // Its link leads to the first entry, whose bytes it takes.
    EXPECT_EQ(DirTable[28].Content, DirTable[0].Content);
    EXPECT_EQ(DirTable[28].Content.size(), 128U);
}

TEST_F(DragonSamplesTest, DisksOfOtherToolsDifferFromTheirBitmaps) {
    // Their bitmaps have clear bits behind the last sector of the disk. On two of them a file was
    // deleted in the end, and that was written to track 20 alone.
    for (const ImageFacts& image : DragonImages()) {
        if (kNotRecognised.count(image.Image) == 1) continue;
        script_.Messages.clear();
        Read(TestData(image.Image));
        const bool scattered = image.Image.find("ss-") != std::string::npos;
        ASSERT_EQ(Shown().size(), scattered ? 1U : 3U) << image.Image;
        EXPECT_EQ(Shown().back().rfind("Bit=0->(Used) Bit=1->(Free)", 0), 0U);
        EXPECT_EQ(script_.Messages.back().Choice, Buttons::YesNo);
        // Up to the end of the disk the others agree; here the eighth groups use what is free.
        if (scattered) continue;
        const auto bytes = static_cast<std::size_t>(image.Tracks * 18 / 8);
        EXPECT_EQ(Disk.FatComputed.substr(0, bytes), Disk.FatBytes.substr(0, bytes));
    }
}

#ifdef BRINDLEMOOR_SHARED_SAMPLES

TEST_F(DragonSamplesTest, EverySectorOfAnotherProjectsVdkStandsInItsPlace) {
    // A disk without a file system: each sector begins with its track, its side and its number.
    Read(FileBytes(BRINDLEMOOR_SHARED_SAMPLES "/third-party/dragontools/testdisk-1s-40t.vdk"));
    EXPECT_EQ(Disk.ImageHeader, std::string("dk\x0C\0\x10\x10\x58\0\x28\x01\0\0", 12));
    ASSERT_EQ(Disk.ImageBytes.size(), 184320U);
    EXPECT_EQ(Sha256(Disk.ImageBytes),
              "ce1a9b21000b5d9211334f580ae5f040a08f074dae8b38615199c5f8646183e8");
    for (int sector = 0; sector < 720; ++sector) {
        std::string expected(256, '\0');
        expected[0] = static_cast<char>(sector / 18);
        expected[2] = static_cast<char>(sector % 18 + 1);
        ASSERT_EQ(Disk.ImageBytes.substr(static_cast<std::size_t>(sector) * 256, 256), expected);
    }
    EXPECT_NE(Disk.DiskFamily, kDragon);
}

#endif

}  // namespace
}  // namespace brindlemoor::test
