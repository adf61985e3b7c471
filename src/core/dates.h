#pragma once

#include <string>

namespace brindlemoor {

/// A date is a day count from 30 December 1899, its fraction the time of day.
///
/// `date` as "dd/mm/yyyy", followed by " hh:mm" when it has a time of day; a date of 0 is blank
/// and gives an empty text.
std::string DateText(double date);

/// `date` as "dd/mm/yyyy hh:mm", the form of the disk's title line.
std::string DateAndTimeText(double date);

/// The date of a text that `DateText` made: 0 for a blank one. Fails with 13 on any other text, and
/// on a day or time that does not exist.
double DateOfText(const std::string& text);

/// The day count of a day of the calendar, at midnight. `month` 1 to 12, `day` from 1.
double DayCount(int year, int month, int day);

/// A day of the calendar with its time.
struct CalendarTime {
    int Year = 0;
    int Month = 0;  ///< from 1
    int Day = 0;    ///< from 1
    int Hour = 0;
    int Minute = 0;
};

/// The day and time of a date, seconds left out. Fails with 6 outside the years 100 to 9999.
CalendarTime CalendarTimeOf(double date);

/// Puts the day count of `time` into `date`. A day or time that does not exist, or a year outside
/// 100 to 9999, leaves `date` as it was, and returns false.
bool DateFromCalendar(const CalendarTime& time, double& date);

}  // namespace brindlemoor
