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

void CGTDCalendar::OnDateCorrected() {
    SetRange();
    NMDATETIMECHANGE change = {};
    change.nmhdr.hwndFrom = m_hWnd;
    change.nmhdr.idFrom = static_cast<UINT_PTR>(::GetDlgCtrlID(m_hWnd));
    change.nmhdr.code = DTN_DATETIMECHANGE;
    change.dwFlags = GDT_VALID;
    change.st = get_Date();
    ::SendMessageW(::GetParent(m_hWnd), WM_NOTIFY, change.nmhdr.idFrom, reinterpret_cast<LPARAM>(&change));
}

}  // namespace WTLControls
