// A resizable, modal sheet of one property page.
#pragma once

#include <SymbolStore.h>
#include <ocidl.h>

#include <string>
#include <vector>

#include "com/object.h"

namespace host {

// On the window's thread. The page is made by its class id and is an ordinary IPropertyPage. OK can be
// pressed while the page has something to apply.
class property_sheet : public object<IQVPropertySheet, IQVPropertyContext, IPropertyPageSite> {
public:
    // E_INVALIDARG for other flags than those of a modal sheet, and for any number of pages but one; what
    // making the page fails with.
    STDMETHODIMP Create(LONG lFlags, BSTR sCaption, LONG lObjects, IUnknown** ppObjects, LONG lPages,
                        const GUID* pPageIds) noexcept override;
    // E_UNEXPECTED before Create. The modal result is 0 for OK and 1 for anything else.
    STDMETHODIMP ShowModal(ULONGLONG hOwner, LONG* pModalResult) noexcept override;
    // The sheet remembers nothing of itself, so any place will do.
    STDMETHODIMP put_SettingsRoot(BSTR) noexcept override { return S_OK; }

    STDMETHODIMP OnStatusChange(DWORD dwFlags) noexcept override;
    STDMETHODIMP GetLocaleID(LCID* pLocaleID) noexcept override;
    STDMETHODIMP GetPageContainer(IUnknown** ppUnk) noexcept override;
    STDMETHODIMP TranslateAccelerator(MSG*) noexcept override { return S_FALSE; }

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    bool handle_message(UINT message, WPARAM wparam, LPARAM lparam);
    void set_up();
    void arrange();
    void centre();
    void show_status();
    void on_ok();
    RECT page_place() const;

    std::wstring m_caption;
    ref<IPropertyPage> m_page;
    HWND m_window = nullptr;
    // Why the dialog could not be set up.
    HRESULT m_failure = S_OK;
    SIZE m_smallest{};
};

}  // namespace host
