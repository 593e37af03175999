// The user's hands: messages to the controls, as far as the controls let him.
#include <windows.h>

#include <commctrl.h>

#include "tests/monkey/window_subject.h"

namespace monkey {

void window_subject::user(const action& done) {
    switch (done.what) {
        case act::select_type:
            return select(item_of(type_bit), done.which);
        case act::select_time:
            return select(item_of(time_bit), done.which);
        case act::select_account:
            return select(item_of(account_bit), done.which);
        case act::type_quantity:
            return type(item_of(quantity_bit), std::to_wstring(pick(typed_quantities(), done.which)));
        case act::odd_quantity:
            return type(item_of(quantity_bit), pick(odd_quantities(), done.which));
        case act::step_quantity:
            return step_quantity(done.which);
        case act::type_first_price:
            return type(item_of(first_price_bit), pick(price_texts(), done.which));
        case act::type_second_price:
            return type(item_of(second_price_bit), pick(price_texts(), done.which));
        case act::spin_first_price:
            return spin(spin_of(first_price_bit), pick(spin_steps(), done.which));
        case act::spin_second_price:
            return spin(spin_of(second_price_bit), pick(spin_steps(), done.which));
        case act::type_symbol:
            type(item_of(symbol_bit), pick(symbol_texts(), done.which));
            return strike(VK_RETURN);
        case act::leave_symbol:
            return type(item_of(symbol_bit), pick(symbol_texts(), done.which));
        case act::escape_symbol:
            type(item_of(symbol_bit), pick(symbol_texts(), done.which));
            return strike(VK_ESCAPE);
        case act::symbol_dialog:
            SendMessageW(GetWindow(item(item_of(symbol_bit)), GW_CHILD), BM_CLICK, 0, 0);
            return;
        case act::buy:
        case act::sell:
            return press(done.what == act::buy ? buy_bit : sell_bit, way_of(done));
        case act::press_space:
            return press(done.yes ? buy_bit : sell_bit, press_way::space);
        case act::type_and_press:
            return type_and_press(done);
        case act::abandon_press:
            return abandon_press(done.yes ? buy_bit : sell_bit);
        case act::odd_key:
            return strike_in(item_of(pick(number_fields(), done.which)),
                             done.which / 3 % 2 == 0 ? VK_ESCAPE : VK_RETURN);
        case act::arrow_in_list:
            return walk_list(done.which);
        case act::pick_ask:
        case act::pick_bid:
            return press_quotes();
        case act::open_ladder:
            return open_ladder();
        case act::scroll_ladder:
            return scroll_ladder(done.which);
        case act::pick_row:
            return pick_row(done.which % 7);
        case act::profile_menu:
            return profile_menu(done.which);
        case act::pick_date:
            return pick_date(pick(picked_dates(), done.which));
        default:
            return;
    }
}

void window_subject::select(int id, int which) {
    const LRESULT count = SendMessageW(item(id), CB_GETCOUNT, 0, 0);
    if (usable(id) && count > 0) {
        SendMessageW(item(id), CB_SETCURSEL, static_cast<WPARAM>(which % count), 0);
        SendMessageW(m_panel, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(item(id)));
    }
}

void window_subject::type(int id, const CString& text) {
    if (!usable(id)) {
        return;
    }
    SetFocus(item(id));
    SendMessageW(item(id), EM_SETSEL, 0, -1);
    if (text.empty()) {
        SendMessageW(item(id), WM_CHAR, VK_BACK, 1);
    }
    for (const wchar_t c : text) {
        SendMessageW(item(id), WM_CHAR, c, 1);
    }
}

void window_subject::spin(int id, int steps) {
    if (usable(id)) {
        NMUPDOWN notice = {};
        notice.hdr = {item(id), static_cast<UINT_PTR>(id), UDN_DELTAPOS};
        notice.iDelta = steps;
        SendMessageW(m_panel, WM_NOTIFY, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&notice));
    }
}

void window_subject::pick_date(double date) {
    const int id = item_of(date_bit);
    if (!usable(id)) {
        return;
    }
    NMDATETIMECHANGE notice = {};
    notice.nmhdr = {item(id), static_cast<UINT_PTR>(id), static_cast<UINT>(DTN_DATETIMECHANGE)};
    notice.dwFlags = GDT_VALID;
    VariantTimeToSystemTime(date, &notice.st);
    SendMessageW(item(id), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&notice.st));
    SYSTEMTIME taken = {};
    SendMessageW(item(id), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&taken));
    double shown = 0.0;
    SystemTimeToVariantTime(&taken, &shown);
    // A day out of the picker's range can't be picked.
    if (shown != date) {
        return;
    }
    SendMessageW(m_panel, WM_NOTIFY, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&notice));
}

void window_subject::click_tab(int which) {
    const int count = TabCtrl_GetItemCount(strip());
    if (count == 0) {
        return;
    }
    RECT tab = {};
    TabCtrl_GetItemRect(strip(), which % count, &tab);
    const LPARAM middle = MAKELPARAM((tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2);
    SendMessageW(strip(), WM_LBUTTONDOWN, MK_LBUTTON, middle);
    SendMessageW(strip(), WM_LBUTTONUP, 0, middle);
}

}  // namespace monkey
