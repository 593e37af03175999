#include "charting/orderdeck/src/window/AskBidButtonImpl.h"

#include "charting/orderdeck/src/window/WindowText.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr UINT no_quotes_text = 140;
constexpr int button_frame = 4;

}  // namespace

AskBidButtonImpl::AskBidButtonImpl() : m_format(std::make_unique<CPriceToString>(-1)) {}

void AskBidButtonImpl::put_Mode(int mode) {
    m_dirty = m_dirty || mode != m_mode;
    m_mode = mode;
}

void AskBidButtonImpl::SetFormat(LONG code, LONG minMove) {
    m_format = std::make_unique<CPriceToString>(code);
    m_min_move = minMove;
    m_dirty = true;
}

void AskBidButtonImpl::SetQuotes(double ask, double bid) {
    m_dirty = m_dirty || ask != m_ask || bid != m_bid;
    m_ask = ask;
    m_bid = bid;
}

void AskBidButtonImpl::Redraw() {
    if (!m_dirty) {
        return;
    }
    m_dirty = false;
    const CString caption = _caption();
    if (caption != window_text(m_hWnd)) {
        RECT client = {};
        ::GetClientRect(m_hWnd, &client);
        m_font.Fit(m_hWnd, caption, static_cast<int>(client.right) - 2 * button_frame);
        ::SetWindowTextW(m_hWnd, caption.c_str());
    }
}

CString AskBidButtonImpl::_caption() const {
    if (IsIdle() || !(m_ask > 0.0) || !(m_bid > 0.0)) {
        return resource_string::text(no_quotes_text);
    }
    return m_format->ToTextEx(m_bid, m_min_move) + L" / " + m_format->ToTextEx(m_ask, m_min_move);
}

BOOL AskBidButtonImpl::ProcessWindowMessage(HWND, UINT uMsg, WPARAM, LPARAM lParam, LRESULT& lResult,
                                            DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    return frame::take(frame::guarded(BS_HERE, [&] { return _dispatch(uMsg, lParam); }), lResult);
}

frame::answer AskBidButtonImpl::_dispatch(UINT uMsg, LPARAM lParam) {
    if (uMsg == WM_LBUTTONDOWN || uMsg == WM_LBUTTONDBLCLK) {
        RECT client = {};
        ::GetClientRect(m_hWnd, &client);
        m_hit_bid = frame::point_of(lParam).x < client.right / 2;
    } else if (uMsg == WM_KEYDOWN || uMsg == WM_SYSKEYDOWN) {
        m_hit_bid = false;
    }
    return frame::declined;
}

}  // namespace OV_OrderDeck
