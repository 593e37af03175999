#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/com.h"
#include "platform/number_locale.h"

namespace {

// Numbers in text follow the user's conventions, whatever they are on the machine that runs this.
std::wstring with_separator(std::wstring text) {
    const auto conventions = platform::port<platform::number_locale>::system().user_conventions();
    const auto point = text.find(L'.');
    return point == std::wstring::npos ? text : text.replace(point, 1, conventions.decimal_separator);
}

std::wstring text_of(VARIANT source, USHORT flags = 0) {
    VARIANT result = {};
    EXPECT_EQ(VariantChangeType(&result, &source, flags, VT_BSTR), S_OK) << source.vt;
    const std::wstring text(result.bstrVal == nullptr ? L"" : result.bstrVal, SysStringLen(result.bstrVal));
    VariantClear(&result);
    return text;
}

VARIANT of_integer(VARTYPE vt, LONGLONG number) {
    VARIANT value = {};
    value.vt = vt;
    value.llVal = number;
    return value;
}

VARIANT of_real(double number) {
    VARIANT value = {};
    value.vt = VT_R8;
    value.dblVal = number;
    return value;
}

VARIANT of_single(float number) {
    VARIANT value = {};
    value.vt = VT_R4;
    value.fltVal = number;
    return value;
}

HRESULT convert(const std::wstring& text, VARTYPE vt, VARIANT& result) {
    VARIANT source = {};
    source.vt = VT_BSTR;
    source.bstrVal = SysAllocStringLen(text.c_str(), static_cast<UINT>(text.size()));
    result = {};
    const HRESULT hr = VariantChangeType(&result, &source, 0, vt);
    VariantClear(&source);
    return hr;
}

LONG long_of(const std::wstring& text) {
    VARIANT result;
    EXPECT_EQ(convert(text, VT_I4, result), S_OK);
    return result.lVal;
}

double real_of(const std::wstring& text) {
    VARIANT result;
    EXPECT_EQ(convert(text, VT_R8, result), S_OK);
    return result.dblVal;
}

void expect_failure(const std::wstring& text, VARTYPE vt, HRESULT expected) {
    VARIANT result;
    EXPECT_EQ(convert(text, vt, result), expected) << vt;
}

TEST(VariantText, IntegersAreDigits) {
    EXPECT_EQ(text_of(of_integer(VT_I4, -70000)), L"-70000");
    EXPECT_EQ(text_of(of_integer(VT_I2, -1)), L"-1");
    EXPECT_EQ(text_of(of_integer(VT_UI1, 200)), L"200");
    EXPECT_EQ(text_of(of_integer(VT_UI4, 4294967295LL)), L"4294967295");
    EXPECT_EQ(text_of(of_integer(VT_UINT, 4294967295LL)), L"4294967295");
    EXPECT_EQ(text_of(of_integer(VT_I8, std::numeric_limits<LONGLONG>::max())), L"9223372036854775807");
    EXPECT_EQ(text_of(of_integer(VT_UI8, -1)), L"18446744073709551615");
}

TEST(VariantText, TruthIsANumberUnlessWordsAreAskedFor) {
    EXPECT_EQ(text_of(of_integer(VT_BOOL, -1)), L"-1");
    EXPECT_EQ(text_of(of_integer(VT_BOOL, 0)), L"0");
    EXPECT_EQ(text_of(of_integer(VT_BOOL, -1), VARIANT_ALPHABOOL), L"True");
    EXPECT_EQ(text_of(of_integer(VT_BOOL, 0), VARIANT_ALPHABOOL), L"False");
}

TEST(VariantText, DoublesShowFifteenDigits) {
    EXPECT_EQ(text_of(of_real(2.0)), L"2");
    EXPECT_EQ(text_of(of_real(-0.0)), L"0");
    EXPECT_EQ(text_of(of_real(0.1)), with_separator(L"0.1"));
    EXPECT_EQ(text_of(of_real(-12.5)), with_separator(L"-12.5"));
    EXPECT_EQ(text_of(of_real(1.0 / 3)), with_separator(L"0.333333333333333"));
    EXPECT_EQ(text_of(of_real(1e15)), L"1E+15");
    EXPECT_EQ(text_of(of_real(1e300)), L"1E+300");
}

TEST(VariantText, FloatsShowSevenDigits) {
    EXPECT_EQ(text_of(of_single(0.1F)), with_separator(L"0.1"));
    EXPECT_EQ(text_of(of_single(3.5F)), with_separator(L"3.5"));
    EXPECT_EQ(text_of(of_single(1234567.8F)), L"1234568");
    EXPECT_EQ(text_of(of_single(16777216.F)), with_separator(L"1.677722E+07"));
    EXPECT_EQ(text_of(of_single(1e-8F)), L"1E-08");
    EXPECT_EQ(text_of(of_single(-0.0F)), L"0");
}

TEST(VariantText, NumbersAreRead) {
    EXPECT_EQ(real_of(with_separator(L"12.5")), 12.5);
    EXPECT_EQ(real_of(with_separator(L"-0.25")), -0.25);
    EXPECT_EQ(real_of(L" 12 "), 12.0);
    EXPECT_EQ(real_of(L"1e3"), 1000.0);
    EXPECT_EQ(long_of(L" 12 "), 12);
    EXPECT_EQ(long_of(L"-70000"), -70000);
    EXPECT_EQ(long_of(L"1e3"), 1000);
}

TEST(VariantText, FractionsRoundToEvenOnTheirWayToAnInteger) {
    EXPECT_EQ(long_of(with_separator(L"1.5")), 2);
    EXPECT_EQ(long_of(with_separator(L"2.5")), 2);
    EXPECT_EQ(long_of(with_separator(L"-1.5")), -2);
}

TEST(VariantText, LongIntegersKeepEveryDigit) {
    VARIANT result;
    ASSERT_EQ(convert(L"9007199254740993", VT_I8, result), S_OK);
    EXPECT_EQ(result.llVal, 9007199254740993LL);
    ASSERT_EQ(convert(L"-9007199254740993", VT_I8, result), S_OK);
    EXPECT_EQ(result.llVal, -9007199254740993LL);
    ASSERT_EQ(convert(L"9223372036854775807", VT_I8, result), S_OK);
    EXPECT_EQ(result.llVal, std::numeric_limits<LONGLONG>::max());
    expect_failure(L"9223372036854775808", VT_I8, DISP_E_OVERFLOW);
    ASSERT_EQ(convert(L"18446744073709551615", VT_UI8, result), S_OK);
    EXPECT_EQ(result.ullVal, std::numeric_limits<ULONGLONG>::max());
}

TEST(VariantText, NumbersOutOfRangeOverflow) {
    expect_failure(L"3000000000", VT_I4, DISP_E_OVERFLOW);
    expect_failure(L"65535", VT_I2, DISP_E_OVERFLOW);
    expect_failure(L"200", VT_I1, DISP_E_OVERFLOW);
    expect_failure(L"1e40", VT_R4, DISP_E_OVERFLOW);
    for (const VARTYPE vt : {VT_UI1, VT_UI2, VT_UI4, VT_UI8, VT_UINT}) {
        expect_failure(L"-1", vt, DISP_E_OVERFLOW);
    }
}

TEST(VariantText, WhatIsNoNumberIsRefused) {
    for (const wchar_t* text : {L"abc", L"", L"12x", L"True"}) {
        for (const VARTYPE vt : {VT_I2, VT_I4, VT_I8, VT_UI1, VT_UI4, VT_R4, VT_R8}) {
            expect_failure(text, vt, DISP_E_TYPEMISMATCH);
        }
    }
    expect_failure(L"abc", VT_BOOL, DISP_E_TYPEMISMATCH);
    expect_failure(L"abc", VT_UNKNOWN, DISP_E_TYPEMISMATCH);
    expect_failure(L"5", VT_ERROR, DISP_E_TYPEMISMATCH);
}

TEST(VariantText, ANullTextIsTheEmptyOne) {
    VARIANT source = {};
    source.vt = VT_BSTR;
    VARIANT result = {};
    EXPECT_EQ(VariantChangeType(&result, &source, 0, VT_R8), DISP_E_TYPEMISMATCH);
}

TEST(VariantText, TruthIsReadFromWordsAndNumbers) {
    const struct {
        std::wstring text;
        VARIANT_BOOL truth;
    } expected[] = {
        {L"True", VARIANT_TRUE},   {L"true", VARIANT_TRUE},   {L"FALSE", VARIANT_FALSE},
        {L"false", VARIANT_FALSE}, {L"#TRUE#", VARIANT_TRUE}, {L"#FALSE#", VARIANT_FALSE},
        {L"0", VARIANT_FALSE},     {L"2", VARIANT_TRUE},      {with_separator(L"0.2"), VARIANT_TRUE}};
    for (const auto& row : expected) {
        VARIANT result;
        ASSERT_EQ(convert(row.text, VT_BOOL, result), S_OK);
        EXPECT_EQ(result.boolVal, row.truth);
    }
    expect_failure(L"#false#", VT_BOOL, DISP_E_TYPEMISMATCH);
}

TEST(VariantText, TextTurnsIntoEmptyNullAndItself) {
    VARIANT result;
    EXPECT_EQ(convert(L"abc", VT_EMPTY, result), S_OK);
    EXPECT_EQ(convert(L"abc", VT_NULL, result), S_OK);
    ASSERT_EQ(convert(std::wstring(L"a\0b", 3), VT_BSTR, result), S_OK);
    EXPECT_EQ(SysStringLen(result.bstrVal), 3U);
    VariantClear(&result);
}

}  // namespace
