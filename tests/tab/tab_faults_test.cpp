// Every call of the host failing in turn, in every way that a host may fail.
#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <functional>

#include "tests/tab/tab_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;

const char* const operations[] = {"Profile.get_Name",
                                  "Profile.get_PluginName",
                                  "Profile.get_ManualTrading",
                                  "Profile.get_ConnectionState",
                                  "Profile.Connect",
                                  "Profile.FindConnectionPoint",
                                  "ProfileEvents.Advise",
                                  "ProfileEvents.Unadvise",
                                  "ManualTrading.SetAccount",
                                  "ManualTrading.GetAccounts",
                                  "ManualTrading.PlaceOrder",
                                  "ManualTrading.SetSymbol",
                                  "ManualTrading.GetTimeInForces",
                                  "Class.CreateInstance",
                                  "Lookup.Initialize",
                                  "Lookup.GetSymbolInfo",
                                  "Lookup.GetSymbolInfoById",
                                  "Lookup.IsPluginSupported"};

class faults : public test::tab_fixture {
protected:
    // A day of one row. What a step raises ends that step only, as it does at every boundary.
    void run_the_day() {
        lookup->by_name[L"NQZ6"] = instrument(L"NQZ6");
        lookup->by_id[7] = instrument(L"ESZ6");
        desktop.answer_message_box(IDYES);
        const std::function<void()> steps[] = {
            [&] {
                wrap = platform::make_com<CProfileWrap>(profile.get());
                tab = boost::make_shared<CTab>(wrap);
                tab->SetContent(bar);
                bar->AddTab(tab, false);
            },
            [&] { tab->put_SymbolId(7); },
            [&] { tab->put_SymbolName(L"NQZ6"); },
            [&] { symbol_field().LookupByText(L"NQZ6", true, false); },
            [&] { profile->fire_state(eTM_CC_Connected); },
            [&] { symbol_field().LookupWithDialog(); },
            [&] { tab->Refresh(); },
            [&] { tab->put_Account(L"A2"); },
            [&] { field(eODUE_OrderType).Select(eMTPA_OC_Limit); },
            [&] { type(eODUE_SecondPrice, L"101.25"); },
            [&] { type(eODUE_Quantity, L"10"); },
            [&] { field(eODUE_GtdDate).put_Value(_variant_t(45000.25, VT_DATE)); },
            [&] { profile->fire_quote(1.0, 2.0); },
            [&] { field(eODUE_Buy).Select(0); },
            [&] { profile->fire_state(eTM_CC_Disconnected); },
        };
        for (const auto& step : steps) {
            try {
                step();
            } catch (const _com_error&) {
                ++raised;
            }
            if (!tab) {
                return;
            }
        }
    }

    void end_the_row() {
        bar->RemoveAllTabs();
        tab.reset();
        wrap.reset();
    }

    void expect_nothing_wrong(const std::string& what) {
        for (const auto& order : profile->trading->orders) {
            EXPECT_EQ(eMTPA_OA_Buy, order.action) << what;
            EXPECT_EQ(eMTPA_OC_Limit, order.category) << what;
            EXPECT_EQ(10, order.quantity) << what;
            EXPECT_EQ(0.0, order.stop_price) << what;
            EXPECT_EQ(101.25, order.limit_price) << what;
            EXPECT_EQ(VT_DATE, order.date_type) << what;
            EXPECT_EQ(45000.25, order.date) << what;
        }
        EXPECT_GE(1u, profile->trading->orders.size()) << what;
        end_the_row();
        // Nothing hangs on the host any more: the fixture's references, two to the service, are the last.
        EXPECT_EQ(1u, (profile->AddRef(), profile->Release())) << what;
        EXPECT_EQ(2u, (lookup->AddRef(), lookup->Release())) << what;
        profile->trading->orders.clear();
        profile->trading->symbols.clear();
        profile->state = eTM_CC_Disconnected;
        host.forget_faults();
        desktop.forget();
        reset_record();
    }

    int raised = 0;
};

TEST_F(faults, without_any_the_day_ends_in_one_order) {
    run_the_day();
    EXPECT_EQ(0, raised);
    ASSERT_EQ(1u, profile->trading->orders.size());
    EXPECT_EQ(1, host.count("PlaceOrder(1, 3, 10, 0, 101.25, 1, date(45000.25))"));
    EXPECT_EQ(1, host.count("Profile(\"Alpha\").Connect()"));
    EXPECT_TRUE(reported().empty());
    expect_nothing_wrong("no fault");
}

TEST_F(faults, of_one_operation_at_every_call_of_it_never_make_a_wrong_order) {
    for (const char* const operation : operations) {
        host.fail(operation, E_FAIL);
        run_the_day();
        end_the_row();
        EXPECT_FALSE(reported().empty()) << operation;
        expect_nothing_wrong(operation);
    }
}

TEST_F(faults, of_a_single_call_never_make_a_wrong_order) {
    for (const char* const operation : operations) {
        for (int nth = 1; nth <= 3; ++nth) {
            host.fail(operation, E_FAIL, nth);
            run_the_day();
            expect_nothing_wrong(operation + std::string(" ") + std::to_string(nth));
        }
    }
}

TEST_F(faults, that_write_their_answers_all_the_same_leak_nothing) {
    for (const char* const operation : operations) {
        host.fail_and_write(operation, E_FAIL);
        run_the_day();
        expect_nothing_wrong(operation);
    }
}

TEST_F(faults, of_success_without_an_answer_never_make_a_wrong_order) {
    for (const char* const operation : operations) {
        host.leave_unwritten(operation);
        run_the_day();
        expect_nothing_wrong(operation);
    }
}

TEST_F(faults, of_the_account_list_leave_the_order_to_the_host) {
    host.fail("ManualTrading.GetAccounts", E_FAIL);
    run_the_day();
    // Once when the account was to change, once with the order.
    EXPECT_EQ(2, host.count("SetAccount(\"\")"));
    EXPECT_EQ(1u, profile->trading->orders.size());
    expect_nothing_wrong("accounts");
}

TEST_F(faults, of_the_times_in_force_stop_the_order) {
    host.fail("ManualTrading.GetTimeInForces", E_FAIL);
    run_the_day();
    EXPECT_TRUE(profile->trading->orders.empty());
    EXPECT_EQ(1, raised);
    expect_nothing_wrong("times in force");
}

}  // namespace
}  // namespace OV_OrderDeck
