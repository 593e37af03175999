#include "tests/faults/quiet_host.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include "charting/orderdeck/interface/make_bar_window.h"

namespace test {

namespace {

boost::weak_ptr<quiet_bar> the_bar;

HRESULT give(const OLECHAR* text, BSTR* out) {
    *out = SysAllocString(text);
    return S_OK;
}

SAFEARRAY* array_of(VARTYPE type, void* element) {
    const sheltered host;
    LONG index = 0;
    SAFEARRAY* const array = SafeArrayCreateVector(type, 0, 1);
    SafeArrayPutElement(array, &index, element);
    return array;
}

}  // namespace

HRESULT quiet_profile::get_Name(BSTR* name) {
    return give(L"Alpha", name);
}

HRESULT quiet_profile::get_PluginName(BSTR* name) {
    return give(L"Plugin", name);
}

HRESULT quiet_profile::get_OuterID(BSTR* id) {
    return give(L"Alpha-id", id);
}

HRESULT quiet_profile::get_ManualTrading(ITC_ManualTrading** orders_of) {
    *orders_of = this;
    return S_OK;
}

HRESULT quiet_profile::get_HaveSettings(VARIANT_BOOL* have) {
    *have = VARIANT_TRUE;
    return S_OK;
}

HRESULT quiet_profile::get_ConnectionState(ETM_ConnectionChanged* now) {
    *now = state;
    return S_OK;
}

HRESULT quiet_profile::GetAccounts(SAFEARRAY** accounts) {
    const BSTR name = SysAllocString(L"A1");
    *accounts = array_of(VT_BSTR, name);
    SysFreeString(name);
    return S_OK;
}

HRESULT quiet_profile::GetTimeInForces(MTPA_OrdrCtgry, SAFEARRAY** codes) {
    LONG day = eMTPA_TIF_Day;
    *codes = array_of(VT_I4, &day);
    return S_OK;
}

HRESULT quiet_profile::PlaceOrder(MTPA_OrdrActn action, MTPA_OrdrCtgry category, LONG quantity, double stop,
                                  double limit, LONG time_in_force, VARIANT*) {
    const sheltered host;
    orders.push_back(
        {static_cast<LONG>(action), static_cast<LONG>(category), quantity, stop, limit, time_in_force});
    return S_OK;
}

HRESULT quiet_profile::change(ETM_ConnectionChanged to) {
    state = to;
    return listener ? listener->OnConnectionState(to) : S_OK;
}

HRESULT quiet_centre::get_TradingProfiles(ITC_TradingProfileS** all) {
    *all = this;
    return S_OK;
}

HRESULT quiet_centre::get_MasterCounter(LONG* masters) {
    *masters = 1;
    return S_OK;
}

SAFEARRAY* quiet_centre::array_of_profile() {
    VARIANT item;
    VariantInit(&item);
    V_VT(&item) = VT_UNKNOWN;
    V_UNKNOWN(&item) = static_cast<ITC_TradingProfile*>(&profile);
    return array_of(VT_VARIANT, &item);
}

HRESULT quiet_centre::get_Items(SAFEARRAY** items) {
    *items = array_of_profile();
    return S_OK;
}

HRESULT quiet_centre::get_AvailablePlugins(SAFEARRAY** names) {
    const sheltered host;
    *names = SafeArrayCreateVector(VT_BSTR, 0, 0);
    return S_OK;
}

LONG quiet_bar::AddTab(const boost::shared_ptr<OV_OrderDeck::ITab>& tab, bool) {
    const sheltered host;
    m_tabs[++m_last_id] = tab;
    tab->put_Id(m_last_id);
    return m_last_id;
}

bool quiet_bar::RemoveAllTabs() {
    m_tabs.clear();
    return true;
}

boost::shared_ptr<OV_OrderDeck::ITab> quiet_bar::get_Tab(LONG id) {
    const auto found = m_tabs.find(id);
    return found == m_tabs.end() ? nullptr : found->second;
}

boost::shared_ptr<OV_OrderDeck::ITab> quiet_bar::get_CurTab() {
    return m_tabs.empty() ? nullptr : m_tabs.begin()->second;
}

boost::shared_ptr<quiet_bar> newest_bar() {
    return the_bar.lock();
}

}  // namespace test

namespace OV_OrderDeck {

boost::shared_ptr<ITabCtrl> make_bar_window(HWND, IBarOwner&) {
    const test::sheltered host;
    const auto bar = boost::make_shared<test::quiet_bar>();
    test::the_bar = bar;
    return bar;
}

}  // namespace OV_OrderDeck
