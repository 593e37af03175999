#include <gtest/gtest.h>

#include "platform/com.h"
#include "tests/platform/counted_object.h"

namespace {

using platform_tests::counted_object;

TEST(SafeArray, AVectorHasOneDimensionFromItsLowerBound) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_I4, 5, 3);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(SafeArrayGetDim(array), 1U);
    EXPECT_EQ(SafeArrayGetElemsize(array), 4U);
    LONG bound = 0;
    EXPECT_EQ(SafeArrayGetLBound(array, 1, &bound), S_OK);
    EXPECT_EQ(bound, 5);
    EXPECT_EQ(SafeArrayGetUBound(array, 1, &bound), S_OK);
    EXPECT_EQ(bound, 7);
    VARTYPE vt = 0;
    EXPECT_EQ(SafeArrayGetVartype(array, &vt), S_OK);
    EXPECT_EQ(vt, VT_I4);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, DimensionsAreCountedFromOne) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_I4, 0, 3);
    LONG bound = 0;
    EXPECT_EQ(SafeArrayGetLBound(array, 0, &bound), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetLBound(array, 2, &bound), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetUBound(array, 0, &bound), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetUBound(array, 2, &bound), DISP_E_BADINDEX);
    SafeArrayDestroy(array);
}

TEST(SafeArray, AnEmptyVectorEndsBelowItsStart) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_VARIANT, 0, 0);
    ASSERT_NE(array, nullptr);
    LONG bound = 0;
    EXPECT_EQ(SafeArrayGetUBound(array, 1, &bound), S_OK);
    EXPECT_EQ(bound, -1);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, ElementSizes) {
    const struct {
        VARTYPE vt;
        UINT size;
    } expected[] = {{VT_I1, 1},    {VT_UI1, 1},     {VT_I2, 2},       {VT_UI2, 2},     {VT_BOOL, 2},
                    {VT_I4, 4},    {VT_UI4, 4},     {VT_INT, 4},      {VT_UINT, 4},    {VT_R4, 4},
                    {VT_ERROR, 4}, {VT_I8, 8},      {VT_UI8, 8},      {VT_R8, 8},      {VT_DATE, 8},
                    {VT_BSTR, 8},  {VT_UNKNOWN, 8}, {VT_DISPATCH, 8}, {VT_VARIANT, 24}};
    for (const auto& row : expected) {
        SAFEARRAY* const array = SafeArrayCreateVector(row.vt, 0, 2);
        ASSERT_NE(array, nullptr) << row.vt;
        EXPECT_EQ(SafeArrayGetElemsize(array), row.size) << row.vt;
        VARTYPE vt = 0;
        EXPECT_EQ(SafeArrayGetVartype(array, &vt), S_OK);
        EXPECT_EQ(vt, row.vt);
        SafeArrayDestroy(array);
    }
}

TEST(SafeArray, SomeTypesHaveNoPlaceInOne) {
    for (const VARTYPE vt : {VT_EMPTY, VT_NULL, VT_VOID}) {
        EXPECT_EQ(SafeArrayCreateVector(vt, 0, 1), nullptr) << vt;
    }
    SAFEARRAYBOUND bound = {1, 0};
    EXPECT_EQ(SafeArrayCreate(VT_I4, 0, &bound), nullptr);
}

TEST(SafeArray, StartsWithZeros) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_R8, 0, 2);
    LONG index = 1;
    double value = 7;
    EXPECT_EQ(SafeArrayGetElement(array, &index, &value), S_OK);
    EXPECT_EQ(value, 0.0);
    SafeArrayDestroy(array);
}

TEST(SafeArray, PlainValuesGoInAndOut) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_R8, 2, 2);
    LONG index = 3;
    double value = 1.5;
    EXPECT_EQ(SafeArrayPutElement(array, &index, &value), S_OK);
    value = 0;
    EXPECT_EQ(SafeArrayGetElement(array, &index, &value), S_OK);
    EXPECT_EQ(value, 1.5);
    for (const LONG outside : {1, 4}) {
        index = outside;
        EXPECT_EQ(SafeArrayPutElement(array, &index, &value), DISP_E_BADINDEX);
        EXPECT_EQ(SafeArrayGetElement(array, &index, &value), DISP_E_BADINDEX);
        void* data = nullptr;
        EXPECT_EQ(SafeArrayPtrOfIndex(array, &index, &data), DISP_E_BADINDEX);
    }
    SafeArrayDestroy(array);
}

TEST(SafeArray, OwnsItsTexts) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_BSTR, 0, 1);
    LONG index = 0;
    const BSTR mine = SysAllocStringLen(L"a\0b", 3);
    EXPECT_EQ(SafeArrayPutElement(array, &index, mine), S_OK);
    mine[0] = L'x';
    SysFreeString(mine);
    BSTR got = nullptr;
    EXPECT_EQ(SafeArrayGetElement(array, &index, &got), S_OK);
    ASSERT_EQ(SysStringLen(got), 3U);
    EXPECT_EQ(got[0], L'a');
    EXPECT_EQ(got[2], L'b');
    SysFreeString(got);
    const BSTR other = SysAllocString(L"replaced");
    EXPECT_EQ(SafeArrayPutElement(array, &index, other), S_OK);
    SysFreeString(other);
    EXPECT_EQ(SafeArrayGetElement(array, &index, &got), S_OK);
    EXPECT_STREQ(got, L"replaced");
    SysFreeString(got);
    SafeArrayDestroy(array);
}

TEST(SafeArray, CountsItsObjects) {
    counted_object object;
    SAFEARRAY* const array = SafeArrayCreateVector(VT_UNKNOWN, 0, 2);
    LONG index = 0;
    EXPECT_EQ(SafeArrayPutElement(array, &index, &object), S_OK);
    EXPECT_EQ(object.references, 2U);
    IUnknown* got = nullptr;
    EXPECT_EQ(SafeArrayGetElement(array, &index, &got), S_OK);
    EXPECT_EQ(got, &object);
    EXPECT_EQ(object.references, 3U);
    got->Release();
    EXPECT_EQ(SafeArrayPutElement(array, &index, nullptr), S_OK);
    EXPECT_EQ(object.references, 1U);
    index = 1;
    SafeArrayPutElement(array, &index, &object);
    SafeArrayDestroy(array);
    EXPECT_EQ(object.references, 1U);
}

TEST(SafeArray, OwnsWhatItsVariantsOwn) {
    counted_object object;
    SAFEARRAY* const array = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    LONG index = 0;
    VARIANT value = {};
    value.vt = VT_UNKNOWN;
    value.punkVal = &object;
    EXPECT_EQ(SafeArrayPutElement(array, &index, &value), S_OK);
    EXPECT_EQ(object.references, 2U);
    VARIANT got = {};
    EXPECT_EQ(SafeArrayGetElement(array, &index, &got), S_OK);
    EXPECT_EQ(got.vt, VT_UNKNOWN);
    EXPECT_EQ(object.references, 3U);
    VariantClear(&got);
    SafeArrayDestroy(array);
    EXPECT_EQ(object.references, 1U);
}

TEST(SafeArray, AccessLocks) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_I4, 0, 2);
    void* data = nullptr;
    ASSERT_EQ(SafeArrayAccessData(array, &data), S_OK);
    static_cast<LONG*>(data)[1] = 42;
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayUnaccessData(array), E_UNEXPECTED);
    LONG index = 1;
    LONG value = 0;
    EXPECT_EQ(SafeArrayGetElement(array, &index, &value), S_OK);
    EXPECT_EQ(value, 42);
    EXPECT_EQ(SafeArrayPtrOfIndex(array, &index, &data), S_OK);
    EXPECT_EQ(*static_cast<LONG*>(data), 42);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, ACopyIsItsOwnAndUnlocked) {
    counted_object object;
    SAFEARRAY* const array = SafeArrayCreateVector(VT_UNKNOWN, 3, 1);
    LONG index = 3;
    SafeArrayPutElement(array, &index, &object);
    SafeArrayLock(array);
    SAFEARRAY* copy = nullptr;
    ASSERT_EQ(SafeArrayCopy(array, &copy), S_OK);
    EXPECT_EQ(object.references, 3U);
    LONG bound = 0;
    SafeArrayGetLBound(copy, 1, &bound);
    EXPECT_EQ(bound, 3);
    EXPECT_EQ(SafeArrayDestroy(copy), S_OK);
    EXPECT_EQ(object.references, 2U);
    SafeArrayUnlock(array);
    SafeArrayDestroy(array);
    EXPECT_EQ(object.references, 1U);
}

TEST(SafeArray, TheFirstOfTwoIndicesRunsFastest) {
    SAFEARRAYBOUND bounds[2] = {{2, 0}, {3, 10}};
    SAFEARRAY* const array = SafeArrayCreate(VT_I4, 2, bounds);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(SafeArrayGetDim(array), 2U);
    LONG bound = 0;
    SafeArrayGetUBound(array, 1, &bound);
    EXPECT_EQ(bound, 1);
    SafeArrayGetLBound(array, 2, &bound);
    EXPECT_EQ(bound, 10);
    void* start = nullptr;
    SafeArrayAccessData(array, &start);
    SafeArrayUnaccessData(array);
    void* place = nullptr;
    LONG next[2] = {1, 10};
    EXPECT_EQ(SafeArrayPtrOfIndex(array, next, &place), S_OK);
    EXPECT_EQ(static_cast<char*>(place) - static_cast<char*>(start), 4);
    LONG last[2] = {1, 12};
    EXPECT_EQ(SafeArrayPtrOfIndex(array, last, &place), S_OK);
    EXPECT_EQ(static_cast<char*>(place) - static_cast<char*>(start), 20);
    LONG outside[2] = {1, 13};
    EXPECT_EQ(SafeArrayPtrOfIndex(array, outside, &place), DISP_E_BADINDEX);
    SafeArrayDestroy(array);
}

TEST(SafeArray, NullIsNoArray) {
    LONG bound = 0;
    void* data = nullptr;
    SAFEARRAY* copy = reinterpret_cast<SAFEARRAY*>(&bound);
    EXPECT_EQ(SafeArrayDestroy(nullptr), S_OK);
    EXPECT_EQ(SafeArrayCopy(nullptr, &copy), S_OK);
    EXPECT_EQ(copy, nullptr);
    EXPECT_EQ(SafeArrayGetDim(nullptr), 0U);
    EXPECT_EQ(SafeArrayGetElemsize(nullptr), 0U);
    EXPECT_EQ(SafeArrayGetLBound(nullptr, 1, &bound), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetUBound(nullptr, 1, &bound), E_INVALIDARG);
    EXPECT_EQ(SafeArrayAccessData(nullptr, &data), E_INVALIDARG);
}

TEST(SafeArray, NullPlacesAreRefused) {
    SAFEARRAY* const array = SafeArrayCreateVector(VT_I4, 0, 1);
    LONG index = 0;
    LONG value = 0;
    EXPECT_EQ(SafeArrayCopy(array, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetVartype(array, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetVartype(nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayAccessData(array, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetElement(array, &index, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetElement(array, nullptr, &value), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPutElement(array, nullptr, &value), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPtrOfIndex(array, &index, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayLock(nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayUnlock(nullptr), E_INVALIDARG);
    SafeArrayDestroy(array);
}

}  // namespace
