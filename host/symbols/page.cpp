#include "symbols/page.h"

#include "com/text.h"
#include "window/dialog_look.h"

namespace host {

HRESULT symbol_page::SetPageSite(IPropertyPageSite* pPageSite) noexcept {
    m_site = pPageSite;
    return S_OK;
}

HRESULT symbol_page::SetObjects(ULONG cObjects, IUnknown** ppUnk) noexcept {
    if (cObjects > 0 && ppUnk == nullptr) {
        return E_POINTER;
    }
    m_data.reset();
    m_filter.reset();
    for (ULONG index = 0; index < cObjects; ++index) {
        if (m_data == nullptr) {
            m_data = query<symbol_picking>(ppUnk[index]);
        }
        if (m_filter == nullptr) {
            m_filter = query<IOD_LookupFilter>(ppUnk[index]);
        }
    }
    return cObjects == 0 || m_data != nullptr ? S_OK : E_INVALIDARG;
}

bool symbol_page::may_show(const instrument& one) const {
    const _bstr_t name(to_bstr(one.name), false);
    const _bstr_t feed(to_bstr(one.feed), false);
    const _bstr_t exchange(to_bstr(one.exchange), false);
    VARIANT_BOOL filtered = VARIANT_FALSE;
    const HRESULT hr = m_filter->IsFiltered(name, feed, static_cast<LONG>(one.kind), exchange, &filtered);
    // A filter that fails hides nothing.
    return FAILED(hr) || filtered == VARIANT_FALSE;
}

HRESULT symbol_page::Activate(HWND hWndParent, LPCRECT pRect, BOOL) noexcept {
    return guarded([&] {
        if (pRect == nullptr) {
            return E_POINTER;
        }
        if (m_data == nullptr) {
            return E_UNEXPECTED;
        }
        symbol_filter::takes takes;
        if (m_filter != nullptr) {
            takes = [this](const instrument& one) { return may_show(one); };
        }
        m_panel = std::make_unique<symbol_panel>(
            hWndParent, *pRect, m_data->store(), takes,
            symbol_panel_start{m_data->feed(), m_data->text(), m_data->present()}, [this] {
                if (m_site != nullptr) {
                    m_site->OnStatusChange(PROPPAGESTATUS_DIRTY);
                }
            });
        return S_OK;
    });
}

HRESULT symbol_page::Deactivate() noexcept {
    m_panel.reset();
    return S_OK;
}

HRESULT symbol_page::GetPageInfo(PROPPAGEINFO* pPageInfo) noexcept {
    if (pPageInfo == nullptr) {
        return E_POINTER;
    }
    *pPageInfo = {};
    pPageInfo->cb = sizeof(*pPageInfo);
    pPageInfo->size = {scaled(720), scaled(420)};
    return S_OK;
}

HRESULT symbol_page::Show(UINT nCmdShow) noexcept {
    if (m_panel == nullptr) {
        return E_UNEXPECTED;
    }
    ShowWindow(m_panel->handle(), static_cast<int>(nCmdShow));
    return S_OK;
}

HRESULT symbol_page::Move(LPCRECT pRect) noexcept {
    return guarded([&] {
        if (pRect == nullptr) {
            return E_POINTER;
        }
        if (m_panel == nullptr) {
            return E_UNEXPECTED;
        }
        m_panel->move(*pRect);
        return S_OK;
    });
}

HRESULT symbol_page::IsPageDirty() noexcept {
    return m_panel != nullptr && m_panel->chosen() != nullptr ? S_OK : S_FALSE;
}

HRESULT symbol_page::Apply() noexcept {
    const instrument* chosen = m_panel == nullptr ? nullptr : m_panel->chosen();
    if (chosen == nullptr) {
        return S_FALSE;
    }
    m_data->pick(chosen);
    return S_OK;
}

}  // namespace host
