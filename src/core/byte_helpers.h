#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

// Cutting and joining. A byte string is a std::string with one character a byte.

/// The `length` bytes of `text` from the 0-based `offset` on. A cut past the end is shorter, a
/// start past the end gives an empty string; a negative offset or length fails with 5.
std::string CutBytes(const std::string& text, std::int64_t offset, std::int64_t length);

/// The same from a 1-based `position`; a position below 1 or a negative length fails with 5.
std::string Mid(const std::string& text, std::int64_t position, std::int64_t length);

/// The first, or the last, `length` bytes; all of a shorter text. A negative length fails with 5.
std::string Left(const std::string& text, std::int64_t length);
std::string Right(const std::string& text, std::int64_t length);

/// The byte at the 0-based `offset`. Fails with 5 where there is none.
int ByteAt(const std::string& text, std::int64_t offset);

/// The byte at the 0-based `offset`, or `otherwise` where there is none.
inline int ByteOr(const std::string& text, std::int64_t offset, int otherwise) {
    if (offset < 0 || offset >= static_cast<std::int64_t>(text.size())) return otherwise;
    return static_cast<unsigned char>(text[static_cast<std::size_t>(offset)]);
}

/// The elements of `text` between `separator`s: none for an empty text, else one more than there
/// are separators. `separator` is not empty.
std::vector<std::string> SplitText(const std::string& text, std::string_view separator);

/// `parts` with `separator` between each two.
std::string JoinText(const std::vector<std::string>& parts, std::string_view separator);

/// `text` with every `from` replaced by `to`, left to right, not looking again at what was put in.
std::string ReplaceText(const std::string& text, std::string_view from, std::string_view to);

/// Upper and lower case of the letters A to Z only: other bytes of a disk stay as they are.
std::string UpperCase(std::string text);
std::string LowerCase(std::string text);

/// `text` without the blanks at its right end, or at both ends.
std::string TrimRight(const std::string& text);
std::string Trim(const std::string& text);

/// `text`, written in UTF-8 as in the sources, as Windows-1252 bytes, the form of all captions,
/// messages and settings. A character that Windows-1252 lacks becomes "?".
std::string Windows1252(std::string_view text);

/// "Pequeño"_w is Windows1252("Pequeño").
std::string operator""_w(const char* text, std::size_t length);

// Bytes and numbers.

/// `value` as `length` bytes: lowest first, or highest first when `order` is exactly "I".
/// Length 2 takes `value` as a signed 16-bit, lengths 3 and 4 as a signed 32-bit whole number, and
/// lengths 1 and 5 to 8 as 64 bits holding `value` times 10,000, so that NumberToBytes(1, 1, "")
/// is the byte 16. A length outside 1 to 8 gives an empty string. A fraction rounds half to even.
/// Fails with 6 when the value is outside the type.
std::string NumberToBytes(double value, int length, std::string_view order);

/// The number in `bytes`, lowest first, or highest first when `order` is exactly "I". 1 byte and 3
/// bytes are unsigned, 2 and 4 bytes signed; 5 to 8 bytes hold the value times 10,000 (fewer than
/// eight are the low ones), of which a double keeps 53 bits. 0 for no bytes or more than 8. With
/// "I", a string of at most 8 bytes stays reversed in `bytes`.
double BytesToNumber(std::string& bytes, std::string_view order);

/// The same for a temporary, as nearly all callers have one.
double BytesToNumber(std::string&& bytes, std::string_view order);

/// BytesToNumber(bytes, "I") as a whole number, for the 1 to 4 bytes of a disk field.
int BigEndian(std::string bytes);

/// The four bytes of `value`, lowest first.
std::string LongToBytes(std::int32_t value);

/// `value` under the number pattern `pattern`, with as many blanks in front as the lengths of the
/// result and of the pattern differ.
std::string PadFormat(double value, const std::string& pattern);

/// `value` (0 to 255) as eight "0" and "1", bit 0 first: 1 is "10000000".
std::string ByteToBits(int value);

// Texts.

/// `message` with every character 172 ("¬") replaced by CR LF, and then every "[]" by the next of
/// `args`; a "[]" inside an inserted text is filled in its turn. Fails with 9 when `args` runs out.
std::string FillMessage(const std::string& message, const std::vector<std::string>& args);

/// Splits `path` at its last separator ("\", and where the PC's separator is "/" also that):
/// `folder` is what stands before it, `file` what stands behind it. Fails with 5 when there is
/// none.
void SplitPath(const std::string& path, std::string& folder, std::string& file);

/// The PC's own separator: "\" on Windows, "/" elsewhere.
char PathSeparator();

/// `folder`, the PC's separator, `file`; a folder that ends in a separator gets no second one.
std::string JoinPath(const std::string& folder, const std::string& file);

}  // namespace brindlemoor
