#include <gtest/gtest.h>

#include "platform/com.h"
#include "tests/platform/counted_object.h"

namespace {

using platform_tests::counted_object;

VARIANT of_text(const wchar_t* text) {
    VARIANT value = {};
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocString(text);
    return value;
}

VARIANT of_object(IUnknown& object) {
    VARIANT value = {};
    value.vt = VT_UNKNOWN;
    value.punkVal = &object;
    object.AddRef();
    return value;
}

TEST(Variant, InitMakesItEmpty) {
    VARIANT value;
    VariantInit(&value);
    EXPECT_EQ(value.vt, VT_EMPTY);
}

TEST(Variant, ClearReleasesTheObject) {
    counted_object object;
    VARIANT value = of_object(object);
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(value.vt, VT_EMPTY);
    EXPECT_EQ(object.references, 1U);
}

TEST(Variant, ClearFreesArrays) {
    counted_object object;
    VARIANT value = {};
    value.vt = VT_ARRAY | VT_UNKNOWN;
    value.parray = SafeArrayCreateVector(VT_UNKNOWN, 0, 1);
    LONG index = 0;
    SafeArrayPutElement(value.parray, &index, &object);
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(value.vt, VT_EMPTY);
    EXPECT_EQ(object.references, 1U);
}

TEST(Variant, ClearRefusesALockedArray) {
    VARIANT value = {};
    value.vt = VT_ARRAY | VT_I4;
    SAFEARRAY* const array = SafeArrayCreateVector(VT_I4, 0, 1);
    value.parray = array;
    SafeArrayLock(array);
    EXPECT_EQ(VariantClear(&value), DISP_E_ARRAYISLOCKED);
    SafeArrayUnlock(array);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(Variant, ClearLeavesWhatAReferencePointsAt) {
    counted_object object;
    IUnknown* pointer = &object;
    VARIANT value = {};
    value.vt = VT_BYREF | VT_UNKNOWN;
    value.ppunkVal = &pointer;
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(value.vt, VT_EMPTY);
    EXPECT_EQ(object.references, 1U);
}

TEST(Variant, UnknownTypesAreRefused) {
    for (const int vt : {15, 24, 0x4000, 0x2001, 0x1003}) {
        VARIANT value = {};
        value.vt = static_cast<VARTYPE>(vt);
        EXPECT_EQ(VariantClear(&value), DISP_E_BADVARTYPE) << vt;
        VARIANT copy = {};
        copy.vt = VT_I4;
        EXPECT_EQ(VariantCopy(&copy, &value), DISP_E_BADVARTYPE) << vt;
        EXPECT_EQ(copy.vt, VT_I4) << vt;
    }
}

TEST(Variant, CopyOwnsItsText) {
    VARIANT source = of_text(L"Limit");
    VARIANT copy = {};
    EXPECT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_NE(copy.bstrVal, source.bstrVal);
    VariantClear(&source);
    ASSERT_EQ(copy.vt, VT_BSTR);
    EXPECT_STREQ(copy.bstrVal, L"Limit");
    VariantClear(&copy);
}

TEST(Variant, CopyFreesWhatTheTargetHeldAndCountsWhatItGets) {
    counted_object first;
    counted_object second;
    VARIANT target = of_object(first);
    VARIANT source = of_object(second);
    EXPECT_EQ(VariantCopy(&target, &source), S_OK);
    EXPECT_EQ(first.references, 1U);
    EXPECT_EQ(second.references, 3U);
    EXPECT_EQ(VariantCopy(&target, &target), S_OK);
    EXPECT_EQ(second.references, 3U);
    VariantClear(&target);
    VariantClear(&source);
    EXPECT_EQ(second.references, 1U);
}

TEST(Variant, CopyCopiesArrays) {
    VARIANT source = {};
    source.vt = VT_ARRAY | VT_I4;
    source.parray = SafeArrayCreateVector(VT_I4, 4, 1);
    VARIANT copy = {};
    EXPECT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(copy.vt, VT_ARRAY | VT_I4);
    EXPECT_NE(copy.parray, source.parray);
    LONG bound = 0;
    EXPECT_EQ(SafeArrayGetLBound(copy.parray, 1, &bound), S_OK);
    EXPECT_EQ(bound, 4);
    VariantClear(&source);
    VariantClear(&copy);
}

TEST(Variant, CopyKeepsAReferenceAReference) {
    LONG number = 9;
    VARIANT source = {};
    source.vt = VT_BYREF | VT_I4;
    source.plVal = &number;
    VARIANT copy = {};
    EXPECT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(copy.vt, VT_BYREF | VT_I4);
    EXPECT_EQ(copy.plVal, &number);
}

TEST(Variant, IndirectCopyFollowsAReference) {
    LONG number = 9;
    VARIANT source = {};
    source.vt = VT_BYREF | VT_I4;
    source.plVal = &number;
    VARIANT copy = {};
    EXPECT_EQ(VariantCopyInd(&copy, &source), S_OK);
    EXPECT_EQ(copy.vt, VT_I4);
    EXPECT_EQ(copy.lVal, 9);
}

TEST(Variant, IndirectCopyOwnsTheReferencedText) {
    BSTR text = SysAllocString(L"GTC");
    VARIANT source = {};
    source.vt = VT_BYREF | VT_BSTR;
    source.pbstrVal = &text;
    VARIANT copy = {};
    EXPECT_EQ(VariantCopyInd(&copy, &source), S_OK);
    SysFreeString(text);
    ASSERT_EQ(copy.vt, VT_BSTR);
    EXPECT_STREQ(copy.bstrVal, L"GTC");
    VariantClear(&copy);
}

TEST(Variant, IndirectCopyTakesOneStepThroughAVariant) {
    counted_object object;
    VARIANT inner = of_object(object);
    VARIANT source = {};
    source.vt = VT_BYREF | VT_VARIANT;
    source.pvarVal = &inner;
    VARIANT copy = {};
    EXPECT_EQ(VariantCopyInd(&copy, &source), S_OK);
    EXPECT_EQ(copy.vt, VT_UNKNOWN);
    EXPECT_EQ(object.references, 3U);
    VariantClear(&copy);
    VARIANT outer = {};
    outer.vt = VT_BYREF | VT_VARIANT;
    outer.pvarVal = &source;
    EXPECT_EQ(VariantCopyInd(&copy, &outer), E_INVALIDARG);
    VariantClear(&inner);
    EXPECT_EQ(object.references, 1U);
}

TEST(Variant, IndirectCopyOfAPlainValueIsACopy) {
    VARIANT source = {};
    source.vt = VT_R8;
    source.dblVal = 2.5;
    VARIANT copy = {};
    EXPECT_EQ(VariantCopyInd(&copy, &source), S_OK);
    EXPECT_EQ(copy.vt, VT_R8);
    EXPECT_EQ(copy.dblVal, 2.5);
}

}  // namespace
