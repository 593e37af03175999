#include "platform/desktop.h"

#include "platform/win32/find_frame.h"

namespace platform {

namespace {

// A pop-up menu that ends with its scope.
class popup {
public:
    popup() : m_menu(CreatePopupMenu()) {
        if (m_menu == nullptr) {
            _com_issue_error(E_FAIL);
        }
    }
    ~popup() { DestroyMenu(m_menu); }
    popup(const popup&) = delete;
    popup& operator=(const popup&) = delete;

    void append(const popup_item& item) {
        const UINT flags = MF_STRING | (item.enabled ? MF_ENABLED : MF_GRAYED);
        if (!AppendMenuW(m_menu, flags, item.id, item.text.c_str())) {
            _com_issue_error(E_FAIL);
        }
    }

    UINT track(HWND owner, POINT at) {
        return static_cast<UINT>(
            TrackPopupMenu(m_menu, TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, 0, owner, nullptr));
    }

private:
    HMENU m_menu;
};

class win32_desktop final : public desktop {
public:
    bool is_window(HWND window) override { return IsWindow(window) == 1; }

    HWND main_frame() override { return win32::find_frame({}); }

    HWND active_window() override { return GetActiveWindow(); }

    void set_window_text(HWND window, const CString& text) override { SetWindowTextW(window, text.c_str()); }

    CString window_text(HWND window) override {
        CString text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
        const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
        text.resize(static_cast<std::size_t>(length));
        return text;
    }

    LRESULT send_message(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override {
        return SendMessageW(window, message, wParam, lParam);
    }

    int message_box(HWND owner, const CString& text, const CString& caption, UINT flags) override {
        return MessageBoxW(owner, text.c_str(), caption.c_str(), flags);
    }

    UINT popup_menu(HWND owner, const std::vector<popup_item>& items, POINT at) override {
        popup menu;
        for (const popup_item& item : items) {
            menu.append(item);
        }
        return menu.track(owner, at);
    }
};

}  // namespace

template <>
desktop& port<desktop>::system() {
    static win32_desktop instance;
    return instance;
}

}  // namespace platform
