// Random prices against an oracle that counts in whole steps and never touches a double.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>

#include "tests/support/number_locale_scope.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"

namespace {

// A code whose step is numerator/denominator, shown with decimals (parts 0) or in parts of one.
struct exact_scale {
    LONG code;
    std::int64_t numerator;
    std::int64_t denominator;
    std::int64_t parts;
};

const exact_scale scales[] = {
    {0, 1, 1, 0},         {1, 1, 10, 0},         {2, 1, 100, 0},     {3, 1, 1000, 0},
    {4, 1, 10000, 0},     {5, 1, 100000, 0},     {6, 1, 1000000, 0}, {7, 1, 10000000, 0},
    {8, 1, 100000000, 0}, {9, 1, 1000000000, 0}, {'a', 10000, 1, 0}, {'b', 1000, 1, 0},
    {'c', 100, 1, 0},     {'d', 10, 1, 0},       {'e', 1, 1, 0},     {'f', 1, 2, 2},
    {'g', 1, 4, 4},       {'h', 1, 8, 8},        {'i', 1, 10, 0},    {'j', 1, 16, 16},
    {'k', 1, 32, 32},     {'l', 1, 64, 64},      {'m', 1, 100, 0},   {'n', 1, 1000, 0},
    {'o', 1, 10000, 0},   {'p', 1, 100000, 0},   {'q', 1, 128, 128}, {'r', 1, 256, 256},
    {'s', 1, 320, 32},    {'t', 1, 40, 10},      {'u', 1, 128, 32},  {'v', 1, 640, 64},
    {'w', 1, 1000000, 0}, {'x', 1, 64, 32},      {'y', 1, 128, 64},  {'z', 1, 1000, 0},
    {'K', 1, 32, 32},     {'S', 1, 320, 32},
};

struct exact_locale {
    platform::number_conventions conventions;
    std::size_t first_group;
    std::size_t next_group;
};

CString grouped_digits(std::int64_t number, const exact_locale& locale, bool group) {
    const CString digits = std::to_wstring(number);
    if (!group) {
        return digits;
    }
    CString reversed;
    std::size_t left = locale.first_group;
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (left == 0) {
            reversed += locale.conventions.group_separator;
            left = locale.next_group;
        }
        reversed += *digit;
        --left;
    }
    return {reversed.rbegin(), reversed.rend()};
}

CString decimals(std::int64_t count, std::int64_t power, const CString& separator) {
    CString text;
    for (std::int64_t rest = power / 10; rest > 0; rest /= 10) {
        text += static_cast<wchar_t>(L'0' + count / rest % 10);
    }
    return text.empty() ? text : separator + text;
}

CString fraction(std::int64_t rest, const exact_scale& scale, const CString& separator) {
    const std::int64_t steps_in_part = scale.denominator / scale.parts;
    CString text = std::to_wstring(rest / steps_in_part);
    const std::int64_t thousandths = rest % steps_in_part * 1000 / steps_in_part;
    if (thousandths != 0) {
        CString digits = std::to_wstring(1000 + thousandths).substr(1);
        digits.erase(digits.find_last_not_of(L'0') + 1);
        text += separator + digits;
    }
    return text + L"/" + std::to_wstring(scale.parts);
}

CString expected_text(std::int64_t steps, bool negative, const exact_scale& scale, const exact_locale& locale,
                      bool group) {
    const CString& separator = locale.conventions.decimal_separator;
    const std::int64_t units = steps * scale.numerator;
    const std::int64_t whole = units / scale.denominator;
    const std::int64_t rest = units % scale.denominator;
    CString text;
    if (scale.parts == 0) {
        text = grouped_digits(whole, locale, group) + decimals(rest, scale.denominator, separator);
    } else {
        text = whole != 0 ? grouped_digits(whole, locale, group) : CString();
        if (rest != 0) {
            text += (whole != 0 ? L" " : L"") + fraction(rest, scale, separator);
        }
        text = steps == 0 ? L"0" : text;
    }
    if (!negative || steps == 0) {
        return text;
    }
    const CString before[] = {L"(", L"-", L"- ", L"", L""};
    const CString behind[] = {L")", L"", L"", L"-", L" -"};
    return before[locale.conventions.negative_form] + text + behind[locale.conventions.negative_form];
}

struct random_price {
    std::int64_t steps;
    LONG multiple;
    bool negative;
    double value;
};

// A price less than half a multiple away from the one on the grid.
template <class Random>
random_price make_price(const exact_scale& scale, Random& random) {
    const LONG multiples[] = {1, 1, 1, 2, 5, 25, 100};
    std::uniform_int_distribution<std::size_t> pick(0, std::size(multiples) - 1);
    std::uniform_real_distribution<double> magnitude(0.0, 1.0);
    random_price price{};
    price.multiple = multiples[pick(random)];
    const double step = static_cast<double>(scale.numerator) / static_cast<double>(scale.denominator);
    const double largest = std::min(9e9 / step, 1e12) / price.multiple;
    const auto count = static_cast<std::int64_t>(std::pow(largest, magnitude(random)) -
                                                 (magnitude(random) < 0.1 ? 1.0 : 0.0));
    price.steps = count * price.multiple;
    price.negative = magnitude(random) < 0.5;
    const double away = (magnitude(random) - 0.5) * 0.98 * price.multiple;
    price.value = std::fabs(static_cast<double>(price.steps) + away) * step;
    price.value = price.negative ? -price.value : price.value;
    return price;
}

class PriceProperty : public testing::TestWithParam<exact_scale> {};

TEST_P(PriceProperty, TextIsThatOfTheNearestPriceOnTheGridDigitByDigit) {
    const exact_scale& scale = GetParam();
    const exact_locale locales[] = {{english(0), 3, 3}, {english(1), 3, 3}, {german(), 3, 3},
                                    {french(), 3, 3},   {hindi(), 3, 2},    {english(2), 3, 3},
                                    {english(3), 3, 3}, {english(4), 3, 3}};
    std::mt19937_64 random(static_cast<std::uint64_t>(scale.code) + 1000);
    const CPriceScale price_scale(scale.code);
    for (const exact_locale& locale : locales) {
        const number_locale_scope scope(locale.conventions);
        for (int i = 0; i < 300; ++i) {
            const random_price price = make_price(scale, random);
            for (const bool group : {true, false}) {
                ASSERT_EQ(price_scale.Format(price.value, group, price.multiple),
                          expected_text(price.steps, price.negative, scale, locale, group))
                    << price.value << ' ' << price.multiple;
            }
        }
    }
}

TEST_P(PriceProperty, TextReadsBackAsThePriceOnTheGrid) {
    const exact_scale& scale = GetParam();
    std::mt19937_64 random(static_cast<std::uint64_t>(scale.code) + 2000);
    const CPriceScale price_scale(scale.code);
    for (const bool group : {true, false}) {
        for (int i = 0; i < 1000; ++i) {
            const random_price price = make_price(scale, random);
            const CString text = price_scale.Format(price.value, group, price.multiple);
            double back = 0.0;
            ASSERT_TRUE(price_scale.Parse(text, back)) << price.value;
            const double step = static_cast<double>(scale.numerator) / static_cast<double>(scale.denominator);
            const double exact = (price.negative ? -1.0 : 1.0) * static_cast<double>(price.steps) * step;
            ASSERT_NEAR(back, exact, step * 1e-3) << price.value;
            ASSERT_EQ(price_scale.Format(back, group, price.multiple), text);
        }
    }
}

TEST_P(PriceProperty, RoundKeepsWhatIsOnTheGrid) {
    const exact_scale& scale = GetParam();
    std::mt19937_64 random(static_cast<std::uint64_t>(scale.code) + 3000);
    const CPriceScale price_scale(scale.code);
    for (int i = 0; i < 2000; ++i) {
        const random_price price = make_price(scale, random);
        const double once = price_scale.Round(price.value, price.multiple);
        ASSERT_EQ(price_scale.Round(once, price.multiple), once);
        ASSERT_EQ(price_scale.Round(-price.value, price.multiple), -once);
    }
}

INSTANTIATE_TEST_SUITE_P(EveryScale, PriceProperty, testing::ValuesIn(scales), [](const auto& row) {
    const LONG code = row.param.code;
    return code < 10 ? "Decimals" + std::to_string(code) : "Letter" + std::string(1, static_cast<char>(code));
});

TEST(PriceProperty, AnyDoubleUnderAnyCodeHasAText) {
    const number_locale_scope scope(english());
    std::mt19937_64 random(4000);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        double value = 0.0;
        static_assert(sizeof bits == sizeof value);
        std::memcpy(&value, &bits, sizeof value);
        const LONG code = static_cast<LONG>(random() % 130) - 2;
        const LONG multiple = static_cast<LONG>(random() % 1000);
        const CString text = CPriceScale(code).Format(value, (bits & 1) != 0, multiple);
        ASSERT_FALSE(text.empty()) << code << ' ' << value;
        const bool zero = text.find_first_of(L"123456789") == CString::npos;
        ASSERT_FALSE(zero && text.find(L'-') != CString::npos) << code << ' ' << value;
    }
}

}  // namespace
