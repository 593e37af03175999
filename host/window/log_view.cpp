#include "window/log_view.h"

#include "com/text.h"
#include "window/list_view.h"

namespace host {
namespace {

// Well below the limit of an edit control, in characters.
constexpr int capacity = 200000;

}  // namespace

log_view::log_view(HWND parent, int id) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | WS_VSCROLL | ES_MULTILINE |
                        ES_READONLY | ES_AUTOVSCROLL;
    m_window = CreateWindowExW(0, L"EDIT", L"", style, 0, 0, 0, 0, parent,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                               nullptr);
    SendMessageW(m_window, WM_SETFONT, reinterpret_cast<WPARAM>(dialog_font()), FALSE);
    SendMessageW(m_window, EM_SETLIMITTEXT, 2 * capacity, 0);
}

void log_view::append(const std::string& line) {
    int length = GetWindowTextLengthW(m_window);
    if (length > capacity) {
        SendMessageW(m_window, EM_SETSEL, 0, capacity / 2);
        SendMessageW(m_window, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
        length = GetWindowTextLengthW(m_window);
    }
    const std::wstring text = to_wide(length == 0 ? line : "\r\n" + line);
    SendMessageW(m_window, EM_SETSEL, static_cast<WPARAM>(length), length);
    SendMessageW(m_window, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
}

}  // namespace host
