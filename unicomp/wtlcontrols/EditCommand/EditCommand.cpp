#include "unicomp/wtlcontrols/EditCommand/EditCommand.h"

#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"
#include "platform/win32/frame/png_image.h"
#include "platform/win32/frame/resolution.h"

namespace WTLControls {

namespace {

// At 96 to the inch, as the pictures.
constexpr int button_width = 16;

bool ends_editing(WPARAM key) {
    return key == VK_RETURN || key == VK_ESCAPE;
}

}  // namespace

// Deliberately also when the window went first, as in a panel: the list would be left behind otherwise.
CEditCommandCtrlWnd2::~CEditCommandCtrlWnd2() {
    if (m_owns_images) {
        ::ImageList_Destroy(m_images);
    }
}

bool CEditCommandCtrlWnd2::CreateButton(int button_id, UINT image_strip) {
    const frame::common_controls_scope scope;
    const HWND button = ::CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, m_hWnd,
                                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(button_id)),
                                          frame::module_instance(), nullptr);
    if (button == nullptr || !m_button.SubclassWindow(button)) {
        return false;
    }
    const int width = frame::scaled(m_hWnd, button_width);
    m_images = frame::load_image_strip(image_strip, width);
    m_owns_images = BS_ASSERT_TEXT(m_images != nullptr, "0");
    m_button.put_Images(m_images);
    ::SendMessageW(m_hWnd, EM_SETMARGINS, EC_RIGHTMARGIN, MAKELPARAM(0, width));
    _place_button();
    return true;
}

BOOL CEditCommandCtrlWnd2::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam,
                                                LRESULT& lResult, DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    return frame::take(frame::guarded(BS_HERE, [&] { return _dispatch(uMsg, wParam, lParam); }), lResult);
}

frame::answer CEditCommandCtrlWnd2::_dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    switch (uMsg) {
        case WM_SIZE:
            _place_button();
            return frame::declined;
        case WM_ENABLE:
            ::EnableWindow(get_Button(), wParam != FALSE);
            m_button.Repaint();
            return frame::declined;
        case WM_SETFOCUS:
            m_sink->OnEditSetFocus(m_id);
            return frame::declined;
        case WM_KILLFOCUS:
            m_sink->OnEditKillFocus(m_id);
            return frame::declined;
        case WM_PAINT:
            // The edit draws over its children.
            DefWindowProc(uMsg, wParam, lParam);
            m_button.Repaint();
            return 0;
        case WM_KEYDOWN:
            if (ends_editing(wParam)) {
                m_sink->OnEditEnd(m_id, wParam == VK_RETURN);
            }
            return frame::declined;
        case WM_CHAR:
            // The edit beeps at these two, which were dealt with when the key went down.
            return ends_editing(wParam) ? frame::answer(0) : frame::declined;
        case WM_GETDLGCODE:
            return ends_editing(wParam) ? frame::answer(DLGC_WANTALLKEYS) : frame::declined;
        case WM_CTLCOLOREDIT:
            return _paint_child_edit(reinterpret_cast<HDC>(wParam));
        default:
            return frame::declined;
    }
}

void CEditCommandCtrlWnd2::_place_button() {
    ::GetClientRect(m_hWnd, &m_button_rect);
    const int width = frame::scaled(m_hWnd, button_width);
    m_button_rect.left = m_button_rect.right - width;
    if (get_Button() != nullptr) {
        ::MoveWindow(get_Button(), m_button_rect.left, m_button_rect.top, width,
                     m_button_rect.bottom - m_button_rect.top, TRUE);
    }
}

// Deliberately a loud colour and a new brush each time, left to the system: an edit inside this edit has
// no place in the product, and this is how it would be noticed.
LRESULT CEditCommandCtrlWnd2::_paint_child_edit(HDC target) {
    constexpr COLORREF pure_green = RGB(0, 255, 0);
    ::SetBkColor(target, pure_green);
    return reinterpret_cast<LRESULT>(::CreateSolidBrush(pure_green));
}

}  // namespace WTLControls
