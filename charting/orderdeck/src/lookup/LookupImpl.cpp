#include "charting/orderdeck/src/lookup/LookupImpl.h"

#include <cstring>

#include "charting/orderdeck/src/lookup/ProcessSymbols.h"
#include "diagnostics/BugSlayerUtil.h"
#include "unicomp/LocalRPC/TaskFactory.h"

namespace OV_OrderDeck {
namespace {

// Flags of GetSymbolInfo: the low two bits say where to search.
constexpr LONG mode_bits = 3;
constexpr LONG name_only = 1;
constexpr LONG dialog_only = 2;
constexpr LONG instrument_bit = 4;

constexpr LONG default_price_scale = 112;
constexpr double default_expiry = 2.0;

bool is_empty(BSTR text) {
    return SysStringLen(text) == 0;
}

// The gaps between the fields too: the record crosses to another module as it stands.
void zero(OD_SSymbolInfo& info) {
    std::memset(&info, 0, sizeof(info));
}

owned_text new_text(const CString& text) {
    owned_text made;
    *made.receive() = platform::new_bstr(text);
    return made;
}

}  // namespace

CLookupImpl::~CLookupImpl() {
    SysFreeString(caption);
}

bool CLookupImpl::_is_supported() const {
    return isDataFeed || _is_known(pluginName);
}

bool CLookupImpl::_is_known(const _bstr_t& plugin) const {
    return association && association->HasPluginName(plugin);
}

CString CLookupImpl::_data_feed() const {
    if (isDataFeed) {
        return platform::text_of(pluginName);
    }
    return association ? platform::text_of(association->DetectDataFeedByPluginName(pluginName)) : CString();
}

// The currency stays the caller's: nothing is known of it.
void CLookupImpl::_fill_defaults(const wchar_t* name, OD_SSymbolInfo& info) const {
    owned_text made_name = new_text(platform::text_of(name));
    owned_text feed = new_text(_data_feed());
    owned_text root = new_text({});
    owned_text description = new_text({});
    owned_text exchange = new_text({});
    owned_text time_zone = new_text({});
    info.id = 0;
    info.Name = made_name.release();
    info.DataFeed = feed.release();
    info.Root = root.release();
    info.Description = description.release();
    info.Exchange = exchange.release();
    info.ExchangeTZI = time_zone.release();
    info.Category = eSC_None;
    info.Expiry = default_expiry;
    info.PriceScaleCode = default_price_scale;
    info.MinMovement = 1.0;
    info.BigPointValue = 1.0;
    info.PutOrCall = VARIANT_FALSE;
    info.StrikePrice = 0.0;
}

STDMETHODIMP CLookupImpl::Initialize(LONG hParentWnd, BSTR sPluginName, VARIANT_BOOL bIsDatafeed,
                                     IUnknown* pFilter) noexcept {
    return BugSlayerUtil::guard(BS_HERE, [&] {
        BS_REQUIRE(sPluginName, E_POINTER);
        pluginName = sPluginName;
        hParent = hParentWnd;
        isDataFeed = bIsDatafeed == VARIANT_TRUE;
        filter = platform::query<IOD_LookupFilter>(pFilter);
        initialized = true;
    });
}

STDMETHODIMP CLookupImpl::GetSymbolInfo(BSTR sName, LONG dwFlags, OD_SSymbolInfo* pSelected,
                                        OD_SSymbolInfo* pVal, OD_LookupResult* pRes) noexcept {
    return BugSlayerUtil::guard(BS_HERE, [&]() -> HRESULT {
        if (!initialized) {
            return OLE_E_BLANK;
        }
        if (sName == nullptr || pVal == nullptr || pRes == nullptr) {
            return E_INVALIDARG;
        }
        instrumentDialog = (dwFlags & instrument_bit) != 0;
        *pRes = eODLR_Canceled;
        _get_symbol_info(sName, dwFlags & mode_bits, pSelected, *pVal, *pRes);
        return S_OK;
    });
}

void CLookupImpl::_get_symbol_info(BSTR name, LONG mode, OD_SSymbolInfo* selected, OD_SSymbolInfo& info,
                                   OD_LookupResult& result) {
    if (mode != dialog_only && !_is_supported()) {
        result = eODLR_NotSupported;
        _fill_defaults(name, info);
        return;
    }
    zero(info);
    if (!is_empty(name) && mode != dialog_only) {
        bool found = false;
        LocalRPC::SyncCall(activeObject, [&] { _find_unique_symbol_by_name_impl(name, info, found); });
        if (found) {
            result = eODLR_Selected;
            return;
        }
    }
    if (mode == name_only) {
        result = eODLR_NotFound;
        return;
    }
    // Deliberate: the first of several matches stays in the record until the dialog writes over it.
    if (_find_symbol_with_dialog(name, selected, info)) {
        result = eODLR_Selected;
    }
}

// Deliberate: no look at whether the service was initialized; its clients search by id at once.
STDMETHODIMP CLookupImpl::GetSymbolInfoById(LONG lSymbolId, OD_SSymbolInfo* pVal,
                                            OD_LookupResult* pRes) noexcept {
    return BugSlayerUtil::guard(BS_HERE, [&]() -> HRESULT {
        if (pVal == nullptr || pRes == nullptr) {
            return E_INVALIDARG;
        }
        if (!_is_supported()) {
            *pRes = eODLR_NotSupported;
            _fill_defaults(nullptr, *pVal);
            return S_OK;
        }
        zero(*pVal);
        *pRes = _find_by_id(lSymbolId, 0, *pVal) ? eODLR_Selected : eODLR_NotFound;
        return S_OK;
    });
}

// Deliberate: the plug-in must be a known one even where its name is a data feed's, and the search runs on
// the calling thread; hosts that ask by request count on both.
STDMETHODIMP CLookupImpl::GetSymbolInfoByReq(OD_SSymbolReq* pReq, OD_SSymbolInfo* pVal,
                                             OD_LookupResult* pRes) noexcept {
    return BugSlayerUtil::guard(BS_HERE, [&]() -> HRESULT {
        if (pReq == nullptr || pVal == nullptr || pRes == nullptr) {
            return E_INVALIDARG;
        }
        if (!_is_known(pluginName)) {
            *pRes = eODLR_NotSupported;
            _fill_defaults(nullptr, *pVal);
            return S_OK;
        }
        zero(*pVal);
        *pRes = eODLR_NotFound;
        if (!is_empty(pReq->Name) && !is_empty(pReq->Exchange) && !is_empty(pReq->DataFeed) &&
            _process_symbols_by_req(*pVal, *pReq)) {
            *pRes = eODLR_Selected;
        }
        return S_OK;
    });
}

STDMETHODIMP CLookupImpl::IsPluginSupported(BSTR sName, VARIANT_BOOL* pRes) noexcept {
    return BugSlayerUtil::guard(BS_HERE, [&]() -> HRESULT {
        if (pRes == nullptr || (!initialized && is_empty(sName))) {
            return E_INVALIDARG;
        }
        if (isDataFeed && is_empty(sName)) {
            *pRes = VARIANT_TRUE;
            return S_FALSE;
        }
        const _bstr_t plugin = is_empty(sName) ? pluginName : _bstr_t(sName);
        *pRes = _is_known(plugin) ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    });
}

STDMETHODIMP CLookupImpl::SetDlgCaption(BSTR bstrCaption) noexcept {
    return BugSlayerUtil::guard(BS_HERE, [&]() -> HRESULT {
        if (bstrCaption == nullptr) {
            return S_FALSE;
        }
        const std::lock_guard guard(m_lock);
        if (bstrCaption != caption) {
            owned_text copy = new_text(platform::text_of(bstrCaption));
            SysFreeString(caption);
            caption = copy.release();
        }
        return S_OK;
    });
}

bool CLookupImpl::_find_by_id(LONG id, LONG feedId, OD_SSymbolInfo& info) {
    bool found = false;
    LocalRPC::SyncCall(activeObject, [&] { _find_symbol_by_id(id, feedId, info, found); });
    return found;
}

void CLookupImpl::_find_unique_symbol_by_name_impl(wchar_t* name, OD_SSymbolInfo& info, bool& found) const {
    found = false;
    const CString feed = _data_feed();
    unique_by_name_finder finder(name, feed.c_str(), info);
    _process_symbols(std::ref(finder), false);
    if (finder.count() != 1) {
        _process_symbols(std::ref(finder), true);
    }
    found = finder.count() == 1;
}

void CLookupImpl::_find_symbol_by_id(LONG id, LONG feedId, OD_SSymbolInfo& info, bool& found) {
    found = false;
    by_id_finder finder(id, feedId, info);
    _process_symbols(std::ref(finder), false);
    if (!finder.found()) {
        _process_symbols(std::ref(finder), true);
    }
    found = finder.found();
}

}  // namespace OV_OrderDeck
