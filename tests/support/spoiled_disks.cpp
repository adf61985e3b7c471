#include "support/spoiled_disks.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "core/disk_state.h"
#include "core/runtime_failure.h"
#include "image/read_disk.h"

namespace brindlemoor::test {

namespace {

constexpr std::size_t kSector = 256;
constexpr int kChanges = 8;
constexpr int kRoundsPerCopy = 20;

std::size_t AnyOf(std::mt19937& random, std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
}

}  // namespace

void ReadHostile(const std::string& image) {
    static const std::set<int> kKnown = {kInvalidCall, kOverflow, kOutOfMemory, kIndexRange,
                                         kDivisionByZero};
    Disk.ImageBytes = image;
    try {
        ReadDisk();
    } catch (const RuntimeFailure& failure) {
        ASSERT_EQ(kKnown.count(failure.Number), 1U) << failure.Number;
        return;
    }
    ASSERT_LE(Disk.DirRows, kDirTableRows);
    for (int row = 0; row < Disk.DirRows; ++row) {
        ASSERT_LE(DirTable[row].Size, static_cast<std::int64_t>(DirTable[row].Content.size()));
    }
}

void ReadTruncated(const std::string& good) {
    for (std::size_t length = 0; length <= good.size(); length += kSector) {
        ReadHostile(good.substr(0, length));
        ReadHostile(good.substr(0, length + 1 + length / kSector % 251));
    }
}

void ReadSpoiled(const std::string& good, unsigned seed, int rounds,
                 const std::vector<ByteRange>& ranges) {
    std::mt19937 random(seed);
    std::string image;
    for (int round = 0; round < rounds; ++round) {
        if (round % kRoundsPerCopy == 0) image = good;
        for (int change = 0; change < kChanges; ++change) {
            const ByteRange& range = ranges[AnyOf(random, ranges.size())];
            const std::size_t place = change % 2 == 0 ? range.Offset + AnyOf(random, range.Length)
                                                      : AnyOf(random, image.size());
            image.at(place) = static_cast<char>(random() & 0xFF);
        }
        ReadHostile(image);
        if (testing::Test::HasFatalFailure()) FAIL() << "round " << round;
    }
}

}  // namespace brindlemoor::test
