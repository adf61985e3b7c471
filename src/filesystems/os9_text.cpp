#include "filesystems/os9_text.h"

#include <algorithm>

#include "core/byte_helpers.h"
#include "core/dates.h"
#include "core/disk_state.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

constexpr int kFirstYear = 1900;
constexpr int kEarliestYear = 1970;

/// A date that is no more than a time of day is kept as a fraction of day 0.
bool TimeOfDay(int hour, int minute, double& date) {
    if (hour > 23 || minute > 59) return false;
    date = (hour * 60 + minute) / 1440.0;
    return true;
}

void DateFromBytes(const std::string& bytes, double& date) {
    const bool withTime = bytes.size() == 5;
    CalendarTime time;
    time.Year = ByteAt(bytes, 0) + kFirstYear;
    if (time.Year < kEarliestYear) time.Year += 100;
    time.Month = ByteAt(bytes, 1);
    time.Day = ByteAt(bytes, 2);
    time.Hour = withTime ? ByteAt(bytes, 3) : 0;
    time.Minute = withTime ? ByteAt(bytes, 4) : 0;
    if (time.Day == 0 && time.Month == 0) {
        TimeOfDay(time.Hour, time.Minute, date);
    } else {
        DateFromCalendar(time, date);
    }
}

/// The five fields of a date as they stand on the disk.
struct DateFields {
    int Year;
    int Month;
    int Day;
    int Hour;
    int Minute;
};

DateFields FieldsOf(double date) {
    const CalendarTime time = CalendarTimeOf(date);
    return {time.Year - kFirstYear, time.Month, time.Day, time.Hour, time.Minute};
}

std::string BytesOf(const DateFields& fields, int length) {
    std::string bytes;
    for (const int field : {fields.Year, fields.Month, fields.Day, fields.Hour, fields.Minute}) {
        if (field < 0 || field > 255) Fail(kInvalidCall);
        bytes += static_cast<char>(field);
    }
    return Left(bytes, length);
}

}  // namespace

std::string Os9NameText(const std::string& text) {
    if (text.empty()) return {};
    std::string name = text;
    std::replace(name.begin(), name.end(), '\0', ' ');
    name[0] = text[0];
    name = TrimRight(name);
    if (!name.empty()) name.back() = static_cast<char>(name.back() ^ 0x80);
    return name;
}

std::string Os9DateBytes(std::string& bytes, double& date) {
    if (bytes.empty()) {
        bytes = BytesOf(FieldsOf(date), 5);
    } else {
        ReadOs9Date(bytes, date);
    }
    return DateText(date);
}

void ReadOs9Date(const std::string& bytes, double& date) {
    if (bytes.size() == 3 || bytes.size() == 5) DateFromBytes(bytes, date);
}

std::string Os9DateField(double date, int length) {
    DateFields fields = FieldsOf(date);
    if (fields.Year < 0 || fields.Year > 255) fields = {0, 0, 0, 0, 0};
    if (fields.Month < 0 || fields.Month > 12) fields.Month = 0;
    if (fields.Day < 0 || fields.Day > 31) fields.Day = 0;
    if (fields.Hour < 0 || fields.Hour > 24) fields.Hour = 0;
    // No date has such a minute, so that the cursor of the rows keeps its place.
    if (fields.Minute < 0 || fields.Minute > 59) Disk.DirCount = 0;
    return BytesOf(fields, length);
}

}  // namespace brindlemoor
