#pragma once

#include "TradingCenter.h"
#include "platform/com_ptr.h"

namespace SW {

// Tells the host for its lifetime that a modal action runs. Bar's thread.
class CUILocker {
public:
    // A null sink locks nothing.
    CUILocker(SW::IOnCommand* pOnCommand, HWND hWnd);
    ~CUILocker();
    CUILocker(const CUILocker&) = delete;
    CUILocker& operator=(const CUILocker&) = delete;

private:
    com_ptr<SW::IOnCommand> m_pOnCommand;
    HWND m_hWnd;
};

}  // namespace SW
