#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "convert/audio_fixture.h"
#include "convert/wav.h"
#include "core/runtime_failure.h"
#include "memory/counted_memory.h"
#include "support/disk_fixture.h"

namespace brindlemoor::test {
namespace {

constexpr std::size_t kMebibyte = 1 << 20;

using TapeMemoryTest = AudioTest;

TEST_F(TapeMemoryTest, AllocationsAreCounted) {
    CountMemory(kMebibyte);
    {
        const std::string two(2 * kMebibyte, 'x');
        const std::string small(1000, 'x');
        EXPECT_EQ(CountedMemory().LargeAllocations, 1U);
        EXPECT_EQ(CountedMemory().LargestSize, 2 * kMebibyte + 1);
        EXPECT_GE(CountedMemory().Live, 2 * kMebibyte + 1002);
    }
    EXPECT_LT(CountedMemory().Live, 1000U);
    EXPECT_GE(CountedMemory().Peak, 2 * kMebibyte + 1002);
}

TEST_F(TapeMemoryTest, AWavFileIsOneAllocationOfItsFinalSize) {
    for (const std::size_t contents : {20'000U, 60'000U}) {
        std::string stream = SomeStream(contents);
        std::string name = "A.CAS";
        CountMemory(kMebibyte);
        const std::string file = WavConvert(stream, name);
        const MemoryCount count = CountedMemory();
        ASSERT_GT(file.size(), 4 * kMebibyte);
        EXPECT_EQ(count.LargeAllocations, 1U);
        EXPECT_EQ(count.LargestSize, file.size() + 1);  // a text has a zero behind it
        EXPECT_EQ(file.capacity(), file.size());
        // Beside the file there are the pictures of the 256 bytes, half a megabyte at most.
        EXPECT_LT(count.Peak, file.size() + kMebibyte);
    }
}

TEST_F(TapeMemoryTest, ATapeThatCannotBeWrittenTakesNoMemoryForItsFile) {
    GiveOptions({{"SilenceStart", "0"}});
    std::string stream = SomeStream(60'000);
    std::string name = "A.CAS";
    CountMemory(kMebibyte);
    EXPECT_ANY_THROW(WavConvert(stream, name));
    EXPECT_EQ(CountedMemory().LargeAllocations, 0U);
}

TEST_F(TapeMemoryTest, AFileWhoseSizeFitsNoHeaderFailsAndTakesNoMemory) {
    // The last wave sticks out of the room, so that the data size is still a number of four bytes
    // and the RIFF size, 36 more, is not.
    GiveOptions({{"BitsPerSample", "5"}, {"SilenceStart", std::to_string(2147482597.0 / 44100)}});
    std::string stream = Leader(5);
    std::string name = "A.CAS";
    CountMemory(kMebibyte);
    EXPECT_EQ(FailureOf([&] { WavConvert(stream, name); }), kOverflow);
    EXPECT_EQ(CountedMemory().LargeAllocations, 0U);
    EXPECT_EQ(name, "A.CAS");
}

TEST_F(TapeMemoryTest, SamplesOfThousandsOfBytesAreNotCopied) {
    WavFile sound;
    sound.Bits = 4095 * 8;
    sound.Channels = 4095;
    sound.Samples = std::string(20'000, '\xF0');
    std::string file = sound.Bytes();
    std::string name = "A.WAV";
    CountMemory(2000);
    EXPECT_EQ(WavConvert(file, name), "");
    // At most the file with the byte behind it.
    EXPECT_LE(CountedMemory().LargeAllocations, 1U);
}

TEST_F(TapeMemoryTest, DecodingStoresNoSamplesBesideTheFile) {
    WavFile sound;
    sound.Samples = Modulated(Counting(60'000));
    std::string file = sound.Bytes();
    file.shrink_to_fit();
    sound = WavFile();
    const std::size_t size = file.size();
    ASSERT_GT(size, 8 * kMebibyte);
    std::string name = "A.WAV";
    CountMemory(kMebibyte);
    const std::string tape = WavConvert(file, name);
    const MemoryCount count = CountedMemory();
    EXPECT_EQ(tape, Counting(60'000));
    // One copy at most, for the byte that is put behind the samples.
    EXPECT_LE(count.LargeAllocations, 1U);
    EXPECT_LT(static_cast<double>(size + count.Peak), 2.2 * static_cast<double>(size));
}

}  // namespace
}  // namespace brindlemoor::test
