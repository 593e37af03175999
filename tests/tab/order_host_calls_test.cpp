// The order is put together before the host is called, and looked at again after each of its calls.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/tab/press_fixture.h"

namespace OV_OrderDeck {
namespace {

using Kind = SRowDifference::Kind;
using test::calls;

class order_host_calls : public test::press_fixture {
protected:
    order_host_calls() {
        select(eMTPA_OC_Limit);
        type(eODUE_SecondPrice, L"101.25");
        reset_record();
    }

    // Presses Buy while the host does something inside SetAccount.
    row_differences press_while(std::function<void()> action) {
        host.on_call("ManualTrading.SetAccount", std::move(action));
        return press(sight());
    }
    void expect_changed(const row_differences& differences, std::vector<OD_UpdateEntity> entities) {
        std::vector<OD_UpdateEntity> changed;
        for (const SRowDifference& each : differences) {
            EXPECT_EQ(Kind::ByHost, each.kind);
            changed.push_back(each.entity);
        }
        EXPECT_EQ(entities, changed);
        EXPECT_EQ(1, host.count("SetAccount"));
        EXPECT_EQ(0, orders());
    }
};

TEST_F(order_host_calls, send_nothing_more_after_the_host_cleared_the_price) {
    const row_differences differences = press_while([this] { profile->fire_state(eTM_CC_Connected); });
    expect_changed(differences, {eODUE_SecondPrice});
    EXPECT_EQ(L"送出前已變更: 委託價, 請確認後再按一次", TextOfDifferences(differences));
}

TEST_F(order_host_calls, send_nothing_more_after_a_new_symbol) {
    expect_changed(press_while([this] { put_symbol(L"NQZ6"); }), {eODUE_Symbol, eODUE_SecondPrice});
}

TEST_F(order_host_calls, tell_a_symbol_before_an_order_that_is_pressed_while_it_comes) {
    select(eMTPA_OC_Market);
    host.on_call("ManualTrading.GetAccounts", [this] {
        host.forget_faults();
        press(sight());
    });
    put_symbol(L"NQZ6");
    const calls all = host.calls();
    const auto place = [&all](const char* part) {
        return std::find_if(
                   all.begin(), all.end(),
                   [part](const std::string& call) { return call.find(part) != std::string::npos; }) -
               all.begin();
    };
    ASSERT_EQ(1, orders());
    EXPECT_LT(place("SetSymbol(\"NQZ6\""), place("PlaceOrder("));
}

TEST_F(order_host_calls, send_nothing_more_after_another_account) {
    expect_changed(press_while([this] {
                       host.forget_faults();
                       field(eODUE_Account).Select(1);
                   }),
                   {eODUE_Account});
}

TEST_F(order_host_calls, send_nothing_more_after_another_quantity) {
    expect_changed(press_while([this] { type(eODUE_Quantity, L"7"); }), {eODUE_Quantity});
}

TEST_F(order_host_calls, send_nothing_more_after_another_time_in_force) {
    expect_changed(press_while([this] { field(eODUE_TimeInForce).Select(eMTPA_TIF_GTC); }),
                   {eODUE_TimeInForce});
}

TEST_F(order_host_calls, send_nothing_more_after_another_order_type) {
    expect_changed(press_while([this] { field(eODUE_OrderType).Select(eMTPA_OC_Market); }),
                   {eODUE_OrderType, eODUE_SecondPrice});
}

TEST_F(order_host_calls, send_nothing_more_after_another_date) {
    expect_changed(press_while([this] { field(eODUE_GtdDate).put_Value(_variant_t(45000.0, VT_DATE)); }),
                   {eODUE_GtdDate});
}

TEST_F(order_host_calls, send_nothing_more_after_the_connection_went) {
    const row_differences differences = press_while([this] { profile->fire_state(eTM_CC_Disconnected); });
    ASSERT_EQ(1U, differences.size());
    EXPECT_EQ(Kind::Unusable, differences[0].kind);
    EXPECT_EQ(0, orders());
}

TEST_F(order_host_calls, do_not_mind_a_quote) {
    EXPECT_TRUE(press_while([this] { profile->fire_quote(100.0, 101.0); }).empty());
    EXPECT_EQ(1, orders());
}

TEST_F(order_host_calls, take_no_press_inside_a_press) {
    row_differences inner;
    const row_differences outer = press_while([this, &inner] {
        host.forget_faults();
        inner = press(sight());
    });
    EXPECT_TRUE(outer.empty());
    ASSERT_EQ(1U, inner.size());
    EXPECT_EQ(Kind::UnderWay, inner[0].kind);
    EXPECT_EQ(L"前一筆委託仍在處理中", TextOfDifferences(inner));
    EXPECT_EQ(1, orders());
}

TEST_F(order_host_calls, take_the_next_press_after_one_that_failed) {
    field(eODUE_TimeInForce).Select(eMTPA_TIF_GTD);
    field(eODUE_GtdDate).put_Value(_variant_t(2.0, VT_DATE));
    EXPECT_EQ(E_FAIL, test::raised_by([this] { press(sight()); }));
    field(eODUE_TimeInForce).Select(eMTPA_TIF_Day);
    EXPECT_TRUE(press(sight()).empty());
    EXPECT_EQ(1, orders());
}

class refused_symbol : public test::press_fixture {
protected:
    // The host refuses the next symbol, and goes on refusing it as often as told.
    void refuse(const wchar_t* name, int more = 0) {
        host.fail("ManualTrading.SetSymbol", E_ABORT, more == 0 ? 1 : 0);
        put_symbol(name);
        select(eMTPA_OC_Market);
    }
};

TEST_F(refused_symbol, is_told_again_before_the_next_order) {
    refuse(L"NQZ6");
    EXPECT_TRUE(press(sight()).empty());
    const calls seen = host.calls();
    const auto at = [&seen](const char* part) {
        return std::find_if(
                   seen.begin(), seen.end(),
                   [part](const std::string& call) { return call.find(part) != std::string::npos; }) -
               seen.begin();
    };
    EXPECT_LT(at("SetSymbol"), at("SetAccount"));
    EXPECT_LT(at("SetAccount"), at("PlaceOrder"));
    EXPECT_EQ(1, host.count("SetSymbol"));
    EXPECT_EQ(1, orders());
}

TEST_F(refused_symbol, stops_the_order_with_a_message_while_it_is_refused) {
    refuse(L"NQZ6", 1);
    EXPECT_TRUE(press(sight()).empty());
    EXPECT_EQ(1, host.count("SetSymbol"));
    EXPECT_EQ(0, host.count("SetAccount"));
    EXPECT_EQ(0, orders());
    ASSERT_EQ(1U, desktop.message_boxes().size());
    EXPECT_EQ(L"經紀商未接受商品 NQZ6, 委託未送出。", desktop.message_boxes()[0].text);
    EXPECT_EQ(L"NQZ6", text(eODUE_Symbol));
}

TEST_F(refused_symbol, is_told_once_and_not_with_every_order) {
    refuse(L"NQZ6");
    press(sight());
    press(sight());
    EXPECT_EQ(1, host.count("SetSymbol"));
    EXPECT_EQ(2, orders());
}

TEST_F(refused_symbol, counts_as_refused_too_when_there_was_nobody_to_tell) {
    const auto trading = profile->trading;
    profile->trading = nullptr;
    put_symbol(L"NQZ6");
    profile->trading = trading;
    select(eMTPA_OC_Market);
    press(sight());
    EXPECT_EQ(1, host.count("SetSymbol"));
    EXPECT_EQ(1, orders());
}

TEST_F(refused_symbol, counts_so_when_the_host_changed_it_inside_the_call) {
    host.on_call("ManualTrading.SetSymbol", [this] {
        host.forget_faults();
        put_symbol(L"YMZ6");
    });
    put_symbol(L"NQZ6");
    select(eMTPA_OC_Market);
    press(sight());
    EXPECT_EQ(1, host.count("SetSymbol(\"YMZ6\""));
    EXPECT_EQ(1, orders());
}

}  // namespace
}  // namespace OV_OrderDeck
