// Whole rows at work: what the user does, step by step, and what reaches the host and the bar.
#include "platform/clock.h"
#include "tests/fields/fields_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;

class NoonClock : public platform::clock {
public:
    SYSTEMTIME local_time() override {
        SYSTEMTIME now{};
        now.wYear = 2026;
        now.wMonth = 11;
        now.wDay = 20;
        now.wHour = 12;
        return now;
    }
    DWORD tick_count() override { return 0; }
    double milliseconds() override { return 0.0; }
};

class order_row : public test::fields_fixture {
protected:
    order_row() : m_in_place(m_noon), m_english(english()) { make_ready_tab(); }

    // The host's share of what was recorded, without the question for its order entry.
    calls told_to_host() {
        calls told;
        for (const std::string& call : host.take()) {
            if (call.find("ManualTrading(") == 0) {
                told.push_back(call.substr(call.find(").") + 2));
            }
        }
        return told;
    }

private:
    NoonClock m_noon;
    platform::port<platform::clock>::replacement m_in_place;
    number_locale_scope m_english;
};

TEST_F(order_row, a_stop_limit_order_till_a_date) {
    account().Select(1);
    order_type().Select(4);
    type(eODUE_FirstPrice, L"101.25");
    type(eODUE_SecondPrice, L"101 1/2");
    type(eODUE_Quantity, L"1500");
    time_in_force().Select(3);
    date().put_Value(_variant_t(46400.0, VT_DATE));
    EXPECT_EQ(L"賣出 停限\n1,500", value_text(sell()));
    host.clear();
    sell().Select(0);
    EXPECT_EQ((calls{"SetAccount(\"A2\")", "PlaceOrder(2, 4, 1500, 101.25, 101.5, 3, date(46400))"}),
              told_to_host());
    EXPECT_EQ(101.25, first().get_Price());
    EXPECT_EQ(L"101 1/2", value_text(second()));
    EXPECT_TRUE(reported().empty());
}

TEST_F(order_row, a_fresh_date_under_gtd_is_the_moment_the_tab_was_made) {
    time_in_force().Select(3);
    EXPECT_TRUE(date().get_Enabled());
    host.clear();
    buy().Select(0);
    EXPECT_EQ((calls{"SetAccount(\"A1\")", "PlaceOrder(1, 1, 1, 0, 0, 3, date(46346.5))"}), told_to_host());
}

TEST_F(order_row, no_date_under_gtd_is_refused_and_under_any_other_it_goes_out) {
    date().put_Value(_variant_t(2.0, VT_DATE));
    time_in_force().Select(3);
    host.clear();
    EXPECT_EQ(E_FAIL, raised_by([&] { buy().Select(0); }));
    EXPECT_EQ(calls{}, told_to_host());
    time_in_force().Select(1);
    buy().Select(0);
    EXPECT_EQ((calls{"SetAccount(\"A1\")", "PlaceOrder(1, 1, 1, 0, 0, 1, date(2))"}), told_to_host());
}

TEST_F(order_row, without_accounts_the_empty_name_is_set) {
    odd->accounts.clear();
    account().Update();
    host.clear();
    buy().Select(0);
    EXPECT_EQ((calls{"SetAccount(\"\")", "PlaceOrder(1, 1, 1, 0, 0, 1, date(46346.5))"}), told_to_host());
}

TEST_F(order_row, an_empty_quantity_is_refused) {
    type(eODUE_Quantity, L"2147483647");
    host.clear();
    EXPECT_EQ(E_FAIL, raised_by([&] { buy().Select(0); }));
    EXPECT_EQ(calls{}, told_to_host());
}

TEST_F(order_row, a_picked_quote_goes_out_with_a_market_order) {
    profile->fire_quote(100.25, 100.5);
    ask_bid().put_Value(_variant_t(ask_bid().get_Ask()));
    host.clear();
    buy().Select(0);
    EXPECT_EQ((calls{"SetAccount(\"A1\")", "PlaceOrder(1, 1, 1, 100.5, 100.5, 1, date(46346.5))"}),
              told_to_host());
}

TEST_F(order_row, a_limit_order_after_a_quote_was_spun_two_ticks_up) {
    order_type().Select(3);
    ask_bid().put_Value(_variant_t(100.5));
    spin(second(), 2);
    EXPECT_EQ(L"100.52", value_text(second()));
    order_type().Select(3);
    host.clear();
    sell().Select(0);
    EXPECT_EQ((calls{"SetAccount(\"A1\")", "PlaceOrder(2, 3, 1, 100.5, 100.52, 1, date(46346.5))"}),
              told_to_host());
}

TEST_F(order_row, switching_the_order_type_there_and_back_leaves_no_price) {
    order_type().Select(3);
    type(eODUE_SecondPrice, L"100");
    order_type().Select(4);
    EXPECT_TRUE(second().IsEmpty());
    type(eODUE_SecondPrice, L"100");
    order_type().Select(1);
    order_type().Select(3);
    EXPECT_EQ(L"", value_text(second()));
    host.clear();
    buy().Select(0);
    EXPECT_EQ(calls{}, told_to_host());
}

TEST_F(order_row, a_bad_price_is_shown_once_with_the_range_and_nothing_goes_out) {
    put_scale('e', 1.0);
    order_type().Select(4);
    type(eODUE_FirstPrice, L"1 1/0");
    host.clear();
    buy().Select(0);
    EXPECT_EQ((calls{"TabCtrl.SetFocus(1, 0x400)"}), host.calls());
    EXPECT_EQ(L"1 1/0", value_text(first()));
}

TEST_F(order_row, losing_and_finding_the_connection_reloads_both_lists_and_clears_the_prices) {
    order_type().Select(3);
    type(eODUE_SecondPrice, L"100");
    profile->fire_state(eTM_CC_Disconnected);
    EXPECT_EQ(L"100", value_text(second()));
    odd->accounts = {L"B1"};
    odd->times_in_force[3] = {2, 3};
    host.clear();
    profile->fire_state(eTM_CC_Connected);
    EXPECT_EQ((calls{"GetAccounts()", "GetTimeInForces(3)"}), told_to_host());
    EXPECT_EQ(L"B1", account().get_Account());
    EXPECT_EQ(1, time_in_force().get_SelectedItem(nullptr)) << "1 is below the count of codes";
    EXPECT_TRUE(second().IsEmpty());
}

TEST_F(order_row, a_host_whose_lists_all_fail_still_gets_its_order) {
    host.fail("ManualTrading.GetAccounts", E_FAIL);
    host.fail("ManualTrading.GetTimeInForces", E_FAIL);
    order_type().Select(2);
    type(eODUE_FirstPrice, L"99.5");
    profile->fire_state(eTM_CC_Connecting);
    EXPECT_EQ((std::vector<std::wstring>{L"_tif_arr", L"_acc_arr", L"_tif_arr"}), reported());
    host.clear();
    buy().Select(0);
    EXPECT_EQ((calls{"SetAccount(\"A1\")", "PlaceOrder(1, 2, 1, 99.5, 0, 1, date(46346.5))"}),
              told_to_host());
}

TEST_F(order_row, an_account_put_by_name_goes_to_the_host_and_an_unknown_one_sends_the_present) {
    tab->put_Account(L"A2");
    EXPECT_EQ((calls{"SetAccount(\"A2\")"}), told_to_host());
    tab->put_Account(L"nobody");
    EXPECT_EQ((calls{"SetAccount(\"A2\")"}), told_to_host());
    tab->put_Account(L"A2");
    EXPECT_EQ(calls{}, told_to_host());
}

TEST_F(order_row, what_is_typed_into_the_quantity_shows_on_both_buttons_or_changes_nothing) {
    type(eODUE_Quantity, L"25000");
    EXPECT_EQ(L"買進 市價\n25,000", value_text(buy()));
    EXPECT_NE(S_OK, raised_by([&] { type(eODUE_Quantity, L""); }));
    EXPECT_EQ(L"買進 市價\n25,000", value_text(buy()));
    EXPECT_EQ(L"賣出 市價\n25,000", value_text(sell()));
}

}  // namespace
}  // namespace OV_OrderDeck
