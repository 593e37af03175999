#include "platform/win32/frame/dialog.h"

#include <windows.h>

#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/message_scope.h"
#include "platform/win32/frame/module_instance.h"
#include "platform/win32/frame/reflect.h"

namespace frame {

namespace {

// The messages whose result a dialog procedure returns itself.
bool returns_directly(UINT uMsg) {
    switch (uMsg) {
        case WM_COMPAREITEM:
        case WM_VKEYTOITEM:
        case WM_CHARTOITEM:
        case WM_INITDIALOG:
        case WM_QUERYDRAGICON:
        case WM_CTLCOLORMSGBOX:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
            return true;
        default:
            return false;
    }
}

}  // namespace

dialog::~dialog() {
    DestroyWindow();
}

bool dialog::Create(UINT template_id, HWND parent) {
    const common_controls_scope scope;
    return CreateDialogParamW(module_instance(), MAKEINTRESOURCEW(template_id), parent, &dialog::procedure,
                              reinterpret_cast<LPARAM>(this)) != nullptr;
}

void dialog::DestroyWindow() {
    if (m_hWnd != nullptr) {
        ::DestroyWindow(m_hWnd);
    }
}

INT_PTR CALLBACK dialog::procedure(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam) {
    const message_scope scope;
    if (uMsg == WM_INITDIALOG) {
        SetWindowLongPtrW(hWnd, DWLP_USER, lParam);
        reinterpret_cast<dialog*>(lParam)->m_hWnd = hWnd;
    }
    auto* const self = reinterpret_cast<dialog*>(GetWindowLongPtrW(hWnd, DWLP_USER));
    if (self == nullptr) {
        return FALSE;
    }
    if (uMsg == WM_NCDESTROY) {
        self->m_hWnd = nullptr;
        SetWindowLongPtrW(hWnd, DWLP_USER, 0);
        return FALSE;
    }
    LRESULT result = 0;
    if (!self->ProcessWindowMessage(hWnd, uMsg, wParam, lParam, result, 0) &&
        !take(reflect(uMsg, wParam, lParam), result)) {
        return FALSE;
    }
    if (returns_directly(uMsg)) {
        return result;
    }
    SetWindowLongPtrW(hWnd, DWLP_MSGRESULT, result);
    return TRUE;
}

}  // namespace frame
