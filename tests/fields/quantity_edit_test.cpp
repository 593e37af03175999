// The quantity: any 32-bit number, by the system's own rules of conversion.
#include "charting/orderdeck/src/tab/Controls/QuantityEdit.h"

#include "tests/fields/fields_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;

class quantity_field : public test::fields_fixture {
protected:
    quantity_field() { make_tab(); }

    void expect_kept_after(const _variant_t& refused, HRESULT expected) {
        reset_record();
        EXPECT_EQ(expected, raised_by([&] { quantity().put_Value(refused); }));
        EXPECT_EQ(7, quantity().get_Quantity());
        EXPECT_EQ(L"7", value_text(quantity()));
        EXPECT_EQ(calls{}, host.calls());
    }
};

TEST_F(quantity_field, starts_at_one) {
    EXPECT_EQ(1, quantity().get_Quantity());
    EXPECT_EQ(L"1", value_text(quantity()));
    EXPECT_FALSE(quantity().IsEmpty());
}

TEST_F(quantity_field, names_both_buttons_at_each_value_an_equal_one_included) {
    type(eODUE_Quantity, L"10");
    type(eODUE_Quantity, L"10");
    EXPECT_EQ((calls{"TabCtrl.Update(1, 0x30000)", "TabCtrl.Update(1, 0x30000)"}), host.calls());
}

TEST_F(quantity_field, takes_whatever_the_system_makes_a_number_of) {
    _variant_t by_name;
    V_VT(&by_name) = VT_INT;
    V_INT(&by_name) = 44;
    const struct {
        _variant_t value;
        LONG expected;
    } rows[] = {{_variant_t(L"10"), 10},
                {_variant_t(L"-5"), -5},
                {_variant_t(L" 12 "), 12},
                {_variant_t(L"2147483646"), 2147483646},
                {_variant_t(L"-2147483648"), -2147483647 - 1},
                {_variant_t(123L), 123},
                {by_name, 44},
                {_variant_t(2.5), 2},
                {_variant_t(3.5), 4},
                {_variant_t(true), -1},
                {_variant_t(), 0}};
    for (const auto& row : rows) {
        quantity().put_Value(row.value);
        EXPECT_EQ(row.expected, quantity().get_Quantity());
        EXPECT_EQ(std::to_wstring(row.expected), value_text(quantity()));
        EXPECT_FALSE(quantity().IsEmpty());
    }
    EXPECT_TRUE(reported().empty());
}

TEST_F(quantity_field, the_largest_number_alone_is_empty) {
    type(eODUE_Quantity, L"2147483647");
    EXPECT_TRUE(quantity().IsEmpty());
    EXPECT_EQ(L"2147483647", value_text(quantity()));
    for (const wchar_t* text : {L"0", L"-1", L"2147483646", L"-2147483648"}) {
        type(eODUE_Quantity, text);
        EXPECT_FALSE(quantity().IsEmpty()) << test::narrow(text);
    }
}

TEST_F(quantity_field, texts_that_are_no_number_raise_and_leave_the_old_value) {
    type(eODUE_Quantity, L"7");
    for (const wchar_t* text : {L"", L" ", L"abc", L"12 3/32", L"1 1/0", L"1/2", L"--1", L"٣", L"1x"}) {
        expect_kept_after(_variant_t(text), DISP_E_TYPEMISMATCH);
    }
}

TEST_F(quantity_field, numbers_beyond_32_bits_raise_and_leave_the_old_value) {
    type(eODUE_Quantity, L"7");
    expect_kept_after(_variant_t(L"2147483648"), DISP_E_OVERFLOW);
    expect_kept_after(_variant_t(L"-2147483649"), DISP_E_OVERFLOW);
    expect_kept_after(_variant_t(2147483648.0), DISP_E_OVERFLOW);
    expect_kept_after(_variant_t(1e300), DISP_E_OVERFLOW);
}

TEST_F(quantity_field, monstrous_texts_that_are_no_number_raise_and_leave_the_old_value) {
    type(eODUE_Quantity, L"7");
    expect_kept_after(_variant_t(CString(100000, L'x').c_str()), DISP_E_TYPEMISMATCH);
    expect_kept_after(_variant_t(CString(100000, L' ').c_str()), DISP_E_TYPEMISMATCH);
}

// Systems call these numbers too large or no numbers at all; what they say is passed on.
TEST_F(quantity_field, monstrous_numbers_raise_what_the_system_says_and_leave_the_old_value) {
    type(eODUE_Quantity, L"7");
    for (const CString& text : {CString(L"1e400"), CString(100000, L'9')}) {
        const _variant_t value(text.c_str());
        _variant_t changed;
        const HRESULT expected = VariantChangeType(&changed, const_cast<_variant_t*>(&value), 0, VT_I4);
        EXPECT_TRUE(FAILED(expected)) << test::narrow(text.substr(0, 10));
        expect_kept_after(value, expected);
    }
}

TEST_F(quantity_field, types_that_are_no_number_raise_and_leave_the_old_value) {
    type(eODUE_Quantity, L"7");
    _variant_t null;
    V_VT(&null) = VT_NULL;
    expect_kept_after(null, DISP_E_TYPEMISMATCH);
}

TEST_F(quantity_field, the_tab_sees_the_same_value) {
    type(eODUE_Quantity, L"25");
    const _variant_t value = tab->_get_quantity();
    ASSERT_EQ(VT_BSTR, V_VT(&value));
    EXPECT_EQ(L"25", platform::text_of(V_BSTR(&value)));
}

}  // namespace
}  // namespace OV_OrderDeck
