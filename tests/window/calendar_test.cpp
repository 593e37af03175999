#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"
#include "tests/support/diagnostics_recorder.h"
#include "tests/support/win32/told_import.h"
#include "unicomp/wtlcontrols/ActualCalendar/CalendarDates.h"
#include "unicomp/wtlcontrols/ActualCalendar/GTDCalendar.h"

namespace {

class set_clock final : public platform::clock {
public:
    SYSTEMTIME now = {2030, 5, 3, 15, 23, 59, 30, 0};
    SYSTEMTIME local_time() override { return now; }
    DWORD tick_count() override { return 0; }
    double milliseconds() override { return 0.0; }
};

// A calendar that notes its corrections and does not correct its range.
class noting_calendar final : public WTLControls::CActualCalendar {
public:
    int corrections = 0;
    void put_Active(bool active) { m_active = active; }

private:
    void OnDateCorrected() override { ++corrections; }
};

// A calendar as it is, without anything of its own at a correction.
class plain_calendar final : public WTLControls::CActualCalendar {};

class Calendar : public testing::Test {
protected:
    Calendar() {
        const frame::common_controls_scope scope;
        parent = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 300, 60, nullptr, nullptr,
                                 frame::module_instance(), nullptr);
        picker = CreateWindowExW(0, DATETIMEPICK_CLASSW, L"", WS_CHILD | DTS_SHORTDATEFORMAT, 0, 0, 100, 24,
                                 parent, nullptr, frame::module_instance(), nullptr);
        show({2030, 5, 0, 15, 8, 30, 10, 0});
    }
    ~Calendar() override { DestroyWindow(parent); }

    void show(SYSTEMTIME date) {
        SendMessageW(picker, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date));
    }
    SYSTEMTIME shown() const {
        SYSTEMTIME date = {};
        SendMessageW(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date));
        return date;
    }
    SYSTEMTIME range(int end, DWORD& which) const {
        SYSTEMTIME ends[2] = {};
        which = static_cast<DWORD>(SendMessageW(picker, DTM_GETRANGE, 0, reinterpret_cast<LPARAM>(ends)));
        return ends[end];
    }
    void midnight_passes() {
        clock.now = {2030, 5, 4, 16, 0, 0, 20, 0};
        SendMessageW(picker, WM_TIMER, 1751, 0);
    }

    diagnostics_recorder reports;
    set_clock clock;
    platform::port<platform::clock>::replacement replaced{clock};
    HWND parent = nullptr;
    HWND picker = nullptr;
};

void expect_day(const SYSTEMTIME& date, int year, int month, int day) {
    EXPECT_EQ(date.wYear, year);
    EXPECT_EQ(date.wMonth, month);
    EXPECT_EQ(date.wDay, day);
}

TEST_F(Calendar, APastDateMovesToTodayAtMidnight) {
    noting_calendar calendar;
    calendar.SubclassWindow(picker);
    SendMessageW(picker, WM_TIMER, 1751, 0);
    EXPECT_EQ(calendar.corrections, 0) << "today is not past";
    midnight_passes();
    expect_day(shown(), 2030, 5, 16);
    EXPECT_EQ(shown().wHour, 0);
    EXPECT_EQ(shown().wMinute, 0);
    EXPECT_EQ(shown().wSecond, 0);
    EXPECT_EQ(calendar.corrections, 1);
}

TEST_F(Calendar, AnyTimerCorrectsTheDate) {
    noting_calendar calendar;
    calendar.SubclassWindow(picker);
    clock.now = {2030, 5, 4, 16, 0, 0, 20, 0};
    SendMessageW(picker, WM_TIMER, 7, 0);
    expect_day(shown(), 2030, 5, 16);
}

TEST_F(Calendar, AFutureDateIsNotTouched) {
    noting_calendar calendar;
    calendar.SubclassWindow(picker);
    show({2031, 1, 0, 1, 9, 0, 0, 0});
    midnight_passes();
    expect_day(shown(), 2031, 1, 1);
    EXPECT_EQ(shown().wHour, 9);
    EXPECT_EQ(calendar.corrections, 0);
}

TEST_F(Calendar, APastDateStaysInACalendarThatIsNotActive) {
    noting_calendar calendar;
    calendar.SubclassWindow(picker);
    calendar.put_Active(false);
    midnight_passes();
    expect_day(shown(), 2030, 5, 15);
    EXPECT_EQ(calendar.corrections, 0);
}

TEST_F(Calendar, TheGoodTillDateRangesFromTheDateShownToTheEndOf2078) {
    WTLControls::CGTDCalendar calendar;
    calendar.SubclassWindow(picker);
    calendar.SetRange();
    DWORD which = 0;
    expect_day(range(0, which), 2030, 5, 15);
    EXPECT_EQ(which, static_cast<DWORD>(GDTR_MIN | GDTR_MAX));
    const SYSTEMTIME last = range(1, which);
    expect_day(last, 2078, 12, 31);
    EXPECT_EQ(last.wHour, 23);
    EXPECT_EQ(last.wMinute, 59);
    EXPECT_EQ(last.wSecond, 59);
}

TEST_F(Calendar, ACorrectionOfTheGoodTillDateMovesItsLowerEnd) {
    WTLControls::CGTDCalendar calendar;
    calendar.SubclassWindow(picker);
    calendar.SetRange();
    midnight_passes();
    expect_day(shown(), 2030, 5, 16);
    DWORD which = 0;
    expect_day(range(0, which), 2030, 5, 16);
}

TEST_F(Calendar, ACorrectionLeavesTheRangeOfAPlainCalendarAlone) {
    plain_calendar calendar;
    calendar.SubclassWindow(picker);
    midnight_passes();
    expect_day(shown(), 2030, 5, 16);
    DWORD which = 99;
    range(0, which);
    EXPECT_EQ(which, 0u) << "it has none";
}

TEST_F(Calendar, AUsersLaterDateDoesNotMoveTheLowerEnd) {
    WTLControls::CGTDCalendar calendar;
    calendar.SubclassWindow(picker);
    calendar.SetRange();
    show({2031, 1, 0, 1, 9, 0, 0, 0});
    midnight_passes();
    DWORD which = 0;
    expect_day(range(0, which), 2030, 5, 15);
}

TEST_F(Calendar, TheTimerRunsOnThePickerUntilItIsDestroyed) {
    WTLControls::CGTDCalendar calendar;
    calendar.SubclassWindow(picker);
    calendar.StartTimer();
    EXPECT_TRUE(KillTimer(picker, 1751));
    calendar.StartTimer();
    LRESULT result = 1;
    EXPECT_TRUE(calendar.ProcessWindowMessage(picker, WM_DESTROY, 0, 0, result, 0));
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(KillTimer(picker, 1751));
}

TEST_F(Calendar, TheDateIsLookedAtOnceAMinute) {
    WTLControls::CGTDCalendar calendar;
    calendar.SubclassWindow(picker);
    std::vector<std::pair<UINT_PTR, UINT>> asked;
    const test::told_import<"SetTimer", UINT_PTR(HWND, UINT_PTR, UINT, TIMERPROC)> system(
        [&](HWND window, UINT_PTR id, UINT period, TIMERPROC) {
            EXPECT_EQ(window, picker);
            asked.emplace_back(id, period);
            return id;
        });
    calendar.StartTimer();
    EXPECT_EQ(asked, (std::vector<std::pair<UINT_PTR, UINT>>{{1751, 60000}}));
}

TEST_F(Calendar, DayNumbersCountFromTheEndOf1899) {
    WTLControls::CGTDCalendar calendar;
    calendar.SubclassWindow(picker);
    show({2078, 1, 0, 1, 23, 59, 59, 0});
    EXPECT_EQ(calendar.GetDateDay(), 65016);
    clock.now = {1900, 1, 1, 1, 12, 0, 0, 0};
    EXPECT_EQ(calendar.GetTodayDay(), 2);
}

TEST_F(Calendar, ADateOutsideTheCalendarIsLoggedAndNothingChanges) {
    noting_calendar calendar;
    calendar.SubclassWindow(picker);
    clock.now = {2079, 1, 0, 1, 0, 0, 0, 0};
    SendMessageW(picker, WM_TIMER, 1751, 0);
    expect_day(shown(), 2030, 5, 15);
    ASSERT_EQ(reports.traces().size(), 1u);
    EXPECT_EQ(reports.traces()[0].find(L"std::exception - ovDateTime::SDateTime::operator =: value of "
                                       L"'aDate.wYear' is out of range [1900..2078]; aDate.wYear = 2079"),
              0u);
}

TEST_F(Calendar, AnUnexpectedMapIdIsReported) {
    WTLControls::CGTDCalendar calendar;
    LRESULT result = 0;
    EXPECT_FALSE(calendar.ProcessWindowMessage(picker, WM_TIMER, 0, 0, result, 1));
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"0");
}

TEST(CalendarDates, AnOleDateKeepsItsMilliseconds) {
    const SYSTEMTIME date = WTLControls::system_time_of_ole_date(65016.0 + 500.0 / 86400000.0);
    EXPECT_EQ(date.wYear, 2078);
    EXPECT_EQ(date.wMilliseconds, 500);
    EXPECT_EQ(WTLControls::ole_date({2078, 1, 0, 1, 18, 0, 0, 0}), 65016.75);
}

}  // namespace
