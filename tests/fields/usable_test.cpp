// When the user may use a field: every combination of what it depends on.
#include "charting/orderdeck/src/tab/Controls/Usable.h"

#include "tests/fields/fields_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;

class usable_fields : public test::fields_fixture {
protected:
    void make_tab_in(ETM_ConnectionChanged state, bool with_symbol) {
        profile->state = state;
        make_tab();
        profile->fire_state(state);
        if (with_symbol) {
            put_symbol(L"ESZ6");
        }
        reset_record();
    }
    // Puts the same wish on every field.
    void put_all(bool wish) {
        symbol_field().put_Enabled(wish);
        order_type().put_Enabled(wish);
        quantity().put_Enabled(wish);
        first().put_Enabled(wish);
        second().put_Enabled(wish);
        account().put_Enabled(wish);
        time_in_force().put_Enabled(wish);
        date().put_Enabled(wish);
        ask_bid().put_Enabled(wish);
        buy().put_Enabled(wish);
        sell().put_Enabled(wish);
    }
    unsigned usable() {
        unsigned mask = 0;
        for (unsigned bit = eODUE_Symbol; bit <= eODUE_Sell; bit <<= 1) {
            mask |= field(static_cast<OD_UpdateEntity>(bit)).get_Enabled() ? bit : 0;
        }
        return mask;
    }
    void show_all() {
        order_type().Select(4);
        time_in_force().Select(3);
        ask_bid().SetQuotes(2.0, 1.0);
        reset_record();
    }
};

constexpr unsigned always_shown = eODUE_Symbol | eODUE_OrderType | eODUE_TimeInForce | eODUE_Account |
                                  eODUE_Quantity | eODUE_Buy | eODUE_Sell;

TEST_F(usable_fields, connected_with_a_symbol_and_all_shown_each_field_is_usable) {
    make_tab_in(eTM_CC_Connected, true);
    show_all();
    EXPECT_EQ(UpdateMask::AllFields, usable());
    EXPECT_EQ(calls{}, host.calls()) << "the last known state is enough";
    EXPECT_TRUE(reported().empty());
}

TEST_F(usable_fields, in_no_other_state_is_anything_but_the_symbol) {
    for (const LONG state : {256, 512, 0, 769, 1023, 0x400, -1}) {
        make_tab_in(ETM_ConnectionChanged{state}, true);
        show_all();
        EXPECT_EQ(static_cast<unsigned>(eODUE_Symbol), usable()) << state;
    }
}

TEST_F(usable_fields, without_a_symbol_nothing_else_is_usable) {
    make_tab_in(eTM_CC_Connected, false);
    show_all();
    EXPECT_EQ(static_cast<unsigned>(eODUE_Symbol), usable());
}

TEST_F(usable_fields, a_fields_own_wish_comes_first) {
    make_tab_in(eTM_CC_Connected, true);
    show_all();
    put_all(false);
    EXPECT_EQ(0u, usable());
    put_all(true);
    EXPECT_EQ(UpdateMask::AllFields, usable());
}

TEST_F(usable_fields, one_fields_wish_is_its_own) {
    make_tab_in(eTM_CC_Connected, true);
    show_all();
    first().put_Enabled(false);
    EXPECT_EQ(UpdateMask::AllFields & ~eODUE_FirstPrice, usable());
    sell().put_Enabled(false);
    EXPECT_EQ(UpdateMask::AllFields & ~(eODUE_FirstPrice | eODUE_Sell), usable());
}

TEST_F(usable_fields, hidden_fields_are_not_usable) {
    make_tab_in(eTM_CC_Connected, true);
    ask_bid().SetQuotes(2.0, 1.0);
    const struct {
        LONG category;
        unsigned prices;
    } rows[] = {{1, 0}, {2, eODUE_FirstPrice}, {3, eODUE_SecondPrice}, {4, UpdateMask::Prices}};
    for (const auto& row : rows) {
        order_type().Select(row.category);
        EXPECT_EQ(always_shown | eODUE_AskBid | row.prices, usable()) << row.category;
        time_in_force().Select(3);
        EXPECT_EQ(always_shown | eODUE_AskBid | eODUE_GtdDate | row.prices, usable()) << row.category;
        time_in_force().Select(1);
    }
}

TEST_F(usable_fields, without_quotes_the_ask_bid_field_is_not_usable) {
    make_tab_in(eTM_CC_Connected, true);
    EXPECT_EQ(always_shown, usable());
    put_all(true);
    EXPECT_EQ(always_shown, usable());
}

TEST_F(usable_fields, follow_each_change_of_the_connection_at_once) {
    make_tab_in(eTM_CC_Connected, true);
    EXPECT_TRUE(buy().get_Enabled());
    profile->fire_state(eTM_CC_Connecting);
    EXPECT_FALSE(buy().get_Enabled());
    profile->fire_state(eTM_CC_Connected);
    EXPECT_TRUE(buy().get_Enabled());
    profile->fire_state(eTM_CC_Disconnected);
    EXPECT_FALSE(buy().get_Enabled());
}

}  // namespace
}  // namespace OV_OrderDeck
