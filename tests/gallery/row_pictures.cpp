// The whole bar with its order row: wide enough for it, and as narrow as it gets.
#include "charting/orderdeck/src/window/OrderDeckWindow.h"
#include "tests/gallery/gallery.h"
#include "tests/support/win32/dialog_resolution.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;

// At 96 to the inch.
constexpr int wide = 1250;
constexpr int narrow = 480;
constexpr int height = 84;

struct bar_on_stage {
    test::fake_host host;
    window_tests::counting_owner owner;
    boost::shared_ptr<COrderDeckWindow> bar;
};

void fill(window_tests::fake_tab& tab, bool stop_limit) {
    tab.symbol->value = L"台積電 2330";
    tab.field(eODUE_Quantity).value = L"1500";
    tab.field(eODUE_OrderType).selected = stop_limit ? 4 : 1;
    tab.field(eODUE_FirstPrice).value = L"1,234.25";
    tab.field(eODUE_SecondPrice).value = L"1,233.75";
    tab.field(eODUE_FirstPrice).hidden = !stop_limit;
    tab.field(eODUE_SecondPrice).hidden = !stop_limit;
    tab.field(eODUE_GtdDate).hidden = !stop_limit;
    tab.field(eODUE_Account).items = {{0, L"模擬帳戶 1"}, {1, L"Paper 2"}};
    tab.field(eODUE_TimeInForce).items = {{1, L"DAY(當日有效)"}, {6, L"GTD(到期前有效)"}};
    tab.field(eODUE_TimeInForce).selected = stop_limit ? 6 : 1;
    tab.field(eODUE_Buy).value = stop_limit ? L"買進 停限\n1,500" : L"買進 市價\n1,500";
    tab.field(eODUE_Sell).value = stop_limit ? L"賣出 停限\n1,500" : L"賣出 市價\n1,500";
}

gallery::shown show(gallery::stage& on, const std::string& state) {
    const bool stop_limit = state.starts_with("stop_limit");
    const test::dialog_resolution scope(on.scaled(USER_DEFAULT_SCREEN_DPI));
    const auto made = std::make_shared<bar_on_stage>();
    made->bar = boost::make_shared<COrderDeckWindow>(on.parent(), made->owner);
    const HWND window = made->bar->get_Hwnd();
    const HWND panel = made->bar->get_Panel().get_Hwnd();
    for (const wchar_t* const name : {L"Interactive Brokers", L"模擬交易"}) {
        const auto tab = boost::make_shared<window_tests::fake_tab>(made->host, name, eTM_CC_Connected);
        fill(*tab, stop_limit);
        made->bar->AddTab(tab, false);
    }
    made->bar->Show(true);
    MoveWindow(window, 0, 0, on.scaled(state.ends_with("wide") ? wide : narrow), on.scaled(height), TRUE);
    if (state.find("scrolled") != std::string::npos) {
        SetFocus(GetDlgItem(panel, 228));
    }
    return gallery::shown{window, made, {}};
}

const gallery::entry row{"order_row",
                         {{"market_wide"},
                          {"market_narrow"},
                          {"stop_limit_gtd_wide"},
                          {"stop_limit_gtd_narrow"},
                          {"stop_limit_gtd_scrolled"}},
                         &show};

}  // namespace
