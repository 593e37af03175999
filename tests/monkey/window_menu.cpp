// The user at the menus of the bar, at its button and at its edge.
#include <windows.h>

#include <commctrl.h>

#include "tests/monkey/window_subject.h"
#include "tests/window/menu_user.h"

namespace monkey {

namespace {

using window_tests::menu_line;
using window_tests::menu_user;

// To the first line, wherever the mouse is, down to a line and take it; or leave, from a line that can't be
// taken as well.
std::vector<WPARAM> keys_for(int chosen) {
    const auto place = static_cast<std::size_t>(chosen);
    if (place >= menu_user::lines().size() || !menu_user::lines()[place].usable) {
        return {VK_ESCAPE};
    }
    std::vector<WPARAM> keys = {VK_HOME};
    keys.insert(keys.end(), place, VK_DOWN);
    keys.push_back(VK_RETURN);
    return keys;
}

std::string lines_seen() {
    std::string text = "menu:";
    for (const menu_line& line : menu_user::lines()) {
        text += " " + std::to_string(line.id) + "=" + test::narrow(line.text) + (line.usable ? "" : " grey");
    }
    return text;
}

}  // namespace

void window_subject::wait_for_menu(int which) {
    menu_user::press([this, which] {
        m_host.host.note(lines_seen());
        return keys_for(which % 5);
    });
}

void window_subject::profile_menu(int which) {
    wait_for_menu(which);
    SendMessageW(m_panel, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 3));
    menu_user::give_up();
}

void window_subject::strip_menu(const action& done) {
    const int count = TabCtrl_GetItemCount(strip());
    if (count == 0) {
        return;
    }
    RECT tab = {};
    TabCtrl_GetItemRect(strip(), done.who % count, &tab);
    POINT at = {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2};
    ClientToScreen(strip(), &at);
    SetCursorPos(at.x, at.y);
    wait_for_menu(done.which);
    NMHDR notice = {strip(), 201, static_cast<UINT>(NM_RCLICK)};
    SendMessageW(m_bar, WM_NOTIFY, 201, reinterpret_cast<LPARAM>(&notice));
    menu_user::give_up();
}

void window_subject::bar_action(const action& done) {
    switch (done.what) {
        case act::strip_menu:
            return strip_menu(done);
        case act::set_up:
            if (IsWindowVisible(GetDlgItem(m_bar, 229)) != FALSE) {
                SendMessageW(GetDlgItem(m_bar, 229), BM_CLICK, 0, 0);
            }
            return;
        case act::size_bar:
            // Never narrower than its row: what a narrow bar shows is proved over all sizes on its own.
            MoveWindow(m_bar, 0, 0, 1600 + 60 * (done.which % 9), 80 + 10 * (done.who % 5), TRUE);
            return;
        case act::midnight:
            SendMessageW(item(item_of(date_bit)), WM_TIMER, 1751, 0);
            return;
        default:
            return;
    }
}

}  // namespace monkey
