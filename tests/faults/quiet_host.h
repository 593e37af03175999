// A host whose own work never fails for want of memory: one profile, a trading centre, a bar that keeps tabs.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "TradingCenter.h"
#include "charting/orderdeck/interface/ITabCtrl.h"
#include "platform/com_ptr.h"
#include "tests/support/allocation_faults.h"

namespace test {

// Lives as long as whoever made it; references are not counted.
template <class First, class... Rest>
class uncounted : public First, public Rest... {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool is_first = IsEqualIID(iid, __uuidof(IUnknown)) || IsEqualIID(iid, __uuidof(First));
        *out = is_first ? static_cast<First*>(this) : nullptr;
        ((IsEqualIID(iid, __uuidof(Rest)) ? void(*out = static_cast<Rest*>(this)) : void()), ...);
        return *out == nullptr ? E_NOINTERFACE : S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
};

// Keeps one listener.
template <class Events, class... Interfaces>
class publishing : public uncounted<Interfaces..., IConnectionPointContainer, IConnectionPoint> {
public:
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override {
        *point = IsEqualIID(iid, __uuidof(Events)) ? this : nullptr;
        return *point == nullptr ? CONNECT_E_NOCONNECTION : S_OK;
    }
    STDMETHODIMP GetConnectionInterface(IID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override {
        *cookie = 1;
        return sink->QueryInterface(__uuidof(Events), static_cast<void**>(platform::receive(listener)));
    }
    STDMETHODIMP Unadvise(DWORD) override {
        listener.reset();
        return S_OK;
    }
    STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

    com_ptr<Events> listener;
};

struct sent_order {
    LONG action, category, quantity;
    double stop, limit;
    LONG time_in_force;
    bool operator==(const sent_order&) const = default;
};

class quiet_profile : public publishing<ITC_TradingProfileDataChange, ITC_TradingProfile, ITC_ManualTrading> {
public:
    STDMETHODIMP get_Name(BSTR* name) override;
    STDMETHODIMP get_PluginName(BSTR* name) override;
    STDMETHODIMP get_ManualTrading(ITC_ManualTrading** orders_of) override;
    STDMETHODIMP Connect() override { return change(eTM_CC_Connected); }
    STDMETHODIMP Disconnect() override { return change(eTM_CC_Disconnected); }
    STDMETHODIMP ShowSettings(ULONGLONG) override { return S_OK; }
    STDMETHODIMP get_HaveSettings(VARIANT_BOOL* have) override;
    STDMETHODIMP get_ConnectionState(ETM_ConnectionChanged* now) override;
    STDMETHODIMP get_OuterID(BSTR* id) override;
    STDMETHODIMP SetAccount(BSTR) override { return S_OK; }
    STDMETHODIMP GetAccounts(SAFEARRAY** accounts) override;
    STDMETHODIMP PlaceOrder(MTPA_OrdrActn action, MTPA_OrdrCtgry category, LONG quantity, double stop,
                            double limit, LONG time_in_force, VARIANT* date) override;
    STDMETHODIMP SetSymbol(SManualSymbol*, BSTR) override { return S_OK; }
    STDMETHODIMP GetTimeInForces(MTPA_OrdrCtgry, SAFEARRAY** codes) override;

    HRESULT change(ETM_ConnectionChanged to);

    ETM_ConnectionChanged state = eTM_CC_Disconnected;
    std::vector<sent_order> orders;
};

class quiet_centre
    : public publishing<ITC_ItemsChanged, ITC_TradingCenter, ITC_TradingProfileS, IClassFactory> {
public:
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** out) override {
        return QueryInterface(iid, out);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
    STDMETHODIMP Prepare(LONG) override { return S_OK; }
    STDMETHODIMP get_TradingProfiles(ITC_TradingProfileS** all) override;
    STDMETHODIMP get_MasterCounter(LONG* masters) override;
    STDMETHODIMP get_Items(SAFEARRAY** items) override;
    STDMETHODIMP get_AvailablePlugins(SAFEARRAY** names) override;
    STDMETHODIMP Add(BSTR, BSTR) override { return E_NOTIMPL; }

    // The one profile in an array, as events carry it. The caller's.
    SAFEARRAY* array_of_profile();

    quiet_profile profile;
};

// The bars of this program have no windows.
class quiet_bar : public OV_OrderDeck::ITabCtrl {
public:
    LONG AddTab(const boost::shared_ptr<OV_OrderDeck::ITab>& tab, bool) override;
    bool RemoveTab(LONG id) override { return m_tabs.erase(id) == 1; }
    bool RemoveAllTabs() override;
    const OV_OrderDeck::tab_infos& get_TabInfos() override { return m_tabs; }
    boost::shared_ptr<OV_OrderDeck::ITab> get_Tab(LONG id) override;
    boost::shared_ptr<OV_OrderDeck::ITab> get_CurTab() override;
    LONG get_TabCount() override { return static_cast<LONG>(m_tabs.size()); }
    HWND get_Hwnd() override { return nullptr; }
    void SelectTab(LONG) override {}
    void Show(bool) override {}
    void Update(LONG, unsigned) override {}
    void SetFocus(LONG, OV_OrderDeck::OD_UpdateEntity) override {}
    void Teardown() override { RemoveAllTabs(); }

private:
    OV_OrderDeck::tab_infos m_tabs;
    LONG m_last_id = 0;
};

// The bar made last; null when it is gone.
boost::shared_ptr<quiet_bar> newest_bar();

}  // namespace test
