// Calendar arithmetic of the years 1900 to 2078: day numbers, seconds of a day, and time stamps.
//
// A day number counts days since 1899-12-30, the whole part of an OLE date. Valid ones are 2 (1900-01-01) to
// 65380 (2078-12-31); 0 stands for no date where that is said. A time of day is in seconds, 0 to 86399.
// What is out of range raises std::range_error with a text that names the function, the argument, the range
// and the value. All are pure functions of their arguments; any thread.
#pragma once

#include <stdexcept>

#include "platform/com.h"

namespace ovDateTime {

constexpr LONGLONG ticks_per_second = 10000000;
constexpr LONGLONG ticks_per_millisecond = 10000;
constexpr LONGLONG ticks_per_day = 864000000000;
// From 0001-01-01 to 1899-12-30.
constexpr LONG epoch_days = 693593;
constexpr LONGLONG epoch_ticks = 599264352000000000;
// 1900-01-01, the value of a stamp that nobody has set.
constexpr LONGLONG default_ticks = 599266080000000000;

constexpr LONG first_day = 2;
constexpr LONG last_day = 65380;
constexpr LONG last_second = 86399;

struct TDate {
    SHORT Month;
    SHORT Day;
    SHORT Year;
};

struct TTime {
    SHORT Hour;
    SHORT Minute;
    SHORT Second;
};

// Days in that month. The year may be any.
LONG GetDaysInMonth(LONG aYear, LONG aMonth);

// Time of day.
LONG HMSToTime(LONG aHour, LONG aMinute, LONG aSecond);

// Always true.
bool TimeToTTime(LONG aTime, TTime& aResult);

namespace details {

// Day number of a date. Always true.
bool DateToJulianImpl(const TDate& aDate, LONG& aDays);

// False, with the result untouched, when the day number is neither 0 nor valid. 0 gives 1899-12-30.
bool JulianToDateImpl(LONG aDays, TDate& aResult);

// 0 for Sunday to 6 for Saturday, of a day number 0 to 65380.
LONG GetDayOfWeekImpl(LONG aDays);

}  // namespace details

// Writes year, month, day of the week and day; the time stays as it is. 0 when done, 1 when the day number
// can't be converted.
LONG ReplaceDateInSYSTEMTIME(LONG aDate, SYSTEMTIME& aResult);

// Writes hour, minute and second, and no milliseconds; the date stays as it is. 0 when done, 1 when the time
// can't be converted.
LONG ReplaceTimeInSYSTEMTIME(LONG aTime, SYSTEMTIME& aResult);

// A valid day number with a valid time of day, or no date and no time: both 0. What is not valid is traced;
// nothing is raised.
bool IsDateTimeValid(LONG aDate, LONG aTime);

// A time stamp: ticks of 100 nanoseconds since 0001-01-01.
struct SDateTime {
    LONGLONG m_ticks = default_ticks;

    SDateTime() = default;
    explicit SDateTime(LONGLONG ticks) : m_ticks(ticks) {}

    // Ticks of an OLE date, 0 to 65381, rounded to 10 microseconds.
    static LONGLONG OleDate2Ticks(double value);

    // The stamp as an OLE date. For stamps from 1899-12-30 on.
    double ToOleDate() const {
        return static_cast<double>(m_ticks - epoch_ticks) / static_cast<double>(ticks_per_day);
    }

    // The day of the week is not looked at. Nothing changes when the date is refused.
    SDateTime& operator=(const SYSTEMTIME& aDate);

    // Day number and time of day of the stamp, whatever they are.
    LONG GetDayNumber() const { return static_cast<LONG>((m_ticks - epoch_ticks) / ticks_per_day); }
    LONG GetTimeOfDay() const { return static_cast<LONG>(m_ticks % ticks_per_day / ticks_per_second); }

    // Fills the record that it is given, or one of its own, and gives a copy.
    SYSTEMTIME ToSYSTEMTIME(SYSTEMTIME* aResult = nullptr) const;
};

}  // namespace ovDateTime
