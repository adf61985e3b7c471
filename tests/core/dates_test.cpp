#include "core/dates.h"

#include <gtest/gtest.h>

#include "core/runtime_failure.h"
#include "support/disk_fixture.h"

namespace brindlemoor {
namespace {

using test::FailureOf;

TEST(DayCount, BeginsAt30December1899) {
    EXPECT_EQ(DayCount(1899, 12, 30), 0);
    EXPECT_EQ(DayCount(1899, 12, 31), 1);
    EXPECT_EQ(DayCount(1900, 1, 1), 2);
    EXPECT_EQ(DayCount(1899, 12, 29), -1);
}

TEST(DayCount, KnowsLeapYears) {
    EXPECT_EQ(DayCount(1900, 3, 1) - DayCount(1900, 2, 28), 1);
    EXPECT_EQ(DayCount(2000, 3, 1) - DayCount(2000, 2, 28), 2);
    EXPECT_EQ(DayCount(1970, 1, 1), 25569);
    EXPECT_EQ(DayCount(2024, 2, 29), 45351);
}

TEST(DateText, PutsTheDayBeforeTheMonth) {
    EXPECT_EQ(DateText(DayCount(1987, 3, 9)), "09/03/1987");
    EXPECT_EQ(DateText(DayCount(2024, 12, 31)), "31/12/2024");
}

TEST(DateText, OfDay0IsBlank) {
    EXPECT_EQ(DateText(0), "");
}

TEST(DateText, AddsTheTimeOfDayWhereThereIsOne) {
    EXPECT_EQ(DateText(DayCount(1987, 3, 9) + 0.25), "09/03/1987 06:00");
    EXPECT_EQ(DateText(0.5), "30/12/1899 12:00");
}

TEST(DateText, KeepsEveryMinuteOfADay) {
    const double day = DayCount(1999, 7, 4);
    for (int minute = 1; minute < 24 * 60; ++minute) {
        const double date = day + minute / 60 / 24.0 + minute % 60 / 1440.0;
        std::string expected = "04/07/1999 00:00";
        expected[11] = static_cast<char>('0' + minute / 600);
        expected[12] = static_cast<char>('0' + minute / 60 % 10);
        expected[14] = static_cast<char>('0' + minute % 60 / 10);
        expected[15] = static_cast<char>('0' + minute % 10);
        ASSERT_EQ(DateText(date), expected);
    }
}

TEST(DateText, ATimeThatRoundsToMidnightIsTheNextDay) {
    EXPECT_EQ(DateText(DayCount(1987, 3, 9) + 0.9999999), "10/03/1987");
}

TEST(DateText, CountsTheTimeForwardBeforeDay0) {
    EXPECT_EQ(DateText(-1.25), "29/12/1899 06:00");
}

TEST(DateText, FailsWith6OutsideFourDigitYears) {
    EXPECT_EQ(DateText(DayCount(9999, 12, 31)), "31/12/9999");
    EXPECT_EQ(DateText(DayCount(100, 1, 1)), "01/01/0100");
    EXPECT_EQ(FailureOf([] { DateText(1e7); }), kOverflow);
    EXPECT_EQ(FailureOf([] { DateText(-1e7); }), kOverflow);
    EXPECT_EQ(FailureOf([] { DateText(1e300); }), kOverflow);
}

TEST(DateAndTimeText, AlwaysShowsTheTime) {
    EXPECT_EQ(DateAndTimeText(DayCount(1987, 3, 9)), "09/03/1987 00:00");
    EXPECT_EQ(DateAndTimeText(DayCount(1987, 3, 9) + 0.75), "09/03/1987 18:00");
}

}  // namespace
}  // namespace brindlemoor
