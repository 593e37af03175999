// A host that asks for what was seen with each order.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "TradingCenter.h"
#include "platform/com_object.h"
#include "tests/support/host_record.h"

namespace test {

// Records `OrderSight("Alpha").BeforeOrder(mouse, 1, 3, 10, 0, 101.25, 1)`: source, action, category,
// quantity, stop and limit price, time in force; and `OrderSight("Alpha").AfterOrder(0)` with the result.
class FakeOrderSight : public platform::com_root<ITC_OrderSight> {
public:
    struct seen {
        // The texts are not to be read any more; they stand below.
        SOrderSight record;
        std::optional<CString> symbol, order_type, quantity, stop_price, limit_price, account_shown,
            time_in_force, date, button;
        CString account, feed, symbol_name;
    };

    FakeOrderSight(fake_host host, CString name) : m_host(std::move(host)), m_name(std::move(name)) {}

    std::vector<seen> before;
    // Numbers and results of AfterOrder.
    std::vector<std::pair<LONGLONG, HRESULT>> after;

    STDMETHODIMP BeforeOrder(const SOrderSight* pSight) override {
        before.push_back(copy_of(*pSight));
        return m_host
            .enter("OrderSight", m_name, "BeforeOrder",
                   name_of(pSight->Source) + ", " + std::to_string(static_cast<LONG>(pSight->Action)) + ", " +
                       std::to_string(static_cast<LONG>(pSight->Category)) + ", " +
                       std::to_string(pSight->Quantity) + ", " + number_text(pSight->StopPrice) + ", " +
                       number_text(pSight->LimitPrice) + ", " + std::to_string(pSight->TimeInForce))
            .hr;
    }
    STDMETHODIMP AfterOrder(LONGLONG number, HRESULT result) override {
        after.emplace_back(number, result);
        return m_host.enter("OrderSight", m_name, "AfterOrder", std::to_string(result)).hr;
    }

private:
    static std::string name_of(OD_PressSource source) {
        switch (source) {
            case eODPS_Mouse:
                return "mouse";
            case eODPS_Key:
                return "key";
            case eODPS_Program:
                return "program";
        }
        return "?";
    }
    static std::optional<CString> optional_text(BSTR text) {
        return text != nullptr ? std::optional<CString>(platform::text_of(text)) : std::nullopt;
    }
    static seen copy_of(const SOrderSight& sight) {
        return {sight,
                optional_text(sight.SymbolText),
                optional_text(sight.OrderTypeText),
                optional_text(sight.QuantityText),
                optional_text(sight.StopPriceText),
                optional_text(sight.LimitPriceText),
                optional_text(sight.AccountText),
                optional_text(sight.TimeInForceText),
                optional_text(sight.DateText),
                optional_text(sight.ButtonText),
                platform::text_of(sight.Account),
                platform::text_of(sight.DataFeed),
                platform::text_of(sight.Symbol.Name)};
    }

    fake_host m_host;
    CString m_name;
};

}  // namespace test
