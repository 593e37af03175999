// Quotes, connection changes and changes of the order type.
#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <limits>

#include "tests/support/number_locale_scope.h"
#include "tests/tab/tab_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;

constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest_normal = std::numeric_limits<double>::min();
constexpr double denormal = std::numeric_limits<double>::denorm_min();
constexpr double infinite = std::numeric_limits<double>::infinity();
const double not_a_number = std::numeric_limits<double>::quiet_NaN();

const calls lists_reloaded = {
    "Profile(\"Alpha\").get_ManualTrading()", "ManualTrading(\"Alpha\").GetAccounts()",
    "Profile(\"Alpha\").get_ManualTrading()", "ManualTrading(\"Alpha\").GetTimeInForces(1)"};

calls followed_by(calls first, const std::string& last) {
    first.push_back(last);
    return first;
}

class events : public test::tab_fixture {
protected:
    events() { make_ready_tab(); }

    void expect_quotes(double ask, double bid) {
        EXPECT_EQ(ask, quotes().get_Ask());
        EXPECT_EQ(bid, quotes().get_Bid());
    }
};

TEST_F(events, a_good_quote_is_shown_as_it_came) {
    EXPECT_EQ(0, tab->OnQuote(100.25, 100.5));
    expect_quotes(100.5, 100.25);
    EXPECT_TRUE(quotes().get_Enabled());
    EXPECT_EQ((calls{"TabCtrl.Update(1, 0x8000)"}), host.calls());
}

TEST_F(events, every_normal_pair_in_order_is_a_good_quote) {
    const double good[][2] = {{5.0, 5.0},
                              {-2.0, -1.0},
                              {-1.0, -1.0},
                              {-1.0, 1.0},
                              {smallest_normal, smallest_normal},
                              {-smallest_normal, smallest_normal},
                              {1.0, 300000.0},
                              {-largest, 1e308}};
    for (const auto& pair : good) {
        EXPECT_EQ(0, tab->OnQuote(pair[0], pair[1])) << pair[0] << " " << pair[1];
        expect_quotes(pair[1], pair[0]);
        EXPECT_FALSE(quotes().IsEmpty());
    }
}

TEST_F(events, every_other_quote_clears_both_and_is_refused) {
    const double bad[][2] = {{2.0, 1.0},
                             {0.0, 1.0},
                             {-1.0, 0.0},
                             {-0.0, 1.0},
                             {0.0, 0.0},
                             {denormal, 1.0},
                             {-1.0, denormal},
                             {1.0, infinite},
                             {-infinite, 1.0},
                             {infinite, infinite},
                             {not_a_number, 1.0},
                             {1.0, not_a_number},
                             {not_a_number, not_a_number},
                             {-1.0, -2.0}};
    for (const auto& pair : bad) {
        tab->OnQuote(1.0, 2.0);
        host.clear();
        EXPECT_EQ(1, tab->OnQuote(pair[0], pair[1])) << pair[0] << " " << pair[1];
        expect_quotes(largest, largest);
        EXPECT_TRUE(quotes().IsEmpty());
        EXPECT_FALSE(quotes().get_Enabled());
        EXPECT_EQ((calls{"TabCtrl.Update(1, 0x8000)"}), host.calls());
    }
}

TEST_F(events, the_hosts_event_reaches_the_row_and_its_result_the_host) {
    EXPECT_EQ(0, profile->fire_quote(1.0, 2.0));
    expect_quotes(2.0, 1.0);
    EXPECT_EQ(1, profile->fire_quote(2.0, 1.0));
}

TEST_F(events, a_quote_leaves_the_prices_alone) {
    field(eODUE_OrderType).Select(4);
    fill_in();
    tab->OnQuote(1.0, 2.0);
    EXPECT_EQ(L"90", text(eODUE_FirstPrice));
    EXPECT_EQ(L"101.25", text(eODUE_SecondPrice));
}

TEST_F(events, a_picked_quote_goes_into_both_prices_even_hidden_ones) {
    const number_locale_scope conventions(english());
    field(eODUE_OrderType).Select(3);
    reset_record();
    field(eODUE_AskBid).put_Value(_variant_t(101.5));
    EXPECT_EQ((calls{"TabCtrl.Update(1, 0xc00)"}), host.calls());
    EXPECT_EQ(L"101.50", text(eODUE_FirstPrice));
    EXPECT_EQ(L"101.50", text(eODUE_SecondPrice));
}

TEST_F(events, a_picked_quote_is_limited_to_the_range_of_prices) {
    const number_locale_scope conventions(english());
    tab->_apply_price(300000.0);
    EXPECT_EQ(L"250,000.00", text(eODUE_FirstPrice));
    EXPECT_EQ(L"250,000.00", text(eODUE_SecondPrice));
    tab->_apply_price(1.0);
    tab->_apply_price(250000.0);
    EXPECT_EQ(L"250,000.00", text(eODUE_FirstPrice));
    tab->_apply_price(0.001);
    EXPECT_EQ(L"0.01", text(eODUE_FirstPrice));
    EXPECT_EQ(L"0.01", text(eODUE_SecondPrice));
    tab->_apply_price(1.0);
    tab->_apply_price(-5.0);
    EXPECT_EQ(L"0.01", text(eODUE_FirstPrice));
    EXPECT_EQ(L"0.01", text(eODUE_SecondPrice));
    for (const OD_UpdateEntity price : {eODUE_FirstPrice, eODUE_SecondPrice}) {
        EXPECT_FALSE(field(price).IsEmpty());
    }
}

TEST_F(events, becoming_disconnected_clears_the_quotes_and_keeps_the_prices) {
    field(eODUE_OrderType).Select(3);
    fill_in();
    field(eODUE_OrderType).Select(1);
    tab->OnQuote(1.0, 2.0);
    type(eODUE_FirstPrice, L"90");
    reset_record();
    EXPECT_EQ(0, tab->OnConnectionState(eTM_CC_Disconnected));
    EXPECT_EQ(followed_by(lists_reloaded, "TabCtrl.Update(1, 0x3ff86)"), host.calls());
    expect_quotes(largest, largest);
    EXPECT_FALSE(quotes().get_Enabled());
    EXPECT_EQ(L"90", text(eODUE_FirstPrice));
}

TEST_F(events, becoming_connected_clears_the_prices_and_keeps_the_quotes) {
    tab->OnQuote(1.0, 2.0);
    type(eODUE_FirstPrice, L"90");
    type(eODUE_SecondPrice, L"91");
    reset_record();
    EXPECT_EQ(0, tab->OnConnectionState(eTM_CC_Connected));
    EXPECT_EQ(followed_by(lists_reloaded, "TabCtrl.Update(1, 0x3ff86)"), host.calls());
    EXPECT_EQ(L"", text(eODUE_FirstPrice));
    EXPECT_EQ(L"", text(eODUE_SecondPrice));
    EXPECT_TRUE(field(eODUE_FirstPrice).IsEmpty());
    expect_quotes(2.0, 1.0);
}

TEST_F(events, becoming_connected_without_a_symbol_keeps_the_prices) {
    symbol_field().LookupByText(L"", false, true);
    type(eODUE_FirstPrice, L"90");
    reset_record();
    EXPECT_EQ(0, tab->OnConnectionState(eTM_CC_Connected));
    EXPECT_EQ(L"90", text(eODUE_FirstPrice));
    EXPECT_EQ(followed_by(lists_reloaded, "TabCtrl.Update(1, 0x3ff86)"), host.calls());
}

TEST_F(events, connecting_changes_the_picture_of_the_connection_only) {
    tab->OnQuote(1.0, 2.0);
    type(eODUE_FirstPrice, L"90");
    reset_record();
    EXPECT_EQ(0, tab->OnConnectionState(eTM_CC_Connecting));
    EXPECT_EQ(followed_by(lists_reloaded, "TabCtrl.Update(1, 0x4)"), host.calls());
    expect_quotes(2.0, 1.0);
    EXPECT_EQ(L"90", text(eODUE_FirstPrice));
}

TEST_F(events, any_other_state_reloads_the_lists_and_names_nothing) {
    for (const LONG state : {0, 1, 255, 513, 1023, 0x400, -1, 0x7FFFFFFF}) {
        reset_record();
        EXPECT_EQ(0, tab->OnConnectionState(ETM_ConnectionChanged{state}));
        EXPECT_EQ(followed_by(lists_reloaded, "TabCtrl.Update(1, 0x0)"), host.calls()) << state;
    }
}

TEST_F(events, the_times_in_force_are_those_of_the_present_order_type) {
    field(eODUE_OrderType).Select(4);
    reset_record();
    tab->OnConnectionState(eTM_CC_Connecting);
    EXPECT_EQ(1, host.count("GetTimeInForces(4)"));
    EXPECT_EQ(1, host.count("GetTimeInForces"));
}

TEST_F(events, a_change_of_order_type_clears_both_prices_and_reloads_the_times_in_force) {
    field(eODUE_OrderType).Select(4);
    type(eODUE_FirstPrice, L"90");
    type(eODUE_SecondPrice, L"91");
    reset_record();
    field(eODUE_OrderType).Select(2);
    EXPECT_EQ((calls{"Profile(\"Alpha\").get_ManualTrading()", "ManualTrading(\"Alpha\").GetTimeInForces(2)",
                     "TabCtrl.Update(1, 0x32c00)"}),
              host.calls());
    // The first price stays shown and is cleared all the same.
    EXPECT_FALSE(field(eODUE_FirstPrice).get_Hidden());
    EXPECT_EQ(L"", text(eODUE_FirstPrice));
    EXPECT_EQ(L"", text(eODUE_SecondPrice));
}

TEST_F(events, without_order_entry_the_lists_stay_and_the_row_goes_on) {
    profile->trading.reset();
    EXPECT_EQ(0, tab->OnConnectionState(eTM_CC_Disconnected));
    EXPECT_EQ((std::vector<std::wstring>{L"_trad", L"_trad"}), reported());
    EXPECT_EQ(L"A1", tab->get_Account());
    EXPECT_EQ(6, field(eODUE_TimeInForce).get_Count());
    EXPECT_EQ(1, host.count("TabCtrl.Update(1, 0x3ff86)"));
}

TEST_F(events, lists_that_the_host_does_not_give_stay) {
    host.leave_unwritten("ManualTrading.GetAccounts");
    host.leave_unwritten("ManualTrading.GetTimeInForces");
    tab->OnConnectionState(eTM_CC_Connecting);
    EXPECT_EQ((std::vector<std::wstring>{L"_acc_arr", L"_tif_arr"}), reported());
    EXPECT_EQ(L"A1", tab->get_Account());
    EXPECT_EQ(6, field(eODUE_TimeInForce).get_Count());
}

TEST_F(events, fields_change_while_another_tab_is_shown) {
    const auto other = boost::make_shared<CTab>(platform::make_com<CProfileWrap>(profile.get()));
    other->SetContent(bar);
    bar->SelectTab(bar->AddTab(other, false));
    reset_record();
    tab->OnQuote(1.0, 2.0);
    expect_quotes(2.0, 1.0);
    EXPECT_EQ((calls{"TabCtrl.Update(1, 0x8000)"}), host.calls());
}

}  // namespace
}  // namespace OV_OrderDeck
