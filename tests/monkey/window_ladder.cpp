// The user's mouse at the quotes' button and on the ladder beside it.
#include <windows.h>

#include "tests/monkey/window_subject.h"

namespace monkey {

namespace {

constexpr int up_button = 10001;
constexpr int down_button = 10002;
constexpr int rows = 7;
constexpr int notch = 120;

LONG height_of(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return place.bottom - place.top;
}

void scroll_by_one(HWND ladder, bool up, int way) {
    if (way == 0) {
        SendMessageW(ladder, WM_MOUSEWHEEL, MAKEWPARAM(0, up ? notch : -notch), 0);
    } else if (way == 1) {
        SendMessageW(ladder, WM_KEYDOWN, up ? VK_UP : VK_DOWN, 1);
    } else {
        SendMessageW(GetDlgItem(ladder, up ? up_button : down_button), BM_CLICK, 0, 0);
    }
}

}  // namespace

// The button looks where the cursor is.
void window_subject::click_quotes(bool on_the_arrow) {
    const HWND button = item(item_of(quotes_bit));
    if (IsWindowEnabled(button) == FALSE) {
        return;
    }
    RECT client = {};
    GetClientRect(button, &client);
    const POINT at = {on_the_arrow ? client.right - 3 : 5, 5};
    POINT screen = at;
    ClientToScreen(button, &screen);
    SetCursorPos(screen.x, screen.y);
    SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    SendMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
}

void window_subject::press_quotes() {
    click_quotes(false);
}

void window_subject::open_ladder() {
    click_quotes(true);
}

void window_subject::scroll_ladder(int which) {
    const HWND window = ladder();
    if (IsWindowVisible(window) == FALSE) {
        return;
    }
    const int step = pick(ladder_steps(), which);
    if (step == 0) {
        SendMessageW(window, WM_KEYDOWN, VK_ESCAPE, 1);
    } else if (step == 10 || step == -10) {
        SendMessageW(window, WM_KEYDOWN, step > 0 ? VK_PRIOR : VK_NEXT, 1);
    } else {
        scroll_by_one(window, step > 0, which / 9 % 3);
    }
}

// Rows share a line with their neighbours, and a small button stands above and below them.
void window_subject::pick_row(int row) {
    const HWND window = ladder();
    if (IsWindowVisible(window) == FALSE) {
        open_ladder();
    }
    if (IsWindowVisible(window) == FALSE) {
        return;
    }
    const LONG button = height_of(GetDlgItem(window, up_button));
    const LONG distance = (height_of(window) - 1 - 2 * button) / rows;
    const LONG y = button + row * distance + distance / 2;
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, y));
}

}  // namespace monkey
