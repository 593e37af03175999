// The ask/bid field: the last quotes, and a picked one on its way into the prices.
#include "charting/orderdeck/src/tab/Controls/AskBidButton.h"

#include <limits>

#include "tests/fields/fields_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;

constexpr double none = std::numeric_limits<double>::max();

class ask_bid_field : public test::fields_fixture {
protected:
    ask_bid_field() { make_ready_tab(); }

    void pick(double quote) { ask_bid().put_Value(_variant_t(quote)); }
};

TEST_F(ask_bid_field, starts_without_quotes) {
    EXPECT_EQ(none, ask_bid().get_Ask());
    EXPECT_EQ(none, ask_bid().get_Bid());
    EXPECT_TRUE(ask_bid().IsEmpty());
}

TEST_F(ask_bid_field, shows_what_the_last_event_said) {
    profile->fire_quote(100.25, 100.5);
    EXPECT_EQ(100.5, ask_bid().get_Ask());
    EXPECT_EQ(100.25, ask_bid().get_Bid());
    EXPECT_FALSE(ask_bid().IsEmpty());
    profile->fire_quote(100.5, 100.25);
    EXPECT_EQ(none, ask_bid().get_Ask());
    EXPECT_EQ(none, ask_bid().get_Bid());
    EXPECT_TRUE(ask_bid().IsEmpty());
}

TEST_F(ask_bid_field, either_missing_quote_makes_it_empty) {
    ask_bid().SetQuotes(none, 1.0);
    EXPECT_TRUE(ask_bid().IsEmpty());
    ask_bid().SetQuotes(1.0, none);
    EXPECT_TRUE(ask_bid().IsEmpty());
    ask_bid().SetQuotes(1.0, 1.0);
    EXPECT_FALSE(ask_bid().IsEmpty());
}

TEST_F(ask_bid_field, quotes_never_reach_the_prices_by_themselves) {
    profile->fire_quote(100.25, 100.5);
    EXPECT_TRUE(first().IsEmpty());
    EXPECT_TRUE(second().IsEmpty());
}

TEST_F(ask_bid_field, a_picked_quote_goes_into_both_prices_hidden_ones_too) {
    ASSERT_TRUE(first().get_Hidden() && second().get_Hidden());
    pick(100.5);
    EXPECT_EQ(100.5, first().get_Price());
    EXPECT_EQ(100.5, second().get_Price());
    EXPECT_EQ((calls{"TabCtrl.Update(1, 0xc00)"}), host.calls());
}

TEST_F(ask_bid_field, a_picked_quote_is_limited_to_the_range_of_prices) {
    pick(300000.0);
    EXPECT_EQ(250000.0, first().get_Price());
    EXPECT_EQ(250000.0, second().get_Price());
    pick(-3.0);
    EXPECT_EQ(0.01, first().get_Price());
    EXPECT_EQ(0.01, second().get_Price());
}

TEST_F(ask_bid_field, a_picked_quote_off_the_grid_keeps_its_value) {
    const number_locale_scope conventions(english());
    pick(100.504);
    EXPECT_EQ(100.504, first().get_Price());
    EXPECT_EQ(L"100.50", value_text(first()));
}

TEST_F(ask_bid_field, takes_doubles_alone) {
    _variant_t nothing;
    _variant_t text(L"100.5");
    _variant_t number(100L);
    _variant_t single(100.5f);
    std::size_t reports = 0;
    for (const _variant_t* wrong : {&nothing, &text, &number, &single}) {
        EXPECT_NE(S_OK, raised_by([&] { ask_bid().put_Value(*wrong); })) << V_VT(wrong);
        EXPECT_EQ(++reports, reported().size());
    }
    EXPECT_TRUE(first().IsEmpty());
    EXPECT_EQ(calls{}, host.calls());
}

// Lets a test see the field's own wish, which quotes that are not there hide.
struct loose_quotes : CAskBidButton {
    static bool wish(CAskBidButton& field) { return field.*&loose_quotes::m_bEnabled; }
};

TEST_F(ask_bid_field, wants_to_be_used_exactly_while_there_are_quotes) {
    const std::function<void()> ends[] = {[&] { profile->fire_quote(100.5, 100.25); },
                                          [&] { put_symbol(L"NQZ6"); },
                                          [&] { symbol_field().LookupByText(L"", false, true); },
                                          [&] { profile->fire_state(eTM_CC_Disconnected); }};
    for (const auto& end : ends) {
        profile->fire_quote(100.25, 100.5);
        EXPECT_TRUE(loose_quotes::wish(ask_bid()));
        end();
        EXPECT_FALSE(loose_quotes::wish(ask_bid()));
    }
}

TEST_F(ask_bid_field, is_usable_from_the_first_quotes_until_they_go) {
    EXPECT_FALSE(ask_bid().get_Enabled());
    profile->fire_quote(100.25, 100.5);
    EXPECT_TRUE(ask_bid().get_Enabled());
    profile->fire_quote(0.0, 100.5);
    EXPECT_FALSE(ask_bid().get_Enabled());
    profile->fire_quote(100.25, 100.25);
    EXPECT_TRUE(ask_bid().get_Enabled());
    put_symbol(L"NQZ6");
    EXPECT_FALSE(ask_bid().get_Enabled());
}

}  // namespace
}  // namespace OV_OrderDeck
