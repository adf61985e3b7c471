#pragma once

#include <cstdint>
#include <string>

namespace brindlemoor {

/// The number at the start of `text`: blanks skipped, a sign, digits, one decimal point, up to the
/// first character that does not fit. 0 when there is none.
double LeadingNumber(const std::string& text);

/// The same for what a person typed, where it must not fail: of an endless row of digits the first
/// thirty count.
double TypedNumber(const std::string& text);

/// `text` as a number; the whole text must be one (blanks at its ends are allowed), or it fails
/// with 13.
double TextAsNumber(const std::string& text);

/// `value` as a byte, 0 to 255, halves to the even neighbour. Fails with 6 outside.
std::uint8_t WholeNumber8(double value);

/// `value` as a whole number, halves to the even neighbour. Fails with 6 outside 16, or 32, bits.
std::int16_t WholeNumber16(double value);
std::int32_t WholeNumber32(double value);

/// TextAsNumber as a 16-bit whole number: fails with 13 or 6.
int TextAsInteger(const std::string& text);

/// `value` under a number pattern: "0" a digit or zero, "#" a digit or nothing, "." the decimal
/// point, "," between digits groups of three with a comma, "\" the next character as it stands,
/// other characters as they stand. Of a fraction 15 digits count; rounds half away from zero. 0
/// under "###,###" is empty. An empty pattern shows the number as it stands. Never the system's
/// locale. Fails with 6 on what is no finite number.
std::string FormatNumber(double value, const std::string& pattern);

/// `value` in decimal digits, with "-" in front when it is negative.
std::string DecimalText(std::int64_t value);

}  // namespace brindlemoor
