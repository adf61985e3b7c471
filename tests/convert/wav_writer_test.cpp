#include "convert/wav_writer.h"

#include <cmath>
#include <limits>

#include "convert/audio_fixture.h"
#include "convert/basic_fixture.h"
#include "convert/wav_reader.h"
#include "core/byte_helpers.h"
#include "core/runtime_failure.h"
#include "core/settings.h"

namespace brindlemoor::test {
namespace {

using Options = std::map<std::string, std::string>;
using Texts = std::vector<std::string>;

constexpr std::size_t kHeader = 44;

/// Periods of 36.75 and 18.375 samples about the level 110.
const std::string kWave1200 =
    Hex("6E5B4938291B1008020001050C1723324354677A8C9EAEBCC8D2D8DBDCD9D3CABEB0A08E");
const std::string kWave2400 = Hex("6E49291002010C2343678CAEC8D8DCD3BEA0");

class WavWriterTest : public AudioTest {
  protected:
    static std::string Written(const Options& options, const std::string& stream = SomeStream()) {
        GiveOptions(options);
        return CasToWav(stream);
    }

    static int FailureWith(const Options& options, const std::string& stream = SomeStream()) {
        GiveOptions(options);
        return FailureOf([&] { CasToWav(stream); });
    }
};

/// The picture of a byte, lowest bit first.
std::string Picture(char byte, const std::string& zero = kWave1200,
                    const std::string& one = kWave2400) {
    std::string picture;
    for (int bit = 0; bit < 8; ++bit) picture += (byte >> bit & 1) != 0 ? one : zero;
    return picture;
}

std::string Pictures(const std::string& stream) {
    std::string samples;
    for (const char byte : stream) samples += Picture(byte);
    return samples;
}

std::string Silence(std::size_t samples) {
    return std::string(samples, '\x80');
}

// Waves

TEST_F(WavWriterTest, AWaveBeginsAtMidLevelAndGoesDown) {
    EXPECT_EQ(GenerateWave(36.75, 110), kWave1200);
    EXPECT_EQ(GenerateWave(18.375, 110), kWave2400);
    EXPECT_EQ(GenerateWave(9.1875, 110), Hex("6E29020C438CC8DCBE"));
}

TEST_F(WavWriterTest, AWaveHasTheWholePartOfItsSamples) {
    EXPECT_EQ(GenerateWave(36, 110).size(), 36U);
    EXPECT_EQ(GenerateWave(35.999, 110).size(), 35U);
    EXPECT_EQ(GenerateWave(1, 110), "\x6E");
    EXPECT_EQ(GenerateWave(0.999, 110), "");
    EXPECT_EQ(GenerateWave(0, 110), "");
    EXPECT_EQ(GenerateWave(-5, 110), "");
    EXPECT_EQ(FailureOf([] { GenerateWave(1e300, 110); }), kOutOfMemory);
}

TEST_F(WavWriterTest, TheAmplitudeIsAlways110) {
    for (const int level : {110, 120, 145}) {
        const std::string wave = GenerateWave(1000, level);
        int least = 255;
        int most = 0;
        for (const char byte : wave) {
            least = std::min<int>(least, static_cast<unsigned char>(byte));
            most = std::max<int>(most, static_cast<unsigned char>(byte));
        }
        EXPECT_EQ(least, level - 110);
        EXPECT_EQ(most, level + 110);
    }
}

TEST_F(WavWriterTest, TheTurnHasEightDigits) {
    // The first sample stands 0.0000059 above its level, and the middle one 0.0000118 below; with
    // more digits they would be at 0 and 0.0000059, which is the other side of a half.
    EXPECT_EQ(GenerateWave(1, 110.5), "\x6F");
    EXPECT_EQ(GenerateWave(2, 110.50001), "\x6F\x6E");
}

TEST_F(WavWriterTest, ASampleOutsideAByteFails) {
    EXPECT_EQ(FailureOf([] { GenerateWave(36.75, 145); }), 0);
    EXPECT_EQ(FailureOf([] { GenerateWave(36.75, 146); }), kOverflow);
    EXPECT_EQ(FailureOf([] { GenerateWave(36.75, 109); }), kOverflow);
    EXPECT_EQ(FailureOf([] { GenerateWave(36.75, std::nan("")); }), kOverflow);
}

// The file

TEST_F(WavWriterTest, TheHeaderDeclares44BytesFewerThanThereAre) {
    const std::string file = Written({});
    const auto pos = static_cast<std::int64_t>(file.size() - kHeader);
    EXPECT_EQ(file.substr(0, kHeader), "RIFF" + LowFirst(pos - 8, 4) + "WAVEfmt " +
                                           Hex("10000000 0000 0100 44AC0000 44AC0000 0100 0800") +
                                           "data" + LowFirst(pos - 44, 4));
}

TEST_F(WavWriterTest, SilencePicturesAndOneSampleMoreMakeTheSamples) {
    const std::string stream = SomeStream();
    // The name block's trailer, the byte 149, is the first of the run that is the second leader.
    // Behind it stand 44100 \ 500 samples.
    const std::string first = stream.substr(0, 149);
    const std::string rest = stream.substr(149);
    EXPECT_EQ(Written({}).substr(kHeader),
              Silence(44100 - 1) + Pictures(first) + Silence(88) + Pictures(rest) + Silence(1));
}

TEST_F(WavWriterTest, TheSilenceOfTheHeaderShrinksAsItsSettingGrows) {
    const std::size_t size = Written({}).size();
    EXPECT_EQ(Written({{"SilenceHeader", "50"}}).size(), size - 88 + 882);
    EXPECT_EQ(Written({{"SilenceHeader", "44101"}}).size(), size - 88);
    // Both sides of the division are whole numbers first, halves to even.
    EXPECT_EQ(Written({{"SilenceHeader", "50.5"}}).size(), size - 88 + 882);
    EXPECT_EQ(Written({{"SilenceHeader", "49.6"}}).size(), size - 88 + 882);
    EXPECT_EQ(Written({{"SilenceHeader", "44101"}, {"SampleRate", "44100.6"}}).size(),
              size + 1 - 88 + 1);
}

TEST_F(WavWriterTest, WithoutASecondLeaderThereIsNoSilenceOfTheHeader) {
    const std::string stream = Leader(128) + TapeBlock(0xFF, "");
    EXPECT_EQ(Written({{"SilenceHeader", "0"}}, stream).substr(kHeader),
              Silence(44099) + Pictures(stream) + Silence(1));
}

TEST_F(WavWriterTest, TheSecondLeaderIsLookedForFromPosition120On) {
    // A leader of 246 bytes holds one of 128 at the offset 118 at the latest, one of 247 at 119.
    const std::size_t before = Written({}, Leader(246)).size();
    EXPECT_EQ(before, kHeader + 44100 + 246 * Picture('\x55').size());
    EXPECT_EQ(Written({}, Leader(247)).size(), before + Picture('\x55').size() + 88);
}

TEST_F(WavWriterTest, SilenceStartIsInSeconds) {
    const std::size_t size = Written({}).size();
    EXPECT_EQ(Written({{"SilenceStart", "3"}}).size(), size + 2 * 44100);
    EXPECT_EQ(Written({{"SilenceStart", "0.5"}}).size(), size - 22050);
}

TEST_F(WavWriterTest, SilenceBlockOutputShowAndFormatHaveNoEffect) {
    const std::string usual = Written({});
    EXPECT_EQ(
        Written(
            {{"SilenceBlock", "3"}, {"Output", "AUDIO"}, {"Show", "True"}, {"WavFormat", "85"}}),
        usual);
}

TEST_F(WavWriterTest, WidthAndChannelsChangeTheHeaderAndNotTheSamples) {
    const std::string usual = Written({});
    const std::string wide = Written({{"BitsPerSample", "16"}, {"NumChannels", "2"}});
    EXPECT_EQ(wide.substr(kHeader), usual.substr(kHeader));
    EXPECT_EQ(wide.substr(20, 16), Hex("0000 0200 44AC0000 10B10200 0400 1000"));
    EXPECT_EQ(Written({{"BitsPerSample", "12"}}).substr(32, 4), Hex("0200 0C00"));
    EXPECT_EQ(Written({{"BitsPerSample", "20"}}).substr(32, 4), Hex("0200 1400"));
}

TEST_F(WavWriterTest, TheVolumeIsTheLevelOfTheWaves) {
    const std::string file = Written({{"Volume", "145"}});
    EXPECT_EQ(file.substr(kHeader + 44099, 3), Hex("91 6C 4C"));
    EXPECT_EQ(FailureWith({{"Volume", "146"}}), kOverflow);
    EXPECT_EQ(FailureWith({{"Volume", "100"}}), kOverflow);
}

TEST_F(WavWriterTest, FrequenciesMayHaveFractions) {
    const std::string file = Written({{"Frec1200", "1094.68085106384 Empirical Toolshed"},
                                      {"Frec2400", "2004.54545454545 Empirical Toolshed"}},
                                     Leader(5));
    EXPECT_EQ(file.size(), kHeader + 44100 + 5 * 4 * (40 + 22));
}

// Settings

TEST_F(WavWriterTest, SettingsAreFoundByTheirPlaceBehindWavFormat) {
    const std::string usual = Written({});
    GiveOptions({});
    for (std::string& line : Settings.SettingsLines) {
        if (line.rfind("SampleRate", 0) == 0) line = "Other=44100";
        if (line.rfind("Volume", 0) == 0) line = "=110";
    }
    EXPECT_EQ(CasToWav(SomeStream()), usual);
    std::swap(Settings.SettingsLines[10], Settings.SettingsLines[11]);
    EXPECT_EQ(FailureOf([] { CasToWav(SomeStream()); }), kInvalidCall);
}

TEST_F(WavWriterTest, TheNumberAtTheStartOfAValueCounts) {
    EXPECT_EQ(Written({{"SampleRate", "44100 (Default)"},
                       {"BitsPerSample", "8 (Default)"},
                       {"NumChannels", "1 - Mono (Default)"},
                       {"Frec1200", " 1200 (Default)"}}),
              Written({}));
}

TEST_F(WavWriterTest, ValuesThatAreNoNumbersCountAs0) {
    EXPECT_EQ(FailureWith({{"SampleRate", "fast"}}), kInvalidCall);
    EXPECT_EQ(FailureWith({{"Frec1200", "low"}}), kDivisionByZero);
    EXPECT_EQ(FailureWith({{"SilenceStart", ""}}), kInvalidCall);
    EXPECT_EQ(FailureWith({{"Volume", "loud"}}), kOverflow);
    EXPECT_EQ(Written({{"NumChannels", "mono"}}).substr(20, 16),
              Hex("0000 0000 44AC0000 00000000 0000 0800"));
}

TEST_F(WavWriterTest, SettingsThatEndTooEarlyFail) {
    GiveOptions({});
    Settings.SettingsLines.resize(13);
    EXPECT_EQ(FailureOf([] { CasToWav(SomeStream()); }), kIndexRange);
    Settings.SettingsLines.push_back("no equals sign");
    EXPECT_EQ(FailureOf([] { CasToWav(SomeStream()); }), kDivisionByZero);
}

// Failures

TEST_F(WavWriterTest, WithoutSilenceAtTheStartNothingCanBeWritten) {
    EXPECT_EQ(FailureWith({{"SilenceStart", "0"}}), kInvalidCall);
    EXPECT_EQ(FailureWith({{"SilenceStart", "-1"}}), kInvalidCall);
    // Half a sample is rounded to none, and a little more to the first position there is.
    EXPECT_EQ(FailureWith({{"SampleRate", "44100"}, {"SilenceStart", "0.000011"}}), kInvalidCall);
    EXPECT_EQ(Written({{"SilenceStart", "0.000012"}}).substr(kHeader, 36),
              Picture('\x55').substr(0, 36));
}

TEST_F(WavWriterTest, ADivisorOf0Fails) {
    EXPECT_EQ(FailureWith({{"Frec1200", "0"}}), kDivisionByZero);
    EXPECT_EQ(FailureWith({{"Frec2400", "0"}}), kDivisionByZero);
    EXPECT_EQ(FailureWith({{"SilenceHeader", "0"}}), kDivisionByZero);
    EXPECT_EQ(FailureWith({{"SilenceHeader", "0.5"}}), kDivisionByZero);
}

TEST_F(WavWriterTest, TheRoomIsForWavesOf1200HertzAndEndsTheConversion) {
    EXPECT_EQ(FailureWith({{"BitsPerSample", "0"}}), kInvalidCall);
    EXPECT_EQ(FailureWith({{"BitsPerSample", "4"}}), kInvalidCall);
    EXPECT_EQ(FailureWith({{"Frec2400", "300"}}), kInvalidCall);
    EXPECT_EQ(FailureWith({{"SilenceHeader", "1"}}), kInvalidCall);
    EXPECT_EQ(FailureWith({{"SilenceHeader", "4"}}), 0);
    EXPECT_EQ(FailureWith({{"SampleRate", "44100"}, {"Frec1200", "-1200"}}), kInvalidCall);
}

TEST_F(WavWriterTest, TheLastWaveMayBeginAtTheLastSampleThereIsRoomFor) {
    // Behind the silence the fifth wave begins at 864, and the room is 45 + bits * 5 * 36.75.
    const std::string file = Written({{"BitsPerSample", "4.457"}}, Leader(5));  // 863.97
    EXPECT_EQ(file.substr(kHeader + 44100), Pictures(Leader(5)).substr(1, 864));
    EXPECT_EQ(FailureWith({{"BitsPerSample", "4.454"}}, Leader(5)), kInvalidCall);  // 863.42
}

TEST_F(WavWriterTest, ValuesTooLargeFail) {
    for (const auto& [key, value, failure] :
         {std::tuple<const char*, const char*, int>{"SampleRate", "3000000000", kOutOfMemory},
          {"BitsPerSample", "40000", kOverflow},
          {"NumChannels", "40000", kOverflow},
          {"SilenceStart", "50000", kOverflow},
          {"Frec1200", "0.001", kOutOfMemory},
          {"Frec2400", ".000000000000001", kOutOfMemory}}) {
        EXPECT_EQ(FailureWith({{key, value}}), failure) << key << "=" << value;
    }
}

/// The rule of the writer followed word for word on a buffer of silence; no result where it fails.
std::string SlowlyWritten(double bits, double zero, double one, std::int64_t start,
                          std::int64_t headerSilence, const std::string& stream) {
    std::string buffer(static_cast<std::size_t>(std::nearbyint(
                           45 + bits * static_cast<double>(stream.size()) * 44100 / zero +
                           static_cast<double>(start) * 44100)),
                       '\x80');
    const std::string zeroWave = GenerateWave(44100 / zero, 110);
    const std::string oneWave = GenerateWave(44100 / one, 110);
    const std::size_t leader = stream.find(Leader(128), 119);
    std::int64_t pos = start * 44100;
    for (std::size_t i = 0; i < stream.size(); ++i) {
        if (pos < 1 || pos > static_cast<std::int64_t>(buffer.size())) return {};
        const std::string wave = Picture(stream[i], zeroWave, oneWave);
        for (std::size_t at = 0; at < wave.size(); ++at) {
            const std::size_t place = static_cast<std::size_t>(pos) - 1 + at;
            if (place < buffer.size()) buffer[place] = wave[at];
        }
        pos += static_cast<std::int64_t>(wave.size());
        if (i == leader) pos += 44100 / headerSilence;
    }
    return pos < 0 ? std::string() : buffer.substr(0, static_cast<std::size_t>(pos));
}

TEST_F(WavWriterTest, EveryChoiceOfSettingsGivesWhatTheBufferHolds) {
    int written = 0;
    for (const std::string& stream : {SomeStream(0), SomeStream(300), Leader(247), Leader(248)}) {
        for (const int bits : {4, 8, 16}) {
            for (const int one : {900, 1200, 2400}) {
                for (const int silence : {-1, -3, -500, 1, 2, 3, 500}) {
                    GiveOptions({{"BitsPerSample", std::to_string(bits)},
                                 {"Frec2400", std::to_string(one)},
                                 {"SilenceHeader", std::to_string(silence)}});
                    const std::string expected = SlowlyWritten(bits, 1200, one, 1, silence, stream);
                    std::string file;
                    const int failure = FailureOf([&] { file = CasToWav(stream); });
                    if (failure == 0) ++written;
                    EXPECT_EQ(failure, expected.empty() ? kInvalidCall : 0);
                    EXPECT_TRUE(failure != 0 || file.substr(kHeader) == expected)
                        << stream.size() << " " << bits << " " << one << " " << silence;
                }
            }
        }
    }
    EXPECT_GT(written, 100);
}

// Both ways

TEST_F(WavWriterTest, TheReaderTellsBothSizesAndTakesA0ForA1WhereTheyMeet) {
    const std::string stream = SomeStream(300);
    std::string file = Written({}, stream);
    const std::string tape = WavToCas(file, "A.WAV");
    EXPECT_EQ(Shown(),
              (Texts{"Error El tamaño TOTAL es incorrecto en el Archivo :\r\nA.WAV"_w,
                     "Error El tamaño de los dato es incorrecto en el Archivo :\r\nA.WAV"_w}));
    // Waves begin downwards, so that the rising edge lies within them, at the sample 21 of a 0 and
    // 11 of a 1. Between a 0 and a 1 edges are 26 or 28 samples apart, which is a 1; only a 0
    // behind a 0 is one. Nothing is read of the first bit of all and of the first one behind the
    // silence.
    const auto bitAt = [&stream](std::size_t bit) { return stream[bit / 8] >> (bit % 8) & 1; };
    std::string expected;
    int value = 0;
    int count = 0;
    for (std::size_t bit = 1; bit < stream.size() * 8; ++bit) {
        if (bit == 149 * 8) continue;
        value |= (bitAt(bit - 1) | bitAt(bit)) << count;
        if (++count < 8) continue;
        expected += static_cast<char>(value);
        value = count = 0;
    }
    EXPECT_EQ(tape, expected);
}

}  // namespace
}  // namespace brindlemoor::test
