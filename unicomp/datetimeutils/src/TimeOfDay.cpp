#include "diagnostics/BugSlayerUtil.h"
#include "unicomp/datetimeutils/interface/DateTime.h"
#include "unicomp/datetimeutils/src/RangeCheck.h"

namespace ovDateTime {

LONG HMSToTime(LONG aHour, LONG aMinute, LONG aSecond) {
    constexpr const char* function = "ovDateTime::HMSToTime";
    details::check_range(function, "aHour", 0, 23, aHour);
    details::check_range(function, "aMinute", 0, 59, aMinute);
    details::check_range(function, "aSecond", 0, 59, aSecond);
    return (aMinute + aHour * 60) * 60 + aSecond;
}

bool TimeToTTime(LONG aTime, TTime& aResult) {
    details::check_range("ovDateTime::TimeToTTime", "aTime", LONG{0}, last_second, aTime);
    aResult.Hour = static_cast<SHORT>(aTime / 3600);
    aResult.Minute = static_cast<SHORT>(aTime % 3600 / 60);
    aResult.Second = static_cast<SHORT>(aTime % 60);
    return true;
}

LONG ReplaceDateInSYSTEMTIME(LONG aDate, SYSTEMTIME& aResult) {
    details::check_range("ovDateTime::ReplaceDateInSYSTEMTIME", "aDate", first_day, last_day, aDate);
    TDate date{};
    if (!details::JulianToDateImpl(aDate, date)) {
        return 1;
    }
    aResult.wYear = static_cast<WORD>(date.Year);
    aResult.wMonth = static_cast<WORD>(date.Month);
    aResult.wDayOfWeek = static_cast<WORD>(details::GetDayOfWeekImpl(aDate));
    aResult.wDay = static_cast<WORD>(date.Day);
    return 0;
}

LONG ReplaceTimeInSYSTEMTIME(LONG aTime, SYSTEMTIME& aResult) {
    details::check_range("ovDateTime::ReplaceTimeInSYSTEMTIME", "aTime", LONG{0}, last_second, aTime);
    TTime time{};
    if (!TimeToTTime(aTime, time)) {
        return 1;
    }
    aResult.wHour = static_cast<WORD>(time.Hour);
    aResult.wMinute = static_cast<WORD>(time.Minute);
    aResult.wSecond = static_cast<WORD>(time.Second);
    aResult.wMilliseconds = 0;
    return 0;
}

bool IsDateTimeValid(LONG aDate, LONG aTime) {
    const bool valid = aDate >= first_day && aDate <= last_day && aTime >= 0 && aTime <= last_second;
    if (valid || (aDate == 0 && aTime == 0)) {
        return true;
    }
    const BugSlayerUtil::code_location here{__FILE__, __LINE__, "ovDateTime::IsDateTimeValid",
                                            __PRETTY_FUNCTION__};
    BugSlayerUtil::tracef(here, "%d - %d", int{aDate}, int{aTime});
    return false;
}

}  // namespace ovDateTime
