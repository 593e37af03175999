// The account: the host's list, and which place in it stays selected.
#include "charting/orderdeck/src/tab/Controls/AccountCombo.h"

#include "tests/fields/fields_fixture.h"
#include "tests/support/safe_arrays.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using accounts = std::vector<std::pair<LONG, CString>>;

class account_field : public test::fields_fixture {
protected:
    account_field() { make_tab(); }

    void update_from(const std::vector<CString>& names) {
        odd->accounts = names;
        account().Update();
    }
    // The list A1, A2 with A2 selected, and nothing recorded.
    void select_second_of_two() {
        update_from({L"A1", L"A2"});
        account().Select(1);
        reset_record();
    }
    void expect_second_of_two() {
        EXPECT_EQ((accounts{{0, L"A1"}, {1, L"A2"}}), items(account()));
        EXPECT_EQ(1, account().get_SelectedItem(nullptr));
    }
};

TEST_F(account_field, starts_without_items_and_without_an_account) {
    EXPECT_EQ(0, account().get_Count());
    EXPECT_TRUE(account().IsEmpty());
    EXPECT_EQ(L"", account().get_Account());
    EXPECT_TRUE(reported().empty());
}

TEST_F(account_field, takes_the_hosts_names_under_their_places_and_selects_the_first) {
    update_from({L"Zoë", L"", L"Alpha", L"Zoë"});
    EXPECT_EQ((accounts{{0, L"Zoë"}, {1, L""}, {2, L"Alpha"}, {3, L"Zoë"}}), items(account()));
    EXPECT_EQ(L"Zoë", account().get_Account());
    EXPECT_EQ((calls{"Profile(\"Alpha\").get_ManualTrading()", "ManualTrading(\"Alpha\").GetAccounts()"}),
              host.calls());
}

TEST_F(account_field, a_place_in_range_stays_though_another_account_stands_there) {
    select_second_of_two();
    update_from({L"B1", L"B2", L"B3"});
    EXPECT_EQ(1, account().get_SelectedItem(nullptr));
    EXPECT_EQ(L"B2", account().get_Account());
}

TEST_F(account_field, a_place_that_is_gone_falls_to_the_first) {
    select_second_of_two();
    update_from({L"A1"});
    EXPECT_EQ(0, account().get_SelectedItem(nullptr));
    EXPECT_EQ(L"A1", account().get_Account());
}

TEST_F(account_field, an_empty_list_leaves_no_account) {
    select_second_of_two();
    update_from({});
    EXPECT_EQ(0, account().get_Count());
    EXPECT_EQ(-1, account().get_SelectedItem(nullptr));
    EXPECT_EQ(L"", account().get_Account());
    EXPECT_TRUE(reported().empty());
}

TEST_F(account_field, counts_places_from_0_whatever_the_arrays_lower_bound) {
    odd->account_array = [] {
        SAFEARRAYBOUND bound{2, 5};
        SAFEARRAY* const array = SafeArrayCreate(VT_BSTR, 1, &bound);
        for (LONG index = 5; index < 7; ++index) {
            const _bstr_t name(index == 5 ? L"five" : L"six");
            EXPECT_EQ(S_OK, SafeArrayPutElement(array, &index, static_cast<wchar_t*>(name)));
        }
        return array;
    };
    account().Update();
    EXPECT_EQ((accounts{{0, L"five"}, {1, L"six"}}), items(account()));
}

TEST_F(account_field, a_null_name_is_an_empty_one) {
    odd->account_array = [] { return SafeArrayCreateVector(VT_BSTR, 0, 1); };
    account().Update();
    EXPECT_EQ((accounts{{0, L""}}), items(account()));
}

TEST_F(account_field, without_manual_trading_the_old_list_stays) {
    select_second_of_two();
    profile->trading.reset();
    account().Update();
    EXPECT_EQ((std::vector<std::wstring>{L"_trad"}), reported());
    expect_second_of_two();
    EXPECT_EQ(0, host.count("GetAccounts"));
}

TEST_F(account_field, without_an_array_the_old_list_stays) {
    select_second_of_two();
    host.fail("ManualTrading.GetAccounts", E_FAIL);
    account().Update();
    EXPECT_EQ((std::vector<std::wstring>{L"_acc_arr"}), reported());
    expect_second_of_two();
}

TEST_F(account_field, success_without_an_array_is_reported_too) {
    select_second_of_two();
    host.leave_unwritten("ManualTrading.GetAccounts");
    account().Update();
    EXPECT_EQ((std::vector<std::wstring>{L"_acc_arr"}), reported());
    expect_second_of_two();
}

TEST_F(account_field, an_array_counts_though_the_call_failed) {
    host.fail_and_write("ManualTrading.GetAccounts", E_FAIL);
    update_from({L"A9"});
    EXPECT_EQ(L"A9", account().get_Account());
    EXPECT_TRUE(reported().empty());
}

TEST_F(account_field, an_array_of_another_type_or_shape_is_reported_and_the_old_list_stays) {
    select_second_of_two();
    for (const VARTYPE type : {VT_I4, VT_VARIANT, VT_UNKNOWN, VT_UI1}) {
        reset_record();
        odd->account_array = [type] { return SafeArrayCreateVector(type, 0, 1); };
        account().Update();
        EXPECT_EQ(1u, reported().size()) << type;
        expect_second_of_two();
    }
    reset_record();
    odd->account_array = [] {
        SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
        return SafeArrayCreate(VT_BSTR, 2, bounds);
    };
    account().Update();
    EXPECT_EQ(1u, reported().size());
    expect_second_of_two();
}

TEST_F(account_field, a_wrong_array_does_not_keep_a_connection_change_off_the_screen) {
    odd->account_array = [] { return SafeArrayCreateVector(VT_R8, 0, 1); };
    EXPECT_EQ(S_OK, profile->fire_state(eTM_CC_Connected));
    EXPECT_EQ(1, host.count("TabCtrl.Update(1, 0x3ff86)"));
}

TEST_F(account_field, a_pick_is_not_told_to_the_host) {
    select_second_of_two();
    account().Select(0);
    EXPECT_EQ(L"A1", account().get_Account());
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(account_field, is_selected_by_name_the_first_of_equal_ones) {
    update_from({L"A", L"B", L"C", L"B"});
    account().SelectByName(L"B");
    EXPECT_EQ(1, account().get_SelectedItem(nullptr));
    account().SelectByName(L"C");
    EXPECT_EQ(2, account().get_SelectedItem(nullptr));
    EXPECT_TRUE(reported().empty());
}

TEST_F(account_field, a_null_or_unknown_name_selects_nothing_and_is_no_fault) {
    select_second_of_two();
    for (const wchar_t* name : {static_cast<const wchar_t*>(nullptr), L"", L"a1", L"A1 ", L"A"}) {
        account().SelectByName(name);
    }
    expect_second_of_two();
    EXPECT_TRUE(reported().empty());
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(account_field, reset_keeps_the_names_and_gives_no_account) {
    select_second_of_two();
    account().Reset();
    EXPECT_EQ(2, account().get_Count());
    EXPECT_EQ(L"", account().get_Account());
    EXPECT_TRUE(reported().empty());
}

}  // namespace
}  // namespace OV_OrderDeck
