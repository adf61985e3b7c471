#include "convert/wav.h"

#include <random>

#include "convert/audio_fixture.h"
#include "convert/basic_fixture.h"
#include "convert/conversion.h"
#include "convert/wav_reader.h"
#include "convert/wav_writer.h"
#include "core/runtime_failure.h"
#include "core/settings.h"
#include "support/settings_fixture.h"

namespace brindlemoor::test {
namespace {

using WavTest = AudioTest;
using Texts = std::vector<std::string>;

WavFile Tape(const std::string& samples) {
    WavFile file;
    file.Samples = samples;
    return file;
}

TEST_F(WavTest, RiffMakesAWavFile) {
    std::string data = Tape(Modulated("tape")).Bytes();
    const std::string given = data;
    std::string name = "A.B.WAV";
    EXPECT_EQ(WavConvert(data, name), "tape");
    EXPECT_EQ(name, "A.B.CAS");
    EXPECT_EQ(data, given + '\x8A');
}

TEST_F(WavTest, FiveBytes55MakeATape) {
    std::string data = Leader(5);
    std::string name = "A.B.CAS";
    EXPECT_EQ(WavConvert(data, name), CasToWav(Leader(5)));
    EXPECT_EQ(name, "A.B.WAV");
    EXPECT_EQ(data, Leader(5));
}

TEST_F(WavTest, AnythingElseIsToldAndGivesNothing) {
    for (const std::string& other : {std::string(), std::string("RIF"), Leader(4),
                                     Leader(4) + "A" + Leader(128), "riff" + Leader(5)}) {
        script_.Messages.clear();
        std::string data = other;
        std::string name = "A.B";
        EXPECT_EQ(WavConvert(data, name), "");
        EXPECT_EQ(name, "A.B");
        EXPECT_EQ(data, other);
        EXPECT_EQ(Shown(), Texts{"El Archivo de entrada debe ser CAS o WAV"});
        EXPECT_EQ(script_.Messages[0].Choice, Buttons::Ok);
    }
}

TEST_F(WavTest, TheMessagesHaveTheNameAsItWasGiven) {
    WavFile file = Tape("");
    file.RiffSize = 0;
    std::string data = file.Bytes();
    std::string name = "C:\\TAPES\\A.WAV";
    WavConvert(data, name);
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_EQ(Shown()[0].substr(Shown()[0].find("\r\n")), "\r\nC:\\TAPES\\A.WAV");
    EXPECT_EQ(name, "C:\\TAPES\\A.CAS");
}

TEST_F(WavTest, ANameWithoutAnExtensionGetsOne) {
    for (const auto& [name, changed] : {std::pair<std::string, std::string>{"TAPE", "TAPE.WAV"},
                                        {"", ".WAV"},
                                        {"C:\\TAPES.OLD\\A", "C:\\TAPES.OLD\\A.WAV"},
                                        {"C:\\TAPES.OLD\\A.CAS", "C:\\TAPES.OLD\\A.WAV"}}) {
        std::string data = Leader(5);
        std::string given = name;
        WavConvert(data, given);
        EXPECT_EQ(given, changed);
    }
}

TEST_F(WavTest, AFailureIsShownInTheErrorBoxAndChangesNothing) {
    GiveOptions({{"SilenceStart", "0"}});
    std::string data = SomeStream();
    std::string name = "A.CAS";
    EXPECT_EQ(ConvertedOrNothing([&] { return WavConvert(data, name); }), "");
    EXPECT_EQ(data, SomeStream());
    WavFile stereo = Tape(Modulated("tape"));
    stereo.Channels = 2;
    data = stereo.Bytes();
    EXPECT_EQ(ConvertedOrNothing([&] { return WavConvert(data, name); }), "");
    EXPECT_EQ(data, stereo.Bytes());
    EXPECT_EQ(name, "A.CAS");
    EXPECT_EQ(Shown(), (Texts{"Run-time error '5':\r\n\r\nInvalid procedure call or argument",
                              "Run-time error '7':\r\n\r\nOut of memory"}));
}

/// Either a file with its header, or a failure of the program's own.
void WriteHostile(const std::string& stream) {
    std::string data = stream;
    std::string name = "A.CAS";
    try {
        const std::string file = WavConvert(data, name);
        EXPECT_TRUE(file.empty() || file.compare(0, 4, "RIFF") == 0);
    } catch (const RuntimeFailure& failure) {
        EXPECT_NE(failure.Number, 0);
    }
    EXPECT_EQ(data, stream);
}

TEST_F(WavTest, AStreamMayEndAnywhere) {
    GiveOptions({{"SampleRate", "4000"}, {"SilenceStart", "0.01"}});
    const std::string stream = SomeStream(30);
    for (std::size_t size = 0; size < stream.size(); ++size) WriteHostile(stream.substr(0, size));
}

TEST_F(WavTest, SpoiledStreamsAndSettingsDoNoHarm) {
    std::mt19937 random(20261121);
    const std::string good = SomeStream(30);
    const Texts words = {"", "x", "-", "0", "-1", "1e5", "99999999999999999999", ".", "3", "\xFF"};
    const Texts keys = {"SampleRate", "BitsPerSample", "NumChannels",  "Volume",
                        "Frec1200",   "Frec2400",      "SilenceStart", "SilenceHeader"};
    for (int round = 0; round < 10'000; ++round) {
        script_.Messages.clear();
        GiveOptions({{"SampleRate", "4000"},
                     {"SilenceStart", "0.01"},
                     {keys[random() % 8], words[random() % words.size()]},
                     {keys[random() % 8], words[random() % words.size()]}});
        std::string stream = good;
        for (std::size_t i = random() % 4; i > 0; --i) {
            stream[random() % stream.size()] = static_cast<char>(random());
        }
        WriteHostile(stream);
    }
}

// The settings file as the program writes it

using WavSettingsTest = SettingsTest;

TEST_F(WavSettingsTest, TheSettingsFileIsReadAndLinesInFrontDoNotMatter) {
    GiveSettings(
        "[General]\r\nWavFormat=9\r\n[Audio Options]\r\nShow=False\r\nWavFormat=1\r\n"
        "SampleRate=44100\r\nBitsPerSample=8\r\nNumChannels=1\r\nVolume=110\r\nFrec1200=1200\r\n"
        "Frec2400=2400\r\nSilenceStart=1\r\nSilenceHeader=500\r\nSilenceBlock=0");
    const std::string fromFile = CasToWav(SomeStream());
    GiveAudioOptions({});
    EXPECT_EQ(fromFile, CasToWav(SomeStream()));
}

TEST_F(WavSettingsTest, SettingsThatCannotBeReadFail) {
    Settings.SettingsPath = Base + "/none/Brindlemoor.INI";
    EXPECT_NE(FailureOf([] { CasToWav(SomeStream()); }), 0);
}

}  // namespace
}  // namespace brindlemoor::test
