// The user's keyboard and wheel.
#include <windows.h>

#include <commctrl.h>

#include "tests/monkey/window_subject.h"

namespace monkey {

namespace {

constexpr int editor_child = 10003;
constexpr int notch = 120;

// As the small arrows of an editor tell it: what goes up counts down.
void spin_in(HWND edit, int direction) {
    NMUPDOWN notice = {};
    notice.hdr = {GetDlgItem(edit, editor_child), editor_child, UDN_DELTAPOS};
    notice.iDelta = -direction;
    SendMessageW(edit, WM_NOTIFY, editor_child, reinterpret_cast<LPARAM>(&notice));
}

}  // namespace

void window_subject::strike(WPARAM key) {
    const HWND window = GetFocus();
    SendMessageW(window, WM_KEYDOWN, key, 1);
    SendMessageW(window, WM_KEYUP, key, 1);
}

void window_subject::strike_in(int id, WPARAM key) {
    if (usable(id)) {
        SetFocus(item(id));
        strike(key);
    }
}

void window_subject::step_quantity(int which) {
    const HWND edit = item(item_of(quantity_bit));
    const int direction = pick(steps_up_and_down(), which);
    const quantity_way way = pick(quantity_ways(), which / 2);
    if (IsWindowEnabled(edit) == FALSE) {
        return;
    }
    if (way != quantity_way::wheel_beside) {
        SetFocus(edit);
    }
    if (way == quantity_way::arrow_key) {
        strike(direction > 0 ? VK_UP : VK_DOWN);
    } else if (way == quantity_way::spin) {
        spin_in(edit, direction);
    } else {
        SendMessageW(edit, WM_MOUSEWHEEL, MAKEWPARAM(0, direction * notch), 0);
    }
}

void window_subject::walk_list(int which) {
    const int id = item_of(pick(list_fields(), which));
    if (SendMessageW(item(id), CB_GETCURSEL, 0, 0) != CB_ERR) {
        strike_in(id, pick(steps_up_and_down(), which / 3) > 0 ? VK_DOWN : VK_UP);
    }
}

}  // namespace monkey
