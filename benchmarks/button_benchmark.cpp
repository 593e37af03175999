// The repaint of the ask/bid button with new prices, beside the repaint of a plain themed button with new
// text, in one run on one thread. Prints milliseconds per repaint and their ratio.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <vector>

#include "charting/orderdeck/src/window/AskBidButtonImpl.h"
#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"
#include "platform/win32/frame/reflect.h"

namespace {

constexpr int rounds = 7;
constexpr int repaints = 100;
constexpr int width = 100;
constexpr int height = 24;

LRESULT CALLBACK owner_procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const frame::answer reflected = frame::reflect(message, wParam, lParam);
    return reflected ? *reflected : DefWindowProcW(window, message, wParam, lParam);
}

HWND make_owner() {
    WNDCLASSW description = {};
    description.lpfnWndProc = &owner_procedure;
    description.hInstance = frame::module_instance();
    description.lpszClassName = L"OrderDeckBenchmarkOwner";
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    RegisterClassW(&description);
    return CreateWindowExW(0, description.lpszClassName, L"", WS_POPUP | WS_VISIBLE, 50, 50, 300, 100,
                           nullptr, nullptr, frame::module_instance(), nullptr);
}

HWND make_button(HWND owner, int top) {
    const frame::common_controls_scope scope;
    const HWND window = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, 10, top,
                                        width, height, owner, nullptr, frame::module_instance(), nullptr);
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    return window;
}

// Milliseconds for one repaint.
template <class Repaint>
double measured(Repaint&& repaint) {
    LARGE_INTEGER frequency = {};
    QueryPerformanceFrequency(&frequency);
    LARGE_INTEGER start = {};
    QueryPerformanceCounter(&start);
    for (int i = 0; i < repaints; ++i) {
        repaint(i);
    }
    GdiFlush();
    LARGE_INTEGER end = {};
    QueryPerformanceCounter(&end);
    return 1000.0 * static_cast<double>(end.QuadPart - start.QuadPart) /
           static_cast<double>(frequency.QuadPart) / repaints;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

int main() {
    const HWND owner = make_owner();
    const HWND plain = make_button(owner, 10);
    const HWND quotes = make_button(owner, 50);
    OV_OrderDeck::AskBidButtonImpl button;
    button.SubclassWindow(quotes);
    button.put_Flags(WTLControls::ButtonFlag::Gradient | WTLControls::ButtonFlag::Content);
    button.SetFormat(2, 1);
    const auto repaint_plain = [&](int i) {
        wchar_t text[32] = {};
        std::swprintf(text, std::size(text), L"%d.%02d", 100 + i / 100, i % 100);
        SetWindowTextW(plain, text);
        UpdateWindow(plain);
    };
    const auto repaint_quotes = [&](int i) {
        button.SetQuotes(100.01 + i * 0.01, 100.0 + i * 0.01);
        button.Redraw();
        UpdateWindow(quotes);
    };
    std::vector<double> plain_times;
    std::vector<double> quotes_times;
    measured(repaint_plain);
    measured(repaint_quotes);
    for (int i = 0; i < rounds; ++i) {
        plain_times.push_back(measured(repaint_plain));
        quotes_times.push_back(measured(repaint_quotes));
    }
    const double plain_time = median(plain_times);
    const double quotes_time = median(quotes_times);
    std::printf("visual style: %s\n", IsAppThemed() ? "yes" : "no");
    std::printf("plain button, new text:      %.4f ms (median of %d x %d)\n", plain_time, rounds, repaints);
    std::printf("ask/bid button, new prices:  %.4f ms\n", quotes_time);
    std::printf("ratio:                       %.2f\n", quotes_time / plain_time);
    DestroyWindow(owner);
    return 0;
}
