#include "charting/orderdeck/src/tab/Controls/HostList.h"

#include <algorithm>
#include <initializer_list>

namespace OV_OrderDeck {
namespace {

void check(HRESULT hr) {
    if (FAILED(hr)) {
        _com_issue_error(hr);
    }
}

// A type that the array doesn't tell is none of those that are taken.
bool is_list_of(SAFEARRAY* array, std::initializer_list<VARTYPE> types) {
    VARTYPE found = VT_EMPTY;
    if (FAILED(SafeArrayGetVartype(array, &found)) || SafeArrayGetDim(array) != 1) {
        return false;
    }
    return std::find(types.begin(), types.end(), found) != types.end();
}

template <class Action>
void each(SAFEARRAY* array, Action action) {
    LONG low = 0;
    LONG high = -1;
    check(SafeArrayGetLBound(array, 1, &low));
    check(SafeArrayGetUBound(array, 1, &high));
    for (LONG index = low; index <= high; ++index) {
        action(index);
    }
}

}  // namespace

bool is_list_of_texts(SAFEARRAY* array) {
    return is_list_of(array, {VT_BSTR});
}

bool is_list_of_numbers(SAFEARRAY* array) {
    return is_list_of(array, {VT_I4, VT_INT});
}

std::vector<CString> texts_of(SAFEARRAY* array) {
    std::vector<CString> result;
    each(array, [&](LONG index) {
        _bstr_t text;
        check(SafeArrayGetElement(array, &index, static_cast<void*>(text.GetAddress())));
        result.push_back(platform::text_of(text));
    });
    return result;
}

std::vector<LONG> numbers_of(SAFEARRAY* array) {
    std::vector<LONG> result;
    each(array, [&](LONG index) {
        LONG number = 0;
        check(SafeArrayGetElement(array, &index, &number));
        result.push_back(number);
    });
    return result;
}

}  // namespace OV_OrderDeck
