#pragma once

#include "platform/text.h"

namespace OV_OrderDeck {

// Balloon tips over the fields of a panel, each with a title. One shows at a time. Lives on the panel's
// thread; its window ends with the panel's.
class CFieldTips {
public:
    CFieldTips() = default;
    CFieldTips(const CFieldTips&) = delete;
    CFieldTips& operator=(const CFieldTips&) = delete;

    // A field must be registered before it can show a tip. False when that failed.
    bool Register(HWND panel, HWND field);
    // Points at the lower edge of the field until Hide or the next Show.
    void Show(HWND field, const CString& title, const CString& text);
    void Hide();

    // The balloon's window, null before the first Register.
    HWND get_Hwnd() const { return m_hWnd; }

private:
    HWND m_hWnd = nullptr;
    HWND m_shown = nullptr;
};

}  // namespace OV_OrderDeck
