#pragma once

#include <memory>

#include "charting/orderdeck/src/window/FittedFont.h"
#include "platform/win32/frame/subclassed_window.h"
#include "unicomp/FormatUtil/interface/PriceToString.h"

namespace OV_OrderDeck {

// The button that shows the quotes and offers them to the prices. A click on its left half hits the bid,
// any other the ask. Lives on the panel's thread.
class AskBidButtonImpl final : public frame::subclassed_window {
public:
    AskBidButtonImpl();

    // 1 to 3 while there are quotes; any other value is the idle state.
    int get_Mode() const { return m_mode; }
    void put_Mode(int mode);
    bool IsIdle() const { return m_mode < 1 || m_mode > 3; }

    // Scale and tick of the symbol.
    void SetFormat(LONG code, LONG minMove);
    void SetQuotes(double ask, double bid);
    // The price that the last click hit.
    double get_HitPrice() const { return m_hit_bid ? m_bid : m_ask; }
    // Brings the caption up to date.
    void Redraw();

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

private:
    frame::answer _dispatch(UINT uMsg, LPARAM lParam);
    CString _caption() const;

    double m_ask = 0.0;
    double m_bid = 0.0;
    bool m_hit_bid = false;
    int m_mode = 2;
    std::unique_ptr<CPriceToString> m_format;
    LONG m_min_move = 1;
    // The caption needs redoing.
    bool m_dirty = true;
    CFittedFont m_font;
};

}  // namespace OV_OrderDeck
