#include <gtest/gtest.h>

#include "platform/com.h"
#include "tests/platform/counted_object.h"

namespace {

using platform_tests::counted_object;

TEST(VariantT, StartsEmpty) {
    const _variant_t value;
    EXPECT_EQ(value.vt, VT_EMPTY);
}

TEST(VariantT, TakesTheTypeOfItsValue) {
    EXPECT_EQ(_variant_t(SHORT{7}).vt, VT_I2);
    EXPECT_EQ(_variant_t(LONG{7}).vt, VT_I4);
    EXPECT_EQ(_variant_t(1.5F).vt, VT_R4);
    EXPECT_EQ(_variant_t(1.5).vt, VT_R8);
    EXPECT_EQ(_variant_t(true).vt, VT_BOOL);
    EXPECT_EQ(_variant_t(true).boolVal, VARIANT_TRUE);
    EXPECT_EQ(_variant_t(BYTE{7}).vt, VT_UI1);
    EXPECT_EQ(_variant_t(USHORT{7}).vt, VT_UI2);
    EXPECT_EQ(_variant_t(ULONG{7}).vt, VT_UI4);
    EXPECT_EQ(_variant_t(LONGLONG{7}).vt, VT_I8);
    EXPECT_EQ(_variant_t(ULONGLONG{7}).vt, VT_UI8);
    EXPECT_EQ(_variant_t(L"x").vt, VT_BSTR);
    EXPECT_EQ(_variant_t(_bstr_t(L"x")).vt, VT_BSTR);
    EXPECT_EQ(_variant_t(LONG{7}).lVal, 7);
    EXPECT_EQ(_variant_t(1.5).dblVal, 1.5);
}

TEST(VariantT, SomeTypesMayBeNamed) {
    const _variant_t date(45000.5, VT_DATE);
    EXPECT_EQ(date.vt, VT_DATE);
    EXPECT_EQ(date.date, 45000.5);
    const _variant_t missing(LONG{DISP_E_PARAMNOTFOUND}, VT_ERROR);
    EXPECT_EQ(missing.vt, VT_ERROR);
    EXPECT_EQ(missing.scode, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(_variant_t(LONG{5}, VT_BOOL).boolVal, VARIANT_TRUE);
    EXPECT_EQ(_variant_t(SHORT{5}, VT_BOOL).boolVal, VARIANT_TRUE);
    EXPECT_THROW(_variant_t(LONG{5}, VT_R8), _com_error);
    EXPECT_THROW(_variant_t(1.5, VT_I4), _com_error);
    EXPECT_THROW(_variant_t(SHORT{5}, VT_I4), _com_error);
}

TEST(VariantT, CountsItsObject) {
    counted_object object;
    {
        const _variant_t value(static_cast<IUnknown*>(&object));
        EXPECT_EQ(value.vt, VT_UNKNOWN);
        EXPECT_EQ(object.references, 2U);
        const _variant_t copy(value);
        EXPECT_EQ(object.references, 3U);
    }
    EXPECT_EQ(object.references, 1U);
    object.AddRef();
    { const _variant_t value(static_cast<IUnknown*>(&object), false); }
    EXPECT_EQ(object.references, 1U);
}

TEST(VariantT, HandsItsObjectOutCounted) {
    counted_object object;
    const _variant_t value(static_cast<IUnknown*>(&object));
    IUnknown* const out = static_cast<IUnknown*>(value);
    EXPECT_EQ(out, &object);
    EXPECT_EQ(object.references, 3U);
    out->Release();
}

TEST(VariantT, CopiesOrTakesOverAVariant) {
    VARIANT plain = {};
    plain.vt = VT_BSTR;
    plain.bstrVal = SysAllocString(L"text");
    const _variant_t copy(plain);
    EXPECT_NE(copy.bstrVal, plain.bstrVal);
    const BSTR content = plain.bstrVal;
    const _variant_t taken(plain, false);
    EXPECT_EQ(taken.bstrVal, content);
    EXPECT_EQ(plain.vt, VT_EMPTY);
    EXPECT_TRUE(copy == taken);
}

TEST(VariantT, AssignmentFreesTheOldValue) {
    counted_object object;
    _variant_t value(static_cast<IUnknown*>(&object));
    value = LONG{5};
    EXPECT_EQ(object.references, 1U);
    EXPECT_EQ(value.vt, VT_I4);
    value = L"five";
    ASSERT_EQ(value.vt, VT_BSTR);
    EXPECT_STREQ(value.bstrVal, L"five");
    value = 2.5;
    EXPECT_EQ(value.vt, VT_R8);
    value = true;
    EXPECT_EQ(value.vt, VT_BOOL);
    value = static_cast<IUnknown*>(&object);
    EXPECT_EQ(object.references, 2U);
    const _variant_t& same = value;
    value = same;
    EXPECT_EQ(object.references, 2U);
    value.Clear();
    EXPECT_EQ(object.references, 1U);
}

TEST(VariantT, ConvertsOnItsWayOut) {
    const _variant_t value(2.5);
    EXPECT_EQ(static_cast<LONG>(value), 2);
    EXPECT_EQ(static_cast<SHORT>(value), 2);
    EXPECT_EQ(static_cast<BYTE>(value), 2);
    EXPECT_EQ(static_cast<ULONG>(value), 2U);
    EXPECT_EQ(static_cast<USHORT>(value), 2U);
    EXPECT_EQ(static_cast<LONGLONG>(value), 2);
    EXPECT_EQ(static_cast<ULONGLONG>(value), 2U);
    EXPECT_EQ(static_cast<float>(value), 2.5F);
    EXPECT_EQ(static_cast<double>(_variant_t(LONG{3})), 3.0);
    EXPECT_TRUE(static_cast<bool>(value));
    EXPECT_FALSE(static_cast<bool>(_variant_t(0.0)));
    EXPECT_STREQ(static_cast<const wchar_t*>(static_cast<_bstr_t>(_variant_t(LONG{-12}))), L"-12");
    EXPECT_STREQ(static_cast<const wchar_t*>(_bstr_t(_variant_t(LONG{34}))), L"34");
}

TEST(VariantT, AFailedConversionIsRaised) {
    _variant_t value(L"abc");
    try {
        static_cast<void>(static_cast<double>(value));
        FAIL() << "nothing was raised";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Error(), DISP_E_TYPEMISMATCH);
    }
    EXPECT_THROW(value.ChangeType(VT_I4), _com_error);
    EXPECT_STREQ(value.bstrVal, L"abc");
}

TEST(VariantT, ChangesItsOwnTypeOrTakesAnothersValue) {
    _variant_t value(L"12");
    value.ChangeType(VT_I4);
    EXPECT_EQ(value.vt, VT_I4);
    EXPECT_EQ(value.lVal, 12);
    const _variant_t other(3.5);
    value.ChangeType(VT_I2, &other);
    EXPECT_EQ(value.vt, VT_I2);
    EXPECT_EQ(value.iVal, 4);
}

TEST(VariantT, EqualityNeedsTypeAndValue) {
    EXPECT_TRUE(_variant_t(LONG{1}) == _variant_t(LONG{1}));
    EXPECT_TRUE(_variant_t(LONG{1}) != _variant_t(LONG{2}));
    EXPECT_TRUE(_variant_t(LONG{1}) != _variant_t(1.0));
    EXPECT_TRUE(_variant_t(L"a") == _variant_t(L"a"));
    EXPECT_TRUE(_variant_t(L"a") != _variant_t(L"A"));
    EXPECT_TRUE(_variant_t() == _variant_t());
    EXPECT_TRUE(_variant_t(true) != _variant_t(false));
}

TEST(VariantT, AttachTakesOverAndDetachGivesAway) {
    counted_object object;
    _variant_t value(static_cast<IUnknown*>(&object));
    VARIANT plain = {};
    plain.vt = VT_I4;
    plain.lVal = 9;
    value.Attach(plain);
    EXPECT_EQ(object.references, 1U);
    EXPECT_EQ(plain.vt, VT_EMPTY);
    EXPECT_EQ(value.lVal, 9);
    const VARIANT back = value.Detach();
    EXPECT_EQ(back.vt, VT_I4);
    EXPECT_EQ(back.lVal, 9);
    EXPECT_EQ(value.vt, VT_EMPTY);
}

TEST(VariantT, ReceivesAnOutArgument) {
    counted_object object;
    _variant_t value(static_cast<IUnknown*>(&object));
    VARIANT* const out = value.GetAddress();
    EXPECT_EQ(object.references, 1U);
    EXPECT_EQ(out->vt, VT_EMPTY);
    out->vt = VT_I4;
    out->lVal = 3;
    EXPECT_EQ(static_cast<LONG>(value), 3);
    EXPECT_EQ(value.GetVARIANT().lVal, 3);
}

TEST(VariantT, EqualityOfEveryType) {
    const VARTYPE types[] = {VT_I1,  VT_I2,  VT_INT, VT_UINT,  VT_I8,  VT_UI1,
                             VT_UI2, VT_UI4, VT_UI8, VT_ERROR, VT_BOOL};
    for (const VARTYPE vt : types) {
        VARIANT one = {};
        one.vt = vt;
        one.llVal = 1;
        VARIANT other = one;
        EXPECT_TRUE(_variant_t(one) == other) << vt;
        other.llVal = 2;
        EXPECT_TRUE(_variant_t(one) != other) << vt;
    }
    EXPECT_TRUE(_variant_t(1.5F) == _variant_t(1.5F));
    EXPECT_TRUE(_variant_t(1.5F) != _variant_t(2.5F));
    EXPECT_TRUE(_variant_t(1.5) == _variant_t(1.5));
    EXPECT_TRUE(_variant_t(1.5) != _variant_t(2.5));
    EXPECT_TRUE(_variant_t(1.5, VT_DATE) == _variant_t(1.5, VT_DATE));
    counted_object first;
    counted_object second;
    const _variant_t value(static_cast<IUnknown*>(&first));
    EXPECT_TRUE(value == _variant_t(static_cast<IUnknown*>(&first)));
    EXPECT_TRUE(value != _variant_t(static_cast<IUnknown*>(&second)));
}

TEST(VariantT, CopiesAPointedToVariant) {
    VARIANT plain = {};
    plain.vt = VT_I4;
    plain.lVal = 5;
    const _variant_t from_pointer(&plain);
    EXPECT_EQ(from_pointer.lVal, 5);
    const _variant_t copied(plain, true);
    EXPECT_EQ(copied.lVal, 5);
    EXPECT_EQ(plain.vt, VT_I4);
    EXPECT_TRUE(copied == &plain);
    EXPECT_FALSE(copied != &plain);
}

}  // namespace
