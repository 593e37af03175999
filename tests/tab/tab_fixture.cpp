#include "tests/tab/tab_fixture.h"

#include <boost/make_shared.hpp>

namespace test {

using namespace OV_OrderDeck;

tab_fixture::tab_fixture()
    : profile(platform::make_com<FakeProfile>(host, L"Alpha")),
      lookup(platform::make_com<TestLookup>(host)),
      service(lookup->GetUnknown()),
      lookup_class(std::in_place, host, __uuidof(LookupImpl), L"LookupImpl", [this] { return service; }),
      bar(boost::make_shared<FakeTabCtrl>(host)) {
    profile->plugin = L"CQG-FIX";
    profile->trading->accounts = {L"A1", L"A2"};
    for (LONG category = 1; category <= 4; ++category) {
        profile->trading->times_in_force[category] = {1, 2, 3, 4, 5, 6};
    }
    lookup->supported = false;
}

tab_fixture::~tab_fixture() {
    bar->RemoveAllTabs();
}

void tab_fixture::make_tab() {
    wrap = platform::make_com<CProfileWrap>(profile.get());
    tab = boost::make_shared<CTab>(wrap);
    tab->SetContent(bar);
    bar->AddTab(tab, false);
    // From here on the name of the plug-in is known and the host isn't asked for it.
    wrap->get_PluginName(true);
    wrap->get_Name(true);
    reset_record();
}

void tab_fixture::make_ready_tab() {
    profile->state = eTM_CC_Connected;
    make_tab();
    profile->fire_state(eTM_CC_Connected);
    put_symbol(L"ESZ6");
    reset_record();
}

symbol tab_fixture::instrument(const CString& name) {
    symbol result;
    result.id = 7;
    result.name = name;
    result.category = 3;
    result.price_scale_code = 2;
    result.expiry = 45000.0;
    return result;
}

void tab_fixture::put_symbol(const symbol& record) {
    symbol_info_holder info;
    record.write(info);
    tab->put_SymbolInfo(info);
}

void tab_fixture::put_symbol(const CString& name) {
    put_symbol(instrument(name));
}

IAskBidCtrl& tab_fixture::quotes() {
    return dynamic_cast<IAskBidCtrl&>(field(eODUE_AskBid));
}

CString tab_fixture::text(OD_UpdateEntity entity) {
    const _variant_t value = field(entity).get_Value();
    EXPECT_EQ(VT_BSTR, V_VT(&value));
    return platform::text_of(V_BSTR(&value));
}

void tab_fixture::fill_in() {
    type(eODUE_FirstPrice, L"90");
    type(eODUE_SecondPrice, L"101.25");
    type(eODUE_Quantity, L"10");
    _variant_t date(45000.25, VT_DATE);
    field(eODUE_GtdDate).put_Value(date);
    reset_record();
}

void tab_fixture::reset_record() {
    host.clear();
    recorder.clear();
}

std::vector<std::wstring> tab_fixture::reported() const {
    std::vector<std::wstring> texts;
    for (const reported_assertion& seen : recorder.assertions()) {
        texts.push_back(seen.description);
    }
    return texts;
}

std::vector<HRESULT> tab_fixture::reported_codes() const {
    std::vector<HRESULT> codes;
    for (const reported_assertion& seen : recorder.assertions()) {
        codes.push_back(seen.hresult.value_or(S_OK));
    }
    return codes;
}

}  // namespace test
