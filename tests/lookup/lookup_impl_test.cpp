// The service by name, by id and by request.
#include "tests/lookup/lookup_fixture.h"

namespace {

using test::symbol_row;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class lookup_impl : public test::lookup_test {
protected:
    // Defaults with a name, and the currency that the caller left there.
    void expect_defaults(const CString& expected_name, const CString& feed) {
        EXPECT_EQ(info->id, 0);
        EXPECT_EQ(name(), expected_name);
        EXPECT_EQ(platform::text_of(info->DataFeed), feed);
        for (BSTR const text : {info->Root, info->Description, info->Exchange, info->ExchangeTZI}) {
            ASSERT_NE(text, nullptr);
            EXPECT_EQ(SysStringLen(text), 0U);
        }
        EXPECT_EQ(info->Category, 254);
        EXPECT_EQ(info->Expiry, 2.0);
        EXPECT_EQ(info->PriceScaleCode, 112);
        EXPECT_EQ(info->MinMovement, 1.0);
        EXPECT_EQ(info->BigPointValue, 1.0);
        EXPECT_EQ(info->PutOrCall, VARIANT_FALSE);
        EXPECT_EQ(info->StrikePrice, 0.0);
    }
    // Only threads that hold a table; the names of all that were asked.
    std::vector<DWORD> threads_of(const std::string& part) const {
        std::vector<DWORD> threads;
        for (const auto& call : host.entries()) {
            if (call.text.find(part) != std::string::npos) {
                threads.push_back(call.thread);
            }
        }
        return threads;
    }
    HRESULT supported(const wchar_t* plugin) {
        truth = 77;
        return lookup->IsPluginSupported(plugin != nullptr ? _bstr_t(plugin).copy(false) : nullptr, &truth);
    }
    VARIANT_BOOL truth = 77;
};

TEST_F(lookup_impl, initialize_without_a_name_is_reported_and_refused) {
    EXPECT_EQ(lookup->Initialize(0, nullptr, VARIANT_FALSE, nullptr), E_POINTER);
    ASSERT_EQ(diagnostics.assertions().size(), 1U);
    EXPECT_EQ(diagnostics.assertions()[0].description, L"sPluginName");
    EXPECT_EQ(diagnostics.assertions()[0].function, L"Initialize");
    EXPECT_EQ(by_name(L"ESZ6"), OLE_E_BLANK);
}

// Answers or refuses to be asked for a filter.
class candidate : public platform::com_root<IOD_LookupFilter> {
public:
    HRESULT answer = S_OK;
    STDMETHODIMP IsFiltered(BSTR, BSTR, LONG, BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }

protected:
    HRESULT internal_query(REFIID iid, void** out) {
        if (answer != S_OK && IsEqualIID(iid, __uuidof(IOD_LookupFilter))) {
            *out = nullptr;
            return answer;
        }
        return com_root::internal_query(iid, out);
    }
};

TEST_F(lookup_impl, initialize_takes_a_filter_or_none_and_refuses_one_that_fails) {
    const auto filter = platform::make_com<candidate>();
    EXPECT_EQ(lookup->Initialize(0, _bstr_t(L"Avanza"), VARIANT_FALSE, filter.get()), S_OK);
    filter->answer = E_NOINTERFACE;
    EXPECT_EQ(lookup->Initialize(0, _bstr_t(L"Avanza"), VARIANT_FALSE, filter.get()), S_OK);
    lookup = platform::make_com<test::TestLookupImpl>();
    filter->answer = E_ACCESSDENIED;
    EXPECT_EQ(lookup->Initialize(0, _bstr_t(L"Avanza"), VARIANT_FALSE, filter.get()), E_ACCESSDENIED);
    EXPECT_EQ(by_name(L"ESZ6"), OLE_E_BLANK);
}

TEST_F(lookup_impl, only_variant_true_makes_the_name_a_feed) {
    initialize(L"TradeNode", 1);
    EXPECT_EQ(by_name(L"ESZ6"), S_OK);
    EXPECT_EQ(result, eODLR_NotSupported);
    EXPECT_EQ(info->Category, 254);
    initialize(L"TradeNode", VARIANT_TRUE);
    EXPECT_EQ(by_name(L"ESZ6"), S_OK);
    EXPECT_EQ(result, eODLR_NotFound);
}

TEST_F(lookup_impl, by_name_a_service_that_is_not_ready_comes_before_null_pointers) {
    EXPECT_EQ(lookup->GetSymbolInfo(nullptr, 0, nullptr, nullptr, nullptr), static_cast<HRESULT>(0x80040007));
    initialize();
    reset();
    EXPECT_EQ(lookup->GetSymbolInfo(nullptr, 1, nullptr, info.get(), &result), E_INVALIDARG);
    EXPECT_EQ(lookup->GetSymbolInfo(_bstr_t(L"A"), 1, nullptr, nullptr, &result), E_INVALIDARG);
    EXPECT_EQ(lookup->GetSymbolInfo(_bstr_t(L"A"), 1, nullptr, info.get(), nullptr), E_INVALIDARG);
    EXPECT_EQ(result, untold);
}

TEST_F(lookup_impl, a_name_of_one_row_is_that_symbol) {
    initialize();
    store->ordinary = {symbol_row(1, L"NQZ6"), symbol_row(5, L"ESZ6")};
    for (const LONG flags : {0, 1, 4, 5}) {
        EXPECT_EQ(by_name(L"esz6", flags), S_OK);
        EXPECT_EQ(result, eODLR_Selected);
        EXPECT_EQ(info->id, 5);
        EXPECT_EQ(name(), L"ESZ6");
        EXPECT_EQ(info->DataFeed, nullptr);
    }
    EXPECT_EQ(host.count("QuerySecondTable"), 0);
}

TEST_F(lookup_impl, a_name_is_searched_for_in_the_feed_of_the_plugin) {
    initialize();
    store->ordinary = {symbol_row(1, L"ESZ6", L"Avanza"), symbol_row(5, L"ESZ6")};
    EXPECT_EQ(by_name(L"ESZ6"), S_OK);
    EXPECT_EQ(info->id, 5);
    initialize(L"Avanza", VARIANT_TRUE);
    EXPECT_EQ(by_name(L"ESZ6"), S_OK);
    EXPECT_EQ(info->id, 1);
}

TEST_F(lookup_impl, a_name_of_the_second_table_alone_is_found_there) {
    initialize();
    store->second = {symbol_row(5, L"ESZ6")};
    EXPECT_EQ(by_name(L"ESZ6"), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_EQ(info->id, 1005);
    EXPECT_EQ(info->Category, 18);
}

TEST_F(lookup_impl, several_matches_are_no_symbol_and_leave_the_first_in_the_record) {
    initialize();
    store->ordinary = {symbol_row(4, L"ESZ6"), symbol_row(5, L"ESZ6")};
    store->second = {symbol_row(6, L"ESZ6")};
    EXPECT_EQ(by_name(L"ESZ6"), S_OK);
    EXPECT_EQ(result, eODLR_NotFound);
    EXPECT_EQ(info->id, 4);
    EXPECT_EQ(host.count("QuerySecondTable"), 1);
}

TEST_F(lookup_impl, a_name_once_in_each_table_is_found_in_the_first) {
    initialize();
    store->ordinary = {symbol_row(4, L"ESZ6")};
    store->second = {symbol_row(6, L"ESZ6")};
    EXPECT_EQ(by_name(L"ESZ6"), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_EQ(info->id, 4);
}

TEST_F(lookup_impl, an_unknown_or_empty_name_is_not_found_where_no_dialog_may_come) {
    initialize();
    store->ordinary = {symbol_row(4, L"ESZ6"), symbol_row(5, L"")};
    EXPECT_EQ(by_name(L"NQZ6"), S_OK);
    EXPECT_EQ(result, eODLR_NotFound);
    host.clear();
    EXPECT_EQ(by_name(L""), S_OK);
    EXPECT_EQ(result, eODLR_NotFound);
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(lookup_impl, what_stood_in_the_record_is_overwritten_with_zeros_to_the_last_byte) {
    initialize();
    const _bstr_t texts[] = {L"NQZ6", L"NYSE", L"TradeNode", L""};
    OD_SSymbolReq unknown{texts[0].copy(false), texts[1].copy(false), texts[2].copy(false), 4};
    OD_SSymbolReq empty{texts[3].copy(false), texts[1].copy(false), texts[2].copy(false), 4};
    const std::function<HRESULT(OD_SSymbolInfo*)> searches[] = {
        [&](OD_SSymbolInfo* out) {
            return lookup->GetSymbolInfo(texts[0].copy(false), 1, nullptr, out, &result);
        },
        [&](OD_SSymbolInfo* out) { return lookup->GetSymbolInfoById(99, out, &result); },
        [&](OD_SSymbolInfo* out) { return lookup->GetSymbolInfoByReq(&unknown, out, &result); },
        [&](OD_SSymbolInfo* out) { return lookup->GetSymbolInfoByReq(&empty, out, &result); }};
    for (const auto& search : searches) {
        alignas(OD_SSymbolInfo) std::array<unsigned char, sizeof(OD_SSymbolInfo)> bytes{};
        bytes.fill(0xFF);
        result = untold;
        EXPECT_EQ(search(reinterpret_cast<OD_SSymbolInfo*>(bytes.data())), S_OK);
        EXPECT_EQ(result, eODLR_NotFound);
        EXPECT_THAT(bytes, testing::Each(0));
    }
}

TEST_F(lookup_impl, a_plugin_without_a_feed_gives_the_defaults_with_the_name_and_the_callers_currency) {
    initialize(L"Unknown");
    for (const LONG flags : {0, 1, 3}) {
        reset();
        info->Currency = 5;
        EXPECT_EQ(lookup->GetSymbolInfo(_bstr_t(L"ESZ6"), flags, nullptr, info.get(), &result), S_OK);
        EXPECT_EQ(result, eODLR_NotSupported);
        expect_defaults(L"ESZ6", L"");
        EXPECT_EQ(info->Currency, 5);
    }
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(lookup_impl, names_and_ids_are_searched_for_on_one_thread_of_the_service) {
    initialize();
    store->ordinary = {symbol_row(5, L"ESZ6")};
    by_name(L"ESZ6");
    by_id(5);
    auto threads = threads_of("");
    ASSERT_FALSE(threads.empty());
    EXPECT_NE(threads[0], GetCurrentThreadId());
    for (const DWORD thread : threads) {
        EXPECT_EQ(thread, threads[0]);
    }
}

TEST_F(lookup_impl, a_failing_host_is_reported_and_nothing_is_found) {
    initialize();
    store->ordinary = {symbol_row(5, L"ESZ6")};
    for (const char* const operation :
         {"Class.CreateInstance", "Request.put_Symbol", "Query.QuerySymbols", "Table.MoveFirst",
          "Table.get_EndOfTable", "Table.MoveNext", "Table.get_Field", "Field.get_AsLong",
          "Field.get_AsString", "Field.get_AsDouble", "Currency.get_Currency"}) {
        host.forget_faults();
        host.fail(operation, E_ABORT);
        diagnostics.clear();
        EXPECT_EQ(by_name(L"ESZ6"), S_OK);
        EXPECT_EQ(result, eODLR_NotFound) << operation;
        // The caller goes on before the worker reports.
        lookup->on_worker([] {});
        ASSERT_FALSE(diagnostics.assertions().empty()) << operation;
        EXPECT_EQ(diagnostics.assertions().back().description,
                  L"Unhandled exception occure during execute task.");
    }
    host.forget_faults();
    EXPECT_EQ(by_name(L"ESZ6"), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
}

TEST_F(lookup_impl, a_failure_behind_the_match_leaves_a_partly_filled_record) {
    initialize();
    store->ordinary = {symbol_row(5, L"ESZ6")};
    host.fail("Field(\"62\").get_AsString", E_ABORT);
    EXPECT_EQ(by_name(L"ESZ6"), S_OK);
    EXPECT_EQ(result, eODLR_NotFound);
    EXPECT_EQ(info->id, 5);
    EXPECT_EQ(platform::text_of(info->Root), L"ESZ6 root");
    EXPECT_EQ(info->Description, nullptr);
}

TEST_F(lookup_impl, a_worker_that_refuses_is_an_unexpected_failure) {
    initialize();
    lookup->refuse_tasks();
    EXPECT_EQ(by_name(L"ESZ6"), E_UNEXPECTED);
    EXPECT_EQ(result, eODLR_Canceled) << "said before the search";
    EXPECT_EQ(by_id(5), E_UNEXPECTED);
    const auto traces = diagnostics.traces();
    ASSERT_EQ(traces.size(), 2U);
    EXPECT_THAT(test::narrow(traces[0]), HasSubstr("Synchronous function execution failed!"));
}

TEST_F(lookup_impl, an_id_is_found_without_a_feed_and_in_either_table) {
    initialize();
    store->ordinary = {symbol_row(5, L"ESZ6", L"", 0)};
    store->second = {symbol_row(6, L"NQZ6")};
    EXPECT_EQ(by_id(5), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_EQ(name(), L"ESZ6");
    EXPECT_EQ(host.count("QuerySecondTable"), 0);
    EXPECT_EQ(by_id(1006), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_EQ(name(), L"NQZ6");
    EXPECT_EQ(by_id(99), S_OK);
    EXPECT_EQ(result, eODLR_NotFound);
}

TEST_F(lookup_impl, by_id_null_pointers_are_refused_and_readiness_is_not_asked_for) {
    reset();
    EXPECT_EQ(lookup->GetSymbolInfoById(5, nullptr, &result), E_INVALIDARG);
    EXPECT_EQ(lookup->GetSymbolInfoById(5, info.get(), nullptr), E_INVALIDARG);
    EXPECT_EQ(by_id(5), S_OK);
    EXPECT_EQ(result, eODLR_NotSupported);
    expect_defaults(L"", L"");
    initialize(L"Unknown", VARIANT_TRUE);
    EXPECT_EQ(by_id(5), S_OK);
    EXPECT_EQ(result, eODLR_NotFound);
}

TEST_F(lookup_impl, by_request_null_pointers_are_refused) {
    reset();
    OD_SSymbolReq req{};
    EXPECT_EQ(lookup->GetSymbolInfoByReq(nullptr, info.get(), &result), E_INVALIDARG);
    EXPECT_EQ(lookup->GetSymbolInfoByReq(&req, nullptr, &result), E_INVALIDARG);
    EXPECT_EQ(lookup->GetSymbolInfoByReq(&req, info.get(), nullptr), E_INVALIDARG);
}

TEST_F(lookup_impl, by_request_the_plugin_counts_even_where_the_name_is_a_feed) {
    initialize(L"TradeNode", VARIANT_TRUE);
    EXPECT_EQ(by_request(L"ESZ6", L"NYSE", L"TradeNode", 4), S_OK);
    EXPECT_EQ(result, eODLR_NotSupported);
    expect_defaults(L"", L"TradeNode");
}

TEST_F(lookup_impl, a_request_with_an_empty_text_is_not_found_and_not_searched_for) {
    initialize();
    const wchar_t* const texts[][3] = {
        {L"", L"NYSE", L"TradeNode"}, {L"ESZ6", L"", L"TradeNode"}, {L"ESZ6", L"NYSE", L""}};
    for (const auto& [symbol, exchange, feed] : texts) {
        EXPECT_EQ(by_request(symbol, exchange, feed, 4), S_OK);
        EXPECT_EQ(result, eODLR_NotFound);
    }
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(lookup_impl, a_request_is_searched_for_on_the_calling_thread) {
    initialize();
    store->ordinary = {symbol_row(5, L"ESZ6")};
    EXPECT_EQ(by_request(L"esz6", L"nyse", L"tradenode", 4), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_EQ(info->id, 5);
    for (const DWORD thread : threads_of("")) {
        EXPECT_EQ(thread, GetCurrentThreadId());
    }
    EXPECT_EQ(by_request(L"NQZ6", L"NYSE", L"TradeNode", 4), S_OK);
    EXPECT_EQ(result, eODLR_NotFound);
}

TEST_F(lookup_impl, a_failure_of_a_request_is_the_callers) {
    initialize();
    host.fail("Query.QuerySymbols", E_ACCESSDENIED);
    EXPECT_EQ(by_request(L"ESZ6", L"NYSE", L"TradeNode", 4), E_ACCESSDENIED);
    EXPECT_EQ(info->id, 0);
}

TEST_F(lookup_impl, whether_a_plugin_is_supported_needs_a_place_for_the_answer_and_a_name) {
    EXPECT_EQ(lookup->IsPluginSupported(_bstr_t(L"Avanza"), nullptr), E_INVALIDARG);
    EXPECT_EQ(supported(L""), E_INVALIDARG);
    EXPECT_EQ(supported(nullptr), E_INVALIDARG);
    EXPECT_EQ(supported(L"Avanza"), S_OK);
    EXPECT_EQ(truth, VARIANT_TRUE);
    EXPECT_EQ(supported(L"avanza"), S_OK);
    EXPECT_EQ(truth, VARIANT_FALSE);
}

TEST_F(lookup_impl, an_empty_name_asks_about_its_own_plugin_or_feed) {
    initialize();
    EXPECT_EQ(supported(L""), S_OK);
    EXPECT_EQ(truth, VARIANT_TRUE);
    initialize(L"Unknown");
    EXPECT_EQ(supported(nullptr), S_OK);
    EXPECT_EQ(truth, VARIANT_FALSE);
    initialize(L"TradeNode", VARIANT_TRUE);
    EXPECT_EQ(supported(L""), S_FALSE);
    EXPECT_EQ(truth, VARIANT_TRUE);
    EXPECT_EQ(supported(L"Unknown"), S_OK);
    EXPECT_EQ(truth, VARIANT_FALSE);
}

TEST_F(lookup_impl, a_caption_is_copied_and_null_is_no_caption) {
    EXPECT_EQ(lookup->SetDlgCaption(nullptr), S_FALSE);
    EXPECT_EQ(lookup->own_caption(), nullptr);
    const _bstr_t first(L"first");
    EXPECT_EQ(lookup->SetDlgCaption(first), S_OK);
    EXPECT_NE(lookup->own_caption(), first.copy(false));
    EXPECT_STREQ(lookup->own_caption(), L"first");
    EXPECT_EQ(lookup->SetDlgCaption(_bstr_t(L"second")), S_OK);
    EXPECT_STREQ(lookup->own_caption(), L"second");
    EXPECT_EQ(lookup->SetDlgCaption(nullptr), S_FALSE);
    EXPECT_STREQ(lookup->own_caption(), L"second");
}

TEST_F(lookup_impl, its_own_caption_stays_where_it_is) {
    EXPECT_EQ(lookup->SetDlgCaption(_bstr_t(L"mine")), S_OK);
    BSTR const own = lookup->own_caption();
    EXPECT_EQ(lookup->SetDlgCaption(own), S_OK);
    EXPECT_EQ(lookup->own_caption(), own);
    EXPECT_STREQ(own, L"mine");
}

}  // namespace
