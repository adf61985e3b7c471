#include "convert/audio_fixture.h"

#include "core/settings.h"

namespace brindlemoor::test {

void AudioTest::SetUp() {
    TapeTest::SetUp();
    GiveOptions({});
}

void AudioTest::TearDown() {
    Settings = SettingsState();
    TapeTest::TearDown();
}

void AudioTest::GiveOptions(const std::map<std::string, std::string>& values) {
    GiveAudioOptions(values);
}

void GiveAudioOptions(const std::map<std::string, std::string>& values) {
    Settings = SettingsState();
    Settings.SettingsCacheMark = "I";
    Settings.SettingsLines = {"[General]",        "Version=1.1.3",     "[Audio Options]",
                              "Show=False",       "Output=WAV",        "WavFormat=1",
                              "SampleRate=44100", "BitsPerSample=8",   "NumChannels=1",
                              "Volume=110",       "Frec1200=1200",     "Frec2400=2400",
                              "SilenceStart=1",   "SilenceHeader=500", "SilenceBlock=0",
                              "[English]",        "Name=English"};
    for (std::string& line : Settings.SettingsLines) {
        const auto value = values.find(line.substr(0, line.find('=')));
        if (value != values.end()) line = value->first + "=" + value->second;
    }
}

std::string SomeStream(std::size_t contents) {
    return WholeTape(NameBody("ABC", 1, 0, 0, std::string(4, '\0')), Counting(contents));
}

}  // namespace brindlemoor::test
