#pragma once

#include <deque>
#include <functional>
#include <map>
#include <mutex>

#include "platform/desktop.h"

namespace platform {

// A desktop without a screen: it knows the windows that it was told of, answers message boxes, menus and
// messages as told, and keeps a record. It is the system's desktop of the native build. Any thread.
class headless_desktop : public desktop {
public:
    struct message_box_shown {
        HWND owner = nullptr;
        CString text;
        CString caption;
        UINT flags = 0;
    };
    struct menu_shown {
        HWND owner = nullptr;
        std::vector<popup_item> items;
        POINT at{};
    };
    struct message_sent {
        HWND window = nullptr;
        UINT message = 0;
        WPARAM wParam = 0;
        LPARAM lParam = 0;
    };

    // A new window with the given text; destroyed windows are windows no more.
    HWND make_window(const CString& text = {});
    void destroy_window(HWND window);

    // Null until told otherwise. What is told need not be a window.
    void set_main_frame(HWND window);
    void set_active_window(HWND window);

    // Answers are used up in order; with none left a box gives IDOK (1) and a menu 0.
    void answer_message_box(int result);
    void answer_menu(UINT id);
    // Menus can't be made from now on: E_FAIL.
    void refuse_menus(bool refuse);
    // What send_message gives; 0 until told.
    void answer_messages(LRESULT result);
    // Runs while a message box or a menu is up, after it was recorded.
    void while_modal(std::function<void()> action);

    std::vector<message_box_shown> message_boxes() const;
    std::vector<menu_shown> menus() const;
    std::vector<message_sent> messages() const;
    // Forgets records and answers and keeps the windows.
    void forget();

    bool is_window(HWND window) override;
    HWND main_frame() override;
    HWND active_window() override;
    void set_window_text(HWND window, const CString& text) override;
    CString window_text(HWND window) override;
    LRESULT send_message(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    int message_box(HWND owner, const CString& text, const CString& caption, UINT flags) override;
    UINT popup_menu(HWND owner, const std::vector<popup_item>& items, POINT at) override;

private:
    void run_modal_action();

    mutable std::mutex m_mutex;
    UINT_PTR m_next_window = 0x10010;
    std::map<HWND, CString> m_windows;
    HWND m_main_frame = nullptr;
    HWND m_active = nullptr;
    std::deque<int> m_box_answers;
    std::deque<UINT> m_menu_answers;
    bool m_refuse_menus = false;
    LRESULT m_message_answer = 0;
    std::function<void()> m_modal_action;
    std::vector<message_box_shown> m_boxes;
    std::vector<menu_shown> m_menus;
    std::vector<message_sent> m_messages;
};

}  // namespace platform
