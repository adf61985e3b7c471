#include "core/runtime_failure.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>

namespace brindlemoor {
namespace {

TEST(RuntimeFailure, CarriesItsNumberAndText) {
    try {
        Fail(kIndexRange);
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.Number, 9);
        EXPECT_EQ(failure.Text, "Subscript out of range");
        return;
    }
    FAIL() << "no failure was raised";
}

TEST(RuntimeFailure, EveryNumberHasATextOfItsOwn) {
    std::set<std::string> texts;
    for (const int number : std::initializer_list<int>{kInvalidCall, kOverflow, kOutOfMemory,
                                                       kIndexRange, kDivisionByZero, kTypeMismatch,
                                                       kCannotPerform, kControlNotFound, -1}) {
        EXPECT_FALSE(FailureText(number).empty()) << number;
        EXPECT_TRUE(texts.insert(FailureText(number)).second) << number;
    }
}

TEST(RuntimeFailure, TheErrorBoxShowsNumberAndText) {
    EXPECT_EQ(ErrorBoxText({6, "Overflow"}), "Run-time error '6':\r\n\r\nOverflow");
}

}  // namespace
}  // namespace brindlemoor
