// A window that is the owner of one button: it hands the button what an owner gets, and keeps the
// commands that come.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <vector>

#include "tests/support/diagnostics_recorder.h"

namespace button_tests {

class owner_window {
public:
    owner_window();
    ~owner_window();
    owner_window(const owner_window&) = delete;
    owner_window& operator=(const owner_window&) = delete;

    HWND hwnd() const { return m_hWnd; }
    // A visible push button at 10, 10.
    HWND make_button(int id, int width, int height);

    // The ids of the commands with code 0 that came.
    std::vector<int> commands;
    // The buttons that were made the dialog's focus.
    std::vector<HWND> focused;
    // How often a button was drawn.
    int drawn = 0;
    // Runs at each command.
    std::function<void()> on_command;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static HWND shared();

    HWND m_hWnd;
};

// Serves the messages that wait.
void pump();

// The pixels of a window's client area as they stand.
class snapshot {
public:
    explicit snapshot(HWND window);
    COLORREF at(int x, int y) const;
    bool operator==(const snapshot&) const = default;

private:
    int m_width;
    std::vector<COLORREF> m_pixels;
};

}  // namespace button_tests
