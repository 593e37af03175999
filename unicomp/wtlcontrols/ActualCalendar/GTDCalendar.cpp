#include "unicomp/wtlcontrols/ActualCalendar/GTDCalendar.h"

#include <commctrl.h>

#include "unicomp/wtlcontrols/ActualCalendar/CalendarDates.h"

namespace WTLControls {

namespace {

// 2078-12-31 23:59:59.
constexpr LONGLONG last_moment = 655753535990000000;

}  // namespace

void CGTDCalendar::SetRange() {
    SYSTEMTIME range[] = {get_Date(), system_time(last_moment)};
    ::SendMessageW(m_hWnd, DTM_SETRANGE, GDTR_MIN | GDTR_MAX, reinterpret_cast<LPARAM>(range));
}

}  // namespace WTLControls
