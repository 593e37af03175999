#include "charting/orderdeck/src/window/QuantityBox.h"

#include <cwchar>

#include "charting/orderdeck/src/window/WindowText.h"

namespace OV_OrderDeck {

namespace {

CString plain_text(double value) {
    return std::to_wstring(static_cast<long long>(value));
}

}  // namespace

double CQuantityBox::GetValue() const {
    return m_value;
}

void CQuantityBox::SetValue(double value) {
    m_value = value;
    m_text = plain_text(value);
    _show(::GetFocus() == m_hWnd);
    m_host->OnStringChanged(m_id, _bstr_t(m_text.c_str()));
}

BOOL CQuantityBox::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                        DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    return frame::take(frame::guarded(BS_HERE, [&] { return _dispatch(uMsg, wParam, lParam); }), lResult);
}

frame::answer CQuantityBox::_dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    switch (uMsg) {
        case WM_SETFOCUS:
            _show(true);
            return frame::declined;
        case WM_KILLFOCUS:
            _show(false);
            return frame::declined;
        case WM_CHAR:
        case WM_KEYDOWN:
        case WM_CUT:
        case WM_PASTE:
        case WM_CLEAR:
        case WM_UNDO:
        case EM_UNDO:
        case EM_REPLACESEL:
        case WM_SETTEXT:
            return _after(uMsg, wParam, lParam);
        default:
            return frame::declined;
    }
}

// Lets the edit change its text first.
LRESULT CQuantityBox::_after(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = DefWindowProc(uMsg, wParam, lParam);
    if (!m_showing) {
        BugSlayerUtil::guard(BS_HERE, [&] { _accept(); });
    }
    return result;
}

void CQuantityBox::_accept() {
    CString text = window_text(m_hWnd);
    if (text == m_text || (::GetFocus() != m_hWnd && text == m_host->GetDisplayText(m_value))) {
        return;
    }
    m_text = std::move(text);
    if (!m_text.empty()) {
        m_value = std::wcstod(m_text.c_str(), nullptr);
    }
    m_host->OnStringChanged(m_id, _bstr_t(m_text.c_str()));
}

void CQuantityBox::_show(bool focused) {
    if (m_text.empty()) {
        return;
    }
    const CString shown =
        !focused && m_host->UsesDisplayText(m_id) ? m_host->GetDisplayText(m_value) : m_text;
    if (shown != window_text(m_hWnd)) {
        m_showing = true;
        ::SetWindowTextW(m_hWnd, shown.c_str());
        m_showing = false;
    }
}

}  // namespace OV_OrderDeck
