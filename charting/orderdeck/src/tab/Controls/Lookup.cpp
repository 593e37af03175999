#include "charting/orderdeck/src/tab/Controls/Lookup.h"

#include "charting/orderdeck/src/lookup/HostCall.h"
#include "charting/orderdeck/src/lookup/LookupImpl.h"
#include "charting/orderdeck/src/root/FindMainFrame.h"
#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "charting/orderdeck/src/tab/MessageBox.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/class_factory.h"
#include "platform/text_argument.h"
#include "unicomp/Simples/interface/FillText.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr LONG quiet_flag = 1;
constexpr UINT type_the_name = 119;
constexpr UINT offer_to_connect = 120;

// The service as the host or the machine has registered it, wherever it lives; without that the component's
// own, since a host may load the component by its path and register nothing.
HRESULT create_service(com_ptr<IOD_LookupImpl>& lookup) {
    const HRESULT hr = CoCreateInstance(__uuidof(LookupImpl), nullptr, CLSCTX_ALL, __uuidof(IOD_LookupImpl),
                                        static_cast<void**>(platform::receive(lookup)));
    if (hr != REGDB_E_CLASSNOTREG) {
        return hr;
    }
    const auto factory = platform::make_com<platform::class_factory<CLookupImpl>>();
    return factory->CreateInstance(nullptr, __uuidof(IOD_LookupImpl),
                                   static_cast<void**>(platform::receive(lookup)));
}

bool has_text(OD_LookupResult result) {
    return result == eODLR_Selected || result == eODLR_NotSupported;
}

}  // namespace

void CLookup::put_Value(const VARIANT& value) {
    if (!BS_ASSERT(V_VT(&value) == VT_BSTR)) {
        _com_issue_error(DISP_E_TYPEMISMATCH);
    }
    LookupByText(platform::text_of(V_BSTR(&value)), true, false);
}

_variant_t CLookup::get_Value() {
    return m_symbol.valid() ? _variant_t(m_symbol.Name) : _variant_t(L"");
}

bool CLookup::IsEmpty() {
    return !m_symbol.valid();
}

LONG CLookup::get_Category() {
    m_symbol._check();
    return m_symbol.Category;
}

LONG CLookup::get_PriceScaleCode() {
    m_symbol._check();
    return m_symbol.PriceScaleCode;
}

double CLookup::get_MinMovement() {
    m_symbol._check();
    return m_symbol.MinMovement;
}

void CLookup::LookupWithDialog() {
    const auto keep = _tab()._keep_alive();
    CSymbolInfo found;
    switch (_lookup_impl(0, {}, false, found)) {
        case eODLR_Selected:
            _store(found);
            _ask_connect();
            break;
        case eODLR_NotSupported:
            if (_tab()._was_removed()) {
                break;
            }
            OrderDeckMessageBox(resource_string::text(type_the_name), 0);
            break;
        default:
            break;
    }
}

void CLookup::LookupByText(const CString& text, bool bAskConnect, bool bQuiet) {
    const auto keep = _tab()._keep_alive();
    if (text.empty()) {
        if (m_symbol.valid()) {
            m_symbol.m_bValid = false;
            _tab()._on_symbol_changed();
        }
        return;
    }
    CSymbolInfo found;
    if (has_text(_lookup_impl(0, text, bQuiet, found))) {
        _store(found);
        if (bAskConnect) {
            _ask_connect();
        }
    }
}

void CLookup::LookupByName(const CString& name) {
    if (!BS_ASSERT(!name.empty())) {
        _com_issue_error(E_FAIL);
    }
    const auto keep = _tab()._keep_alive();
    CSymbolInfo found;
    if (has_text(_lookup_impl(0, name, true, found))) {
        _store(found);
    }
}

void CLookup::LookupById(LONG id) {
    if (!BS_ASSERT(id > 0)) {
        _com_issue_error(E_FAIL);
    }
    const auto keep = _tab()._keep_alive();
    CSymbolInfo found;
    if (_lookup_impl(id, {}, true, found) == eODLR_Selected) {
        _store(found);
    }
}

bool CLookup::IsPluginSupported(const wchar_t* name) {
    VARIANT_BOOL supported = VARIANT_FALSE;
    const _bstr_t plugin = platform::text_argument(name != nullptr ? name : L"");
    const HRESULT hr = _get_lookup().IsPluginSupported(plugin.copy(false), &supported);
    if (FAILED(hr)) {
        BugSlayerUtil::assertion(BS_HERE, "IsPluginSupported", hr);
        return false;
    }
    return supported == VARIANT_TRUE;
}

void CLookup::_store(const CSymbolInfo& symbol) {
    // The host may have taken the profile away while it looked for the symbol.
    if (symbol == m_symbol || _tab()._was_removed()) {
        return;
    }
    m_symbol = symbol;
    _tab()._on_symbol_changed();
}

IOD_LookupImpl& CLookup::_get_lookup() {
    if (m_pLookup) {
        return *m_pLookup;
    }
    com_ptr<IOD_LookupImpl> lookup;
    require(BS_HERE, "CoCreateInstance", create_service(lookup));
    if (!BS_ASSERT(lookup)) {
        _com_issue_error(E_POINTER);
    }
    // The interface carries the low 32 bits of the window, which are all of a handle that count.
    const auto parent = static_cast<LONG>(reinterpret_cast<INT_PTR>(FindMainFrame()));
    const _bstr_t plugin = platform::text_argument(_tab().get_Profile()->get_PluginName(true));
    require(BS_HERE, "Initialize", lookup->Initialize(parent, plugin.copy(false), VARIANT_FALSE, nullptr));
    m_pLookup = lookup;
    return *m_pLookup;
}

OD_LookupResult CLookup::_lookup_impl(LONG id, const CString& name, bool bQuiet, CSymbolInfo& out) {
    symbol_info_holder info;
    OD_LookupResult result = eODLR_Canceled;
    IOD_LookupImpl& lookup = _get_lookup();
    if (id == 0) {
        symbol_info_holder present;
        if (m_symbol.valid()) {
            m_symbol.copy_to(present);
        }
        const _bstr_t text = platform::text_argument(name);
        require(BS_HERE, "GetSymbolInfo",
                lookup.GetSymbolInfo(text.copy(false), bQuiet ? quiet_flag : 0,
                                     m_symbol.valid() ? &present : nullptr, &info, &result));
    } else {
        require(BS_HERE, "GetSymbolInfoById", lookup.GetSymbolInfoById(id, &info, &result));
    }
    out = static_cast<OD_SSymbolInfo&&>(info);
    return result;
}

void CLookup::_ask_connect() {
    const com_ptr<CProfileWrap> profile = _tab().get_Profile();
    const ETM_ConnectionChanged state = profile->get_ConnectionState(true);
    if (state == eTM_CC_Connected || state == eTM_CC_Connecting || _tab()._was_removed()) {
        return;
    }
    const CString question =
        Unicomp::fill_text(resource_string::text(offer_to_connect), {profile->get_Name(true)});
    if (OrderDeckMessageBox(question, MB_YESNO | MB_ICONQUESTION) == IDYES) {
        profile->Connect();
    }
}

}  // namespace OV_OrderDeck
