// The road of an order, and what else the tab tells the host.
#include <algorithm>

#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "charting/orderdeck/src/tab/Controls/AccountCombo.h"
#include "charting/orderdeck/src/tab/Controls/AskBidButton.h"
#include "charting/orderdeck/src/tab/Controls/BuySellButton.h"
#include "charting/orderdeck/src/tab/Controls/Lookup.h"
#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"
#include "charting/orderdeck/src/tab/Controls/PriceEdit.h"
#include "charting/orderdeck/src/tab/Controls/QuantityEdit.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceCombo.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceEdit.h"
#include "charting/orderdeck/src/tab/ManualSymbol.h"
#include "charting/orderdeck/src/tab/MessageBox.h"
#include "charting/orderdeck/src/tab/OrderGate.h"
#include "charting/orderdeck/src/tab/OrderReceipt.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "charting/orderdeck/src/tab/Truncate.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/clock.h"
#include "platform/text_argument.h"
#include "unicomp/Simples/interface/FillText.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr UINT enter_a_value = 122;
constexpr UINT refused_symbol = 315;

using Kind = SRowDifference::Kind;

class placing {
public:
    explicit placing(bool& flag) : m_flag(flag) { m_flag = true; }
    ~placing() { m_flag = false; }
    placing(const placing&) = delete;
    placing& operator=(const placing&) = delete;

private:
    bool& m_flag;
};

OD_UpdateEntity button_of(LONG action) {
    return action == eMTPA_OA_Sell ? eODUE_Sell : eODUE_Buy;
}

// The one record of a press that sent nothing.
row_differences not_sent(row_differences differences) {
    BugSlayerUtil::trace(BS_HERE, L"Order not sent: " + TextOfDifferences(differences));
    return differences;
}

}  // namespace

com_ptr<ITC_ManualTrading> CTab::_get_mt() {
    com_ptr<ITC_ManualTrading> trading = m_pProfile->get_ManualTrading();
    if (!BS_ASSERT(trading)) {
        _com_issue_error(E_POINTER);
    }
    return trading;
}

void CTab::_set_account(const CString& account) {
    const com_ptr<ITC_ManualTrading> trading = _get_mt();
    const _bstr_t name = platform::text_argument(account);
    BS_ASSERT_OK_TEXT(trading->SetAccount(name.copy(false)), "SetAccount");
}

void CTab::_set_current_account() {
    _set_account(m_controls->m_pAccount->get_Account());
}

void CTab::_set_current_symbol() {
    m_bSymbolRefused = true;
    const unsigned telling = ++m_nSymbolTellings;
    const com_ptr<ITC_ManualTrading> _trad = m_pProfile->get_ManualTrading();
    if (!BS_ASSERT(_trad)) {
        return;
    }
    // The copy keeps the borrowed texts while the host may change the symbol in its call.
    const CSymbolInfo symbol = m_controls->m_pSymbol->get_Symbol();
    SManualSymbol record = make_manual_symbol(symbol);
    const _bstr_t feed = platform::text_argument(_get_data_feed());
    const bool taken = BS_ASSERT_OK_TEXT(_trad->SetSymbol(&record, feed.copy(false)), "SetSymbol");
    // Of two symbols that were told within each other nobody knows which one the host kept.
    m_bSymbolRefused = !taken || telling != m_nSymbolTellings;
}

// A host that does not know the symbol would take the order for the former one.
bool CTab::_tell_refused_symbol() {
    if (!m_bSymbolRefused) {
        return true;
    }
    _set_current_symbol();
    if (m_bSymbolRefused) {
        OrderDeckMessageBox(Unicomp::fill_text(resource_string::text(refused_symbol), {get_SymbolName()}), 0);
    }
    return !m_bSymbolRefused;
}

template <class Price>
bool CTab::_check_price(Price& field, OD_UpdateEntity entity) {
    if (!field.IsEmpty()) {
        return true;
    }
    double low = 0.0;
    double high = 0.0;
    field.get_ValueRange(&low, &high);
    OrderDeckMessageBox(Unicomp::fill_text(resource_string::text(enter_a_value),
                                           {std::to_wstring(truncate(low)), std::to_wstring(truncate(high))}),
                        0);
    _set_focus(entity);
    return false;
}

bool CTab::_check_prices() {
    COrderTypeCombo& order_type = *m_controls->m_pOrderType;
    if (!BS_ASSERT(!order_type.IsEmpty())) {
        return false;
    }
    CFirstPriceEdit& first = *m_controls->m_pFirstPrice;
    CSecondPriceEdit& second = *m_controls->m_pSecondPrice;
    switch (order_type.get_OrderType()) {
        case eMTPA_OC_Market:
            return true;
        case eMTPA_OC_Stop:
            return _check_price(first, eODUE_FirstPrice);
        case eMTPA_OC_Limit:
            return _check_price(second, eODUE_SecondPrice);
        case eMTPA_OC_StopLimit:
            return _check_price(first, eODUE_FirstPrice) && _check_price(second, eODUE_SecondPrice);
    }
    BugSlayerUtil::assertion(BS_HERE, "0");
    return false;
}

void CTab::_check_order(LONG action) {
    CTimeInForceCombo& time_in_force = *m_controls->m_pTimeInForce;
    const bool good = BS_ASSERT(action == eMTPA_OA_Buy || action == eMTPA_OA_Sell) &&
                      BS_ASSERT(!m_controls->m_pOrderType->IsEmpty()) &&
                      BS_ASSERT(!m_controls->m_pQuantity->IsEmpty()) && BS_ASSERT(!time_in_force.IsEmpty()) &&
                      BS_ASSERT(time_in_force.get_SelectedItem(nullptr) != eMTPA_TIF_GTD ||
                                !m_controls->m_pGtdDate->IsEmpty());
    if (!good) {
        _com_issue_error(E_FAIL);
    }
}

void CTab::_on_place_order(LONG action) {
    _place_order(action, nullptr);
}

row_differences CTab::_on_place_order(LONG action, const CRowSight& sight) {
    return _place_order(action, &sight);
}

row_differences CTab::_refuse_unusable(OD_UpdateEntity button, const CRowSight& sight) {
    if (m_controls->m_pSymbol->IsEmpty()) {
        return not_sent({{eODUE_Symbol, Kind::NoSymbol, sight[eODUE_Symbol].text, {}}});
    }
    return not_sent({{button, Kind::Unusable, {}, {}}});
}

row_differences CTab::_place_order(LONG action, const CRowSight* sight) {
    const auto keep = _keep_alive();
    if (m_bPlacing) {
        return not_sent({{button_of(action), Kind::UnderWay, {}, {}}});
    }
    const placing under_way(m_bPlacing);
    if (!_check_prices()) {
        return {};
    }
    _check_order(action);
    const COrderGate gate(*m_controls);
    const SOrderRequest request = gate.Compose(action);
    if (sight != nullptr) {
        const row_differences differences = gate.Compare(*sight, request, _get_price_format());
        if (!differences.empty()) {
            return not_sent(differences);
        }
    }
    return _send_order(request, sight != nullptr ? *sight : CRowSight());
}

bool CTab::_is_still_sent(const SOrderRequest& request, row_differences& moved) {
    if (_was_removed()) {
        BugSlayerUtil::trace(BS_HERE, L"Order not sent: the profile has gone");
        return false;
    }
    moved = COrderGate(*m_controls).Moved(request);
    if (!moved.empty()) {
        moved = not_sent(moved);
    }
    return moved.empty();
}

// Each host call may dispatch messages: after each it is looked at again whether the order still stands. The
// account goes first, then the order itself.
row_differences CTab::_send_order(const SOrderRequest& request, const CRowSight& sight) {
    row_differences moved;
    if (!_tell_refused_symbol() || !_is_still_sent(request, moved)) {
        return moved;
    }
    _set_account(request.account);
    if (!_is_still_sent(request, moved)) {
        return moved;
    }
    const com_ptr<ITC_ManualTrading> trading = _get_mt();
    COrderReceipt receipt(_get_order_sight(*trading), sight, request);
    if (!receipt.Before(m_pOrderSight ? _get_data_feed() : CString(), _known_quotes())) {
        return {};
    }
    if (!_is_still_sent(request, moved)) {
        receipt.After(E_ABORT);
        return moved;
    }
    _variant_t gtd_date(request.gtd_date, VT_DATE);
    const HRESULT hr =
        trading->PlaceOrder(request.action, request.category, request.quantity, request.stop_price,
                            request.limit_price, request.time_in_force, &gtd_date);
    BS_ASSERT_OK_TEXT(hr, "PlaceOrder");
    receipt.After(hr);
    return {};
}

com_ptr<ITC_OrderSight> CTab::_get_order_sight(ITC_ManualTrading& trading) {
    if (!m_bOrderSightAsked) {
        m_bOrderSightAsked = true;
        com_ptr<ITC_OrderSight> sight;
        // Whatever else than S_OK a host has for an interface that it does not know, it is one without it.
        if (trading.QueryInterface(__uuidof(ITC_OrderSight), static_cast<void**>(platform::receive(sight))) ==
            S_OK) {
            m_pOrderSight = sight;
        }
    }
    return m_pOrderSight;
}

SKnownQuotes CTab::_known_quotes() {
    CAskBidButton& quotes = *m_controls->m_pAskBid;
    if (quotes.IsEmpty()) {
        return {};
    }
    const DWORD age = platform::port<platform::clock>::get().tick_count() - m_dwQuotesAt;
    return {quotes.get_Bid(), quotes.get_Ask(), static_cast<LONG>(std::min<DWORD>(age, 0x7FFFFFFF))};
}

}  // namespace OV_OrderDeck
