#pragma once

#include <windows.h>

#include <commctrl.h>
#include <uxtheme.h>

#include "platform/text.h"
#include "unicomp/wtlcontrols/buttonst/ButtonFace.h"
#include "unicomp/wtlcontrols/buttonst/MemoryDCEx.h"

namespace WTLControls {

// All that a button's picture depends on.
struct SButtonPicture {
    SButtonLook look;
    RECT client = {};
    // Null without a visual style.
    HTHEME theme = nullptr;
    button_colours colours;
    CString text;
    HFONT font = nullptr;
    // The first image stands before the text; null for none. Not owned.
    HIMAGELIST images = nullptr;
    // Where the drop-down part begins, in client pixels; its right edge when there is none.
    LONG split = 0;
    bool drop_down = false;
    // The user moves by keys and must see the focus.
    bool show_focus = false;
};

// Draws a button from a picture's description and decides nothing. On the window's thread.
class CButtonSTRendererEx {
public:
    // Draws everything in memory and copies it to the target at once.
    void DrawBackground(HDC target, CustomDraw::CMemorySurface& surface, const SButtonPicture& picture) const;

    // The colour of the text, and the ground behind it at its top and its bottom.
    struct text_colours {
        COLORREF text;
        COLORREF top;
        COLORREF bottom;
    };
    static text_colours get_TextColours(const SButtonPicture& picture);

private:
    static text_colours _colours_on(const std::optional<SGradientFace>& face, const SButtonPicture& picture);
    static void _draw_frame(HDC dc, const SButtonPicture& picture);
    static void _draw_content(HDC dc, const SButtonPicture& picture, const text_colours& colours);
    static void _draw_drop_down(HDC dc, const SButtonPicture& picture, const text_colours& colours);
    static LONG _draw_image(HDC dc, const SButtonPicture& picture, const RECT& content);
};

// A filled triangle in the middle of a rectangle, five wide and three high for each five of its size: for
// an up arrow with its flat side at the bottom, for a down arrow at the top. A null surface is reported.
void DrawArrow(HDC hDC, const RECT& rect, COLORREF colour, bool up);

}  // namespace WTLControls
