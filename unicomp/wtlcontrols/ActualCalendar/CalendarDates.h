// Dates as a date picker has them. All raise the range error of the calendar for a date outside it.
#pragma once

#include "platform/com.h"

namespace WTLControls {

LONG day_number(const SYSTEMTIME& date);
// A day at 00:00:00.
SYSTEMTIME start_of_day(LONG day);
// Of a stamp in ticks.
SYSTEMTIME system_time(LONGLONG ticks);
// Of an OLE date, milliseconds included, and back.
SYSTEMTIME system_time_of_ole_date(double date);
double ole_date(const SYSTEMTIME& date);

}  // namespace WTLControls
