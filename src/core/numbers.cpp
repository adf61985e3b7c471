#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

/// Digits of a double that count. The rest is noise of binary fractions: 2.675 is stored as
/// 2.67499999999999982236431605997495353221893310546875 and is to round to 2.68 all the same.
constexpr int kSignificantDigits = 15;

/// Whole numbers up to here are taken as they are.
constexpr double kWholeLimit = 9.0e18;

/// The decimal digits of a number without its sign: those before and those behind the point.
/// Neither has zeros that say nothing, so that 0 is two empty texts.
struct Decimal {
    std::string Whole;
    std::string Fraction;
};

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

std::string WholeDigits(std::uint64_t value) {
    if (value == 0) return {};
    char digits[20];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return {digits, end};
}

/// Adds one in the last place of `number`.
void RoundUp(Decimal& number) {
    const auto increment = [](std::string& digits) {
        for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
            if (*digit != '9') {
                ++*digit;
                return true;
            }
            *digit = '0';
        }
        return false;
    };
    if (increment(number.Fraction) || increment(number.Whole)) return;
    number.Whole.insert(0, 1, '1');
}

/// Rounds half up to `places` digits behind the point.
void RoundTo(Decimal& number, std::size_t places) {
    if (number.Fraction.size() <= places) return;
    const bool up = number.Fraction[places] >= '5';
    number.Fraction.resize(places);
    if (up) RoundUp(number);
    while (!number.Fraction.empty() && number.Fraction.back() == '0') number.Fraction.pop_back();
}

Decimal ToDecimal(double magnitude) {
    Decimal number;
    if (magnitude < kWholeLimit && std::floor(magnitude) == magnitude) {
        number.Whole = WholeDigits(static_cast<std::uint64_t>(magnitude));
        return number;
    }
    if (!std::isfinite(magnitude)) Fail(kOverflow);

    // "d.dddddddddddddde+xx"
    char text[32];
    const char* end = std::to_chars(text, text + sizeof text, magnitude,
                                    std::chars_format::scientific, kSignificantDigits - 1)
                          .ptr;
    std::string digits(1, text[0]);
    digits.append(text + 2, kSignificantDigits - 1);
    const char* sign = text + 2 + kSignificantDigits;
    int exponent = 0;
    std::from_chars(sign + 1, end, exponent);
    if (*sign == '-') exponent = -exponent;

    const int whole = exponent + 1;
    if (whole <= 0) {
        number.Fraction.assign(static_cast<std::size_t>(-whole), '0');
        number.Fraction += digits;
    } else {
        const auto size = static_cast<std::size_t>(whole);
        number.Whole = digits.substr(0, size);
        if (size > digits.size()) number.Whole.append(size - digits.size(), '0');
        if (size < digits.size()) number.Fraction = digits.substr(size);
    }
    while (!number.Fraction.empty() && number.Fraction.back() == '0') number.Fraction.pop_back();
    return number;
}

/// What a number pattern asks for, found before any digit is placed.
struct PatternShape {
    std::size_t WholePlaces = 0;     ///< "0" and "#" before the point
    std::size_t FractionPlaces = 0;  ///< and behind it
    std::size_t WholeZeros = 0;      ///< digits that stand before the point in any case
    std::size_t FractionZeros = 0;   ///< and behind it
    bool Grouped = false;
};

bool IsPlace(char character) {
    return character == '0' || character == '#';
}

PatternShape ShapeOf(const std::string& pattern) {
    PatternShape shape;
    bool behindPoint = false;
    bool commaSeen = false;
    std::size_t firstZero = std::string::npos;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char character = pattern[i];
        if (character == '\\') {
            ++i;
        } else if (character == '.') {
            behindPoint = true;
        } else if (character == ',') {
            commaSeen = shape.WholePlaces > 0;
        } else if (IsPlace(character) && behindPoint) {
            ++shape.FractionPlaces;
            if (character == '0') shape.FractionZeros = shape.FractionPlaces;
        } else if (IsPlace(character)) {
            shape.Grouped = shape.Grouped || commaSeen;
            if (character == '0' && firstZero == std::string::npos) firstZero = shape.WholePlaces;
            ++shape.WholePlaces;
        }
    }
    if (firstZero != std::string::npos) shape.WholeZeros = shape.WholePlaces - firstZero;
    return shape;
}

/// Puts the digits of a rounded number into the places of a pattern, from left to right.
struct PatternFiller {
    const Decimal& Number;
    const PatternShape& Shape;
    std::string Shown = {};
    std::size_t WholeSeen = 0;
    std::size_t FractionSeen = 0;

    /// The digit of the unit 10 to the power of `power`, and the comma behind it.
    void PlaceWhole(std::size_t power) {
        const std::size_t size = Number.Whole.size();
        if (power < size) {
            Shown += Number.Whole[size - 1 - power];
        } else if (power < Shape.WholeZeros) {
            Shown += '0';
        } else {
            return;
        }
        if (Shape.Grouped && power > 0 && power % 3 == 0) Shown += ',';
    }

    /// The first place takes all digits for which the pattern has no place.
    void NextWhole() {
        const std::size_t power = Shape.WholePlaces - 1 - WholeSeen;
        if (WholeSeen == 0) {
            for (std::size_t i = Number.Whole.size(); i > power + 1; --i) PlaceWhole(i - 1);
        }
        ++WholeSeen;
        PlaceWhole(power);
    }

    void NextFraction() {
        if (FractionSeen < Number.Fraction.size()) {
            Shown += Number.Fraction[FractionSeen];
        } else if (FractionSeen < Shape.FractionZeros) {
            Shown += '0';
        }
        ++FractionSeen;
    }
};

std::string FillPattern(const Decimal& number, const PatternShape& shape,
                        const std::string& pattern) {
    PatternFiller filler{number, shape};
    bool behindPoint = false;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char character = pattern[i];
        if (IsPlace(character) && behindPoint) {
            filler.NextFraction();
        } else if (IsPlace(character)) {
            filler.NextWhole();
        } else if (character == '.' && !behindPoint) {
            // A pattern without a place before the point still shows the whole part.
            if (shape.WholePlaces == 0) filler.Shown += number.Whole;
            behindPoint = true;
            filler.Shown += '.';
        } else if (character == ',' && shape.Grouped && !behindPoint && filler.WholeSeen > 0 &&
                   filler.WholeSeen < shape.WholePlaces) {
            continue;
        } else if (character == '\\') {
            if (++i < pattern.size()) filler.Shown += pattern[i];
        } else {
            filler.Shown += character;
        }
    }
    return std::move(filler.Shown);
}

/// Removes blanks at both ends.
std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The number of which `first` to `last` is the text, if all of it is one.
double ParsedNumber(const char* first, const char* last) {
    double value = 0;
    const auto result = std::from_chars(first, last, value);
    if (result.ec == std::errc::result_out_of_range) Fail(kOverflow);
    if (result.ec != std::errc() || result.ptr != last) Fail(kTypeMismatch);
    return value;
}

double RoundedWithin(double value, double lowest, double highest) {
    const double whole = std::nearbyint(value);
    if (!(whole >= lowest && whole <= highest)) Fail(kOverflow);
    return whole;
}

}  // namespace

double LeadingNumber(const std::string& text) {
    std::size_t position = std::min(text.find_first_not_of(' '), text.size());
    bool negative = false;
    if (position < text.size() && (text[position] == '-' || text[position] == '+')) {
        negative = text[position] == '-';
        ++position;
    }
    const std::size_t start = position;
    bool pointSeen = false;
    bool digitSeen = false;
    for (; position < text.size(); ++position) {
        if (IsDigit(text[position])) {
            digitSeen = true;
        } else if (text[position] == '.' && !pointSeen) {
            pointSeen = true;
        } else {
            break;
        }
    }
    if (!digitSeen) return 0;
    const double value = ParsedNumber(text.data() + start, text.data() + position);
    return negative ? -value : value;
}

double TypedNumber(const std::string& text) {
    constexpr std::size_t kCharactersRead = 30;
    return LeadingNumber(text.substr(0, kCharactersRead));
}

double TextAsNumber(const std::string& text) {
    std::string_view number = WithoutBlanks(text);
    const bool negative = !number.empty() && number.front() == '-';
    if (negative || (!number.empty() && number.front() == '+')) number.remove_prefix(1);
    // The words for infinity and the like, which the conversion would take, are no numbers.
    if (number.empty() || !(IsDigit(number.front()) || number.front() == '.')) Fail(kTypeMismatch);
    const double value = ParsedNumber(number.data(), number.data() + number.size());
    return negative ? -value : value;
}

std::uint8_t WholeNumber8(double value) {
    return static_cast<std::uint8_t>(RoundedWithin(value, 0, 255.0));
}

std::int16_t WholeNumber16(double value) {
    return static_cast<std::int16_t>(RoundedWithin(value, -32768.0, 32767.0));
}

std::int32_t WholeNumber32(double value) {
    return static_cast<std::int32_t>(RoundedWithin(value, -2147483648.0, 2147483647.0));
}

int TextAsInteger(const std::string& text) {
    return WholeNumber16(TextAsNumber(text));
}

std::string FormatNumber(double value, const std::string& pattern) {
    Decimal number = ToDecimal(std::fabs(value));
    std::string shown;
    if (pattern.empty()) {
        shown = number.Whole.empty() ? "0" : number.Whole;
        if (!number.Fraction.empty()) shown += '.' + number.Fraction;
    } else {
        const PatternShape shape = ShapeOf(pattern);
        RoundTo(number, shape.FractionPlaces);
        shown = FillPattern(number, shape, pattern);
    }
    const bool negative = value < 0 && !(number.Whole.empty() && number.Fraction.empty());
    if (negative) shown.insert(0, 1, '-');
    return shown;
}

std::string DecimalText(std::int64_t value) {
    char digits[20];
    return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
}

}  // namespace brindlemoor
