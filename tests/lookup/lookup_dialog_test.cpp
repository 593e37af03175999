// The service when it lets the user choose in the host's dialog.
#include "tests/lookup/fake_sheet.h"
#include "tests/lookup/lookup_fixture.h"
#include "tests/support/fake_lookup.h"

namespace {

using test::symbol_row;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

using calls = std::vector<std::string>;

class allow_all : public platform::com_root<IOD_LookupFilter> {
public:
    int asked = 0;
    STDMETHODIMP IsFiltered(BSTR, BSTR, LONG, BSTR, VARIANT_BOOL*) override {
        ++asked;
        return E_NOTIMPL;
    }
};

class lookup_dialog : public test::lookup_test {
protected:
    lookup_dialog() {
        store->ordinary = {symbol_row(5, L"ESZ6"), symbol_row(6, L"NQZ6"),
                           symbol_row(6, L"NQZ6", L"Other", 8)};
        plan->symbol_id = 6;
        plan->feed_id = 8;
        plan->feed = L"Other";
        initialize();
    }
    ~lookup_dialog() override { test::free_symbol(present); }

    // By the dialog only.
    HRESULT ask(const wchar_t* name = L"", OD_SSymbolInfo* selected = nullptr, LONG flags = 2) {
        reset();
        return lookup->GetSymbolInfo(_bstr_t(name), flags, selected, info.get(), &result);
    }
    void refuse(REFIID iid, HRESULT hr = E_NOINTERFACE) { plan->refused[test::id_text(iid)] = hr; }

    OD_SSymbolInfo* present_choice() {
        test::symbol chosen;
        chosen.name = L"ESZ6";
        chosen.description = L"E-mini";
        chosen.exchange = L"CME";
        chosen.category = 4;
        test::free_symbol(present);
        chosen.write(present);
        return &present;
    }
    // What the dialog was told and asked, without the tables behind it.
    calls dialog_calls() {
        calls all;
        for (const std::string& call : host.take()) {
            for (const char* const kind : {"Data.", "Series.", "Quick.", "Dialog.", "Library.", "Sheet.",
                                           "Context.", "Class(\"Data\")"}) {
                if (call.starts_with(kind)) {
                    all.push_back(call);
                }
            }
        }
        return all;
    }
    calls texts(const std::string& part) {
        calls all;
        for (const std::string& call : host.take()) {
            if (call.find(part) != std::string::npos) {
                all.push_back(call);
            }
        }
        return all;
    }
    // The dialog fails: the user has chosen nothing, and the failure was written down.
    void expect_failure(const std::string& why, const std::string& trace = "HRESULT - ") {
        diagnostics.clear();
        host.clear();
        EXPECT_EQ(ask(L"ESZ6", present_choice(), 2), S_OK) << why;
        EXPECT_EQ(result, eODLR_Canceled) << why;
        ASSERT_EQ(diagnostics.traces().size(), 1U) << why;
        EXPECT_THAT(test::narrow(diagnostics.traces()[0]), HasSubstr(trace)) << why;
    }
    // The texts of the assertions.
    std::vector<std::wstring> asserted() const {
        std::vector<std::wstring> all;
        for (const reported_assertion& each : diagnostics.assertions()) {
            all.push_back(each.description);
        }
        return all;
    }

    std::shared_ptr<test::dialog_plan> plan = std::make_shared<test::dialog_plan>();
    test::sheet_library_scope library{host, plan};
    std::optional<test::fake_class> data_class{
        std::in_place, host, CLSID_DataProperty, L"Data", [this] {
            return com_ptr<IUnknown>(platform::make_com<test::FakeDataProperty>(host, plan)->GetUnknown());
        }};
    OD_SSymbolInfo present{};
};

TEST_F(lookup_dialog, goes_through_its_steps_in_order) {
    EXPECT_EQ(ask(L"ESZ6"), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_THAT(dialog_calls(),
                ElementsAre("Class(\"Data\").CreateInstance()", "Series.put_Mode(0, 1)", "Data.Prepare()",
                            "Quick.put_Kind(0)", "Quick.put_DataFeed(\"TradeNode\")",
                            "Quick.put_Name(\"ESZ6\")", "Data.get_Dialog()", "Dialog.put_Filter(\"ESZ6\")",
                            "Library.CreateResizablePropertySheet()",
                            "Sheet.Create(128, \"搜尋 - TradeNode\", data, symbol page)",
                            "Context.put_SettingsRoot(\"SOFTWARE\\OrderDeck Tests\\lookup_tests\")",
                            "Sheet.ShowModal(0)", "Data.OnDialogEnd(2, 0)", "Quick.get_SymbolId()",
                            "Quick.get_DataFeedId()", "Quick.get_DataFeed()"));
}

TEST_F(lookup_dialog, gives_the_chosen_symbol_of_its_feed_with_the_name_of_the_feed) {
    EXPECT_EQ(ask(), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_EQ(info->id, 6);
    EXPECT_EQ(name(), L"NQZ6");
    EXPECT_EQ(platform::text_of(info->DataFeed), L"Other");
    EXPECT_EQ(host.count("Table.get_Field(207)"), 3);
}

TEST_F(lookup_dialog, runs_on_the_calling_thread_and_searches_for_the_choice_on_the_worker) {
    EXPECT_EQ(ask(), S_OK);
    for (const auto& call : host.entries()) {
        const bool of_tables = call.text.starts_with("Table.") || call.text.starts_with("Query.");
        EXPECT_EQ(call.thread != GetCurrentThreadId(),
                  of_tables || call.text.find("Field(") == 0 || call.text.starts_with("Request.") ||
                      call.text.starts_with("Currency.") ||
                      (call.text.starts_with("Class") && call.text.find("Data") == std::string::npos))
            << call.text;
    }
}

TEST_F(lookup_dialog, of_all_modal_results_1_alone_means_that_nothing_was_chosen) {
    plan->modal_result = 1;
    EXPECT_EQ(ask(), S_OK);
    EXPECT_EQ(result, eODLR_Canceled);
    EXPECT_THAT(host.calls(), Contains("Data.OnDialogEnd(1, 0)"));
    EXPECT_EQ(host.count("Quick.get_SymbolId"), 0);
    for (const LONG other : {0, 2, -1}) {
        plan->modal_result = other;
        EXPECT_EQ(ask(), S_OK);
        EXPECT_EQ(result, eODLR_Selected) << other;
    }
}

TEST_F(lookup_dialog, an_empty_name_is_seeded_from_the_present_choice) {
    EXPECT_EQ(ask(L"", present_choice(), 0), S_OK);
    EXPECT_THAT(texts("Quick.").at(1), "Quick.Select(\"TradeNode\", \"ESZ6\", 4, \"CME\")");
    EXPECT_EQ(ask(L"", present_choice(), 0), S_OK);
    EXPECT_THAT(texts("put_"), Contains("Quick.put_Name(\"ESZ6\")"));
}

TEST_F(lookup_dialog, without_a_present_choice_an_empty_name_stays_empty_and_filters_nothing) {
    EXPECT_EQ(ask(), S_OK);
    const calls told = dialog_calls();
    EXPECT_THAT(told, Contains("Quick.put_Name(\"\")"));
    EXPECT_THAT(told, Not(Contains(HasSubstr("Select"))));
    EXPECT_THAT(told, Not(Contains("Data.get_Dialog()")));
}

TEST_F(lookup_dialog, a_typed_name_wins_over_the_present_choice) {
    EXPECT_EQ(ask(L"typed", present_choice()), S_OK);
    EXPECT_THAT(texts("typed"), ElementsAre("Quick.Select(\"TradeNode\", \"typed\", 4, \"CME\")",
                                            "Quick.put_Name(\"typed\")", "Dialog.put_Filter(\"typed\")"));
}

TEST_F(lookup_dialog, a_present_choice_that_is_known_needs_no_more_telling) {
    plan->modal_result = 1;
    plan->select = S_OK;
    EXPECT_EQ(ask(L"ESZ6", present_choice()), S_OK);
    EXPECT_THAT(texts("put_"), ElementsAre("Series.put_Mode(0, 1)", "Quick.put_Kind(0)",
                                           "Dialog.put_Filter(\"ESZ6\")", HasSubstr("put_SettingsRoot")));
    for (const HRESULT other : {S_FALSE, E_FAIL}) {
        plan->select = other;
        EXPECT_EQ(ask(L"ESZ6", present_choice()), S_OK);
        EXPECT_THAT(
            texts("put_"),
            ElementsAre("Series.put_Mode(0, 1)", "Quick.put_Kind(0)", "Quick.put_DataFeed(\"TradeNode\")",
                        "Quick.put_Name(\"ESZ6\")", "Quick.put_Description(\"E-mini\")",
                        "Dialog.put_Filter(\"ESZ6\")", HasSubstr("put_SettingsRoot")));
    }
}

TEST_F(lookup_dialog, null_texts_of_the_present_choice_go_as_empty_ones) {
    EXPECT_EQ(ask(L"", &present), S_OK);
    EXPECT_THAT(texts("Quick."),
                ElementsAre("Quick.put_Kind(0)", "Quick.Select(\"TradeNode\", \"\", 0, \"\")",
                            "Quick.put_DataFeed(\"TradeNode\")", "Quick.put_Name(\"\")",
                            "Quick.put_Description(\"\")", "Quick.get_SymbolId()", "Quick.get_DataFeedId()",
                            "Quick.get_DataFeed()"));
}

TEST_F(lookup_dialog, an_instrument_has_its_own_page_and_caption_as_long_as_the_flag_says_so) {
    EXPECT_EQ(ask(L"", nullptr, 6), S_OK);
    EXPECT_THAT(texts("Sheet.Create"), ElementsAre("Sheet.Create(128, \"選擇商品\", data, instrument page)"));
    EXPECT_EQ(ask(L"", nullptr, 4), S_OK);
    EXPECT_THAT(texts("Sheet.Create"), ElementsAre("Sheet.Create(128, \"選擇商品\", data, instrument page)"));
    EXPECT_EQ(ask(L"", nullptr, 2), S_OK);
    EXPECT_THAT(texts("Sheet.Create"),
                ElementsAre("Sheet.Create(128, \"搜尋 - TradeNode\", data, symbol page)"));
}

TEST_F(lookup_dialog, a_caption_of_the_clients_own_wins_until_it_is_empty) {
    EXPECT_EQ(lookup->SetDlgCaption(_bstr_t(L"Mine")), S_OK);
    EXPECT_EQ(ask(L"", nullptr, 6), S_OK);
    EXPECT_THAT(texts("Sheet.Create"), ElementsAre(HasSubstr("\"Mine\"")));
    EXPECT_EQ(lookup->SetDlgCaption(nullptr), S_FALSE);
    EXPECT_EQ(ask(), S_OK);
    EXPECT_THAT(texts("Sheet.Create"), ElementsAre(HasSubstr("\"Mine\"")));
    EXPECT_EQ(lookup->SetDlgCaption(_bstr_t(L"")), S_OK);
    EXPECT_EQ(ask(), S_OK);
    EXPECT_THAT(texts("Sheet.Create"), ElementsAre(HasSubstr("\"搜尋 - TradeNode\"")));
}

TEST_F(lookup_dialog, a_filter_is_the_second_page_object_and_is_not_asked) {
    const auto filter = platform::make_com<allow_all>();
    EXPECT_EQ(lookup->Initialize(0, _bstr_t(L"Avanza"), VARIANT_FALSE, filter.get()), S_OK);
    EXPECT_EQ(ask(), S_OK);
    EXPECT_THAT(texts("Sheet.Create"), ElementsAre(HasSubstr(", data, filter, symbol page")));
    EXPECT_EQ(filter->asked, 0);
    // What is no filter takes the place of the one before.
    EXPECT_EQ(lookup->Initialize(0, _bstr_t(L"Avanza"), VARIANT_FALSE,
                                 platform::make_com<test::FakeSheet>(host, plan)->GetUnknown()),
              S_OK);
    EXPECT_EQ(ask(), S_OK);
    EXPECT_THAT(texts("Sheet.Create"), ElementsAre(HasSubstr(", data, symbol page")));
}

TEST_F(lookup_dialog, is_modal_on_the_window_of_the_service) {
    EXPECT_EQ(lookup->Initialize(4711, _bstr_t(L"Avanza"), VARIANT_FALSE, nullptr), S_OK);
    EXPECT_EQ(ask(), S_OK);
    EXPECT_THAT(texts("ShowModal"), ElementsAre("Sheet.ShowModal(4711)"));
    // A handle's low half is all of it; the sign is kept.
    EXPECT_EQ(lookup->Initialize(-2, _bstr_t(L"Avanza"), VARIANT_FALSE, nullptr), S_OK);
    EXPECT_EQ(ask(), S_OK);
    EXPECT_THAT(texts("ShowModal"), ElementsAre("Sheet.ShowModal(18446744073709551614)"));
}

TEST_F(lookup_dialog, comes_when_no_row_or_several_have_the_name) {
    EXPECT_EQ(ask(L"unknown", nullptr, 0), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_EQ(host.count("Sheet.ShowModal"), 1);
    store->ordinary.push_back(symbol_row(9, L"ESZ6"));
    plan->modal_result = 1;
    EXPECT_EQ(ask(L"ESZ6", nullptr, 0), S_OK);
    EXPECT_EQ(result, eODLR_Canceled);
    EXPECT_EQ(info->id, 5) << "the first of several stays";
    plan->modal_result = 2;
    EXPECT_EQ(ask(L"ESZ6", nullptr, 0), S_OK);
    EXPECT_EQ(info->id, 6) << "the choice is written over it";
}

TEST_F(lookup_dialog, does_not_come_when_the_name_is_unique_and_comes_at_once_when_only_it_is_wanted) {
    EXPECT_EQ(ask(L"ESZ6", nullptr, 0), S_OK);
    EXPECT_EQ(info->id, 5);
    EXPECT_EQ(host.count("ShowModal"), 0);
    host.clear();
    plan->modal_result = 1;
    EXPECT_EQ(ask(L"ESZ6", nullptr, 2), S_OK);
    EXPECT_EQ(result, eODLR_Canceled);
    EXPECT_EQ(host.count("Table."), 0);
}

TEST_F(lookup_dialog, comes_for_an_unknown_plugin_when_only_it_is_wanted) {
    initialize(L"Unknown");
    EXPECT_EQ(ask(), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_THAT(texts("Sheet.Create"), ElementsAre(HasSubstr("\"搜尋 - \"")));
    EXPECT_EQ(ask(L"", nullptr, 0), S_OK);
    EXPECT_EQ(result, eODLR_NotSupported);
}

TEST_F(lookup_dialog, a_choice_that_the_tables_do_not_have_is_reported_and_is_none) {
    plan->symbol_id = 99;
    EXPECT_EQ(ask(), S_OK);
    EXPECT_EQ(result, eODLR_Canceled);
    ASSERT_EQ(diagnostics.assertions().size(), 1U);
    EXPECT_EQ(diagnostics.assertions()[0].description, L"bRes");
    EXPECT_EQ(info->DataFeed, nullptr);
}

TEST_F(lookup_dialog, each_failure_of_a_step_that_it_needs_ends_it_without_a_choice) {
    for (const char* const operation :
         {"Class(\"Data\").CreateInstance", "Data.Prepare", "Data.get_Dialog", "Sheet.Create",
          "Sheet.ShowModal", "Quick.get_SymbolId", "Quick.get_DataFeedId"}) {
        host.forget_faults();
        host.fail(operation, E_ABORT);
        expect_failure(operation);
    }
    host.forget_faults();
    host.leave_unwritten("Data.get_Dialog");
    expect_failure("no dialog", "HRESULT - 80004003");
    EXPECT_THAT(asserted(), ElementsAre(L"SUCCEEDED(hr) && dialog"));
    host.forget_faults();
    plan->sheet_result = E_ABORT;
    expect_failure("no sheet");
}

TEST_F(lookup_dialog, each_missing_interface_that_it_needs_ends_it_without_a_choice) {
    for (const HRESULT hr : {E_NOINTERFACE, E_ACCESSDENIED}) {
        for (const IID& iid : {__uuidof(IDataProperty), __uuidof(pManageSeries), __uuidof(IQuickRequest),
                               __uuidof(IQVPropertySheet)}) {
            plan->refused.clear();
            refuse(iid, hr);
            expect_failure(test::narrow(test::id_text(iid)), "");
            EXPECT_EQ(host.count("ShowModal"), 0);
        }
    }
}

TEST_F(lookup_dialog, a_missing_interface_is_asserted_and_a_null_pointer) {
    refuse(__uuidof(IDataProperty));
    expect_failure("data", "HRESULT - 80004003");
    EXPECT_THAT(asserted(), ElementsAre(L"data"));
    plan->refused.clear();
    refuse(__uuidof(IQuickRequest));
    expect_failure("quick", "HRESULT - 80004003");
    EXPECT_THAT(asserted(), ElementsAre(L"quick"));
}

TEST_F(lookup_dialog, the_quick_request_is_asked_for_again_after_the_sheet) {
    host.on_call("Sheet.ShowModal", [this] { refuse(__uuidof(IQuickRequest)); });
    expect_failure("quick", "HRESULT - 80004003");
    EXPECT_THAT(asserted(), ElementsAre(L"quick"));
    EXPECT_EQ(host.count("Data.OnDialogEnd"), 1);
    EXPECT_EQ(host.count("Quick.get_"), 0);
}

TEST_F(lookup_dialog, a_missing_series_manager_is_an_error_of_its_name) {
    refuse(__uuidof(pManageSeries));
    EXPECT_EQ(ask(), S_OK);
    EXPECT_THAT(diagnostics.errors(), ElementsAre(L"pManageSeries"));
}

TEST_F(lookup_dialog, a_class_that_cannot_be_made_is_traced) {
    data_class.reset();
    EXPECT_EQ(ask(), S_OK);
    EXPECT_EQ(result, eODLR_Canceled);
    ASSERT_EQ(diagnostics.traces().size(), 1U);
    EXPECT_THAT(test::narrow(diagnostics.traces()[0]), HasSubstr("80040154"));
}

TEST_F(lookup_dialog, what_only_prepares_it_is_reported_and_does_not_stop_it) {
    for (const char* const operation :
         {"Series.put_Mode", "Quick.put_Kind", "Quick.put_DataFeed", "Quick.put_Name",
          "Quick.put_Description", "Dialog.put_Filter", "Context.put_SettingsRoot", "Data.OnDialogEnd",
          "Quick.get_DataFeed"}) {
        host.forget_faults();
        host.fail(operation, E_ABORT);
        diagnostics.clear();
        EXPECT_EQ(ask(L"ESZ6", present_choice()), S_OK);
        EXPECT_EQ(result, eODLR_Selected) << operation;
        ASSERT_EQ(diagnostics.assertions().size(), 1U) << operation;
        EXPECT_EQ(diagnostics.assertions()[0].hresult, E_ABORT) << operation;
    }
    host.forget_faults();
    refuse(__uuidof(IQVPropertyContext));
    diagnostics.clear();
    EXPECT_EQ(ask(), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_EQ(diagnostics.assertions().size(), 1U);
}

TEST_F(lookup_dialog, a_worker_that_refuses_the_choice_means_none) {
    lookup->refuse_tasks();
    EXPECT_EQ(ask(), S_OK);
    EXPECT_EQ(result, eODLR_Canceled);
    ASSERT_EQ(diagnostics.traces().size(), 1U);
    EXPECT_THAT(test::narrow(diagnostics.traces()[0]), HasSubstr("Synchronous function execution failed!"));
}

TEST_F(lookup_dialog, lets_go_of_everything_when_it_is_over) {
    const LONG before = platform::module_lock_count();
    EXPECT_EQ(ask(L"ESZ6", present_choice()), S_OK);
    plan->modal_result = 1;
    EXPECT_EQ(ask(L"ESZ6", present_choice()), S_OK);
    host.fail("Sheet.ShowModal", E_ABORT);
    EXPECT_EQ(ask(L"ESZ6", present_choice()), S_OK);
    EXPECT_EQ(platform::module_lock_count(), before);
}

}  // namespace
