// Sound that other tools made of tapes: castool of MAME 0.251, resampled; cecb and makewav of
// ToolShed 2.2. What cannot be decoded stands in a table with the rule that is the reason, and a
// recording that begins to decode fails as well.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "convert/basic_fixture.h"
#include "convert/tape_fixture.h"
#include "convert/wav.h"
#include "core/byte_helpers.h"
#include "support/manifest.h"
#include "support/sha256.h"

namespace brindlemoor::test {
namespace {

using WavSamplesTest = TapeTest;
using Texts = std::vector<std::string>;

const std::string kNameBlock("\x55\x3C\0\x0F", 4);

const std::string kDecodes = "decodes";
const std::string kLostBit =
    "the last bit in front of the silence behind the name block has no end, and is lost: all that "
    "follows is out of step";
const std::string kTooShort = "periods of a 1 are 9 positions and fewer, which count for nothing";
const std::string kMidWave =
    "waves begin downwards; where a 0 meets a 1 both periods are beyond the limit and so a 0";

struct Recording {
    std::string Wav;   ///< in tests/data
    std::string Tape;  ///< the CAS file with the same blocks, where there is one
    std::string Outcome;
    Texts Messages = {};  ///< about the header, as far as the name
};

/// sox fills samples up to an even number, which the data size does not count.
const Texts kDataSize = {"Error El tamaño de los dato es incorrecto en el Archivo :"_w};

/// cecb and makewav declare two bytes more than they wrote.
const Texts kRiffSize = {"Error El tamaño TOTAL es incorrecto en el Archivo :"_w};

const std::vector<Recording> kRecordings = {
    {"tape-castool/tiny-44100.wav", "tape/tiny.cas", kLostBit},
    {"tape-castool/ml-44100.wav", "tape/ml.cas", kLostBit, kDataSize},
    {"tape-castool/tiny-22050-16.wav", "tape/tiny.cas", kDecodes},
    {"tape-castool/ml-22050-16.wav", "tape/ml.cas", kDecodes},
    {"tape-castool/tiny-22050.wav", "tape/tiny.cas", kTooShort},
    {"tape-castool/ml-22050.wav", "tape/ml.cas", kTooShort},
    {"tape/castool-tiny-22050.wav", "tape/tiny.cas", kTooShort},
    {"tape/castool-tiny-11025.wav", "tape/tiny.cas", kTooShort},
    {"tape/cecb-44100.wav", "tape/tiny.cas", kLostBit, kRiffSize},
    {"tape/cecb-22050.wav", "tape/tiny.cas", kLostBit, kRiffSize},
    {"tape/cecb-11025.wav", "tape/tiny.cas", kTooShort, kRiffSize},
    {"tape/makewav-44100.wav", "", kMidWave, kRiffSize},
    {"tape/makewav-22050.wav", "", kMidWave, kRiffSize},
    {"tape/makewav-11025.wav", "", kTooShort, kRiffSize},
};

std::string Decoded(const Recording& recording) {
    std::string data = TestData(recording.Wav);
    std::string name = recording.Wav;
    return WavConvert(data, name);
}

TEST_F(WavSamplesTest, RecordingsDecodeOrNotAsTheTableSays) {
    for (const Recording& recording : kRecordings) {
        script_.Messages.clear();
        const std::string tape = Decoded(recording);
        const Texts blocks = BlocksOf(tape);
        const bool hasName = !blocks.empty() && blocks[0].substr(0, 4) == kNameBlock;
        EXPECT_EQ(hasName, recording.Outcome == kDecodes || recording.Outcome == kLostBit)
            << recording.Wav;
        const bool whole = hasName && blocks == BlocksOf(TestData(recording.Tape));
        EXPECT_EQ(whole, recording.Outcome == kDecodes) << recording.Wav;
        Texts told;
        for (const std::string& text : Shown()) told.push_back(text.substr(0, text.find("\r\n")));
        EXPECT_EQ(told, recording.Messages) << recording.Wav;
    }
}

TEST_F(WavSamplesTest, EveryRecordingIsInTheTable) {
    std::size_t ofManifest = 0;
    for (const TapeFacts& facts : ReadTapeTable()) {
        if (facts.Rate == kNoNumber) continue;
        ++ofManifest;
        const auto isIt = [&](const Recording& recording) { return recording.Wav == facts.Image; };
        EXPECT_EQ(std::count_if(kRecordings.begin(), kRecordings.end(), isIt), 1) << facts.Image;
    }
    EXPECT_EQ(ofManifest + 6, kRecordings.size());
}

TEST_F(WavSamplesTest, CastoolPlayedTheTapesThatWeMake) {
    for (const std::string name : {"tiny", "ml"}) {
        // cecb begins its tapes with 12 zeros, which make them none of ours.
        const CasResult file = Cas(TestData("tape/" + name + ".cas").substr(12));
        EXPECT_EQ(Cas(file.Data, file.Name).Data, TestData("tape-castool/" + name + ".cas"));
        EXPECT_EQ(BlocksOf(TestData("tape-castool/" + name + ".cas")),
                  BlocksOf(TestData("tape/" + name + ".cas")));
    }
}

TEST_F(WavSamplesTest, WhatDecodesBecomesTheFileOfTheManifest) {
    int decoded = 0;
    for (const Recording& recording : kRecordings) {
        if (recording.Outcome != kDecodes) continue;
        const CasResult file = Cas(Decoded(recording));
        const bool machine = file.Type == 2;
        const std::string contents =
            machine ? file.Data.substr(5, file.Data.size() - 10) : file.Data.substr(3);
        const TapeFacts facts = RowsOf(ReadTapeTable(), recording.Tape).at(0);
        EXPECT_EQ(Sha256(contents), facts.Sha256) << recording.Wav;
        EXPECT_EQ(file.Name, facts.Name + (machine ? ".BIN" : ".BAS")) << recording.Wav;
        ++decoded;
    }
    EXPECT_EQ(decoded, 2);
}

/// `bytes` with a bit 0 more at the place `at`; bit 0 of a byte is the first.
std::string WithZeroBit(const std::string& bytes, std::size_t at) {
    std::string bits;
    for (const char byte : bytes) bits += ByteToBits(static_cast<unsigned char>(byte));
    bits.insert(at, 1, '0');
    std::string result;
    for (std::size_t i = 0; i + 8 <= bits.size(); i += 8) {
        int value = 0;
        for (std::size_t bit = 0; bit < 8; ++bit) value |= (bits[i + bit] - '0') << bit;
        result += static_cast<char>(value);
    }
    return result;
}

TEST_F(WavSamplesTest, WithTheLostBitPutBackTheBlocksAreThoseOfTheTape) {
    int mended = 0;
    for (const Recording& recording : kRecordings) {
        if (recording.Outcome != kLostBit) continue;
        const std::string bytes = Decoded(recording);
        const Texts blocks = BlocksOf(TestData(recording.Tape));
        // The trailer behind the name block, or what else stands in front of the silence.
        std::size_t at = (bytes.find(kNameBlock) + 20) * 8;
        const std::size_t last = at + 16 * 8;
        while (at < last && BlocksOf(WithZeroBit(bytes, at)) != blocks) ++at;
        EXPECT_LT(at, last) << recording.Wav;
        ++mended;
    }
    EXPECT_EQ(mended, 4);
}

/// Distances between rising edges, from the second one on, and how often each occurs.
std::map<std::size_t, int> Periods(const std::string& wav) {
    std::map<std::size_t, int> periods;
    std::size_t last = 0;
    for (std::size_t i = 45; i < wav.size(); ++i) {
        const bool high = static_cast<unsigned char>(wav[i]) >= 148;
        const bool before = static_cast<unsigned char>(wav[i - 1]) >= 148;
        if (!high || before) continue;
        if (last != 0) ++periods[i - last];
        last = i;
    }
    return periods;
}

TEST_F(WavSamplesTest, TheReasonsAreThoseOfTheTable) {
    for (const Recording& recording : kRecordings) {
        const std::string wav = TestData(recording.Wav);
        int ofNine = 0;
        int atMostLimit = 0;
        int all = 0;
        std::string rate = wav.substr(28, 4);
        const double limit = BytesToNumber(rate, "") / 1500;
        for (const auto& [period, count] : Periods(wav)) {
            all += count;
            if (period <= 9) ofNine += count;
            if (static_cast<double>(period) < limit) atMostLimit += count;
        }
        if (recording.Outcome == kTooShort) {
            EXPECT_GT(ofNine, 100) << recording.Wav;
        }
        if (recording.Outcome != kMidWave) continue;
        // Of the leader's bits, one half are 1; hardly any period is one of them.
        EXPECT_LT(atMostLimit, all / 10) << recording.Wav;
        EXPECT_EQ(ofNine, 0) << recording.Wav;
    }
}

#ifdef BRINDLEMOOR_SHARED_SAMPLES

std::string DecodedThirdParty(const std::string& name) {
    std::string data = FileBytes(BRINDLEMOOR_SHARED_SAMPLES "/third-party/dragonpy/" + name);
    std::string path = name;
    return WavConvert(data, path);
}

/// `bytes` without their first `count` bits, of which bit 0 is the first.
std::string WithoutBits(const std::string& bytes, int count) {
    std::string shifted;
    for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
        shifted += static_cast<char>(static_cast<unsigned char>(bytes[i]) >> count |
                                     static_cast<unsigned char>(bytes[i + 1]) << (8 - count));
    }
    return shifted;
}

// An emulator's recording: all its bits are there, but a stray edge comes before them, and byte
// boundaries are never moved.
TEST_F(WavSamplesTest, ARecordingWithAStrayEdgeInFrontIsOutOfStep) {
    const std::string bytes = DecodedThirdParty("HelloWorld1 xroar.wav");
    EXPECT_EQ(bytes.find(kNameBlock), std::string::npos);
    int readable = 0;
    for (int bits = 1; bits < 8; ++bits) {
        const std::string shifted = WithoutBits(bytes, bits);
        if (shifted.find(kNameBlock) != std::string::npos) ++readable;
    }
    EXPECT_EQ(readable, 1);
}

// A real cassette, 44,100 samples of 16 bits a second: a 0 is 80 to 86 positions long, and what is
// longer than 80 is no bit; and the threshold of 148 is so low that noise gives bits.
TEST_F(WavSamplesTest, ARealCassetteIn16BitsLosesItsLongPeriods) {
    const std::string bytes = DecodedThirdParty("LineNumber Test 01.wav");
    for (int bits = 0; bits < 8; ++bits) {
        EXPECT_EQ(WithoutBits(bytes, bits).find(kNameBlock), std::string::npos) << bits;
    }
    EXPECT_EQ(Shown(), Texts());
}

#endif

}  // namespace
}  // namespace brindlemoor::test
