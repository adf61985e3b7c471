#include <gtest/gtest.h>

#include <map>
#include <random>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "filesystems/commit.h"
#include "filesystems/delete_file.h"
#include "image/read_disk.h"
#include "support/decb_builder.h"
#include "support/write_fixture.h"

// Files are written and deleted at random until the disk is full and beyond, and the rules of the
// family are looked at after every step. Nothing is overwritten: that leaves the old granules taken
// with no file that holds them, as its own test says.

namespace brindlemoor::test {
namespace {

constexpr int kSteps = 20000;
constexpr std::size_t kFat = 78592;
constexpr std::size_t kGranule = 2304;

std::size_t GranulePlace(int granule) {
    return static_cast<std::size_t>(granule > 33 ? granule + 2 : granule) * kGranule;
}

class DecbStress : public WriteTest {
  protected:
    void SetUp() override {
        WriteTest::SetUp();
        Read(DecbBuilder().Image());
        empty_ = WriteTestFile(FreshFolder(), "EMPTY.DAT", "");
    }

    int Any(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }

    std::size_t AnySize() {
        const int kind = Any(10);
        if (kind == 0) return static_cast<std::size_t>(Any(70000) + 1);
        if (kind == 1)
            return kGranule * static_cast<std::size_t>(Any(4) + 1) +
                   static_cast<std::size_t>(Any(3)) - 1;
        return static_cast<std::size_t>(Any(6000) + 1);
    }

    /// Writes a file; one that the disk had no granules for is deleted again, for its row holds
    /// granules that the FAT calls free.
    void WriteOne(int step) {
        script_.Messages.clear();
        const bool empty = Any(30) == 0 && !HasName("EMPTY.DAT");
        const std::string data = empty ? "" : Pattern(AnySize(), static_cast<unsigned>(step));
        Write(empty ? empty_ : "F" + std::to_string(step) + ".BIN", data);
        if (script_.Messages.empty()) {
            files_[Disk.DirCount] = data;
            CheckContent(Disk.DirCount);
            return;
        }
        ++refused_;
        ASSERT_EQ(script_.Messages.size(), 1U);
        if (Shown()[0] == "No granules free") DeleteDiskFile();
    }

    static bool HasName(const std::string& name) {
        for (int row = 0; row < Disk.DirRows; ++row) {
            if (DirTable[row].FullName == name) return true;
        }
        return false;
    }

    void DeleteOne() {
        if (files_.empty()) return;
        const auto file = std::next(files_.begin(), Any(static_cast<int>(files_.size())));
        Disk.DirCount = file->first;
        const std::string chain = DirTable[Disk.DirCount].Chain;
        DeleteDiskFile();
        files_.erase(file);
        for (const char granule : chain) {
            const auto place = GranulePlace(static_cast<unsigned char>(granule));
            ASSERT_EQ(ImagePart(place, kGranule), std::string(kGranule, '\xFF'));
        }
    }

    /// The bytes of a file lie along its chain.
    void CheckContent(int row) const {
        const std::string& data = files_.at(row);
        const DirEntry& entry = DirTable[row];
        ASSERT_EQ(entry.Content, data);
        ASSERT_EQ(entry.Chain.size(), data.empty() ? 1 : (data.size() + kGranule - 1) / kGranule);
        for (std::size_t place = 0; place < entry.Chain.size(); ++place) {
            const std::string piece = CutBytes(data, static_cast<std::int64_t>(place * kGranule),
                                               static_cast<std::int64_t>(kGranule));
            const int granule = static_cast<unsigned char>(entry.Chain[place]);
            ASSERT_EQ(ImagePart(GranulePlace(granule), piece.size()), piece);
        }
    }

    /// The FAT in the image is what the chains make, no granule is in two of them, and no row is
    /// live but those of our files.
    void CheckFat() const {
        std::string fat(68, '\xFF');
        for (int row = 0; row < Disk.DirRows; ++row) {
            const DirEntry& entry = DirTable[row];
            ASSERT_EQ((entry.Flags & kFlagDeleted) == 0, files_.count(row) == 1) << row;
            for (std::size_t place = 0; place < entry.Chain.size(); ++place) {
                char& byte = fat.at(static_cast<unsigned char>(entry.Chain[place]));
                ASSERT_EQ(byte, '\xFF') << "two files share a granule";
                byte = place + 1 < entry.Chain.size()
                           ? entry.Chain[place + 1]
                           : static_cast<char>(entry.LastGranuleSectors | 0xC0);
            }
        }
        ASSERT_EQ(ImagePart(kFat, 68), fat);
    }

    /// Reads the disk again, sometimes behind a commit: every file is there as it was.
    void Reopen(bool commit) {
        if (commit) {
            CommitDirectory();
            CheckFat();
        }
        script_.Messages.clear();
        ReadDisk();
        ASSERT_EQ(Disk.DiskFamily, kDecb);
        ASSERT_TRUE(script_.Messages.empty()) << Shown()[0];
        for (const auto& file : files_) {
            ASSERT_EQ(DirTable[file.first].Size, static_cast<std::int64_t>(file.second.size()));
            CheckContent(file.first);
        }
    }

    std::mt19937 random_{20};
    std::map<int, std::string> files_;  ///< what each live row's file is to hold
    std::string empty_;                 ///< path of an empty PC file
    int refused_ = 0;
};

TEST_F(DecbStress, TheFatIsAlwaysThatOfTheFiles) {
    for (int step = 0; step < kSteps; ++step) {
        SCOPED_TRACE(step);
        // The disk fills up and empties by turns.
        const int writes = step / 500 % 2 == 0 ? 7 : 4;
        if (Any(10) < writes) {
            WriteOne(step);
        } else {
            DeleteOne();
        }
        if (HasFatalFailure()) return;
        CheckFat();
        if (!HasFatalFailure() && step % 100 == 99) Reopen(step % 200 == 199);
        if (HasFatalFailure()) return;
    }
    EXPECT_GT(refused_, 100);
}

}  // namespace
}  // namespace brindlemoor::test
