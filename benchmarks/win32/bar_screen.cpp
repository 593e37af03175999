#include "benchmarks/bar_of_benchmark.h"

namespace benchmarks {

HWND parent_of_benchmark() {
    static const HWND window =
        CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 1260, 200, nullptr,
                        nullptr, GetModuleHandleW(nullptr), nullptr);
    return window;
}

void serve() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void paint(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

}  // namespace benchmarks
