#include "platform/win32/frame/resolution.h"

#include <algorithm>
#include <cstdlib>

namespace frame {

namespace {

// Of every dialog template of the component.
constexpr int dialog_points = 8;
constexpr int points_of_inch = 72;
constexpr int usual = USER_DEFAULT_SCREEN_DPI;
constexpr int step = usual / 4;

int screen_resolution() {
    const HDC screen = GetDC(nullptr);
    const int found = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return found > 0 ? found : usual;
}

}  // namespace

int resolution_of(HWND control) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    LOGFONTW look = {};
    if (font == nullptr || GetObjectW(font, sizeof(look), &look) == 0 || look.lfHeight >= 0) {
        return screen_resolution();
    }
    const int exact = MulDiv(std::abs(static_cast<int>(look.lfHeight)), points_of_inch, dialog_points);
    return std::max(usual, MulDiv(exact, 1, step) * step);
}

int scaled(HWND control, int pixels) {
    return MulDiv(pixels, resolution_of(control), usual);
}

int scaled_metric(HWND control, int metric) {
    return MulDiv(GetSystemMetrics(metric), resolution_of(control), screen_resolution());
}

}  // namespace frame
