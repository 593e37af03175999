// The fields of one tab's order row, each by its own type, and a host whose lists may be odd.
#pragma once

#include <functional>

#include "charting/orderdeck/src/tab/Controls/AccountCombo.h"
#include "charting/orderdeck/src/tab/Controls/AskBidButton.h"
#include "charting/orderdeck/src/tab/Controls/BuySellButton.h"
#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"
#include "charting/orderdeck/src/tab/Controls/PriceEdit.h"
#include "charting/orderdeck/src/tab/Controls/QuantityEdit.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceCombo.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceEdit.h"
#include "tests/support/number_locale_scope.h"
#include "tests/tab/tab_fixture.h"

namespace test {

// Order entry of a profile that gives the arrays which a test makes for it.
class OddTrading : public FakeManualTrading {
public:
    using FakeManualTrading::FakeManualTrading;

    // Each call gives a new array, or null; without one the lists of the base are given.
    std::function<SAFEARRAY*()> account_array;
    std::function<SAFEARRAY*()> code_array;

    STDMETHODIMP GetAccounts(SAFEARRAY** ppAccounts) override {
        return replace(FakeManualTrading::GetAccounts(ppAccounts), account_array, ppAccounts);
    }
    STDMETHODIMP GetTimeInForces(MTPA_OrdrCtgry category, SAFEARRAY** ppCodes) override {
        return replace(FakeManualTrading::GetTimeInForces(category, ppCodes), code_array, ppCodes);
    }

private:
    static HRESULT replace(HRESULT hr, const std::function<SAFEARRAY*()>& make, SAFEARRAY** place) {
        if (make) {
            SafeArrayDestroy(*place);
            *place = make();
        }
        return hr;
    }
};

class fields_fixture : public tab_fixture {
protected:
    fields_fixture() : odd(platform::make_com<OddTrading>(host, L"Alpha")) {
        odd->accounts = profile->trading->accounts;
        odd->times_in_force = profile->trading->times_in_force;
        profile->trading = odd;
    }

    OV_OrderDeck::COrderTypeCombo& order_type() { return *tab->get_Controls().m_pOrderType; }
    OV_OrderDeck::CQuantityEdit& quantity() { return *tab->get_Controls().m_pQuantity; }
    OV_OrderDeck::CFirstPriceEdit& first() { return *tab->get_Controls().m_pFirstPrice; }
    OV_OrderDeck::CSecondPriceEdit& second() { return *tab->get_Controls().m_pSecondPrice; }
    OV_OrderDeck::CAccountCombo& account() { return *tab->get_Controls().m_pAccount; }
    OV_OrderDeck::CTimeInForceCombo& time_in_force() { return *tab->get_Controls().m_pTimeInForce; }
    OV_OrderDeck::CTimeInForceEdit& date() { return *tab->get_Controls().m_pGtdDate; }
    OV_OrderDeck::CAskBidButton& ask_bid() { return *tab->get_Controls().m_pAskBid; }
    OV_OrderDeck::CBuyButton& buy() { return *tab->get_Controls().m_pBuy; }
    OV_OrderDeck::CSellButton& sell() { return *tab->get_Controls().m_pSell; }

    // A new instrument of this price scale; records nothing.
    void put_scale(LONG code, double min_movement) {
        symbol record = instrument(L"S" + std::to_wstring(++m_symbols));
        record.price_scale_code = code;
        record.min_movement = min_movement;
        put_symbol(record);
        reset_record();
    }
    static void spin(OV_OrderDeck::IUnifyControl& price, LONG steps) {
        _variant_t value;
        V_VT(&value) = VT_INT;
        V_INT(&value) = steps;
        price.put_Value(value);
    }
    static CString value_text(OV_OrderDeck::IUnifyControl& control) {
        const _variant_t value = control.get_Value();
        EXPECT_EQ(VT_BSTR, V_VT(&value));
        return platform::text_of(V_BSTR(&value));
    }
    // Keys and texts of a list as it shows.
    static std::vector<std::pair<LONG, CString>> items(OV_OrderDeck::IUnifyControl& list) {
        std::vector<std::pair<LONG, CString>> result;
        for (LONG place = 0; place < list.get_Count(); ++place) {
            CString text = L"unwritten";
            const LONG key = list.get_Item(place, &text);
            result.emplace_back(key, text);
        }
        return result;
    }

    com_ptr<OddTrading> odd;

private:
    int m_symbols = 0;
};

}  // namespace test
