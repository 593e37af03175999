#include "tests/support/fake_lookup.h"

namespace test {

void symbol::write(OD_SSymbolInfo& info) const {
    info.id = id;
    info.DataFeed = platform::new_bstr(data_feed);
    info.Name = platform::new_bstr(name);
    info.Root = platform::new_bstr(root);
    info.Description = platform::new_bstr(description);
    info.Exchange = platform::new_bstr(exchange);
    info.ExchangeTZI = platform::new_bstr(exchange_tzi);
    info.Category = category;
    info.Currency = currency;
    info.Expiry = expiry;
    info.PriceScaleCode = price_scale_code;
    info.MinMovement = min_movement;
    info.BigPointValue = big_point_value;
    info.PutOrCall = put_or_call;
    info.StrikePrice = strike_price;
}

void free_symbol(OD_SSymbolInfo& info) {
    for (BSTR text :
         {info.DataFeed, info.Name, info.Root, info.Description, info.Exchange, info.ExchangeTZI}) {
        SysFreeString(text);
    }
    info = OD_SSymbolInfo{};
}

HRESULT FakeLookup::Initialize(LONG hParent, BSTR sPluginName, VARIANT_BOOL bIsDatafeed, IUnknown* pFilter) {
    const std::string arguments = std::to_string(hParent) + ", " + quoted(sPluginName) + ", " +
                                  std::to_string(bIsDatafeed) + ", " +
                                  (pFilter != nullptr ? "filter" : "null");
    return m_host.enter("Lookup", {}, "Initialize", arguments).hr;
}

const symbol* FakeLookup::find(const CString& name) const {
    const auto found = by_name.find(name);
    return found != by_name.end() ? &found->second : nullptr;
}

HRESULT FakeLookup::give(const fake_host::outcome& told, const symbol* found, OD_SSymbolInfo* pVal,
                         OD_LookupResult* pRes) const {
    if (told.write) {
        *pRes = found != nullptr ? eODLR_Selected : missing;
        if (found != nullptr) {
            found->write(*pVal);
        }
    }
    return told.hr;
}

HRESULT FakeLookup::GetSymbolInfo(BSTR sName, LONG dwFlags, OD_SSymbolInfo* pSelected, OD_SSymbolInfo* pVal,
                                  OD_LookupResult* pRes) {
    const std::string selected = pSelected != nullptr ? quoted(pSelected->Name) : "null";
    const auto told = m_host.enter("Lookup", {}, "GetSymbolInfo",
                                   quoted(sName) + ", " + std::to_string(dwFlags) + ", " + selected);
    return give(told, find(platform::text_of(sName)), pVal, pRes);
}

HRESULT FakeLookup::GetSymbolInfoById(LONG lSymbolId, OD_SSymbolInfo* pVal, OD_LookupResult* pRes) {
    const auto told = m_host.enter("Lookup", {}, "GetSymbolInfoById", std::to_string(lSymbolId));
    const auto found = by_id.find(lSymbolId);
    return give(told, found != by_id.end() ? &found->second : nullptr, pVal, pRes);
}

HRESULT FakeLookup::GetSymbolInfoByReq(OD_SSymbolReq* pReq, OD_SSymbolInfo* pVal, OD_LookupResult* pRes) {
    const std::string arguments = quoted(pReq->Name) + ", " + quoted(pReq->Exchange) + ", " +
                                  quoted(pReq->DataFeed) + ", " + std::to_string(pReq->Category);
    const auto told = m_host.enter("Lookup", {}, "GetSymbolInfoByReq", arguments);
    return give(told, find(platform::text_of(pReq->Name)), pVal, pRes);
}

HRESULT FakeLookup::IsPluginSupported(BSTR sName, VARIANT_BOOL* pRes) {
    const auto told = m_host.enter("Lookup", {}, "IsPluginSupported", quoted(sName));
    if (told.write) {
        *pRes = supported ? VARIANT_TRUE : VARIANT_FALSE;
    }
    return told.hr;
}

HRESULT FakeLookup::SetDlgCaption(BSTR bstrCaption) {
    caption = platform::text_of(bstrCaption);
    return m_host.enter("Lookup", {}, "SetDlgCaption", quoted(bstrCaption)).hr;
}

}  // namespace test
