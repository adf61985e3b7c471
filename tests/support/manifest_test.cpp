#include "support/manifest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <stdexcept>

#include "support/sha256.h"

namespace brindlemoor::test {
namespace {

TEST(Manifest, EveryImageHasItsSizeAndDigest) {
    for (const ImageFacts& image : ReadImageTable()) {
        const std::string bytes = ReadTestData(image.Image);
        EXPECT_EQ(static_cast<std::int64_t>(bytes.size()), image.Size) << image.Image;
        EXPECT_EQ(Sha256(bytes), image.Sha256) << image.Image;
    }
}

TEST(Manifest, TheTablesHaveAsManyFilesAsTheImageTableSays) {
    std::map<std::string, std::int64_t> files;
    for (const DecbFacts& row : ReadDecbTable()) ++files[row.Image];
    for (const DamagedFacts& row : ReadDamagedTable()) ++files[row.Image];
    for (const DragonFacts& row : ReadDragonTable()) ++files[row.Image];
    for (const Os9Facts& row : ReadOs9Table()) files[row.Image] += row.Directory ? 0 : 1;
    for (const TapeFacts& row : ReadTapeTable()) ++files[row.Image];
    for (const ImageFacts& image : ReadImageTable()) {
        EXPECT_EQ(files[image.Image], image.Files) << image.Image;
    }
}

TEST(Manifest, AChainsPartsAddUpToTheFile) {
    for (const DecbFacts& row : ReadDecbTable()) {
        std::int64_t bytes = 0;
        for (const ChainPart& part : row.Chain) bytes += part.Count;
        EXPECT_EQ(bytes, row.Size) << row.Image << " " << row.Name;
        EXPECT_EQ(static_cast<std::int64_t>(row.Chain.size()), row.Granules) << row.Name;
        EXPECT_EQ(row.Chain.at(0).First, row.FirstGranule) << row.Name;
    }
}

TEST(Manifest, AnEmptyCellIsNoNumberAndAnEmptyText) {
    const std::vector<DragonFacts> rows = RowsOf(ReadDragonTable(), "dragon/dragon40-ss.dsk");
    const auto text = std::ranges::find(rows, "README", &DragonFacts::Name);
    ASSERT_NE(text, rows.end());
    EXPECT_TRUE(text->Protected);
    EXPECT_EQ(text->Type, kNoNumber);
    EXPECT_EQ(text->Ext, "TXT");
}

TEST(Manifest, AFileThatIsMissingIsAnError) {
    EXPECT_THROW(ReadTestData("no such file"), std::runtime_error);
}

}  // namespace
}  // namespace brindlemoor::test
