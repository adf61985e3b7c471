// The input is a name of OS-9, a date of OS-9, a date as a person types it, and a version of a "dk"
// header. What one routine writes the other reads back.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/dates.h"
#include "core/runtime_failure.h"
#include "filesystems/os9_text.h"
#include "image/dk_header.h"

namespace {

using namespace brindlemoor;

void Expect(bool condition) {
    if (!condition) std::abort();
}

void Names(const std::string& data) {
    const std::string once = Os9NameText(data);
    Expect(once.size() <= data.size());
    const std::string twice = Os9NameText(once);
    Expect(twice.size() <= once.size());
    if (twice.size() == data.size() && data.find('\0') == std::string::npos) Expect(twice == data);
}

void Dates(const std::string& data) {
    for (const std::size_t length : {std::size_t{3}, std::size_t{5}}) {
        constexpr double kUntouched = -1;
        double date = kUntouched;
        ReadOs9Date(data.substr(0, length), date);
        if (data.size() < length || date == kUntouched) continue;
        double again = kUntouched;
        ReadOs9Date(Os9DateField(date, static_cast<int>(length)), again);
        if (date >= 1) Expect(DateText(again) == DateText(date));
    }
}

void TypedDates(const std::string& data) {
    try {
        const double date = DateOfText(data);
        Expect(DateOfText(DateText(date)) == date);
    } catch (const RuntimeFailure& failure) {
        Expect(failure.Number == kTypeMismatch);
    }
}

void Versions(const std::string& data) {
    const std::string once = NormaliseVersion(data);
    const std::string version = NormaliseVersion(once);  // V15.40 of too high a one becomes V15.15
    Expect(version == once || once == "V15.40");
    Expect(NormaliseVersion(version) == version);
    try {
        const int byte = VersionByte(version);
        Expect(byte >= 0 && byte <= 255);
        Expect(VersionByte(VersionText(byte)) == byte);
    } catch (const RuntimeFailure& failure) {
        Expect(failure.Number == kOverflow);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string data(bytes, bytes + size);
    Names(data);
    Dates(data);
    TypedDates(data);
    Versions(data);
    return 0;
}
