#include "core/dates.h"

#include <chrono>
#include <cmath>

#include "core/byte_helpers.h"
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

/// True where `text` has a digit for each "0" of `form`, and its other characters as they stand.
bool HasForm(const std::string& text, const std::string& form) {
    if (text.size() != form.size()) return false;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (form[i] == '0' ? !digit : text[i] != form[i]) return false;
    }
    return true;
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

double DateOfText(const std::string& text) {
    constexpr const char* kDay = "00/00/0000";
    const std::string date = Trim(text);
    if (date.empty()) return 0;
    const bool withTime = HasForm(date, std::string(kDay) + " 00:00");
    if (!withTime && !HasForm(date, kDay)) Fail(kTypeMismatch);
    const auto numberAt = [&date](std::int64_t offset, std::int64_t length) {
        return TextAsInteger(CutBytes(date, offset, length));
    };
    CalendarTime time{numberAt(6, 4), numberAt(3, 2), numberAt(0, 2), 0, 0};
    if (withTime) {
        time.Hour = numberAt(11, 2);
        time.Minute = numberAt(14, 2);
    }
    double value = 0;
    if (!DateFromCalendar(time, value)) Fail(kTypeMismatch);
    return value;
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
