// The road of an order.
#include <gtest/gtest.h>

#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"
#include "tests/tab/tab_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;

constexpr auto symbol_notice = "ManualTrading(\"Alpha\").SetSymbol";

class order : public test::tab_fixture {
protected:
    order() { make_ready_tab(); }

    void select(LONG category, LONG time_in_force = eMTPA_TIF_Day) {
        field(eODUE_OrderType).Select(category);
        field(eODUE_TimeInForce).Select(time_in_force);
        reset_record();
    }

    // The whole of what the host sees of one order with the account "A1".
    static calls sent(const std::string& arguments) {
        return {"Profile(\"Alpha\").get_ManualTrading()", "ManualTrading(\"Alpha\").SetAccount(\"A1\")",
                "Profile(\"Alpha\").get_ManualTrading()",
                "ManualTrading(\"Alpha\").PlaceOrder(" + arguments + ")"};
    }

    void expect_no_order() { EXPECT_EQ(0, host.count("PlaceOrder")); }

    // Everything of the row that an order must leave alone.
    std::vector<CString> values() {
        return {text(eODUE_FirstPrice),
                text(eODUE_SecondPrice),
                text(eODUE_Quantity),
                std::to_wstring(field(eODUE_OrderType).get_SelectedItem(nullptr)),
                std::to_wstring(field(eODUE_Account).get_SelectedItem(nullptr)),
                std::to_wstring(field(eODUE_TimeInForce).get_SelectedItem(nullptr))};
    }
};

TEST_F(order, of_each_type_in_each_time_in_force_reaches_the_host_as_entered) {
    // Prices are typed into the shown fields only, as a user does.
    const char* const prices[] = {"0, 0", "90, 0", "0, 101.25", "90, 101.25"};
    for (LONG action = 1; action <= 2; ++action) {
        for (LONG category = 1; category <= 4; ++category) {
            for (LONG code = 1; code <= 6; ++code) {
                select(category, code);
                fill_in();
                for (const OD_UpdateEntity price : {eODUE_FirstPrice, eODUE_SecondPrice}) {
                    if (field(price).get_Hidden()) {
                        type(price, L"");
                    }
                }
                const auto before = values();
                reset_record();
                field(action == 1 ? eODUE_Buy : eODUE_Sell).Select(0);
                EXPECT_EQ(sent(std::to_string(action) + ", " + std::to_string(category) + ", 10, " +
                               prices[category - 1] + ", " + std::to_string(code) + ", date(45000.25)"),
                          host.calls());
                EXPECT_EQ(before, values());
                EXPECT_TRUE(reported().empty());
                // The type must change for the prices to be cleared in the next turn.
                field(eODUE_OrderType).Select(category == 1 ? 2 : 1);
            }
        }
    }
    EXPECT_TRUE(desktop.message_boxes().empty());
}

TEST_F(order, at_market_carries_zero_prices_and_a_date) {
    select(eMTPA_OC_Market);
    type(eODUE_Quantity, L"3");
    reset_record();
    tab->_on_place_order(eMTPA_OA_Sell);
    ASSERT_EQ(1u, profile->trading->orders.size());
    const auto& sent_order = profile->trading->orders[0];
    EXPECT_EQ(eMTPA_OA_Sell, sent_order.action);
    EXPECT_EQ(3, sent_order.quantity);
    EXPECT_EQ(0.0, sent_order.stop_price);
    EXPECT_EQ(0.0, sent_order.limit_price);
    EXPECT_EQ(VT_DATE, sent_order.date_type);
}

TEST_F(order, prices_of_fields_that_are_not_empty_go_out_whatever_the_type) {
    select(eMTPA_OC_Market);
    fill_in();
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ(sent("1, 1, 10, 90, 101.25, 1, date(45000.25)"), host.calls());
}

TEST_F(order, the_prices_of_the_former_type_do_not_survive_a_change_of_type) {
    select(eMTPA_OC_StopLimit);
    fill_in();
    select(eMTPA_OC_Market);
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ(sent("1, 1, 10, 0, 0, 1, date(45000.25)"), host.calls());
}

TEST_F(order, the_date_is_computed_in_double_arithmetic_from_the_ticks) {
    select(eMTPA_OC_Market, eMTPA_TIF_Day);
    // A second before midnight of the last day.
    _variant_t date(65380.0 + 86399.0 / 86400.0, VT_DATE);
    field(eODUE_GtdDate).put_Value(date);
    tab->_on_place_order(eMTPA_OA_Buy);
    ASSERT_EQ(1u, profile->trading->orders.size());
    const LONGLONG ticks = 65380 * 864000000000 + 86399 * 10000000LL;
    EXPECT_NEAR(static_cast<double>(ticks) / 864000000000.0, profile->trading->orders[0].date, 1e-6);
}

TEST_F(order, stop_with_an_empty_trigger_shows_the_range_and_asks_nothing_of_the_host) {
    select(eMTPA_OC_Stop);
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ((calls{"TabCtrl.SetFocus(1, 0x400)"}), host.calls());
    ASSERT_EQ(1u, desktop.message_boxes().size());
    EXPECT_EQ(L"請輸入 0 至 250000 的數值。", desktop.message_boxes()[0].text);
    EXPECT_EQ(0u, desktop.message_boxes()[0].flags);
    EXPECT_TRUE(reported().empty());
}

TEST_F(order, limit_with_an_empty_price_shows_the_range_and_sets_the_focus_there) {
    select(eMTPA_OC_Limit);
    tab->_on_place_order(eMTPA_OA_Sell);
    EXPECT_EQ((calls{"TabCtrl.SetFocus(1, 0x800)"}), host.calls());
    EXPECT_EQ(1u, desktop.message_boxes().size());
}

TEST_F(order, stop_limit_with_two_empty_prices_shows_one_message_about_the_first) {
    select(eMTPA_OC_StopLimit);
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ((calls{"TabCtrl.SetFocus(1, 0x400)"}), host.calls());
    EXPECT_EQ(1u, desktop.message_boxes().size());
}

TEST_F(order, stop_limit_with_only_the_trigger_asks_for_the_limit) {
    select(eMTPA_OC_StopLimit);
    type(eODUE_FirstPrice, L"90");
    reset_record();
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ((calls{"TabCtrl.SetFocus(1, 0x800)"}), host.calls());
    EXPECT_EQ(1u, desktop.message_boxes().size());
}

TEST_F(order, a_price_out_of_range_is_an_empty_one) {
    select(eMTPA_OC_Limit);
    for (const wchar_t* const price : {L"0.009", L"0", L"-1", L"250000.01", L"1e400", L"abc", L""}) {
        type(eODUE_SecondPrice, price);
        tab->_on_place_order(eMTPA_OA_Buy);
    }
    expect_no_order();
    EXPECT_EQ(7u, desktop.message_boxes().size());
    type(eODUE_SecondPrice, L"250000");
    tab->_on_place_order(eMTPA_OA_Buy);
    type(eODUE_SecondPrice, L"0.01");
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ(2, host.count("PlaceOrder"));
    EXPECT_EQ(7u, desktop.message_boxes().size());
}

TEST_F(order, the_range_of_a_coarse_symbol_stands_in_the_message) {
    test::symbol coarse = instrument(L"COARSE");
    coarse.price_scale_code = 'd';
    coarse.min_movement = 2.5;
    put_symbol(coarse);
    select(eMTPA_OC_Limit);
    tab->_on_place_order(eMTPA_OA_Buy);
    ASSERT_EQ(1u, desktop.message_boxes().size());
    EXPECT_EQ(L"請輸入 25 至 250000 的數值。", desktop.message_boxes()[0].text);
}

TEST_F(order, a_typed_price_between_two_ticks_goes_out_as_typed) {
    select(eMTPA_OC_Limit);
    type(eODUE_SecondPrice, L"10.004");
    type(eODUE_Quantity, L"1");
    _variant_t date(45000.25, VT_DATE);
    field(eODUE_GtdDate).put_Value(date);
    reset_record();
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ(sent("1, 3, 1, 0, 10.004, 1, date(45000.25)"), host.calls());
}

TEST_F(order, an_unknown_action_fails_and_nothing_goes_out) {
    select(eMTPA_OC_Market);
    for (const LONG action : {0, 3, -1, 65536}) {
        EXPECT_EQ(E_FAIL, raised_by([&] { tab->_on_place_order(action); })) << action;
    }
    EXPECT_EQ(4u, reported().size());
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(order, a_missing_quantity_fails_and_nothing_goes_out) {
    select(eMTPA_OC_Market);
    type(eODUE_Quantity, L"2147483647");
    reset_record();
    EXPECT_EQ(E_FAIL, raised_by([&] { tab->_on_place_order(eMTPA_OA_Buy); }));
    EXPECT_EQ(1u, reported().size());
    EXPECT_EQ(calls{}, host.calls());
    EXPECT_TRUE(desktop.message_boxes().empty());
}

TEST_F(order, a_quantity_of_zero_or_below_is_not_caught_here) {
    select(eMTPA_OC_Market);
    type(eODUE_Quantity, L"0");
    tab->_on_place_order(eMTPA_OA_Buy);
    type(eODUE_Quantity, L"-5");
    tab->_on_place_order(eMTPA_OA_Buy);
    ASSERT_EQ(2u, profile->trading->orders.size());
    EXPECT_EQ(0, profile->trading->orders[0].quantity);
    EXPECT_EQ(-5, profile->trading->orders[1].quantity);
}

TEST_F(order, a_missing_time_in_force_fails_and_nothing_goes_out) {
    profile->trading->times_in_force[1].clear();
    field(eODUE_OrderType).Select(eMTPA_OC_Stop);
    field(eODUE_OrderType).Select(eMTPA_OC_Market);
    reset_record();
    EXPECT_EQ(E_FAIL, raised_by([&] { tab->_on_place_order(eMTPA_OA_Buy); }));
    EXPECT_EQ(1u, reported().size());
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(order, good_till_date_with_the_default_stamp_fails_without_a_question) {
    select(eMTPA_OC_Market, eMTPA_TIF_GTD);
    _variant_t date(2.0, VT_DATE);
    field(eODUE_GtdDate).put_Value(date);
    reset_record();
    EXPECT_EQ(E_FAIL, raised_by([&] { tab->_on_place_order(eMTPA_OA_Buy); }));
    EXPECT_EQ(1u, reported().size());
    EXPECT_EQ(calls{}, host.calls());
    EXPECT_TRUE(desktop.message_boxes().empty());
}

TEST_F(order, the_default_stamp_is_no_fault_outside_good_till_date) {
    select(eMTPA_OC_Market, eMTPA_TIF_GTC);
    _variant_t date(2.0, VT_DATE);
    field(eODUE_GtdDate).put_Value(date);
    reset_record();
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ(sent("1, 1, 1, 0, 0, 2, date(2)"), host.calls());
}

TEST_F(order, without_an_order_type_is_reported_and_dropped) {
    static_cast<CListImpl<IUnifyControl>&>(*tab->get_Controls().m_pOrderType).Reset();
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ(1u, reported().size());
    EXPECT_EQ(calls{}, host.calls());
    EXPECT_TRUE(desktop.message_boxes().empty());
}

// Lets a test select what the list doesn't hold.
struct loose_order_type : COrderTypeCombo {
    static void select(COrderTypeCombo& field, LONG key) { field.*& loose_order_type::m_selected = key; }
};

TEST_F(order, of_an_unknown_type_is_reported_and_dropped) {
    for (const LONG category : {0, 5, 7}) {
        loose_order_type::select(*tab->get_Controls().m_pOrderType, category);
        reset_record();
        tab->_on_place_order(eMTPA_OA_Buy);
        EXPECT_EQ(1u, reported().size()) << category;
        EXPECT_EQ(calls{}, host.calls()) << category;
    }
}

TEST_F(order, without_order_entry_fails_and_nothing_goes_out) {
    select(eMTPA_OC_Market);
    profile->trading.reset();
    EXPECT_EQ(E_POINTER, raised_by([&] { tab->_on_place_order(eMTPA_OA_Buy); }));
    EXPECT_EQ(1u, reported().size());
    expect_no_order();
}

TEST_F(order, when_order_entry_goes_between_account_and_order_nothing_goes_out) {
    select(eMTPA_OC_Market);
    host.fail("Profile.get_ManualTrading", E_FAIL, 2);
    EXPECT_EQ(E_POINTER, raised_by([&] { tab->_on_place_order(eMTPA_OA_Buy); }));
    EXPECT_EQ((calls{"Profile(\"Alpha\").get_ManualTrading()", "ManualTrading(\"Alpha\").SetAccount(\"A1\")",
                     "Profile(\"Alpha\").get_ManualTrading()"}),
              host.calls());
    // The host's failure and the missing interface.
    EXPECT_EQ(2u, reported().size());
}

TEST_F(order, goes_out_although_the_account_was_refused) {
    select(eMTPA_OC_Market);
    fill_in();
    type(eODUE_FirstPrice, L"");
    type(eODUE_SecondPrice, L"");
    reset_record();
    host.fail("ManualTrading.SetAccount", E_ACCESSDENIED);
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ(sent("1, 1, 10, 0, 0, 1, date(45000.25)"), host.calls());
    EXPECT_EQ((std::vector<HRESULT>{E_ACCESSDENIED}), reported_codes());
}

TEST_F(order, that_the_host_refuses_is_reported_and_the_fields_stay) {
    select(eMTPA_OC_StopLimit);
    fill_in();
    const auto before = values();
    reset_record();
    host.fail("ManualTrading.PlaceOrder", E_ABORT);
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ((std::vector<HRESULT>{E_ABORT}), reported_codes());
    EXPECT_EQ(before, values());
    EXPECT_EQ(1, host.count("PlaceOrder"));
    EXPECT_TRUE(desktop.message_boxes().empty());
}

TEST_F(order, a_result_that_is_not_zero_is_reported_though_it_is_a_success) {
    select(eMTPA_OC_Market);
    host.fail("ManualTrading.PlaceOrder", S_FALSE);
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ((std::vector<HRESULT>{S_FALSE}), reported_codes());
}

TEST_F(order, names_an_empty_account_when_there_is_none) {
    profile->trading->accounts.clear();
    profile->fire_state(eTM_CC_Connected);
    select(eMTPA_OC_Market);
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ(1, host.count("ManualTrading(\"Alpha\").SetAccount(\"\")"));
    EXPECT_EQ(1, host.count("PlaceOrder"));
}

TEST_F(order, sends_no_symbol) {
    select(eMTPA_OC_Market);
    tab->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ(0, host.count(symbol_notice));
}

TEST_F(order, sends_nothing_more_for_a_tab_that_ends_inside_the_host) {
    select(eMTPA_OC_Market);
    host.on_call("ManualTrading.SetAccount", [this] { bar->RemoveAllTabs(); });
    CTab* const row = tab.get();
    tab.reset();
    row->_on_place_order(eMTPA_OA_Buy);
    EXPECT_EQ(1, host.count("SetAccount"));
    EXPECT_EQ(0, host.count("PlaceOrder"));
    EXPECT_EQ(1, host.count("Unadvise"));
}

TEST_F(order, survives_the_end_of_its_tab_behind_the_message) {
    select(eMTPA_OC_Stop);
    desktop.while_modal([this] { bar->RemoveAllTabs(); });
    CTab* const row = tab.get();
    tab.reset();
    row->_on_place_order(eMTPA_OA_Buy);
    expect_no_order();
    EXPECT_EQ(1, host.count("Unadvise"));
}

}  // namespace
}  // namespace OV_OrderDeck
