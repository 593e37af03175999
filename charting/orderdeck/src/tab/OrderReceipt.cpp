#include "charting/orderdeck/src/tab/OrderReceipt.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <utility>

#include "charting/orderdeck/src/tab/ManualSymbol.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/clock.h"
#include "platform/text_argument.h"

namespace OV_OrderDeck {

namespace {

static_assert(sizeof(SOrderSight) == 264);
static_assert(offsetof(SOrderSight, Number) == 0);
static_assert(offsetof(SOrderSight, Milliseconds) == 8);
static_assert(offsetof(SOrderSight, Source) == 16);
static_assert(offsetof(SOrderSight, Action) == 20);
static_assert(offsetof(SOrderSight, Category) == 24);
static_assert(offsetof(SOrderSight, Quantity) == 28);
static_assert(offsetof(SOrderSight, StopPrice) == 32);
static_assert(offsetof(SOrderSight, LimitPrice) == 40);
static_assert(offsetof(SOrderSight, TimeInForce) == 48);
static_assert(offsetof(SOrderSight, QuoteAge) == 52);
static_assert(offsetof(SOrderSight, GtdDate) == 56);
static_assert(offsetof(SOrderSight, Bid) == 64);
static_assert(offsetof(SOrderSight, Ask) == 72);
static_assert(offsetof(SOrderSight, Account) == 80);
static_assert(offsetof(SOrderSight, DataFeed) == 88);
static_assert(offsetof(SOrderSight, Symbol) == 96);
static_assert(offsetof(SOrderSight, SymbolText) == 192);
static_assert(offsetof(SOrderSight, OrderTypeText) == 200);
static_assert(offsetof(SOrderSight, QuantityText) == 208);
static_assert(offsetof(SOrderSight, StopPriceText) == 216);
static_assert(offsetof(SOrderSight, LimitPriceText) == 224);
static_assert(offsetof(SOrderSight, AccountText) == 232);
static_assert(offsetof(SOrderSight, TimeInForceText) == 240);
static_assert(offsetof(SOrderSight, DateText) == 248);
static_assert(offsetof(SOrderSight, ButtonText) == 256);

LONGLONG next_number() {
    static std::atomic<LONGLONG> last{0};
    return ++last;
}

// The shown texts, each with its place in the record.
class shown_texts {
public:
    shown_texts(const CRowSight& sight, OD_UpdateEntity button, SOrderSight& record) {
        const std::array<std::pair<OD_UpdateEntity, BSTR SOrderSight::*>, 9> places{
            {{eODUE_Symbol, &SOrderSight::SymbolText},
             {eODUE_OrderType, &SOrderSight::OrderTypeText},
             {eODUE_Quantity, &SOrderSight::QuantityText},
             {eODUE_FirstPrice, &SOrderSight::StopPriceText},
             {eODUE_SecondPrice, &SOrderSight::LimitPriceText},
             {eODUE_Account, &SOrderSight::AccountText},
             {eODUE_TimeInForce, &SOrderSight::TimeInForceText},
             {eODUE_GtdDate, &SOrderSight::DateText},
             {button, &SOrderSight::ButtonText}}};
        for (std::size_t i = 0; i < places.size(); ++i) {
            const SShownItem& item = sight[places[i].first];
            if (item.shown) {
                m_owned[i] = platform::text_argument(item.text);
                record.*places[i].second = m_owned[i].copy(false);
            }
        }
    }

private:
    std::array<_bstr_t, 9> m_owned;
};

}  // namespace

COrderReceipt::COrderReceipt(com_ptr<ITC_OrderSight> host, const CRowSight& sight,
                             const SOrderRequest& request)
    : m_host(std::move(host)), m_sight(sight), m_request(request) {}

bool COrderReceipt::Before(const CString& feed, const SKnownQuotes& quotes) {
    if (!m_host) {
        return true;
    }
    SOrderSight record = {};
    m_number = next_number();
    record.Number = m_number;
    record.Milliseconds = platform::port<platform::clock>::get().utc_milliseconds();
    record.Source = static_cast<OD_PressSource>(m_sight.source);
    record.Action = m_request.action;
    record.Category = m_request.category;
    record.Quantity = m_request.quantity;
    record.StopPrice = m_request.stop_price;
    record.LimitPrice = m_request.limit_price;
    record.TimeInForce = m_request.time_in_force;
    record.GtdDate = m_request.gtd_date;
    record.QuoteAge = quotes.age;
    record.Bid = quotes.bid;
    record.Ask = quotes.ask;
    const _bstr_t account = platform::text_argument(m_request.account);
    const _bstr_t data_feed = platform::text_argument(feed);
    record.Account = account.copy(false);
    record.DataFeed = data_feed.copy(false);
    record.Symbol = make_manual_symbol(m_request.symbol);
    const shown_texts texts(m_sight, m_request.action == eMTPA_OA_Buy ? eODUE_Buy : eODUE_Sell, record);
    const HRESULT hr = m_host->BeforeOrder(&record);
    if (FAILED(hr)) {
        BugSlayerUtil::assertion(BS_HERE, "BeforeOrder", hr);
    }
    m_agreed = hr == S_OK;
    return m_agreed;
}

void COrderReceipt::After(HRESULT result) {
    if (m_agreed) {
        m_agreed = false;
        const HRESULT hr = m_host->AfterOrder(m_number, result);
        if (FAILED(hr)) {
            BugSlayerUtil::assertion(BS_HERE, "AfterOrder", hr);
        }
    }
}

}  // namespace OV_OrderDeck
