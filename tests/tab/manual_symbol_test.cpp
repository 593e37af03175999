#include "charting/orderdeck/src/tab/ManualSymbol.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>

namespace OV_OrderDeck {
namespace {

using record_bytes = std::array<unsigned char, 96>;

record_bytes bytes_of(const SManualSymbol& record) {
    record_bytes result;
    static_assert(sizeof(record) == sizeof(result));
    std::memcpy(result.data(), &record, sizeof(record));
    return result;
}

template <class T>
T at(const record_bytes& bytes, std::size_t offset) {
    T result;
    std::memcpy(&result, bytes.data() + offset, sizeof(result));
    return result;
}

CSymbolInfo sample() {
    CSymbolInfo symbol;
    symbol.id = 7;
    symbol.m_bValid = true;
    symbol.DataFeed = L"Feed";
    symbol.Name = L"ESZ6";
    symbol.Root = L"ES";
    symbol.Description = L"E-mini";
    symbol.Exchange = L"CME";
    symbol.ExchangeTZI = L"Central";
    symbol.Category = 3;
    symbol.Currency = 12;
    symbol.Expiry.m_ticks = 599264352000000000 + 45000 * 864000000000 + 216000000000;
    symbol.PriceScaleCode = 'g';
    symbol.MinMovement = 2.9;
    symbol.BigPointValue = 50.0;
    symbol.PutOrCall = 1;
    symbol.StrikePrice = 2100.25;
    return symbol;
}

const wchar_t* text_at(const record_bytes& bytes, std::size_t offset) {
    return at<const wchar_t*>(bytes, offset);
}

TEST(SManualSymbol, every_value_stands_at_its_offset) {
    const CSymbolInfo symbol = sample();
    const record_bytes bytes = bytes_of(make_manual_symbol(symbol));
    EXPECT_EQ(static_cast<const wchar_t*>(symbol.Name), text_at(bytes, 0));
    EXPECT_EQ(static_cast<const wchar_t*>(symbol.Root), text_at(bytes, 8));
    EXPECT_EQ(static_cast<const wchar_t*>(symbol.Description), text_at(bytes, 16));
    EXPECT_EQ(static_cast<const wchar_t*>(symbol.Exchange), text_at(bytes, 24));
    EXPECT_EQ(3, at<LONG>(bytes, 32));
    EXPECT_EQ(12, at<LONG>(bytes, 36));
    EXPECT_EQ(45000.25, at<double>(bytes, 40));
    EXPECT_EQ(2, at<LONG>(bytes, 48));
    EXPECT_EQ(0, at<LONG>(bytes, 52));
    EXPECT_EQ(0.25, at<double>(bytes, 56));
    EXPECT_EQ(50.0, at<double>(bytes, 64));
    EXPECT_EQ(-1, at<SHORT>(bytes, 72));
    EXPECT_EQ(0, at<SHORT>(bytes, 74));
    EXPECT_EQ(0, at<LONG>(bytes, 76));
    EXPECT_EQ(2100.25, at<double>(bytes, 80));
    EXPECT_EQ(0, at<LONGLONG>(bytes, 88));
}

TEST(SManualSymbol, borrows_its_texts_from_the_record) {
    const CSymbolInfo symbol = sample();
    const SManualSymbol record = make_manual_symbol(symbol);
    EXPECT_STREQ(L"ESZ6", record.Name);
    EXPECT_EQ(static_cast<const wchar_t*>(symbol.Exchange), record.Exchange);
}

TEST(SManualSymbol, is_all_zero_without_a_valid_symbol) {
    CSymbolInfo symbol = sample();
    symbol.m_bValid = false;
    EXPECT_EQ(record_bytes{}, bytes_of(make_manual_symbol(symbol)));
    EXPECT_EQ(record_bytes{}, bytes_of(make_manual_symbol(CSymbolInfo())));
}

TEST(SManualSymbol, a_null_text_stays_null) {
    CSymbolInfo symbol;
    symbol.m_bValid = true;
    const SManualSymbol record = make_manual_symbol(symbol);
    EXPECT_STREQ(L"", record.Name);
    EXPECT_EQ(nullptr, record.Root);
    EXPECT_EQ(nullptr, record.Description);
    EXPECT_EQ(nullptr, record.Exchange);
}

TEST(SManualSymbol, the_option_side_is_set_for_one_only) {
    CSymbolInfo symbol = sample();
    for (const BYTE side : {BYTE{0}, BYTE{2}, BYTE{255}}) {
        symbol.PutOrCall = side;
        EXPECT_EQ(0, make_manual_symbol(symbol).PutOrCall) << int{side};
    }
}

TEST(SManualSymbol, the_movement_is_truncated_and_never_converted_out_of_range) {
    CSymbolInfo symbol = sample();
    const auto movement = [&](double value) {
        symbol.MinMovement = value;
        return make_manual_symbol(symbol).MinMovement;
    };
    EXPECT_EQ(0, movement(0.999));
    EXPECT_EQ(25, movement(25.0));
    EXPECT_EQ(-1, movement(-1.5));
    EXPECT_EQ(2147483646, movement(2147483646.5));
    EXPECT_EQ(2147483647, movement(2147483647.0));
    EXPECT_EQ(2147483647, movement(std::numeric_limits<double>::max()));
    EXPECT_EQ(2147483647, movement(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(std::numeric_limits<LONG>::min(), movement(-1e300));
    EXPECT_EQ(0, movement(std::numeric_limits<double>::quiet_NaN()));
}

// a to z, written out by hand.
constexpr double letter_steps[26] = {10000.0,   1000.0,   100.0,     10.0,       1.0,      0.5,   0.25,
                                     0.125,     0.1,      0.0625,    0.03125,    0.015625, 0.01,  0.001,
                                     0.0001,    0.00001,  0.0078125, 0.00390625, 0.003125, 0.025, 0.0078125,
                                     0.0015625, 0.000001, 0.015625,  0.0078125,  0.001};

TEST(SManualSymbol, the_step_is_that_of_the_letter_and_zero_for_every_other_code) {
    CSymbolInfo symbol = sample();
    for (LONG code = -2; code <= 130; ++code) {
        double expected = 0.0;
        if (code >= 65 && code <= 90) {
            expected = letter_steps[code - 65];
        } else if (code >= 97 && code <= 122) {
            expected = letter_steps[code - 97];
        }
        symbol.PriceScaleCode = code;
        EXPECT_EQ(expected, make_manual_symbol(symbol).PriceStep) << code;
    }
    for (const LONG code : {LONG{0x7FFFFFFF}, std::numeric_limits<LONG>::min()}) {
        symbol.PriceScaleCode = code;
        EXPECT_EQ(0.0, make_manual_symbol(symbol).PriceStep) << code;
    }
}

}  // namespace
}  // namespace OV_OrderDeck
