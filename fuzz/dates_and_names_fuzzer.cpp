// The input is a name of OS-9, a date of OS-9, a date as a person types it, a version of a "dk"
// header, and such a header. What one routine writes the other reads back.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/byte_helpers.h"
#include "core/dates.h"
#include "core/numbers.h"
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
        if (date < 1) continue;
        Expect(DateText(again) == DateText(date));
        // What the OS-9 window shows of a date gives the same bytes again.
        const double shown = DateOfText(DateText(date));
        Expect(Os9DateField(shown, 5) == Os9DateField(date, 5));
        Expect(DateOfText(DateAndTimeText(date)) == shown);
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

/// The bytes of a "dk" header, taken apart and put together.
void Headers(const std::string& data) {
    if (data.size() < kDkHeaderBytes) return;
    const auto byte = [&data](int offset) { return ByteOr(data, offset, 0); };
    DkHeaderFields fields;
    fields.Signature = data.substr(kDkSignature, 2);
    fields.Length = WholeNumber16(BytesToNumber(CutBytes(data, kDkLength, 2), ""));
    fields.Version = VersionText(byte(kDkVersion));
    fields.Compatibility = VersionText(byte(kDkCompatibility));
    fields.SourceId = byte(kDkSourceId);
    fields.SourceVersion = VersionText(byte(kDkSourceVersion));
    fields.Tracks = byte(kDkTracks);
    fields.Sides = byte(kDkSides);
    fields.Flags = byte(kDkFlags);
    fields.Compression = byte(kDkNameLength) % 8;
    fields.NameLength = byte(kDkNameLength) / 8;
    fields.Name = data.substr(kDkName);
    Expect(DkHeaderOf(fields) == data);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string data(bytes, bytes + size);
    Names(data);
    Dates(data);
    TypedDates(data);
    Versions(data);
    Headers(data);
    return 0;
}
