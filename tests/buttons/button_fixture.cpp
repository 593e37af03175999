#include "tests/buttons/button_fixture.h"

#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"
#include "platform/win32/frame/reflect.h"

namespace button_tests {

namespace {

const wchar_t owner_class[] = L"OrderDeckButtonOwner";
owner_window* current = nullptr;

}  // namespace

LRESULT CALLBACK owner_window::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (current != nullptr && message == WM_COMMAND && HIWORD(wParam) == 0) {
        current->commands.push_back(LOWORD(wParam));
        if (current->on_command) {
            current->on_command();
        }
    }
    if (current != nullptr && message == WM_NEXTDLGCTL && lParam != 0) {
        current->focused.push_back(reinterpret_cast<HWND>(wParam));
        SetFocus(reinterpret_cast<HWND>(wParam));
        return 0;
    }
    if (current != nullptr && message == WM_DRAWITEM) {
        ++current->drawn;
    }
    const frame::answer reflected = frame::reflect(message, wParam, lParam);
    return reflected ? *reflected : DefWindowProcW(window, message, wParam, lParam);
}

// One for all tests: without a window manager Wine waits for two seconds when such a window ends.
HWND owner_window::shared() {
    static const HWND window = [] {
        WNDCLASSW description = {};
        description.lpfnWndProc = &owner_window::procedure;
        description.hInstance = frame::module_instance();
        description.lpszClassName = owner_class;
        description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        RegisterClassW(&description);
        return CreateWindowExW(WS_EX_CONTROLPARENT, owner_class, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN,
                               200, 200, 300, 200, nullptr, nullptr, frame::module_instance(), nullptr);
    }();
    return window;
}

owner_window::owner_window() : m_hWnd(shared()) {
    current = this;
    SetActiveWindow(m_hWnd);
    SetFocus(m_hWnd);
}

owner_window::~owner_window() {
    current = nullptr;
    SetFocus(m_hWnd);
    while (const HWND child = GetWindow(m_hWnd, GW_CHILD)) {
        DestroyWindow(child);
    }
    pump();
}

HWND owner_window::make_button(int id, int width, int height) {
    const frame::common_controls_scope scope;
    return CreateWindowExW(0, L"BUTTON", L"text", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, 10, 10, width,
                           height, m_hWnd, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                           frame::module_instance(), nullptr);
}

void pump() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

snapshot::snapshot(HWND window) : m_width(0) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    RECT client = {};
    GetClientRect(window, &client);
    m_width = static_cast<int>(client.right);
    const HDC dc = GetDC(window);
    for (int y = 0; y < client.bottom; ++y) {
        for (int x = 0; x < client.right; ++x) {
            m_pixels.push_back(GetPixel(dc, x, y));
        }
    }
    ReleaseDC(window, dc);
}

COLORREF snapshot::at(int x, int y) const {
    return m_pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
                       static_cast<std::size_t>(x));
}

}  // namespace button_tests
