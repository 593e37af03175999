#pragma once

#include "charting/orderdeck/src/window/CtrlsLayout.h"

namespace OV_OrderDeck {

// The windows of a panel for its layout. On the panel's thread.
class CLayoutPanel final : public ILayoutPanel {
public:
    // The panel's window; before anything else.
    void Attach(HWND panel) { m_panel = panel; }

    HWND get_Item(int item) override;
    RECT get_ItemRect(HWND window) override;
    bool IsItemVisible(HWND window) override;
    void ShowItem(HWND window, bool visible) override;
    void StartTimer(const void* id, UINT milliseconds) override;
    void StopTimer(const void* id) override;
    void* BeginMoves(int count) override;
    void* MoveItem(void* batch, HWND window, int x, int y) override;
    bool EndMoves(void* batch) override;
    void Repaint() override;

private:
    HWND m_panel = nullptr;
};

}  // namespace OV_OrderDeck
