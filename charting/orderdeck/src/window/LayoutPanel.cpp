#include "charting/orderdeck/src/window/LayoutPanel.h"

namespace OV_OrderDeck {

HWND CLayoutPanel::get_Item(int item) {
    return ::GetDlgItem(m_panel, item);
}

RECT CLayoutPanel::get_ItemRect(HWND window) {
    RECT rect = {};
    ::GetWindowRect(window, &rect);
    ::MapWindowPoints(nullptr, m_panel, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

bool CLayoutPanel::IsItemVisible(HWND window) {
    return ::IsWindowVisible(window) != FALSE;
}

void CLayoutPanel::ShowItem(HWND window, bool visible) {
    ::ShowWindow(window, visible ? SW_SHOW : SW_HIDE);
}

void CLayoutPanel::StartTimer(const void* id, UINT milliseconds) {
    ::SetTimer(m_panel, reinterpret_cast<UINT_PTR>(id), milliseconds, nullptr);
}

void CLayoutPanel::StopTimer(const void* id) {
    ::KillTimer(m_panel, reinterpret_cast<UINT_PTR>(id));
}

void* CLayoutPanel::BeginMoves(int count) {
    return ::BeginDeferWindowPos(count);
}

void* CLayoutPanel::MoveItem(void* batch, HWND window, int x, int y) {
    return ::DeferWindowPos(static_cast<HDWP>(batch), window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

bool CLayoutPanel::EndMoves(void* batch) {
    return ::EndDeferWindowPos(static_cast<HDWP>(batch)) != FALSE;
}

void CLayoutPanel::Repaint() {
    ::RedrawWindow(m_panel, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

}  // namespace OV_OrderDeck
