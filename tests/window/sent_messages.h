// The messages that reach the windows of this thread.
#pragma once

#include <windows.h>

#include <utility>
#include <vector>

namespace window_tests {

struct sent_message {
    HWND window;
    UINT message;
    WPARAM wParam;
};

// Notes what is sent to windows of this thread while it lives, messages of the queue excepted. One at a
// time.
class sent_messages {
public:
    sent_messages() : m_hook(SetWindowsHookExW(WH_CALLWNDPROC, &note, nullptr, GetCurrentThreadId())) {
        s_sent.clear();
    }
    ~sent_messages() { UnhookWindowsHookEx(m_hook); }
    sent_messages(const sent_messages&) = delete;
    sent_messages& operator=(const sent_messages&) = delete;

    // What came since the last call.
    std::vector<sent_message> take() { return std::exchange(s_sent, {}); }

private:
    static LRESULT CALLBACK note(int code, WPARAM wParam, LPARAM lParam) {
        const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        s_sent.push_back({sent.hwnd, sent.message, sent.wParam});
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    inline static std::vector<sent_message> s_sent;
    HHOOK m_hook;
};

}  // namespace window_tests
