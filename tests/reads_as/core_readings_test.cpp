// Readings that were worked out by hand, one by one. The component has to agree with them, and so has the
// reader that the larger tables are compared with.
#include <gtest/gtest.h>

#include "tests/reads_as/conventions.h"
#include "tests/reads_as/exact_reader.h"
#include "tests/support/host_record.h"
#include "unicomp/FormatUtil/interface/ReadsAs.h"

namespace {

using reads_as_tests::user;

struct price_row {
    const char* user;
    const wchar_t* text;
    std::optional<double> value;
};

struct quantity_row {
    const char* user;
    const wchar_t* text;
    std::optional<LONG> value;
};

template <class Row>
std::ostream& shown(std::ostream& out, const Row& row) {
    return out << row.user << " \"" << test::narrow(row.text) << '"';
}
std::ostream& operator<<(std::ostream& out, const price_row& row) {
    return shown(out, row);
}
std::ostream& operator<<(std::ostream& out, const quantity_row& row) {
    return shown(out, row);
}

platform::number_conventions conventions_of_user(const std::string& name) {
    for (const user& each : reads_as_tests::all_users()) {
        if (each.name == name) {
            return each.conventions;
        }
    }
    ADD_FAILURE() << "nobody is called " << name;
    return {};
}

constexpr std::nullopt_t none = std::nullopt;

const price_row prices[] = {
    // Digits and one decimal separator.
    {"english", L"6010", 6010.0},
    {"english", L"6010.25", 6010.25},
    {"english", L"0.5", 0.5},
    {"english", L".5", 0.5},
    {"english", L"5.", 5.0},
    {"english", L".", none},
    {"english", L"", none},
    {"english", L" ", none},
    {"english", L"007", 7.0},
    {"english", L"1.2.3", none},
    {"german", L"6010,25", 6010.25},
    {"german", L",5", 0.5},
    {"german", L"5,", 5.0},
    {"german", L",", none},
    {"long_marks", L"6010<>25", 6010.25},
    {"long_marks", L"6010<25", none},
    // What one locale's decimal separator is, is the other's group separator.
    {"english", L"6010,5", none},
    {"english", L"71,24", none},
    {"english", L"60,10", none},
    {"english", L"6,0", none},
    {"english", L"6,010", 6010.0},
    {"german", L"6010,5", 6010.5},
    {"german", L"71,24", 71.24},
    {"german", L"60,10", 60.1},
    {"german", L"6,010", 6.01},
    {"german", L"6.010", 6010.0},
    {"german", L"6010.5", none},
    {"german", L"71.24", none},
    {"french", L"71,24", 71.24},
    {"french", L"71.24", none},
    {"swiss", L"71.24", 71.24},
    {"swiss", L"71,24", none},
    // Groups stand where the locale puts them or nowhere.
    {"english", L"1,234,567.5", 1234567.5},
    {"english", L"1234,567", none},
    {"english", L"1,234567", none},
    {"english", L",123", none},
    {"english", L"123,", none},
    {"english", L"1,,234", none},
    {"english", L"1.234,5", none},
    {"english", L"0.123,456", none},
    {"french", L"6\u202F010,5", 6010.5},
    {"french", L"6\u00A0010,5", none},
    {"french", L"6 010,5", none},
    {"no_break_space", L"6\u00A0010,5", 6010.5},
    {"no_break_space", L"6\u202F010,5", none},
    {"blank_groups", L"6 010,5", 6010.5},
    {"blank_groups", L"60 10,5", none},
    {"swiss", L"6\u2019010.5", 6010.5},
    {"swiss", L"6'010.5", none},
    {"apostrophe", L"6'010.5", 6010.5},
    {"indian", L"1,23,456.5", 123456.5},
    {"indian", L"12,34,567", 1234567.0},
    {"indian", L"123,456.5", none},
    {"indian", L"1,234", 1234.0},
    {"indian", L"1,23", none},
    {"accountant", L"1234,567", 1234567.0},
    {"accountant", L"1,234,567", none},
    {"accountant", L"12,345.5", 12345.5},
    {"fours", L"12,3456", 123456.0},
    {"fours", L"123,456", none},
    {"not_grouped", L"6.010", none},
    {"not_grouped", L"6010,5", 6010.5},
    {"long_marks", L"1::234::567", 1234567.0},
    {"long_marks", L"1:234", none},
    // The sign, in the locale's own form only.
    {"english", L"-5", -5.0},
    {"english", L"- 5", none},
    {"english", L"+5", none},
    {"english", L"5-", none},
    {"english", L"(5)", none},
    {"english", L"--5", none},
    {"english", L"-", none},
    {"accountant", L"(5)", -5.0},
    {"accountant", L"( 5)", none},
    {"accountant", L"(5", none},
    {"accountant", L"-5", none},
    {"apostrophe", L"- 5", -5.0},
    {"apostrophe", L"-5", none},
    {"apostrophe", L"-  5", none},
    {"fours", L"5-", -5.0},
    {"fours", L"5 -", none},
    {"not_grouped", L"5 -", -5.0},
    {"not_grouped", L"5-", none},
    {"no_negative_form", L"5", 5.0},
    {"no_negative_form", L"-5", none},
    // Whole and fraction.
    {"english", L"117 31/32", 117.96875},
    {"english", L"117 16/32", 117.5},
    {"english", L"117   1/2", 117.5},
    {"english", L"31/32", 0.96875},
    {"english", L"0 1/2", 0.5},
    {"english", L"117 0/32", 117.0},
    {"english", L"117 3.5/32", 117.109375},
    {"english", L"1,234 1/2", 1234.5},
    {"english", L"117 01/032", 117.03125},
    {"english", L"117 33/32", none},
    {"english", L"117 32/32", none},
    {"english", L"117 1/0", none},
    {"english", L"0/0", none},
    {"english", L"117 3 /32", none},
    {"english", L"117 3/ 32", none},
    {"english", L"117 /32", none},
    {"english", L"117 3/", none},
    {"english", L"117 3", none},
    {"english", L"117.5 1/2", none},
    {"english", L"117 3,5/32", none},
    {"english", L"117 1,000/2000", none},
    {"english", L"117 1/2,000", none},
    {"english", L"117 1/2.5", none},
    {"english", L"12,34 1/2", none},
    {"english", L"1/2/3", none},
    {"english", L"1 2 3/4", none},
    {"english", L"-117 1/2", -117.5},
    {"english", L"117 -1/2", none},
    {"english", L"117\u00A01/2", none},
    {"german", L"117 3,5/32", 117.109375},
    {"german", L"117 3.5/32", none},
    {"german", L"1.234 1/2", 1234.5},
    {"accountant", L"(117 1/2)", -117.5},
    {"accountant", L"( 1/2)", none},
    {"apostrophe", L"- 1/2", -0.5},
    {"not_grouped", L"117 1/2 -", -117.5},
    // Blanks outside do not count; other white space does.
    {"english", L"  42  ", 42.0},
    {"english", L"\t42", none},
    {"english", L"42\u00A0", none},
    {"english", L"4 2", none},
    // No exponent, no letters, no other digits.
    {"english", L"1e2", none},
    {"english", L"1E2", none},
    {"english", L"1.5e+2", none},
    {"english", L"0x10", none},
    {"english", L"100K", none},
    {"english", L"$5", none},
    {"english", L"5 USD", none},
    {"english", L"\u0663", none},
    {"english", L"inf", none},
    {"english", L"nan", none},
    // One mark for both says nothing.
    {"one_mark", L"6010", 6010.0},
    {"one_mark", L"6,010", none},
    {"one_mark", L"60,1", none},
    {"one_mark", L"1,234 1/2", none},
    {"one_mark", L"117 3,5/32", none},
    {"one_mark", L"117 3/32", 117.09375},
};

const quantity_row quantities[] = {
    {"english", L"100", 100},
    {"english", L"0", 0},
    {"english", L"1,500", 1500},
    {"english", L" 1500 ", 1500},
    {"english", L"15,00", none},
    {"english", L"1.5", none},
    {"english", L"100.", none},
    {"english", L"", none},
    {"english", L"-5", none},
    {"english", L"+5", none},
    {"english", L"1e2", none},
    {"english", L"2147483646", 2147483646},
    {"english", L"2,147,483,646", 2147483646},
    {"english", L"2147483647", none},
    {"english", L"99999999999", none},
    {"english", L"2K", 2000},
    {"english", L"1.5K", 1500},
    {"english", L"1,250K", 1250000},
    {"english", L"12,50K", none},
    {"english", L"0.1M", 100000},
    {"english", L"2,000M", 2000000000},
    {"english", L"3,000M", none},
    {"english", L"1.25K", none},
    {"english", L"1.50K", none},
    {"english", L"1.K", 1000},
    {"english", L"1.5 K", none},
    {"english", L"K", none},
    {"english", L".K", none},
    {"english", L"1.5k", none},
    {"english", L"1KK", none},
    {"english", L"1MK", none},
    {"english", L"K1", none},
    {"english", L"-1K", none},
    {"german", L"1,5K", 1500},
    {"german", L"1.500", 1500},
    {"german", L"1.5K", none},
    {"indian", L"1,00,000", 100000},
    {"indian", L"100,000", none},
    {"no_leading_zero", L".1M", 100000},
    {"one_mark", L"1,500", 1500},
};

class CorePrice : public testing::TestWithParam<price_row> {};

TEST_P(CorePrice, ReadsAsWorkedOutByHand) {
    const number_locale_scope scope(conventions_of_user(GetParam().user));
    EXPECT_EQ(local_format::PriceReadsAs(GetParam().text), GetParam().value);
}

TEST_P(CorePrice, IsReadSoByTheExactReader) {
    const std::optional<exact::number> read =
        exact::price(GetParam().text, conventions_of_user(GetParam().user));
    ASSERT_EQ(read.has_value(), GetParam().value.has_value());
    EXPECT_TRUE(!read || exact::is_near(*read, *GetParam().value, 1));
}

INSTANTIATE_TEST_SUITE_P(Core, CorePrice, testing::ValuesIn(prices));

class CoreQuantity : public testing::TestWithParam<quantity_row> {};

TEST_P(CoreQuantity, ReadsAsWorkedOutByHand) {
    const number_locale_scope scope(conventions_of_user(GetParam().user));
    EXPECT_EQ(local_format::QuantityReadsAs(GetParam().text), GetParam().value);
}

TEST_P(CoreQuantity, IsReadSoByTheExactReader) {
    EXPECT_EQ(exact::quantity(GetParam().text, conventions_of_user(GetParam().user)), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Core, CoreQuantity, testing::ValuesIn(quantities));

// What the reader itself stands on.
TEST(ExactReader, ValuesOfDoublesAreExact) {
    EXPECT_EQ(exact::value_of(0.0), 0);
    EXPECT_EQ(exact::value_of(-2.5), exact::number(-5, 2));
    EXPECT_EQ(exact::value_of(0x1p-1074) * exact::value_of(0x1p1000) * exact::value_of(0x1p74), 1);
    EXPECT_NE(exact::value_of(0.1), exact::number(1, 10));
}

TEST(ExactReader, NearIsCountedInLastPlaces) {
    const exact::number tenth(1, 10);
    EXPECT_TRUE(exact::is_near(tenth, 0.1, 1));
    EXPECT_FALSE(exact::is_near(tenth, 0.1, 0));
    double next = 0.1;
    for (int i = 0; i < 5; ++i) {
        next = std::nextafter(next, 1.0);
    }
    EXPECT_FALSE(exact::is_near(tenth, next, 4));
    EXPECT_TRUE(exact::is_near(tenth, next, 6));
    EXPECT_FALSE(exact::is_near(tenth, -0.1));
    EXPECT_FALSE(exact::is_near(tenth, std::numeric_limits<double>::infinity()));
    EXPECT_TRUE(exact::is_near(0, 0.0, 0));
}

}  // namespace
