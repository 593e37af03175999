#include "tests/monkey/witness.h"

#include <algorithm>

namespace monkey {

namespace {

struct seen_text {
    bit field;
    BSTR text;
};

std::vector<seen_text> texts_of(const SOrderSight& record) {
    return {{symbol_bit, record.SymbolText},
            {type_bit, record.OrderTypeText},
            {quantity_bit, record.QuantityText},
            {first_price_bit, record.StopPriceText},
            {second_price_bit, record.LimitPriceText},
            {account_bit, record.AccountText},
            {time_bit, record.TimeInForceText},
            {record.Action == eMTPA_OA_Buy ? buy_bit : sell_bit, record.ButtonText}};
}

}  // namespace

tally& all_told() {
    static tally told;
    return told;
}

witness::watched::watched(witness& at_the_door, seen_row seen) : m_witness(at_the_door) {
    ++all_told().presses;
    m_witness.m_presses.push_back({std::move(seen)});
}

witness::watched::~watched() {
    if (!m_witness.m_presses.back().sent) {
        ++all_told().stopped;
    }
    m_witness.m_presses.pop_back();
}

void witness::says(bool holds, const std::string& line) {
    if (!holds) {
        ++all_told().differences;
        m_lines.push_back("forbidden: " + line);
    }
}

void witness::order(const sent_order& sent) {
    ++all_told().sent;
    if (m_presses.empty()) {
        says(false, "an order that nobody pressed for");
        return;
    }
    press& last = m_presses.back();
    says(!last.sent, "one press sent twice");
    last.sent = true;
    for (const std::string& line : broken_items(last.seen, sent)) {
        says(false, line);
    }
    says(wants_receipts(sent.profile) == (last.receipt != 0), "an order without its receipt");
}

void witness::receipt(int profile, const SOrderSight& record) {
    static LONGLONG last_number = 0;
    says(record.Number > last_number, "a receipt's number came twice");
    last_number = record.Number;
    if (m_presses.empty()) {
        says(false, "a receipt that nobody pressed for");
        return;
    }
    says(m_presses.back().receipt == 0, "one press asked twice");
    m_presses.back().receipt = record.Number;
    const seen_row& seen = m_presses.back().seen;
    for (const seen_text& each : texts_of(record)) {
        const seen_item& item = seen.items.at(each.field);
        says(item.shown == (each.text != nullptr) &&
                 (!item.shown || item.text == platform::text_of(each.text)),
             std::string("the receipt's ") + name_of(each.field) + " was not what was seen");
    }
    const SManualSymbol& symbol = record.Symbol;
    sent_order told = {profile,
                       record.Action,
                       record.Category,
                       record.Quantity,
                       record.StopPrice,
                       record.LimitPrice,
                       record.TimeInForce,
                       record.GtdDate,
                       platform::text_of(record.Account),
                       platform::text_of(symbol.Name),
                       true};
    for (const std::string& line : broken_items(seen, told)) {
        says(false, "in the receipt, " + line);
    }
}

void witness::result(LONGLONG number, HRESULT) {
    const auto asked = std::find_if(m_presses.begin(), m_presses.end(),
                                    [&](const press& each) { return each.receipt == number; });
    says(asked != m_presses.end(), "a result without its receipt");
    if (asked != m_presses.end()) {
        asked->receipt = 0;
    }
}

std::vector<std::string> witness::take() {
    return std::exchange(m_lines, {});
}

world_trading::world_trading(test::fake_host host, const CString& name, int profile, witness& at_the_door)
    : FakeManualTrading(host, name),
      m_host(std::move(host)),
      m_name(name),
      m_profile(profile),
      m_witness(at_the_door) {}

HRESULT world_trading::PlaceOrder(MTPA_OrdrActn action, MTPA_OrdrCtgry category, LONG quantity,
                                  double stop_price, double limit_price, LONG time_in_force,
                                  VARIANT* gtd_date) {
    // Before the host does anything in its call.
    m_witness.order({m_profile, action, category, quantity, stop_price, limit_price, time_in_force,
                     V_DATE(gtd_date), m_account, m_symbol, m_symbol_taken});
    return FakeManualTrading::PlaceOrder(action, category, quantity, stop_price, limit_price, time_in_force,
                                         gtd_date);
}

HRESULT world_trading::SetAccount(BSTR sAccount) {
    m_account = platform::text_of(sAccount);
    return FakeManualTrading::SetAccount(sAccount);
}

HRESULT world_trading::SetSymbol(SManualSymbol* pSymbol, BSTR sDataFeed) {
    m_symbol = platform::text_of(pSymbol->Name);
    m_symbol_taken = false;
    const HRESULT hr = FakeManualTrading::SetSymbol(pSymbol, sDataFeed);
    m_symbol_taken = hr == S_OK;
    return hr;
}

HRESULT world_trading::BeforeOrder(const SOrderSight* pSight) {
    const auto told = m_host.enter("ManualTrading", m_name, "BeforeOrder");
    if (told.hr != S_OK || says_no) {
        return told.hr != S_OK ? told.hr : S_FALSE;
    }
    m_witness.receipt(m_profile, *pSight);
    return S_OK;
}

HRESULT world_trading::AfterOrder(LONGLONG number, HRESULT result) {
    m_witness.result(number, result);
    return m_host.enter("ManualTrading", m_name, "AfterOrder", std::to_string(result)).hr;
}

HRESULT world_trading::internal_query(REFIID iid, void** out) {
    if (wants_receipts(m_profile) && IsEqualIID(iid, __uuidof(ITC_OrderSight))) {
        *out = static_cast<ITC_OrderSight*>(this);
        GetUnknown()->AddRef();
        return S_OK;
    }
    return FakeManualTrading::internal_query(iid, out);
}

}  // namespace monkey
