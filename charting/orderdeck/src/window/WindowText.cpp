#include "charting/orderdeck/src/window/WindowText.h"

#include <algorithm>

#include "charting/orderdeck/src/window/FittedFont.h"

namespace OV_OrderDeck {

namespace {

constexpr int list_margin = 8;

HFONT font_of(HWND window) {
    return reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0));
}

CString list_text(HWND combo, WPARAM index) {
    const LRESULT length = ::SendMessageW(combo, CB_GETLBTEXTLEN, index, 0);
    CString text(length > 0 ? static_cast<std::size_t>(length) : 0, L'\0');
    ::SendMessageW(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

}  // namespace

CString text_of_value(IUnifyControl& field) {
    _variant_t value = field.get_Value();
    value.ChangeType(VT_BSTR);
    return platform::text_of(value.bstrVal);
}

void widen_list(HWND combo) {
    int widest = 0;
    const LRESULT count = ::SendMessageW(combo, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        widest =
            std::max(widest, text_width(combo, font_of(combo), list_text(combo, static_cast<WPARAM>(i))));
    }
    const int width = widest + list_margin + ::GetSystemMetrics(SM_CXVSCROLL);
    ::SendMessageW(combo, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width), 0);
}

}  // namespace OV_OrderDeck
