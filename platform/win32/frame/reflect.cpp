#include "platform/win32/frame/reflect.h"

#include <olectl.h>

namespace frame {

namespace {

// The control that a message is about; null for a message that is not handed back.
HWND sender_of(UINT uMsg, LPARAM lParam) {
    switch (uMsg) {
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            return item.CtlType == ODT_BUTTON ? item.hwndItem : nullptr;
        }
        case WM_CTLCOLORBTN:
        case WM_CTLCOLOREDIT:
        case WM_COMMAND:
            return reinterpret_cast<HWND>(lParam);
        default:
            return nullptr;
    }
}

}  // namespace

answer reflect(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    const HWND control = sender_of(uMsg, lParam);
    if (control == nullptr) {
        return declined;
    }
    const LRESULT result = SendMessageW(control, OCM__BASE + uMsg, wParam, lParam);
    return result != 0 ? answer(result) : declined;
}

}  // namespace frame
