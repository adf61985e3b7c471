// The input is a file for the tape's modem: a WAV file, or the stream of a tape behind lines of
// settings. Samples have to hold the bits that are read from them, and a written file the header
// that its length asks for.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "convert/wav.h"
#include "core/byte_helpers.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/settings.h"

namespace {

using namespace brindlemoor;

/// Bytes of the header, and positions of the shortest period of a bit.
constexpr std::size_t kHeader = 44;
constexpr std::size_t kShortestByte = 8 * 10;

/// Rates, frequencies and seconds of so many digits keep the files small that settings ask for, and
/// so do frequencies of at least 1 hertz.
constexpr std::size_t kLongestNumber = 4;

void Expect(bool condition) {
    if (!condition) std::abort();
}

void Read(const std::string& given) {
    std::string data = given;
    std::string name = "SEED.WAV";
    try {
        const std::string tape = WavConvert(data, name);
        Expect(tape.size() <= given.size() / kShortestByte);
        Expect(data == given + '\x8A' && name == "SEED.CAS");
    } catch (const RuntimeFailure& failure) {
        Expect(failure.Number == kOutOfMemory || failure.Number == kDivisionByZero ||
               failure.Number == kInvalidCall);
        Expect(data == given && name == "SEED.WAV");
    }
}

/// The lines of the input are the values of the settings; what no line says stays as usual.
void GiveSettings(const std::string& values) {
    Settings = SettingsState();
    Settings.SettingsCacheMark = "I";
    Settings.SettingsLines = {"[Audio Options]", "WavFormat=1"};
    for (const std::string& value : SplitText(values, "\n")) {
        const std::string text = value.substr(0, kLongestNumber);
        const double number = std::abs(LeadingNumber(text));
        const bool tiny = number != 0 && number < 1;
        Settings.SettingsLines.push_back("Key=" + (tiny ? "1" : text));
    }
}

void Write(const std::string& settings, const std::string& stream) {
    GiveSettings(settings);
    std::string data = stream;
    std::string name = "SEED.CAS";
    try {
        const std::string file = WavConvert(data, name);
        if (file.empty()) return;
        Expect(file.size() >= kHeader && file.compare(0, 4, "RIFF") == 0);
        Expect(file.compare(36, 4, "data") == 0 && name == "SEED.WAV");
    } catch (const RuntimeFailure& failure) {
        Expect(failure.Number != 0 && name == "SEED.CAS");
    }
    Expect(data == stream);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    Platform = SilentPlatform();
    const std::string data(bytes, bytes + size);
    if (data.compare(0, 4, "RIFF") == 0) {
        Read(data);
        return 0;
    }
    const std::size_t tape = data.find("\x55\x55\x55\x55\x55");
    if (tape != std::string::npos) Write(data.substr(0, tape), data.substr(tape, 400));
    return 0;
}
