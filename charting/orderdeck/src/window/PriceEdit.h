#pragma once

#include "charting/orderdeck/interface/IUnifyControl.h"
#include "charting/orderdeck/interface/OD_UpdateEntity.h"
#include "platform/text.h"
#include "platform/win32/frame/subclassed_window.h"

namespace OV_OrderDeck {

class CProfileTabWindow;

namespace details {

// The window side of a price field: the edit on the panel. It tells the field what was typed or spun and
// shows the allowed range over the edit while the field holds no price. Lives on the panel's thread.
class CPriceEdit final : public frame::subclassed_window {
public:
    // title: the string of the balloon's title.
    CPriceEdit(CProfileTabWindow& panel, int item, UINT title)
        : m_panel(&panel), m_item(item), m_title(title) {}

    // The user changed the text.
    void OnUpdate();
    // The user pressed the spin; delta in steps.
    void OnDeltaSpinChanged(int delta);

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

private:
    void _on_kill_focus();
    void _show_reading(IUnifyControl& field);
    frame::answer _on_arrow() const;

    CProfileTabWindow* m_panel;
    int m_item;
    UINT m_title;
};

}  // namespace details

}  // namespace OV_OrderDeck
