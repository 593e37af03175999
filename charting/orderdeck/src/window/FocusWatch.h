#pragma once

#include <functional>

#include "platform/win32/frame/subclassed_window.h"

namespace OV_OrderDeck {

// Tells when a control gets the focus, before the control hears of it itself. Lives on the control's thread.
class CFocusWatch final : public frame::subclassed_window {
public:
    // False when the window can't be subclassed. What is told lives as long as the control.
    bool Attach(HWND control, std::function<void()> when_focused);

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

private:
    std::function<void()> m_when_focused;
};

}  // namespace OV_OrderDeck
