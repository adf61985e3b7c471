#include "core/byte_helpers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "core/numbers.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

/// Numbers of 1 and of 5 to 8 bytes are kept as 64 bits that hold the value times this.
constexpr double kMoneyScale = 10000;

constexpr bool kBackslashOnly =
#ifdef _WIN32
    true;
#else
    false;
#endif

/// The characters of the codes 128 to 159 of Windows-1252; 0 where it has none of its own. All
/// other codes are the characters of the same number.
constexpr std::array<char32_t, 32> kUpperControlArea = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,       //
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char ToWindows1252(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    const auto found =
        character == 0 ? kUpperControlArea.end()
                       : std::find(kUpperControlArea.begin(), kUpperControlArea.end(), character);
    if (found == kUpperControlArea.end()) return '?';
    return static_cast<char>(0x80 + (found - kUpperControlArea.begin()));
}

/// Takes one UTF-8 character off the front of `text`. A byte that begins none is one by itself,
/// the replacement character.
char32_t TakeCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (lead < 0x80) return lead;
    const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < more) return 0xFFFD;
    char32_t character = lead & (0x3FU >> more);
    for (std::size_t i = 0; i < more; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80) return 0xFFFD;
        character = character << 6 | (byte & 0x3FU);
    }
    text.remove_prefix(more);
    return character;
}

bool IsSeparator(char character) {
    return character == '\\' || (!kBackslashOnly && character == '/');
}

/// The lowest `length` bytes of `value`, lowest first.
std::string LowBytes(std::uint64_t value, int length) {
    std::string bytes;
    for (int i = 0; i < length; ++i) {
        bytes += static_cast<char>(value & 0xFF);
        value >>= 8;
    }
    return bytes;
}

std::int64_t Money(double value) {
    const double scaled = std::nearbyint(value * kMoneyScale);
    constexpr double kLimit = 9223372036854775808.0;
    if (!(scaled >= -kLimit && scaled < kLimit)) Fail(kOverflow);
    return static_cast<std::int64_t>(scaled);
}

}  // namespace

std::string CutBytes(const std::string& text, std::int64_t offset, std::int64_t length) {
    if (offset < 0 || length < 0) Fail(kInvalidCall);
    const auto start = static_cast<std::uint64_t>(offset);
    if (start >= text.size()) return {};
    return text.substr(start, static_cast<std::size_t>(length));
}

std::string Mid(const std::string& text, std::int64_t position, std::int64_t length) {
    if (position < 1) Fail(kInvalidCall);
    return CutBytes(text, position - 1, length);
}

std::string Left(const std::string& text, std::int64_t length) {
    return CutBytes(text, 0, length);
}

std::string Right(const std::string& text, std::int64_t length) {
    if (length < 0) Fail(kInvalidCall);
    const auto count =
        std::min(static_cast<std::uint64_t>(length), static_cast<std::uint64_t>(text.size()));
    return text.substr(text.size() - static_cast<std::size_t>(count));
}

int ByteAt(const std::string& text, std::int64_t offset) {
    if (offset < 0 || static_cast<std::uint64_t>(offset) >= text.size()) Fail(kInvalidCall);
    return static_cast<unsigned char>(text[static_cast<std::size_t>(offset)]);
}

std::vector<std::string> SplitText(const std::string& text, std::string_view separator) {
    std::vector<std::string> parts;
    if (text.empty()) return parts;
    std::size_t start = 0;
    for (std::size_t found = text.find(separator); found != std::string::npos;
         found = text.find(separator, start)) {
        parts.push_back(text.substr(start, found - start));
        start = found + separator.size();
    }
    parts.push_back(text.substr(start));
    return parts;
}

std::string JoinText(const std::vector<std::string>& parts, std::string_view separator) {
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) text += separator;
        text += parts[i];
    }
    return text;
}

std::string ReplaceText(const std::string& text, std::string_view from, std::string_view to) {
    if (from.empty()) return text;
    std::string result;
    std::size_t start = 0;
    for (std::size_t found = text.find(from); found != std::string::npos;
         found = text.find(from, start)) {
        result.append(text, start, found - start).append(to);
        start = found + from.size();
    }
    return result.append(text, start);
}

std::string UpperCase(std::string text) {
    for (char& character : text) {
        if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 32);
    }
    return text;
}

std::string LowerCase(std::string text) {
    for (char& character : text) {
        if (character >= 'A' && character <= 'Z') character = static_cast<char>(character + 32);
    }
    return text;
}

std::string TrimRight(const std::string& text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string Trim(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : TrimRight(text.substr(first));
}

std::string Windows1252(std::string_view text) {
    std::string bytes;
    while (!text.empty()) bytes += ToWindows1252(TakeCharacter(text));
    return bytes;
}

std::string operator""_w(const char* text, std::size_t length) {
    return Windows1252({text, length});
}

std::string NumberToBytes(double value, int length, std::string_view order) {
    if (length < 1 || length > 8) return {};
    std::int64_t whole = 0;
    if (length == 2) {
        whole = WholeNumber16(value);
    } else if (length == 3 || length == 4) {
        whole = WholeNumber32(value);
    } else {
        whole = Money(value);
    }
    std::string bytes = LowBytes(static_cast<std::uint64_t>(whole), length);
    if (order == "I") std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

double BytesToNumber(std::string& bytes, std::string_view order) {
    if (bytes.empty() || bytes.size() > 8) return 0;
    if (order == "I") std::reverse(bytes.begin(), bytes.end());
    std::uint64_t value = 0;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
        value = value << 8 | static_cast<unsigned char>(*byte);
    }
    switch (bytes.size()) {
        case 1:
        case 3:
            return static_cast<double>(value);
        case 2:
            return static_cast<std::int16_t>(value);
        case 4:
            return static_cast<std::int32_t>(value);
        default:
            return static_cast<double>(static_cast<std::int64_t>(value)) / kMoneyScale;
    }
}

double BytesToNumber(std::string&& bytes, std::string_view order) {
    return BytesToNumber(bytes, order);
}

int BigEndian(std::string bytes) {
    return WholeNumber32(BytesToNumber(bytes, "I"));
}

std::string LongToBytes(std::int32_t value) {
    return LowBytes(static_cast<std::uint32_t>(value), 4);
}

std::string PadFormat(double value, const std::string& pattern) {
    const std::string text = FormatNumber(value, pattern);
    const std::size_t longer = std::max(text.size(), pattern.size());
    const std::size_t shorter = std::min(text.size(), pattern.size());
    return std::string(longer - shorter, ' ') + text;
}

std::string ByteToBits(int value) {
    std::string bits;
    for (int bit = 0; bit < 8; ++bit) bits += (value >> bit & 1) != 0 ? '1' : '0';
    return bits;
}

std::string FillMessage(const std::string& message, const std::vector<std::string>& args) {
    std::string text = ReplaceText(message, "\xAC", "\r\n");
    std::size_t next = 0;
    for (std::size_t place = text.find("[]"); place != std::string::npos; place = text.find("[]")) {
        if (next == args.size()) Fail(kIndexRange);
        text.replace(place, 2, args[next]);
        ++next;
    }
    return text;
}

void SplitPath(const std::string& path, std::string& folder, std::string& file) {
    std::size_t last = path.size();
    while (last > 0 && !IsSeparator(path[last - 1])) --last;
    if (last == 0) Fail(kInvalidCall);
    // One of the results may be the path itself.
    std::string front = path.substr(0, last - 1);
    file = path.substr(last);
    folder = std::move(front);
}

char PathSeparator() {
    return kBackslashOnly ? '\\' : '/';
}

std::string JoinPath(const std::string& folder, const std::string& file) {
    if (!folder.empty() && IsSeparator(folder.back())) return folder + file;
    return folder + PathSeparator() + file;
}

}  // namespace brindlemoor
