// The user's presses of Buy and Sell, and those of other programs.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "charting/orderdeck/src/window/WindowText.h"
#include "tests/monkey/window_subject.h"

namespace monkey {

namespace {

constexpr ULONGLONG long_enough = 3000;
constexpr LPARAM inside = MAKELPARAM(5, 5);
constexpr LPARAM outside = MAKELPARAM(-50, -50);

bool is_list(bit field) {
    return field == type_bit || field == account_bit || field == time_bit;
}

CString chosen_text(HWND combo) {
    const LRESULT current = SendMessageW(combo, CB_GETCURSEL, 0, 0);
    std::array<wchar_t, 100> text{};
    if (current != CB_ERR) {
        SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(current),
                     reinterpret_cast<LPARAM>(text.data()));
    }
    return text.data();
}

bool is_on_screen(HWND window) {
    return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

LONG day_in(HWND picker) {
    SYSTEMTIME shown = {};
    double date = 0.0;
    SendMessageW(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown));
    SystemTimeToVariantTime(&shown, &date);
    return static_cast<LONG>(std::floor(date));
}

}  // namespace

CString window_subject::text_of(bit field) const {
    const HWND window = item(item_of(field));
    return is_list(field) ? chosen_text(window) : OV_OrderDeck::window_text(window);
}

seen_row window_subject::eyes() const {
    seen_row seen;
    _bstr_t active;
    m_host.root->get_ActiveTab(active.GetAddress());
    const CString id = platform::text_of(active);
    const auto& all = profiles();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const profile_names& each) { return each.outer_id == id; });
    seen.profile = static_cast<int>(found - all.begin());
    seen.day = day_in(item(item_of(date_bit)));
    for (const bit field : all_bits()) {
        const HWND window = item(item_of(field));
        const bool shown = is_on_screen(window);
        seen.items[field] = {shown ? text_of(field) : CString(), shown, IsWindowEnabled(window) != FALSE};
    }
    return seen;
}

void window_subject::settle() {
    const auto stands = [&] {
        const CString type = text_of(type_bit);
        const bool first = type == type_text(2) || type == type_text(4);
        const bool second = type == type_text(3) || type == type_text(4);
        return is_on_screen(item(item_of(first_price_bit))) == first &&
               is_on_screen(item(item_of(second_price_bit))) == second &&
               is_on_screen(item(item_of(date_bit))) == (text_of(time_bit) == time_text(3));
    };
    const ULONGLONG end = GetTickCount64() + long_enough;
    while (!m_unruly && !stands() && GetTickCount64() < end) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        MSG message = {};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            DispatchMessageW(&message);
        }
    }
}

void window_subject::press(bit button, press_way way) {
    const HWND window = item(item_of(button));
    if (way != press_way::command && IsWindowEnabled(window) == FALSE) {
        return;
    }
    settle();
    if (way == press_way::space) {
        return press_space(button);
    }
    const witness::watched watched(m_host.door, eyes());
    if (way == press_way::command) {
        SendMessageW(m_panel, WM_COMMAND, MAKEWPARAM(item_of(button), BN_CLICKED),
                     reinterpret_cast<LPARAM>(window));
    } else if (way == press_way::click) {
        SendMessageW(window, BM_CLICK, 0, 0);
    } else {
        SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, inside);
        SendMessageW(window, WM_LBUTTONUP, 0, inside);
    }
}

// The focus is on the button when the key goes down.
void window_subject::press_space(bit button) {
    SetFocus(item(item_of(button)));
    const witness::watched watched(m_host.door, eyes());
    strike(VK_SPACE);
}

void window_subject::type_and_press(const action& done) {
    const bit field = typed_field(done);
    type(item_of(field), typed_text(field, done.which));
    press(done.yes ? buy_bit : sell_bit, way_of(done));
}

void window_subject::abandon_press(bit button) {
    const HWND window = item(item_of(button));
    if (IsWindowEnabled(window) != FALSE) {
        SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, inside);
        SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, outside);
        SendMessageW(window, WM_LBUTTONUP, 0, outside);
    }
}

}  // namespace monkey
