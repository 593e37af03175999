// The time in force: the host's codes for a category, and which of them stays selected.
#include "charting/orderdeck/src/tab/Controls/TimeInForceCombo.h"

#include "tests/fields/fields_fixture.h"
#include "tests/support/safe_arrays.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using codes = std::vector<std::pair<LONG, CString>>;

class time_in_force_field : public test::fields_fixture {
protected:
    time_in_force_field() { make_tab(); }

    void update_from(const std::vector<LONG>& numbers) {
        odd->times_in_force[eMTPA_OC_Limit] = numbers;
        time_in_force().Update(eMTPA_OC_Limit);
    }
    void select_2_of_3() {
        update_from({1, 2, 3});
        time_in_force().Select(2);
        reset_record();
    }
    void expect_2_of_3() {
        EXPECT_EQ(3, time_in_force().get_Count());
        EXPECT_EQ(2, time_in_force().get_SelectedItem(nullptr));
    }
};

TEST_F(time_in_force_field, starts_without_items_and_selection) {
    EXPECT_EQ(0, time_in_force().get_Count());
    EXPECT_TRUE(time_in_force().IsEmpty());
    EXPECT_EQ(-1, time_in_force().get_SelectedItem(nullptr));
}

TEST_F(time_in_force_field, shows_each_code_by_its_text_in_the_order_of_codes) {
    update_from({6, 5, 4, 3, 2, 1});
    const codes expected = {{1, L"DAY(當日有效)"},
                            {2, L"GTC(取消前有效)"},
                            {3, L"GTD(到期前有效)"},
                            {4, L"IOC(立即成交否則取消)"},
                            {5, L"FOK"},
                            {6, L"AON"}};
    EXPECT_EQ(expected, items(time_in_force()));
    EXPECT_EQ(
        (calls{"Profile(\"Alpha\").get_ManualTrading()", "ManualTrading(\"Alpha\").GetTimeInForces(3)"}),
        host.calls());
}

TEST_F(time_in_force_field, selects_the_arrays_first_code_not_the_lowest) {
    update_from({4, 1, 2});
    EXPECT_EQ(4, time_in_force().get_SelectedItem(nullptr));
}

TEST_F(time_in_force_field, a_code_outside_1_to_6_has_the_empty_text) {
    update_from({7, 0, -5, 0x7FFFFFFF, 1});
    EXPECT_EQ((codes{{-5, L""}, {0, L""}, {1, L"DAY(當日有效)"}, {7, L""}, {0x7FFFFFFF, L""}}),
              items(time_in_force()));
    EXPECT_EQ(7, time_in_force().get_SelectedItem(nullptr));
}

TEST_F(time_in_force_field, a_code_told_twice_is_one_item) {
    update_from({2, 2, 1});
    EXPECT_EQ((codes{{1, L"DAY(當日有效)"}, {2, L"GTC(取消前有效)"}}), items(time_in_force()));
}

TEST_F(time_in_force_field, codes_told_twice_count_twice_against_the_selection) {
    select_2_of_3();
    update_from({1, 1, 2});
    EXPECT_EQ(2, time_in_force().get_SelectedItem(nullptr));
    update_from({1, 2});
    EXPECT_EQ(1, time_in_force().get_SelectedItem(nullptr));
}

TEST_F(time_in_force_field, gtd_falls_to_the_first_code_among_three) {
    update_from({1, 2, 3});
    time_in_force().Select(3);
    update_from({1, 2, 3});
    EXPECT_EQ(1, time_in_force().get_SelectedItem(nullptr));
}

TEST_F(time_in_force_field, gtd_stays_among_five_that_do_not_hold_it_and_its_text_is_reported) {
    update_from({1, 2, 3, 4, 5, 6});
    time_in_force().Select(3);
    update_from({1, 2, 4, 5, 6});
    EXPECT_EQ(3, time_in_force().get_SelectedItem(nullptr));
    EXPECT_FALSE(time_in_force().IsEmpty());
    EXPECT_TRUE(reported().empty());
    CString text = L"as it was";
    EXPECT_EQ(-1, time_in_force().get_SelectedItem(&text));
    EXPECT_EQ(L"as it was", text);
    EXPECT_EQ((std::vector<std::wstring>{L"_it != m_items.end()"}), reported());
}

TEST_F(time_in_force_field, every_selection_is_kept_or_falls_by_the_count) {
    for (LONG count = 1; count <= 6; ++count) {
        for (LONG selected = 1; selected <= 6; ++selected) {
            update_from({1, 2, 3, 4, 5, 6});
            time_in_force().Select(selected);
            std::vector<LONG> numbers{6, 1, 2, 3, 4, 5};
            numbers.resize(static_cast<std::size_t>(count));
            update_from(numbers);
            const LONG expected = selected < count ? selected : 6;
            EXPECT_EQ(expected, time_in_force().get_SelectedItem(nullptr)) << selected << " of " << count;
        }
    }
}

TEST_F(time_in_force_field, an_empty_array_leaves_nothing_selected) {
    select_2_of_3();
    update_from({});
    EXPECT_EQ(0, time_in_force().get_Count());
    EXPECT_TRUE(time_in_force().IsEmpty());
    EXPECT_TRUE(reported().empty());
}

TEST_F(time_in_force_field, without_manual_trading_the_old_list_stays) {
    select_2_of_3();
    profile->trading.reset();
    time_in_force().Update(eMTPA_OC_Limit);
    EXPECT_EQ((std::vector<std::wstring>{L"_trad"}), reported());
    expect_2_of_3();
}

TEST_F(time_in_force_field, without_an_array_the_old_list_stays) {
    select_2_of_3();
    host.fail("ManualTrading.GetTimeInForces", E_FAIL, 1);
    time_in_force().Update(eMTPA_OC_Limit);
    host.leave_unwritten("ManualTrading.GetTimeInForces");
    time_in_force().Update(eMTPA_OC_Limit);
    EXPECT_EQ((std::vector<std::wstring>{L"_tif_arr", L"_tif_arr"}), reported());
    expect_2_of_3();
}

TEST_F(time_in_force_field, an_array_of_another_type_is_reported_and_the_old_list_stays) {
    select_2_of_3();
    for (const VARTYPE type : {VT_BSTR, VT_VARIANT, VT_I2, VT_R8}) {
        reset_record();
        odd->code_array = [type] { return SafeArrayCreateVector(type, 0, 1); };
        time_in_force().Update(eMTPA_OC_Limit);
        EXPECT_EQ(1u, reported().size()) << type;
        expect_2_of_3();
    }
}

TEST_F(time_in_force_field, both_names_of_a_32_bit_number_are_taken) {
    odd->code_array = [] {
        SAFEARRAY* const array = SafeArrayCreateVector(VT_INT, 3, 2);
        for (LONG index = 3; index < 5; ++index) {
            LONG code = index + 1;
            EXPECT_EQ(S_OK, SafeArrayPutElement(array, &index, &code));
        }
        return array;
    };
    time_in_force().Update(eMTPA_OC_Limit);
    EXPECT_EQ((codes{{4, L"IOC(立即成交否則取消)"}, {5, L"FOK"}}), items(time_in_force()));
    EXPECT_EQ(4, time_in_force().get_SelectedItem(nullptr));
}

TEST_F(time_in_force_field, a_pick_names_the_date_alone) {
    select_2_of_3();
    time_in_force().Select(3);
    EXPECT_EQ((calls{"TabCtrl.Update(1, 0x4000)"}), host.calls());
}

TEST_F(time_in_force_field, a_refused_pick_names_the_date_unless_nothing_is_selected) {
    time_in_force().Select(3);
    EXPECT_EQ(calls{}, host.calls());
    select_2_of_3();
    time_in_force().Select(6);
    EXPECT_EQ((calls{"TabCtrl.Update(1, 0x4000)"}), host.calls());
    expect_2_of_3();
    EXPECT_EQ((std::vector<std::wstring>{L"_it != m_items.end()"}), reported());
}

}  // namespace
}  // namespace OV_OrderDeck
