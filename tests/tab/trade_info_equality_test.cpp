#include <gtest/gtest.h>

#include "tests/tab/trade_info_sample.h"

namespace OV_OrderDeck {
namespace {

TEST(CSymbolInfo_equality, counts_validity_name_category_feed_and_exchange) {
    const CSymbolInfo record = sample();
    EXPECT_TRUE(record == sample());
    CSymbolInfo other = record;
    other.m_bValid = false;
    EXPECT_FALSE(record == other);
    other = record;
    other.Name = L"ESZ7";
    EXPECT_FALSE(record == other);
    other = record;
    other.Category = 4;
    EXPECT_FALSE(record == other);
    other = record;
    other.DataFeed = L"Other";
    EXPECT_FALSE(record == other);
    other = record;
    other.Exchange = L"CBOT";
    EXPECT_FALSE(record == other);
}

TEST(CSymbolInfo_equality, counts_nothing_else) {
    const CSymbolInfo record = sample();
    CSymbolInfo other = record;
    other.id = 1;
    other.Root = L"x";
    other.Description = L"x";
    other.ExchangeTZI = L"x";
    other.Expiry.m_ticks = 0;
    other.PriceScaleCode = 2;
    other.MinMovement = 5.0;
    other.BigPointValue = 1.0;
    other.PutOrCall = 0;
    other.StrikePrice = 1.0;
    other.Currency = 1;
    EXPECT_TRUE(record == other);
}

TEST(CSymbolInfo_equality, is_by_code_unit_with_case) {
    CSymbolInfo left = sample();
    CSymbolInfo right = left;
    right.Name = L"esz6";
    EXPECT_FALSE(left == right);
    left.Name = L"\u00e9";
    right.Name = L"e\u0301";
    EXPECT_FALSE(left == right);
    right.Name = L"\u00e9";
    EXPECT_TRUE(left == right);
}

TEST(CSymbolInfo_equality, takes_a_null_text_for_an_empty_one) {
    CSymbolInfo left = sample();
    CSymbolInfo right = left;
    left.DataFeed = _bstr_t();
    right.DataFeed = L"";
    EXPECT_TRUE(left == right);
    EXPECT_TRUE(right == left);
    left.Name = _bstr_t();
    right.Name = L"";
    left.Exchange = L"";
    right.Exchange = _bstr_t();
    EXPECT_TRUE(left == right);
}

}  // namespace
}  // namespace OV_OrderDeck
