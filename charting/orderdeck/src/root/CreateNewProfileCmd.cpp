#include "charting/orderdeck/src/root/FindMainFrame.h"
#include "charting/orderdeck/src/root/ProfileCommands.h"
#include "charting/orderdeck/src/tab/Controls/HostList.h"
#include "platform/desktop.h"
#include "platform/safearray.h"

namespace OV_OrderDeck {

namespace {

// The argument's low half is x and its high half y. Signed: screens stand left of and above the main one
// as well.
POINT point_of(UINT packed) {
    return {static_cast<SHORT>(packed & 0xFFFF), static_cast<SHORT>(packed >> 16)};
}

}  // namespace

void CCreateNewProfileCmd::Initialize(ITC_TradingProfileS* pProfiles) {
    m_pProfile = pProfiles;
    target();
}

HRESULT CCreateNewProfileCmd::_execute_ex(const VARIANT& vParam) {
    // Exactly this type: callers pack a point, and a number of another type is none.
    if (V_VT(&vParam) != VT_UINT) {
        return E_INVALIDARG;
    }
    const std::vector<CString> names = _get_plugins();
    const UINT chosen = _choose(names, point_of(V_UINT(&vParam)));
    if (chosen != 0 && chosen <= names.size()) {
        _add(names[chosen - 1]);
    }
    return S_OK;
}

std::vector<CString> CCreateNewProfileCmd::_get_plugins() {
    platform::safearray array;
    target().get_AvailablePlugins(array.receive());
    BS_REQUIRE(array, E_POINTER);
    std::vector<CString> names = texts_of(array.get());
    BS_REQUIRE(!names.empty(), E_FAIL);
    return names;
}

UINT CCreateNewProfileCmd::_choose(const std::vector<CString>& names, POINT at) {
    std::vector<platform::popup_item> items;
    items.reserve(names.size());
    for (const CString& name : names) {
        items.push_back({static_cast<UINT>(items.size() + 1), name, true});
    }
    UINT chosen = 0;
    try {
        chosen = platform::port<platform::desktop>::get().popup_menu(FindMainFrame(), items, at);
    } catch (const _com_error&) {
        BugSlayerUtil::assertion(BS_HERE, "menu.CreatePopupMenu()");
        throw;
    }
    return chosen;
}

void CCreateNewProfileCmd::_add(const CString& name) {
    // A new profile starts with the name of its plug-in; the host makes it unique.
    const _bstr_t text(platform::new_bstr(name), false);
    const HRESULT hr = target().Add(text, text);
    BS_ASSERT_OK(hr);
}

}  // namespace OV_OrderDeck
