// The order type: four fixed items, and what a pick does to the row.
#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"

#include "tests/fields/fields_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;

class order_type_field : public test::fields_fixture {
protected:
    const calls reload_of(int category) const {
        return {"Profile(\"Alpha\").get_ManualTrading()",
                "ManualTrading(\"Alpha\").GetTimeInForces(" + std::to_string(category) + ")",
                "TabCtrl.Update(1, 0x32c00)"};
    }
};

TEST_F(order_type_field, lists_stop_before_limit_and_starts_at_market) {
    make_tab();
    const std::vector<std::pair<LONG, CString>> expected = {
        {1, L"市價單"}, {2, L"停止單"}, {3, L"限價單"}, {4, L"停止限價單"}};
    EXPECT_EQ(expected, items(order_type()));
    EXPECT_EQ(1, order_type().get_SelectedItem(nullptr));
    EXPECT_EQ(eMTPA_OC_Market, order_type().get_OrderType());
    EXPECT_TRUE(reported().empty());
}

TEST_F(order_type_field, a_real_change_clears_both_prices_reloads_the_times_in_force_and_tells_the_bar) {
    make_ready_tab();
    fill_in();
    order_type().Select(4);
    EXPECT_EQ(eMTPA_OC_StopLimit, order_type().get_OrderType());
    EXPECT_TRUE(first().IsEmpty());
    EXPECT_TRUE(second().IsEmpty());
    EXPECT_EQ(L"", value_text(first()));
    EXPECT_EQ(L"", value_text(second()));
    EXPECT_EQ(reload_of(4), host.calls());
    EXPECT_TRUE(reported().empty());
}

TEST_F(order_type_field, picking_the_selected_one_again_does_nothing) {
    make_ready_tab();
    order_type().Select(3);
    fill_in();
    order_type().Select(3);
    EXPECT_EQ(L"90", value_text(first()));
    EXPECT_EQ(L"101.25", value_text(second()));
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(order_type_field, picking_the_selected_one_again_is_no_fault_while_disabled) {
    make_ready_tab();
    order_type().put_Enabled(false);
    order_type().Select(1);
    EXPECT_TRUE(reported().empty());
}

TEST_F(order_type_field, each_change_reloads_even_when_the_lists_are_equal) {
    make_ready_tab();
    order_type().Select(2);
    order_type().Select(3);
    order_type().Select(2);
    EXPECT_EQ(3, host.count("GetTimeInForces"));
    EXPECT_EQ(2, host.count("GetTimeInForces(2)"));
    EXPECT_EQ(1, host.count("GetTimeInForces(3)"));
}

TEST_F(order_type_field, a_key_that_the_list_refuses_clears_the_prices_all_the_same) {
    make_ready_tab();
    fill_in();
    order_type().Select(5);
    EXPECT_EQ(1, order_type().get_SelectedItem(nullptr));
    EXPECT_EQ(L"", value_text(first()));
    EXPECT_EQ(L"", value_text(second()));
    EXPECT_EQ(reload_of(1), host.calls());
    EXPECT_EQ((std::vector<std::wstring>{L"_it != m_items.end()"}), reported());
}

TEST_F(order_type_field, a_pick_while_disabled_clears_the_prices_all_the_same) {
    make_ready_tab();
    fill_in();
    order_type().put_Enabled(false);
    order_type().Select(2);
    EXPECT_EQ(1, order_type().get_SelectedItem(nullptr));
    EXPECT_TRUE(first().IsEmpty());
    EXPECT_EQ(reload_of(1), host.calls());
    EXPECT_EQ((std::vector<std::wstring>{L"m_bEnabled"}), reported());
}

TEST_F(order_type_field, none_selected_is_no_order_type) {
    make_ready_tab();
    order_type().Reset();
    EXPECT_EQ(E_FAIL, raised_by([&] { order_type().get_OrderType(); }));
    EXPECT_EQ(1u, reported().size());
}

TEST_F(order_type_field, shows_and_hides_the_prices_at_once) {
    make_ready_tab();
    const struct {
        LONG category;
        bool first_hidden, second_hidden;
    } rows[] = {{1, true, true}, {2, false, true}, {3, true, false}, {4, false, false}};
    for (const auto& row : rows) {
        order_type().Select(row.category);
        EXPECT_EQ(row.first_hidden, first().get_Hidden()) << row.category;
        EXPECT_EQ(row.second_hidden, second().get_Hidden()) << row.category;
    }
    EXPECT_TRUE(reported().empty());
}

TEST_F(order_type_field, without_one_both_prices_hide_and_nothing_is_raised) {
    make_ready_tab();
    order_type().Select(4);
    order_type().Reset();
    reset_record();
    EXPECT_TRUE(first().get_Hidden());
    EXPECT_TRUE(second().get_Hidden());
    EXPECT_TRUE(reported().empty());
}

}  // namespace
}  // namespace OV_OrderDeck
