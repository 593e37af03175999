#include "tests/support/fake_center.h"

#include "tests/support/safe_arrays.h"

namespace test {

FakeProfiles::FakeProfiles(fake_host host)
    : events(platform::make_com<FakeConnectionPoint>(host, "ProfilesEvents", CString(),
                                                     __uuidof(ITC_ItemsChanged))),
      m_host(std::move(host)) {}

com_ptr<FakeProfile> FakeProfiles::add(const CString& name) {
    const auto profile = platform::make_com<FakeProfile>(m_host, name);
    items.push_back(profile->GetUnknown());
    return profile;
}

HRESULT FakeProfiles::fire(ETM_ChangeTypeOfEvent kind, const std::vector<com_ptr<FakeProfile>>& profiles) {
    std::vector<com_ptr<IUnknown>> objects;
    for (const auto& profile : profiles) {
        objects.push_back(profile ? profile->GetUnknown() : nullptr);
    }
    SAFEARRAY* const array = object_array(objects);
    const HRESULT hr = fire_array(kind, array);
    SafeArrayDestroy(array);
    return hr;
}

HRESULT FakeProfiles::fire_array(ETM_ChangeTypeOfEvent kind, SAFEARRAY* profiles) {
    HRESULT hr = S_OK;
    for (const auto& sink : events->sinks<ITC_ItemsChanged>()) {
        hr = sink->OnItemChanged(kind, profiles);
    }
    return hr;
}

HRESULT FakeProfiles::get_Items(SAFEARRAY** ppItems) {
    const auto told = m_host.enter("Profiles", {}, "get_Items");
    if (told.write) {
        // A copy: letting go of an object may come to a host that changes the list.
        const std::vector<com_ptr<IUnknown>> now = items;
        *ppItems = object_array(now);
    }
    return told.hr;
}

HRESULT FakeProfiles::get_AvailablePlugins(SAFEARRAY** ppNames) {
    const auto told = m_host.enter("Profiles", {}, "get_AvailablePlugins");
    if (told.write) {
        *ppNames = bstr_array(plugins);
    }
    return told.hr;
}

HRESULT FakeProfiles::Add(BSTR sPluginName, BSTR sProfileName) {
    const std::string arguments = quoted(sPluginName) + ", " + quoted(sProfileName);
    return m_host.enter("Profiles", {}, "Add", arguments).hr;
}

HRESULT FakeProfiles::EnumConnectionPoints(IEnumConnectionPoints** ppEnum) {
    *ppEnum = nullptr;
    return E_NOTIMPL;
}

HRESULT FakeProfiles::FindConnectionPoint(REFIID riid, IConnectionPoint** ppCP) {
    const auto told = m_host.enter("Profiles", {}, "FindConnectionPoint");
    if (!told.write) {
        return told.hr;
    }
    if (!IsEqualIID(riid, __uuidof(ITC_ItemsChanged))) {
        *ppCP = nullptr;
        return CONNECT_E_NOCONNECTION;
    }
    *ppCP = com_ptr<IConnectionPoint>(events.get()).detach();
    return told.hr;
}

HRESULT FakeProfiles::internal_query(REFIID iid, void** out) {
    if (IsEqualIID(iid, __uuidof(IConnectionPointContainer)) && container_result != S_OK) {
        *out = nullptr;
        return container_result;
    }
    return com_root::internal_query(iid, out);
}

HRESULT FakeTradingCenter::Prepare(LONG lReserved) {
    return m_host.enter("Center", {}, "Prepare", std::to_string(lReserved)).hr;
}

HRESULT FakeTradingCenter::get_TradingProfiles(ITC_TradingProfileS** ppVal) {
    const auto told = m_host.enter("Center", {}, "get_TradingProfiles");
    if (told.write) {
        *ppVal = com_ptr<ITC_TradingProfileS>(profiles.get()).detach();
    }
    return told.hr;
}

HRESULT FakeTradingCenter::get_MasterCounter(LONG* pVal) {
    const auto told = m_host.enter("Center", {}, "get_MasterCounter");
    if (told.write) {
        *pVal = master_counter;
    }
    return told.hr;
}

}  // namespace test
