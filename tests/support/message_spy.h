// Hears a window's messages. Put on a window before a control is, it hears what the control passes on; put
// on after the control, it hears what comes to it. Windows only.
#pragma once

#include <windows.h>

#include <algorithm>
#include <functional>
#include <map>
#include <vector>

#include "platform/win32/frame/subclassed_window.h"

class message_spy final : public frame::subclassed_window {
public:
    message_spy() = default;
    explicit message_spy(HWND window) { SubclassWindow(window); }

    std::vector<UINT> heard;
    // Answers in place of what comes after the spy.
    std::map<UINT, std::function<LRESULT(WPARAM, LPARAM)>> answers;

    int count(UINT message) const {
        return static_cast<int>(std::count(heard.begin(), heard.end(), message));
    }

    BOOL ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD) override {
        heard.push_back(uMsg);
        const auto found = answers.find(uMsg);
        if (found == answers.end()) {
            return FALSE;
        }
        lResult = found->second(wParam, lParam);
        return TRUE;
    }
};
