#include "core/dates.h"

#include <chrono>
#include <cmath>

#include "core/numbers.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr sys_days kDayZero{std::chrono::year{1899} / 12 / 30};

constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

// The first day of the first year, and the day behind the last year.
constexpr double kFirstDay = -657434;
constexpr double kDayBehindLast = 2958466;

constexpr int kSecondsInDay = 24 * 60 * 60;

/// A date taken apart. The fraction of a day before day 0 counts forward too: -1.25 is six
/// o'clock on 29 December 1899.
struct DateParts {
    int Day = 0;
    int SecondOfDay = 0;
};

DateParts PartsOf(double date) {
    // The times of the first day count away from 0 too.
    if (!(date > kFirstDay - 1 && date < kDayBehindLast)) Fail(kOverflow);
    double whole = 0;
    const double fraction = std::fabs(std::modf(date, &whole));
    DateParts parts{static_cast<int>(whole),
                    static_cast<int>(std::lround(fraction * kSecondsInDay))};
    if (parts.SecondOfDay == kSecondsInDay) {
        parts.SecondOfDay = 0;
        ++parts.Day;
    }
    return parts;
}

bool Within(int value, int lowest, int highest) {
    return value >= lowest && value <= highest;
}

std::string DayText(int day) {
    const std::chrono::year_month_day date{kDayZero + days{day}};
    return FormatNumber(static_cast<unsigned>(date.day()), "00") + "/" +
           FormatNumber(static_cast<unsigned>(date.month()), "00") + "/" +
           FormatNumber(static_cast<int>(date.year()), "0000");
}

std::string TimeText(int secondOfDay) {
    return FormatNumber(secondOfDay / 3600, "00") + ":" + FormatNumber(secondOfDay / 60 % 60, "00");
}

}  // namespace

std::string DateText(double date) {
    if (date == 0) return {};
    const DateParts parts = PartsOf(date);
    std::string text = DayText(parts.Day);
    if (parts.SecondOfDay != 0) text += " " + TimeText(parts.SecondOfDay);
    return text;
}

std::string DateAndTimeText(double date) {
    const DateParts parts = PartsOf(date);
    return DayText(parts.Day) + " " + TimeText(parts.SecondOfDay);
}

double DayCount(int year, int month, int day) {
    const sys_days first{std::chrono::year{year} / month / 1};
    return static_cast<double>((first - kDayZero).count() + (day - 1));
}

CalendarTime CalendarTimeOf(double date) {
    const DateParts parts = PartsOf(date);
    const std::chrono::year_month_day day{kDayZero + days{parts.Day}};
    CalendarTime time;
    time.Year = static_cast<int>(day.year());
    time.Month = static_cast<int>(static_cast<unsigned>(day.month()));
    time.Day = static_cast<int>(static_cast<unsigned>(day.day()));
    time.Hour = parts.SecondOfDay / 3600;
    time.Minute = parts.SecondOfDay / 60 % 60;
    return time;
}

bool DateFromCalendar(const CalendarTime& time, double& date) {
    const bool fields = Within(time.Year, kFirstYear, kLastYear) && Within(time.Month, 1, 12) &&
                        Within(time.Day, 1, 31) && Within(time.Hour, 0, 23) &&
                        Within(time.Minute, 0, 59);
    if (!fields) return false;
    const std::chrono::year_month_day day{std::chrono::year{time.Year},
                                          std::chrono::month{static_cast<unsigned>(time.Month)},
                                          std::chrono::day{static_cast<unsigned>(time.Day)}};
    if (!day.ok()) return false;
    const double whole = DayCount(time.Year, time.Month, time.Day);
    const double fraction = (time.Hour * 60 + time.Minute) / 1440.0;
    date = whole < 0 ? whole - fraction : whole + fraction;
    return true;
}

}  // namespace brindlemoor
