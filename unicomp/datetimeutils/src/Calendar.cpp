#include <array>
#include <string>

#include "unicomp/datetimeutils/interface/DateTime.h"
#include "unicomp/datetimeutils/src/RangeCheck.h"

namespace ovDateTime {
namespace {

constexpr LONG first_year = 1900;
constexpr LONG last_year = 2078;
constexpr LONG february = 2;

constexpr std::array<LONG, 12> month_lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr std::array<LONG, 12> days_before{0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
constexpr std::array<LONG, 12> days_before_leap{0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335};

constexpr bool is_leap(LONG year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// Day number of January 1st of each year.
constexpr auto first_days = [] {
    std::array<LONG, last_year - first_year + 1> days{};
    LONG day = first_day;
    for (LONG year = first_year; year <= last_year; ++year) {
        days[static_cast<std::size_t>(year - first_year)] = day;
        day += is_leap(year) ? 366 : 365;
    }
    return days;
}();
static_assert(first_days[0] == 2 && first_days[1] == 367 && first_days[5] == 1828);
static_assert(first_days.back() == 65016);

}  // namespace

LONG GetDaysInMonth(LONG aYear, LONG aMonth) {
    details::check_range("ovDateTime::GetDaysInMonth", "aMonth", 1, 12, aMonth);
    if (aMonth == february && is_leap(aYear)) {
        return 29;
    }
    return month_lengths[static_cast<std::size_t>(aMonth - 1)];
}

namespace details {

bool DateToJulianImpl(const TDate& aDate, LONG& aDays) {
    constexpr const char* function = "ovDateTime::details::DateToJulianImpl";
    check_range(function, "aDate.Year", first_year, last_year, aDate.Year);
    check_range(function, "aDate.Month", 1, 12, aDate.Month);
    check_range(function, "aDate.Day", LONG{1}, GetDaysInMonth(aDate.Year, aDate.Month), aDate.Day);
    const bool leap = is_leap(aDate.Year);
    // Deliberate: the length of the month has refused this day already. The guard keeps the leap table from
    // being read for another year should the lengths ever change, and its text has a blank that is kept too.
    if (aDate.Month == february && aDate.Day == 29 && !leap) {
        throw std::range_error(std::string(function) + " : TDate out of range (not leap year! 29 Feb " +
                               std::to_string(aDate.Year) + ")");
    }
    const auto month = static_cast<std::size_t>(aDate.Month - 1);
    aDays = (leap ? days_before_leap : days_before)[month] +
            first_days[static_cast<std::size_t>(aDate.Year - first_year)] + aDate.Day - 1;
    return true;
}

// The conversion of Fliegel and Van Flandern, whose names the variables bear. All divisions drop the rest.
bool JulianToDateImpl(LONG aDays, TDate& aResult) {
    if (aDays != 0 && (aDays < first_day || aDays > last_day)) {
        return false;
    }
    constexpr LONG to_julian_day = 2415019;
    LONG l = aDays + to_julian_day + 68569;
    const LONG n = 4 * l / 146097;
    l -= (146097 * n + 3) / 4;
    const LONG i = 4000 * (l + 1) / 1461001;
    l = l - 1461 * i / 4 + 31;
    const LONG j = 80 * l / 2447;
    aResult.Day = static_cast<SHORT>(l - 2447 * j / 80);
    l = j / 11;
    aResult.Month = static_cast<SHORT>(j + 2 - 12 * l);
    aResult.Year = static_cast<SHORT>(100 * (n - 49) + i + l);
    return true;
}

LONG GetDayOfWeekImpl(LONG aDays) {
    constexpr LONG saturday = 6;
    check_range("ovDateTime::details::GetDayOfWeekImpl", "aDays", LONG{0}, last_day, aDays);
    return aDays == 0 ? saturday : (aDays - 1) % 7;
}

}  // namespace details
}  // namespace ovDateTime
