// What the screen shows at the press is what goes out, or nothing goes.
#include <gtest/gtest.h>

#include "charting/orderdeck/src/tab/Controls/PriceEdit.h"
#include "tests/support/number_locale_scope.h"
#include "tests/tab/press_fixture.h"

namespace OV_OrderDeck {
namespace {

using Kind = SRowDifference::Kind;

class order_gate : public test::press_fixture {
protected:
    // One difference, and neither an order nor any other call to the host.
    void expect_stopped(const row_differences& differences, OD_UpdateEntity entity, Kind kind,
                        const wchar_t* sentence) {
        ASSERT_EQ(1U, differences.size());
        EXPECT_EQ(entity, differences[0].entity);
        EXPECT_EQ(kind, differences[0].kind);
        EXPECT_EQ(sentence, TextOfDifferences(differences));
        EXPECT_EQ(0, host.count("ManualTrading"));
        EXPECT_EQ(std::vector<std::wstring>{L"Order not sent: " + std::wstring(sentence)}, recorder.traces());
        EXPECT_TRUE(reported().empty());
        EXPECT_TRUE(desktop.message_boxes().empty());
    }
};

TEST_F(order_gate, lets_an_order_through_that_reads_as_it_is_sent) {
    select(eMTPA_OC_StopLimit, eMTPA_TIF_GTD);
    fill_in();
    EXPECT_TRUE(press(sight(), eODUE_Sell).empty());
    EXPECT_EQ(1, host.count("PlaceOrder(2, 4, 10, 90, 101.25, 3, date(45000.25))"));
}

TEST_F(order_gate, stops_a_symbol_that_is_shown_otherwise) {
    select(eMTPA_OC_Market);
    expect_stopped(press_showing(eODUE_Symbol, L"zzzz"), eODUE_Symbol, Kind::Other,
                   L"商品 zzzz → ESZ6, 請再按一次");
}

TEST_F(order_gate, takes_the_case_of_a_symbol_as_it_is) {
    select(eMTPA_OC_Market);
    expect_stopped(press_showing(eODUE_Symbol, L"esz6"), eODUE_Symbol, Kind::Other,
                   L"商品 esz6 → ESZ6, 請再按一次");
}

TEST_F(order_gate, tells_an_erased_symbol_in_words) {
    select(eMTPA_OC_Market);
    expect_stopped(press_showing(eODUE_Symbol, L""), eODUE_Symbol, Kind::Other,
                   L"商品 (空白) → ESZ6, 請再按一次");
}

TEST_F(order_gate, stops_a_quantity_that_reads_as_another) {
    select(eMTPA_OC_Market);
    type(eODUE_Quantity, L"100");
    CRowSight seen = sight();
    seen[eODUE_Quantity].text = L"1";
    reset_record();
    expect_stopped(press(seen), eODUE_Quantity, Kind::Other, L"數量 1 → 100, 請再按一次");
}

TEST_F(order_gate, stops_an_empty_quantity_though_the_field_still_has_one) {
    select(eMTPA_OC_Market);
    expect_stopped(press_showing(eODUE_Quantity, L""), eODUE_Quantity, Kind::Unreadable,
                   L"數量 (空白) 無法確定數值, 請更正後再按一次");
}

TEST_F(order_gate, reads_the_abbreviated_form_of_a_quantity) {
    select(eMTPA_OC_Market);
    type(eODUE_Quantity, L"1500");
    EXPECT_EQ(L"1.5K", sight()[eODUE_Quantity].text);
    EXPECT_TRUE(press(sight()).empty());
    EXPECT_EQ(1, host.count("PlaceOrder(1, 1, 1500,"));
}

TEST_F(order_gate, stops_a_quantity_out_of_range_that_the_field_did_not_take) {
    select(eMTPA_OC_Market);
    expect_stopped(press_showing(eODUE_Quantity, L"0"), eODUE_Quantity, Kind::Other,
                   L"數量 0 → 1, 請再按一次");
}

TEST_F(order_gate, stops_a_price_that_a_person_reads_otherwise_than_it_is_parsed) {
    const number_locale_scope english_numbers(english());
    select(eMTPA_OC_Limit);
    type(eODUE_SecondPrice, L"6010,5");
    ASSERT_EQ(60105.0, tab->get_Controls().m_pSecondPrice->get_Price());
    reset_record();
    expect_stopped(press(sight()), eODUE_SecondPrice, Kind::Unreadable,
                   L"委託價 6010,5 無法確定數值, 請更正後再按一次");
}

TEST_F(order_gate, stops_a_price_whose_text_is_rounded) {
    select(eMTPA_OC_Limit);
    auto& price = *tab->get_Controls().m_pSecondPrice;
    // A picked quote off the grid: the text is snapped, the value is not.
    price._set_value(101.256);
    ASSERT_EQ(L"101.26", text(eODUE_SecondPrice));
    reset_record();
    expect_stopped(press(sight()), eODUE_SecondPrice, Kind::Other, L"委託價 101.26 → 101.256, 請再按一次");
}

TEST_F(order_gate, forgives_what_calculating_leaves_in_the_last_places) {
    select(eMTPA_OC_Limit);
    tab->get_Controls().m_pSecondPrice->_set_value(0.1 * 3.0);
    ASSERT_EQ(L"0.30", text(eODUE_SecondPrice));
    EXPECT_TRUE(press(sight()).empty());
    EXPECT_EQ(1, orders());
}

TEST_F(order_gate, does_not_count_a_hidden_price) {
    select(eMTPA_OC_Market);
    tab->_apply_price(101.256);
    EXPECT_TRUE(press(sight()).empty());
    EXPECT_EQ(1, host.count("PlaceOrder(1, 1, 1, 101.256, 101.256,"));
}

TEST_F(order_gate, wants_a_needed_price_on_the_screen) {
    select(eMTPA_OC_Limit);
    tab->_apply_price(101.25);
    CRowSight seen = sight();
    seen[eODUE_SecondPrice] = {L"", false, true};
    reset_record();
    expect_stopped(press(seen), eODUE_SecondPrice, Kind::Other, L"委託價 (未顯示) → 101.25, 請再按一次");
}

TEST_F(order_gate, stops_an_order_type_that_is_shown_otherwise) {
    select(eMTPA_OC_Market);
    expect_stopped(press_showing(eODUE_OrderType, L"限價單"), eODUE_OrderType, Kind::Other,
                   L"委託類型 限價單 → 市價單, 請再按一次");
}

TEST_F(order_gate, stops_an_account_that_is_shown_otherwise) {
    select(eMTPA_OC_Market);
    expect_stopped(press_showing(eODUE_Account, L"A2"), eODUE_Account, Kind::Other,
                   L"帳戶 A2 → A1, 請再按一次");
}

TEST_F(order_gate, takes_no_account_for_no_account) {
    profile->trading->accounts.clear();
    profile->fire_state(eTM_CC_Connected);
    select(eMTPA_OC_Market);
    EXPECT_TRUE(press(sight()).empty());
    EXPECT_EQ(1, orders());
}

TEST_F(order_gate, stops_a_time_in_force_that_the_list_no_longer_shows) {
    // Five codes keep a selected 3 though it is none of them; the box is empty then.
    select(eMTPA_OC_Market, eMTPA_TIF_GTD);
    profile->trading->times_in_force[1] = {1, 2, 4, 5, 6};
    profile->fire_state(eTM_CC_Connected);
    CRowSight seen = sight();
    ASSERT_EQ(L"", seen[eODUE_TimeInForce].text);
    ASSERT_EQ(3, field(eODUE_TimeInForce).get_SelectedItem(nullptr));
    reset_record();
    expect_stopped(press(seen), eODUE_TimeInForce, Kind::Unreadable,
                   L"有效期限 (空白) 無法確定數值, 請更正後再按一次");
}

TEST_F(order_gate, stops_a_date_of_another_day) {
    select(eMTPA_OC_Market, eMTPA_TIF_GTD);
    fill_in();
    CRowSight seen = sight();
    // 45001 is 2023-03-16.
    seen.day = 45001;
    expect_stopped(press(seen), eODUE_GtdDate, Kind::Other, L"到期日 2023/3/16 → 2023/3/15, 請再按一次");
}

TEST_F(order_gate, takes_no_notice_of_a_hidden_date) {
    select(eMTPA_OC_Market, eMTPA_TIF_Day);
    CRowSight seen = sight();
    seen.day = 1;
    EXPECT_TRUE(press(seen).empty());
    EXPECT_EQ(1, orders());
}

TEST_F(order_gate, wants_the_date_of_a_good_till_date_order_on_the_screen) {
    select(eMTPA_OC_Market, eMTPA_TIF_GTD);
    fill_in();
    CRowSight seen = sight();
    seen[eODUE_GtdDate].shown = false;
    expect_stopped(press(seen), eODUE_GtdDate, Kind::Other, L"到期日 (未顯示) → 2023/3/15, 請再按一次");
}

TEST_F(order_gate, stops_a_caption_that_tells_another_order) {
    select(eMTPA_OC_Market);
    expect_stopped(press_showing(eODUE_Buy, L"買進 市價\n5"), eODUE_Buy, Kind::Other,
                   L"買進 買進 市價 5 → 買進 市價 1, 請再按一次");
}

TEST_F(order_gate, does_not_look_at_the_other_button_or_the_quotes) {
    select(eMTPA_OC_Market);
    CRowSight seen = sight();
    seen[eODUE_Sell].text = L"?";
    seen[eODUE_AskBid].text = L"?";
    EXPECT_TRUE(press(seen).empty());
    EXPECT_EQ(1, orders());
}

TEST_F(order_gate, tells_all_that_differs_in_one_sentence) {
    select(eMTPA_OC_Limit);
    type(eODUE_SecondPrice, L"101");
    CRowSight seen = sight();
    seen[eODUE_Symbol].text = L"zz";
    seen[eODUE_SecondPrice].text = L"1e2";
    const row_differences differences = press(seen);
    EXPECT_EQ(L"商品 zz → ESZ6、委託價 1e2 無法確定數值, 請更正後再按一次", TextOfDifferences(differences));
    EXPECT_EQ(0, orders());
}

TEST_F(order_gate, sends_at_the_second_press_when_the_row_then_shows_it) {
    select(eMTPA_OC_Market);
    type(eODUE_Quantity, L"100");
    EXPECT_FALSE(press_showing(eODUE_Quantity, L"1").empty());
    EXPECT_TRUE(press(sight()).empty());
    EXPECT_EQ(1, host.count("PlaceOrder(1, 1, 100,"));
}

TEST_F(order_gate, begins_no_press_on_a_button_that_can_not_be_used) {
    select(eMTPA_OC_Market);
    CRowSight seen = sight();
    seen[eODUE_Buy].enabled = false;
    expect_stopped(press(seen), eODUE_Buy, Kind::Unusable, L"目前無法下單");
}

TEST_F(order_gate, looks_at_the_button_again_after_the_symbol_has_gone) {
    select(eMTPA_OC_Market);
    const CRowSight seen = sight();
    symbol_field().LookupByText(L"", false, true);
    reset_record();
    expect_stopped(press(seen), eODUE_Symbol, Kind::NoSymbol, L"請先選擇商品");
}

TEST_F(order_gate, looks_at_the_button_again_after_the_connection_has_gone) {
    select(eMTPA_OC_Market);
    const CRowSight seen = sight();
    profile->fire_state(eTM_CC_Disconnected);
    reset_record();
    expect_stopped(press(seen), eODUE_Buy, Kind::Unusable, L"目前無法下單");
}

TEST_F(order_gate, checks_a_missing_price_with_its_message_first) {
    select(eMTPA_OC_Limit);
    EXPECT_TRUE(press_showing(eODUE_Symbol, L"zzzz").empty());
    ASSERT_EQ(1U, desktop.message_boxes().size());
    EXPECT_EQ(0, orders());
}

}  // namespace
}  // namespace OV_OrderDeck
