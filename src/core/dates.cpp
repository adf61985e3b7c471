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

// Years 100 to 9999, as four digits hold them.
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
    if (!(date >= kFirstDay && date < kDayBehindLast)) Fail(kOverflow);
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
    if (time.Month < 1 || time.Month > 12 || time.Day < 1) return false;
    const std::chrono::year_month_day day{std::chrono::year{time.Year},
                                          std::chrono::month{static_cast<unsigned>(time.Month)},
                                          std::chrono::day{static_cast<unsigned>(time.Day)}};
    const bool clock = time.Hour >= 0 && time.Hour < 24 && time.Minute >= 0 && time.Minute < 60;
    if (!day.ok() || !clock) return false;
    date = DayCount(time.Year, time.Month, time.Day) + (time.Hour * 60 + time.Minute) / 1440.0;
    return true;
}

}  // namespace brindlemoor
