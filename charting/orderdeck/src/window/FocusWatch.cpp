#include "charting/orderdeck/src/window/FocusWatch.h"

namespace OV_OrderDeck {

bool CFocusWatch::Attach(HWND control, std::function<void()> when_focused) {
    m_when_focused = std::move(when_focused);
    return SubclassWindow(control);
}

BOOL CFocusWatch::ProcessWindowMessage(HWND, UINT uMsg, WPARAM, LPARAM, LRESULT&, DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    if (uMsg == WM_SETFOCUS) {
        BugSlayerUtil::guard(BS_HERE, m_when_focused);
    }
    return FALSE;
}

}  // namespace OV_OrderDeck
