// Spinning a price: the range in steps, and where each step leads.
#include <limits>

#include "charting/orderdeck/src/tab/Controls/PriceEdit.h"
#include "tests/fields/fields_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;

constexpr LONG endless = 0x7FFFFFFF;

class price_spin : public test::fields_fixture {
protected:
    price_spin() : m_english(english()) { make_ready_tab(); }

    struct range {
        LONG low, high;
    };
    range spin_range() {
        range result{-7, -8};
        first().get_SpinRange(&result.low, &result.high);
        return result;
    }
    double spun(double from, LONG steps) {
        first()._set_value(from);
        spin(first(), steps);
        return first().get_Price();
    }

private:
    number_locale_scope m_english;
};

TEST_F(price_spin, the_range_in_steps_of_every_code) {
    const struct {
        LONG code, high;
    } rows[] = {{0, 250000},      {1, 2500000},     {2, 25000000},   {3, 250000000},   {4, endless},
                {5, endless},     {6, endless},     {7, endless},    {8, endless},     {9, endless},
                {'a', 25},        {'b', 250},       {'c', 2500},     {'d', 25000},     {'e', 250000},
                {'f', 500000},    {'g', 1000000},   {'h', 2000000},  {'i', 2500000},   {'j', 4000000},
                {'k', 8000000},   {'l', 16000000},  {'m', 25000000}, {'n', 250000000}, {'o', endless},
                {'p', endless},   {'q', 32000000},  {'r', 64000000}, {'s', 80000000},  {'t', 10000000},
                {'u', 32000000},  {'v', 160000000}, {'w', endless},  {'x', 16000000},  {'y', 32000000},
                {'z', 250000000}, {'A', 25},        {'S', 80000000}, {'Z', 250000000}};
    for (const auto& row : rows) {
        put_scale(row.code, 1.0);
        const range seen = spin_range();
        EXPECT_EQ(1, seen.low) << row.code;
        EXPECT_EQ(row.high, seen.high) << row.code;
    }
    EXPECT_TRUE(reported().empty());
}

TEST_F(price_spin, a_range_that_is_no_whole_number_of_steps_is_rounded_up) {
    put_scale('e', 3.0);
    EXPECT_EQ(83334, spin_range().high);
    put_scale('a', 26.0);
    EXPECT_EQ(1, spin_range().high);
}

TEST_F(price_spin, the_range_never_leaves_32_bits) {
    // 250000 / 2147483648 and its neighbours: exactly 2^31 steps, one less, and many more.
    put_scale('e', 250000.0 / 2147483648.0);
    EXPECT_EQ(endless, spin_range().high);
    put_scale('e', 250000.0 / 2147483646.0);
    EXPECT_EQ(2147483646, spin_range().high);
    put_scale('e', 1e-15);
    EXPECT_EQ(endless, spin_range().high);
}

TEST_F(price_spin, either_end_of_the_range_may_be_left_out) {
    put_scale('e', 1.0);
    LONG low = 0;
    LONG high = 0;
    first().get_SpinRange(&low, nullptr);
    first().get_SpinRange(nullptr, &high);
    first().get_SpinRange(nullptr, nullptr);
    EXPECT_EQ(1, low);
    EXPECT_EQ(250000, high);
    EXPECT_TRUE(reported().empty());
}

TEST_F(price_spin, without_a_usable_step_the_range_is_reported_and_left_alone) {
    const struct {
        LONG code;
        double movement;
    } rows[] = {{-1, 1.0}, {10, 1.0}, {64, 3.0}, {2, 0.0}, {'e', 2.2204460492503e-16}, {2, -1.0}};
    for (const auto& row : rows) {
        put_scale(row.code, row.movement);
        const range seen = spin_range();
        EXPECT_EQ(-7, seen.low) << row.code;
        EXPECT_EQ(-8, seen.high) << row.code;
        EXPECT_EQ((std::vector<std::wstring>{L"0"}), reported()) << row.code;
    }
}

TEST_F(price_spin, the_smallest_usable_step_is_usable) {
    put_scale('e', 2.220446049250313e-16);
    EXPECT_EQ(1, spin_range().low);
    EXPECT_EQ(endless, spin_range().high);
    EXPECT_TRUE(reported().empty());
}

TEST_F(price_spin, a_step_without_end_has_no_first_step) {
    put_scale('a', std::numeric_limits<double>::max());
    const range seen = spin_range();
    EXPECT_EQ(0, seen.low);
    EXPECT_EQ(0, seen.high);
    EXPECT_TRUE(reported().empty());
}

TEST_F(price_spin, without_a_usable_step_a_price_stays) {
    for (const LONG code : {-1, 10}) {
        put_scale(code, 1.0);
        EXPECT_EQ(101.25, spun(101.25, 1)) << code;
        EXPECT_EQ(101.25, spun(101.25, -1)) << code;
    }
    put_scale(2, 0.0);
    EXPECT_EQ(101.25, spun(101.25, 1));
    EXPECT_TRUE(reported().empty());
}

TEST_F(price_spin, without_a_usable_step_an_empty_field_still_goes_to_an_end) {
    put_scale(-1, 1.0);
    first().Clear();
    spin(first(), 1);
    EXPECT_EQ(-1.0, first().get_Price());
    first().Clear();
    spin(first(), -1);
    EXPECT_EQ(250000.0, first().get_Price());
}

TEST_F(price_spin, no_step_does_nothing) {
    EXPECT_EQ(10.004, spun(10.004, 0));
    type(eODUE_FirstPrice, L"no price");
    spin(first(), 0);
    EXPECT_TRUE(first().IsEmpty());
    EXPECT_EQ(L"no price", value_text(first()));
}

TEST_F(price_spin, an_empty_field_starts_at_an_end) {
    for (const wchar_t* text : {L"", L"no price", L"0", L"250000.01"}) {
        for (const LONG steps : {1, 5, 0x7FFFFFFF}) {
            type(eODUE_FirstPrice, text);
            spin(first(), steps);
            EXPECT_EQ(0.01, first().get_Price());
            EXPECT_EQ(L"0.01", value_text(first()));
        }
        for (const LONG steps : {-1, -5, -0x7FFFFFFF - 1}) {
            type(eODUE_FirstPrice, text);
            spin(first(), steps);
            EXPECT_EQ(250000.0, first().get_Price());
            EXPECT_EQ(L"250,000.00", value_text(first()));
        }
    }
}

TEST_F(price_spin, a_price_off_the_grid_goes_to_the_nearest_tick_first) {
    EXPECT_DOUBLE_EQ(10.01, spun(10.004, 1));
    EXPECT_EQ(L"10.01", value_text(first()));
    EXPECT_DOUBLE_EQ(10.02, spun(10.006, 1));
    EXPECT_EQ(L"10.02", value_text(first()));
    EXPECT_DOUBLE_EQ(9.99, spun(10.004, -1));
    EXPECT_DOUBLE_EQ(10.0, spun(10.006, -1));
    EXPECT_DOUBLE_EQ(10.5, spun(10.004, 50));
}

TEST_F(price_spin, exactly_half_a_tick_goes_down_before_the_step) {
    put_scale('k', 1.0);
    EXPECT_EQ(10.03125, spun(10.015625, 1));
    EXPECT_EQ(L"10 1/32", value_text(first()));
    EXPECT_EQ(9.96875, spun(10.015625, -1));
    put_scale('e', 1.0);
    EXPECT_EQ(3.0, spun(2.5, 1));
    EXPECT_EQ(4.0, spun(std::nextafter(2.5, 3.0), 1));
}

TEST_F(price_spin, stops_at_the_ends) {
    EXPECT_EQ(250000.0, spun(250000.0, 1));
    EXPECT_EQ(250000.0, spun(249999.99, 0x7FFFFFFF));
    EXPECT_EQ(0.01, spun(0.01, -1));
    EXPECT_EQ(0.01, spun(5.0, -0x7FFFFFFF - 1));
    EXPECT_EQ(0.01, spun(0.02, -2));
    EXPECT_EQ(L"0.01", value_text(first()));
}

TEST_F(price_spin, tells_the_bar_nothing) {
    spun(10.0, 1);
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(price_spin, starts_from_a_typed_text) {
    type(eODUE_FirstPrice, L"12 3/32");
    spin(first(), 1);
    EXPECT_DOUBLE_EQ(12.10, first().get_Price());
    EXPECT_EQ(L"12.10", value_text(first()));
}

}  // namespace
}  // namespace OV_OrderDeck
