#include "platform/headless_desktop.h"

namespace platform {

namespace {

template <class T>
T take_answer(std::deque<T>& answers, T otherwise) {
    if (answers.empty()) {
        return otherwise;
    }
    const T answer = answers.front();
    answers.pop_front();
    return answer;
}

}  // namespace

HWND headless_desktop::make_window(const CString& text) {
    const std::lock_guard guard(m_mutex);
    const auto window = reinterpret_cast<HWND>(m_next_window);
    m_next_window += 2;
    m_windows[window] = text;
    return window;
}

void headless_desktop::destroy_window(HWND window) {
    const std::lock_guard guard(m_mutex);
    m_windows.erase(window);
}

void headless_desktop::set_main_frame(HWND window) {
    const std::lock_guard guard(m_mutex);
    m_main_frame = window;
}

void headless_desktop::set_active_window(HWND window) {
    const std::lock_guard guard(m_mutex);
    m_active = window;
}

void headless_desktop::answer_message_box(int result) {
    const std::lock_guard guard(m_mutex);
    m_box_answers.push_back(result);
}

void headless_desktop::answer_menu(UINT id) {
    const std::lock_guard guard(m_mutex);
    m_menu_answers.push_back(id);
}

void headless_desktop::refuse_menus(bool refuse) {
    const std::lock_guard guard(m_mutex);
    m_refuse_menus = refuse;
}

void headless_desktop::answer_messages(LRESULT result) {
    const std::lock_guard guard(m_mutex);
    m_message_answer = result;
}

void headless_desktop::while_modal(std::function<void()> action) {
    const std::lock_guard guard(m_mutex);
    m_modal_action = std::move(action);
}

std::vector<headless_desktop::message_box_shown> headless_desktop::message_boxes() const {
    const std::lock_guard guard(m_mutex);
    return m_boxes;
}

std::vector<headless_desktop::menu_shown> headless_desktop::menus() const {
    const std::lock_guard guard(m_mutex);
    return m_menus;
}

std::vector<headless_desktop::message_sent> headless_desktop::messages() const {
    const std::lock_guard guard(m_mutex);
    return m_messages;
}

void headless_desktop::forget() {
    const std::lock_guard guard(m_mutex);
    m_box_answers.clear();
    m_menu_answers.clear();
    m_refuse_menus = false;
    m_message_answer = 0;
    m_modal_action = nullptr;
    m_boxes.clear();
    m_menus.clear();
    m_messages.clear();
}

bool headless_desktop::is_window(HWND window) {
    const std::lock_guard guard(m_mutex);
    return m_windows.count(window) != 0;
}

HWND headless_desktop::main_frame() {
    const std::lock_guard guard(m_mutex);
    return m_main_frame;
}

HWND headless_desktop::active_window() {
    const std::lock_guard guard(m_mutex);
    return m_active;
}

void headless_desktop::set_window_text(HWND window, const CString& text) {
    const std::lock_guard guard(m_mutex);
    const auto found = m_windows.find(window);
    if (found != m_windows.end()) {
        found->second = text;
    }
}

CString headless_desktop::window_text(HWND window) {
    const std::lock_guard guard(m_mutex);
    const auto found = m_windows.find(window);
    return found != m_windows.end() ? found->second : CString();
}

LRESULT headless_desktop::send_message(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const std::lock_guard guard(m_mutex);
    m_messages.push_back({window, message, wParam, lParam});
    return m_message_answer;
}

void headless_desktop::run_modal_action() {
    std::function<void()> action;
    {
        const std::lock_guard guard(m_mutex);
        action = m_modal_action;
    }
    if (action) {
        action();
    }
}

int headless_desktop::message_box(HWND owner, const CString& text, const CString& caption, UINT flags) {
    {
        const std::lock_guard guard(m_mutex);
        m_boxes.push_back({owner, text, caption, flags});
    }
    run_modal_action();
    const std::lock_guard guard(m_mutex);
    return take_answer(m_box_answers, IDOK);
}

UINT headless_desktop::popup_menu(HWND owner, const std::vector<popup_item>& items, POINT at) {
    {
        const std::lock_guard guard(m_mutex);
        if (m_refuse_menus) {
            _com_issue_error(E_FAIL);
        }
        m_menus.push_back({owner, items, at});
    }
    run_modal_action();
    const std::lock_guard guard(m_mutex);
    return take_answer(m_menu_answers, 0U);
}

}  // namespace platform
