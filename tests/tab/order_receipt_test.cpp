// What a host gets of an order that asks what its user saw.
#include <gtest/gtest.h>

#include "platform/clock.h"
#include "tests/tab/press_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;

class set_clock final : public platform::clock {
public:
    SYSTEMTIME local_time() override { return platform::port<platform::clock>::system().local_time(); }
    DWORD tick_count() override { return ticks; }
    LONGLONG utc_milliseconds() override { return 1790000000123; }
    double milliseconds() override { return 0.0; }

    DWORD ticks = 5000;
};

class order_receipt : public test::press_fixture {
protected:
    order_receipt() {
        receiver = platform::make_com<test::FakeOrderSight>(host, L"Alpha");
        profile->trading->sight = receiver;
        select(eMTPA_OC_Limit, eMTPA_TIF_GTD);
        type(eODUE_Quantity, L"1500");
        type(eODUE_SecondPrice, L"101.25");
        field(eODUE_GtdDate).put_Value(_variant_t(45000.25, VT_DATE));
        reset_record();
    }

    set_clock clock;
    platform::port<platform::clock>::replacement clock_scope{clock};
    com_ptr<test::FakeOrderSight> receiver;
};

TEST_F(order_receipt, comes_right_before_the_order_and_its_result_right_after) {
    press(sight());
    const calls expected = {"Profile(\"Alpha\").get_ManualTrading()",
                            "ManualTrading(\"Alpha\").SetAccount(\"A1\")",
                            "Profile(\"Alpha\").get_ManualTrading()",
                            "OrderSight(\"Alpha\").BeforeOrder(program, 1, 3, 1500, 0, 101.25, 3)",
                            "ManualTrading(\"Alpha\").PlaceOrder(1, 3, 1500, 0, 101.25, 3, date(45000.25))",
                            "OrderSight(\"Alpha\").AfterOrder(0)"};
    EXPECT_EQ(expected, host.calls());
    EXPECT_EQ(receiver->before[0].record.Number, receiver->after[0].first);
}

TEST_F(order_receipt, has_the_texts_as_they_were_shown) {
    CRowSight seen = sight();
    seen[eODUE_SecondPrice].text = L" 101.250 ";
    seen[eODUE_GtdDate].text = L"2023/3/15";
    ASSERT_TRUE(press(seen).empty());
    const auto& told = receiver->before.at(0);
    EXPECT_EQ(L"ESZ6", told.symbol);
    EXPECT_EQ(L"限價單", told.order_type);
    EXPECT_EQ(L"1.5K", told.quantity);
    EXPECT_EQ(std::nullopt, told.stop_price) << "the trigger was not shown";
    EXPECT_EQ(L" 101.250 ", told.limit_price);
    EXPECT_EQ(L"A1", told.account_shown);
    EXPECT_EQ(L"GTD(到期前有效)", told.time_in_force);
    EXPECT_EQ(L"2023/3/15", told.date);
    EXPECT_EQ(L"買進 限價\n1,500", told.button);
}

TEST_F(order_receipt, has_the_values_as_they_are_sent) {
    press(sight());
    const auto& told = receiver->before.at(0);
    EXPECT_EQ(L"A1", told.account);
    EXPECT_EQ(L"ESZ6", told.symbol_name);
    EXPECT_EQ(3, told.record.Symbol.Category);
    EXPECT_EQ(45000.25, told.record.GtdDate);
    EXPECT_EQ(1790000000123, told.record.Milliseconds);
}

TEST_F(order_receipt, tells_who_pressed) {
    for (const EPressSource source : {EPressSource::Mouse, EPressSource::Key, EPressSource::Program}) {
        CRowSight seen = sight();
        seen.source = source;
        press(seen);
        EXPECT_EQ(static_cast<LONG>(source), static_cast<LONG>(receiver->before.back().record.Source));
    }
}

TEST_F(order_receipt, has_the_quotes_and_their_age) {
    profile->fire_quote(101.0, 101.5);
    clock.ticks += 750;
    press(sight());
    const SOrderSight& told = receiver->before.at(0).record;
    EXPECT_EQ(101.0, told.Bid);
    EXPECT_EQ(101.5, told.Ask);
    EXPECT_EQ(750, told.QuoteAge);
}

TEST_F(order_receipt, has_no_quotes_when_there_are_none) {
    press(sight());
    const SOrderSight& told = receiver->before.at(0).record;
    EXPECT_EQ(0.0, told.Bid);
    EXPECT_EQ(0.0, told.Ask);
    EXPECT_EQ(-1, told.QuoteAge);
}

TEST_F(order_receipt, has_a_number_of_its_own) {
    press(sight());
    press(sight(), eODUE_Sell);
    ASSERT_EQ(2U, receiver->before.size());
    EXPECT_LT(receiver->before[0].record.Number, receiver->before[1].record.Number);
}

TEST_F(order_receipt, lets_the_host_say_no_without_a_report) {
    host.fail("OrderSight.BeforeOrder", S_FALSE);
    EXPECT_TRUE(press(sight()).empty());
    EXPECT_EQ(0, orders());
    EXPECT_EQ(0, host.count("AfterOrder"));
    EXPECT_TRUE(reported().empty());
}

TEST_F(order_receipt, reports_a_failure_and_sends_nothing) {
    host.fail("OrderSight.BeforeOrder", E_ABORT);
    EXPECT_TRUE(press(sight()).empty());
    EXPECT_EQ(0, orders());
    EXPECT_EQ(0, host.count("AfterOrder"));
    EXPECT_EQ((std::vector<std::wstring>{L"BeforeOrder"}), reported());
    EXPECT_EQ((std::vector<HRESULT>{E_ABORT}), reported_codes());
}

TEST_F(order_receipt, tells_of_an_order_that_the_host_changed_inside_it) {
    host.on_call("OrderSight.BeforeOrder", [this] { type(eODUE_Quantity, L"7"); });
    const row_differences differences = press(sight());
    ASSERT_EQ(1U, differences.size());
    EXPECT_EQ(eODUE_Quantity, differences[0].entity);
    EXPECT_EQ(0, orders());
    ASSERT_EQ(1U, receiver->after.size());
    EXPECT_EQ(E_ABORT, receiver->after[0].second);
}

TEST_F(order_receipt, hands_on_the_result_of_the_order) {
    host.fail("ManualTrading.PlaceOrder", E_ACCESSDENIED);
    press(sight());
    EXPECT_EQ(E_ACCESSDENIED, receiver->after.at(0).second);
}

TEST_F(order_receipt, is_asked_for_once_per_profile) {
    press(sight());
    profile->trading->sight = nullptr;
    press(sight());
    EXPECT_EQ(2U, receiver->before.size());
}

TEST_F(order_receipt, is_nothing_to_a_host_without_it) {
    profile->trading->sight = nullptr;
    press(sight());
    EXPECT_EQ(0, host.count("OrderSight"));
    EXPECT_EQ(1, orders());
}

TEST_F(order_receipt, is_nothing_to_a_host_that_fails_when_asked_for_it) {
    profile->trading->sight = nullptr;
    profile->trading->sight_result = E_NOTIMPL;
    EXPECT_TRUE(press(sight()).empty());
    EXPECT_EQ(1, orders());
    EXPECT_TRUE(reported().empty());
}

}  // namespace
}  // namespace OV_OrderDeck
