// Which rows are the symbol that is looked for, and what becomes of them.
#include "charting/orderdeck/src/lookup/SymbolFinders.h"

#include <gmock/gmock.h>

#include "charting/orderdeck/interface/TradeInfo.h"
#include "charting/orderdeck/src/lookup/ProcessSymbols.h"
#include "tests/lookup/fake_symbols.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

using OV_OrderDeck::_process_table;
using OV_OrderDeck::by_id_finder;
using OV_OrderDeck::unique_by_name_finder;
using OV_OrderDeck::unique_by_req_finder;
using test::symbol_row;
using testing::ElementsAre;

test::row with(test::row changed, LONG id, const test::cell& value) {
    changed[id] = value;
    return changed;
}

class symbol_finders : public testing::Test {
protected:
    template <class Finder>
    bool walk(Finder& finder, std::vector<test::row> rows, bool second = false) {
        table->fill(std::move(rows));
        return _process_table(*table, std::ref(finder), second);
    }
    // What a finder by name counts in the ordinary table.
    int count_by_name(std::vector<test::row> rows, const wchar_t* name, const wchar_t* feed = L"TradeNode") {
        unique_by_name_finder finder(name, feed, info);
        walk(finder, std::move(rows));
        return finder.count();
    }
    int count_by_request(std::vector<test::row> rows, const wchar_t* name, const wchar_t* exchange,
                         const wchar_t* feed, LONG category, bool second = false) {
        const _bstr_t texts[] = {name, exchange, feed};
        const OD_SSymbolReq req{texts[0].copy(false), texts[1].copy(false), texts[2].copy(false), category};
        unique_by_req_finder finder(req, info);
        walk(finder, std::move(rows), second);
        return finder.count();
    }
    // Whether a row is found by id, told from the first of the table.
    bool found_by_id(const std::vector<test::row>& rows, LONG id, LONG feed_id, bool second = false) {
        by_id_finder finder(id, feed_id, info);
        return walk(finder, rows, second) && finder.found();
    }

    test::fake_host host;
    // For the currency of what is found.
    test::symbol_classes classes{host, std::make_shared<test::symbol_store>(), {}};
    com_ptr<test::FakeTable> table = platform::make_com<test::FakeTable>(host);
    OV_OrderDeck::symbol_info_holder info;
    diagnostics_recorder diagnostics;
};

TEST_F(symbol_finders, a_name_matches_without_case) {
    EXPECT_EQ(count_by_name({symbol_row(1, L"EsZ6")}, L"eSz6"), 1);
    EXPECT_EQ(count_by_name({symbol_row(1, L"ESZ6")}, L"ESZ"), 0);
    EXPECT_EQ(count_by_name({symbol_row(1, L"ESZ")}, L"ESZ6"), 0);
    EXPECT_EQ(count_by_name({symbol_row(1, L"[A")}, L"{a"), 0);
    EXPECT_EQ(count_by_name({symbol_row(1, L"@z`")}, L"@Z`"), 1);
}

TEST_F(symbol_finders, letters_beyond_a_to_z_match_exactly) {
    EXPECT_EQ(count_by_name({symbol_row(1, L"\u00c9")}, L"\u00e9"), 0);
    EXPECT_EQ(count_by_name({symbol_row(1, L"\u53f0a")}, L"\u53f0A"), 1);
}

TEST_F(symbol_finders, a_feed_matches_with_case_when_a_name_is_looked_for) {
    EXPECT_EQ(count_by_name({symbol_row(1, L"ESZ6", L"tradenode")}, L"ESZ6"), 0);
    EXPECT_EQ(count_by_name({symbol_row(1, L"ESZ6", L"Other")}, L"ESZ6"), 0);
}

TEST_F(symbol_finders, a_row_without_a_feed_id_never_matches_by_name_or_request) {
    EXPECT_EQ(count_by_name({symbol_row(1, L"ESZ6", L"TradeNode", 0)}, L"ESZ6"), 0);
    EXPECT_EQ(count_by_request({symbol_row(1, L"ESZ6", L"TradeNode", 0)}, L"ESZ6", L"NYSE", L"TradeNode", 4),
              0);
}

TEST_F(symbol_finders, the_record_holds_the_first_match_and_the_second_stops_the_walk) {
    unique_by_name_finder finder(L"ESZ6", L"TradeNode", info);
    EXPECT_TRUE(walk(finder, {symbol_row(1, L"NQZ6"), symbol_row(2, L"ESZ6"), symbol_row(3, L"ESZ6"),
                              symbol_row(4, L"ESZ6")}));
    EXPECT_EQ(finder.count(), 2);
    EXPECT_EQ(info.id, 2);
    EXPECT_EQ(host.count("MoveNext"), 2);
}

TEST_F(symbol_finders, one_match_lets_the_walk_go_on_to_the_end) {
    unique_by_name_finder finder(L"ESZ6", L"TradeNode", info);
    EXPECT_FALSE(walk(finder, {symbol_row(1, L"ESZ6"), symbol_row(2, L"NQZ6")}));
    EXPECT_EQ(finder.count(), 1);
    EXPECT_EQ(host.count("MoveNext"), 2);
}

TEST_F(symbol_finders, the_count_goes_on_in_the_second_table) {
    unique_by_name_finder finder(L"ESZ6", L"TradeNode", info);
    EXPECT_FALSE(walk(finder, {symbol_row(1, L"ESZ6")}));
    EXPECT_TRUE(walk(finder, {symbol_row(2, L"ESZ6")}, true));
    EXPECT_EQ(finder.count(), 2);
    EXPECT_EQ(info.id, 1);
}

TEST_F(symbol_finders, a_request_matches_name_exchange_and_feed_without_case) {
    const auto rows = std::vector{symbol_row(1, L"ESZ6")};
    EXPECT_EQ(count_by_request(rows, L"esz6", L"nyse", L"TRADENODE", 4), 1);
    EXPECT_EQ(count_by_request(rows, L"nqz6", L"NYSE", L"TradeNode", 4), 0);
    EXPECT_EQ(count_by_request(rows, L"ESZ6", L"CME", L"TradeNode", 4), 0);
    EXPECT_EQ(count_by_request(rows, L"ESZ6", L"NYSE", L"Other", 4), 0);
    EXPECT_EQ(count_by_request(rows, L"ESZ6", L"NYSE", L"TradeNode", 5), 0);
}

TEST_F(symbol_finders, a_request_takes_18_for_the_category_of_every_row_of_the_second_table) {
    const auto rows = std::vector{symbol_row(1, L"ESZ6")};
    EXPECT_EQ(count_by_request(rows, L"ESZ6", L"NYSE", L"TradeNode", 18, true), 1);
    EXPECT_EQ(count_by_request(rows, L"ESZ6", L"NYSE", L"TradeNode", 4, true), 0);
    EXPECT_EQ(
        count_by_request({with(symbol_row(1, L"ESZ6"), 190, LONG{18})}, L"ESZ6", L"NYSE", L"TradeNode", 18),
        1);
}

TEST_F(symbol_finders, a_request_counts_as_a_name_does) {
    EXPECT_EQ(count_by_request({symbol_row(1, L"ESZ6"), symbol_row(2, L"ESZ6"), symbol_row(3, L"ESZ6")},
                               L"ESZ6", L"NYSE", L"TradeNode", 4),
              2);
    EXPECT_EQ(info.id, 1);
}

TEST_F(symbol_finders, an_id_is_of_its_own_column_in_each_table) {
    const auto rows = std::vector{symbol_row(1, L"NQZ6"), symbol_row(5, L"ESZ6")};
    EXPECT_TRUE(found_by_id(rows, 5, 0));
    EXPECT_FALSE(found_by_id(rows, 5, 0, true));
    EXPECT_TRUE(found_by_id(rows, 1005, 0, true));
    EXPECT_FALSE(found_by_id(rows, 1005, 0));
}

TEST_F(symbol_finders, an_id_of_a_feed_is_not_found_in_another) {
    const auto rows = std::vector{symbol_row(5, L"ESZ6", L"Other", 8), symbol_row(5, L"ESZ6")};
    ASSERT_TRUE(found_by_id(rows, 5, 7));
    EXPECT_EQ(host.count("MoveNext"), 1);
    EXPECT_FALSE(found_by_id(rows, 5, 9));
}

TEST_F(symbol_finders, without_a_feed_the_id_alone_counts_even_in_a_row_that_has_none) {
    ASSERT_TRUE(found_by_id({symbol_row(5, L"ESZ6", L"", 0)}, 5, 0));
    EXPECT_EQ(host.count("Table.get_Field(207)"), 0);
}

TEST_F(symbol_finders, an_id_that_was_found_stops_at_the_next_row_whatever_it_is) {
    by_id_finder finder(5, 7, info);
    EXPECT_TRUE(walk(finder, {symbol_row(5, L"ESZ6")}));
    EXPECT_TRUE(walk(finder, {symbol_row(6, L"NQZ6", L"Other", 8)}));
    EXPECT_EQ(info.id, 5);
}

TEST_F(symbol_finders, a_walk_asks_for_the_end_before_each_row) {
    by_id_finder finder(9, 0, info);
    EXPECT_FALSE(walk(finder, {symbol_row(5, L"ESZ6")}));
    EXPECT_THAT(host.calls(),
                ElementsAre("Table.MoveFirst()", "Table.get_EndOfTable()", "Table.get_Field(1016)",
                            "Field(\"1016\").get_AsLong()", "Table.MoveNext()", "Table.get_EndOfTable()"));
}

TEST_F(symbol_finders, a_finder_is_called_once_for_each_row_with_the_table_and_which_it_is) {
    std::vector<std::pair<LONG, bool>> seen;
    table->fill({symbol_row(1, L"A"), symbol_row(2, L"B"), symbol_row(3, L"C")});
    const auto finder = [&](IovTable& rows, bool second) {
        seen.emplace_back(OV_OrderDeck::GetAsLong(eOVF_Id, rows), second);
        return seen.size() == 2;
    };
    EXPECT_TRUE(_process_table(*table, finder, true));
    EXPECT_THAT(seen, ElementsAre(std::pair<LONG, bool>(1, true), std::pair<LONG, bool>(2, true)));
}

TEST_F(symbol_finders, a_failure_of_the_table_is_reported_and_raised) {
    const auto walk_fails_by = [&](const std::string& operation, HRESULT hr, int nth) {
        host.forget_faults();
        host.fail(operation, hr, nth);
        diagnostics.clear();
        try {
            by_id_finder finder(9, 0, info);
            walk(finder, {symbol_row(5, L"ESZ6")});
        } catch (const _com_error& error) {
            const auto reports = diagnostics.assertions();
            return error.Error() == hr && reports.size() == 1 && reports[0].hresult == hr;
        }
        return false;
    };
    EXPECT_TRUE(walk_fails_by("Table.MoveFirst", E_ABORT, 1));
    EXPECT_TRUE(walk_fails_by("Table.get_EndOfTable", E_HANDLE, 1));
    EXPECT_TRUE(walk_fails_by("Table.MoveNext", E_ABORT, 1));
    EXPECT_TRUE(walk_fails_by("Table.get_EndOfTable", E_HANDLE, 2));
}

TEST_F(symbol_finders, a_table_without_an_end_is_given_up_after_its_most_rows) {
    const auto rows = std::vector{symbol_row(1, L"A"), symbol_row(2, L"B"), symbol_row(3, L"C")};
    int seen = 0;
    const auto finder = [&](IovTable&, bool) { return ++seen < 0; };
    table->fill(rows);
    EXPECT_FALSE(_process_table(*table, finder, false, 3));
    table->fill(rows);
    EXPECT_THROW(_process_table(*table, finder, false, 2), _com_error);
    EXPECT_EQ(seen, 5);
    ASSERT_EQ(diagnostics.assertions().size(), 1U);
    EXPECT_EQ(diagnostics.assertions()[0].description, L"row < rows");
    EXPECT_GE(OV_OrderDeck::most_rows, 10'000'000);
}

}  // namespace
