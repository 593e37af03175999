#include "services/lookup_service.h"

#include <algorithm>

#include "centre/profiles.h"
#include "centre/symbol_record.h"
#include "com/text.h"

namespace host {
namespace {

// The low bits of the flags.
constexpr LONG mode_bits = 3;
constexpr LONG name_only = 1;
constexpr LONG dialog_only = 2;

}  // namespace

HRESULT lookup_service::Initialize(LONG hParent, BSTR sPluginName, VARIANT_BOOL, IUnknown*) noexcept {
    if (sPluginName == nullptr) {
        return E_POINTER;
    }
    m_owner = reinterpret_cast<HWND>(static_cast<LONG_PTR>(hParent));
    m_initialized = true;
    return S_OK;
}

HRESULT lookup_service::answer(const instrument* found, OD_SSymbolInfo* out, OD_LookupResult* result,
                               OD_LookupResult otherwise) {
    *out = {};
    *result = found == nullptr ? otherwise : eODLR_Selected;
    if (found != nullptr) {
        fill_symbol(*found, *out);
    }
    return S_OK;
}

HRESULT lookup_service::GetSymbolInfo(BSTR sName, LONG dwFlags, OD_SSymbolInfo*, OD_SSymbolInfo* pVal,
                                      OD_LookupResult* pRes) noexcept {
    return guarded([&]() -> HRESULT {
        if (!m_initialized) {
            return OLE_E_BLANK;
        }
        if (sName == nullptr || pVal == nullptr || pRes == nullptr) {
            return E_INVALIDARG;
        }
        const LONG mode = dwFlags & mode_bits;
        const instrument* named = mode == dialog_only ? nullptr : find_instrument(bstr_text(sName));
        if (named != nullptr || mode == name_only) {
            return answer(named, pVal, pRes, eODLR_NotFound);
        }
        return answer(m_choose(m_owner), pVal, pRes, eODLR_Canceled);
    });
}

HRESULT lookup_service::GetSymbolInfoById(LONG lSymbolId, OD_SSymbolInfo* pVal,
                                          OD_LookupResult* pRes) noexcept {
    return guarded([&] {
        if (pVal == nullptr || pRes == nullptr) {
            return E_INVALIDARG;
        }
        return answer(find_instrument(lSymbolId), pVal, pRes, eODLR_NotFound);
    });
}

HRESULT lookup_service::GetSymbolInfoByReq(OD_SSymbolReq* pReq, OD_SSymbolInfo* pVal,
                                           OD_LookupResult* pRes) noexcept {
    return guarded([&] {
        if (pReq == nullptr || pVal == nullptr || pRes == nullptr) {
            return E_INVALIDARG;
        }
        return answer(find_instrument(bstr_text(pReq->Name)), pVal, pRes, eODLR_NotFound);
    });
}

HRESULT lookup_service::IsPluginSupported(BSTR sName, VARIANT_BOOL* pRes) noexcept {
    return guarded([&] {
        if (pRes == nullptr) {
            return E_INVALIDARG;
        }
        const bool known = std::ranges::find(plugins(), bstr_text(sName)) != plugins().end();
        *pRes = known ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    });
}

HRESULT lookup_service::SetDlgCaption(BSTR) noexcept {
    return S_OK;
}

}  // namespace host
