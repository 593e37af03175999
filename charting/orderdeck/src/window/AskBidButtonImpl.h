#pragma once

#include "charting/orderdeck/src/window/AskBidPrices.h"
#include "charting/orderdeck/src/window/FittedFont.h"
#include "charting/orderdeck/src/window/RangeBar.h"
#include "platform/win32/frame/accessible_name.h"
#include "unicomp/wtlcontrols/buttonst/ButtonST.h"

namespace OV_OrderDeck {

// The button that shows one of the quotes and offers it to the prices; its drop-down part opens a ladder
// of prices round the market. Lives on the panel's thread.
class AskBidButtonImpl final : public WTLControls::CButtonST, public WTLControls::IButtonSTEventSink {
public:
    AskBidButtonImpl();
    ~AskBidButtonImpl() = default;

    // Makes the ladder too. False when the window can't be subclassed or there is no ladder.
    bool SubclassWindow(HWND button);

    // 1 ask, 2 mid, 3 bid; any other value is the idle state.
    LONG get_Mode() const { return m_prices.get_Mode(); }
    void put_Mode(LONG mode) { m_prices.put_Mode(mode); }
    bool IsIdle() const { return m_prices.IsIdle(); }

    // The symbol that is shown, and on which tab. The ladder of another one closes.
    void put_Symbol(LONG tab, const CString& name);
    // Scale and tick of the symbol. The ladder of another scale closes.
    void SetFormat(LONG code, LONG minMove);
    void SetQuotes(double ask, double bid) { m_prices.SetQuotes(ask, bid); }
    // The price last chosen, by the button or from its ladder.
    double get_HitPrice() const { return m_prices.get_Value(); }
    // Brings the text and the face up to date.
    void Redraw();
    RangeBar& get_RangeBar() { return m_range_bar; }
    // For what the user does not do himself. Nothing when it is closed.
    void CloseLadder() { m_range_bar.Close(); }

    // Posts the command of item 231 to the parent, as a click does. position is the row's place: 1 ask, 0
    // mid, -1 bid.
    void OnRangeSelect(LONG position, double price);

    void OnButtonClick() override;
    void OnDropDownClick() override;

protected:
    frame::answer _ProcessWindowMessage(UINT uMsg, WPARAM wParam, LPARAM lParam) override;

private:
    void UpdateText();
    void _update_face();
    void _place_split();
    static CString _spoken(const CString& shown);
    void _post_command() const;
    frame::answer _on_key_down(UINT uMsg, WPARAM wParam, LPARAM lParam);
    frame::answer _on_ladder_key(WPARAM key, bool held);
    void _toggle_ladder(bool by_key);

    CAskBidPrices m_prices;
    RangeBar m_range_bar{*this, m_prices};
    // A request to hear when the mouse leaves is outstanding.
    bool m_tracking = false;
    LONG m_tab = 0;
    CString m_symbol;
    CFittedFont m_font;
    frame::accessible_name m_name;
};

}  // namespace OV_OrderDeck
