// A row as a symbol record.
#include "charting/orderdeck/src/lookup/FillSymbolInfo.h"

#include <gmock/gmock.h>

#include "charting/orderdeck/interface/TradeInfo.h"
#include "tests/lookup/fake_symbols.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

using OV_OrderDeck::fill_symbol_info;

class fill_symbol : public testing::Test {
protected:
    void serve(bool absent, bool without_currency) {
        classes.reset();
        test::symbol_classes::gaps gaps;
        if (absent) {
            gaps.absent = {L"Query"};
        }
        gaps.without_currency = without_currency;
        classes.emplace(host, store, gaps);
    }
    HRESULT fill(bool second = false) {
        try {
            fill_symbol_info(*table, second, info);
            return S_OK;
        } catch (const _com_error& error) {
            return error.Error();
        }
    }
    void expect_common_values() {
        EXPECT_EQ(platform::text_of(info.Name), L"ESZ6");
        EXPECT_EQ(platform::text_of(info.Root), L"ESZ6 root");
        EXPECT_EQ(platform::text_of(info.Description), L"ESZ6 text");
        EXPECT_EQ(platform::text_of(info.Exchange), L"NYSE");
        EXPECT_EQ(platform::text_of(info.ExchangeTZI), L"EST");
        EXPECT_EQ(info.PriceScaleCode, 2);
        EXPECT_EQ(info.MinMovement, 2.0);
        EXPECT_EQ(info.BigPointValue, 50.0);
        EXPECT_EQ(info.Currency, 840);
        EXPECT_EQ(info.DataFeed, nullptr);
    }

    test::fake_host host;
    std::shared_ptr<test::symbol_store> store = std::make_shared<test::symbol_store>();
    std::optional<test::symbol_classes> classes{std::in_place, host, store, test::symbol_classes::gaps()};
    test::row row = test::symbol_row(5, L"ESZ6");
    com_ptr<test::FakeTable> table = platform::make_com<test::FakeTable>(host, std::vector{row});
    OV_OrderDeck::symbol_info_holder info;
    diagnostics_recorder diagnostics;
};

TEST_F(fill_symbol, takes_every_field_of_an_ordinary_row) {
    ASSERT_EQ(fill(), S_OK);
    expect_common_values();
    EXPECT_EQ(info.id, 5);
    EXPECT_EQ(info.Category, 4);
    EXPECT_EQ(info.Expiry, 45000.0);
    EXPECT_EQ(info.PutOrCall, VARIANT_TRUE);
    EXPECT_EQ(info.StrikePrice, 125.5);
}

TEST_F(fill_symbol, a_row_of_the_second_table_has_fixed_category_expiry_side_and_strike) {
    info.StrikePrice = 1.0;
    info.PutOrCall = VARIANT_TRUE;
    ASSERT_EQ(fill(true), S_OK);
    expect_common_values();
    EXPECT_EQ(info.id, 1005);
    EXPECT_EQ(info.Category, 18);
    EXPECT_EQ(info.Expiry, 2.0);
    EXPECT_EQ(info.PutOrCall, VARIANT_FALSE);
    EXPECT_EQ(info.StrikePrice, 0.0);
    for (const char* const unread : {"(190)", "(102)", "(224)", "(32)", "(1016)"}) {
        EXPECT_EQ(host.count(unread), 0) << unread;
    }
}

TEST_F(fill_symbol, only_side_1_is_a_put) {
    for (const LONG side : {0, 2, -1}) {
        row[224] = side;
        table->fill({row});
        ASSERT_EQ(fill(), S_OK);
        EXPECT_EQ(info.PutOrCall, VARIANT_FALSE) << side;
    }
}

TEST_F(fill_symbol, the_data_feed_stays_as_it_was_and_old_texts_are_replaced) {
    info.DataFeed = SysAllocString(L"kept");
    info.Name = SysAllocString(L"old");
    ASSERT_EQ(fill(), S_OK);
    EXPECT_EQ(platform::text_of(info.DataFeed), L"kept");
    EXPECT_EQ(platform::text_of(info.Name), L"ESZ6");
}

TEST_F(fill_symbol, the_currency_is_looked_up_by_the_key_of_the_row) {
    row[1013] = LONG{77};
    table->fill({row});
    ASSERT_EQ(fill(), S_OK);
    EXPECT_EQ(host.count("Currency.get_Currency(77)"), 1);
    EXPECT_EQ(info.Currency, -1);
}

TEST_F(fill_symbol, without_a_currency_lookup_the_currency_stays) {
    serve(false, true);
    info.Currency = 978;
    ASSERT_EQ(fill(), S_OK);
    EXPECT_EQ(info.Currency, 978);
    EXPECT_EQ(host.count("Table.get_Field(1013)"), 0);
}

TEST_F(fill_symbol, a_currency_lookup_that_cannot_be_made_is_raised) {
    serve(true, false);
    EXPECT_EQ(fill(), REGDB_E_CLASSNOTREG);
}

TEST_F(fill_symbol, a_currency_lookup_that_fails_is_reported_and_raised) {
    host.fail("Currency.get_Currency", E_ABORT);
    EXPECT_EQ(fill(), E_ABORT);
    ASSERT_EQ(diagnostics.assertions().size(), 1U);
    EXPECT_EQ(diagnostics.assertions()[0].hresult, E_ABORT);
}

TEST_F(fill_symbol, each_field_that_fails_ends_the_filling_and_leaves_no_text_behind) {
    for (int nth = 1; nth <= 14; ++nth) {
        host.forget_faults();
        host.fail("Table.get_Field", E_ABORT, nth);
        EXPECT_EQ(fill(), E_ABORT) << nth;
    }
    host.forget_faults();
    EXPECT_EQ(fill(), S_OK);
}

}  // namespace
