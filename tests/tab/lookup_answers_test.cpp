// What becomes of the answers of the lookup service.
#include <gtest/gtest.h>

#include <limits>

#include "tests/tab/symbol_control_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;
using test::symbol_control;

TEST_F(symbol_control, by_text_stores_what_is_selected_or_not_supported) {
    const std::pair<OD_LookupResult, bool> rows[] = {
        {eODLR_Selected, true}, {eODLR_Canceled, false}, {eODLR_NotSupported, true}, {eODLR_NotFound, false}};
    for (const auto& [result, stored] : rows) {
        control().LookupByText(L"", false, true);
        answer(result, L"GIVEN");
        control().LookupByText(L"typed", false, false);
        EXPECT_EQ(stored, !control().IsEmpty()) << result;
        EXPECT_EQ(stored ? L"GIVEN" : L"", text(eODUE_Symbol)) << result;
    }
    EXPECT_EQ(0, asked());
}

TEST_F(symbol_control, by_name_stores_what_is_selected_or_not_supported_and_never_asks) {
    disconnect();
    const std::pair<OD_LookupResult, bool> rows[] = {
        {eODLR_Selected, true}, {eODLR_Canceled, false}, {eODLR_NotSupported, true}, {eODLR_NotFound, false}};
    for (const auto& [result, stored] : rows) {
        control().LookupByText(L"", false, true);
        answer(result, L"GIVEN");
        reset_record();
        control().LookupByName(L"name");
        EXPECT_EQ(stored, !control().IsEmpty()) << result;
        EXPECT_EQ(1, host.count("Lookup.GetSymbolInfo(\"name\", 1, null)")) << result;
    }
    EXPECT_EQ(0, asked());
}

TEST_F(symbol_control, a_result_with_no_name_changes_and_asks_nothing) {
    disconnect();
    for (const LONG number : {7, 4, -1, 0x7FFFFFFF, -0x7FFFFFFF}) {
        answer(OD_LookupResult{number});
        control().LookupByText(L"typed", true, false);
        control().LookupByName(L"name");
        control().LookupById(55);
        control().LookupWithDialog();
        EXPECT_TRUE(control().IsEmpty()) << number;
    }
    EXPECT_EQ(0, asked());
    EXPECT_EQ(0, told_host());
}

TEST_F(symbol_control, an_empty_name_fails_before_the_service_is_made) {
    EXPECT_EQ(E_FAIL, raised_by([&] { control().LookupByName(L""); }));
    EXPECT_EQ(1u, reported().size());
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(symbol_control, by_id_stores_what_is_selected_only_and_never_asks) {
    disconnect();
    for (const OD_LookupResult result : {eODLR_Canceled, eODLR_NotSupported, eODLR_NotFound}) {
        answer(result);
        control().LookupById(55);
        EXPECT_TRUE(control().IsEmpty()) << result;
    }
    answer(eODLR_Selected);
    control().LookupById(55);
    EXPECT_EQ(L"GIVEN", text(eODUE_Symbol));
    EXPECT_EQ(0, asked());
}

TEST_F(symbol_control, an_id_of_zero_or_below_fails_before_the_service_is_made) {
    for (const LONG id : {LONG{0}, LONG{-1}, std::numeric_limits<LONG>::min()}) {
        EXPECT_EQ(E_FAIL, raised_by([&] { control().LookupById(id); })) << id;
    }
    EXPECT_EQ(3u, reported().size());
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(symbol_control, the_dialog_gets_an_empty_name_and_may_be_shown) {
    control().LookupWithDialog();
    EXPECT_EQ(1, host.count("Lookup.GetSymbolInfo(\"\", 0, null)"));
}

TEST_F(symbol_control, a_pick_in_the_dialog_is_stored_and_may_ask_to_connect) {
    disconnect();
    desktop.answer_message_box(IDNO);
    answer(eODLR_Selected);
    control().LookupWithDialog();
    EXPECT_EQ(L"GIVEN", text(eODUE_Symbol));
    ASSERT_EQ(1, asked());
    EXPECT_EQ(L"目前尚未連線至 Alpha 。是否建立連線?", desktop.message_boxes()[0].text);
}

TEST_F(symbol_control, a_cancelled_dialog_changes_and_asks_nothing) {
    disconnect();
    for (const OD_LookupResult result : {eODLR_Canceled, eODLR_NotFound}) {
        answer(result);
        control().LookupWithDialog();
    }
    EXPECT_TRUE(control().IsEmpty());
    EXPECT_EQ(0, asked());
    EXPECT_EQ(0, told_host());
}

TEST_F(symbol_control, a_dialog_that_is_not_supported_asks_the_user_to_type) {
    disconnect();
    answer(eODLR_NotSupported);
    control().LookupWithDialog();
    ASSERT_EQ(1, asked());
    EXPECT_EQ(L"請手動輸入商品名稱。", desktop.message_boxes()[0].text);
    EXPECT_EQ(0u, desktop.message_boxes()[0].flags);
    EXPECT_TRUE(control().IsEmpty());
    EXPECT_EQ(0, told_host());
}

TEST_F(symbol_control, a_plug_in_is_supported_exactly_when_the_service_says_true) {
    lookup->supported = true;
    EXPECT_TRUE(control().IsPluginSupported(L"CQG"));
    for (const VARIANT_BOOL odd : {VARIANT_BOOL{1}, VARIANT_BOOL{-2}, VARIANT_BOOL{0x7FFF}}) {
        lookup->odd_truth = odd;
        EXPECT_FALSE(control().IsPluginSupported(L"CQG")) << odd;
    }
    lookup->odd_truth = VARIANT_FALSE;
    lookup->supported = false;
    EXPECT_FALSE(control().IsPluginSupported(L"CQG"));
    host.leave_unwritten("Lookup.IsPluginSupported");
    EXPECT_FALSE(control().IsPluginSupported(L"CQG"));
    EXPECT_TRUE(reported().empty());
    EXPECT_EQ(6, host.count("IsPluginSupported(\"CQG\")"));
}

TEST_F(symbol_control, a_failing_answer_about_a_plug_in_is_reported_and_means_no) {
    lookup->supported = true;
    host.fail_and_write("Lookup.IsPluginSupported", E_ABORT);
    EXPECT_FALSE(control().IsPluginSupported(L"CQG"));
    EXPECT_EQ((std::vector<HRESULT>{E_ABORT}), reported_codes());
}

TEST_F(symbol_control, the_question_is_one_of_yes_and_no) {
    disconnect();
    desktop.answer_message_box(IDNO);
    control().LookupByText(L"ESZ6", true, false);
    ASSERT_EQ(1, asked());
    EXPECT_EQ(L"目前尚未連線至 Alpha 。是否建立連線?", desktop.message_boxes()[0].text);
    EXPECT_EQ(static_cast<UINT>(MB_YESNO | MB_ICONQUESTION), desktop.message_boxes()[0].flags);
    EXPECT_EQ(0, host.count("Profile(\"Alpha\").Connect()"));
}

TEST_F(symbol_control, yes_connects_the_profile) {
    disconnect();
    desktop.answer_message_box(IDYES);
    control().LookupByText(L"ESZ6", true, false);
    EXPECT_EQ(1, host.count("Profile(\"Alpha\").Connect()"));
}

TEST_F(symbol_control, every_other_answer_connects_nothing) {
    disconnect();
    const wchar_t* name = L"ESZ6";
    for (const int given : {IDNO, IDCANCEL, IDOK, 0}) {
        desktop.answer_message_box(given);
        control().LookupByText(name, true, false);
        name = name[0] == L'E' ? L"NQZ6" : L"ESZ6";
    }
    EXPECT_EQ(4, asked());
    EXPECT_EQ(0, host.count("Connect()"));
}

TEST_F(symbol_control, a_connected_or_connecting_profile_gets_no_question) {
    for (const ETM_ConnectionChanged state : {eTM_CC_Connecting, eTM_CC_Connected}) {
        profile->fire_state(state);
        control().LookupByText(L"", false, true);
        control().LookupByText(L"ESZ6", true, false);
        answer(eODLR_Selected);
        control().LookupWithDialog();
        lookup->fixed = false;
    }
    EXPECT_EQ(0, asked());
}

TEST_F(symbol_control, the_symbol_is_stored_and_told_before_the_question) {
    disconnect();
    CString name;
    int told = 0;
    desktop.while_modal([&] {
        name = text(eODUE_Symbol);
        told = told_host();
    });
    answer(eODLR_Selected, L"PICKED");
    control().LookupWithDialog();
    EXPECT_EQ(L"PICKED", name);
    EXPECT_EQ(1, told);
    answer(eODLR_Selected, L"TYPED");
    control().LookupByText(L"typed", true, false);
    EXPECT_EQ(L"TYPED", name);
    EXPECT_EQ(2, told);
    EXPECT_EQ(2, asked());
}

TEST_F(symbol_control, the_last_known_state_decides_about_the_question) {
    disconnect();
    profile->state = eTM_CC_Connected;
    desktop.answer_message_box(IDNO);
    control().LookupByText(L"ESZ6", true, false);
    EXPECT_EQ(1, asked());
    EXPECT_EQ(0, host.count("get_ConnectionState"));
}

TEST_F(symbol_control, a_text_confirmed_once_more_asks_once_more) {
    disconnect();
    desktop.answer_message_box(IDNO);
    control().LookupByText(L"ESZ6", true, false);
    desktop.answer_message_box(IDNO);
    control().LookupByText(L"ESZ6", true, false);
    EXPECT_EQ(2, asked());
    EXPECT_EQ(1, told_host());
}

TEST_F(symbol_control, leaving_the_edit_and_calls_of_the_root_never_ask) {
    disconnect();
    control().LookupByText(L"ESZ6", false, true);
    control().LookupByText(L"NQZ6", false, false);
    tab->put_SymbolName(L"ESZ6");
    tab->put_SymbolId(55);
    put_symbol(L"YMZ6");
    EXPECT_EQ(0, asked());
}

TEST_F(symbol_control, survives_the_end_of_its_row_behind_a_question) {
    disconnect();
    const boost::shared_ptr<IUnifyControl> held = tab->get_Control(eODUE_Symbol);
    desktop.answer_message_box(IDYES);
    desktop.while_modal([this] { bar->RemoveAllTabs(); });
    tab.reset();
    static_cast<CLookup&>(*held).LookupByText(L"ESZ6", true, false);
    EXPECT_EQ(1, host.count("Profile(\"Alpha\").Connect()"));
    EXPECT_EQ(1, host.count("Unadvise"));
}

TEST_F(symbol_control, survives_the_end_of_its_row_inside_a_lookup) {
    const boost::shared_ptr<IUnifyControl> held = tab->get_Control(eODUE_Symbol);
    host.on_call("Lookup.GetSymbolInfo", [this] { bar->RemoveAllTabs(); });
    tab.reset();
    static_cast<CLookup&>(*held).LookupByText(L"ESZ6", true, false);
    // Of a profile that has gone the host hears no symbol.
    EXPECT_EQ(0, told_host());
    EXPECT_EQ(1, host.count("Unadvise"));
    EXPECT_EQ("ProfileEvents(\"Alpha\").Unadvise(1)", host.calls().back());
}

}  // namespace
}  // namespace OV_OrderDeck
