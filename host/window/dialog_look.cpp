#include "window/dialog_look.h"

namespace host {
namespace {

void set_font(HWND window) {
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(dialog_font()), FALSE);
}

BOOL CALLBACK set_child_font(HWND child, LPARAM) {
    set_font(child);
    return TRUE;
}

}  // namespace

HFONT dialog_font() {
    static const HFONT font = [] {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof(metrics);
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
        return CreateFontIndirectW(&metrics.lfMessageFont);
    }();
    return font;
}

int scaled(int length) {
    static const int dots = [] {
        const HDC screen = GetDC(nullptr);
        const int found = GetDeviceCaps(screen, LOGPIXELSX);
        ReleaseDC(nullptr, screen);
        return found;
    }();
    return MulDiv(length, dots, USER_DEFAULT_SCREEN_DPI);
}

void use_dialog_font(HWND window) {
    set_font(window);
    EnumChildWindows(window, &set_child_font, 0);
}

}  // namespace host
