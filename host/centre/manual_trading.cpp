#include "centre/manual_trading.h"

#include <utility>

#include "com/array.h"
#include "com/text.h"
#include "market/validation.h"

namespace host {
namespace {

std::optional<std::string> shown_text(BSTR text) {
    return text != nullptr ? std::optional<std::string>(bstr_text(text)) : std::nullopt;
}

}  // namespace

HRESULT manual_trading::SetAccount(BSTR sAccount) noexcept {
    return guarded([&] {
        m_session->account = bstr_text(sAccount);
        return S_OK;
    });
}

HRESULT manual_trading::GetAccounts(SAFEARRAY** ppAccounts) noexcept {
    return guarded([&] {
        if (ppAccounts == nullptr) {
            return E_POINTER;
        }
        const std::vector<std::string> none;
        *ppAccounts = make_array(m_session->connected ? m_session->accounts : none).release();
        return S_OK;
    });
}

HRESULT manual_trading::PlaceOrder(MTPA_OrdrActn action, MTPA_OrdrCtgry category, LONG quantity,
                                   double stop_price, double limit_price, LONG time_in_force,
                                   VARIANT* gtd_date) noexcept {
    return guarded([&] {
        if (gtd_date == nullptr || gtd_date->vt != VT_DATE) {
            return E_INVALIDARG;
        }
        order_request request;
        request.profile = m_session->name;
        request.account = m_session->account;
        request.instrument_id = m_session->instrument_id;
        request.action = action;
        request.category = category;
        request.quantity = quantity;
        request.stop_price = stop_price;
        request.limit_price = limit_price;
        request.time_in_force = time_in_force;
        request.gtd_date = gtd_date->date;
        request.seen = std::exchange(m_seen, std::nullopt);
        return place(request);
    });
}

HRESULT manual_trading::place(const order_request& request) {
    if (!m_session->connected) {
        m_desk.refuse(request, m_session->name + " is not connected");
        return E_FAIL;
    }
    m_desk.place(request, m_session->accounts, m_session->reject_percent);
    return S_OK;
}

HRESULT manual_trading::BeforeOrder(const SOrderSight* pSight) noexcept {
    return guarded([&] {
        if (pSight == nullptr) {
            return E_POINTER;
        }
        order_sight seen;
        seen.number = pSight->Number;
        seen.milliseconds = pSight->Milliseconds;
        seen.source = static_cast<int>(pSight->Source);
        seen.symbol = shown_text(pSight->SymbolText);
        seen.order_type = shown_text(pSight->OrderTypeText);
        seen.quantity = shown_text(pSight->QuantityText);
        seen.stop_price = shown_text(pSight->StopPriceText);
        seen.limit_price = shown_text(pSight->LimitPriceText);
        seen.account = shown_text(pSight->AccountText);
        seen.time_in_force = shown_text(pSight->TimeInForceText);
        seen.date = shown_text(pSight->DateText);
        seen.button = shown_text(pSight->ButtonText);
        seen.bid = pSight->Bid;
        seen.ask = pSight->Ask;
        seen.quote_age = pSight->QuoteAge;
        m_seen = std::move(seen);
        return S_OK;
    });
}

HRESULT manual_trading::AfterOrder(LONGLONG number, HRESULT result) noexcept {
    return guarded([&] {
        m_seen.reset();
        m_desk.note_result(number, result);
        return S_OK;
    });
}

HRESULT manual_trading::SetSymbol(SManualSymbol* pSymbol, BSTR sDataFeed) noexcept {
    return guarded([&] {
        if (pSymbol == nullptr) {
            return E_POINTER;
        }
        const std::string name = bstr_text(pSymbol->Name);
        const std::string feed = bstr_text(sDataFeed);
        const std::string exchange = bstr_text(pSymbol->Exchange);
        const instrument* found = m_desk.find({name, feed, exchange, pSymbol->Category});
        m_session->instrument_id = found == nullptr ? 0 : found->id;
        m_desk.on_event(m_session->name + ": " +
                        (name.empty() ? std::string("no symbol") : "symbol " + name + ", feed " + feed));
        m_session->on_symbol();
        return found == nullptr && !name.empty() ? E_INVALIDARG : S_OK;
    });
}

HRESULT manual_trading::GetTimeInForces(MTPA_OrdrCtgry category, SAFEARRAY** ppCodes) noexcept {
    return guarded([&] {
        if (ppCodes == nullptr) {
            return E_POINTER;
        }
        *ppCodes = make_array(offered_times_in_force(category)).release();
        return S_OK;
    });
}

}  // namespace host
