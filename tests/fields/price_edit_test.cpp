// A price: its range, what a typed text means, and when there is none.
#include "charting/orderdeck/src/tab/Controls/PriceEdit.h"

#include <cmath>
#include <limits>

#include "tests/fields/fields_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;

constexpr double largest = std::numeric_limits<double>::max();

class price_field : public test::fields_fixture {
protected:
    price_field() : m_english(english()) { make_ready_tab(); }

    void type_first(const CString& text) { first().put_Value(_variant_t(text.c_str())); }
    double low() {
        double result = 0.0;
        first().get_ValueRange(&result, nullptr);
        return result;
    }
    // The text is kept as typed, with this price or, for the largest, none.
    void expect_typed(const CString& text, double price) {
        type_first(text);
        EXPECT_EQ(text, value_text(first()));
        EXPECT_EQ(price, first().get_Price()) << test::narrow(text.substr(0, 40));
        EXPECT_TRUE(reported().empty());
    }

private:
    number_locale_scope m_english;
};

TEST_F(price_field, starts_and_clears_to_no_price_and_no_text) {
    for (CPriceEditBase* const price :
         {static_cast<CPriceEditBase*>(&first()), static_cast<CPriceEditBase*>(&second())}) {
        EXPECT_EQ(largest, price->get_Price());
        EXPECT_EQ(L"", value_text(*price));
        EXPECT_TRUE(price->IsEmpty());
        price->put_Value(_variant_t(L"12"));
        EXPECT_FALSE(price->IsEmpty());
        price->Clear();
        EXPECT_EQ(largest, price->get_Price());
        EXPECT_EQ(L"", value_text(*price));
        EXPECT_TRUE(price->IsEmpty());
    }
}

TEST_F(price_field, the_two_hold_their_values_apart) {
    type(eODUE_FirstPrice, L"11");
    type(eODUE_SecondPrice, L"12");
    EXPECT_EQ(11.0, first().get_Price());
    EXPECT_EQ(12.0, second().get_Price());
}

TEST_F(price_field, typing_tells_the_bar_nothing) {
    type(eODUE_FirstPrice, L"11");
    type(eODUE_FirstPrice, L"no price");
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(price_field, the_range_goes_from_the_tick_to_250000) {
    const struct {
        LONG code;
        double movement, low;
    } rows[] = {{2, 1.0, 0.01},  {2, 5.0, 0.05},      {0, 1.0, 1.0},  {'e', 1.0, 1.0}, {'K', 1.0, 0.03125},
                {'g', 2.0, 0.5}, {'a', 1.0, 10000.0}, {9, 1.0, 1e-9}, {'t', 4.0, 0.1}, {'e', 0.5, 0.5}};
    for (const auto& row : rows) {
        put_scale(row.code, row.movement);
        for (const OD_UpdateEntity entity : {eODUE_FirstPrice, eODUE_SecondPrice}) {
            double low = 0.0;
            double high = 0.0;
            field(entity).get_ValueRange(&low, &high);
            EXPECT_EQ(row.low, low) << row.code;
            EXPECT_EQ(250000.0, high) << row.code;
        }
    }
}

TEST_F(price_field, either_end_of_the_range_may_be_left_out) {
    double high = 0.0;
    first().get_ValueRange(nullptr, &high);
    EXPECT_EQ(250000.0, high);
    EXPECT_EQ(0.01, low());
    first().get_ValueRange(nullptr, nullptr);
    EXPECT_TRUE(reported().empty());
}

TEST_F(price_field, without_a_symbol_the_lowest_price_is_1) {
    make_tab();
    EXPECT_EQ(1.0, low());
    type_first(L"0.99");
    EXPECT_TRUE(first().IsEmpty());
    type_first(L"1");
    EXPECT_FALSE(first().IsEmpty());
}

TEST_F(price_field, a_code_without_a_step_has_minus_one_for_its_tick) {
    for (const LONG code : {-1, 10, 64, 91, 96, 123, -2, 0x7FFFFFFF}) {
        put_scale(code, 1.0);
        EXPECT_EQ(-1.0, low()) << code;
        put_scale(code, 2.5);
        EXPECT_EQ(-2.5, low()) << code;
    }
}

TEST_F(price_field, below_the_tick_or_above_250000_is_no_price_and_stays_as_it_is) {
    const struct {
        const wchar_t* text;
        double price;
        bool empty;
    } rows[] = {{L"250000", 250000.0, false}, {L"250000.01", 250000.01, true}, {L"0", 0.0, true},
                {L"0.01", 0.01, false},       {L"0.00999", 0.00999, true},     {L"-5", -5.0, true},
                {L"1e300", 1e300, true}};
    for (const auto& row : rows) {
        expect_typed(row.text, row.price);
        EXPECT_EQ(row.empty, first().IsEmpty()) << test::narrow(row.text);
    }
}

TEST_F(price_field, one_step_of_arithmetic_decides_at_both_ends) {
    first()._set_value(0.01);
    EXPECT_FALSE(first().IsEmpty());
    first()._set_value(std::nextafter(0.01, 0.0));
    EXPECT_TRUE(first().IsEmpty());
    first()._set_value(std::nextafter(250000.0, largest));
    EXPECT_TRUE(first().IsEmpty());
}

TEST_F(price_field, what_is_no_number_is_no_price) {
    first()._set_value(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(first().IsEmpty());
    first()._set_value(std::numeric_limits<double>::infinity());
    EXPECT_TRUE(first().IsEmpty());
    first()._set_value(-std::numeric_limits<double>::infinity());
    EXPECT_TRUE(first().IsEmpty());
}

TEST_F(price_field, a_typed_price_between_two_ticks_is_kept_unrounded) {
    expect_typed(L"101.2549", 101.2549);
    EXPECT_FALSE(first().IsEmpty());
}

TEST_F(price_field, understands_fractions_under_every_code) {
    for (const LONG code : {2, static_cast<int>('k'), static_cast<int>('e'), -1}) {
        put_scale(code, 1.0);
        expect_typed(L"12 3/32", 12.09375);
        expect_typed(L"3/32", 0.09375);
        expect_typed(L"1,000 1/2", 1000.5);
        expect_typed(L"101.25", 101.25);
    }
}

TEST_F(price_field, a_text_that_is_no_price_stays_to_be_mended) {
    for (const wchar_t* text : {L"", L" ", L"abc", L"1 1/0", L"/", L"1/", L"/2", L"1 2 3/4", L"1e400", L"٣",
                                L"12 3/32/64", L"1.5 1/2", L"1 -1/2", L"0x10"}) {
        type_first(L"101.25");
        expect_typed(text, largest);
        EXPECT_TRUE(first().IsEmpty()) << test::narrow(text);
    }
}

TEST_F(price_field, keeps_a_hundred_thousand_characters) {
    for (const CString& text : {CString(100000, L'x'), CString(100000, L'9'), CString(100000, L'/'),
                                CString(99998, L'9') + L"/0"}) {
        expect_typed(text, largest);
        EXPECT_TRUE(first().IsEmpty());
    }
    type_first(L"5");
    EXPECT_FALSE(first().IsEmpty());
}

TEST_F(price_field, takes_the_same_texts_by_the_systems_own_conventions) {
    platform::port<platform::number_locale>::replacement system(
        platform::port<platform::number_locale>::system());
    expect_typed(L"12 3/32", 12.09375);
    for (const CString& text : {CString(L""), CString(L"1 1/0"), CString(L"1e400"), CString(L"٣"),
                                CString(100000, L'x'), CString(100000, L'9')}) {
        expect_typed(text, largest);
    }
}

TEST_F(price_field, a_null_text_is_an_empty_one) {
    type_first(L"5");
    VARIANT nothing;
    VariantInit(&nothing);
    V_VT(&nothing) = VT_BSTR;
    V_BSTR(&nothing) = nullptr;
    first().put_Value(nothing);
    EXPECT_TRUE(first().IsEmpty());
    EXPECT_EQ(L"", value_text(first()));
}

TEST_F(price_field, takes_texts_and_steps_alone) {
    type_first(L"101.25");
    _variant_t empty;
    _variant_t number(101L);
    _variant_t real(101.0);
    _variant_t flag(true);
    _variant_t day(45000.0, VT_DATE);
    std::size_t reports = 0;
    for (const _variant_t* wrong : {&empty, &number, &real, &flag, &day}) {
        EXPECT_NE(S_OK, raised_by([&] { first().put_Value(*wrong); })) << V_VT(wrong);
        EXPECT_EQ(++reports, reported().size());
        EXPECT_EQ(101.25, first().get_Price());
        EXPECT_EQ(L"101.25", value_text(first()));
    }
}

TEST_F(price_field, a_set_price_keeps_its_value_while_its_text_lies_on_the_grid) {
    first()._set_value(10.004);
    EXPECT_EQ(10.004, first().get_Price());
    EXPECT_EQ(L"10.00", value_text(first()));
    first()._set_value(1234.5);
    EXPECT_EQ(L"1,234.50", value_text(first()));
}

TEST_F(price_field, shows_fractions_of_its_scale) {
    put_scale('k', 1.0);
    first()._set_value(12.09375);
    EXPECT_EQ(L"12 3/32", value_text(first()));
    put_scale('s', 1.0);
    first()._set_value(0.003125);
    EXPECT_EQ(L"0.1/32", value_text(first()));
}

TEST_F(price_field, limits_what_it_is_given_to_its_range) {
    const struct {
        double given, price;
        const wchar_t* text;
    } rows[] = {{300000.0, 250000.0, L"250,000.00"},
                {0.001, 0.01, L"0.01"},
                {-7.0, 0.01, L"0.01"},
                {0.0, 0.01, L"0.01"},
                {101.25, 101.25, L"101.25"},
                {0.01, 0.01, L"0.01"},
                {250000.0, 250000.0, L"250,000.00"},
                {10.004, 10.004, L"10.00"}};
    for (const auto& row : rows) {
        first()._set_clamped(row.given);
        EXPECT_EQ(row.price, first().get_Price()) << row.given;
        EXPECT_EQ(row.text, value_text(first())) << row.given;
    }
}

TEST_F(price_field, follows_the_next_symbols_scale_at_once) {
    put_scale(2, 1.0);
    type_first(L"0.05");
    EXPECT_FALSE(first().IsEmpty());
    put_scale('e', 1.0);
    type_first(L"0.05");
    EXPECT_TRUE(first().IsEmpty());
    EXPECT_EQ(1.0, low());
}

}  // namespace
}  // namespace OV_OrderDeck
