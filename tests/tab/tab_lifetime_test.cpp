// A host that removes the profile inside one of its own calls takes the tab from the bar while the tab works.
#include <gtest/gtest.h>

#include <functional>
#include <ostream>

#include "tests/tab/tab_fixture.h"

namespace OV_OrderDeck {
namespace {

struct removal {
    const char* name;
    // The host's call in which the profile goes.
    const char* operation;
    std::function<void(CTab&)> action;
    // What the tab still tells its bar afterwards; null for nothing.
    const char* last_word;
};

std::ostream& operator<<(std::ostream& out, const removal& row) {
    return out << row.name;
}

void put_other_symbol(CTab& tab) {
    symbol_info_holder info;
    test::symbol other;
    other.id = 8;
    other.name = L"NQZ6";
    other.write(info);
    tab.put_SymbolInfo(info);
}

void become_connected(CTab& tab) {
    tab.OnConnectionState(eTM_CC_Connected);
}

void refresh(CTab& tab) {
    tab.Refresh();
}

void select_limit(CTab& tab) {
    tab.get_Control(eODUE_OrderType)->Select(eMTPA_OC_Limit);
}

const removal removals[] = {
    {"in_the_accounts_of_a_connection", "ManualTrading.GetAccounts", become_connected,
     "TabCtrl.Update(1, 0x3ff86)"},
    {"in_the_times_in_force_of_a_connection", "ManualTrading.GetTimeInForces", become_connected,
     "TabCtrl.Update(1, 0x3ff86)"},
    {"in_the_state_of_a_refresh", "Profile.get_ConnectionState", refresh, "TabCtrl.Update(1, 0x3ff87)"},
    {"in_the_accounts_of_a_refresh", "ManualTrading.GetAccounts", refresh, "TabCtrl.Update(1, 0x3ff87)"},
    {"in_the_times_in_force_of_a_refresh", "ManualTrading.GetTimeInForces", refresh,
     "TabCtrl.Update(1, 0x3ff87)"},
    {"in_the_times_in_force_of_an_order_type", "ManualTrading.GetTimeInForces", select_limit,
     "TabCtrl.Update(1, 0x32c00)"},
    {"in_the_accounts_of_a_symbol", "ManualTrading.GetAccounts", put_other_symbol,
     "TabCtrl.Update(1, 0x3ff80)"},
    {"in_the_notice_of_a_symbol", "ManualTrading.SetSymbol", put_other_symbol, "TabCtrl.Update(1, 0x3ff80)"},
    {"in_the_notice_of_an_account", "ManualTrading.SetAccount", [](CTab& tab) { tab.put_Account(L"A2"); },
     "TabCtrl.Update(1, 0x1000)"},
    {"in_the_question_about_a_plug_in", "Lookup.IsPluginSupported",
     [](CTab& tab) { tab.put_SymbolName(L"NQZ6"); }, nullptr},
};

class tab_removed : public test::tab_fixture, public ::testing::WithParamInterface<removal> {};

TEST_P(tab_removed, finishes_its_work_first_and_then_ends) {
    make_ready_tab();
    host.on_call(GetParam().operation, [this] { bar->RemoveAllTabs(); });
    CTab* const row = tab.get();
    tab.reset();
    GetParam().action(*row);
    ASSERT_LE(2u, host.calls().size());
    const std::string before_the_end = host.calls()[host.calls().size() - 2];
    if (GetParam().last_word != nullptr) {
        EXPECT_EQ(GetParam().last_word, before_the_end);
    }
    EXPECT_EQ("ProfileEvents(\"Alpha\").Unadvise(1)", host.calls().back());
    EXPECT_EQ(1, host.count("Unadvise"));
}

INSTANTIATE_TEST_SUITE_P(by_the_host, tab_removed, ::testing::ValuesIn(removals),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace OV_OrderDeck
