#include "charting/orderdeck/src/window/TabStrip.h"

namespace OV_OrderDeck {

namespace {

constexpr int longest_text = 1024;

// The messages after which another tab may be current, whoever sends them.
bool may_select(UINT uMsg) {
    switch (uMsg) {
        case TCM_SETCURSEL:
        case TCM_INSERTITEMW:
        case TCM_DELETEITEM:
        case TCM_DELETEALLITEMS:
            return true;
        default:
            return false;
    }
}

}  // namespace

BOOL CTabStrip::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult, DWORD) {
    if (uMsg == WM_NCDESTROY) {
        m_current_id = 0;
    }
    if (!may_select(uMsg)) {
        return FALSE;
    }
    lResult = DefWindowProc(uMsg, wParam, lParam);
    OnSelChange();
    return TRUE;
}

int CTabStrip::get_Count() const {
    return TabCtrl_GetItemCount(m_hWnd);
}

int CTabStrip::get_Current() const {
    return m_hWnd != nullptr ? TabCtrl_GetCurSel(m_hWnd) : -1;
}

LONG CTabStrip::get_Id(int index) const {
    TCITEMW item = {};
    item.mask = TCIF_PARAM;
    return ::SendMessageW(m_hWnd, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item))
               ? static_cast<LONG>(item.lParam)
               : 0;
}

CString CTabStrip::get_Text(int index) const {
    wchar_t text[longest_text] = {};
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = longest_text;
    ::SendMessageW(m_hWnd, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return item.pszText != nullptr ? CString(item.pszText) : CString();
}

int CTabStrip::get_Image(int index) const {
    TCITEMW item = {};
    item.mask = TCIF_IMAGE;
    item.iImage = -1;
    ::SendMessageW(m_hWnd, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return item.iImage;
}

int CTabStrip::Find(LONG id) const {
    const int count = get_Count();
    for (int i = 0; i < count; ++i) {
        if (get_Id(i) == id) {
            return i;
        }
    }
    return -1;
}

int CTabStrip::Insert(const CString& name, LONG id, int image) {
    const int count = get_Count();
    int place = 0;
    while (place < count && name > get_Text(place)) {
        ++place;
    }
    CString text = name;
    TCITEMW item = {};
    item.mask = TCIF_TEXT | TCIF_IMAGE | TCIF_PARAM;
    item.pszText = text.data();
    item.iImage = image;
    item.lParam = id;
    return static_cast<int>(
        ::SendMessageW(m_hWnd, TCM_INSERTITEMW, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(&item)));
}

bool CTabStrip::Delete(int index) const {
    return TabCtrl_DeleteItem(m_hWnd, index) != FALSE;
}

bool CTabStrip::DeleteAll() const {
    return TabCtrl_DeleteAllItems(m_hWnd) != FALSE;
}

void CTabStrip::Select(int index) const {
    TabCtrl_SetCurSel(m_hWnd, index);
}

bool CTabStrip::put_Image(int index, int image) const {
    TCITEMW item = {};
    item.mask = TCIF_IMAGE;
    item.iImage = image;
    return ::SendMessageW(m_hWnd, TCM_SETITEMW, static_cast<WPARAM>(index),
                          reinterpret_cast<LPARAM>(&item)) != FALSE;
}

int CTabStrip::HitTest(POINT at) const {
    TCHITTESTINFO hit = {at, 0};
    const int index = TabCtrl_HitTest(m_hWnd, &hit);
    return (hit.flags & TCHT_NOWHERE) != 0 ? -1 : index;
}

RECT CTabStrip::get_PageRect() const {
    RECT page = {};
    ::GetClientRect(m_hWnd, &page);
    TabCtrl_AdjustRect(m_hWnd, FALSE, &page);
    return page;
}

void CTabStrip::Repaint() const {
    ::RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

}  // namespace OV_OrderDeck
