#include <gtest/gtest.h>

#include "tests/support/number_locale_scope.h"
#include "unicomp/FormatUtil/interface/NumberFormat.h"

namespace {

struct quantity_row {
    LONG value;
    const wchar_t* text;
};

class QuantityText : public testing::TestWithParam<quantity_row> {};

TEST_P(QuantityText, AbbreviatesWholeTenthsOfMillionsAndHundreds) {
    const number_locale_scope scope(english());
    EXPECT_EQ(local_format::CNumberFormat::QuantityToText(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Table, QuantityText,
    testing::Values(quantity_row{0, L"0"}, quantity_row{1, L"1"}, quantity_row{900, L"900"},
                    quantity_row{999, L"999"}, quantity_row{1000, L"1K"}, quantity_row{1001, L"1,001"},
                    quantity_row{1100, L"1.1K"}, quantity_row{1250, L"1,250"}, quantity_row{1500, L"1.5K"},
                    quantity_row{2000, L"2K"}, quantity_row{99900, L"99.9K"},
                    // "M" wins over "K".
                    quantity_row{100000, L"0.1M"}, quantity_row{150000, L"150K"},
                    quantity_row{1000000, L"1M"}, quantity_row{1200000, L"1.2M"},
                    quantity_row{1250000, L"1,250K"}, quantity_row{1234567, L"1,234,567"},
                    quantity_row{1234500, L"1,234.5K"}, quantity_row{2000000000, L"2,000M"},
                    quantity_row{2147483647, L"2,147,483,647"}, quantity_row{-900, L"-900"},
                    quantity_row{-1000, L"-1K"}, quantity_row{-1500, L"-1.5K"},
                    quantity_row{-100000, L"-0.1M"}, quantity_row{-2000000, L"-2M"},
                    quantity_row{-2147483647 - 1, L"-2,147,483,648"}));

TEST(QuantityText, FollowsTheUsersSeparators) {
    const number_locale_scope scope(german());
    EXPECT_EQ(local_format::CNumberFormat::QuantityToText(1500), L"1,5K");
    EXPECT_EQ(local_format::CNumberFormat::QuantityToText(1250), L"1.250");
}

}  // namespace
