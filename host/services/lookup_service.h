// Symbol lookup over the fixed list of instruments. It stands in where the component brings no lookup
// class of its own: a name is found whole, without regard to case, and the dialog is a menu of the list.
#pragma once

#include <OrderDeck.h>

#include <functional>

#include "com/object.h"
#include "market/instruments.h"

namespace host {

class lookup_service : public object<IOD_LookupImpl> {
public:
    // choose lets the user pick an instrument; null when nothing was picked.
    explicit lookup_service(std::function<const instrument*(HWND owner)> choose)
        : m_choose(std::move(choose)) {}

    STDMETHODIMP Initialize(LONG hParent, BSTR sPluginName, VARIANT_BOOL bIsDatafeed,
                            IUnknown* pFilter) noexcept override;
    STDMETHODIMP GetSymbolInfo(BSTR sName, LONG dwFlags, OD_SSymbolInfo* pSelected, OD_SSymbolInfo* pVal,
                               OD_LookupResult* pRes) noexcept override;
    STDMETHODIMP GetSymbolInfoById(LONG lSymbolId, OD_SSymbolInfo* pVal,
                                   OD_LookupResult* pRes) noexcept override;
    STDMETHODIMP GetSymbolInfoByReq(OD_SSymbolReq* pReq, OD_SSymbolInfo* pVal,
                                    OD_LookupResult* pRes) noexcept override;
    STDMETHODIMP IsPluginSupported(BSTR sName, VARIANT_BOOL* pRes) noexcept override;
    // The menu has no caption; any text is taken.
    STDMETHODIMP SetDlgCaption(BSTR bstrCaption) noexcept override;

private:
    HRESULT answer(const instrument* found, OD_SSymbolInfo* out, OD_LookupResult* result,
                   OD_LookupResult otherwise);

    std::function<const instrument*(HWND owner)> m_choose;
    HWND m_owner = nullptr;
    bool m_initialized = false;
};

}  // namespace host
