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
    {"in_the_accounts_of_a_connection", "ManualTrading.GetAccounts", become_connected},
    {"in_the_times_in_force_of_a_connection", "ManualTrading.GetTimeInForces", become_connected},
    {"in_the_state_of_a_refresh", "Profile.get_ConnectionState", refresh},
    {"in_the_accounts_of_a_refresh", "ManualTrading.GetAccounts", refresh},
    {"in_the_times_in_force_of_a_refresh", "ManualTrading.GetTimeInForces", refresh},
    {"in_the_times_in_force_of_an_order_type", "ManualTrading.GetTimeInForces", select_limit},
    {"in_the_accounts_of_a_symbol", "ManualTrading.GetAccounts", put_other_symbol},
    {"in_the_notice_of_a_symbol", "ManualTrading.SetSymbol", put_other_symbol},
    {"in_the_notice_of_an_account", "ManualTrading.SetAccount", [](CTab& tab) { tab.put_Account(L"A2"); }},
    {"in_the_question_about_a_plug_in", "Lookup.IsPluginSupported",
     [](CTab& tab) { tab.put_SymbolName(L"NQZ6"); }},
};

class tab_removed : public test::tab_fixture, public ::testing::WithParamInterface<removal> {};

TEST_P(tab_removed, tells_its_bar_nothing_more_and_ends_with_its_work) {
    make_ready_tab();
    host.on_call(GetParam().operation, [this] { bar->RemoveAllTabs(); });
    CTab* const row = tab.get();
    tab.reset();
    GetParam().action(*row);
    EXPECT_EQ(0, host.count("TabCtrl."));
    EXPECT_TRUE(reported().empty());
    ASSERT_LE(1u, host.calls().size());
    EXPECT_EQ("ProfileEvents(\"Alpha\").Unadvise(1)", host.calls().back());
    EXPECT_EQ(1, host.count("Unadvise"));
}

INSTANTIATE_TEST_SUITE_P(by_the_host, tab_removed, ::testing::ValuesIn(removals),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace OV_OrderDeck
