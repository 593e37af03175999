// What the component itself shows has to read as the value that it shows: otherwise nothing would go out.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "tests/reads_as/conventions.h"
#include "tests/reads_as/exact_reader.h"
#include "tests/support/host_record.h"
#include "unicomp/FormatUtil/interface/NumberFormat.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"
#include "unicomp/FormatUtil/interface/ReadsAs.h"

namespace {

using reads_as_tests::user;

constexpr std::int64_t highest_price = 250000;
constexpr LONG most = 2147483646;

// A scale's step as it is meant.
struct exact_step {
    LONG code;
    std::int64_t numerator;
    std::int64_t denominator;
};

const exact_step steps[] = {
    {-1, 1, 1000000000}, {0, 1, 1},        {1, 1, 10},      {2, 1, 100},       {3, 1, 1000},
    {4, 1, 10000},       {5, 1, 100000},   {6, 1, 1000000}, {7, 1, 10000000},  {8, 1, 100000000},
    {9, 1, 1000000000},  {'a', 10000, 1},  {'b', 1000, 1},  {'c', 100, 1},     {'d', 10, 1},
    {'e', 1, 1},         {'f', 1, 2},      {'g', 1, 4},     {'h', 1, 8},       {'i', 1, 10},
    {'j', 1, 16},        {'k', 1, 32},     {'l', 1, 64},    {'m', 1, 100},     {'n', 1, 1000},
    {'o', 1, 10000},     {'p', 1, 100000}, {'q', 1, 128},   {'r', 1, 256},     {'s', 1, 320},
    {'t', 1, 40},        {'u', 1, 128},    {'v', 1, 640},   {'w', 1, 1000000}, {'x', 1, 64},
    {'y', 1, 128},       {'z', 1, 1000},   {'K', 1, 32},    {'S', 1, 320},     {'U', 1, 128},
};

// A number from 1 to the last, small ones as often as large ones.
std::int64_t any_up_to(std::int64_t last, std::mt19937_64& random) {
    const double part = 0.1 * static_cast<double>(1 + random() % 10);
    const auto below = static_cast<std::uint64_t>(std::pow(static_cast<double>(last), part));
    return static_cast<std::int64_t>(1 + random() % std::max<std::uint64_t>(below, 1));
}

// A legal price of the scale: both ends of the range, and as often small ones as large ones.
std::int64_t random_count(const exact_step& step, std::mt19937_64& random) {
    const std::int64_t last = highest_price * step.denominator / step.numerator;
    if (random() % 20 == 0) {
        return random() % 2 == 0 ? 1 : last;
    }
    return any_up_to(last, random);
}

class ShownTexts : public testing::TestWithParam<user> {};

TEST_P(ShownTexts, OfAnyScaleReadAsTheShownPrice) {
    const number_locale_scope scope(GetParam().conventions);
    std::mt19937_64 random(7);
    for (const exact_step& step : steps) {
        const CPriceScale scale(step.code);
        for (int i = 0; i < 50; ++i) {
            const std::int64_t count = random_count(step, random);
            const exact::number shown = exact::number(count) * step.numerator / step.denominator;
            const double price =
                static_cast<double>(count * step.numerator) / static_cast<double>(step.denominator);
            for (const CString& text : {scale.ToText(price, 1), scale.ToPlainText(price)}) {
                const std::optional<double> reads = local_format::PriceReadsAs(text);
                ASSERT_TRUE(reads && exact::is_near(shown, *reads))
                    << GetParam() << ' ' << step.code << ' ' << price << " \"" << test::narrow(text) << '"';
            }
        }
    }
}

// A price that was counted in steps carries what each of them is off; the tick tells it from the next.
TEST_P(ShownTexts, ReadAsThePriceThatStepsAddUpTo) {
    const number_locale_scope scope(GetParam().conventions);
    std::mt19937_64 random(8);
    for (const exact_step& step : steps) {
        const CPriceScale scale(step.code);
        const double tick = step.code == -1 ? 1e-9 : scale.GetStep();
        for (int i = 0; i < 100; ++i) {
            const double price = static_cast<double>(random_count(step, random)) * tick;
            const std::optional<double> reads = local_format::PriceReadsAs(scale.ToText(price, 1));
            ASSERT_TRUE(reads && local_format::IsSamePrice(*reads, price, tick)) << step.code << ' ' << price;
            ASSERT_FALSE(local_format::IsSamePrice(*reads, price + tick, tick)) << step.code << ' ' << price;
        }
    }
}

TEST_P(ShownTexts, OfQuantitiesReadAsTheQuantity) {
    const number_locale_scope scope(GetParam().conventions);
    std::mt19937_64 random(9);
    const LONG units[] = {1, 10, 100, 1000, 50000, 100000, 1000000};
    for (int i = 0; i < 5000; ++i) {
        const LONG unit = units[random() % std::size(units)];
        const LONG any = unit * static_cast<LONG>(any_up_to(most / unit, random));
        const LONG value = i < 10 ? i : i == 10 ? most : any;
        for (const CString& text :
             {local_format::CNumberFormat::QuantityToText(value),
              local_format::CNumberFormat::IntegerToText(value), CString(std::to_wstring(value))}) {
            ASSERT_EQ(local_format::QuantityReadsAs(text), value)
                << GetParam() << " \"" << test::narrow(text) << '"';
        }
    }
}

TEST_P(ShownTexts, OfNegativeQuantitiesDoNotRead) {
    const number_locale_scope scope(GetParam().conventions);
    for (const LONG value : {-1, -5, -1000, -1500, -100000, -2147483647}) {
        const CString text = local_format::CNumberFormat::QuantityToText(value);
        EXPECT_EQ(local_format::QuantityReadsAs(text), std::nullopt) << test::narrow(text);
    }
}

INSTANTIATE_TEST_SUITE_P(Users, ShownTexts, testing::ValuesIn(reads_as_tests::working_users()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
