#include "unicomp/wtlcontrols/buttonst/ButtonSTRendererEx.h"

#include <vssym32.h>

#include <algorithm>

#include "diagnostics/BugSlayerUtil.h"
#include "unicomp/wtlcontrols/buttonst/Colours.h"

namespace WTLControls {

namespace {

constexpr LONG content_margin = 3;
constexpr LONG image_gap = 3;
constexpr LONG arrow_width = 5;
constexpr LONG arrow_height = 3;
constexpr LONG separator_margin = 5;
constexpr int separator_alpha = 110;

RECT content_of(const SButtonPicture& picture) {
    RECT content = picture.client;
    content.right = picture.drop_down ? picture.split : content.right;
    ::InflateRect(&content, -static_cast<int>(content_margin), -static_cast<int>(content_margin));
    if (picture.look.pressed) {
        ::OffsetRect(&content, 1, 1);
    }
    return content;
}

bool is_disabled(const SButtonPicture& picture) {
    return (picture.look.state & ButtonState::Disabled) != 0;
}

// Lines of text in the middle of a rectangle, whatever their count.
void draw_lines(HDC dc, const CString& text, RECT place) {
    constexpr UINT format = DT_CENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
    RECT needed = place;
    const auto length = static_cast<int>(text.size());
    ::DrawTextW(dc, text.c_str(), length, &needed, DT_CALCRECT | format);
    const LONG spare = (place.bottom - place.top) - (needed.bottom - needed.top);
    place.top += spare / 2;
    ::DrawTextW(dc, text.c_str(), length, &place, format | DT_NOCLIP);
}

}  // namespace

void DrawArrow(HDC hDC, const RECT& rect, COLORREF colour, bool up) {
    if (!BS_ASSERT(hDC)) {
        return;
    }
    const LONG size = std::max<LONG>(std::min(rect.right - rect.left, rect.bottom - rect.top), arrow_width);
    const LONG lines = size * arrow_height / arrow_width;
    const LONG middle = (rect.left + rect.right - 1) / 2;
    const LONG top = (rect.top + rect.bottom - lines) / 2;
    const HBRUSH brush = ::CreateSolidBrush(colour);
    for (LONG line = 0; line < lines; ++line) {
        const LONG half = up ? line : lines - 1 - line;
        const RECT row = {middle - half, top + line, middle + half + 1, top + line + 1};
        ::FillRect(hDC, &row, brush);
    }
    ::DeleteObject(brush);
}

void CButtonSTRendererEx::DrawBackground(HDC target, CustomDraw::CMemorySurface& surface,
                                         const SButtonPicture& picture) const {
    CustomDraw::CMemoryDCEx memory(surface, target, picture.client);
    if (memory == nullptr) {
        return;
    }
    _draw_frame(memory, picture);
    const auto face = gradient_face(picture.look, picture.client, picture.colours);
    if (face) {
        ::GdiFlush();
        draw_gradient(memory.get_Pixels(), *face);
    }
    if ((picture.look.flags & ButtonFlag::Content) != 0) {
        _draw_content(memory, picture, _colours_on(face, picture));
    }
    memory.__Reset();
}

void CButtonSTRendererEx::_draw_frame(HDC dc, const SButtonPicture& picture) {
    RECT client = picture.client;
    if (picture.theme != nullptr) {
        ::FillRect(dc, &client, ::GetSysColorBrush(COLOR_BTNFACE));
        ::DrawThemeBackground(picture.theme, dc, BP_PUSHBUTTON,
                              themed_state(picture.look.state, picture.look.pressed), &client, nullptr);
        return;
    }
    ::DrawFrameControl(dc, &client, DFC_BUTTON,
                       DFCS_BUTTONPUSH | (picture.look.pressed ? UINT{DFCS_PUSHED} : 0U));
}

CButtonSTRendererEx::text_colours CButtonSTRendererEx::get_TextColours(const SButtonPicture& picture) {
    return _colours_on(gradient_face(picture.look, picture.client, picture.colours), picture);
}

CButtonSTRendererEx::text_colours CButtonSTRendererEx::_colours_on(const std::optional<SGradientFace>& face,
                                                                   const SButtonPicture& picture) {
    text_colours result = {};
    result.top = face ? face->top : ::GetSysColor(COLOR_BTNFACE);
    result.bottom = face ? face->bottom : ::GetSysColor(COLOR_BTNFACE);
    result.text = is_disabled(picture)
                      ? ::GetSysColor(COLOR_GRAYTEXT)
                      : readable_text(::GetSysColor(COLOR_BTNTEXT), result.top, result.bottom);
    return result;
}

void CButtonSTRendererEx::_draw_content(HDC dc, const SButtonPicture& picture, const text_colours& colours) {
    RECT content = content_of(picture);
    content.left = _draw_image(dc, picture, content);
    const HGDIOBJ old = ::SelectObject(dc, picture.font);
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, colours.text);
    draw_lines(dc, picture.text, content);
    ::SelectObject(dc, old);
    if (picture.drop_down) {
        _draw_drop_down(dc, picture, colours);
    }
    if (picture.look.focused && picture.show_focus) {
        RECT focus = picture.client;
        ::InflateRect(&focus, -static_cast<int>(content_margin), -static_cast<int>(content_margin));
        ::SetTextColor(dc, colours.text);
        ::SetBkColor(dc, colours.top);
        ::DrawFocusRect(dc, &focus);
    }
}

LONG CButtonSTRendererEx::_draw_image(HDC dc, const SButtonPicture& picture, const RECT& content) {
    int width = 0;
    int height = 0;
    if (picture.images == nullptr || !::ImageList_GetIconSize(picture.images, &width, &height)) {
        return content.left;
    }
    const int top = static_cast<int>(content.top + content.bottom - height) / 2;
    ::ImageList_Draw(picture.images, 0, dc, static_cast<int>(content.left), top, ILD_TRANSPARENT);
    return content.left + width + image_gap;
}

void CButtonSTRendererEx::_draw_drop_down(HDC dc, const SButtonPicture& picture,
                                          const text_colours& colours) {
    RECT part = picture.client;
    part.left = picture.split;
    part.right -= content_margin + 1;
    const COLORREF ground = between(colours.top, colours.bottom, 1, 2);
    const HBRUSH brush = ::CreateSolidBrush(blended(colours.text, ground, separator_alpha));
    const RECT line = {part.left, part.top + separator_margin, part.left + 1, part.bottom - separator_margin};
    ::FillRect(dc, &line, brush);
    ::DeleteObject(brush);
    const LONG size = std::max<LONG>(arrow_width, (part.right - part.left) / 2) | 1;
    const LONG left = part.left + (part.right - part.left - size + 1) / 2 + 1;
    const LONG top = (part.top + part.bottom - size) / 2;
    DrawArrow(dc, {left, top, left + size, top + size}, colours.text, false);
}

}  // namespace WTLControls
