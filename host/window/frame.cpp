#include "window/frame.h"

#include <windows.h>

#include <commctrl.h>
#include <windowsx.h>

#include <array>
#include <stdexcept>
#include <utility>

#include "com/text.h"
#include "layout.h"
#include "window/resource.h"
#include "window/trading_menu.h"

namespace host {
namespace {

// Components look for their owner window by this name.
constexpr const wchar_t* class_name = L"ATL_QVMDIMainFrame";

// Sent by a bar to its parent: wparam is a window with dialog keys, lparam 1 when it comes, 0 when it goes.
constexpr UINT container_message = 1702;

enum : UINT_PTR { tick_timer = 1, describe_timer = 2 };

// The places in the menu bar.
constexpr int trading_menu_place = 1;
constexpr std::array lockable_menus{0, 1, 2, 4};

void move(HWND window, const box& to) {
    SetWindowPos(window, nullptr, to.left, to.top, to.width(), to.height(), SWP_NOZORDER | SWP_NOACTIVATE);
}

void register_class(WNDPROC procedure) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof(description);
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.lpszMenuName = MAKEINTRESOURCEW(IDR_FRAME);
    description.lpszClassName = class_name;
    RegisterClassExW(&description);
}

}  // namespace

frame::frame(const options& settings, const desk& paper, frame_events& events)
    : m_events(events),
      m_bar_height(scaled(40)),
      m_accelerators(LoadAcceleratorsW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_FRAME))) {
    register_class(&frame::procedure);
    m_window =
        CreateWindowExW(0, class_name, L"OrderDeck Host", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0,
                        settings.width, settings.height, nullptr, nullptr, GetModuleHandleW(nullptr), this);
    if (m_window == nullptr) {
        throw std::runtime_error("The main window can't be made");
    }
    make_children(paper);
    arrange();
    SetTimer(m_window, tick_timer, 500, nullptr);
    if (!settings.describe.empty()) {
        SetTimer(m_window, describe_timer, 100, nullptr);
    }
}

frame::~frame() {
    if (m_window != nullptr) {
        DestroyWindow(m_window);
    }
}

HWND frame::make_static(int id, const wchar_t* text) {
    const HWND made = CreateWindowExW(
        0, L"STATIC", text, WS_CHILD | WS_VISIBLE | SS_CENTERIMAGE | SS_NOPREFIX, 0, 0, 0, 0, m_window,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(dialog_font()), FALSE);
    return made;
}

void frame::make_children(const desk& paper) {
    make_static(IDC_INSTRUMENTS_TITLE, L"Instruments (click or Enter: set on the current tab)");
    m_instruments = std::make_unique<instrument_view>(m_window, IDC_INSTRUMENTS, paper);
    make_static(IDC_BLOTTER_TITLE, L"Orders (Delete: cancel)");
    m_blotter = std::make_unique<blotter_view>(m_window, IDC_BLOTTER);
    make_static(IDC_LOG_TITLE, L"Log");
    m_log = std::make_unique<log_view>(m_window, IDC_LOG);
    m_status = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0,
                               m_window, reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_STATUS)),
                               GetModuleHandleW(nullptr), nullptr);
}

void frame::arrange() {
    RECT client{};
    GetClientRect(m_window, &client);
    SendMessageW(m_status, WM_SIZE, 0, 0);
    RECT status{};
    GetWindowRect(m_status, &status);
    const std::array<int, 2> parts{client.right / 2, -1};
    SendMessageW(m_status, SB_SETPARTS, parts.size(), reinterpret_cast<LPARAM>(parts.data()));

    const frame_layout places = lay_out({client.right, client.bottom, status.bottom - status.top,
                                         m_bar_height, scaled(6), scaled(22), scaled(504)});
    move(GetDlgItem(m_window, IDC_INSTRUMENTS_TITLE), places.instruments_title);
    move(m_instruments->handle(), places.instruments);
    move(GetDlgItem(m_window, IDC_BLOTTER_TITLE), places.blotter_title);
    move(m_blotter->handle(), places.blotter);
    m_blotter->fit();
    move(GetDlgItem(m_window, IDC_LOG_TITLE), places.log_title);
    move(m_log->handle(), places.log);
    if (m_bar != nullptr) {
        move(m_bar, places.bar);
    }
}

void frame::dock(HWND bar, int height) {
    m_bar = bar;
    m_bar_height = height;
    arrange();
    ShowWindow(bar, SW_SHOW);
}

void frame::show_no_bar(const std::string& why) {
    m_bar = make_static(IDC_NO_BAR, to_wide("  No order bar: " + why).c_str());
    arrange();
}

void frame::set_status(const std::string& left, const std::string& right) {
    const std::array<std::wstring, 2> texts{to_wide(left), to_wide(right)};
    for (std::size_t part = 0; part < texts.size(); ++part) {
        const auto length = LOWORD(SendMessageW(m_status, SB_GETTEXTLENGTHW, part, 0));
        std::wstring shown(static_cast<std::size_t>(length) + 1, 0);
        SendMessageW(m_status, SB_GETTEXTW, part, reinterpret_cast<LPARAM>(shown.data()));
        shown.pop_back();
        if (shown != texts[part]) {
            SendMessageW(m_status, SB_SETTEXTW, part, reinterpret_cast<LPARAM>(texts[part].c_str()));
        }
    }
}

void frame::lock(bool locked) {
    const HMENU menu = GetMenu(m_window);
    for (const int place : lockable_menus) {
        EnableMenuItem(menu, static_cast<UINT>(place), MF_BYPOSITION | (locked ? MF_GRAYED : MF_ENABLED));
    }
    DrawMenuBar(m_window);
}

bool frame::translate(MSG& message) {
    if (const std::uint32_t key = pressed_key(message); key != 0 && m_events.on_key(key)) {
        return true;
    }
    // The accelerators first: a dialog uses up every key that it is given.
    if (TranslateAcceleratorW(m_window, m_accelerators, &message) != 0) {
        return true;
    }
    for (const HWND dialog : m_dialogs) {
        if (message.hwnd == dialog || IsChild(dialog, message.hwnd)) {
            return IsDialogMessageW(dialog, &message) != FALSE;
        }
    }
    return false;
}

void frame::next_pane() {
    const std::array panes{m_instruments->handle(), m_blotter->handle(), m_log->handle(), m_bar};
    const HWND focus = GetFocus();
    std::size_t current = panes.size() - 1;
    for (std::size_t index = 0; index < panes.size(); ++index) {
        if (focus == panes[index] || IsChild(panes[index], focus)) {
            current = index;
        }
    }
    const HWND next = panes[(current + 1) % panes.size()];
    const HWND first = GetNextDlgTabItem(next, nullptr, FALSE);
    SetFocus(first == nullptr ? next : first);
}

void frame::on_container_notice(HWND dialog, bool registered) {
    if (registered) {
        m_dialogs.insert(dialog);
    } else {
        m_dialogs.erase(dialog);
    }
}

LRESULT CALLBACK frame::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* self = reinterpret_cast<frame*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NCCREATE) {
        self = static_cast<frame*>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams);
        self->m_window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    if (self == nullptr) {
        return DefWindowProcW(window, message, wparam, lparam);
    }
    try {
        return self->handle_message(message, wparam, lparam);
    } catch (const std::exception& error) {
        // No exception may leave a window procedure; the user reads it in the log.
        self->m_log->append(std::string("Failed: ") + error.what());
        return 0;
    }
}

LRESULT frame::handle_message(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_SIZE:
            if (m_log != nullptr && wparam != SIZE_MINIMIZED) {
                arrange();
            }
            return 0;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {scaled(640), scaled(400)};
            return 0;
        case WM_TIMER:
            on_timer(wparam);
            return 0;
        case WM_NOTIFY:
            return on_notify(*reinterpret_cast<NMHDR*>(lparam));
        case WM_COMMAND:
            on_command(LOWORD(wparam));
            return 0;
        case WM_INITMENUPOPUP:
            on_menu_popup(reinterpret_cast<HMENU>(wparam));
            return 0;
        case WM_CONTEXTMENU:
            on_context_menu(reinterpret_cast<HWND>(wparam), {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
            return 0;
        case WM_CTLCOLORSTATIC:
            // A read-only edit control asks as a static one; the log is to look like the lists beside it.
            return m_log != nullptr && reinterpret_cast<HWND>(lparam) == m_log->handle()
                       ? reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW))
                       : DefWindowProcW(m_window, message, wparam, lparam);
        case container_message:
            on_container_notice(reinterpret_cast<HWND>(wparam), lparam == 1);
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wparam) == WA_INACTIVE) {
                m_last_focus = GetFocus();
            }
            return DefWindowProcW(m_window, message, wparam, lparam);
        case WM_SETFOCUS:
            SetFocus(IsChild(m_window, m_last_focus) ? m_last_focus : m_instruments->handle());
            return 0;
        case WM_CLOSE:
            if (m_events.may_close()) {
                DestroyWindow(m_window);
            }
            return 0;
        case WM_DESTROY:
            m_events.on_closing();
            PostQuitMessage(0);
            return 0;
        case WM_NCDESTROY: {
            const HWND window = std::exchange(m_window, nullptr);
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            return DefWindowProcW(window, message, wparam, lparam);
        }
        default:
            return DefWindowProcW(m_window, message, wparam, lparam);
    }
}

void frame::on_timer(WPARAM id) {
    if (id == tick_timer) {
        m_events.on_tick();
    } else if (id == describe_timer) {
        m_events.on_describe();
    }
}

LRESULT frame::on_notify(const NMHDR& notice) {
    if (m_instruments != nullptr && notice.hwndFrom == m_instruments->handle() &&
        notice.code == NM_CUSTOMDRAW) {
        return m_instruments->draw(*reinterpret_cast<NMLVCUSTOMDRAW*>(const_cast<NMHDR*>(&notice)));
    }
    on_list_notice(notice);
    return 0;
}

void frame::on_list_notice(const NMHDR& notice) {
    if (notice.idFrom == IDC_INSTRUMENTS && (notice.code == NM_CLICK || notice.code == NM_RETURN)) {
        if (const int chosen = m_instruments->selected()) {
            m_events.on_choose(chosen);
        }
    }
    if (notice.idFrom == IDC_BLOTTER && notice.code == LVN_KEYDOWN &&
        reinterpret_cast<const NMLVKEYDOWN&>(notice).wVKey == VK_DELETE) {
        on_command(IDM_CANCEL_ORDER);
    }
}

void frame::on_command(int id) {
    switch (id) {
        case IDM_EXIT:
            SendMessageW(m_window, WM_CLOSE, 0, 0);
            break;
        case IDM_CANCEL_ORDER:
            if (const int order_id = m_blotter->selected()) {
                m_events.on_cancel(order_id);
            }
            break;
        case IDM_CANCEL_ALL:
            m_events.on_cancel_all();
            break;
        case IDM_NEXT_PANE:
            next_pane();
            break;
        case IDM_ABOUT:
            MessageBoxW(m_window,
                        L"OrderDeck Host 1.0\nA small trading application with an embedded paper exchange.",
                        L"OrderDeck Host", MB_ICONINFORMATION);
            break;
        default:
            if (id >= IDM_PROFILE_FIRST && id <= IDM_PROFILE_LAST) {
                m_events.on_profile_command(id);
            }
    }
}

void frame::on_menu_popup(HMENU menu) {
    if (menu == GetSubMenu(GetMenu(m_window), trading_menu_place)) {
        while (DeleteMenu(menu, 0, MF_BYPOSITION) != FALSE) {
        }
        m_events.fill_profile_menu(menu);
    }
    EnableMenuItem(menu, IDM_CANCEL_ORDER, m_blotter->selected() == 0 ? MF_GRAYED : MF_ENABLED);
}

void frame::on_context_menu(HWND source, POINT where) {
    if (source != m_blotter->handle()) {
        return;
    }
    if (where.x == -1 && where.y == -1) {
        // By the keyboard: at the corner of the list.
        where = {0, 0};
        ClientToScreen(source, &where);
    }
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, IDM_CANCEL_ORDER, L"&Cancel order\tDel");
    AppendMenuW(menu, MF_STRING, IDM_CANCEL_ALL, L"Cancel &all orders");
    TrackPopupMenu(menu, TPM_RIGHTBUTTON, where.x, where.y, 0, m_window, nullptr);
    DestroyMenu(menu);
}

}  // namespace host
