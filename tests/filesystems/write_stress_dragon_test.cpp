#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <vector>

#include "core/disk_state.h"
#include "filesystems/commit.h"
#include "filesystems/delete_file.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/write_fixture.h"

// Files are written to and deleted from a Dragon disk at random, beside a model of it that follows
// the rules of placing by itself: the whole image is compared after every step.
//
// What is not among the rules here, because the placing as it stands does not keep it: that files
// share no sectors (the bits of the sectors in a chain stay free, so that the next file takes them
// again), that a delete frees what the file held (it sets the bits one lower, and from the other
// end of each byte), and that a file of more than four extents survives a commit (its extents go to
// rows that are not its own).

namespace brindlemoor::test {
namespace {

constexpr int kSteps = 20000;
constexpr int kSectors = 720;
constexpr int kSector = 256;

/// The disk as it is to be.
struct Model {
    std::string Image;
    std::map<int, std::vector<int>> Chains;  ///< of the live rows: sectors, each an extent
    std::map<int, std::string> Files;        ///< of the live rows

    static int BitmapPlace(int track, int byte) {
        return (track * 18 + byte / 180) * kSector + byte % 180;
    }

    bool IsFree(const std::vector<bool>& used, int sector) const {
        const int byte = sector / 8;
        if (byte >= 360 || used.at(static_cast<std::size_t>(sector))) return false;
        const auto place = static_cast<std::size_t>(BitmapPlace(20, byte));
        return (Image.at(place) >> sector % 8 & 1) != 0;
    }

    enum class Outcome { Placed, PastTheEnd, NoExit };

    /// Where the sectors of a file go.
    Outcome Place(int count, std::vector<int>& chain) const {
        std::vector<bool> used(3000, false);
        int cursor = 324;
        int wraps = 0;
        for (int sector = 0; sector < count; ++sector) {
            int tries = 0;
            while (cursor <= kSectors && !IsFree(used, cursor)) {
                // More tries than there are sectors and wraps: they repeat.
                if (++tries > 2000) return Outcome::NoExit;
                if (sector % 36 != 0) {
                    ++cursor;
                } else if (cursor < 360) {
                    cursor = cursor < 36 ? cursor + 324 : cursor - 36;
                } else if (cursor + 18 > kSectors) {
                    cursor = 324 + ++wraps;
                } else {
                    cursor += 18;
                }
            }
            if (cursor > kSectors) return Outcome::PastTheEnd;
            chain.push_back(cursor);
            ++cursor;
            used.at(static_cast<std::size_t>(cursor)) = true;
        }
        return Outcome::Placed;
    }

    void PutSector(int sector, const std::string& bytes) {
        if (sector < kSectors)
            Image.replace(static_cast<std::size_t>(sector) * kSector, bytes.size(), bytes);
    }

    /// The bytes may lie over the bitmap, where a delete called its sectors free; it is kept apart
    /// meanwhile.
    void Write(int row, const std::string& data, const std::vector<int>& chain, bool whole) {
        std::string bitmap = Image.substr(360 * kSector, 180) + Image.substr(361 * kSector, 180);
        for (std::size_t place = 0; place < chain.size(); ++place) {
            const int sector = chain[place] + 1;
            PutSector(sector, data.substr(std::min(data.size(), place * kSector), kSector));
            if (sector >= 2880) continue;
            char& byte = bitmap.at(static_cast<std::size_t>(sector) / 8);
            byte = static_cast<char>(byte & ~(1 << sector % 8));
        }
        for (const int track : {16, 20}) {
            if (!whole) break;
            Image.replace(static_cast<std::size_t>(track * 18 * kSector), 180, bitmap, 0, 180);
            Image.replace(static_cast<std::size_t>((track * 18 + 1) * kSector), 180, bitmap, 180,
                          180);
        }
        Chains[row] = chain;
        Files[row] = data;
    }

    /// `bitmap` is the one in the program's memory, which need not be the image's.
    void Delete(int row, std::string bitmap) {
        for (const int sector : Chains.at(row)) {
            if (sector == 0) continue;  // one lower is no sector
            char& byte = bitmap.at(static_cast<std::size_t>(sector - 1) / 8);
            byte = static_cast<char>(byte | 128 >> (sector - 1) % 8);
        }
        Image.replace(360 * kSector, 180, bitmap, 0, 180);
        Image.replace(361 * kSector, 180, bitmap, 180, 180);
        Image.at(static_cast<std::size_t>(362 * kSector + row * 25 + row / 60)) = '\x80';
        Chains.erase(row);
        Files.erase(row);
    }
};

class DragonStress : public WriteTest {
  protected:
    void SetUp() override {
        WriteTest::SetUp();
        OpenNewDisk();
    }

    /// A disk without files on which a part of the sectors is taken; on some of them all that the
    /// search for a file's first sector comes to.
    void OpenNewDisk() {
        DragonBuilder disk;
        const int taken = Any(100);
        for (int sector = 0; sector < kSectors; ++sector) {
            if (Any(100) < taken) disk.Use(sector, 1);
        }
        if (Any(8) == 0) {
            for (int sector = 0; sector <= 324; sector += 36) disk.Use(sector, 1);
        }
        model_ = Model();
        model_.Image = disk.Image();
        Read(model_.Image);
    }

    int Any(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }

    void WriteOne(int step) {
        script_.Messages.clear();
        const auto size = static_cast<std::size_t>(Any(Any(4) == 0 ? 15000 : 1024) + 1);
        const std::string data = Pattern(size, static_cast<unsigned>(step));
        // The count of whole sectors is one more from 16 on.
        const int count = static_cast<int>((size + 255) / 256) + (size % 256 == 0 && size >= 4096);
        std::vector<int> chain;
        const Model::Outcome outcome = model_.Place(count, chain);
        const int rowsBefore = Disk.DirRows;
        Write("F" + std::to_string(step) + ".BIN", data);
        if (outcome == Model::Outcome::NoExit) {
            ++failures_;
            ASSERT_EQ(Shown().size(), 1U);
            ASSERT_EQ(Disk.DirRows, rowsBefore);
            return;
        }
        ASSERT_TRUE(script_.Messages.empty()) << Shown()[0];
        if (outcome == Model::Outcome::PastTheEnd) ++cut_;
        model_.Write(Disk.DirCount, data, chain, outcome == Model::Outcome::Placed);
        CheckRow(Disk.DirCount);
    }

    void CheckRow(int row) const {
        std::string chain;
        for (const int sector : model_.Chains.at(row)) {
            chain += static_cast<char>(sector >> 8);
            chain += static_cast<char>(sector);
            chain += '\1';
        }
        ASSERT_EQ(DirTable[row].Chain, chain);
        ASSERT_EQ(DirTable[row].Content, model_.Files.at(row));
    }

    void DeleteRow(int row) {
        model_.Delete(row, Disk.FatBytes);
        Disk.DirCount = row;
        DeleteDiskFile();
    }

    void DeleteOne() {
        if (model_.Files.empty()) return;
        DeleteRow(
            std::next(model_.Files.begin(), Any(static_cast<int>(model_.Files.size())))->first);
    }

    /// Deletes what a commit would not keep: files of no or more than four extents, those with a
    /// sector behind the disk's end, and the row behind the directory's last entry.
    void DeleteUnfit() {
        std::vector<int> unfit;
        for (const auto& [row, chain] : model_.Chains) {
            const bool cut = chain.size() * kSector < model_.Files.at(row).size();
            const bool behind = std::count(chain.begin(), chain.end(), kSectors) != 0;
            if (chain.size() > 4 || cut || behind || row >= 160) unfit.push_back(row);
        }
        for (const int row : unfit) DeleteRow(row);
    }

    /// A delete may call the sectors of track 20 free, and a file may come to lie over the block
    /// that tells a Dragon disk.
    static bool HasGeometryBlock() {
        return ImagePart(360 * kSector + 252, 4) == "\x28\x12\xD7\xED";
    }

    /// True for the sectors that a commit writes behind the files.
    static bool IsDirectory(int sector) {
        return (sector >= 290 && sector < 306) || (sector >= 362 && sector < 378);
    }

    /// Commits and reads the disk again. The bytes of a sector are those of the last row that has
    /// it.
    void Reopen() {
        DeleteUnfit();
        ASSERT_TRUE(ImageIs(model_.Image));
        CommitDirectory();
        std::map<int, int> owners;
        for (const auto& [row, chain] : model_.Chains) {
            for (const int sector : chain) owners[sector] = row;
        }
        if (!HasGeometryBlock()) return OpenNewDisk();
        ReadDisk();
        ASSERT_EQ(Disk.DiskFamily, kDragon);
        for (const auto& [row, chain] : model_.Chains) {
            const std::string& data = model_.Files.at(row);
            ASSERT_EQ(DirTable[row].Size, static_cast<std::int64_t>(data.size()));
            for (std::size_t place = 0; place < chain.size(); ++place) {
                if (owners.at(chain[place]) != row || IsDirectory(chain[place])) continue;
                ASSERT_EQ(DirTable[row].Content.substr(place * kSector, kSector),
                          data.substr(place * kSector, kSector));
                ++read_;
            }
        }
        // A new disk: on this one, files stand where others' bytes are.
        OpenNewDisk();
    }

    std::mt19937 random_{21};
    Model model_;
    int failures_ = 0;  ///< searches without an end
    int cut_ = 0;       ///< files that ran past the end of the disk
    int read_ = 0;      ///< sectors read back
};

TEST_F(DragonStress, TheImageIsAlwaysWhatTheRulesOfPlacingMake) {
    for (int step = 0; step < kSteps; ++step) {
        SCOPED_TRACE(step);
        if (Any(10) < 6) {
            WriteOne(step);
        } else {
            DeleteOne();
        }
        if (HasFatalFailure()) return;
        ASSERT_TRUE(ImageIs(model_.Image));
        if (step % 250 == 249) Reopen();
        if (HasFatalFailure()) return;
    }
    EXPECT_GT(failures_, 0);
    EXPECT_GT(cut_, 0);
    EXPECT_GT(read_, 100);
}

}  // namespace
}  // namespace brindlemoor::test
