#include "unicomp/wtlcontrols/ActualCalendar/CalendarDates.h"

#include "unicomp/datetimeutils/interface/DateTime.h"

namespace WTLControls {

namespace {

ovDateTime::SDateTime stamp_of(const SYSTEMTIME& date) {
    ovDateTime::SDateTime stamp;
    stamp = date;
    return stamp;
}

}  // namespace

LONG day_number(const SYSTEMTIME& date) {
    return stamp_of(date).GetDayNumber();
}

SYSTEMTIME start_of_day(LONG day) {
    return system_time((day + ovDateTime::epoch_days) * ovDateTime::ticks_per_day);
}

SYSTEMTIME system_time(LONGLONG ticks) {
    return ovDateTime::SDateTime(ticks).ToSYSTEMTIME();
}

SYSTEMTIME system_time_of_ole_date(double date) {
    return system_time(ovDateTime::SDateTime::OleDate2Ticks(date));
}

double ole_date(const SYSTEMTIME& date) {
    return stamp_of(date).ToOleDate();
}

}  // namespace WTLControls
