#include "core/runtime_failure.h"

#include <new>
#include <stdexcept>

namespace brindlemoor {

std::string FailureText(int number) {
    switch (number) {
        case kInvalidCall:
            return "Invalid procedure call or argument";
        case kOverflow:
            return "Overflow";
        case kOutOfMemory:
            return "Out of memory";
        case kIndexRange:
            return "Subscript out of range";
        case kDivisionByZero:
            return "Division by zero";
        case kTypeMismatch:
            return "Type mismatch";
        case kCannotPerform:
            return "Can't perform requested operation";
        case kControlNotFound:
            return "Control not found";
        default:
            return "Application-defined or object-defined error";
    }
}

void Fail(int number) {
    throw RuntimeFailure{number, FailureText(number)};
}

std::optional<RuntimeFailure> FailureOfStep(const std::function<void()>& step) {
    try {
        step();
        return std::nullopt;
    } catch (const RuntimeFailure& failure) {
        return failure;
    } catch (const std::bad_alloc&) {
        return RuntimeFailure{kOutOfMemory, FailureText(kOutOfMemory)};
    } catch (const std::length_error&) {
        return RuntimeFailure{kOutOfMemory, FailureText(kOutOfMemory)};
    }
}

std::string ErrorBoxText(const RuntimeFailure& failure) {
    return "Run-time error '" + std::to_string(failure.Number) + "':\r\n\r\n" + failure.Text;
}

}  // namespace brindlemoor
