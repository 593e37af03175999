#include "platform/number_text.h"

#include <gtest/gtest.h>

namespace {

TEST(NumberText, WhiteSpaceIsThatOfAnyScript) {
    for (const wchar_t character : {L'\t', L'\n', L'\v', L'\f', L'\r', L' ', L'\u00A0', L'\u1680', L'\u2000',
                                    L'\u200A', L'\u2028', L'\u2029', L'\u202F', L'\u205F', L'\u3000'}) {
        EXPECT_TRUE(platform::is_white_space(character)) << static_cast<int>(character);
    }
    EXPECT_TRUE(platform::is_white_space(static_cast<wchar_t>(0x85)));
    for (const wchar_t character : {L'0', L'a', L'\u200B', L'_', L'\0'}) {
        EXPECT_FALSE(platform::is_white_space(character)) << static_cast<int>(character);
    }
}

TEST(NumberText, OnlyAsciiDigitsAreDigits) {
    EXPECT_TRUE(platform::is_digit(L'0'));
    EXPECT_TRUE(platform::is_digit(L'9'));
    EXPECT_FALSE(platform::is_digit(L'/'));
    EXPECT_FALSE(platform::is_digit(L':'));
    EXPECT_FALSE(platform::is_digit(L'\u0663'));
}

TEST(NumberText, TrimTakesBothEndsAndLeavesTheMiddle) {
    EXPECT_EQ(platform::trim(L""), L"");
    EXPECT_EQ(platform::trim(L" \t "), L"");
    EXPECT_EQ(platform::trim(L" a  b\u00A0"), L"a  b");
    EXPECT_EQ(platform::trim(L"ab"), L"ab");
}

TEST(NumberText, APlainNumberIsTakenApart) {
    const auto number = platform::parse_plain_number(L"-0012.50");
    ASSERT_TRUE(number);
    EXPECT_TRUE(number->negative);
    EXPECT_EQ(number->whole, L"12");
    EXPECT_EQ(number->fraction, L"50");
    const auto zero = platform::parse_plain_number(L"000");
    ASSERT_TRUE(zero);
    EXPECT_EQ(zero->whole, L"");
}

TEST(NumberText, RoundingCarriesThroughNines) {
    const auto rounded = platform::round_plain_number({true, L"999", L"9996"}, 3);
    EXPECT_TRUE(rounded.negative);
    EXPECT_EQ(rounded.whole, L"1000");
    EXPECT_EQ(rounded.fraction, L"000");
    const auto filled = platform::round_plain_number({false, L"", L"5"}, 3);
    EXPECT_EQ(filled.whole, L"");
    EXPECT_EQ(filled.fraction, L"500");
    EXPECT_FALSE(platform::round_plain_number({true, L"", L"04"}, 1).negative);
}

TEST(NumberText, DigitsAreGroupedFromTheRight) {
    EXPECT_EQ(platform::group_digits(L"1234567", 3, L","), L"1,234,567");
    EXPECT_EQ(platform::group_digits(L"1234567", 32, L","), L"12,34,567");
    EXPECT_EQ(platform::group_digits(L"1234567", 30, L","), L"1234,567");
    EXPECT_EQ(platform::group_digits(L"123", 3, L","), L"123");
    EXPECT_EQ(platform::group_digits(L"", 3, L","), L"");
    EXPECT_EQ(platform::group_digits(L"1234", 0, L","), L"1234");
}

}  // namespace
