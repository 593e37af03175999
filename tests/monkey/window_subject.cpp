#include "tests/monkey/window_subject.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>

#include "charting/orderdeck/src/window/WindowText.h"
#include "platform/win32/frame/module_instance.h"

namespace monkey {

namespace {

// A row that rests shows the same all that time, in milliseconds and in looks: a slow machine takes fewer.
// Wider than the row with every field shown, so that no field is ever scrolled out of sight here.
constexpr int widest_row = 1700;
constexpr ULONGLONG long_enough = 3000;
constexpr int often_enough = 150;

HWND make_frame() {
    WNDCLASSW description = {};
    description.lpfnWndProc = &DefWindowProcW;
    description.hInstance = frame::module_instance();
    description.lpszClassName = L"OrderDeckMonkeyFrame";
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    RegisterClassW(&description);
    const HWND window =
        CreateWindowExW(0, description.lpszClassName, L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 1260,
                        200, nullptr, nullptr, frame::module_instance(), nullptr);
    SetForegroundWindow(window);
    return window;
}

// One for all bars, as a host has one.
HWND shared_frame() {
    static const HWND window = make_frame();
    SetActiveWindow(window);
    return window;
}

void pump() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

HWND child_with(HWND parent, int id) {
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (GetDlgItem(child, id) != nullptr) {
            return child;
        }
    }
    return nullptr;
}

RECT place_of(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(HWND_DESKTOP, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

const std::vector<int>& all_items() {
    static const std::vector<int> all = {203, 206, 209, 214, 213, 217, 216, 231, 220, 222, 228, 225, 227};
    return all;
}

bool own_style(HWND window, LONG_PTR style) {
    return (GetWindowLongPtrW(window, GWL_STYLE) & style) != 0;
}

// "HRESULT - 80004005; FILE - ..." as "0x80004005"; other errors as they are.
std::string error_of(const std::string& trace) {
    static const std::string head = "HRESULT - ";
    return trace.starts_with(head) ? "0x" + trace.substr(head.size(), trace.find(';') - head.size()) : trace;
}

std::string errors_of(const diagnostics_recorder& reports, HRESULT hr) {
    std::string all;
    for (const std::wstring& trace : reports.traces()) {
        if (trace.starts_with(L"Master's counter") || trace.starts_with(L"Order not sent: ")) {
            continue;
        }
        all += (all.empty() ? "" : " ") + error_of(test::narrow(trace));
    }
    return all.empty() ? error_text(hr) : all;
}

}  // namespace

window_subject::window_subject(item_widths& widths, bool unruly)
    : m_frame(shared_frame()), m_widths(widths), m_unruly(unruly) {
    m_host.made = [this] { adopt_bar(); };
    m_host.start(m_frame);
    adopt_bar();
    m_host.fill();
    pump();
    m_host.forget();
    if (unruly) {
        m_host.be_unruly([this](const action& done) {
            if (done.what > act::switch_tab) {
                m_host.perform(done);
            } else if (TabCtrl_GetItemCount(strip()) > 0) {
                user(done);
            }
        });
    }
}

window_subject::~window_subject() {
    m_host.root->Destroy();
    SetFocus(m_frame);
    pump();
}

void window_subject::adopt_bar() {
    m_bar = m_host.bar();
    RECT client = {};
    GetClientRect(m_frame, &client);
    MoveWindow(m_bar, 0, 0, std::max<int>(client.right, widest_row), 90, TRUE);
    m_panel = child_with(m_bar, item_of(symbol_bit));
    for (const int id : all_items()) {
        const RECT place = place_of(item(id));
        m_places[id] = place.left;
        m_widths[id] = static_cast<int>(place.right - place.left);
    }
}

outcome window_subject::perform(const action& done) {
    m_at_rest = done.what == act::rest;
    m_host.prepare(done);
    HRESULT hr = S_OK;
    HWND focus = nullptr;
    if (done.what == act::switch_tab) {
        click_tab(done.who);
    } else if (done.what == act::restart) {
        hr = m_host.restart(done, m_frame);
    } else if (done.what > act::switch_tab) {
        bar_action(done);
        hr = m_host.perform(done);
    } else if (TabCtrl_GetItemCount(strip()) > 0) {
        user(done);
        focus = GetFocus();
    }
    pump();
    leave();
    const std::string errors = errors_of(m_host.reports, hr);
    outcome result = m_host.take();
    result.error = errors;
    const int focused = focus != nullptr && GetParent(focus) == m_panel ? GetDlgCtrlID(focus) : 0;
    if (!result.boxes.empty() && (focused == 214 || focused == 217)) {
        result.calls.push_back("focus " + std::to_string(focused));
    }
    return result;
}

// No control keeps the focus between two actions.
void window_subject::leave() {
    SetFocus(m_frame);
    pump();
}

view window_subject::seen(const view& expected) {
    ULONGLONG since = GetTickCount64();
    int looks = 0;
    view now = look();
    // A row that slides is on its way.
    while (m_at_rest && now != expected && (looks < often_enough || GetTickCount64() - since < long_enough)) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        pump();
        view later = look();
        ++looks;
        if (later != now) {
            now = std::move(later);
            since = GetTickCount64();
            looks = 0;
        }
    }
    m_host.forget();
    return now;
}

view window_subject::look() {
    view lines = m_host.status();
    lines.push_back(strip_line());
    lines.push_back(shown_line());
    lines.emplace_back(IsWindowVisible(ladder()) != FALSE ? "ladder: open" : "ladder: closed");
    if (TabCtrl_GetItemCount(strip()) == 0) {
        return lines;
    }
    lines.push_back(room_line());
    for (const bit field : all_bits()) {
        lines.push_back(item_line(field));
    }
    if (m_at_rest) {
        lines.push_back(keys_line());
    }
    return lines;
}

HWND window_subject::ladder() const {
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            std::array<wchar_t, 64> name{};
            GetClassNameW(window, name.data(), static_cast<int>(name.size()));
            const bool is_it = std::wstring(name.data()) == L"OrderDeckRangeBar";
            if (is_it) {
                *reinterpret_cast<HWND*>(result) = window;
            }
            return is_it ? FALSE : TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

// The strip fills the bar, the panel the strip's page, and the button stands in the middle.
std::string window_subject::room_line() const {
    RECT client = {};
    GetClientRect(m_bar, &client);
    RECT page = client;
    TabCtrl_AdjustRect(strip(), FALSE, &page);
    const RECT strip_place = place_of(strip());
    const RECT panel_place = place_of(m_panel);
    const RECT button = place_of(GetDlgItem(m_bar, 229));
    const bool taken = EqualRect(&strip_place, &client) != FALSE && EqualRect(&panel_place, &page) != FALSE;
    const bool centred = std::abs(button.left + button.right - client.right) <= 1 &&
                         std::abs(button.top + button.bottom - client.bottom) <= 1;
    return taken && centred ? "room: taken" : taken ? "room: button not centred" : "room: not taken";
}

// Where the Tab key goes, from the symbol on.
std::string window_subject::keys_line() const {
    std::string line = "keys:";
    const HWND first = item(item_of(symbol_bit));
    HWND at = first;
    do {
        line += " " + std::to_string(GetDlgCtrlID(at));
        at = GetNextDlgTabItem(m_panel, at, FALSE);
    } while (at != first && at != nullptr && line.size() < 200);
    return line;
}

std::string window_subject::strip_line() const {
    std::string line = "strip:";
    const int current = TabCtrl_GetCurSel(strip());
    for (int i = 0; i < TabCtrl_GetItemCount(strip()); ++i) {
        std::array<wchar_t, 100> text{};
        TCITEMW tab = {};
        tab.mask = TCIF_TEXT | TCIF_IMAGE;
        tab.pszText = text.data();
        tab.cchTextMax = static_cast<int>(text.size());
        SendMessageW(strip(), TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&tab));
        line += i == current ? " *" : " ";
        line += test::narrow(tab.pszText) + "(" + std::to_string(tab.iImage) + ")";
    }
    return line;
}

std::string window_subject::shown_line() const {
    std::string line = "shown:";
    line += own_style(strip(), WS_VISIBLE) ? " strip" : "";
    line += own_style(m_panel, WS_VISIBLE) ? " panel" : "";
    line += own_style(GetDlgItem(m_bar, 229), WS_VISIBLE) ? " button" : "";
    return line;
}

std::string window_subject::items_of(HWND combo) const {
    const auto count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
    const auto key_of = [&](LRESULT index) {
        return static_cast<LONG>(SendMessageW(combo, CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
    };
    std::string items;
    for (LRESULT i = 0; i < count; ++i) {
        std::array<wchar_t, 100> text{};
        SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
        items += std::to_string(key_of(i)) + "=" + test::narrow(text.data()) + " ";
    }
    const LRESULT current = SendMessageW(combo, CB_GETCURSEL, 0, 0);
    return items + " selected " + std::to_string(current == CB_ERR ? -1 : key_of(current));
}

std::string window_subject::range_of(bit field) const {
    int low = 0;
    int high = 0;
    SendMessageW(item(spin_of(field)), UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low),
                 reinterpret_cast<LPARAM>(&high));
    // Without a step there is no range.
    return high == 0 ? std::string() : " " + std::to_string(low) + " to " + std::to_string(high);
}

std::string window_subject::item_line(bit field) const {
    const int id = item_of(field);
    std::string line = std::to_string(id) + ": ";
    if (field == type_bit || field == account_bit || field == time_bit) {
        line += items_of(item(id));
    } else if (field == date_bit) {
        SYSTEMTIME shown = {};
        double date = 0.0;
        SendMessageW(item(id), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown));
        SystemTimeToVariantTime(&shown, &date);
        line += test::number_text(date);
    } else {
        line += test::narrow(OV_OrderDeck::window_text(item(id)));
        line += spin_of(field) != 0 ? range_of(field) : std::string();
    }
    line += usable(id) ? ", enabled" : ", disabled";
    if (spin_of(field) != 0 && usable(spin_of(field)) != usable(id)) {
        line += ", but not its spin";
    }
    if (m_at_rest) {
        line += own_style(item(id), WS_VISIBLE) ? ", shown" : ", hidden";
        line += " moved " + std::to_string(place_of(item(id)).left - m_places.at(id));
    }
    return line;
}

}  // namespace monkey
