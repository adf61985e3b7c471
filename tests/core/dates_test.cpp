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

TEST(DateOfText, ReadsBackWhatDateTextShows) {
    for (const double date : {0.0, 0.5, DayCount(1987, 3, 9), DayCount(2024, 2, 29) + 0.25,
                              DayCount(1850, 1, 1), DayCount(9999, 12, 31)}) {
        EXPECT_EQ(DateOfText(DateText(date)), date);
    }
    EXPECT_EQ(DateOfText("   "), 0);
    EXPECT_EQ(DateOfText(" 09/03/1987 "), DayCount(1987, 3, 9));
}

TEST(DateOfText, FailsOnAnyOtherText) {
    for (const char* text : {"x", "9/3/1987", "09/03/87", "09-03-1987", "31/04/1987", "00/03/1987",
                             "09/13/1987", "09/03/1987 6:00", "09/03/1987 24:00", "09/03/1987 06",
                             "09/03/1987 06:60", "09/03/1987  06:00", "0x/03/1987", "06:00"}) {
        EXPECT_EQ(FailureOf([text] { DateOfText(text); }), 13) << text;
    }
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

TEST(CalendarTimeOf, TakesADateApart) {
    const CalendarTime time = CalendarTimeOf(DayCount(1987, 3, 9) + 0.75);
    EXPECT_EQ(time.Year, 1987);
    EXPECT_EQ(time.Month, 3);
    EXPECT_EQ(time.Day, 9);
    EXPECT_EQ(time.Hour, 18);
    EXPECT_EQ(time.Minute, 0);
}

TEST(CalendarTimeOf, LeavesSecondsOut) {
    const CalendarTime time = CalendarTimeOf(DayCount(1987, 3, 9) + 59.0 / 86400);
    EXPECT_EQ(time.Hour, 0);
    EXPECT_EQ(time.Minute, 0);
    EXPECT_EQ(CalendarTimeOf(DayCount(1987, 3, 9) + 60.0 / 86400).Minute, 1);
}

TEST(CalendarTimeOf, ATimeThatRoundsToMidnightIsTheNextDay) {
    EXPECT_EQ(CalendarTimeOf(DayCount(1987, 3, 9) + 0.9999999).Day, 10);
}

TEST(CalendarTimeOf, Day0IsTheLastButOneOf1899) {
    const CalendarTime time = CalendarTimeOf(0);
    EXPECT_EQ(time.Year, 1899);
    EXPECT_EQ(time.Month, 12);
    EXPECT_EQ(time.Day, 30);
}

TEST(CalendarTimeOf, FailsWith6OutsideFourDigitYears) {
    EXPECT_EQ(CalendarTimeOf(DayCount(100, 1, 1)).Year, 100);
    EXPECT_EQ(CalendarTimeOf(DayCount(9999, 12, 31)).Year, 9999);
    EXPECT_EQ(FailureOf([] { CalendarTimeOf(DayCount(99, 12, 31)); }), kOverflow);
    EXPECT_EQ(FailureOf([] { CalendarTimeOf(DayCount(9999, 12, 31) + 1); }), kOverflow);
}

TEST(DateFromCalendar, IsTheDayCountWithTheTimeAsItsFraction) {
    double date = 0;
    EXPECT_TRUE(DateFromCalendar({1987, 3, 9, 18, 0}, date));
    EXPECT_EQ(date, DayCount(1987, 3, 9) + 0.75);
    EXPECT_TRUE(DateFromCalendar({2000, 2, 29, 0, 0}, date));
    EXPECT_EQ(date, DayCount(2000, 2, 29));
}

TEST(DateFromCalendar, ADayOrTimeThatDoesNotExistChangesNothing) {
    for (const CalendarTime& time :
         {CalendarTime{1987, 0, 1, 0, 0}, CalendarTime{1987, 13, 1, 0, 0},
          CalendarTime{1987, -1, 1, 0, 0}, CalendarTime{1987, 257, 1, 0, 0},
          CalendarTime{1987, 1, 0, 0, 0}, CalendarTime{1987, 1, 32, 0, 0},
          CalendarTime{1987, 1, 257, 0, 0}, CalendarTime{1987, 1, -255, 0, 0},
          CalendarTime{1987, 2, 29, 0, 0}, CalendarTime{1900, 2, 29, 0, 0},
          CalendarTime{1987, 4, 31, 0, 0}, CalendarTime{1987, 1, 1, 24, 0},
          CalendarTime{1987, 1, 1, -1, 0}, CalendarTime{1987, 1, 1, 0, 60},
          CalendarTime{1987, 1, 1, 0, -1}, CalendarTime{99, 1, 1, 0, 0},
          CalendarTime{10000, 1, 1, 0, 0}, CalendarTime{65536 + 1987, 1, 1, 0, 0}}) {
        double date = 77;
        EXPECT_FALSE(DateFromCalendar(time, date));
        EXPECT_EQ(date, 77);
    }
}

TEST(DateFromCalendar, TakesWhatCalendarTimeOfGivesInAnyYear) {
    for (const double date : {DayCount(100, 1, 1) - 0.25, -1.25, 0.25, DayCount(2155, 12, 31) + 0.5,
                              DayCount(9999, 12, 31)}) {
        double again = 0;
        EXPECT_TRUE(DateFromCalendar(CalendarTimeOf(date), again));
        EXPECT_EQ(again, date);
    }
}

}  // namespace
}  // namespace brindlemoor
