// Menu lines and status line of the root.

#include <utility>

#include "charting/orderdeck/src/root/OrderDeckObj.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/safearray.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr UINT ids_NoBroker = 102;
constexpr UINT ids_Disconnected = 103;
constexpr UINT ids_Connected = 104;

void put_command(SAFEARRAY* items, LONG index, const com_ptr<IUnknown>& command) {
    VARIANT item;
    VariantInit(&item);
    item.vt = VT_UNKNOWN;
    item.punkVal = command.get();
    // The array keeps a reference of its own.
    if (const HRESULT hr = SafeArrayPutElement(items, &index, &item); FAILED(hr)) {
        _com_issue_error(hr);
    }
}

}  // namespace

HRESULT COrderDeckObj::get_Commands(SAFEARRAY** ppItems) noexcept {
    return _call(BS_HERE, [&] {
        if (!m_bValid) {
            return OLE_E_BLANK;
        }
        if (ppItems == nullptr) {
            return E_INVALIDARG;
        }
        *ppItems = nullptr;
        *ppItems = _make_commands();
        return S_OK;
    });
}

SAFEARRAY* COrderDeckObj::_make_commands() {
    _check_filled();
    const life its = m_life;
    profiles_by_name profiles;
    // A copy: a name that the host is asked for may bring an event that changes the bar's own.
    const tab_infos tabs = _bar()->get_TabInfos();
    fill_profiles_coll(tabs, profiles);
    _require(its);
    const auto count = static_cast<LONG>(profiles.size());
    platform::safearray items(
        SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(count == 0 ? 1 : count + 2)));
    if (!items) {
        _com_issue_error(E_OUTOFMEMORY);
    }
    CGlobalDataImpl& global = _global();
    LONG index = 0;
    for (const auto& [name, profile] : profiles) {
        put_command(items.get(), index++, global.create_command(eODC_ToggleConnect, profile));
    }
    if (count != 0) {
        put_command(items.get(), index++, global.create_command(eODC_Separator));
    }
    put_command(items.get(), index, global.create_command(eODC_ProfileEditor));
    return items.detach();
}

void COrderDeckObj::fill_profiles_coll(const tab_infos& tabs, profiles_by_name& coll) {
    coll.clear();
    for (const auto& [id, tab] : tabs) {
        const com_ptr<CProfileWrap> profile = tab->get_Profile();
        const bool isOK = coll.emplace(profile->get_Name(true), profile).second;
        BS_ASSERT(isOK);
    }
}

// No blank after the colon, deliberately: hosts rely on the line as it stands.
HRESULT COrderDeckObj::get_StatusLineString(BSTR* pVal) noexcept {
    return _call(BS_HERE, [&] {
        if (!m_bValid) {
            return OLE_E_BLANK;
        }
        if (pVal == nullptr) {
            return E_INVALIDARG;
        }
        SysFreeString(std::exchange(*pVal, nullptr));
        const boost::shared_ptr<ITab> tab = _bar()->get_CurTab();
        if (!tab) {
            *pVal = platform::new_bstr(resource_string::text(ids_NoBroker));
            return S_OK;
        }
        const com_ptr<CProfileWrap> profile = tab->get_Profile();
        const CString plugin = profile->get_PluginName(true);
        const bool connected = profile->get_ConnectionState(true) == eTM_CC_Connected;
        *pVal = platform::new_bstr(plugin + L":" +
                                   resource_string::text(connected ? ids_Connected : ids_Disconnected));
        return S_OK;
    });
}

}  // namespace OV_OrderDeck
