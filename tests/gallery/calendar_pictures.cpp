#include <windows.h>

#include <commctrl.h>

#include "tests/gallery/gallery.h"
#include "unicomp/wtlcontrols/ActualCalendar/GTDCalendar.h"

namespace {

const gallery::entry entry{
    "gtd_calendar",
    {{"normal"}, {"focused"}, {"disabled", false}},
    [](gallery::stage& on, const std::string& state) {
        const HWND window = on.put(L"SysDateTimePick32", L"", DTS_SHORTDATECENTURYFORMAT, {112, 24});
        const auto made = std::make_shared<WTLControls::CGTDCalendar>();
        made->SubclassWindow(window);
        const SYSTEMTIME date = {2031, 5, 0, 23, 0, 0, 0, 0};
        SendMessageW(window, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date));
        if (state == "focused") {
            SetFocus(window);
        }
        EnableWindow(window, state != "disabled");
        return gallery::shown{window, made, {}};
    }};

}  // namespace
