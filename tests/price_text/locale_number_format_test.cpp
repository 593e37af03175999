#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"

#include <gtest/gtest.h>

#include "tests/support/diagnostics_recorder.h"
#include "tests/support/number_locale_scope.h"
#include "unicomp/FormatUtil/interface/NumberFormat.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"

namespace {

TEST(FoldGrouping, AddsSizesAndStopsAtTheRepeatingEnd) {
    EXPECT_EQ(fold_grouping(L"3;0"), 3U);
    EXPECT_EQ(fold_grouping(L"3;2;0"), 32U);
    EXPECT_EQ(fold_grouping(L"4;3;2;0"), 432U);
}

TEST(FoldGrouping, WithoutTheRepeatingEndEverySizeCountsTenfold) {
    EXPECT_EQ(fold_grouping(L"3"), 30U);
    EXPECT_EQ(fold_grouping(L"3;2"), 320U);
    EXPECT_EQ(fold_grouping(L"0"), 0U);
    EXPECT_EQ(fold_grouping(L"3;0;0"), 30U);
    EXPECT_EQ(fold_grouping(L"3;"), 30U);
}

TEST(FoldGrouping, TakesAnyText) {
    EXPECT_EQ(fold_grouping(L""), 0U);
    EXPECT_EQ(fold_grouping(L";0"), 0U);
    EXPECT_EQ(fold_grouping(L"x"), 0U);
    EXPECT_EQ(fold_grouping(L"3x2;0"), 32U);
}

TEST(LocaleRecords, HoldTheUsersConventionsFromLoadOn) {
    const platform::number_conventions user =
        platform::port<platform::number_locale>::system().user_conventions();
    for (const SLocaleNumberFormat* record :
         {&locale_records::number(), static_cast<const SLocaleNumberFormat*>(&locale_records::price())}) {
        EXPECT_EQ(record->m_sDecimalSeparator, user.decimal_separator);
        EXPECT_EQ(record->m_sGroupSeparator, user.group_separator);
        EXPECT_EQ(record->m_nLocale, 0x400U);
        EXPECT_EQ(record->m_nLeadingZero, user.leading_zero);
        EXPECT_EQ(record->m_nGrouping, fold_grouping(user.grouping));
        EXPECT_EQ(record->m_nNegativeForm, user.negative_form);
    }
    EXPECT_EQ(locale_records::price().m_sGrouping, user.grouping);
}

TEST(LocaleRecords, ThePriceRecordKeepsTheGroupingTextAndBothLengths) {
    const number_locale_scope scope(conventions_of(L"<.>", L",,", L"3;2;0"));
    EXPECT_EQ(locale_records::price().m_sGrouping, L"3;2;0");
    EXPECT_EQ(locale_records::price().m_nDecimalSeparatorLength, 3U);
    EXPECT_EQ(locale_records::price().m_nGroupSeparatorLength, 2U);
}

TEST(LocaleRecords, AreNotReadAgainByAnyUse) {
    test_number_locale later(german());
    const number_locale_scope scope(english());
    const platform::port<platform::number_locale>::replacement replacement(later);
    EXPECT_EQ(CPriceScale(2).Format(1234.5, true, 1), L"1,234.50");
    EXPECT_EQ(local_format::CNumberFormat::IntegerToText(1234), L"1,234");
    double value = 0.0;
    CPriceScale(2).Parse(L"1 1/2", value);
    EXPECT_EQ(later.m_reads, 0);
}

TEST(LocaleRecords, AFieldThatCannotBeReadIsEmptyAndNotReported) {
    const diagnostics_recorder reports;
    const number_locale_scope scope{platform::number_conventions()};
    for (const SLocaleNumberFormat* record :
         {&locale_records::number(), static_cast<const SLocaleNumberFormat*>(&locale_records::price())}) {
        EXPECT_EQ(record->m_sDecimalSeparator, L"");
        EXPECT_EQ(record->m_sGroupSeparator, L"");
        EXPECT_EQ(record->m_nLeadingZero, 0U);
        EXPECT_EQ(record->m_nGrouping, 0U);
        EXPECT_EQ(record->m_nNegativeForm, 0U);
    }
    EXPECT_EQ(locale_records::price().m_sGrouping, L"");
    EXPECT_TRUE(reports.assertions().empty());
    EXPECT_TRUE(reports.traces().empty());
    EXPECT_TRUE(reports.errors().empty());
}

TEST(LocaleRecords, TextsHaveNineCharactersAtMost) {
    const number_locale_scope scope(conventions_of(L"123456789", L"1234567890", L"3;3;3;3;3;0"));
    EXPECT_EQ(locale_records::price().m_sDecimalSeparator, L"123456789");
    EXPECT_EQ(locale_records::price().m_sGroupSeparator, L"");
    EXPECT_EQ(locale_records::price().m_nGroupSeparatorLength, 0U);
    EXPECT_EQ(locale_records::price().m_sGrouping, L"");
    EXPECT_EQ(locale_records::number().m_nGrouping, 0U);
}

// The body, with a "~" in front when the text was negative.
CString sign_split(UINT form, const CString& text) {
    SLocaleNumberFormat record;
    record.m_nNegativeForm = form;
    CString body = L"old";
    const bool negative = record.SplitSign(text, body);
    return negative ? L"~" + body : body;
}

TEST(SplitSign, TrimsAndTakesTheSignInFront) {
    for (UINT form = 0; form <= 5; ++form) {
        EXPECT_EQ(sign_split(form, L""), L"");
        EXPECT_EQ(sign_split(form, L" \t\u00A0 "), L"");
        EXPECT_EQ(sign_split(form, L" 5 "), L"5");
        EXPECT_EQ(sign_split(form, L" -5 "), L"~5");
        EXPECT_EQ(sign_split(form, L"- 5"), L"~ 5");
        EXPECT_EQ(sign_split(form, L"+5"), L"5");
        EXPECT_EQ(sign_split(form, L"-"), L"~");
        EXPECT_EQ(sign_split(form, L"+-5"), L"-5");
        EXPECT_EQ(sign_split(form, L"-5-"), L"~5-");
    }
}

TEST(SplitSign, TakesParenthesesInFormZero) {
    EXPECT_EQ(sign_split(0, L"( 5 )"), L"~ 5 ");
    EXPECT_EQ(sign_split(0, L"()"), L"~");
    EXPECT_EQ(sign_split(0, L"("), L"(");
    EXPECT_EQ(sign_split(0, L"(5"), L"(5");
    EXPECT_EQ(sign_split(0, L"5-"), L"5-");
    for (UINT form = 1; form <= 5; ++form) {
        EXPECT_EQ(sign_split(form, L"(5)"), L"(5)");
    }
}

TEST(SplitSign, TakesAMinusBehindInFormsThreeAndFour) {
    for (const UINT form : {3U, 4U}) {
        EXPECT_EQ(sign_split(form, L"5-"), L"~5");
        // The blank before it stays.
        EXPECT_EQ(sign_split(form, L"5 - "), L"~5 ");
    }
    for (const UINT form : {1U, 2U, 5U}) {
        EXPECT_EQ(sign_split(form, L"5-"), L"5-");
    }
}

TEST(MakeNegative, WrapsByTheFormAndLosesTheSignInAnyOther) {
    SLocaleNumberFormat record;
    const wchar_t* const expected[] = {L"(5)", L"-5", L"- 5", L"5-", L"5 -", L"5"};
    for (UINT form = 0; form <= 5; ++form) {
        record.m_nNegativeForm = form;
        EXPECT_EQ(record.MakeNegative(L"5"), expected[form]);
    }
}

}  // namespace
