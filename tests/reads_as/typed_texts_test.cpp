// Every typed text in every locale, as the exact reader reads it.
#include "tests/reads_as/typed_texts.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/reads_as/conventions.h"
#include "tests/reads_as/exact_reader.h"
#include "tests/support/host_record.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"
#include "unicomp/FormatUtil/interface/ReadsAs.h"

namespace {

using reads_as_tests::all_users;
using reads_as_tests::six_users;
using reads_as_tests::typed_prices;
using reads_as_tests::typed_quantities;
using reads_as_tests::user;

void expect_same(const CString& text, const user& whose) {
    const std::optional<exact::number> expected = exact::price(text, whose.conventions);
    const std::optional<double> found = local_format::PriceReadsAs(text);
    ASSERT_EQ(found.has_value(), expected.has_value()) << whose << " \"" << test::narrow(text) << '"';
    ASSERT_TRUE(!expected || exact::is_near(*expected, *found))
        << whose << " \"" << test::narrow(text) << "\" as " << *found << " instead of " << *expected;
}

void expect_same_quantity(const CString& text, const user& whose) {
    const std::optional<std::int64_t> expected = exact::quantity(text, whose.conventions);
    ASSERT_EQ(local_format::QuantityReadsAs(text), expected) << whose << " \"" << test::narrow(text) << '"';
}

class TypedTexts : public testing::TestWithParam<user> {};

TEST_P(TypedTexts, ReadAsTheExactReaderReadsThem) {
    const number_locale_scope scope(GetParam().conventions);
    for (const wchar_t* const text : typed_prices) {
        expect_same(text, GetParam());
    }
    for (const wchar_t* const text : typed_quantities) {
        expect_same_quantity(text, GetParam());
    }
}

TEST_P(TypedTexts, ReadAndDoNotReadOftenEnoughToTellAnything) {
    int read = 0;
    int unread = 0;
    for (const wchar_t* const text : typed_prices) {
        ++(exact::price(text, GetParam().conventions) ? read : unread);
    }
    EXPECT_GE(read, 15);
    EXPECT_GE(unread, 30);
}

// What a parser makes of a text that reads can't be another number.
TEST_P(TypedTexts, AreParsedAsTheyRead) {
    const number_locale_scope scope(GetParam().conventions);
    for (const wchar_t* const text : typed_prices) {
        const std::optional<double> reads = local_format::PriceReadsAs(text);
        double parsed = 0.0;
        if (reads && CPriceScale('k').Parse(text, parsed)) {
            EXPECT_TRUE(local_format::IsSamePrice(*reads, parsed, 0.0)) << test::narrow(text);
        }
    }
}

// Texts that are nearly right, from the pieces of right ones.
CString random_text(std::mt19937& random, const user& whose) {
    const CString pieces[] = {L"0",
                              L"1",
                              L"2",
                              L"9",
                              L"000",
                              L"234",
                              L"56",
                              L"/",
                              L"/32",
                              L" ",
                              L"-",
                              L"(",
                              L")",
                              L"K",
                              L"M",
                              L"+",
                              L".",
                              L",",
                              L"\u00A0",
                              L"e1",
                              whose.conventions.decimal_separator,
                              whose.conventions.group_separator,
                              whose.conventions.group_separator + L"000",
                              whose.conventions.group_separator + L"123"};
    CString text;
    for (auto left = random() % 7; left > 0; --left) {
        text += pieces[random() % std::size(pieces)];
    }
    return text;
}

TEST_P(TypedTexts, OfRandomPiecesReadAsTheExactReaderReadsThem) {
    const number_locale_scope scope(GetParam().conventions);
    std::mt19937 random(42);
    int read = 0;
    for (int i = 0; i < 2000; ++i) {
        const CString text = random_text(random, GetParam());
        ASSERT_NO_FATAL_FAILURE(expect_same(text, GetParam()));
        if (text.size() <= 10) {
            ASSERT_NO_FATAL_FAILURE(expect_same_quantity(text, GetParam()));
        }
        read += local_format::PriceReadsAs(text) ? 1 : 0;
    }
    EXPECT_GT(read, 80);
}

INSTANTIATE_TEST_SUITE_P(Users, TypedTexts, testing::ValuesIn(all_users()),
                         [](const auto& row) { return row.param.name; });

TEST(TypedTexts, AreSixtyPricesInSixLocalesAtLeast) {
    EXPECT_GE(std::size(typed_prices), 60U);
    EXPECT_GE(std::size(typed_quantities), 10U);
    EXPECT_EQ(six_users().size(), 6U);
}

}  // namespace
