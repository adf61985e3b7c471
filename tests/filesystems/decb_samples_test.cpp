#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "filesystems/decb.h"
#include "support/disk_fixture.h"
#include "support/manifest.h"
#include "support/sha256.h"

// The disks that independent tools made, against what those tools say that they hold.

namespace brindlemoor::test {
namespace {

using DecbSamplesTest = DiskTest;

void ExpectSameFields(const DirEntry& row, const DecbFacts& facts) {
    EXPECT_EQ(row.FileType, facts.TypeCode);
    EXPECT_EQ(row.FormatChar, facts.Flag);
    EXPECT_EQ(row.FirstUnit, facts.FirstGranule);
    EXPECT_EQ(row.UnitCount, facts.Granules);
    EXPECT_EQ(row.LastSectorBytes, facts.LastSectorBytes);
    EXPECT_EQ(row.Size, facts.Size);
    std::string chain;
    for (const ChainPart& part : facts.Chain) chain += static_cast<char>(part.First);
    EXPECT_EQ(row.Chain, chain);
}

std::vector<const DirEntry*> LiveRows() {
    std::vector<const DirEntry*> rows;
    for (int row = 0; row < Disk.DirRows; ++row) {
        if ((DirTable[row].Flags & kFlagDeleted) == 0) rows.push_back(&DirTable[row]);
    }
    return rows;
}

/// The FAT that is read has 68 bytes on all disks: a chain beyond it is not followed.
bool FitsTheFat(const DecbFacts& facts) {
    return std::all_of(facts.Chain.begin(), facts.Chain.end(),
                       [](const ChainPart& part) { return part.First < kDecbFatBytes; });
}

/// DMK images are unfolded by one fixed order of the sectors in a track. The disk that was sampled
/// was formatted in another one, which agrees with it in sectors 1 to 7 only; these files reach
/// beyond those.
const std::set<std::string> kInOtherSectors = {"PRIMES.BAS", "REMARK.BAS", "README.TXT",
                                               "R9999.DAT", "R2304.DAT"};

void ExpectSameImage(const ImageFacts& image) {
    const std::vector<DecbFacts> files = RowsOf(ReadDecbTable(), image.Image);
    const std::vector<const DirEntry*> rows = LiveRows();
    ASSERT_EQ(rows.size(), files.size());
    for (std::size_t file = 0; file < files.size(); ++file) {
        const DecbFacts& facts = files[file];
        const std::string name = UpperCase(facts.Name + "." + facts.Ext);
        SCOPED_TRACE(name);
        EXPECT_EQ(rows[file]->FullName, name);
        if (!FitsTheFat(facts)) continue;
        ExpectSameFields(*rows[file], facts);
        const bool same = Sha256(rows[file]->Content) == facts.Sha256;
        const bool elsewhere = image.Container == "DMK" && kInOtherSectors.count(name) == 1;
        EXPECT_EQ(same, !elsewhere);
    }
}

TEST_F(DecbSamplesTest, EveryFileIsReadAsTheToolsReadIt) {
    int images = 0;
    for (const ImageFacts& image : ReadImageTable()) {
        const bool damaged = image.Image.find("damaged") != std::string::npos;
        if (image.Family != "DECB" || damaged || image.Container == "JVC with header") continue;
        SCOPED_TRACE(image.Image);
        Read(TestData(image.Image));
        ExpectSameImage(image);
        EXPECT_EQ(Disk.TrackCount, image.Tracks);
        ++images;
    }
    EXPECT_EQ(images, 6);
}

TEST_F(DecbSamplesTest, UndamagedDisksOfUpTo40TracksBringUpNoMessage) {
    for (const char* image : {"decb/decb35-files.dsk", "decb/decb35-full.dsk",
                              "decb/decb35-fulldir.dsk", "decb/decb35-imgtool.dmk"}) {
        Read(TestData(image));
        EXPECT_EQ(Disk.DiskFamily, kDecb) << image;
    }
    EXPECT_EQ(Shown(), std::vector<std::string>());
}

TEST_F(DecbSamplesTest, DeletedFilesStayAsDeletedRows) {
    Read(TestData("decb/decb35-files.dsk"));
    EXPECT_EQ(Disk.DeletedCount, Disk.DirRows - static_cast<int>(LiveRows().size()));
    EXPECT_GT(Disk.DeletedCount, 0);
}

TEST_F(DecbSamplesTest, FilesThatTheDamageSparedAreWhole) {
    int spared = 0;
    for (const DamagedFacts& facts : ReadDamagedTable()) {
        if (facts.Hurt) continue;
        SCOPED_TRACE(facts.Image + " " + facts.Name);
        Read(TestData(facts.Image));
        const std::vector<const DirEntry*> rows = LiveRows();
        const auto row = std::find_if(rows.begin(), rows.end(), [&facts](const DirEntry* entry) {
            return entry->FullName == facts.Name + "." + facts.Ext;
        });
        ASSERT_NE(row, rows.end());
        EXPECT_EQ((*row)->Size, facts.Size);
        EXPECT_EQ(Sha256((*row)->Content), facts.Sha256);
        ++spared;
    }
    EXPECT_GT(spared, 5);
}

TEST_F(DecbSamplesTest, ALoopMakesTheDiskOs9) {
    Read(TestData("decb-damaged/loop.dsk"));
    EXPECT_EQ(Disk.DiskFamily, kOs9);
    EXPECT_EQ(Disk.DirRows, 5);
}

TEST_F(DecbSamplesTest, SharedAndFreedGranulesShowAsFatDifferences) {
    for (const char* image : {"decb-damaged/shared.dsk", "decb-damaged/freed.dsk"}) {
        script_.Messages.clear();
        Read(TestData(image));
        EXPECT_EQ(Disk.DiskFamily, kDecb);
        ASSERT_EQ(Shown().size(), 1U) << image;
        EXPECT_EQ(Shown()[0].rfind("Error!!!... En FAT en los granulos siguientes:", 0), 0U);
    }
}

TEST_F(DecbSamplesTest, AJvcHeaderOfFourBytesStaysInTheImage) {
    const std::string file = TestData("decb/decb35-files-header4.dsk");
    Read(file);
    EXPECT_EQ(Disk.ImageHeader, "");
    EXPECT_EQ(Disk.ImageBytes, file);
    EXPECT_EQ(Disk.TrackCount, 40);
}

}  // namespace
}  // namespace brindlemoor::test
