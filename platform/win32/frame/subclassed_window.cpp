#include "platform/win32/frame/subclassed_window.h"

#include <commctrl.h>

#include "platform/win32/frame/message_scope.h"

namespace frame {

subclassed_window::~subclassed_window() {
    if (m_hWnd != nullptr) {
        RemoveWindowSubclass(m_hWnd, &subclassed_window::procedure, reinterpret_cast<UINT_PTR>(this));
    }
}

bool subclassed_window::SubclassWindow(HWND hWnd) {
    BS_ASSERT_TEXT(m_hWnd == nullptr, "m_hWnd == 0");
    BS_ASSERT(::IsWindow(hWnd));
    if (!SetWindowSubclass(hWnd, &subclassed_window::procedure, reinterpret_cast<UINT_PTR>(this),
                           reinterpret_cast<DWORD_PTR>(this))) {
        return false;
    }
    m_hWnd = hWnd;
    return true;
}

LRESULT subclassed_window::DefWindowProc(UINT uMsg, WPARAM wParam, LPARAM lParam) const {
    return DefSubclassProc(m_hWnd, uMsg, wParam, lParam);
}

LRESULT CALLBACK subclassed_window::procedure(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                              DWORD_PTR data) {
    const message_scope scope;
    auto* const self = reinterpret_cast<subclassed_window*>(data);
    LRESULT result = 0;
    const bool taken = self->ProcessWindowMessage(hWnd, uMsg, wParam, lParam, result, 0) != FALSE;
    if (uMsg == WM_NCDESTROY) {
        RemoveWindowSubclass(hWnd, &subclassed_window::procedure, id);
        self->m_hWnd = nullptr;
    }
    return taken ? result : DefSubclassProc(hWnd, uMsg, wParam, lParam);
}

}  // namespace frame
