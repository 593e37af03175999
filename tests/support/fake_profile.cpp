#include "tests/support/fake_profile.h"

#include "tests/support/safe_arrays.h"

namespace test {

namespace {

std::string date_text(const VARIANT* date) {
    if (date == nullptr) {
        return "null";
    }
    return V_VT(date) == VT_DATE ? "date(" + number_text(V_DATE(date)) + ")"
                                 : "vt(" + std::to_string(V_VT(date)) + ")";
}

}  // namespace

HRESULT FakeManualTrading::SetAccount(BSTR sAccount) {
    return m_host.enter("ManualTrading", m_name, "SetAccount", quoted(sAccount)).hr;
}

HRESULT FakeManualTrading::GetAccounts(SAFEARRAY** ppAccounts) {
    const auto told = m_host.enter("ManualTrading", m_name, "GetAccounts");
    if (told.write) {
        *ppAccounts = bstr_array(accounts);
    }
    return told.hr;
}

HRESULT FakeManualTrading::PlaceOrder(MTPA_OrdrActn action, MTPA_OrdrCtgry category, LONG quantity,
                                      double stop_price, double limit_price, LONG time_in_force,
                                      VARIANT* gtd_date) {
    const std::string arguments =
        std::to_string(static_cast<LONG>(action)) + ", " + std::to_string(static_cast<LONG>(category)) +
        ", " + std::to_string(quantity) + ", " + number_text(stop_price) + ", " + number_text(limit_price) +
        ", " + std::to_string(time_in_force) + ", " + date_text(gtd_date);
    const auto told = m_host.enter("ManualTrading", m_name, "PlaceOrder", arguments);
    const VARTYPE vt = gtd_date != nullptr ? V_VT(gtd_date) : static_cast<VARTYPE>(VT_EMPTY);
    orders.push_back({action, category, quantity, stop_price, limit_price, time_in_force, vt,
                      vt == VT_DATE ? V_DATE(gtd_date) : 0.0});
    return told.hr;
}

HRESULT FakeManualTrading::SetSymbol(SManualSymbol* pSymbol, BSTR sDataFeed) {
    const std::string name = pSymbol != nullptr ? quoted(pSymbol->Name) : "null";
    const auto told = m_host.enter("ManualTrading", m_name, "SetSymbol", name + ", " + quoted(sDataFeed));
    if (pSymbol != nullptr) {
        const SManualSymbol& s = *pSymbol;
        symbols.push_back({s, platform::text_of(s.Name), platform::text_of(s.Root),
                           platform::text_of(s.Description), platform::text_of(s.Exchange),
                           platform::text_of(sDataFeed), s.Name != nullptr, s.Root != nullptr,
                           s.Description != nullptr, s.Exchange != nullptr});
    }
    return told.hr;
}

HRESULT FakeManualTrading::GetTimeInForces(MTPA_OrdrCtgry category, SAFEARRAY** ppCodes) {
    const auto told =
        m_host.enter("ManualTrading", m_name, "GetTimeInForces", std::to_string(static_cast<LONG>(category)));
    if (told.write) {
        *ppCodes = long_array(times_in_force[static_cast<LONG>(category)]);
    }
    return told.hr;
}

FakeProfile::FakeProfile(fake_host host, const CString& first_name)
    : name(first_name),
      plugin(L"Plugin"),
      outer_id(first_name + L"-id"),
      trading(platform::make_com<FakeManualTrading>(host, first_name)),
      events(platform::make_com<FakeConnectionPoint>(host, "ProfileEvents", first_name,
                                                     __uuidof(ITC_TradingProfileDataChange))),
      m_host(host),
      m_name(first_name) {}

HRESULT FakeProfile::fire_quote(double bid, double ask) {
    HRESULT hr = S_OK;
    for (const auto& sink : events->sinks<ITC_TradingProfileDataChange>()) {
        hr = sink->OnQuote(bid, ask);
    }
    return hr;
}

HRESULT FakeProfile::fire_state(ETM_ConnectionChanged new_state) {
    state = new_state;
    HRESULT hr = S_OK;
    for (const auto& sink : events->sinks<ITC_TradingProfileDataChange>()) {
        hr = sink->OnConnectionState(new_state);
    }
    return hr;
}

HRESULT FakeProfile::fire_trading_allowed(VARIANT_BOOL allowed) {
    HRESULT hr = S_OK;
    for (const auto& sink : events->sinks<ITC_TradingProfileDataChange>()) {
        hr = sink->OnTradingAllowed(allowed);
    }
    return hr;
}

HRESULT FakeProfile::fire_status_text(const CString& text) {
    HRESULT hr = S_OK;
    const _bstr_t argument(platform::new_bstr(text), false);
    for (const auto& sink : events->sinks<ITC_TradingProfileDataChange>()) {
        hr = sink->OnStatusText(argument);
    }
    return hr;
}

HRESULT FakeProfile::give_text(const char* operation, const CString& text, BSTR* pVal) const {
    const auto told = enter(operation);
    if (told.write) {
        *pVal = platform::new_bstr(text);
    }
    return told.hr;
}

HRESULT FakeProfile::get_Name(BSTR* pVal) {
    return give_text("get_Name", name, pVal);
}

HRESULT FakeProfile::get_PluginName(BSTR* pVal) {
    return give_text("get_PluginName", plugin, pVal);
}

HRESULT FakeProfile::get_OuterID(BSTR* pVal) {
    return give_text("get_OuterID", outer_id, pVal);
}

HRESULT FakeProfile::get_ManualTrading(ITC_ManualTrading** ppVal) {
    const auto told = enter("get_ManualTrading");
    if (told.write) {
        *ppVal = com_ptr<ITC_ManualTrading>(trading.get()).detach();
    }
    return told.hr;
}

HRESULT FakeProfile::Connect() {
    return enter("Connect").hr;
}

HRESULT FakeProfile::Disconnect() {
    return enter("Disconnect").hr;
}

HRESULT FakeProfile::ShowSettings(ULONGLONG hOwner) {
    return enter("ShowSettings", std::to_string(hOwner)).hr;
}

HRESULT FakeProfile::get_HaveSettings(VARIANT_BOOL* pVal) {
    const auto told = enter("get_HaveSettings");
    if (told.write) {
        *pVal = have_settings;
    }
    return told.hr;
}

HRESULT FakeProfile::get_ConnectionState(ETM_ConnectionChanged* pVal) {
    const auto told = enter("get_ConnectionState");
    if (told.write) {
        *pVal = state;
    }
    return told.hr;
}

HRESULT FakeProfile::EnumConnectionPoints(IEnumConnectionPoints** ppEnum) {
    *ppEnum = nullptr;
    return E_NOTIMPL;
}

HRESULT FakeProfile::FindConnectionPoint(REFIID riid, IConnectionPoint** ppCP) {
    const auto told = enter("FindConnectionPoint");
    if (!told.write) {
        return told.hr;
    }
    if (!IsEqualIID(riid, __uuidof(ITC_TradingProfileDataChange))) {
        *ppCP = nullptr;
        return CONNECT_E_NOCONNECTION;
    }
    *ppCP = com_ptr<IConnectionPoint>(events.get()).detach();
    return told.hr;
}

HRESULT FakeProfile::internal_query(REFIID iid, void** out) {
    if (IsEqualIID(iid, __uuidof(IConnectionPointContainer)) && container_result != S_OK) {
        *out = nullptr;
        return container_result;
    }
    return com_root::internal_query(iid, out);
}

}  // namespace test
