#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "tests/support/number_locale_scope.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"

namespace {

constexpr double untouched = -77.25;

// The parsed value, or nothing; a failure that touched the output fails the test.
std::optional<double> parsed(const CString& text, LONG code = 'k') {
    double value = untouched;
    if (CPriceScale(code).Parse(text, value)) {
        return value;
    }
    EXPECT_EQ(value, untouched);
    return std::nullopt;
}

TEST(PriceParse, TheScaleCodePlaysNoPart) {
    const number_locale_scope scope(english());
    for (const LONG code : {-1, 0, 2, 9, 10, 64, int{'a'}, int{'k'}, int{'s'}, int{'Z'}, 999}) {
        EXPECT_EQ(parsed(L"1/2", code), 0.5) << code;
        EXPECT_EQ(parsed(L"3/32", code), 0.09375) << code;
        EXPECT_EQ(parsed(L"1.5", code), 1.5) << code;
    }
}

TEST(PriceParse, WithoutABarTheLocaleConverts) {
    {
        const number_locale_scope scope(english());
        EXPECT_EQ(parsed(L"1,234.5"), 1234.5);
        EXPECT_EQ(parsed(L"-7"), -7.0);
        EXPECT_EQ(parsed(L"1e3"), 1000.0);
        EXPECT_EQ(parsed(L"abc"), std::nullopt);
        EXPECT_EQ(parsed(L""), std::nullopt);
        EXPECT_EQ(parsed(L"1e400"), std::nullopt);
        EXPECT_EQ(parsed(L"12 3"), std::nullopt);
    }
    {
        const number_locale_scope scope(german());
        EXPECT_EQ(parsed(L"1.234,5"), 1234.5);
    }
    {
        const number_locale_scope scope(french());
        EXPECT_EQ(parsed(L"1\u202F234,5"), 1234.5);
    }
}

TEST(PriceParse, AFractionIsWholeNumeratorAndDenominator) {
    const number_locale_scope scope(english());
    EXPECT_EQ(parsed(L"12 3/32"), 12.09375);
    EXPECT_EQ(parsed(L"3/32"), 0.09375);
    EXPECT_EQ(parsed(L"0 1/2"), 0.5);
    EXPECT_EQ(parsed(L"1 0/2"), 1.0);
    EXPECT_EQ(parsed(L"1 5/2"), 3.5);
    EXPECT_EQ(parsed(L"12 3.5/32"), 12.109375);
    EXPECT_EQ(parsed(L"1 .5/2"), 1.25);
    EXPECT_EQ(parsed(L"1 1/10000"), 1.0001);
}

TEST(PriceParse, BlanksAroundThePiecesDoNotMatter) {
    const number_locale_scope scope(english());
    EXPECT_EQ(parsed(L"  12   3 / 32  "), 12.09375);
    EXPECT_EQ(parsed(L"\t3/32\r\n"), 0.09375);
    EXPECT_EQ(parsed(L"1 /2"), 0.5);
    EXPECT_EQ(parsed(L"\u00A01 1/2\u3000"), 1.5);
}

TEST(PriceParse, TheNumeratorBeginsAtTheFirstBlank) {
    const number_locale_scope scope(english());
    EXPECT_EQ(parsed(L"1 2 3/4"), std::nullopt);
    {
        const number_locale_scope blank_groups(conventions_of(L",", L" ", L"3;0"));
        EXPECT_EQ(parsed(L"1 000 1/2"), std::nullopt);
    }
    // Only a blank parts the two: a tab or a no-break space is no digit of the numerator.
    EXPECT_EQ(parsed(L"1\t1/2"), std::nullopt);
    EXPECT_EQ(parsed(L"1\u00A01/2"), std::nullopt);
}

TEST(PriceParse, TheDenominatorBeginsAtTheFirstBar) {
    const number_locale_scope scope(english());
    EXPECT_EQ(parsed(L"1/2/3"), std::nullopt);
    EXPECT_EQ(parsed(L"1//2"), std::nullopt);
}

TEST(PriceParse, EveryPieceButTheWholeMustBeThere) {
    const number_locale_scope scope(english());
    EXPECT_EQ(parsed(L"/2"), std::nullopt);
    EXPECT_EQ(parsed(L"1/"), std::nullopt);
    EXPECT_EQ(parsed(L"1 1/"), std::nullopt);
    EXPECT_EQ(parsed(L"/"), std::nullopt);
    EXPECT_EQ(parsed(L" / "), std::nullopt);
    EXPECT_EQ(parsed(L"-/2"), std::nullopt);
    EXPECT_EQ(parsed(L"1 ./2"), std::nullopt);
}

TEST(PriceParse, ADenominatorOfZeroFails) {
    const number_locale_scope scope(english());
    EXPECT_EQ(parsed(L"1 1/0"), std::nullopt);
    EXPECT_EQ(parsed(L"1/000"), std::nullopt);
    EXPECT_EQ(parsed(L"0/0"), std::nullopt);
}

TEST(PriceParse, TheWholeHoldsDigitsAndGroupSeparatorsOnly) {
    {
        const number_locale_scope scope(english());
        EXPECT_EQ(parsed(L"1,000 1/2"), 1000.5);
        EXPECT_EQ(parsed(L"1.0 1/2"), std::nullopt);
        EXPECT_EQ(parsed(L"1e3 1/2"), std::nullopt);
        EXPECT_EQ(parsed(L"+1 +1/2"), std::nullopt);
        EXPECT_EQ(parsed(L", 1/2"), std::nullopt);
        EXPECT_EQ(parsed(L"\u0663 1/2"), std::nullopt);
    }
    {
        const number_locale_scope scope(french());
        EXPECT_EQ(parsed(L"1\u202F000 1/2"), 1000.5);
        EXPECT_EQ(parsed(L"1,000 1/2"), std::nullopt);
    }
    {
        const number_locale_scope scope(conventions_of(L".", L"<>", L"3;0"));
        EXPECT_EQ(parsed(L"1<>000 1/2"), 1000.5);
        EXPECT_EQ(parsed(L"1<000 1/2"), std::nullopt);
    }
    {
        const number_locale_scope scope(conventions_of(L".", L"", L"3;0"));
        EXPECT_EQ(parsed(L"1000 1/2"), 1000.5);
        EXPECT_EQ(parsed(L"1,000 1/2"), std::nullopt);
    }
}

TEST(PriceParse, TheNumeratorHoldsDigitsAndOneDecimalSeparatorOrComma) {
    {
        const number_locale_scope scope(english());
        // The comma passes as a decimal separator; here the conversion takes it for a group's.
        EXPECT_EQ(parsed(L"1 1,5/2"), 8.5);
        EXPECT_EQ(parsed(L"1 1.5.0/2"), std::nullopt);
        EXPECT_EQ(parsed(L"1 1,5,0/2"), std::nullopt);
        EXPECT_EQ(parsed(L"1 1,5.0/2"), std::nullopt);
        EXPECT_EQ(parsed(L"1 1e1/2"), std::nullopt);
        EXPECT_EQ(parsed(L"1 -1/2"), std::nullopt);
        EXPECT_EQ(parsed(L"1 \u0663/2"), std::nullopt);
    }
    {
        const number_locale_scope scope(german());
        EXPECT_EQ(parsed(L"1 1,5/2"), 1.75);
        EXPECT_EQ(parsed(L"1 1.5/2"), std::nullopt);
    }
    {
        const number_locale_scope scope(conventions_of(L"'", L".", L"3;0"));
        EXPECT_EQ(parsed(L"1 1'5/2"), 1.75);
        EXPECT_EQ(parsed(L"1 1'5,0/2"), std::nullopt);
        // Passes the check and then is no number to this locale.
        EXPECT_EQ(parsed(L"1 1,5/2"), std::nullopt);
    }
}

TEST(PriceParse, TheDenominatorHoldsDigitsOnly) {
    const number_locale_scope scope(english());
    EXPECT_EQ(parsed(L"1/2.0"), std::nullopt);
    EXPECT_EQ(parsed(L"1/1,000"), std::nullopt);
    EXPECT_EQ(parsed(L"1/-2"), std::nullopt);
    EXPECT_EQ(parsed(L"1/1e1"), std::nullopt);
    EXPECT_EQ(parsed(L"1/\u0662"), std::nullopt);
}

TEST(PriceParse, ASignInFrontCountsInEveryForm) {
    for (UINT form = 0; form <= 5; ++form) {
        const number_locale_scope scope(english(form));
        EXPECT_EQ(parsed(L"-1 1/2"), -1.5) << form;
        EXPECT_EQ(parsed(L"- 1 1/2"), -1.5) << form;
        EXPECT_EQ(parsed(L" +1 1/2"), 1.5) << form;
        EXPECT_EQ(parsed(L"--1/2"), std::nullopt) << form;
        EXPECT_EQ(parsed(L"-"), std::nullopt) << form;
    }
}

TEST(PriceParse, ParenthesesAreASignInFormZeroOnly) {
    for (UINT form = 0; form <= 5; ++form) {
        const number_locale_scope scope(english(form));
        const std::optional<double> expected = form == 0 ? std::optional<double>(-1.5) : std::nullopt;
        EXPECT_EQ(parsed(L"(1 1/2)"), expected) << form;
        EXPECT_EQ(parsed(L" (1 1/2) "), expected) << form;
        EXPECT_EQ(parsed(L"(1 1/2"), std::nullopt) << form;
        EXPECT_EQ(parsed(L"1 1/2)"), std::nullopt) << form;
    }
}

TEST(PriceParse, AMinusBehindIsASignInFormsThreeAndFourOnly) {
    for (UINT form = 0; form <= 5; ++form) {
        const number_locale_scope scope(english(form));
        const bool behind = form == 3 || form == 4;
        const std::optional<double> expected = behind ? std::optional<double>(-1.5) : std::nullopt;
        EXPECT_EQ(parsed(L"1 1/2-"), expected) << form;
        EXPECT_EQ(parsed(L"1 1/2 -"), expected) << form;
    }
}

TEST(PriceParse, AskThroughTheLocaleThatIsInPlace) {
    class failing_locale final : public test_number_locale {
    public:
        using test_number_locale::test_number_locale;
        std::optional<double> text_to_double(const CString& text) override {
            return text == L"2" ? std::optional<double>(2.0) : std::nullopt;
        }
    };
    failing_locale locale(english());
    const platform::port<platform::number_locale>::replacement replacement(locale);
    EXPECT_EQ(parsed(L"2"), 2.0);
    EXPECT_EQ(parsed(L"2 2/2"), 3.0);
    EXPECT_EQ(parsed(L"1"), std::nullopt);
    EXPECT_EQ(parsed(L"1 2/2"), std::nullopt);
    EXPECT_EQ(parsed(L"2 1/2"), std::nullopt);
    EXPECT_EQ(parsed(L"2 2/1"), std::nullopt);
}

TEST(PriceParse, NumbersOutOfRangeFailPieceByPiece) {
    const number_locale_scope scope(english());
    const CString huge(400, L'9');
    EXPECT_EQ(parsed(huge), std::nullopt);
    EXPECT_EQ(parsed(huge + L" 1/2"), std::nullopt);
    EXPECT_EQ(parsed(L"1 " + huge + L"/2"), std::nullopt);
    EXPECT_EQ(parsed(L"1/" + huge), std::nullopt);
}

TEST(PriceParse, TheSystemsConversionTakesAnyTextWithoutHarm) {
    const CString decimal =
        platform::port<platform::number_locale>::system().user_conventions().decimal_separator;
    EXPECT_EQ(parsed(L"12"), 12.0);
    EXPECT_EQ(parsed(L"1" + decimal + L"5"), 1.5);
    EXPECT_EQ(parsed(L"1 1" + decimal + L"5/2"), 1.75);
    EXPECT_EQ(parsed(L""), std::nullopt);
    EXPECT_EQ(parsed(L" "), std::nullopt);
    EXPECT_EQ(parsed(L"1e400"), std::nullopt);
    EXPECT_EQ(parsed(L"-1e400"), std::nullopt);
    EXPECT_EQ(parsed(L"\u0663"), std::nullopt);
    EXPECT_EQ(parsed(CString(100000, L'1')), std::nullopt);
    EXPECT_EQ(parsed(CString(100000, L'/')), std::nullopt);
    EXPECT_EQ(parsed(CString(100000, L' ')), std::nullopt);
    EXPECT_EQ(parsed(CString(100000, L'(')), std::nullopt);
    EXPECT_EQ(parsed(L"1 1/" + CString(100000, L'1')), std::nullopt);
    // Leading zeros are no digits that count.
    EXPECT_EQ(parsed(CString(100000, L'0') + L" 1/2"), 0.5);
}

TEST(PriceParse, RandomTextNeverGivesAnythingButAFiniteNumber) {
    std::mt19937 random(20240229);
    const CString alphabet = L"0123456789 //.,,-+()eE\u00A0\u202F\u0663kM%$&Hx\t";
    std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
    std::uniform_int_distribution<int> length(0, 24);
    int numbers = 0;
    for (int i = 0; i < 20000; ++i) {
        CString text;
        for (int rest = length(random); rest > 0; --rest) {
            text += alphabet[pick(random)];
        }
        const std::optional<double> value = parsed(text);
        if (value) {
            ++numbers;
            ASSERT_TRUE(std::isfinite(*value));
        }
    }
    EXPECT_GT(numbers, 100);
}

}  // namespace
