#pragma once

#include <string>

namespace brindlemoor {

/// The failures that end an operation or the program, by the number that the error box shows.
enum FailureNumber : int {
    kInvalidCall = 5,
    kOverflow = 6,
    kOutOfMemory = 7,
    kIndexRange = 9,
    kDivisionByZero = 11,
    kTypeMismatch = 13,
    kControlNotFound = 730,
};

/// The one exception type of the program. It is caught in two places only: by the event
/// dispatcher, which shows the error box and ends the program, and at the entry of an operation
/// that can put everything back as it was before it began (opening an image, a conversion).
struct RuntimeFailure {
    int Number = 0;
    std::string Text;
};

/// The text of a failure number, such as "Subscript out of range" for 9.
std::string FailureText(int number);

/// Throws the `RuntimeFailure` of that number with its usual text.
[[noreturn]] void Fail(int number);

/// The text that the error box shows: "Run-time error '9':", an empty line, the failure's text.
std::string ErrorBoxText(const RuntimeFailure& failure);

}  // namespace brindlemoor
