// The page of the symbol dialog as a sheet sees it.
#pragma once

#include <OrderDeck.h>
#include <ocidl.h>

#include <memory>

#include "com/object.h"
#include "symbols/choice.h"
#include "symbols/panel.h"

namespace host {

// There is something to apply while a row is chosen; applying picks it. On the window's thread.
class symbol_page : public object<IPropertyPage> {
public:
    STDMETHODIMP SetPageSite(IPropertyPageSite* pPageSite) noexcept override;
    // E_UNEXPECTED without objects.
    STDMETHODIMP Activate(HWND hWndParent, LPCRECT pRect, BOOL bModal) noexcept override;
    STDMETHODIMP Deactivate() noexcept override;
    STDMETHODIMP GetPageInfo(PROPPAGEINFO* pPageInfo) noexcept override;
    // One of the objects has to be the dialog's data; a filter of symbols may be another.
    STDMETHODIMP SetObjects(ULONG cObjects, IUnknown** ppUnk) noexcept override;
    STDMETHODIMP Show(UINT nCmdShow) noexcept override;
    STDMETHODIMP Move(LPCRECT pRect) noexcept override;
    STDMETHODIMP IsPageDirty() noexcept override;
    // S_FALSE when no row is chosen.
    STDMETHODIMP Apply() noexcept override;
    STDMETHODIMP Help(LPCOLESTR) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*) noexcept override { return S_FALSE; }

private:
    bool may_show(const instrument& one) const;

    ref<IPropertyPageSite> m_site;
    ref<symbol_picking> m_data;
    ref<IOD_LookupFilter> m_filter;
    std::unique_ptr<symbol_panel> m_panel;
};

}  // namespace host
