#include "unicomp/FormatUtil/interface/PriceToString.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "tests/support/number_locale_scope.h"

namespace {

TEST(PriceToString, BeginsWithMultipleOneAndTheGivenCodeForItselfAndItsScale) {
    const CPriceToString format('K');
    EXPECT_EQ(format.MinMove, 1);
    EXPECT_EQ(format.Code, 'K');
    ASSERT_NE(format.Scale, nullptr);
    EXPECT_EQ(format.Scale->GetDenominator(), 32);
}

TEST(PriceToString, FieldsStandInTheirOrderBehindTheVirtualTable) {
    const CPriceToString format(2);
    const char* const start = reinterpret_cast<const char*>(&format);
    EXPECT_EQ(reinterpret_cast<const char*>(&format.MinMove) - start, 8);
    EXPECT_EQ(reinterpret_cast<const char*>(&format.Code) - start, 12);
    EXPECT_EQ(reinterpret_cast<const char*>(&format.Scale) - start, 16);
    static_assert(sizeof(CPriceToString) == 24);
    static_assert(std::has_virtual_destructor_v<CPriceToString>);
    static_assert(!std::is_copy_constructible_v<CPriceToString>);
}

TEST(PriceToString, ToTextGroupsAndSnapsToItsMultiple) {
    const number_locale_scope scope(english());
    CPriceToString format(2);
    EXPECT_EQ(format.ToText(1234.567), L"1,234.57");
    format.MinMove = 25;
    EXPECT_EQ(format.ToText(1234.567), L"1,234.50");
}

TEST(PriceToString, ToTextExSnapsToTheCallersMultiple) {
    const number_locale_scope scope(english());
    CPriceToString format(2);
    format.MinMove = 25;
    EXPECT_EQ(format.ToTextEx(1234.567, 100), L"1,235.00");
    EXPECT_EQ(format.ToTextEx(1234.567, 1), L"1,234.57");
}

TEST(PriceToString, ToPlainTextNeitherGroupsNorTakesTheMultiple) {
    const number_locale_scope scope(english());
    CPriceToString format(2);
    format.MinMove = 25;
    EXPECT_EQ(format.ToPlainText(1234.567), L"1234.57");
    EXPECT_EQ(CPriceToString('k').ToPlainText(1234.09375), L"1234 3/32");
}

}  // namespace
