#pragma once

#include "platform/com.h"
#include "platform/win32/frame/subclassed_window.h"

namespace WTLControls {

// A date picker that moves a past date forward to today by itself, within a minute. Lives on the picker's
// thread. Dates outside 1900 to 2078 raise a range error.
class CActualCalendar : public frame::subclassed_window {
public:
    // After SubclassWindow. The timer ends with the picker.
    void StartTimer();

    // Day numbers of the date shown and of the local date.
    LONG GetDateDay() const;
    LONG GetTodayDay() const;

    SYSTEMTIME get_Date() const;

    // Whether the user picked today. Nothing here reads it.
    bool get_IsToday() const { return m_today_picked; }
    void put_IsToday(bool today) { m_today_picked = today; }

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

protected:
    ~CActualCalendar() = default;

    // The calendar has moved its own date forward.
    virtual void OnDateCorrected() {}

    // The date is corrected only while this is set.
    bool m_active = true;

private:
    frame::answer _dispatch(UINT uMsg);
    void _on_timer();

    bool m_today_picked = false;
};

}  // namespace WTLControls
