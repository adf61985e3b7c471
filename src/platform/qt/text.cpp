#include "platform/qt/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/byte_helpers.h"

namespace brindlemoor {

namespace {

/// Windows-1252 from 0x80 to 0x9F; the five bytes without a character stand for themselves.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// A character and where its bytes stand.
struct Decoded {
    char32_t Character = 0;
    std::size_t Offset = 0;
    std::size_t Length = 1;
};

unsigned ByteOf(const std::string& bytes, std::size_t offset) {
    return static_cast<unsigned char>(bytes[offset]);
}

/// Bytes behind the lead byte of a UTF-8 sequence, 0 for a byte that leads none.
std::size_t TrailCount(unsigned lead) {
    if (lead >= 0xC2 && lead <= 0xDF) return 1;
    if (lead >= 0xE0 && lead <= 0xEF) return 2;
    if (lead >= 0xF0 && lead <= 0xF4) return 3;
    return 0;
}

/// The UTF-8 sequence of two bytes or more at `offset`, if there is a well-formed one: none that
/// is longer than needed, none for a surrogate, none above 0x10FFFF.
std::optional<Decoded> Utf8At(const std::string& bytes, std::size_t offset) {
    const unsigned lead = ByteOf(bytes, offset);
    const std::size_t trail = TrailCount(lead);
    if (trail == 0 || offset + trail >= bytes.size()) return std::nullopt;
    char32_t character = lead & (0x3Fu >> trail);
    for (std::size_t i = 1; i <= trail; ++i) {
        const unsigned next = ByteOf(bytes, offset + i);
        if ((next & 0xC0u) != 0x80u) return std::nullopt;
        character = (character << 6) | (next & 0x3Fu);
    }
    constexpr std::array<char32_t, 4> kLowest = {0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < kLowest[trail] || surrogate || character > 0x10FFFF) return std::nullopt;
    return Decoded{character, offset, trail + 1};
}

/// The character of a byte in Windows-1252.
char16_t CharacterOf(unsigned byte) {
    const bool mapped = byte >= 0x80 && byte <= 0x9F;
    return mapped ? kHighControls[byte - 0x80] : static_cast<char16_t>(byte);
}

Decoded CharacterAt(const std::string& bytes, std::size_t offset) {
    if (const auto sequence = Utf8At(bytes, offset)) return *sequence;
    return {CharacterOf(ByteOf(bytes, offset)), offset, 1};
}

std::vector<Decoded> Decode(const std::string& bytes) {
    std::vector<Decoded> characters;
    for (std::size_t offset = 0; offset < bytes.size();) {
        characters.push_back(CharacterAt(bytes, offset));
        offset += characters.back().Length;
    }
    return characters;
}

std::optional<char> Windows1252Byte(char32_t character) {
    const auto found = std::find(kHighControls.begin(), kHighControls.end(), character);
    if (found != kHighControls.end()) {
        return static_cast<char>(0x80 + (found - kHighControls.begin()));
    }
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    return std::nullopt;
}

std::string Utf8Bytes(const QString& text) {
    return text.toStdString();
}

std::optional<std::string> Windows1252Bytes(const QString& text) {
    std::string bytes;
    for (const char32_t character : text.toStdU32String()) {
        const auto byte = Windows1252Byte(character);
        if (!byte) return std::nullopt;
        bytes += *byte;
    }
    return bytes;
}

QString FromUcs4(const std::u32string& characters) {
    return QString::fromUcs4(characters.data(), static_cast<qsizetype>(characters.size()));
}

/// How many characters two texts share at their beginning, and then at their end.
struct Shared {
    std::size_t Front = 0;
    std::size_t Back = 0;
};

Shared SharedEnds(const std::vector<Decoded>& before, const std::u32string& after) {
    Shared shared;
    const std::size_t most = std::min(before.size(), after.size());
    while (shared.Front < most && before[shared.Front].Character == after[shared.Front]) {
        ++shared.Front;
    }
    while (shared.Front + shared.Back < most && before[before.size() - 1 - shared.Back].Character ==
                                                    after[after.size() - 1 - shared.Back]) {
        ++shared.Back;
    }
    return shared;
}

/// True where what is typed is to be written in UTF-8.
bool WritesUtf8(const std::vector<Decoded>& before, const std::u32string& after) {
    if (PathSeparator() == '/' && !after.empty() && after.front() == U'/') return true;
    return std::any_of(before.begin(), before.end(),
                       [](const Decoded& character) { return character.Length > 1; });
}

}  // namespace

QString ToText(const std::string& bytes) {
    std::u32string characters;
    characters.reserve(bytes.size());
    for (std::size_t offset = 0; offset < bytes.size();) {
        const Decoded character = CharacterAt(bytes, offset);
        characters += character.Character;
        offset += character.Length;
    }
    return FromUcs4(characters);
}

QString ToCells(const std::string& bytes) {
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (std::size_t offset = 0; offset < bytes.size(); ++offset) {
        text.append(QChar(CharacterOf(ByteOf(bytes, offset))));
    }
    return text;
}

std::string ToBytes(const QString& text) {
    const auto bytes = Windows1252Bytes(text);
    return bytes && ToText(*bytes) == text ? *bytes : Utf8Bytes(text);
}

std::string EditedBytes(const std::string& before, const QString& text) {
    const std::vector<Decoded> characters = Decode(before);
    const std::u32string after = text.toStdU32String();
    const Shared shared = SharedEnds(characters, after);
    const std::size_t frontBytes =
        shared.Front < characters.size() ? characters[shared.Front].Offset : before.size();
    const std::size_t backBytes =
        shared.Back > 0 ? before.size() - characters[characters.size() - shared.Back].Offset : 0;
    const QString typed =
        FromUcs4(after.substr(shared.Front, after.size() - shared.Front - shared.Back));
    const std::string typedBytes =
        WritesUtf8(characters, after) ? Utf8Bytes(typed) : ToBytes(typed);
    const std::string bytes =
        before.substr(0, frontBytes) + typedBytes + before.substr(before.size() - backBytes);
    return ToText(bytes) == text ? bytes : Utf8Bytes(text);
}

QString ToLines(const std::string& bytes) {
    return ToText(ReplaceText(bytes, "\r\n", "\n"));
}

std::string LinesToBytes(const QString& text) {
    return ReplaceText(ToBytes(text), "\n", "\r\n");
}

}  // namespace brindlemoor
