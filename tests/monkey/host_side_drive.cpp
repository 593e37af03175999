// The host drives the tabs by its profiles' outer ids.
#include "tests/monkey/host_side.h"

namespace monkey {

namespace {

HRESULT drive_symbol(OV_OrderDeck::COrderDeckObj& root, BSTR id, const test::symbol& symbol) {
    OD_SSymbolInfo info{};
    symbol.write(info);
    const HRESULT hr = root.put_SymbolInfo(id, &info);
    test::free_symbol(info);
    return hr;
}

// What the root does when it restores a tab.
void restore(OV_OrderDeck::ITradeInfoProperties& tab, int which) {
    if (which % 2 == 0) {
        tab.put_SymbolId(which % 3 == 0 ? 0 : 10 + which % 14);
    } else {
        tab.put_SymbolName(pick(symbol_texts(), which).c_str());
    }
}

}  // namespace

boost::shared_ptr<OV_OrderDeck::ITradeInfoProperties> host_side::tab_of(const test::FakeProfile& profile) {
    if (!tabs) {
        return {};
    }
    for (const auto& [id, tab] : tabs()) {
        if (tab->get_Profile()->get_OuterID() == profile.outer_id) {
            return boost::dynamic_pointer_cast<OV_OrderDeck::ITradeInfoProperties>(tab);
        }
    }
    return {};
}

HRESULT host_side::drive(const action& done) {
    test::FakeProfile& profile = *pick(m_profiles, place_of_profile(done.who));
    const _bstr_t id(profile.outer_id.c_str());
    switch (done.what) {
        case act::drive_symbol:
            return drive_symbol(*root, id, pick(instruments(), done.which));
        case act::drive_symbol_id: {
            const auto tab = tab_of(profile);
            return tab ? code_of([&] { restore(*tab, done.which); }) : S_OK;
        }
        case act::drive_account:
            return root->put_Account(id, _bstr_t(pick(driven_accounts(), done.which).c_str()));
        default:
            return root->put_ActiveTab(id);
    }
}

}  // namespace monkey
