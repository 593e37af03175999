#include "unicomp/wtlcontrols/ActualCalendar/ActualCalendar.h"

#include <commctrl.h>

#include "platform/clock.h"
#include "unicomp/wtlcontrols/ActualCalendar/CalendarDates.h"

namespace WTLControls {

namespace {

constexpr UINT_PTR timer_id = 1751;
constexpr UINT timer_milliseconds = 60000;

}  // namespace

void CActualCalendar::StartTimer() {
    ::SetTimer(m_hWnd, timer_id, timer_milliseconds, nullptr);
}

LONG CActualCalendar::GetDateDay() const {
    return day_number(get_Date());
}

LONG CActualCalendar::GetTodayDay() const {
    return day_number(platform::port<platform::clock>::get().local_time());
}

SYSTEMTIME CActualCalendar::get_Date() const {
    SYSTEMTIME date = {};
    ::SendMessageW(m_hWnd, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date));
    return date;
}

BOOL CActualCalendar::ProcessWindowMessage(HWND, UINT uMsg, WPARAM, LPARAM, LRESULT& lResult,
                                           DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    return frame::take(frame::guarded(BS_HERE, [&] { return _dispatch(uMsg); }), lResult);
}

frame::answer CActualCalendar::_dispatch(UINT uMsg) {
    switch (uMsg) {
        case WM_TIMER:
            // Any timer will do, on purpose.
            _on_timer();
            return 0;
        case WM_DESTROY:
            ::KillTimer(m_hWnd, timer_id);
            // The picker ends windows of its own here.
            DefWindowProc(WM_DESTROY, 0, 0);
            return 0;
        default:
            return frame::declined;
    }
}

void CActualCalendar::_on_timer() {
    const LONG today = GetTodayDay();
    if (GetDateDay() < today && m_active) {
        SYSTEMTIME corrected = start_of_day(today);
        ::SendMessageW(m_hWnd, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&corrected));
        OnDateCorrected();
    }
}

}  // namespace WTLControls
