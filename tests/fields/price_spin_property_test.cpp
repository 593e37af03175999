// Random prices, steps and minimum movements under every code, against an oracle that counts in whole
// ticks and rounds once.
#include <algorithm>
#include <boost/multiprecision/cpp_bin_float.hpp>
#include <cmath>
#include <cstdint>
#include <random>

#include "charting/orderdeck/src/tab/Controls/PriceEdit.h"
#include "tests/fields/fields_fixture.h"

namespace OV_OrderDeck {
namespace {

// 113 bits hold the product of any tick and any count of ticks exactly.
using exact = boost::multiprecision::cpp_bin_float_quad;

constexpr double highest = 250000.0;
constexpr LONG most = 0x7FFFFFFF;

struct code_step {
    LONG code;
    double numerator, denominator;
};

const code_step codes[] = {
    {0, 1, 1},       {1, 1, 10},       {2, 1, 100},       {3, 1, 1000},       {4, 1, 10000},   {5, 1, 100000},
    {6, 1, 1000000}, {7, 1, 10000000}, {8, 1, 100000000}, {9, 1, 1000000000}, {'a', 10000, 1}, {'b', 1000, 1},
    {'c', 100, 1},   {'d', 10, 1},     {'e', 1, 1},       {'f', 1, 2},        {'g', 1, 4},     {'h', 1, 8},
    {'i', 1, 10},    {'j', 1, 16},     {'k', 1, 32},      {'l', 1, 64},       {'m', 1, 100},   {'n', 1, 1000},
    {'o', 1, 10000}, {'p', 1, 100000}, {'q', 1, 128},     {'r', 1, 256},      {'s', 1, 320},   {'t', 1, 40},
    {'u', 1, 128},   {'v', 1, 640},    {'w', 1, 1000000}, {'x', 1, 64},       {'y', 1, 128},   {'z', 1, 1000},
    {'A', 10000, 1}, {'K', 1, 32},     {'S', 1, 320},     {'W', 1, 1000000}};

class price_arithmetic : public test::fields_fixture {
protected:
    price_arithmetic() { make_ready_tab(); }

    double between(double low, double high) { return std::uniform_real_distribution<>(low, high)(m_random); }
    template <class Number>
    Number whole_between(Number low, Number high) {
        return std::uniform_int_distribution<Number>(low, high)(m_random);
    }
    // Whole movements and quarters of one; two ticks at least fit below the highest price.
    double movement_of(const code_step& code) {
        const double movement =
            static_cast<double>(whole_between(1, 400)) / (whole_between(0, 1) == 0 ? 1 : 4);
        return std::min(movement, highest * code.denominator / code.numerator / 2.0);
    }
    // Does something with the tick of every code under several movements.
    template <class Action>
    void with_each_tick(Action action) {
        for (const code_step& code : codes) {
            for (int round = 0; round < 8; ++round) {
                const double movement = round == 0 ? 1.0 : movement_of(code);
                SCOPED_TRACE("code " + std::to_string(code.code) + ", movement " +
                             test::number_text(movement));
                put_scale(code.code, movement);
                action(code.numerator / code.denominator * movement);
            }
        }
    }
    // A bit more often what is small.
    LONG random_steps() {
        switch (whole_between(0, 3)) {
            case 0:
                return whole_between(0, 1) == 0 ? 1 : -1;
            case 1:
                return whole_between<LONG>(-most - 1, most);
            default: {
                const LONG steps = whole_between<LONG>(-1000, 1000);
                return steps != 0 ? steps : 2;
            }
        }
    }
    static double limited(const exact& ticks, double tick) {
        const double price = static_cast<double>(exact(ticks * exact(tick)));
        return std::clamp(price, tick, highest);
    }
    void expect_spun(std::int64_t ticks, double part, double tick) {
        const double price = static_cast<double>(exact((exact(ticks) + exact(part)) * exact(tick)));
        ASSERT_GE(price, tick);
        ASSERT_LE(price, highest);
        const LONG steps = random_steps();
        first()._set_value(price);
        spin(first(), steps);
        const std::int64_t nearest = ticks + (part > 0.5 ? 1 : 0) + steps;
        EXPECT_EQ(limited(exact(nearest), tick), first().get_Price())
            << ticks << " and " << part << " ticks, " << steps << " steps";
        EXPECT_FALSE(first().IsEmpty());
    }
    // The most ticks that do not exceed the highest price.
    static std::int64_t highest_ticks(double tick) {
        return static_cast<std::int64_t>(floor(exact(exact(highest) / exact(tick))));
    }

private:
    std::mt19937_64 m_random{20261120};
};

TEST_F(price_arithmetic, on_the_grid_each_step_is_one_tick) {
    with_each_tick([&](double tick) {
        for (int i = 0; i < 12; ++i) {
            expect_spun(whole_between<std::int64_t>(1, highest_ticks(tick)), 0.0, tick);
        }
        expect_spun(1, 0.0, tick);
        expect_spun(highest_ticks(tick), 0.0, tick);
    });
}

// The finest tick leaves a price of this size six bits behind the tick: parts stay clear of a half.
TEST_F(price_arithmetic, off_the_grid_the_nearest_tick_comes_first) {
    with_each_tick([&](double tick) {
        for (int i = 0; i < 12; ++i) {
            const std::int64_t ticks = whole_between<std::int64_t>(1, highest_ticks(tick) - 1);
            expect_spun(ticks, between(0.05, 0.45), tick);
            expect_spun(ticks, between(0.55, 0.95), tick);
        }
    });
}

TEST_F(price_arithmetic, half_a_tick_goes_down_wherever_it_is_exact) {
    for (const LONG code : {0, 97, 98, 99, 100, 101, 102, 103, 104, 106, 107, 108, 113, 114, 117, 120, 121}) {
        put_scale(code, 3.0);
        double tick = 0.0;
        first().get_ValueRange(&tick, nullptr);
        for (int i = 0; i < 12; ++i) {
            expect_spun(whole_between<std::int64_t>(1, highest_ticks(tick) - 1), 0.5, tick);
        }
    }
}

TEST_F(price_arithmetic, there_and_back_ends_on_the_same_tick) {
    with_each_tick([&](double tick) {
        const std::int64_t ticks = whole_between<std::int64_t>(1, highest_ticks(tick) - 1);
        first()._set_value(static_cast<double>(exact(exact(ticks) * exact(tick))));
        const double before = first().get_Price();
        spin(first(), 1);
        EXPECT_GT(first().get_Price(), before);
        spin(first(), -1);
        EXPECT_EQ(before, first().get_Price());
    });
}

TEST_F(price_arithmetic, the_range_is_from_one_tick_to_the_highest) {
    with_each_tick([&](double tick) {
        double low = 0.0;
        first().get_ValueRange(&low, nullptr);
        EXPECT_EQ(tick, low);
        first()._set_value(tick);
        EXPECT_FALSE(first().IsEmpty());
        first()._set_value(std::nextafter(tick, 0.0));
        EXPECT_TRUE(first().IsEmpty());
        first()._set_value(highest);
        EXPECT_FALSE(first().IsEmpty());
        first()._set_value(std::nextafter(highest, 2 * highest));
        EXPECT_TRUE(first().IsEmpty());
    });
}

TEST_F(price_arithmetic, the_range_in_steps_covers_the_highest_price_or_ends_at_32_bits) {
    with_each_tick([&](double tick) {
        LONG low = 0;
        LONG high = 0;
        first().get_SpinRange(&low, &high);
        EXPECT_EQ(1, low);
        // What lies nearer to a whole count than a double can tell is that count.
        const double count = std::ceil(static_cast<double>(exact(exact(highest) / exact(tick))));
        EXPECT_EQ(static_cast<LONG>(std::min<double>(count, most)), high);
    });
}

TEST_F(price_arithmetic, a_picked_quote_lands_inside_the_range) {
    with_each_tick([&](double tick) {
        for (const double quote : {between(-1e6, 1e6), between(0.0, tick), between(highest, 1e9)}) {
            ask_bid().put_Value(_variant_t(quote));
            EXPECT_EQ(std::clamp(quote, tick, highest), first().get_Price());
            EXPECT_EQ(std::clamp(quote, tick, highest), second().get_Price());
        }
    });
}

}  // namespace
}  // namespace OV_OrderDeck
