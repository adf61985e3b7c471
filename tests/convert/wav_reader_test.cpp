#include "convert/wav_reader.h"

#include <functional>
#include <random>

#include "convert/basic_fixture.h"
#include "convert/wav_fixture.h"
#include "core/byte_helpers.h"
#include "core/runtime_failure.h"

namespace brindlemoor::test {
namespace {

using namespace std::string_literals;
using WavReaderTest = TapeTest;
using Texts = std::vector<std::string>;

const std::string kTotalSize = "Error El tamaño TOTAL es incorrecto en el Archivo :\r\nA.WAV"_w;
const std::string kNoWave = "Error No Existe la clave 'WAVE' en el Archivo :\r\nA.WAV";
const std::string kNoFmt = "Error No Existe la clave 'fmt ' en el Archivo :\r\nA.WAV";
const std::string kByteRate = "ERROR!!! En Byte Rate";
const std::string kBlockAlign =
    "ERROR!!! En Block Alin debe ser igual a NumChannels * BitsPerSample/8";
const std::string kNoData = "Error No Existe la clave 'data' en el Archivo :\r\nA.WAV";
const std::string kDataSize =
    "Error El tamaño de los dato es incorrecto en el Archivo :\r\nA.WAV"_w;

/// The bytes of a WAV file, which gets the guard behind its samples.
std::string Decoded(const std::string& bytes) {
    std::string data = bytes;
    const std::string tape = WavToCas(data, "A.WAV");
    EXPECT_EQ(data, bytes + '\x8A');
    return tape;
}

std::string Decoded(const WavFile& file) {
    return Decoded(file.Bytes());
}

WavFile Tape(const std::string& samples) {
    WavFile file;
    file.Samples = samples;
    return file;
}

// Header

TEST_F(WavReaderTest, ASoundHeaderIsReadWithoutAWord) {
    EXPECT_EQ(Decoded(Tape(Modulated("tape"))), "tape");
    EXPECT_EQ(Shown(), Texts());
}

struct Fault {
    std::string Rule;
    std::function<void(WavFile&)> Spoil;
    Texts Messages;
};

TEST_F(WavReaderTest, EachFaultOfTheHeaderHasItsMessageAndTheWorkGoesOn) {
    const std::vector<Fault> faults = {
        {"RIFF size", [](WavFile& file) { file.RiffSize = 1; }, {kTotalSize}},
        {"RIFF size 0", [](WavFile& file) { file.RiffSize = 0; }, {kTotalSize}},
        {"RIFF size -1", [](WavFile& file) { file.RiffSize = 0xFFFFFFFF; }, {kTotalSize}},
        {"WAVE", [](WavFile& file) { file.Wave = "WAVe"; }, {kNoWave}},
        {"fmt", [](WavFile& file) { file.Fmt = "fmt_"; }, {kNoFmt}},
        {"rate",
         [](WavFile& file) { file.SampleRate = 44101, file.ByteRate = 44100; },
         {kByteRate}},
        {"rate 0", [](WavFile& file) { file.SampleRate = 0, file.ByteRate = 44100; }, {kByteRate}},
        {"align", [](WavFile& file) { file.BlockAlign = 2; }, {kBlockAlign}},
        {"data", [](WavFile& file) { file.DataKey = "LIST"; }, {kNoData}},
        {"format size 0", [](WavFile& file) { file.FormatSize = 0; }, {kNoData}},
        {"format size -1", [](WavFile& file) { file.FormatSize = 0xFFFFFFFF; }, {kNoData}},
        {"format size least", [](WavFile& file) { file.FormatSize = 0x80000000; }, {kNoData}},
        {"format size most", [](WavFile& file) { file.FormatSize = 0x7FFFFFFF; }, {kNoData}},
        {"data size", [](WavFile& file) { file.DataSize = 7; }, {kDataSize}},
        {"data size 0", [](WavFile& file) { file.DataSize = 0; }, {kDataSize}},
        {"data size -1", [](WavFile& file) { file.DataSize = 0xFFFFFFFF; }, {kDataSize}},
        {"all",
         [](WavFile& file) {
             file.RiffSize = file.DataSize = 1;
             file.Wave = file.Fmt = file.DataKey = "none";
             file.SampleRate = 1, file.ByteRate = 44100, file.BlockAlign = 9;
         },
         {kTotalSize, kNoWave, kNoFmt, kByteRate, kBlockAlign, kNoData, kDataSize}},
    };
    for (const Fault& fault : faults) {
        script_.Messages.clear();
        WavFile file = Tape(Modulated("tape"));
        fault.Spoil(file);
        EXPECT_EQ(Decoded(file), "tape") << fault.Rule;
        EXPECT_EQ(Shown(), fault.Messages) << fault.Rule;
        for (const ShownMessage& message : script_.Messages) {
            EXPECT_EQ(message.Choice, Buttons::Ok);
        }
    }
}

TEST_F(WavReaderTest, ALongerFormatChunkMovesTheKeyButNotTheDataSizeNorTheSamples) {
    WavFile file = Tape(Modulated("tape"));
    file.FormatSize = 18;
    // The two bytes more count as samples and shorten nothing: the first period grows by two.
    EXPECT_EQ(Decoded(file), "tape");
    EXPECT_EQ(Shown(), Texts{kDataSize});
}

TEST_F(WavReaderTest, TheFormatTagIsNotLookedAt) {
    std::string bytes = Tape(Modulated("tape")).Bytes();
    bytes[20] = '\x55';
    EXPECT_EQ(Decoded(bytes), "tape");
    EXPECT_EQ(Shown(), Texts());
}

// Edges

TEST_F(WavReaderTest, PeriodsFrom10To80PositionsAreBits) {
    const std::vector<std::size_t> byte = {18, 36, 18, 36, 18, 36, 18, 36};
    EXPECT_EQ(Decoded(Tape(Edges(byte))), "\x55");
    for (const std::size_t ignored : {2U, 9U, 81U, 500U}) {
        for (std::size_t at = 0; at <= byte.size(); ++at) {
            std::vector<std::size_t> periods = byte;
            periods.insert(periods.begin() + static_cast<std::ptrdiff_t>(at), ignored);
            EXPECT_EQ(Decoded(Tape(Edges(periods))), "\x55") << ignored << " " << at;
        }
    }
    EXPECT_EQ(Decoded(Tape(Edges(std::vector<std::size_t>(8, 10)))), "\xFF");
    EXPECT_EQ(Decoded(Tape(Edges(std::vector<std::size_t>(8, 80)))), std::string(1, '\0'));
    EXPECT_EQ(Decoded(Tape(Edges(std::vector<std::size_t>(8, 81)))), "");
    EXPECT_EQ(Decoded(Tape(Edges(std::vector<std::size_t>(8, 9)))), "");
}

TEST_F(WavReaderTest, TheLimitIsA1500thOfTheByteRateAndBelongsToOne) {
    // 44100 / 1500 = 29.4
    EXPECT_EQ(Decoded(Tape(Edges(std::vector<std::size_t>(8, 29)))), "\xFF");
    EXPECT_EQ(Decoded(Tape(Edges(std::vector<std::size_t>(8, 30)))), std::string(1, '\0'));
    // Halves go to the even neighbour: 30750 / 1500 = 20.5, 32250 / 1500 = 21.5.
    for (const auto& [rate, limit] : {std::pair<int, std::size_t>{30750, 20}, {32250, 22}}) {
        WavFile file = Tape(Edges(std::vector<std::size_t>(8, limit)));
        file.SampleRate = rate;
        EXPECT_EQ(Decoded(file), "\xFF") << rate;
        file.Samples = Edges(std::vector<std::size_t>(8, limit + 1));
        EXPECT_EQ(Decoded(file), std::string(1, '\0')) << rate;
    }
}

TEST_F(WavReaderTest, AByteRateOf0OrBelowMakesEveryBit0) {
    for (const std::int64_t rate : {0LL, 0x80000000LL, 0xFFFFFFFFLL}) {
        WavFile file = Tape(Modulated("\xFF\xFF"));
        file.ByteRate = rate;
        EXPECT_EQ(Decoded(file), std::string(2, '\0')) << rate;
    }
}

TEST_F(WavReaderTest, The148IsHighAnd147Low) {
    std::string samples = Modulated("tape");
    for (char& sample : samples) sample = static_cast<char>(sample == '\xF0' ? 148 : 147);
    EXPECT_EQ(Decoded(Tape(samples)), "tape");
    for (char& sample : samples) sample = static_cast<char>(sample == '\x94' ? 147 : 0);
    EXPECT_EQ(Decoded(Tape(samples)), "");
}

TEST_F(WavReaderTest, SamplesThatNeverReach148GiveNothing) {
    for (const int high : {100, 147}) {
        std::string samples = Modulated("tape");
        for (char& sample : samples) sample = static_cast<char>(sample == '\xF0' ? high : 0);
        EXPECT_EQ(Decoded(Tape(samples)), "") << high;
    }
}

TEST_F(WavReaderTest, OnlyRisingEdgesCount) {
    // The same rising edges with all falling ones elsewhere.
    std::string samples = Modulated("tape");
    for (std::size_t i = 1; i + 4 < samples.size(); ++i) {
        if (samples[i] == '\xF0' && samples[i - 1] == '\x10') samples.replace(i, 4, 4, '\xF0');
    }
    EXPECT_EQ(Decoded(Tape(samples)), "tape");
}

TEST_F(WavReaderTest, SilenceGivesNothing) {
    EXPECT_EQ(Decoded(Tape(std::string(100'000, '\x80'))), "");
    EXPECT_EQ(Decoded(Tape("")), "");
}

TEST_F(WavReaderTest, AFileThatBeginsHighHasItsFirstEdgeAtItsFirstSample) {
    std::string samples = std::string(1, '\xF0') + Modulated("tape").substr(1);
    EXPECT_EQ(Decoded(Tape(samples)), "tape");
}

TEST_F(WavReaderTest, ByteBoundariesBeginAtTheFirstBitAndAreNeverMoved) {
    std::vector<std::size_t> periods = {36};
    for (int i = 0; i < 16; ++i) periods.push_back(i % 2 == 0 ? 18 : 36);
    EXPECT_EQ(Decoded(Tape(Edges(periods))), "\xAA\xAA");
}

TEST_F(WavReaderTest, BitsThatMakeNoByteAreLost) {
    EXPECT_EQ(Decoded(Tape(Edges(std::vector<std::size_t>(15, 18)))), "\xFF");
}

// Widths and channels

/// 8-bit samples as signed 16-bit ones, each `copies` times.
std::string Wide(const std::string& samples, int copies = 1) {
    std::string wide;
    for (const char sample : samples) {
        for (int i = 0; i < copies; ++i) wide += sample == '\xF0' ? "\x00\x40"s : "\x00\xC0"s;
    }
    return wide;
}

TEST_F(WavReaderTest, SixteenBitMonoCountsPositionsOfBytes) {
    WavFile file;
    file.Bits = 16;
    file.SampleRate = 22050;
    file.Samples = Wide(Modulated("tape", 18, 9));
    EXPECT_EQ(Decoded(file), "tape");
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(WavReaderTest, SixteenBitSamplesAreSignedAndHaveTheSameThreshold) {
    WavFile file;
    file.Bits = 16;
    file.SampleRate = 22050;
    for (const int high : {147, 148}) {
        file.Samples.clear();
        for (const char sample : Modulated("tape", 18, 9)) {
            file.Samples += LowFirst(sample == '\xF0' ? high : -1, 2);
        }
        EXPECT_EQ(Decoded(file), high == 148 ? "tape" : "") << high;
    }
}

TEST_F(WavReaderTest, SixteenBitStereoIsReadAtEveryByte) {
    WavFile file;
    file.Bits = 16;
    file.Channels = 2;
    file.SampleRate = 11025;
    // Numbers whose bytes are the same the other way round stay high, or low, at every byte.
    for (const char sample : Modulated("tape", 9, 4)) {
        file.Samples += std::string(4, sample == '\xF0' ? '\x40' : '\xC0');
    }
    EXPECT_EQ(Decoded(file), SlowlyDecoded(file.Bytes()));
    EXPECT_EQ(Decoded(file).size(), 4U);
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(WavReaderTest, OtherWidthsAreNumbersOfSoManyBytes) {
    // A sample of 12 bits is read as the one byte that is whole in it.
    for (const int bits : {12, 24, 32}) {
        WavFile file;
        file.Bits = bits;
        file.ByteRate = 44100;
        const auto bytes = static_cast<std::size_t>(bits / 8);
        for (const char sample : Modulated("tape", 36 / bytes, 18 / bytes)) {
            file.Samples += LowFirst(sample == '\xF0' ? 0x7F : 0, bits / 8 - 1) +
                            LowFirst(sample == '\xF0' ? 0x7F : 0, 1);
        }
        if (bits == 12) file.Samples = Modulated("tape");
        EXPECT_EQ(Decoded(file), SlowlyDecoded(file.Bytes())) << bits;
        EXPECT_EQ(Decoded(file), "tape") << bits;
    }
}

// Scans without an end, and numbers that cannot be

TEST_F(WavReaderTest, EightBitStereoFailsAndLeavesTheDataAlone) {
    WavFile file = Tape(Modulated("tape"));
    for (const auto& [bits, channels] : {std::pair<int, int>{8, 2}, {16, 3}, {0, 1}, {7, 1}}) {
        file.Bits = bits;
        file.Channels = channels;
        std::string data = file.Bytes();
        EXPECT_EQ(FailureOf([&] { WavToCas(data, "A.WAV"); }), kOutOfMemory) << bits;
        EXPECT_EQ(data, file.Bytes());
    }
}

TEST_F(WavReaderTest, AFileThatEndsInItsHeaderIsNotScanned) {
    WavFile file;
    file.Channels = 2;
    EXPECT_EQ(Decoded(file.Bytes().substr(0, 43)), "");
    std::string data = file.Bytes();
    EXPECT_EQ(FailureOf([&] { WavToCas(data, "A.WAV"); }), kOutOfMemory);
}

TEST_F(WavReaderTest, NoChannelsFail) {
    WavFile file = Tape(Modulated("tape"));
    file.Channels = 0;
    std::string data = file.Bytes();
    EXPECT_EQ(FailureOf([&] { WavToCas(data, "A.WAV"); }), kDivisionByZero);
    EXPECT_EQ(data, file.Bytes());
    EXPECT_EQ(Shown(), Texts());
    data = "RIFF";
    EXPECT_EQ(FailureOf([&] { WavToCas(data, "A.WAV"); }), kDivisionByZero);
    EXPECT_EQ(Shown(), (Texts{kTotalSize, kNoWave, kNoFmt, kNoData, kDataSize}));
}

TEST_F(WavReaderTest, AStepBackwardsGivesNothing) {
    WavFile file = Tape(Modulated("tape"));
    file.Channels = 0xFFFF;
    EXPECT_EQ(Decoded(file), "");
}

TEST_F(WavReaderTest, NegativeBitsOfNegativeChannelsFail) {
    WavFile file = Tape(Modulated("tape"));
    file.Channels = 0xFFFF;
    file.Bits = 0xFFF8;
    std::string data = file.Bytes();
    EXPECT_EQ(FailureOf([&] { WavToCas(data, "A.WAV"); }), kInvalidCall);
    EXPECT_EQ(data, file.Bytes());
}

TEST_F(WavReaderTest, SamplesOfMoreThanEightBytesCountAsSilence) {
    WavFile file = Tape(std::string(100'000, '\xF0'));
    file.Bits = 0x7FF8;
    EXPECT_EQ(Decoded(file), "");
    file = Tape(Modulated("tape"));
    file.ByteRate = 44100;
    for (const int bytes : {8, 9}) {
        file.Bits = 8 * bytes;
        file.Channels = bytes;
        EXPECT_EQ(Decoded(file).empty(), bytes == 9) << bytes;
    }
}

// Damage

/// Decodes as the rule does, or fails as a header without sense does.
void DecodeHostile(const std::string& bytes) {
    std::string data = bytes;
    try {
        const std::string tape = WavToCas(data, "A.WAV");
        EXPECT_EQ(tape, SlowlyDecoded(bytes));
    } catch (const RuntimeFailure& failure) {
        EXPECT_TRUE(failure.Number == kOutOfMemory || failure.Number == kDivisionByZero ||
                    failure.Number == kInvalidCall);
        EXPECT_EQ(data, bytes);
    }
}

TEST_F(WavReaderTest, AFileMayEndAnywhere) {
    for (const int bits : {8, 16}) {
        WavFile file = Tape(Modulated("T", 36, 18));
        file.Bits = bits;
        const std::string bytes = file.Bytes();
        for (std::size_t size = 0; size <= bytes.size(); ++size) {
            DecodeHostile(bytes.substr(0, size));
        }
    }
}

TEST_F(WavReaderTest, TenThousandSpoiledFilesDoNoHarm) {
    std::mt19937 random(20261121);
    WavFile eight = Tape(Modulated("UU", 36, 18));
    WavFile sixteen = eight;
    sixteen.Bits = 16;
    sixteen.SampleRate = 22050;
    sixteen.Samples = Wide(Modulated("UU", 18, 9));
    for (int round = 0; round < 10'000; ++round) {
        script_.Messages.clear();
        std::string bytes = (round % 2 == 0 ? eight : sixteen).Bytes();
        for (std::size_t i = random() % 6 + 1; i > 0; --i) {
            const std::size_t range = random() % 3 == 0 ? 44 : bytes.size();
            // Widths of 5 bytes and more, where numbers have fractions, are left to the fuzzer.
            const std::size_t at = random() % range;
            if (at != 34 && at != 35) bytes[at] = static_cast<char>(random());
        }
        DecodeHostile(bytes);
    }
}

}  // namespace
}  // namespace brindlemoor::test
