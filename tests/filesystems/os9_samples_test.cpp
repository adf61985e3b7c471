#include <gtest/gtest.h>

#include <map>
#include <set>

#include "core/byte_helpers.h"
#include "core/dates.h"
#include "core/disk_state.h"
#include "support/disk_fixture.h"
#include "support/manifest.h"
#include "support/sha256.h"

// The disks that independent tools made, against what those tools say that they hold.

namespace brindlemoor::test {
namespace {

using Os9SamplesTest = DiskTest;

const std::string kLastRow = "the last row walked is not listed";
const std::string kBehindDeleted = "a deleted entry ends the listing of its directory";

/// Paths of one image that the tools list and we do not, and the rule that makes it so. `Path` is
/// how they begin.
struct Difference {
    std::string Image;
    std::string Path;
    int Paths;
    std::string Rule;
};

const std::vector<Difference>& Differences() {
    static const std::vector<Difference> differences = {
        {"os9/os9-35x1.dsk", "scattered", 1, kLastRow},
        {"os9/os9-35x1.dsk", "filler_", 11, kBehindDeleted},
        {"os9/os9-40x2-boot.dsk", "startup", 1, kLastRow},
        {"os9/os9-80x2-short.dsk", "LIGHT/LAMP/WICK/entry", 42, kBehindDeleted},
        {"os9/os9-40x1-dragonboot.dsk", "startup", 1, kLastRow},
    };
    return differences;
}

/// The row of the root directory: behind the map, and behind the boot track where there is one.
int RootRow() {
    return DirTable[1].Name == "BOOTDECB" ? 2 : 1;
}

/// The rows below the root by their paths, "." and ".." left out. The order of the rows and their
/// levels carry the tree.
std::map<std::string, int> RowsByPath(int last) {
    std::map<std::string, int> rows;
    std::vector<std::string> folders;
    for (int row = RootRow() + 1; row <= last; ++row) {
        const DirEntry& entry = DirTable[row];
        if (entry.Name == "." || entry.Name == "..") continue;
        folders.resize(static_cast<std::size_t>(entry.TreeLevel - 1));
        std::string path = JoinText(folders, "/");
        path += path.empty() ? entry.Name : "/" + entry.Name;
        rows[path] = row;
        folders.push_back(entry.Name);
    }
    return rows;
}

std::string AttributeLetters(int attributes) {
    std::string letters = "dsewrewr";
    for (int bit = 0; bit < 8; ++bit) {
        if ((attributes >> bit & 1) == 0) letters[static_cast<std::size_t>(7 - bit)] = '-';
    }
    return letters;
}

/// "yyyy/mm/dd hhmm" from "dd/mm/yyyy hh:mm".
std::string ManifestDate(double date) {
    const std::string text = DateAndTimeText(date);
    return text.substr(6, 4) + "/" + text.substr(3, 2) + "/" + text.substr(0, 2) + " " +
           text.substr(11, 2) + text.substr(14, 2);
}

std::string ChainOf(const std::vector<ChainPart>& segments) {
    std::string chain;
    for (const ChainPart& segment : segments) {
        chain += NumberToBytes(static_cast<double>(segment.First), 3, "I") +
                 NumberToBytes(static_cast<double>(segment.Count), 2, "I");
    }
    return chain;
}

void ExpectSameRow(const DirEntry& row, const Os9Facts& facts) {
    SCOPED_TRACE(facts.Path);
    EXPECT_EQ(row.Name, facts.Name);
    EXPECT_EQ((row.Attributes & kAttributeDirectory) != 0, facts.Directory);
    EXPECT_EQ(AttributeLetters(row.Attributes), facts.Attributes);
    EXPECT_EQ(ManifestDate(row.ModifiedDate), facts.Modified);
    EXPECT_EQ(row.FirstUnit, facts.FdSector);
    EXPECT_EQ(row.Size, facts.Size);
    EXPECT_EQ(row.Chain, ChainOf(facts.Segments));
    std::int64_t sectors = 1;
    for (const ChainPart& segment : facts.Segments) sectors += segment.Count;
    EXPECT_EQ(row.SectorCount, sectors);
    EXPECT_EQ(static_cast<std::int64_t>(row.Content.size()), facts.Size);
    // The table has no digest of a directory.
    EXPECT_EQ(facts.Directory ? std::string() : Sha256(row.Content), facts.Sha256);
}

/// The difference that explains a path we do not list; fails the test when there is none.
const Difference* Explanation(const Os9Facts& facts) {
    for (const Difference& difference : Differences()) {
        const bool begins = facts.Path.rfind(difference.Path, 0) == 0;
        if (difference.Image == facts.Image && begins) return &difference;
    }
    ADD_FAILURE() << facts.Path << " is not listed, and no rule says why";
    return nullptr;
}

void ExpectSameImage(const std::string& image) {
    SCOPED_TRACE(image);
    const std::map<std::string, int> listed = RowsByPath(Disk.DirRows - 1);
    const std::map<std::string, int> walked = RowsByPath(Disk.DirCount);
    std::map<std::string, int> missing;
    std::set<std::string> known;
    for (const Os9Facts& facts : RowsOf(ReadOs9Table(), image)) {
        known.insert(facts.Path);
        const auto row = walked.find(facts.Path);
        if (row != walked.end()) ExpectSameRow(DirTable[row->second], facts);
        if (listed.count(facts.Path) == 1) continue;
        const Difference* difference = Explanation(facts);
        if (difference == nullptr) continue;
        ++missing[difference->Path];
        EXPECT_EQ(row != walked.end(), difference->Rule == kLastRow) << facts.Path;
    }
    for (const auto& [path, row] : walked) EXPECT_EQ(known.count(path), 1U) << path;
    for (const Difference& difference : Differences()) {
        if (difference.Image != image) continue;
        EXPECT_EQ(missing[difference.Path], difference.Paths) << difference.Path;
    }
}

TEST_F(Os9SamplesTest, ListingAndBytesAreThoseThatTheToolsRead) {
    int images = 0;
    for (const ImageFacts& image : ReadImageTable()) {
        if (image.Family != "OS9") continue;
        Read(TestData(image.Image));
        EXPECT_EQ(Disk.DiskFamily, kOs9);
        EXPECT_EQ(Disk.TotalSectors, image.Tracks * image.Sides * image.Sectors);
        ExpectSameImage(image.Image);
        ++images;
    }
    EXPECT_EQ(images, 4);
}

TEST_F(Os9SamplesTest, OnlyTheImagesThatAreShorterThanTheirDiskAskForTheSize) {
    for (const ImageFacts& image : ReadImageTable()) {
        if (image.Family != "OS9") continue;
        script_.Messages.clear();
        Read(TestData(image.Image));
        const bool shorter = image.Size < image.Tracks * image.Sides * image.Sectors * kSectorSize;
        EXPECT_EQ(Shown().size(), shorter ? 1U : 0U) << image.Image;
    }
}

TEST_F(Os9SamplesTest, ABootTrackOfTheColorComputerShowsAsARow) {
    Read(TestData("os9/os9-40x2-boot.dsk"));
    EXPECT_EQ(DirTable[1].FullName, "BOOTDECB");
    EXPECT_EQ(DirTable[1].FirstUnit, 1225);
    EXPECT_EQ(DirTable[1].Content, Disk.ImageBytes.substr(1224 * 256, 4608));
    Read(TestData("os9/os9-40x1-dragonboot.dsk"));
    EXPECT_EQ(DirTable[1].FullName, "ROOT.DIR");
}

TEST_F(Os9SamplesTest, TheVolumesHaveTheNamesThatTheToolsGaveThem) {
    const std::map<std::string, std::string> names = {
        {"os9/os9-35x1.dsk", "HARBOUR"},
        {"os9/os9-40x2-boot.dsk", "BOOT FORTY"},
        {"os9/os9-80x2-short.dsk", "EIGHTY TRACKS"},
        {"os9/os9-40x1-dragonboot.dsk", "BOOT FORTY"},
    };
    for (const auto& [image, name] : names) {
        Read(TestData(image));
        EXPECT_EQ(Disk.DiskName, name);
        EXPECT_EQ(ManifestDate(Disk.DiskDate), "2026/11/21 0946") << image;
    }
}

TEST_F(Os9SamplesTest, DeletedFilesHaveNoRows) {
    std::size_t deleted = 0;
    for (const ImageFacts& image : ReadImageTable()) {
        if (image.Family != "OS9") continue;
        Read(TestData(image.Image));
        const std::map<std::string, int> rows = RowsByPath(Disk.DirCount);
        for (const std::string& path : image.Deleted) EXPECT_EQ(rows.count(path), 0U) << path;
        EXPECT_EQ(Disk.DeletedCount, 0);
        deleted += image.Deleted.size();
    }
    EXPECT_EQ(deleted, 35U);
}

}  // namespace
}  // namespace brindlemoor::test
