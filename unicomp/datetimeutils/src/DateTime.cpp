#include "unicomp/datetimeutils/interface/DateTime.h"

#include "unicomp/datetimeutils/src/RangeCheck.h"

namespace ovDateTime {

LONGLONG SDateTime::OleDate2Ticks(double value) {
    constexpr const char* function = "ovDateTime::SDateTime::OleDate2Ticks";
    // Deliberate: one day more than a day number may have, so that a date just below midnight of the last
    // day may be rounded up.
    constexpr double highest = 65381.0;
    constexpr LONGLONG highest_num = 564891840000000;
    details::check_range(function, "value", 0.0, highest, value);
    // In units of 10 microseconds. Added and cut, not rounded by the library: stamps of hosts were made so.
    // NOLINTNEXTLINE(bugprone-incorrect-roundings)
    const auto num = static_cast<LONGLONG>(value * 8640000000.0 + 0.5);
    details::check_range(function, "num", LONGLONG{0}, highest_num, num);
    return (num + 5992643520000000) * 100;
}

SDateTime& SDateTime::operator=(const SYSTEMTIME& aDate) {
    constexpr const char* function = "ovDateTime::SDateTime::operator =";
    details::check_range(function, "aDate.wMilliseconds", 0, 999, int{aDate.wMilliseconds});
    details::check_range(function, "aDate.wSecond", 0, 59, int{aDate.wSecond});
    details::check_range(function, "aDate.wMinute", 0, 59, int{aDate.wMinute});
    details::check_range(function, "aDate.wHour", 0, 23, int{aDate.wHour});
    details::check_range(function, "aDate.wDay", 1, 31, int{aDate.wDay});
    details::check_range(function, "aDate.wMonth", 1, 12, int{aDate.wMonth});
    details::check_range(function, "aDate.wYear", 1900, 2078, int{aDate.wYear});
    const TDate date{static_cast<SHORT>(aDate.wMonth), static_cast<SHORT>(aDate.wDay),
                     static_cast<SHORT>(aDate.wYear)};
    LONG days = 0;
    details::DateToJulianImpl(date, days);
    const LONGLONG seconds =
        LONGLONG{days + epoch_days} * 86400 + HMSToTime(aDate.wHour, aDate.wMinute, aDate.wSecond);
    m_ticks = seconds * ticks_per_second + aDate.wMilliseconds * ticks_per_millisecond;
    return *this;
}

SYSTEMTIME SDateTime::ToSYSTEMTIME(SYSTEMTIME* aResult) const {
    SYSTEMTIME own{};
    SYSTEMTIME& filled = aResult != nullptr ? *aResult : own;
    ReplaceDateInSYSTEMTIME(GetDayNumber(), filled);
    ReplaceTimeInSYSTEMTIME(GetTimeOfDay(), filled);
    filled.wMilliseconds = static_cast<WORD>(m_ticks % ticks_per_second / ticks_per_millisecond);
    return filled;
}

}  // namespace ovDateTime
