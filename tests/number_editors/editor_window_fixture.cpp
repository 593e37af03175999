#include "tests/number_editors/editor_window_fixture.h"

#include <olectl.h>

#include "platform/win32/frame/window_text.h"
#include "unicomp/FormatUtil/interface/NumberFormat.h"

namespace number_editors_tests {

namespace {

LRESULT CALLBACK reflect(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if ((message == WM_COMMAND || message == WM_CTLCOLOREDIT) && lParam != 0) {
        SendMessageW(reinterpret_cast<HWND>(lParam), OCM__BASE + message, wParam, lParam);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND make_window() {
    WNDCLASSW description = {};
    description.lpfnWndProc = &reflect;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"OrderDeckEditorTests";
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    RegisterClassW(&description);
    const HWND window = CreateWindowExW(0, description.lpszClassName, L"Editors",
                                        WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 40, 40, 420, 120,
                                        nullptr, nullptr, description.hInstance, nullptr);
    SetForegroundWindow(window);
    return window;
}

}  // namespace

HWND reflecting_window() {
    static const HWND window = make_window();
    return window;
}

void pump() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool pump_until(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + 300000;
    while (!condition()) {
        const ULONGLONG now = GetTickCount64();
        if (now >= end) {
            return false;
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        pump();
    }
    return true;
}

CString text_of(HWND window) {
    return frame::window_text(window);
}

RECT place_in_parent(HWND window) {
    RECT at = {};
    GetWindowRect(window, &at);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&at), 2);
    return at;
}

CString quantity_owner::GetDisplayText(double value) {
    return local_format::CNumberFormat::QuantityToText(static_cast<LONG>(value));
}

}  // namespace number_editors_tests
