#pragma once

#include <functional>
#include <optional>
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
    kCannotPerform = 17,
    kControlNotFound = 730,
};

/// The one exception type of the program. What a routine does not expect and handle itself is
/// caught in two places only: by the event dispatcher, which shows the error box and ends the
/// program, and at the entry of an operation that can put everything back as it was before it
/// began (opening an image, a conversion). Both use `FailureOfStep`.
struct RuntimeFailure {
    int Number = 0;
    std::string Text;
};

/// The text of a failure number, such as "Subscript out of range" for 9.
std::string FailureText(int number);

/// Throws the `RuntimeFailure` of that number with its usual text.
[[noreturn]] void Fail(int number);

/// Runs `step` and returns the failure that ended it, if one did. Memory that the machine does not
/// have is failure 7.
std::optional<RuntimeFailure> FailureOfStep(const std::function<void()>& step);

/// The text that the error box shows: "Run-time error '9':", an empty line, the failure's text.
std::string ErrorBoxText(const RuntimeFailure& failure);

}  // namespace brindlemoor
