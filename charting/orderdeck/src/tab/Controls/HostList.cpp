#include "charting/orderdeck/src/tab/Controls/HostList.h"

#include "diagnostics/BugSlayerUtil.h"

namespace OV_OrderDeck {
namespace {

void check(HRESULT hr) {
    if (FAILED(hr)) {
        _com_issue_error(hr);
    }
}

void check_shape(SAFEARRAY* array, VARTYPE type, VARTYPE same_size) {
    VARTYPE found = VT_EMPTY;
    check(SafeArrayGetVartype(array, &found));
    BS_REQUIRE((found == type || found == same_size) && SafeArrayGetDim(array) == 1, DISP_E_TYPEMISMATCH);
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

std::vector<CString> texts_of(SAFEARRAY* array) {
    check_shape(array, VT_BSTR, VT_BSTR);
    std::vector<CString> result;
    each(array, [&](LONG index) {
        _bstr_t text;
        check(SafeArrayGetElement(array, &index, text.GetAddress()));
        result.push_back(platform::text_of(text));
    });
    return result;
}

std::vector<LONG> numbers_of(SAFEARRAY* array) {
    check_shape(array, VT_I4, VT_INT);
    std::vector<LONG> result;
    each(array, [&](LONG index) {
        LONG number = 0;
        check(SafeArrayGetElement(array, &index, &number));
        result.push_back(number);
    });
    return result;
}

}  // namespace OV_OrderDeck
