#include "charting/orderdeck/src/tab/Tab.h"

#include <cmath>

#include "charting/orderdeck/interface/ITabCtrl.h"
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
#include "charting/orderdeck/src/tab/DataFeeds.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/clock.h"
#include "unicomp/FormatUtil/interface/PriceToString.h"

namespace OV_OrderDeck {

namespace {

// The host takes these results as they are.
constexpr LONG accepted = 0;
constexpr LONG refused = 1;

template <class Field>
void make_field(boost::shared_ptr<Field>& place, CTab* owner) {
    place.reset(new Field);
    place->SetOwner(owner);
}

}  // namespace

CTab::CTab(const com_ptr<CProfileWrap>& profile)
    : m_pProfile(profile), m_controls(std::make_unique<CControlsHolder>()) {
    if (!BS_ASSERT(profile)) {
        _com_issue_error(E_POINTER);
    }
    m_pProfile->Advise(this);
    try {
        _make_controls();
    } catch (...) {
        m_pProfile->Unadvise();
        throw;
    }
}

CTab::~CTab() {
    // First of all, so that no quote arrives on a dying tab.
    m_pProfile->Unadvise();
}

void CTab::_make_controls() {
    make_field(m_controls->m_pSymbol, this);
    make_field(m_controls->m_pOrderType, this);
    make_field(m_controls->m_pQuantity, this);
    make_field(m_controls->m_pFirstPrice, this);
    make_field(m_controls->m_pSecondPrice, this);
    make_field(m_controls->m_pAccount, this);
    make_field(m_controls->m_pTimeInForce, this);
    make_field(m_controls->m_pGtdDate, this);
    make_field(m_controls->m_pAskBid, this);
    make_field(m_controls->m_pBuy, this);
    make_field(m_controls->m_pSell, this);
}

void CTab::get_Name(CString& name) {
    name = m_pProfile->get_Name(true);
}

void CTab::put_Id(LONG id) {
    m_id = id;
}

LONG CTab::get_Id() {
    return m_id;
}

void CTab::SetContent(const boost::shared_ptr<ITabCtrl>& content) {
    m_pCont = content;
}

bool CTab::get_GradientColors(COLORREF&, COLORREF&) {
    return false;
}

boost::shared_ptr<IUnifyControl> CTab::get_Control(OD_UpdateEntity entity) {
    return m_controls->find(entity);
}

com_ptr<CProfileWrap> CTab::get_Profile() {
    return m_pProfile;
}

boost::shared_ptr<CTab> CTab::_keep_alive() {
    return weak_from_this().lock();
}

bool CTab::_was_removed() {
    return m_pCont && m_id != 0 && m_pCont->get_Tab(m_id).get() != this;
}

void CTab::OnContentReady() {}

void CTab::Refresh() {
    const auto keep = _keep_alive();
    // Asking live resets the cached state; the answer itself is of no use here.
    m_pProfile->get_ConnectionState(false);
    _reload_lists();
    _update(UpdateMask::Everything);
}

void CTab::_update(unsigned mask) {
    if (BS_ASSERT(m_pCont.get()) && !_was_removed()) {
        m_pCont->Update(m_id, mask);
    }
}

void CTab::_set_focus(OD_UpdateEntity entity) {
    if (BS_ASSERT(m_pCont.get()) && !_was_removed()) {
        m_pCont->SetFocus(m_id, entity);
    }
}

bool CTab::_is_connected() {
    return m_pProfile->get_ConnectionState(true) == eTM_CC_Connected;
}

CString CTab::_get_data_feed() {
    return data_feed_of_plugin(m_pProfile->get_PluginName(true));
}

void CTab::_clear_prices() {
    m_controls->m_pFirstPrice->Clear();
    m_controls->m_pSecondPrice->Clear();
}

void CTab::_reload_lists() {
    m_controls->m_pAccount->Update();
    m_controls->m_pTimeInForce->Update(m_controls->m_pOrderType->get_OrderType());
}

void CTab::_on_symbol_changed() {
    const auto keep = _keep_alive();
    // Until the host is told, it knows another symbol: a press inside its other calls would order that one.
    m_bSymbolRefused = true;
    if (!m_controls->m_pSymbol->IsEmpty() && _is_connected()) {
        m_controls->m_pAccount->Update();
        _clear_prices();
    }
    m_controls->m_pAskBid->Reset();
    m_pPriceFormat.reset();
    _set_current_symbol();
    _update(UpdateMask::AllFields);
}

void CTab::_on_order_type_changed() {
    const auto keep = _keep_alive();
    _clear_prices();
    m_controls->m_pTimeInForce->Update(m_controls->m_pOrderType->get_OrderType());
    _update(UpdateMask::OrderType);
}

void CTab::_apply_price(double value) {
    // Deliberate: a hidden price gets the quote too, and a market order then carries it.
    m_controls->m_pFirstPrice->_set_clamped(value);
    m_controls->m_pSecondPrice->_set_clamped(value);
    _update(UpdateMask::Prices);
}

const CPriceToString& CTab::_get_price_format() {
    if (!m_pPriceFormat) {
        CLookup& symbol = *m_controls->m_pSymbol;
        m_pPriceFormat = std::make_unique<CPriceToString>(symbol.IsEmpty() ? 0 : symbol.get_PriceScaleCode());
    }
    return *m_pPriceFormat;
}

_variant_t CTab::_get_quantity() {
    return m_controls->m_pQuantity->get_Value();
}

CString CTab::get_SymbolName() {
    const CSymbolInfo& symbol = m_controls->m_pSymbol->get_Symbol();
    return symbol.valid() ? platform::text_of(symbol.Name) : CString();
}

void CTab::put_SymbolName(const wchar_t* name) {
    const auto keep = _keep_alive();
    // The symbol of such a profile is restored by its id.
    if (!m_controls->m_pSymbol->IsPluginSupported(m_pProfile->get_PluginName(true).c_str())) {
        m_controls->m_pSymbol->LookupByName(name != nullptr ? name : L"");
    }
}

LONG CTab::get_SymbolId() {
    const CSymbolInfo& symbol = m_controls->m_pSymbol->get_Symbol();
    return symbol.valid() ? symbol.id : 0;
}

void CTab::put_SymbolId(LONG id) {
    m_controls->m_pSymbol->LookupById(id);
}

void CTab::get_SymbolInfo(OD_SSymbolInfo& info) {
    m_controls->m_pSymbol->get_Symbol().copy_to(info);
}

void CTab::put_SymbolInfo(const OD_SSymbolInfo& info) {
    const auto keep = _keep_alive();
    const CString feed = platform::text_of(info.DataFeed);
    if (!feed.empty() && feed != _get_data_feed()) {
        return;
    }
    CSymbolInfo symbol;
    symbol = info;
    m_controls->m_pSymbol->_store(symbol);
}

CString CTab::get_Account() {
    return m_controls->m_pAccount->get_Account();
}

void CTab::put_Account(const wchar_t* name) {
    if ((name != nullptr ? name : L"") == get_Account()) {
        return;
    }
    const auto keep = _keep_alive();
    // Deliberate: an unknown name leaves the selection, and that account is sent once more.
    m_controls->m_pAccount->SelectByName(name);
    _set_current_account();
    _update(eODUE_Account);
}

LONG CTab::OnQuote(double bid, double ask) {
    const auto keep = _keep_alive();
    const bool good = std::isnormal(bid) && std::isnormal(ask) && bid <= ask;
    if (good) {
        m_controls->m_pAskBid->SetQuotes(ask, bid);
        m_dwQuotesAt = platform::port<platform::clock>::get().tick_count();
    } else {
        m_controls->m_pAskBid->Reset();
    }
    _update(eODUE_AskBid);
    return good ? accepted : refused;
}

LONG CTab::OnConnectionState(ETM_ConnectionChanged state) {
    const auto keep = _keep_alive();
    _reload_lists();
    unsigned mask = 0;
    switch (state) {
        case eTM_CC_Disconnected:
            m_controls->m_pAskBid->Reset();
            mask = UpdateMask::AllFieldsRepaintConnection;
            break;
        case eTM_CC_Connecting:
            mask = UpdateMask::ConnectionState;
            break;
        case eTM_CC_Connected:
            if (!m_controls->m_pSymbol->IsEmpty()) {
                _clear_prices();
            }
            mask = UpdateMask::AllFieldsRepaintConnection;
            break;
    }
    _update(mask);
    return accepted;
}

LONG CTab::OnTradingAllowed(bool) {
    return accepted;
}

LONG CTab::OnStatusText(BSTR) {
    return accepted;
}

}  // namespace OV_OrderDeck
