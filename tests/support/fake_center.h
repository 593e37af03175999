// The host's trading centre and its collection of profiles.
#pragma once

#include <vector>

#include "TradingCenter.h"
#include "tests/support/fake_profile.h"

namespace test {

// Records `Profiles.get_Items()`; advising is `ProfilesEvents.Advise(1)`.
class FakeProfiles : public platform::com_root<ITC_TradingProfileS, IConnectionPointContainer> {
public:
    explicit FakeProfiles(fake_host host);

    // Usually profiles; a null or a foreign object is given as it stands.
    std::vector<com_ptr<IUnknown>> items;
    std::vector<CString> plugins;
    com_ptr<FakeConnectionPoint> events;
    // S_OK, or what asking for IConnectionPointContainer gives.
    HRESULT container_result = S_OK;

    // A new profile at the end of the collection; nobody is told.
    com_ptr<FakeProfile> add(const CString& name);

    // To every sink, in order; give the last sink's result.
    HRESULT fire(ETM_ChangeTypeOfEvent kind, const std::vector<com_ptr<FakeProfile>>& profiles);
    HRESULT fire_array(ETM_ChangeTypeOfEvent kind, SAFEARRAY* profiles);

    STDMETHODIMP get_Items(SAFEARRAY** ppItems) override;
    STDMETHODIMP get_AvailablePlugins(SAFEARRAY** ppNames) override;
    STDMETHODIMP Add(BSTR sPluginName, BSTR sProfileName) override;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** ppEnum) override;
    STDMETHODIMP FindConnectionPoint(REFIID riid, IConnectionPoint** ppCP) override;

protected:
    HRESULT internal_query(REFIID iid, void** out);

private:
    fake_host m_host;
};

// Records `Center.Prepare(-1)`.
class FakeTradingCenter : public platform::com_root<ITC_TradingCenter> {
public:
    explicit FakeTradingCenter(fake_host host)
        : profiles(platform::make_com<FakeProfiles>(host)), m_host(std::move(host)) {}

    // Null is allowed.
    com_ptr<FakeProfiles> profiles;
    LONG master_counter = 1;

    STDMETHODIMP Prepare(LONG lReserved) override;
    STDMETHODIMP get_TradingProfiles(ITC_TradingProfileS** ppVal) override;
    STDMETHODIMP get_MasterCounter(LONG* pVal) override;

private:
    fake_host m_host;
};

}  // namespace test
