#pragma once

#include "platform/text.h"

namespace platform {

// A text as an argument of a COM operation. Never null: an empty text is a text too. Throws _com_error
// (E_OUTOFMEMORY).
inline _bstr_t text_argument(const CString& text) {
    return {new_bstr(text), false};
}

}  // namespace platform
