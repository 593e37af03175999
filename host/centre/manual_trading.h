// Order entry of a paper profile.
#pragma once

#include <TradingCenter.h>

#include <memory>

#include "centre/session.h"
#include "com/object.h"
#include "market/desk.h"

namespace host {

class manual_trading : public object<ITC_ManualTrading, ITC_OrderSight> {
public:
    manual_trading(desk& paper, std::shared_ptr<session> shared)
        : m_desk(paper), m_session(std::move(shared)) {}

    // Any account is taken; an order for an unknown one is rejected by the exchange.
    STDMETHODIMP SetAccount(BSTR sAccount) noexcept override;
    // A profile knows its accounts only while it is connected.
    STDMETHODIMP GetAccounts(SAFEARRAY** ppAccounts) noexcept override;
    // S_OK also for an order that the exchange then rejects: the blotter shows it. E_FAIL when the
    // profile isn't connected.
    STDMETHODIMP PlaceOrder(MTPA_OrdrActn action, MTPA_OrdrCtgry category, LONG quantity, double stop_price,
                            double limit_price, LONG time_in_force, VARIANT* gtd_date) noexcept override;
    // E_INVALIDARG for a symbol that isn't in the list; the profile then has none.
    STDMETHODIMP SetSymbol(SManualSymbol* pSymbol, BSTR sDataFeed) noexcept override;
    STDMETHODIMP GetTimeInForces(MTPA_OrdrCtgry category, SAFEARRAY** ppCodes) noexcept override;

    // What is seen goes with the order that follows at once.
    STDMETHODIMP BeforeOrder(const SOrderSight* pSight) noexcept override;
    STDMETHODIMP AfterOrder(LONGLONG number, HRESULT result) noexcept override;

private:
    HRESULT place(const order_request& request);

    desk& m_desk;
    std::shared_ptr<session> m_session;
    std::optional<order_sight> m_seen;
};

}  // namespace host
