// How the host drives a panel by its profile's outer id.

#include <utility>

#include "charting/orderdeck/src/root/OrderDeckObj.h"
#include "diagnostics/BugSlayerUtil.h"

namespace OV_OrderDeck {

boost::shared_ptr<ITradeInfoProperties> COrderDeckObj::_find_trade_props(BSTR outer_id) {
    _check_filled();
    const auto found = m_tags.find(platform::text_of(outer_id));
    if (found == m_tags.end()) {
        return {};
    }
    return boost::dynamic_pointer_cast<ITradeInfoProperties>(_bar()->get_Tab(found->second));
}

HRESULT COrderDeckObj::put_SymbolInfo(BSTR sProfOuterID, OD_SSymbolInfo* pTradeInfo) noexcept {
    return _call(BS_HERE, [&] {
        if (pTradeInfo == nullptr) {
            BS_RAISE("", E_INVALIDARG);
        }
        if (const auto props = _find_trade_props(sProfOuterID)) {
            props->put_SymbolInfo(*pTradeInfo);
        }
    });
}

HRESULT COrderDeckObj::get_SymbolInfo(BSTR sProfOuterID, OD_SSymbolInfo* pTradeInfo) noexcept {
    return _call(BS_HERE, [&] {
        if (pTradeInfo == nullptr) {
            BS_RAISE("", E_INVALIDARG);
        }
        if (const auto props = _find_trade_props(sProfOuterID)) {
            props->get_SymbolInfo(*pTradeInfo);
        }
    });
}

HRESULT COrderDeckObj::put_Account(BSTR sProfOuterID, BSTR sAccount) noexcept {
    return _call(BS_HERE, [&] {
        if (const auto props = _find_trade_props(sProfOuterID)) {
            props->put_Account(platform::text_of(sAccount).c_str());
        }
    });
}

HRESULT COrderDeckObj::get_Account(BSTR sProfOuterID, BSTR* pAccount) noexcept {
    return _call(BS_HERE, [&] {
        if (pAccount == nullptr) {
            BS_RAISE("", E_INVALIDARG);
        }
        if (const auto props = _find_trade_props(sProfOuterID)) {
            BSTR const account = platform::new_bstr(props->get_Account());
            SysFreeString(std::exchange(*pAccount, account));
        }
    });
}

HRESULT COrderDeckObj::put_ActiveTab(BSTR sProfOuterID) noexcept {
    return _call(BS_HERE, [&] {
        _check_filled();
        const auto found = m_tags.find(platform::text_of(sProfOuterID));
        if (found != m_tags.end()) {
            _bar()->SelectTab(found->second);
        }
    });
}

HRESULT COrderDeckObj::get_ActiveTab(BSTR* pProfOuterID) noexcept {
    return _call(BS_HERE, [&] {
        if (pProfOuterID == nullptr) {
            BS_RAISE("", E_INVALIDARG);
        }
        SysFreeString(std::exchange(*pProfOuterID, nullptr));
        _check_filled();
        const boost::shared_ptr<ITab> tab = _bar()->get_CurTab();
        BS_REQUIRE(tab, E_POINTER);
        *pProfOuterID = platform::new_bstr(tab->get_Profile()->get_OuterID());
    });
}

}  // namespace OV_OrderDeck
