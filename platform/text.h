#pragma once

#include <string>

#include "platform/com.h"

// The component's text type. UTF-16 on Windows, UTF-32 natively; never a terminator inside.
using CString = std::wstring;

namespace platform {

// A BSTR as text; a null one is the empty text. The BSTR stays the caller's.
inline CString text_of(const wchar_t* bstr) {
    if (bstr == nullptr) {
        return {};
    }
    return {bstr, SysStringLen(const_cast<BSTR>(bstr))};
}

// A new BSTR that the caller owns. Throws _com_error (E_OUTOFMEMORY).
inline BSTR new_bstr(const CString& text) {
    BSTR result = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (result == nullptr) {
        _com_issue_error(E_OUTOFMEMORY);
    }
    return result;
}

}  // namespace platform
