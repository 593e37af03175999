// Queries of the host's tables: which objects are made, what they are asked, and every failure.
#include "charting/orderdeck/src/lookup/ProcessSymbols.h"

#include <gmock/gmock.h>

#include "charting/orderdeck/interface/TradeInfo.h"
#include "tests/lookup/fake_symbols.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

using test::symbol_row;
using testing::ElementsAre;
using testing::IsEmpty;

using calls = std::vector<std::string>;

const calls creation = {"Class(\"Query\").CreateInstance()", "Class(\"Table\").CreateInstance()",
                        "Class(\"Request\").CreateInstance()"};

class process_symbols : public testing::Test {
protected:
    void serve(const test::symbol_classes::gaps& gaps) {
        classes.reset();
        classes.emplace(host, store, gaps);
    }
    // Counts rows; the result of the query.
    HRESULT count(bool second) {
        rows = 0;
        return result_of(
            [&] { OV_OrderDeck::_process_symbols([this](IovTable&, bool) { return ++rows < 0; }, second); });
    }
    HRESULT by_request(LONG category = 4, const wchar_t* name = L"ESZ6") {
        const _bstr_t texts[] = {name, L"NYSE", L"TradeNode"};
        const OD_SSymbolReq req{texts[0].copy(false), texts[1].copy(false), texts[2].copy(false), category};
        return result_of([&] { found = OV_OrderDeck::_process_symbols_by_req(info, req); });
    }
    static HRESULT result_of(const std::function<void()>& query) {
        try {
            query();
            return S_OK;
        } catch (const _com_error& error) {
            return error.Error();
        }
    }
    // What was asked of the query and the request, without the making of objects and the rows.
    calls questions() {
        calls all;
        for (const std::string& call : host.take()) {
            if (call.starts_with("Query.") || call.starts_with("Request.")) {
                all.push_back(call);
            }
        }
        return all;
    }

    test::fake_host host;
    std::shared_ptr<test::symbol_store> store = std::make_shared<test::symbol_store>();
    std::optional<test::symbol_classes> classes{std::in_place, host, store, test::symbol_classes::gaps()};
    OV_OrderDeck::symbol_info_holder info;
    bool found = false;
    int rows = 0;
    diagnostics_recorder diagnostics;
};

TEST_F(process_symbols, the_ordinary_table_is_asked_for_all_symbols) {
    store->ordinary = {symbol_row(1, L"A"), symbol_row(2, L"B")};
    EXPECT_EQ(count(false), S_OK);
    EXPECT_EQ(rows, 2);
    const calls all = host.take();
    ASSERT_GE(all.size(), 5U);
    EXPECT_EQ(calls(all.begin(), all.begin() + 3), creation);
    EXPECT_EQ(all[3], "Request.put_Symbol(0, 0)");
    EXPECT_EQ(all[4], "Query.QuerySymbols(0, null, table)");
}

TEST_F(process_symbols, the_second_table_is_asked_for_with_zeros) {
    store->second = {symbol_row(1, L"A"), symbol_row(2, L"B"), symbol_row(3, L"C")};
    EXPECT_EQ(count(true), S_OK);
    EXPECT_EQ(rows, 3);
    EXPECT_THAT(questions(), ElementsAre("Request.put_Symbol(0, 0)", "Query.QuerySecondTable(0, 0, table)"));
}

TEST_F(process_symbols, a_class_without_the_query_interface_ends_the_query_without_a_result) {
    serve({{}, {L"Query"}});
    EXPECT_EQ(count(false), S_OK);
    EXPECT_EQ(rows, 0);
    EXPECT_EQ(host.take(), creation);
    found = true;
    EXPECT_EQ(by_request(), S_OK);
    EXPECT_FALSE(found);
    EXPECT_EQ(host.take(), creation);
    EXPECT_THAT(diagnostics.assertions(), IsEmpty());
}

TEST_F(process_symbols, a_class_that_cannot_be_made_is_raised) {
    for (const CString name : {L"Query", L"Table", L"Request"}) {
        serve({{name}, {}});
        EXPECT_EQ(count(false), REGDB_E_CLASSNOTREG);
        EXPECT_EQ(count(true), REGDB_E_CLASSNOTREG);
        EXPECT_EQ(by_request(), REGDB_E_CLASSNOTREG);
    }
    serve({});
    host.fail("Class(\"Table\").CreateInstance", E_ACCESSDENIED);
    EXPECT_EQ(count(false), E_ACCESSDENIED);
}

TEST_F(process_symbols, a_missing_table_or_request_is_no_crash) {
    serve({{}, {L"Table"}});
    EXPECT_EQ(count(false), E_POINTER);
    EXPECT_EQ(count(true), E_POINTER);
    for (const auto& [category, query] :
         {std::pair<LONG, const char*>{4, "Query.QuerySymbols(0, request, null)"},
          {18, "Query.QuerySecondTable(0, 0, null)"}}) {
        host.clear();
        found = true;
        EXPECT_EQ(by_request(category), S_OK);
        EXPECT_FALSE(found);
        EXPECT_EQ(host.count(query), 1) << "the host is asked all the same";
    }
    serve({{}, {L"Request"}});
    EXPECT_EQ(count(false), E_POINTER);
    EXPECT_EQ(by_request(), E_POINTER);
}

TEST_F(process_symbols, each_failure_of_the_query_or_the_request_is_raised) {
    host.fail("Request.put_Symbol", E_HANDLE);
    EXPECT_EQ(count(false), E_HANDLE);
    EXPECT_EQ(by_request(), E_HANDLE);
    host.forget_faults();
    host.fail("Query.QuerySymbols", E_ABORT);
    host.fail("Query.QuerySecondTable", E_ACCESSDENIED);
    EXPECT_EQ(count(false), E_ABORT);
    EXPECT_EQ(count(true), E_ACCESSDENIED);
    EXPECT_EQ(by_request(4), E_ABORT);
    EXPECT_EQ(by_request(18), E_ACCESSDENIED);
}

TEST_F(process_symbols, a_request_is_resolved_to_an_id_step_by_step) {
    store->ordinary = {symbol_row(1, L"A"), symbol_row(5, L"ESZ6")};
    store->feed_id = 7;
    store->exchange_id = 3;
    store->symbol_id = 5;
    EXPECT_EQ(by_request(), S_OK);
    EXPECT_TRUE(found);
    EXPECT_EQ(info.id, 5);
    EXPECT_EQ(host.count("Move"), 0);
    EXPECT_EQ(host.count("get_EndOfTable"), 0);
    EXPECT_THAT(questions(),
                ElementsAre("Query.get_DataFeedId(\"TradeNode\")", "Query.get_ExchangeId(\"NYSE\")",
                            "Query.get_SymbolId(7, \"ESZ6\", 4, 3, 0, 0, 0)", "Request.put_Symbol(0, 5)",
                            "Query.QuerySymbols(0, request, table)"));
}

TEST_F(process_symbols, a_request_of_category_18_is_of_the_second_table) {
    store->second = {symbol_row(1, L"A"), symbol_row(5, L"ESZ6")};
    store->symbol_id = 1005;
    EXPECT_EQ(by_request(18), S_OK);
    EXPECT_TRUE(found);
    EXPECT_EQ(info.id, 1005);
    EXPECT_EQ(info.Category, 18);
    EXPECT_THAT(questions(),
                ElementsAre("Query.get_DataFeedId(\"TradeNode\")", "Query.get_ExchangeId(\"NYSE\")",
                            "Query.get_SymbolId(0, \"ESZ6\", 18, 0, 0, 0, 0)", "Request.put_Symbol(0, 1005)",
                            "Query.QuerySecondTable(0, 0, table)"));
}

TEST_F(process_symbols, without_an_id_the_rows_are_searched_for_exactly_one) {
    store->ordinary = {symbol_row(1, L"A"), symbol_row(5, L"esz6")};
    EXPECT_EQ(by_request(), S_OK);
    EXPECT_TRUE(found);
    EXPECT_EQ(info.id, 5);
    EXPECT_EQ(host.count("Request.put_Symbol(0, 0)"), 1);
    EXPECT_EQ(host.count("Query.QuerySymbols(0, request, table)"), 1);
    store->ordinary.push_back(symbol_row(6, L"ESZ6"));
    EXPECT_EQ(by_request(), S_OK);
    EXPECT_FALSE(found);
    EXPECT_EQ(by_request(4, L"NQZ6"), S_OK);
    EXPECT_FALSE(found);
}

TEST_F(process_symbols, an_id_that_cannot_be_had_is_reported_and_the_rows_are_searched) {
    store->ordinary = {symbol_row(5, L"ESZ6")};
    store->feed_id = 7;
    store->exchange_id = 3;
    store->symbol_id = 5;
    host.fail_and_write("Query.get_DataFeedId", E_ABORT);
    host.fail_and_write("Query.get_ExchangeId", E_ABORT);
    host.fail_and_write("Query.get_SymbolId", E_ABORT);
    EXPECT_EQ(by_request(), S_OK);
    EXPECT_TRUE(found);
    EXPECT_EQ(diagnostics.assertions().size(), 3U);
    EXPECT_EQ(host.count("Query.get_SymbolId(0, \"ESZ6\", 4, 0, 0, 0, 0)"), 1);
    EXPECT_EQ(host.count("MoveFirst"), 1);
}

TEST_F(process_symbols, the_objects_do_not_outlive_the_query) {
    const LONG before = platform::module_lock_count();
    store->ordinary = {symbol_row(5, L"ESZ6")};
    EXPECT_EQ(count(false), S_OK);
    EXPECT_EQ(by_request(), S_OK);
    host.fail("Table.get_EndOfTable", E_ABORT);
    EXPECT_EQ(count(true), E_ABORT);
    EXPECT_EQ(platform::module_lock_count(), before);
}

}  // namespace
