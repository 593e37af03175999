// One trading profile of the host, with its order entry.
#pragma once

#include <map>
#include <vector>

#include "TradingCenter.h"
#include "tests/support/fake_connection_point.h"
#include "tests/support/fake_order_sight.h"

namespace test {

// Records `ManualTrading("Alpha").PlaceOrder(1, 3, 10, 0, 101.25, 1, date(45000))`: action, category,
// quantity, stop price, limit price, time in force, and the variant, "vt(n)" when it is no date.
class FakeManualTrading : public platform::com_root<ITC_ManualTrading> {
public:
    struct order {
        MTPA_OrdrActn action;
        MTPA_OrdrCtgry category;
        LONG quantity;
        double stop_price;
        double limit_price;
        LONG time_in_force;
        VARTYPE date_type;
        double date;
    };
    struct symbol {
        // The texts of the record are not to be read any more; they stand below.
        SManualSymbol record;
        CString name, root, description, exchange, data_feed;
        // Was the text there at all?
        bool has_name, has_root, has_description, has_exchange;
    };

    // The name is that of the profile.
    FakeManualTrading(fake_host host, CString name) : m_host(std::move(host)), m_name(std::move(name)) {}

    std::vector<CString> accounts;
    // Codes by category; a category that is not there has no code.
    std::map<LONG, std::vector<LONG>> times_in_force;

    std::vector<order> orders;
    std::vector<symbol> symbols;
    // What asking for it gives; null for a host without it.
    com_ptr<FakeOrderSight> sight;
    // What asking gives without it.
    HRESULT sight_result = E_NOINTERFACE;

    STDMETHODIMP SetAccount(BSTR sAccount) override;
    STDMETHODIMP GetAccounts(SAFEARRAY** ppAccounts) override;
    STDMETHODIMP PlaceOrder(MTPA_OrdrActn action, MTPA_OrdrCtgry category, LONG quantity, double stop_price,
                            double limit_price, LONG time_in_force, VARIANT* gtd_date) override;
    STDMETHODIMP SetSymbol(SManualSymbol* pSymbol, BSTR sDataFeed) override;
    STDMETHODIMP GetTimeInForces(MTPA_OrdrCtgry category, SAFEARRAY** ppCodes) override;

protected:
    HRESULT internal_query(REFIID iid, void** out) {
        if (sight && out != nullptr && IsEqualIID(iid, __uuidof(ITC_OrderSight))) {
            return sight->QueryInterface(iid, out);
        }
        if (sight_result != E_NOINTERFACE && IsEqualIID(iid, __uuidof(ITC_OrderSight))) {
            return sight_result;
        }
        return com_root::internal_query(iid, out);
    }

private:
    fake_host m_host;
    CString m_name;
};

// Records `Profile("Alpha").get_Name()`; advising is `ProfileEvents("Alpha").Advise(1)`. The name in
// the record stays the first one, also when the test renames the profile.
class FakeProfile : public platform::com_root<ITC_TradingProfile, IConnectionPointContainer> {
public:
    FakeProfile(fake_host host, const CString& first_name);

    CString name;
    CString plugin;
    CString outer_id;
    ETM_ConnectionChanged state = eTM_CC_Disconnected;
    VARIANT_BOOL have_settings = VARIANT_TRUE;
    // Null is allowed.
    com_ptr<FakeManualTrading> trading;
    com_ptr<FakeConnectionPoint> events;
    // S_OK, or what asking for IConnectionPointContainer gives.
    HRESULT container_result = S_OK;

    // To every sink, in order; give the last sink's result.
    HRESULT fire_quote(double bid, double ask);
    // Makes it the profile's state, then tells.
    HRESULT fire_state(ETM_ConnectionChanged new_state);
    HRESULT fire_trading_allowed(VARIANT_BOOL allowed);
    HRESULT fire_status_text(const CString& text);

    STDMETHODIMP get_Name(BSTR* pVal) override;
    STDMETHODIMP get_PluginName(BSTR* pVal) override;
    STDMETHODIMP get_ManualTrading(ITC_ManualTrading** ppVal) override;
    STDMETHODIMP Connect() override;
    STDMETHODIMP Disconnect() override;
    STDMETHODIMP ShowSettings(ULONGLONG hOwner) override;
    STDMETHODIMP get_HaveSettings(VARIANT_BOOL* pVal) override;
    STDMETHODIMP get_ConnectionState(ETM_ConnectionChanged* pVal) override;
    STDMETHODIMP get_OuterID(BSTR* pVal) override;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** ppEnum) override;
    STDMETHODIMP FindConnectionPoint(REFIID riid, IConnectionPoint** ppCP) override;

protected:
    HRESULT internal_query(REFIID iid, void** out);

private:
    fake_host::outcome enter(const char* operation, const std::string& arguments = {}) const {
        return m_host.enter("Profile", m_name, operation, arguments);
    }
    HRESULT give_text(const char* operation, const CString& text, BSTR* pVal) const;

    fake_host m_host;
    CString m_name;
};

}  // namespace test
