#include "charting/orderdeck/src/window/TabStrip.h"

#include <algorithm>
#include <new>

namespace OV_OrderDeck {

namespace {

constexpr int longest_text = 1024;
constexpr std::size_t first_room = 16;

LONG id_of(const TCITEMW& item) {
    return (item.mask & TCIF_PARAM) != 0 ? static_cast<LONG>(item.lParam) : 0;
}

}  // namespace

BOOL CTabStrip::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                     DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    return frame::take(frame::guarded(BS_HERE, [&] { return _dispatch(uMsg, wParam, lParam); }), lResult);
}

frame::answer CTabStrip::_dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    switch (uMsg) {
        case WM_NCDESTROY:
            m_ids.clear();
            m_current_id = 0;
            return frame::declined;
        case TCM_INSERTITEMW:
        case TCM_INSERTITEMA:
            result = _insert(uMsg, wParam, lParam);
            break;
        case TCM_DELETEITEM:
            if (result = DefWindowProc(uMsg, wParam, lParam); result != FALSE) {
                m_ids.erase(m_ids.begin() + static_cast<std::ptrdiff_t>(wParam));
            }
            break;
        case TCM_DELETEALLITEMS:
            if (result = DefWindowProc(uMsg, wParam, lParam); result != FALSE) {
                m_ids.clear();
            }
            break;
        case TCM_SETCURSEL:
            result = DefWindowProc(uMsg, wParam, lParam);
            break;
        default:
            return frame::declined;
    }
    OnSelChange();
    return result;
}

// The id's room is made before the control takes the item, so that the two never part when memory is out.
LRESULT CTabStrip::_insert(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    if (!_make_room()) {
        return -1;
    }
    const LRESULT index = DefWindowProc(uMsg, wParam, lParam);
    if (index != -1) {
        // The item of either form of the message has its mask and its parameter at the same places.
        m_ids.insert(m_ids.begin() + index, id_of(*reinterpret_cast<const TCITEMW*>(lParam)));
    }
    return index;
}

bool CTabStrip::_make_room() {
    try {
        if (m_ids.size() == m_ids.capacity()) {
            m_ids.reserve(std::max(first_room, 2 * m_ids.size()));
        }
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

int CTabStrip::get_Count() const {
    return TabCtrl_GetItemCount(m_hWnd);
}

int CTabStrip::get_Current() const {
    return m_hWnd != nullptr ? TabCtrl_GetCurSel(m_hWnd) : -1;
}

LONG CTabStrip::get_Id(int index) const {
    const auto place = static_cast<std::size_t>(index);
    return index >= 0 && place < m_ids.size() ? m_ids[place] : 0;
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
    const auto found = std::find(m_ids.begin(), m_ids.end(), id);
    return found != m_ids.end() ? static_cast<int>(found - m_ids.begin()) : -1;
}

// The tabs stand sorted, so the place is halved: hundreds of profiles open in no more than their number's
// time.
int CTabStrip::Insert(const CString& name, LONG id, int image) {
    int place = 0;
    for (int behind = get_Count(); place < behind;) {
        const int middle = place + (behind - place) / 2;
        if (name > get_Text(middle)) {
            place = middle + 1;
        } else {
            behind = middle;
        }
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
