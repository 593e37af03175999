// Making and ending a tab, and its seams to root and bar.
#include "charting/orderdeck/src/tab/Tab.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <cstdint>
#include <stdexcept>

#include "charting/orderdeck/src/tab/Controls/AccountCombo.h"
#include "charting/orderdeck/src/tab/Controls/AskBidButton.h"
#include "charting/orderdeck/src/tab/Controls/BuySellButton.h"
#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"
#include "charting/orderdeck/src/tab/Controls/PriceEdit.h"
#include "charting/orderdeck/src/tab/Controls/QuantityEdit.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceCombo.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceEdit.h"
#include "platform/clock.h"
#include "tests/tab/tab_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;

constexpr OD_UpdateEntity all_fields[] = {
    eODUE_Symbol,      eODUE_OrderType, eODUE_Quantity, eODUE_FirstPrice, eODUE_SecondPrice, eODUE_Account,
    eODUE_TimeInForce, eODUE_GtdDate,   eODUE_AskBid,   eODUE_Buy,        eODUE_Sell};

class tab_object : public test::tab_fixture {};

TEST_F(tab_object, has_its_four_faces_in_order) {
    make_tab();
    const auto place = [&](auto* face) { return reinterpret_cast<std::uintptr_t>(face); };
    const CTab* const object = tab.get();
    EXPECT_LT(place(static_cast<const ITab*>(object)), place(static_cast<const IManageContent*>(object)));
    EXPECT_LT(place(static_cast<const IManageContent*>(object)),
              place(static_cast<const ITradeInfoProperties*>(object)));
    EXPECT_LT(place(static_cast<const ITradeInfoProperties*>(object)),
              place(static_cast<const IOD_ProfileDataChange*>(object)));
}

TEST_F(tab_object, without_a_profile_is_reported_and_not_made) {
    EXPECT_EQ(E_POINTER, raised_by([] { CTab none{com_ptr<CProfileWrap>()}; }));
    EXPECT_EQ(1u, reported().size());
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(tab_object, subscribes_when_made_and_asks_nothing_else) {
    wrap = platform::make_com<CProfileWrap>(profile.get());
    host.clear();
    tab = boost::make_shared<CTab>(wrap);
    EXPECT_EQ((calls{"Profile(\"Alpha\").FindConnectionPoint()", "ProfileEvents(\"Alpha\").Advise(1)"}),
              host.calls());
    EXPECT_TRUE(reported().empty());
    EXPECT_EQ(0, tab->get_Id());
}

TEST_F(tab_object, starts_with_its_fields_afresh) {
    make_tab();
    EXPECT_TRUE(field(eODUE_Symbol).IsEmpty());
    EXPECT_EQ(1, field(eODUE_OrderType).get_SelectedItem(nullptr));
    EXPECT_EQ(L"1", text(eODUE_Quantity));
    EXPECT_TRUE(field(eODUE_FirstPrice).IsEmpty());
    EXPECT_TRUE(field(eODUE_SecondPrice).IsEmpty());
    EXPECT_EQ(-1, field(eODUE_Account).get_SelectedItem(nullptr));
    EXPECT_EQ(-1, field(eODUE_TimeInForce).get_SelectedItem(nullptr));
    EXPECT_FALSE(field(eODUE_GtdDate).IsEmpty());
    EXPECT_TRUE(field(eODUE_AskBid).IsEmpty());
    EXPECT_EQ(L"", tab->get_SymbolName());
    EXPECT_EQ(0, tab->get_SymbolId());
    EXPECT_EQ(L"", tab->get_Account());
}

TEST_F(tab_object, gives_each_field_by_its_bit_in_the_order_of_the_row) {
    make_tab();
    const CControlsHolder& row = tab->get_Controls();
    const IUnifyControl* const expected[] = {
        row.m_pSymbol.get(),      row.m_pOrderType.get(), row.m_pQuantity.get(),    row.m_pFirstPrice.get(),
        row.m_pSecondPrice.get(), row.m_pAccount.get(),   row.m_pTimeInForce.get(), row.m_pGtdDate.get(),
        row.m_pAskBid.get(),      row.m_pBuy.get(),       row.m_pSell.get()};
    for (std::size_t i = 0; i < std::size(all_fields); ++i) {
        EXPECT_EQ(expected[i], tab->get_Control(all_fields[i]).get()) << i;
        EXPECT_NE(nullptr, expected[i]) << i;
    }
    const void* const places[] = {&row.m_pSymbol,      &row.m_pOrderType,   &row.m_pQuantity,
                                  &row.m_pFirstPrice,  &row.m_pSecondPrice, &row.m_pAccount,
                                  &row.m_pTimeInForce, &row.m_pGtdDate,     &row.m_pAskBid,
                                  &row.m_pBuy,         &row.m_pSell};
    for (std::size_t i = 1; i < std::size(places); ++i) {
        EXPECT_LT(places[i - 1], places[i]);
    }
}

TEST_F(tab_object, gives_no_field_for_any_other_value) {
    make_tab();
    for (const unsigned value : {0u, 1u, 2u, 4u, 64u, 0x180u, 0x40000u, 0x3FF80u, 0xFFFFFFFFu}) {
        EXPECT_FALSE(tab->get_Control(static_cast<OD_UpdateEntity>(value))) << value;
    }
}

TEST_F(tab_object, fields_live_as_long_as_somebody_holds_them) {
    make_tab();
    const boost::shared_ptr<IUnifyControl> held = tab->get_Control(eODUE_OrderType);
    bar->RemoveAllTabs();
    tab.reset();
    EXPECT_EQ(4, held->get_Count());
}

TEST_F(tab_object, knows_its_name_id_and_profile) {
    profile->name = L"Alpha renamed";
    make_tab();
    CString name = L"old";
    tab->get_Name(name);
    EXPECT_EQ(L"Alpha renamed", name);
    tab->put_Id(42);
    EXPECT_EQ(42, tab->get_Id());
    EXPECT_EQ(wrap, tab->get_Profile());
}

TEST_F(tab_object, gives_its_profile_with_a_reference_added) {
    make_tab();
    const ULONG before = (wrap->AddRef(), wrap->Release());
    const com_ptr<CProfileWrap> given = tab->get_Profile();
    EXPECT_EQ(before + 1, (wrap->AddRef(), wrap->Release()));
}

TEST_F(tab_object, never_asks_for_a_gradient) {
    make_tab();
    COLORREF from = 1;
    COLORREF to = 2;
    EXPECT_FALSE(tab->get_GradientColors(from, to));
    EXPECT_EQ(1u, from);
    EXPECT_EQ(2u, to);
}

TEST_F(tab_object, does_nothing_when_its_content_is_ready) {
    make_tab();
    tab->OnContentReady();
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(tab_object, ignores_the_last_two_events_of_its_profile) {
    make_tab();
    EXPECT_EQ(0, tab->OnTradingAllowed(true));
    EXPECT_EQ(0, tab->OnStatusText(nullptr));
    EXPECT_EQ(0, profile->fire_trading_allowed(VARIANT_TRUE));
    EXPECT_EQ(0, profile->fire_status_text(L"text"));
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(tab_object, names_changed_fields_to_its_bar) {
    make_tab();
    bar->AddTab(tab, false);
    tab->_update(0x12345);
    tab->_set_focus(eODUE_SecondPrice);
    EXPECT_EQ((calls{"TabCtrl.Update(2, 0x12345)", "TabCtrl.SetFocus(2, 0x800)"}), host.calls());
}

TEST_F(tab_object, without_a_bar_reports_and_keeps_its_values) {
    wrap = platform::make_com<CProfileWrap>(profile.get());
    tab = boost::make_shared<CTab>(wrap);
    reset_record();
    tab->_update(1);
    tab->_set_focus(eODUE_Symbol);
    EXPECT_EQ((std::vector<std::wstring>{L"m_pCont.get()", L"m_pCont.get()"}), reported());
    EXPECT_EQ(calls{}, host.calls());
    reset_record();
    type(eODUE_Quantity, L"5");
    EXPECT_EQ(L"5", text(eODUE_Quantity));
    EXPECT_EQ((std::vector<std::wstring>{L"m_pCont.get()"}), reported());
}

TEST_F(tab_object, refresh_asks_the_host_again_and_repaints_everything) {
    profile->state = eTM_CC_Connected;
    make_tab();
    profile->fire_state(eTM_CC_Connected);
    profile->trading->accounts = {L"B1"};
    profile->state = eTM_CC_Disconnected;
    reset_record();
    tab->Refresh();
    EXPECT_EQ((calls{"Profile(\"Alpha\").get_ConnectionState()", "Profile(\"Alpha\").get_ManualTrading()",
                     "ManualTrading(\"Alpha\").GetAccounts()", "Profile(\"Alpha\").get_ManualTrading()",
                     "ManualTrading(\"Alpha\").GetTimeInForces(1)", "TabCtrl.Update(1, 0x3ff87)"}),
              host.calls());
    EXPECT_EQ(L"B1", tab->get_Account());
    EXPECT_EQ(eTM_CC_Disconnected, wrap->get_ConnectionState(true));
}

TEST_F(tab_object, gives_the_quantity_as_its_field_shows_it) {
    make_tab();
    type(eODUE_Quantity, L"250");
    const _variant_t quantity = tab->_get_quantity();
    ASSERT_EQ(VT_BSTR, V_VT(&quantity));
    EXPECT_STREQ(L"250", V_BSTR(&quantity));
}

TEST_F(tab_object, which_prices_show_follows_the_order_type) {
    make_ready_tab();
    const bool shown[4][2] = {{false, false}, {true, false}, {false, true}, {true, true}};
    for (LONG category = 1; category <= 4; ++category) {
        field(eODUE_OrderType).Select(category);
        EXPECT_EQ(shown[category - 1][0], !field(eODUE_FirstPrice).get_Hidden()) << category;
        EXPECT_EQ(shown[category - 1][1], !field(eODUE_SecondPrice).get_Hidden()) << category;
    }
}

TEST_F(tab_object, the_date_shows_under_good_till_date_only_and_all_other_fields_always) {
    make_ready_tab();
    for (LONG code = 1; code <= 6; ++code) {
        field(eODUE_TimeInForce).Select(code);
        EXPECT_EQ(code != 3, field(eODUE_GtdDate).get_Hidden()) << code;
    }
    for (const OD_UpdateEntity entity : all_fields) {
        if (entity != eODUE_FirstPrice && entity != eODUE_SecondPrice && entity != eODUE_GtdDate) {
            EXPECT_FALSE(field(entity).get_Hidden()) << entity;
        }
    }
}

TEST_F(tab_object, offers_the_order_types_and_times_in_force_under_their_names) {
    make_ready_tab();
    const wchar_t* const types[] = {L"市價單", L"停止單", L"限價單", L"停止限價單"};
    const wchar_t* const times[] = {
        L"DAY(當日有效)", L"GTC(取消前有效)", L"GTD(到期前有效)", L"IOC(立即成交否則取消)", L"FOK", L"AON"};
    CString name;
    for (LONG i = 0; i < 4; ++i) {
        EXPECT_EQ(i + 1, field(eODUE_OrderType).get_Item(i, &name));
        EXPECT_EQ(types[i], name);
    }
    for (LONG i = 0; i < 6; ++i) {
        EXPECT_EQ(i + 1, field(eODUE_TimeInForce).get_Item(i, &name));
        EXPECT_EQ(times[i], name);
    }
}

TEST_F(tab_object, only_the_connected_state_makes_fields_usable) {
    make_ready_tab();
    for (const ETM_ConnectionChanged state : {eTM_CC_Disconnected, eTM_CC_Connecting, eTM_CC_Connected}) {
        profile->fire_state(state);
        EXPECT_EQ(state == eTM_CC_Connected, field(eODUE_Buy).get_Enabled()) << state;
        EXPECT_EQ(state == eTM_CC_Connected, field(eODUE_Account).get_Enabled()) << state;
    }
}

// Writes down its own end.
class watched_profile : public CProfileWrap {
public:
    watched_profile(ITC_TradingProfile* wrapped, test::fake_host record)
        : CProfileWrap(wrapped), m_record(std::move(record)) {}

protected:
    ~watched_profile() override { m_record.note("profile gone"); }

private:
    test::fake_host m_record;
};

class watched_bar : public test::FakeTabCtrl {
public:
    explicit watched_bar(test::fake_host record) : FakeTabCtrl(record), m_record(std::move(record)) {}
    ~watched_bar() override {
        m_record.note(m_field.expired() ? "bar gone after the fields" : "bar gone before the fields");
    }
    void watch(const boost::shared_ptr<IUnifyControl>& field) { m_field = field; }

private:
    test::fake_host m_record;
    boost::weak_ptr<IUnifyControl> m_field;
};

TEST_F(tab_object, ends_in_order_subscription_fields_bar_profile) {
    auto watched = platform::make_com<watched_profile>(profile.get(), host);
    tab = boost::make_shared<CTab>(watched);
    auto content = boost::make_shared<watched_bar>(host);
    tab->SetContent(content);
    content->watch(tab->get_Control(eODUE_Sell));
    tab->_get_price_format();
    content.reset();
    watched.reset();
    bool subscribed_with_fields = false;
    const boost::weak_ptr<IUnifyControl> field_left = tab->get_Control(eODUE_Symbol);
    host.on_call("ProfileEvents.Unadvise", [&] { subscribed_with_fields = !field_left.expired(); });
    host.clear();
    tab.reset();
    EXPECT_EQ((calls{"ProfileEvents(\"Alpha\").Unadvise(1)", "bar gone after the fields", "profile gone"}),
              host.calls());
    EXPECT_TRUE(subscribed_with_fields);
}

// A clock whose time lies outside the calendar, so that the date field can't be made.
class stopped_clock : public platform::clock {
public:
    SYSTEMTIME local_time() override { return {}; }
    DWORD tick_count() override { return 0; }
    double milliseconds() override { return 0.0; }
};

TEST_F(tab_object, that_fails_in_the_making_leaves_no_subscription_behind) {
    wrap = platform::make_com<CProfileWrap>(profile.get());
    stopped_clock stopped;
    const platform::port<platform::clock>::replacement in_place(stopped);
    EXPECT_THROW(CTab failed(wrap), std::range_error);
    EXPECT_EQ(1, host.count(".Advise(1)"));
    EXPECT_EQ(0, profile->fire_quote(1.0, 2.0));
    EXPECT_EQ(1, host.count("Unadvise(1)"));
    EXPECT_EQ(0u, profile->events->size());
}

TEST_F(tab_object, hears_nothing_after_its_end) {
    make_tab();
    bar->RemoveAllTabs();
    tab.reset();
    EXPECT_EQ(0, profile->fire_quote(1.0, 2.0));
    EXPECT_EQ(0u, profile->events->size());
}

TEST_F(tab_object, lives_on_when_the_host_refuses_the_subscription) {
    host.fail("ProfileEvents.Advise", E_FAIL);
    make_tab();
    bar->RemoveAllTabs();
    tab.reset();
    EXPECT_EQ(0, host.count("Unadvise"));
}

TEST_F(tab_object, keeps_nothing_per_symbol_or_account) {
    make_ready_tab();
    field(eODUE_OrderType).Select(3);
    type(eODUE_SecondPrice, L"12.5");
    type(eODUE_Quantity, L"7");
    tab->put_Account(L"A2");
    put_symbol(L"NQZ6");
    put_symbol(L"ESZ6");
    tab->put_Account(L"A1");
    EXPECT_EQ(L"", text(eODUE_SecondPrice));
    EXPECT_EQ(L"7", text(eODUE_Quantity));
    EXPECT_EQ(3, field(eODUE_OrderType).get_SelectedItem(nullptr));
}

}  // namespace
}  // namespace OV_OrderDeck
