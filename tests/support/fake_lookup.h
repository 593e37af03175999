// A lookup service that answers from tables.
#pragma once

#include <map>

#include "OrderDeck.h"
#include "tests/support/fake_class.h"

namespace test {

// A symbol record that owns its texts.
struct symbol {
    LONG id = 0;
    CString data_feed, name, root, description, exchange, exchange_tzi;
    LONG category = 0;
    LONG currency = 0;
    double expiry = 0.0;
    LONG price_scale_code = -1;
    double min_movement = 1.0;
    double big_point_value = 1.0;
    VARIANT_BOOL put_or_call = VARIANT_FALSE;
    double strike_price = 0.0;

    // New texts, which the receiver owns.
    void write(OD_SSymbolInfo& info) const;
};

// Frees the texts of a record and makes it all zeros.
void free_symbol(OD_SSymbolInfo& info);

// Records `Lookup.Initialize(parent, "plugin", isDatafeed, filter)`, `Lookup.GetSymbolInfo("name",
// flags, "selected")`, `Lookup.GetSymbolInfoById(7)`, `Lookup.GetSymbolInfoByReq("name", "exchange",
// "feed", category)`. A name or an id that has no symbol gives `missing`.
class FakeLookup : public platform::com_root<IOD_LookupImpl> {
public:
    explicit FakeLookup(fake_host host) : m_host(std::move(host)) {}

    std::map<CString, symbol> by_name;
    std::map<LONG, symbol> by_id;
    OD_LookupResult missing = eODLR_NotFound;
    // What IsPluginSupported says.
    bool supported = true;
    // The last caption.
    CString caption;

    STDMETHODIMP Initialize(LONG hParent, BSTR sPluginName, VARIANT_BOOL bIsDatafeed,
                            IUnknown* pFilter) override;
    STDMETHODIMP GetSymbolInfo(BSTR sName, LONG dwFlags, OD_SSymbolInfo* pSelected, OD_SSymbolInfo* pVal,
                               OD_LookupResult* pRes) override;
    STDMETHODIMP GetSymbolInfoById(LONG lSymbolId, OD_SSymbolInfo* pVal, OD_LookupResult* pRes) override;
    STDMETHODIMP GetSymbolInfoByReq(OD_SSymbolReq* pReq, OD_SSymbolInfo* pVal,
                                    OD_LookupResult* pRes) override;
    STDMETHODIMP IsPluginSupported(BSTR sName, VARIANT_BOOL* pRes) override;
    STDMETHODIMP SetDlgCaption(BSTR bstrCaption) override;

private:
    HRESULT give(const fake_host::outcome& told, const symbol* found, OD_SSymbolInfo* pVal,
                 OD_LookupResult* pRes) const;
    const symbol* find(const CString& name) const;

    fake_host m_host;
};

}  // namespace test
