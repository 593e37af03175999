// One tab on a profile of the recording host, with a bar and a desktop that record too.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "charting/orderdeck/interface/TradeInfo.h"
#include "charting/orderdeck/src/root/GlobalData.h"
#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "charting/orderdeck/src/tab/Controls/Lookup.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "tests/support/diagnostics_recorder.h"
#include "tests/support/fake_host.h"
#include "tests/support/fake_tab_ctrl.h"
#include "tests/support/recording_desktop.h"

namespace test {

using calls = std::vector<std::string>;

// A lookup service that gives one answer to every question.
class TestLookup : public FakeLookup {
public:
    explicit TestLookup(fake_host host) : FakeLookup(std::move(host)) {}

    // Without it the tables of the base answer.
    bool fixed = false;
    OD_LookupResult result = eODLR_Selected;
    symbol answer;
    // Whether the last question by name came with a present choice.
    bool had_selected = false;
    // What IsPluginSupported writes, when it isn't 0.
    VARIANT_BOOL odd_truth = VARIANT_FALSE;

    STDMETHODIMP GetSymbolInfo(BSTR sName, LONG dwFlags, OD_SSymbolInfo* pSelected, OD_SSymbolInfo* pVal,
                               OD_LookupResult* pRes) override {
        had_selected = pSelected != nullptr;
        const HRESULT hr = FakeLookup::GetSymbolInfo(sName, dwFlags, pSelected, pVal, pRes);
        return give(hr, pVal, pRes);
    }
    STDMETHODIMP GetSymbolInfoById(LONG lSymbolId, OD_SSymbolInfo* pVal, OD_LookupResult* pRes) override {
        const HRESULT hr = FakeLookup::GetSymbolInfoById(lSymbolId, pVal, pRes);
        return give(hr, pVal, pRes);
    }
    STDMETHODIMP IsPluginSupported(BSTR sName, VARIANT_BOOL* pRes) override {
        const HRESULT hr = FakeLookup::IsPluginSupported(sName, pRes);
        if (odd_truth != VARIANT_FALSE) {
            *pRes = odd_truth;
        }
        return hr;
    }

private:
    HRESULT give(HRESULT hr, OD_SSymbolInfo* pVal, OD_LookupResult* pRes) const {
        if (fixed && SUCCEEDED(hr)) {
            free_symbol(*pVal);
            answer.write(*pVal);
            *pRes = result;
        }
        return hr;
    }
};

class tab_fixture : public ::testing::Test {
protected:
    tab_fixture();
    ~tab_fixture() override;

    // A tab of its own, in the bar; forgets what was recorded on the way.
    void make_tab();
    // Connected, with the instrument "ESZ6" of two decimals, the account "A1" and all six times in force
    // for every category; nothing recorded, nothing reported.
    void make_ready_tab();
    // Gives the tab an instrument as the host does.
    void put_symbol(const symbol& instrument);
    void put_symbol(const CString& name);
    static symbol instrument(const CString& name);

    OV_OrderDeck::IUnifyControl& field(OV_OrderDeck::OD_UpdateEntity entity) {
        return *tab->get_Control(entity);
    }
    OV_OrderDeck::CLookup& symbol_field() { return *tab->get_Controls().m_pSymbol; }
    OV_OrderDeck::IAskBidCtrl& quotes();
    void type(OV_OrderDeck::OD_UpdateEntity entity, const wchar_t* text) {
        field(entity).put_Value(_variant_t(text));
    }
    CString text(OV_OrderDeck::OD_UpdateEntity entity);
    // Types 90 and 101.25 and the quantity 10, and the date 45000.25; records nothing.
    void fill_in();
    void reset_record();
    // The texts of what was reported since the last reset.
    std::vector<std::wstring> reported() const;
    // The codes that reports carried, S_OK for none.
    std::vector<HRESULT> reported_codes() const;

    com_apartment apartment;
    fake_host host;
    diagnostics_recorder recorder;
    recording_desktop desktop;
    OV_OrderDeck::CGlobalData global;
    com_ptr<FakeProfile> profile;
    com_ptr<TestLookup> lookup;
    // What creating the lookup class gives: the one above until a test says otherwise.
    com_ptr<IUnknown> service;
    std::optional<fake_class> lookup_class;
    com_ptr<OV_OrderDeck::CProfileWrap> wrap;
    boost::shared_ptr<FakeTabCtrl> bar;
    boost::shared_ptr<OV_OrderDeck::CTab> tab;
};

// The code of the COM error that an action raises, S_OK when it raises none.
template <class Action>
HRESULT raised_by(Action&& action) {
    try {
        action();
    } catch (const _com_error& error) {
        return error.Error();
    }
    return S_OK;
}

}  // namespace test
