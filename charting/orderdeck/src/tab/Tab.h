#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <memory>

#include "TradingCenter.h"
#include "charting/orderdeck/interface/IManageContent.h"
#include "charting/orderdeck/interface/IOD_ProfileDataChange.h"
#include "charting/orderdeck/interface/ITab.h"
#include "charting/orderdeck/interface/ITradeInfoProperties.h"
#include "charting/orderdeck/interface/RowSight.h"
#include "charting/orderdeck/src/tab/ControlsHolder.h"
#include "charting/orderdeck/src/tab/OrderReceipt.h"
#include "charting/orderdeck/src/tab/OrderRequest.h"

class CPriceToString;

namespace OV_OrderDeck {

// One tab's logic: owns the fields of the order row and is the only place where an order is put together
// and sent. Changes values first and then names the changed fields to the bar. Has no lock: everything
// runs on the bar's thread. Operations throw _com_error or std::exception.
class CTab : public ITab,
             public IManageContent,
             public ITradeInfoProperties,
             public IOD_ProfileDataChange,
             public boost::enable_shared_from_this<CTab> {
public:
    // Throws _com_error (E_POINTER) for a null profile. The tab listens to the profile while it lives.
    explicit CTab(const com_ptr<CProfileWrap>& profile);
    ~CTab() override;
    CTab(const CTab&) = delete;
    CTab& operator=(const CTab&) = delete;

    void get_Name(CString& name) override;
    void put_Id(LONG id) override;
    LONG get_Id() override;
    void SetContent(const boost::shared_ptr<ITabCtrl>& content) override;
    bool get_GradientColors(COLORREF& from, COLORREF& to) override;
    boost::shared_ptr<IUnifyControl> get_Control(OD_UpdateEntity entity) override;
    com_ptr<CProfileWrap> get_Profile() override;

    void OnContentReady() override;
    void Refresh() override;

    CString get_SymbolName() override;
    void put_SymbolName(const wchar_t* name) override;
    LONG get_SymbolId() override;
    void put_SymbolId(LONG id) override;
    void get_SymbolInfo(OD_SSymbolInfo& info) override;
    void put_SymbolInfo(const OD_SSymbolInfo& info) override;
    CString get_Account() override;
    void put_Account(const wchar_t* name) override;

    LONG OnQuote(double bid, double ask) override;
    LONG OnConnectionState(ETM_ConnectionChanged state) override;
    LONG OnTradingAllowed(bool allowed) override;
    LONG OnStatusText(BSTR text) override;

    // For the fields.

    // Tells the bar which fields changed.
    void _update(unsigned mask);
    // Asks the bar for the focus; does nothing while another tab is shown.
    void _set_focus(OD_UpdateEntity entity);
    // Sends the order. Shows a message instead when a needed price is missing; throws _com_error when
    // any other field lacks its value. Without a sight the row counts as seen just as its fields stand;
    // otherwise only what was seen goes out, and what differs is given.
    void _on_place_order(LONG action);
    row_differences _on_place_order(LONG action, const CRowSight& sight);
    // Gives and reports why a press of a button that can't be used sends nothing.
    row_differences _refuse_unusable(OD_UpdateEntity button, const CRowSight& sight);
    // The symbol's record changed in any way: drops what belonged to the old one, tells host and bar.
    void _on_symbol_changed();
    // Clears the prices and reads the times in force of the new type. Throws _com_error (E_FAIL) without one.
    void _on_order_type_changed();
    // Puts a picked quote into both prices, limited to their range.
    void _apply_price(double value);
    // Prices of the present symbol as text. Valid until the symbol changes.
    const CPriceToString& _get_price_format();
    // The quantity as its field shows it.
    _variant_t _get_quantity();
    const CControlsHolder& get_Controls() const { return *m_controls; }
    // Keeps the tab alive over a call that may dispatch messages, in which the host may remove the
    // profile. Empty for a tab that nobody shares.
    boost::shared_ptr<CTab> _keep_alive();
    // The bar had the tab and has it no more: it tells the bar nothing and asks the user nothing.
    bool _was_removed();

private:
    void _make_controls();
    bool _is_connected();
    com_ptr<ITC_ManualTrading> _get_mt();
    CString _get_data_feed();
    void _set_account(const CString& account);
    void _set_current_account();
    void _set_current_symbol();
    bool _tell_refused_symbol();
    void _clear_prices();
    void _reload_lists();
    template <class Price>
    bool _check_price(Price& field, OD_UpdateEntity entity);
    bool _check_prices();
    void _check_order(LONG action);
    row_differences _place_order(LONG action, const CRowSight* sight);
    row_differences _send_order(const SOrderRequest& request, const CRowSight& sight);
    // False when a host call took the tab away or changed the row; moved then has the changed items, if any.
    bool _is_still_sent(const SOrderRequest& request, row_differences& moved);
    com_ptr<ITC_OrderSight> _get_order_sight(ITC_ManualTrading& trading);
    SKnownQuotes _known_quotes();

    // The members end in reverse order: the profile is the last to go.
    com_ptr<CProfileWrap> m_pProfile;
    LONG m_id = 0;
    boost::shared_ptr<ITabCtrl> m_pCont;
    std::unique_ptr<CControlsHolder> m_controls;
    std::unique_ptr<CPriceToString> m_pPriceFormat;
    // The host's receiver of what was seen; null before it was asked for, or when there is none.
    com_ptr<ITC_OrderSight> m_pOrderSight;
    bool m_bOrderSightAsked = false;
    // The host refused the present symbol: it is given once more before the next order.
    bool m_bSymbolRefused = false;
    // How often a symbol was told.
    unsigned m_nSymbolTellings = 0;
    // An order is between its press and the end of its host calls; a second press sends nothing.
    bool m_bPlacing = false;
    // Milliseconds of the clock when the present quotes came.
    DWORD m_dwQuotesAt = 0;
};

}  // namespace OV_OrderDeck
