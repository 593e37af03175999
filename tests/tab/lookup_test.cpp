#include "charting/orderdeck/src/tab/Controls/Lookup.h"

#include <gtest/gtest.h>

#include "tests/tab/tab_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;

class symbol_control : public test::tab_fixture {
protected:
    symbol_control() {
        profile->state = eTM_CC_Connected;
        make_tab();
        profile->fire_state(eTM_CC_Connected);
        lookup->by_name[L"ESZ6"] = instrument(L"ESZ6");
        lookup->by_name[L"NQZ6"] = instrument(L"NQZ6");
        lookup->by_id[55] = instrument(L"NQZ6");
        reset_record();
    }

    CLookup& control() { return symbol_field(); }

    // Every answer is this one, with an instrument of the name.
    void answer(OD_LookupResult result, const CString& name = L"GIVEN") {
        lookup->fixed = true;
        lookup->result = result;
        lookup->answer = instrument(name);
    }

    void disconnect() {
        profile->fire_state(eTM_CC_Disconnected);
        reset_record();
    }

    int asked() { return static_cast<int>(desktop.message_boxes().size()); }
    int told_host() { return host.count("SetSymbol"); }
};

TEST_F(symbol_control, starts_empty_and_without_a_service) {
    EXPECT_TRUE(control().IsEmpty());
    EXPECT_FALSE(control().get_Symbol().valid());
    EXPECT_EQ(L"", text(eODUE_Symbol));
    EXPECT_EQ(0, host.count("LookupImpl"));
}

TEST_F(symbol_control, is_usable_in_every_state) {
    disconnect();
    EXPECT_TRUE(control().get_Enabled());
    control().put_Enabled(false);
    EXPECT_FALSE(control().get_Enabled());
}

TEST_F(symbol_control, shows_the_name_of_its_record) {
    control().LookupByText(L"ESZ6", false, true);
    EXPECT_EQ(L"ESZ6", text(eODUE_Symbol));
    EXPECT_FALSE(control().IsEmpty());
}

TEST_F(symbol_control, a_record_of_zeros_is_a_symbol) {
    symbol_info_holder zeros;
    tab->put_SymbolInfo(zeros);
    EXPECT_FALSE(control().IsEmpty());
    EXPECT_EQ(L"", text(eODUE_Symbol));
}

TEST_F(symbol_control, a_typed_text_is_looked_up_loudly_and_may_ask_to_connect) {
    disconnect();
    desktop.answer_message_box(IDNO);
    control().put_Value(_variant_t(L"ESZ6"));
    EXPECT_EQ(1, host.count("Lookup.GetSymbolInfo(\"ESZ6\", 0, null)"));
    EXPECT_EQ(1, asked());
}

TEST_F(symbol_control, takes_text_only) {
    for (const _variant_t& value : {_variant_t(), _variant_t(LONG{5}), _variant_t(1.5)}) {
        EXPECT_EQ(DISP_E_TYPEMISMATCH, raised_by([&] { control().put_Value(value); }));
    }
    EXPECT_EQ(3u, reported().size());
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(symbol_control, gives_category_scale_and_movement_of_its_record) {
    test::symbol all = instrument(L"ZB");
    all.category = 11;
    all.price_scale_code = 'k';
    all.min_movement = 2.5;
    put_symbol(all);
    reset_record();
    EXPECT_EQ(11, control().get_Category());
    EXPECT_EQ('k', control().get_PriceScaleCode());
    EXPECT_EQ(2.5, control().get_MinMovement());
    EXPECT_TRUE(reported().empty());
}

TEST_F(symbol_control, reading_a_record_that_is_not_valid_is_reported_and_goes_on) {
    EXPECT_EQ(254, control().get_Category());
    EXPECT_EQ(0x7FFFFFFF, control().get_PriceScaleCode());
    EXPECT_EQ(std::numeric_limits<double>::max(), control().get_MinMovement());
    EXPECT_EQ((std::vector<std::wstring>{L"valid()", L"valid()", L"valid()"}), reported());
}

TEST_F(symbol_control, makes_its_service_on_the_first_lookup_and_keeps_it) {
    const HWND frame = desktop.make_window();
    desktop.set_main_frame(frame);
    control().LookupByName(L"nothing");
    EXPECT_EQ((calls{"Class(\"LookupImpl\").CreateInstance()",
                     "Lookup.Initialize(" + std::to_string(reinterpret_cast<INT_PTR>(frame)) +
                         ", \"CQG-FIX\", 0, null)",
                     "Lookup.GetSymbolInfo(\"nothing\", 1, null)"}),
              host.take());
    control().LookupById(3);
    control().IsPluginSupported(L"x");
    EXPECT_EQ((calls{"Lookup.GetSymbolInfoById(3)", "Lookup.IsPluginSupported(\"x\")"}), host.calls());
}

TEST_F(symbol_control, lets_its_service_go_with_the_row) {
    control().LookupByName(L"nothing");
    const ULONG with_row = (lookup->AddRef(), lookup->Release());
    bar->RemoveAllTabs();
    tab.reset();
    EXPECT_EQ(with_row - 1, (lookup->AddRef(), lookup->Release()));
}

TEST_F(symbol_control, that_the_service_can_not_be_made_is_raised_and_tried_again) {
    host.fail("Class.CreateInstance", E_ACCESSDENIED, 1);
    EXPECT_EQ(E_ACCESSDENIED, raised_by([&] { control().LookupByName(L"ESZ6"); }));
    EXPECT_EQ((std::vector<HRESULT>{E_ACCESSDENIED}), reported_codes());
    EXPECT_TRUE(control().IsEmpty());
    control().LookupByName(L"ESZ6");
    EXPECT_FALSE(control().IsEmpty());
}

TEST_F(symbol_control, that_the_service_does_not_start_is_raised_and_tried_again) {
    host.fail("Lookup.Initialize", E_ABORT, 1);
    EXPECT_EQ(E_ABORT, raised_by([&] { control().LookupByName(L"ESZ6"); }));
    EXPECT_EQ((std::vector<HRESULT>{E_ABORT}), reported_codes());
    EXPECT_EQ(0, host.count("GetSymbolInfo"));
    control().LookupByName(L"ESZ6");
    EXPECT_EQ(2, host.count("CreateInstance"));
    EXPECT_EQ(L"ESZ6", text(eODUE_Symbol));
}

TEST_F(symbol_control, hands_the_present_symbol_to_the_service) {
    control().LookupByText(L"ESZ6", false, true);
    control().LookupByText(L"NQZ6", false, false);
    EXPECT_EQ(1, host.count("Lookup.GetSymbolInfo(\"ESZ6\", 1, null)"));
    EXPECT_EQ(1, host.count("Lookup.GetSymbolInfo(\"NQZ6\", 0, \"ESZ6\")"));
}

TEST_F(symbol_control, a_failing_service_is_raised_and_the_record_stays) {
    control().LookupByText(L"ESZ6", false, true);
    reset_record();
    host.fail_and_write("Lookup.GetSymbolInfo", E_ABORT);
    host.fail("Lookup.GetSymbolInfoById", E_HANDLE);
    EXPECT_EQ(E_ABORT, raised_by([&] { control().LookupByText(L"NQZ6", true, false); }));
    EXPECT_EQ(E_ABORT, raised_by([&] { control().LookupByName(L"NQZ6"); }));
    EXPECT_EQ(E_ABORT, raised_by([&] { control().LookupWithDialog(); }));
    EXPECT_EQ(E_HANDLE, raised_by([&] { control().LookupById(55); }));
    EXPECT_EQ((std::vector<HRESULT>{E_ABORT, E_ABORT, E_ABORT, E_HANDLE}), reported_codes());
    EXPECT_EQ(L"ESZ6", text(eODUE_Symbol));
    EXPECT_EQ(0, told_host());
    EXPECT_EQ(0, asked());
}

TEST_F(symbol_control, a_service_that_answers_nothing_counts_as_canceled) {
    host.leave_unwritten("Lookup.GetSymbolInfo");
    host.leave_unwritten("Lookup.GetSymbolInfoById");
    control().LookupByText(L"ESZ6", true, false);
    control().LookupByName(L"ESZ6");
    control().LookupById(55);
    control().LookupWithDialog();
    EXPECT_TRUE(control().IsEmpty());
    EXPECT_EQ(0, asked());
    EXPECT_EQ(0, told_host());
}

TEST_F(symbol_control, a_date_outside_the_calendar_leaves_the_record_as_it_was) {
    control().LookupByText(L"ESZ6", false, true);
    lookup->by_name[L"NQZ6"].expiry = 1e300;
    EXPECT_ANY_THROW(control().LookupByText(L"NQZ6", false, true));
    EXPECT_EQ(L"ESZ6", text(eODUE_Symbol));
}

TEST_F(symbol_control, the_text_of_the_present_symbol_leaves_the_row_untouched) {
    control().LookupByText(L"ESZ6", false, true);
    type(eODUE_FirstPrice, L"90");
    reset_record();
    control().LookupByText(L"ESZ6", false, false);
    EXPECT_EQ((calls{"Lookup.GetSymbolInfo(\"ESZ6\", 0, \"ESZ6\")"}), host.calls());
    EXPECT_EQ(L"90", text(eODUE_FirstPrice));
}

TEST_F(symbol_control, an_empty_text_clears_the_symbol_without_asking_anyone) {
    control().LookupByText(L"ESZ6", false, true);
    reset_record();
    control().put_Value(_variant_t(L""));
    EXPECT_TRUE(control().IsEmpty());
    EXPECT_EQ(L"", text(eODUE_Symbol));
    EXPECT_EQ(0, host.count("Lookup"));
    EXPECT_EQ(1, told_host());
    EXPECT_EQ(0, asked());
    reset_record();
    control().LookupByText(L"", true, true);
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(symbol_control, the_same_symbol_can_come_back_after_it_was_cleared) {
    control().LookupByText(L"ESZ6", false, true);
    control().LookupByText(L"", false, true);
    reset_record();
    control().LookupByText(L"ESZ6", false, true);
    EXPECT_EQ(L"ESZ6", text(eODUE_Symbol));
    EXPECT_EQ(1, told_host());
}

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
    lookup->supported = false;
    EXPECT_FALSE(control().IsPluginSupported(L"CQG"));
    host.leave_unwritten("Lookup.IsPluginSupported");
    EXPECT_FALSE(control().IsPluginSupported(L"CQG"));
    EXPECT_TRUE(reported().empty());
    EXPECT_EQ(3, host.count("IsPluginSupported(\"CQG\")"));
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

TEST_F(symbol_control, survives_the_end_of_its_row_inside_a_lookup_or_behind_a_question) {
    disconnect();
    const boost::shared_ptr<IUnifyControl> held = tab->get_Control(eODUE_Symbol);
    desktop.answer_message_box(IDYES);
    desktop.while_modal([this] { bar->RemoveAllTabs(); });
    tab.reset();
    static_cast<CLookup&>(*held).LookupByText(L"ESZ6", true, false);
    EXPECT_EQ(1, host.count("Profile(\"Alpha\").Connect()"));
    EXPECT_EQ(1, host.count("Unadvise"));
}

}  // namespace
}  // namespace OV_OrderDeck
