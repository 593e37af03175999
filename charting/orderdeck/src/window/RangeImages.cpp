#include "charting/orderdeck/src/window/RangeImages.h"

#include <uxtheme.h>
#include <vssym32.h>

#include <algorithm>

#include "unicomp/wtlcontrols/buttonst/ButtonSTRendererEx.h"
#include "unicomp/wtlcontrols/buttonst/Colours.h"

namespace OV_OrderDeck {

namespace {

constexpr int image_count = 6;
constexpr int images_each_way = 3;
constexpr int pressed_image = 2;
constexpr LONG image_height = 16;
constexpr LONG arrow_box = 5;
constexpr COLORREF light_edge = RGB(250, 250, 250);
constexpr COLORREF arrow_colour = RGB(50, 50, 50);

void fill(HDC dc, const RECT& rect, COLORREF colour) {
    const HBRUSH brush = ::CreateSolidBrush(colour);
    ::FillRect(dc, &rect, brush);
    ::DeleteObject(brush);
}

// In a scheme of light text on dark grounds the arrow takes the colour of the text.
COLORREF arrow_on_face() {
    return WTLControls::readable_text(arrow_colour, ::GetSysColor(COLOR_BTNFACE),
                                      ::GetSysColor(COLOR_BTNFACE));
}

void draw_plain(HDC dc, const RECT& at, bool up, bool pressed) {
    COLORREF upper = light_edge;
    COLORREF lower = ::GetSysColor(COLOR_3DDKSHADOW);
    if (pressed) {
        std::swap(upper, lower);
    }
    fill(dc, at, ::GetSysColor(COLOR_BTNFACE));
    fill(dc, {at.left, at.top, at.right, at.top + 1}, upper);
    fill(dc, {at.left, at.top, at.left + 1, at.bottom}, upper);
    fill(dc, {at.left, at.bottom - 1, at.right, at.bottom}, lower);
    fill(dc, {at.right - 1, at.top, at.right, at.bottom}, lower);
    const LONG left = (at.left + at.right - arrow_box) / 2;
    const LONG top = (at.top + at.bottom - arrow_box) / 2;
    WTLControls::DrawArrow(dc, {left, top, left + arrow_box, top + arrow_box}, arrow_on_face(), up);
}

void draw_themed(HTHEME theme, HDC dc, const RECT& at, bool up, int image) {
    fill(dc, at, ::GetSysColor(COLOR_BTNFACE));
    ::DrawThemeBackground(theme, dc, up ? SPNP_UP : SPNP_DOWN, image + 1, &at, nullptr);
}

}  // namespace

HIMAGELIST make_range_images(HWND window, LONG width, LONG button_height) {
    const LONG height = std::max(image_height, button_height);
    const HDC screen = ::GetDC(nullptr);
    const HDC dc = ::CreateCompatibleDC(screen);
    const HBITMAP strip = ::CreateCompatibleBitmap(screen, width * image_count, height);
    const HGDIOBJ old = ::SelectObject(dc, strip);
    const HTHEME theme = ::IsAppThemed() ? ::OpenThemeData(window, L"SPIN") : nullptr;
    for (int image = 0; image < image_count; ++image) {
        const RECT at = {width * image, 0, width * (image + 1), button_height};
        const bool up = image < images_each_way;
        if (theme != nullptr) {
            draw_themed(theme, dc, at, up, image % images_each_way);
        } else {
            draw_plain(dc, at, up, image % images_each_way == pressed_image);
        }
    }
    if (theme != nullptr) {
        ::CloseThemeData(theme);
    }
    ::SelectObject(dc, old);
    ::DeleteDC(dc);
    ::ReleaseDC(nullptr, screen);
    const HIMAGELIST images =
        ::ImageList_Create(static_cast<int>(width), static_cast<int>(height), ILC_COLOR24, image_count, 0);
    ::ImageList_Add(images, strip, nullptr);
    ::DeleteObject(strip);
    return images;
}

}  // namespace OV_OrderDeck
