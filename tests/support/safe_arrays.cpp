#include "tests/support/safe_arrays.h"

namespace test {

namespace {

SAFEARRAY* vector_of(VARTYPE vt, std::size_t count) {
    SAFEARRAY* const array = SafeArrayCreateVector(vt, 0, static_cast<ULONG>(count));
    if (array == nullptr) {
        _com_issue_error(E_OUTOFMEMORY);
    }
    return array;
}

LONG size_of(SAFEARRAY* array) {
    LONG low = 0;
    LONG high = -1;
    _com_util::CheckError(SafeArrayGetLBound(array, 1, &low));
    _com_util::CheckError(SafeArrayGetUBound(array, 1, &high));
    return high - low + 1;
}

LONG first_of(SAFEARRAY* array) {
    LONG low = 0;
    _com_util::CheckError(SafeArrayGetLBound(array, 1, &low));
    return low;
}

}  // namespace

SAFEARRAY* bstr_array(const std::vector<CString>& texts) {
    SAFEARRAY* const array = vector_of(VT_BSTR, texts.size());
    LONG index = 0;
    for (const CString& text : texts) {
        const _bstr_t element(platform::new_bstr(text), false);
        _com_util::CheckError(SafeArrayPutElement(array, &index, static_cast<wchar_t*>(element)));
        ++index;
    }
    return array;
}

SAFEARRAY* long_array(const std::vector<LONG>& values) {
    SAFEARRAY* const array = vector_of(VT_I4, values.size());
    LONG index = 0;
    for (LONG value : values) {
        _com_util::CheckError(SafeArrayPutElement(array, &index, &value));
        ++index;
    }
    return array;
}

SAFEARRAY* object_array(const std::vector<com_ptr<IUnknown>>& objects) {
    SAFEARRAY* const array = vector_of(VT_VARIANT, objects.size());
    LONG index = 0;
    for (const com_ptr<IUnknown>& object : objects) {
        _variant_t element(object.get());
        _com_util::CheckError(SafeArrayPutElement(array, &index, &element));
        ++index;
    }
    return array;
}

std::vector<CString> texts_of(SAFEARRAY* array) {
    std::vector<CString> texts;
    const LONG first = first_of(array);
    for (LONG i = 0; i < size_of(array); ++i) {
        LONG index = first + i;
        BSTR element = nullptr;
        _com_util::CheckError(SafeArrayGetElement(array, &index, &element));
        texts.push_back(platform::text_of(element));
        SysFreeString(element);
    }
    return texts;
}

std::vector<LONG> longs_of(SAFEARRAY* array) {
    std::vector<LONG> values;
    const LONG first = first_of(array);
    for (LONG i = 0; i < size_of(array); ++i) {
        LONG index = first + i;
        LONG value = 0;
        _com_util::CheckError(SafeArrayGetElement(array, &index, &value));
        values.push_back(value);
    }
    return values;
}

}  // namespace test
