#include "charting/orderdeck/interface/TradeInfo.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>

#include "tests/support/diagnostics_recorder.h"
#include "tests/tab/trade_info_sample.h"

namespace OV_OrderDeck {
namespace {

constexpr double largest = std::numeric_limits<double>::max();

TEST(OD_SSymbolInfo, has_its_size_and_offsets) {
    EXPECT_EQ(112u, sizeof(OD_SSymbolInfo));
    EXPECT_EQ(0u, offsetof(OD_SSymbolInfo, id));
    EXPECT_EQ(8u, offsetof(OD_SSymbolInfo, DataFeed));
    EXPECT_EQ(16u, offsetof(OD_SSymbolInfo, Name));
    EXPECT_EQ(24u, offsetof(OD_SSymbolInfo, Root));
    EXPECT_EQ(32u, offsetof(OD_SSymbolInfo, Description));
    EXPECT_EQ(40u, offsetof(OD_SSymbolInfo, Exchange));
    EXPECT_EQ(48u, offsetof(OD_SSymbolInfo, ExchangeTZI));
    EXPECT_EQ(56u, offsetof(OD_SSymbolInfo, Category));
    EXPECT_EQ(60u, offsetof(OD_SSymbolInfo, Currency));
    EXPECT_EQ(64u, offsetof(OD_SSymbolInfo, Expiry));
    EXPECT_EQ(72u, offsetof(OD_SSymbolInfo, PriceScaleCode));
    EXPECT_EQ(80u, offsetof(OD_SSymbolInfo, MinMovement));
    EXPECT_EQ(88u, offsetof(OD_SSymbolInfo, BigPointValue));
    EXPECT_EQ(96u, offsetof(OD_SSymbolInfo, PutOrCall));
    EXPECT_EQ(2u, sizeof(OD_SSymbolInfo::PutOrCall));
    EXPECT_EQ(104u, offsetof(OD_SSymbolInfo, StrikePrice));
}

TEST(OD_SSymbolReq, has_its_offsets) {
    EXPECT_EQ(0u, offsetof(OD_SSymbolReq, Name));
    EXPECT_EQ(8u, offsetof(OD_SSymbolReq, Exchange));
    EXPECT_EQ(16u, offsetof(OD_SSymbolReq, DataFeed));
    EXPECT_EQ(24u, offsetof(OD_SSymbolReq, Category));
}

TEST(CSymbolInfo, fields_stand_in_order) {
    const CSymbolInfo record;
    const void* const order[] = {&record.id,
                                 &record.m_bValid,
                                 &record.DataFeed,
                                 &record.Name,
                                 &record.Root,
                                 &record.Description,
                                 &record.Exchange,
                                 &record.ExchangeTZI,
                                 &record.Category,
                                 &record.Expiry,
                                 &record.PriceScaleCode,
                                 &record.MinMovement,
                                 &record.BigPointValue,
                                 &record.PutOrCall,
                                 &record.StrikePrice,
                                 &record.Currency};
    for (std::size_t i = 1; i < std::size(order); ++i) {
        EXPECT_LT(order[i - 1], order[i]) << i;
    }
}

TEST(CSymbolInfo, a_new_record_is_not_valid_and_holds_the_unset_values) {
    const CSymbolInfo record;
    EXPECT_FALSE(record.valid());
    EXPECT_EQ(0x7FFFFFFF, record.id);
    EXPECT_EQ(nullptr, static_cast<const wchar_t*>(record.DataFeed));
    ASSERT_NE(nullptr, static_cast<const wchar_t*>(record.Name));
    EXPECT_EQ(0u, record.Name.length());
    EXPECT_EQ(nullptr, static_cast<const wchar_t*>(record.Root));
    EXPECT_EQ(nullptr, static_cast<const wchar_t*>(record.Description));
    EXPECT_EQ(nullptr, static_cast<const wchar_t*>(record.Exchange));
    EXPECT_EQ(nullptr, static_cast<const wchar_t*>(record.ExchangeTZI));
    EXPECT_EQ(254, record.Category);
    EXPECT_EQ(599266080000000000, record.Expiry.m_ticks);
    EXPECT_EQ(0x7FFFFFFF, record.PriceScaleCode);
    EXPECT_EQ(largest, record.MinMovement);
    EXPECT_EQ(largest, record.BigPointValue);
    EXPECT_EQ(2, record.PutOrCall);
    EXPECT_EQ(largest, record.StrikePrice);
    EXPECT_EQ(0x7FFFFFFF, record.Currency);
}

TEST(CSymbolInfo, takes_every_value_of_the_interface_form) {
    const CSymbolInfo record = sample();
    EXPECT_TRUE(record.valid());
    EXPECT_EQ(77, record.id);
    EXPECT_STREQ(L"Feed", record.DataFeed);
    EXPECT_STREQ(L"ESZ6", record.Name);
    EXPECT_STREQ(L"ES", record.Root);
    EXPECT_STREQ(L"E-mini 指數", record.Description);
    EXPECT_STREQ(L"CME", record.Exchange);
    EXPECT_STREQ(L"Central", record.ExchangeTZI);
    EXPECT_EQ(3, record.Category);
    EXPECT_EQ(12, record.Currency);
    // 2014-12-27 12:00.
    EXPECT_EQ(599264352000000000 + 42000 * 864000000000 + 432000000000, record.Expiry.m_ticks);
    EXPECT_EQ('g', record.PriceScaleCode);
    EXPECT_EQ(2.0, record.MinMovement);
    EXPECT_EQ(50.0, record.BigPointValue);
    EXPECT_EQ(1, record.PutOrCall);
    EXPECT_EQ(2100.25, record.StrikePrice);
}

TEST(CSymbolInfo, the_copying_form_leaves_the_texts_to_the_source) {
    symbol_info_holder info;
    fill(info);
    const CSymbolInfo record = taken_from(info);
    EXPECT_STREQ(L"ESZ6", info.Name);
    EXPECT_NE(static_cast<const wchar_t*>(record.Name), info.Name);
    EXPECT_NE(static_cast<const wchar_t*>(record.ExchangeTZI), info.ExchangeTZI);
}

TEST(CSymbolInfo, the_adopting_form_takes_the_texts_without_copying) {
    symbol_info_holder info;
    fill(info);
    const BSTR texts[] = {info.DataFeed,    info.Name,     info.Root,
                          info.Description, info.Exchange, info.ExchangeTZI};
    CSymbolInfo record;
    record = static_cast<OD_SSymbolInfo&&>(info);
    EXPECT_EQ(texts[0], static_cast<const wchar_t*>(record.DataFeed));
    EXPECT_EQ(texts[1], static_cast<const wchar_t*>(record.Name));
    EXPECT_EQ(texts[2], static_cast<const wchar_t*>(record.Root));
    EXPECT_EQ(texts[3], static_cast<const wchar_t*>(record.Description));
    EXPECT_EQ(texts[4], static_cast<const wchar_t*>(record.Exchange));
    EXPECT_EQ(texts[5], static_cast<const wchar_t*>(record.ExchangeTZI));
    EXPECT_EQ(nullptr, info.DataFeed);
    EXPECT_EQ(nullptr, info.Name);
    EXPECT_EQ(nullptr, info.Root);
    EXPECT_EQ(nullptr, info.Description);
    EXPECT_EQ(nullptr, info.Exchange);
    EXPECT_EQ(nullptr, info.ExchangeTZI);
    EXPECT_TRUE(record.valid());
    EXPECT_EQ(77, record.id);
}

TEST(CSymbolInfo, copies_share_their_texts) {
    CSymbolInfo copy;
    {
        const CSymbolInfo record = sample();
        copy = record;
        EXPECT_EQ(static_cast<const wchar_t*>(record.Name), static_cast<const wchar_t*>(copy.Name));
        EXPECT_EQ(static_cast<const wchar_t*>(record.DataFeed), static_cast<const wchar_t*>(copy.DataFeed));
        EXPECT_EQ(static_cast<const wchar_t*>(record.Root), static_cast<const wchar_t*>(copy.Root));
        EXPECT_EQ(static_cast<const wchar_t*>(record.Description),
                  static_cast<const wchar_t*>(copy.Description));
        EXPECT_EQ(static_cast<const wchar_t*>(record.Exchange), static_cast<const wchar_t*>(copy.Exchange));
        EXPECT_EQ(static_cast<const wchar_t*>(record.ExchangeTZI),
                  static_cast<const wchar_t*>(copy.ExchangeTZI));
    }
    EXPECT_STREQ(L"ESZ6", copy.Name);
    EXPECT_EQ(77, copy.id);
    EXPECT_TRUE(copy.valid());
    EXPECT_EQ(12, copy.Currency);
    EXPECT_EQ(2100.25, copy.StrikePrice);
}

TEST(CSymbolInfo, an_expiry_of_zero_keeps_the_old_stamp) {
    CSymbolInfo record = sample();
    const LONGLONG stamp = record.Expiry.m_ticks;
    symbol_info_holder info;
    fill(info);
    info.Expiry = 0.0;
    record = info;
    EXPECT_EQ(stamp, record.Expiry.m_ticks);
}

TEST(CSymbolInfo, an_expiry_of_zero_in_a_new_record_leaves_as_the_default_date) {
    symbol_info_holder info;
    const CSymbolInfo record = taken_from(info);
    symbol_info_holder out;
    record.copy_to(out);
    EXPECT_EQ(2.0, out.Expiry);
}

TEST(CSymbolInfo, only_minus_one_is_the_option_side) {
    symbol_info_holder info;
    for (const VARIANT_BOOL side : {VARIANT_FALSE, VARIANT_BOOL{1}, VARIANT_BOOL{-2}}) {
        info.PutOrCall = side;
        EXPECT_EQ(0, taken_from(info).PutOrCall) << side;
    }
    info.PutOrCall = VARIANT_TRUE;
    EXPECT_EQ(1, taken_from(info).PutOrCall);
}

TEST(CSymbolInfo, a_record_of_zeros_is_valid_with_an_empty_name) {
    symbol_info_holder info;
    const CSymbolInfo record = taken_from(info);
    EXPECT_TRUE(record.valid());
    EXPECT_EQ(0u, record.Name.length());
    EXPECT_EQ(0, record.id);
    EXPECT_EQ(0, record.Category);
}

TEST(CSymbolInfo, an_expiry_out_of_range_leaves_record_and_source_as_they_were) {
    for (const double expiry : {-1.0, 65382.0, 1e300, std::numeric_limits<double>::quiet_NaN(),
                                std::numeric_limits<double>::infinity()}) {
        CSymbolInfo record = sample();
        symbol_info_holder info;
        fill(info);
        info.id = 78;
        info.Expiry = expiry;
        EXPECT_ANY_THROW(record = info) << expiry;
        EXPECT_ANY_THROW(record = static_cast<OD_SSymbolInfo&&>(info)) << expiry;
        EXPECT_EQ(77, record.id);
        EXPECT_STREQ(L"ESZ6", info.Name);
    }
}

TEST(CSymbolInfo, copy_to_gives_every_value_back) {
    symbol_info_holder out;
    sample().copy_to(out);
    EXPECT_EQ(77, out.id);
    EXPECT_STREQ(L"Feed", out.DataFeed);
    EXPECT_STREQ(L"ESZ6", out.Name);
    EXPECT_STREQ(L"ES", out.Root);
    EXPECT_STREQ(L"E-mini 指數", out.Description);
    EXPECT_STREQ(L"CME", out.Exchange);
    EXPECT_STREQ(L"Central", out.ExchangeTZI);
    EXPECT_EQ(3, out.Category);
    EXPECT_EQ(12, out.Currency);
    EXPECT_EQ(42000.5, out.Expiry);
    EXPECT_EQ('g', out.PriceScaleCode);
    EXPECT_EQ(2.0, out.MinMovement);
    EXPECT_EQ(50.0, out.BigPointValue);
    EXPECT_EQ(VARIANT_TRUE, out.PutOrCall);
    EXPECT_EQ(2100.25, out.StrikePrice);
}

TEST(CSymbolInfo, copy_to_frees_old_texts_and_sets_copies_of_its_own) {
    const CSymbolInfo record = sample();
    symbol_info_holder out;
    fill(out);
    SysFreeString(out.Name);
    out.Name = SysAllocString(L"old");
    record.copy_to(out);
    EXPECT_STREQ(L"ESZ6", out.Name);
    EXPECT_NE(static_cast<const wchar_t*>(record.Name), out.Name);
}

TEST(CSymbolInfo, copy_to_gives_null_for_a_null_text) {
    symbol_info_holder empty;
    symbol_info_holder out;
    fill(out);
    taken_from(empty).copy_to(out);
    EXPECT_EQ(nullptr, out.DataFeed);
    EXPECT_EQ(nullptr, out.Name);
    EXPECT_EQ(nullptr, out.Root);
    EXPECT_EQ(nullptr, out.Description);
    EXPECT_EQ(nullptr, out.Exchange);
    EXPECT_EQ(nullptr, out.ExchangeTZI);
}

TEST(CSymbolInfo, copy_to_keeps_an_empty_text_apart_from_a_null_one) {
    symbol_info_holder info;
    info.Root = SysAllocString(L"");
    symbol_info_holder out;
    taken_from(info).copy_to(out);
    ASSERT_NE(nullptr, out.Root);
    EXPECT_EQ(0u, SysStringLen(out.Root));
}

TEST(CSymbolInfo, copy_to_keeps_a_null_that_stands_inside_a_text) {
    symbol_info_holder info;
    info.Name = SysAllocStringLen(L"A\0B", 3);
    symbol_info_holder out;
    taken_from(info).copy_to(out);
    EXPECT_EQ((CString{L'A', L'\0', L'B'}), platform::text_of(out.Name));
}

TEST(CSymbolInfo, copy_to_of_an_invalid_record_asserts_and_goes_on) {
    diagnostics_recorder recorder;
    const CSymbolInfo record;
    symbol_info_holder out;
    fill(out);
    record.copy_to(out);
    const auto seen = recorder.assertions();
    ASSERT_EQ(1u, seen.size());
    EXPECT_EQ(L"m_bValid", seen[0].description);
    EXPECT_EQ(0x7FFFFFFF, out.id);
    EXPECT_STREQ(L"", out.Name);
    EXPECT_EQ(nullptr, out.DataFeed);
    EXPECT_EQ(2.0, out.Expiry);
}

TEST(CSymbolInfo, an_option_side_that_is_not_set_leaves_as_no) {
    CSymbolInfo record = sample();
    record.PutOrCall = CSymbolInfo::side_not_set;
    symbol_info_holder out;
    out.PutOrCall = VARIANT_TRUE;
    record.copy_to(out);
    EXPECT_EQ(VARIANT_FALSE, out.PutOrCall);
}

TEST(CSymbolInfo, check_reports_an_invalid_record_only) {
    diagnostics_recorder recorder;
    sample()._check();
    EXPECT_TRUE(recorder.assertions().empty());
    CSymbolInfo()._check();
    const auto seen = recorder.assertions();
    ASSERT_EQ(1u, seen.size());
    EXPECT_EQ(L"valid()", seen[0].description);
}

}  // namespace
}  // namespace OV_OrderDeck
