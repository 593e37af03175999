#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>

#include "platform/com.h"
#include "tests/platform/counted_object.h"

namespace {

using platform_tests::counted_object;

constexpr LONGLONG k_i8_max = std::numeric_limits<LONGLONG>::max();
constexpr ULONGLONG k_ui8_max = std::numeric_limits<ULONGLONG>::max();

VARIANT of_type(VARTYPE vt) {
    VARIANT value = {};
    value.vt = vt;
    return value;
}

// Signed and unsigned values of every width: the low bytes are the value.
VARIANT of_integer(VARTYPE vt, LONGLONG number) {
    VARIANT value = of_type(vt);
    value.llVal = number;
    return value;
}

VARIANT of_real(double number) {
    VARIANT value = of_type(VT_R8);
    value.dblVal = number;
    return value;
}

VARIANT of_truth(VARIANT_BOOL truth) {
    VARIANT value = of_type(VT_BOOL);
    value.boolVal = truth;
    return value;
}

LONGLONG integer_of(const VARIANT& value) {
    switch (value.vt) {
        case VT_I1:
            return static_cast<signed char>(value.cVal);
        case VT_I2:
        case VT_BOOL:
            return value.iVal;
        case VT_I4:
        case VT_INT:
            return value.lVal;
        case VT_UI1:
            return value.bVal;
        case VT_UI2:
            return value.uiVal;
        case VT_UI4:
        case VT_UINT:
            return value.ulVal;
        default:
            return value.llVal;
    }
}

// Converts, and checks that a failure leaves the target as it was.
HRESULT convert(VARIANT source, VARTYPE vt, VARIANT& result, USHORT flags = 0) {
    result = of_integer(VT_I4, 77);
    const HRESULT hr = VariantChangeType(&result, &source, flags, vt);
    if (FAILED(hr)) {
        EXPECT_EQ(result.vt, VT_I4);
        EXPECT_EQ(result.lVal, 77);
    } else {
        EXPECT_EQ(result.vt, vt);
    }
    return hr;
}

void expect_integer(const VARIANT& source, VARTYPE vt, LONGLONG expected) {
    VARIANT result;
    ASSERT_EQ(convert(source, vt, result), S_OK) << source.vt << " to " << vt;
    EXPECT_EQ(integer_of(result), expected) << source.vt << " to " << vt;
}

void expect_failure(const VARIANT& source, VARTYPE vt, HRESULT expected) {
    VARIANT result;
    EXPECT_EQ(convert(source, vt, result), expected) << source.vt << " to " << vt;
}

double real_of(const VARIANT& source, VARTYPE vt) {
    VARIANT result;
    EXPECT_EQ(convert(source, vt, result), S_OK) << source.vt << " to " << vt;
    return vt == VT_R4 ? double{result.fltVal} : result.dblVal;
}

constexpr VARTYPE k_integers[] = {VT_I1,  VT_I2,  VT_I4,  VT_I8,  VT_INT,
                                  VT_UI1, VT_UI2, VT_UI4, VT_UI8, VT_UINT};
constexpr VARTYPE k_others[] = {VT_EMPTY, VT_NULL, VT_R4, VT_R8, VT_BOOL, VT_BSTR, VT_UNKNOWN};

TEST(VariantChangeType, HalvesGoToTheEvenNeighbour) {
    expect_integer(of_real(0.5), VT_I4, 0);
    expect_integer(of_real(1.5), VT_I4, 2);
    expect_integer(of_real(2.5), VT_I4, 2);
    expect_integer(of_real(3.5), VT_I4, 4);
    expect_integer(of_real(-0.5), VT_I4, 0);
    expect_integer(of_real(-1.5), VT_I4, -2);
    expect_integer(of_real(-2.5), VT_I4, -2);
    expect_integer(of_real(2.5), VT_I8, 2);
    expect_integer(of_real(3.5), VT_UI1, 4);
    expect_integer(of_real(2.4999), VT_I4, 2);
    expect_integer(of_real(2.5001), VT_I4, 3);
}

TEST(VariantChangeType, RealsOverflowWhereTheRoundedValueDoes) {
    expect_integer(of_real(2147483647.4), VT_I4, 2147483647);
    expect_failure(of_real(2147483647.5), VT_I4, DISP_E_OVERFLOW);
    expect_integer(of_real(-2147483648.5), VT_I4, -2147483648LL);
    expect_failure(of_real(-2147483648.6), VT_I4, DISP_E_OVERFLOW);
    expect_integer(of_real(32767.49), VT_I2, 32767);
    expect_failure(of_real(32767.5), VT_I2, DISP_E_OVERFLOW);
    expect_integer(of_real(-32768.5), VT_I2, -32768);
    expect_failure(of_real(-32768.51), VT_I2, DISP_E_OVERFLOW);
    expect_integer(of_real(255.49), VT_UI1, 255);
    expect_failure(of_real(255.5), VT_UI1, DISP_E_OVERFLOW);
    expect_integer(of_real(4294967295.4), VT_UI4, 4294967295LL);
    expect_failure(of_real(4294967295.5), VT_UI4, DISP_E_OVERFLOW);
    expect_failure(of_real(65535.5), VT_UI2, DISP_E_OVERFLOW);
}

TEST(VariantChangeType, UnsignedTypesTakeNoNegativeReal) {
    for (const VARTYPE vt : {VT_UI1, VT_UI2, VT_UI4, VT_UI8, VT_UINT}) {
        expect_failure(of_real(-0.6), vt, DISP_E_OVERFLOW);
        expect_integer(of_real(-0.5), vt, 0);
    }
}

TEST(VariantChangeType, SixtyFourBitsEndAtTheirPowersOfTwo) {
    expect_integer(of_real(4503599627370496.0), VT_I8, 4503599627370496LL);
    expect_failure(of_real(9223372036854775808.0), VT_I8, DISP_E_OVERFLOW);
    expect_failure(of_real(-9223372036854777856.0), VT_I8, DISP_E_OVERFLOW);
    expect_failure(of_real(1e300), VT_I8, DISP_E_OVERFLOW);
    expect_integer(of_real(9223372036854775808.0), VT_UI8, std::numeric_limits<LONGLONG>::min());
    expect_failure(of_real(18446744073709551616.0), VT_UI8, DISP_E_OVERFLOW);
}

TEST(VariantChangeType, EveryIntegerTypeTakesASmallNumberOfEveryOther) {
    for (const VARTYPE from : k_integers) {
        for (const VARTYPE to : k_integers) {
            expect_integer(of_integer(from, 100), to, 100);
        }
        EXPECT_EQ(real_of(of_integer(from, 100), VT_R4), 100.0);
        EXPECT_EQ(real_of(of_integer(from, 100), VT_R8), 100.0);
        EXPECT_EQ(real_of(of_integer(from, 100), VT_DATE), 100.0);
        expect_integer(of_integer(from, 100), VT_BOOL, -1);
        expect_integer(of_integer(from, 0), VT_BOOL, 0);
    }
}

TEST(VariantChangeType, IntegersOverflow) {
    expect_failure(of_integer(VT_I4, 70000), VT_I2, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_I4, 70000), VT_UI2, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_I4, 200), VT_I1, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_I4, -5), VT_UI1, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_I4, -5), VT_UI8, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_I2, -1), VT_UI4, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_I8, k_i8_max), VT_I4, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_I8, -1), VT_UI4, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_UI8, 5000000000LL), VT_UI4, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_UI4, 4294967295LL), VT_I2, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_UI2, 65535), VT_I1, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_UINT, 4294967295LL), VT_UI1, DISP_E_OVERFLOW);
}

TEST(VariantChangeType, TheOtherSignednessOfAWidthTakesTheBits) {
    expect_integer(of_integer(VT_I4, -5), VT_UI4, 4294967291LL);
    expect_integer(of_integer(VT_INT, -1), VT_UINT, 4294967295LL);
    expect_integer(of_integer(VT_UI4, 4294967295LL), VT_I4, -1);
    expect_integer(of_integer(VT_UINT, 4294967295LL), VT_INT, -1);
    expect_integer(of_integer(VT_I2, -1), VT_UI2, 65535);
    expect_integer(of_integer(VT_UI2, 65535), VT_I2, -1);
    expect_integer(of_integer(VT_I1, -1), VT_UI1, 255);
    expect_integer(of_integer(VT_UI1, 200), VT_I1, -56);
    expect_integer(of_integer(VT_I8, -1), VT_UI8, -1);
    expect_integer(of_integer(VT_UI8, -1), VT_I8, -1);
}

TEST(VariantChangeType, TruthIsAllOnes) {
    for (const VARTYPE vt : {VT_I1, VT_I2, VT_I4, VT_I8, VT_INT}) {
        expect_integer(of_truth(VARIANT_TRUE), vt, -1);
        expect_integer(of_truth(VARIANT_FALSE), vt, 0);
    }
    expect_integer(of_truth(VARIANT_TRUE), VT_UI1, 255);
    expect_integer(of_truth(VARIANT_TRUE), VT_UI2, 65535);
    expect_integer(of_truth(VARIANT_TRUE), VT_UI4, 4294967295LL);
    expect_integer(of_truth(VARIANT_TRUE), VT_UINT, 4294967295LL);
    expect_integer(of_truth(VARIANT_TRUE), VT_UI8, -1);
    EXPECT_EQ(real_of(of_truth(VARIANT_TRUE), VT_R8), -1.0);
    EXPECT_EQ(real_of(of_truth(VARIANT_TRUE), VT_R4), -1.0);
}

TEST(VariantChangeType, AnyNumberButZeroIsTrue) {
    expect_integer(of_real(0.1), VT_BOOL, -1);
    expect_integer(of_real(-1e300), VT_BOOL, -1);
    expect_integer(of_real(0.0), VT_BOOL, 0);
    expect_integer(of_real(-0.0), VT_BOOL, 0);
}

TEST(VariantChangeType, BetweenRealsAndDates) {
    EXPECT_EQ(real_of(of_real(2.25), VT_R4), 2.25);
    EXPECT_EQ(real_of(of_real(1e-60), VT_R4), 0.0);
    expect_failure(of_real(1e300), VT_R4, DISP_E_OVERFLOW);
    expect_failure(of_real(-3.5e38), VT_R4, DISP_E_OVERFLOW);
    VARIANT single = of_type(VT_R4);
    single.fltVal = 0.1F;
    EXPECT_EQ(real_of(single, VT_R8), double{0.1F});
    VARIANT date = of_type(VT_DATE);
    date.date = 45000.75;
    EXPECT_EQ(real_of(date, VT_R8), 45000.75);
    expect_integer(date, VT_I4, 45001);
    EXPECT_EQ(real_of(of_integer(VT_UI8, -1), VT_R8), 18446744073709551615.0);
}

TEST(VariantChangeType, DatesReachFromTheYear100To9999) {
    EXPECT_EQ(real_of(of_real(-657434), VT_DATE), -657434.0);
    expect_failure(of_real(-657435), VT_DATE, DISP_E_OVERFLOW);
    EXPECT_EQ(real_of(of_real(2958465.9), VT_DATE), 2958465.9);
    expect_failure(of_real(2958466), VT_DATE, DISP_E_OVERFLOW);
    expect_failure(of_integer(VT_I8, k_i8_max), VT_DATE, DISP_E_OVERFLOW);
}

TEST(VariantChangeType, EmptyIsZeroAndTheEmptyText) {
    for (const VARTYPE vt : k_integers) {
        expect_integer(of_type(VT_EMPTY), vt, 0);
    }
    expect_integer(of_type(VT_EMPTY), VT_BOOL, 0);
    EXPECT_EQ(real_of(of_type(VT_EMPTY), VT_R8), 0.0);
    EXPECT_EQ(real_of(of_type(VT_EMPTY), VT_DATE), 0.0);
    VARIANT text;
    ASSERT_EQ(convert(of_type(VT_EMPTY), VT_BSTR, text), S_OK);
    EXPECT_EQ(SysStringLen(text.bstrVal), 0U);
    VariantClear(&text);
    expect_failure(of_type(VT_EMPTY), VT_UNKNOWN, DISP_E_TYPEMISMATCH);
    expect_failure(of_type(VT_EMPTY), VT_ERROR, DISP_E_TYPEMISMATCH);
}

TEST(VariantChangeType, NullAndErrorTurnIntoNothingElse) {
    for (const VARTYPE vt : k_integers) {
        expect_failure(of_type(VT_NULL), vt, DISP_E_TYPEMISMATCH);
        expect_failure(of_type(VT_ERROR), vt, DISP_E_TYPEMISMATCH);
    }
    for (const VARTYPE vt : k_others) {
        if (vt != VT_NULL) {
            expect_failure(of_type(VT_NULL), vt, DISP_E_TYPEMISMATCH);
        }
        expect_failure(of_type(VT_ERROR), vt, DISP_E_TYPEMISMATCH);
    }
    VARIANT result;
    EXPECT_EQ(convert(of_type(VT_NULL), VT_NULL, result), S_OK);
    expect_integer(of_integer(VT_ERROR, 5), VT_ERROR, 5);
}

TEST(VariantChangeType, AnyValueTurnsIntoEmptyAndNull) {
    VARIANT result;
    EXPECT_EQ(convert(of_integer(VT_I4, 5), VT_EMPTY, result), S_OK);
    EXPECT_EQ(convert(of_integer(VT_I4, 5), VT_NULL, result), S_OK);
    EXPECT_EQ(convert(of_type(VT_EMPTY), VT_NULL, result), S_OK);
    EXPECT_EQ(convert(of_type(VT_UNKNOWN), VT_EMPTY, result), S_OK);
}

TEST(VariantChangeType, ObjectsTurnIntoObjectsOnly) {
    counted_object object;
    VARIANT source = of_type(VT_UNKNOWN);
    source.punkVal = &object;
    VARIANT result;
    EXPECT_EQ(convert(source, VT_UNKNOWN, result), S_OK);
    EXPECT_EQ(result.punkVal, &object);
    EXPECT_EQ(object.references, 2U);
    VariantClear(&result);
    EXPECT_TRUE(FAILED(convert(source, VT_DISPATCH, result)));
    expect_failure(source, VT_I4, DISP_E_TYPEMISMATCH);
    expect_failure(source, VT_BSTR, DISP_E_TYPEMISMATCH);
    expect_failure(of_integer(VT_I4, 1), VT_UNKNOWN, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(convert(of_type(VT_UNKNOWN), VT_DISPATCH, result), S_OK);
    EXPECT_EQ(result.pdispVal, nullptr);
    EXPECT_EQ(object.references, 1U);
}

TEST(VariantChangeType, ArraysStayWhatTheyAre) {
    VARIANT source = of_type(VT_ARRAY | VT_I4);
    source.parray = SafeArrayCreateVector(VT_I4, 2, 1);
    VARIANT result;
    ASSERT_EQ(convert(source, VT_ARRAY | VT_I4, result), S_OK);
    EXPECT_NE(result.parray, source.parray);
    VariantClear(&result);
    for (const int vt : {int{VT_I4}, int{VT_BSTR}, int{VT_EMPTY}, VT_ARRAY | VT_R8}) {
        expect_failure(source, static_cast<VARTYPE>(vt), DISP_E_TYPEMISMATCH);
    }
    expect_failure(of_integer(VT_I4, 1), VT_ARRAY | VT_I4, DISP_E_TYPEMISMATCH);
    VariantClear(&source);
}

TEST(VariantChangeType, AReferenceIsFollowedAndNeverMade) {
    LONG number = 9;
    VARIANT source = of_type(VT_BYREF | VT_I4);
    source.plVal = &number;
    EXPECT_EQ(real_of(source, VT_R8), 9.0);
    expect_integer(source, VT_I4, 9);
    expect_failure(of_integer(VT_I4, 1), VT_BYREF | VT_I4, DISP_E_TYPEMISMATCH);
    VARIANT inner = of_real(4);
    source = of_type(VT_BYREF | VT_VARIANT);
    source.pvarVal = &inner;
    expect_integer(source, VT_I4, 4);
}

TEST(VariantChangeType, UnknownTypesAreRefused) {
    expect_failure(of_integer(VT_I4, 1), 15, DISP_E_BADVARTYPE);
    expect_failure(of_integer(VT_I4, 1), VT_VOID, DISP_E_BADVARTYPE);
    expect_failure(of_type(15), VT_I4, DISP_E_BADVARTYPE);
    expect_failure(of_integer(VT_I4, 1), VT_VARIANT, DISP_E_TYPEMISMATCH);
}

TEST(VariantChangeType, TargetAndSourceMayBeOne) {
    VARIANT value = of_real(7.5);
    EXPECT_EQ(VariantChangeType(&value, &value, 0, VT_I4), S_OK);
    EXPECT_EQ(value.vt, VT_I4);
    EXPECT_EQ(value.lVal, 8);
    EXPECT_EQ(VariantChangeType(&value, &value, 0, VT_BSTR), S_OK);
    ASSERT_EQ(value.vt, VT_BSTR);
    EXPECT_STREQ(value.bstrVal, L"8");
    VariantClear(&value);
}

TEST(VariantChangeType, TheTargetsOldContentIsFreed) {
    counted_object object;
    VARIANT target = of_type(VT_UNKNOWN);
    target.punkVal = &object;
    object.AddRef();
    VARIANT source = of_integer(VT_I4, 3);
    EXPECT_EQ(VariantChangeType(&target, &source, 0, VT_R8), S_OK);
    EXPECT_EQ(target.dblVal, 3.0);
    EXPECT_EQ(object.references, 1U);
}

}  // namespace
