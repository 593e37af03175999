// The road of an order, and what else the tab tells the host.
#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "charting/orderdeck/src/tab/Controls/AccountCombo.h"
#include "charting/orderdeck/src/tab/Controls/Lookup.h"
#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"
#include "charting/orderdeck/src/tab/Controls/PriceEdit.h"
#include "charting/orderdeck/src/tab/Controls/QuantityEdit.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceCombo.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceEdit.h"
#include "charting/orderdeck/src/tab/ManualSymbol.h"
#include "charting/orderdeck/src/tab/MessageBox.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "charting/orderdeck/src/tab/Truncate.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/text_argument.h"
#include "unicomp/Simples/interface/FillText.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr UINT enter_a_value = 122;

template <class Price>
double price_of(Price& field) {
    return field.IsEmpty() ? 0.0 : field.get_Price();
}

}  // namespace

com_ptr<ITC_ManualTrading> CTab::_get_mt() {
    com_ptr<ITC_ManualTrading> trading = m_pProfile->get_ManualTrading();
    if (!BS_ASSERT(trading)) {
        _com_issue_error(E_POINTER);
    }
    return trading;
}

void CTab::_set_current_account() {
    const com_ptr<ITC_ManualTrading> trading = _get_mt();
    const _bstr_t account = platform::text_argument(m_controls->m_pAccount->get_Account());
    BS_ASSERT_OK_TEXT(trading->SetAccount(account.copy(false)), "SetAccount");
}

void CTab::_set_current_symbol() {
    const com_ptr<ITC_ManualTrading> _trad = m_pProfile->get_ManualTrading();
    if (!BS_ASSERT(_trad)) {
        return;
    }
    // The copy keeps the borrowed texts while the host may change the symbol in its call.
    const CSymbolInfo symbol = m_controls->m_pSymbol->get_Symbol();
    SManualSymbol record = make_manual_symbol(symbol);
    const _bstr_t feed = platform::text_argument(_get_data_feed());
    BS_ASSERT_OK_TEXT(_trad->SetSymbol(&record, feed.copy(false)), "SetSymbol");
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
    const auto keep = _keep_alive();
    if (!_check_prices()) {
        return;
    }
    _check_order(action);
    _set_current_account();
    _send_order(action);
}

void CTab::_send_order(LONG action) {
    // A price goes out unless its field is empty, whatever the category.
    const double limit_price = price_of(*m_controls->m_pSecondPrice);
    const double stop_price = price_of(*m_controls->m_pFirstPrice);
    // Deliberate: the date goes with every order; hosts read it under GTD only.
    _variant_t gtd_date = m_controls->m_pGtdDate->get_Value();
    BS_ASSERT_OK_TEXT(
        _get_mt()->PlaceOrder(static_cast<MTPA_OrdrActn>(action), m_controls->m_pOrderType->get_OrderType(),
                              m_controls->m_pQuantity->get_Quantity(), stop_price, limit_price,
                              m_controls->m_pTimeInForce->get_SelectedItem(nullptr), &gtd_date),
        "PlaceOrder");
}

}  // namespace OV_OrderDeck
