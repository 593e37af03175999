#pragma once

#include "platform/text.h"

namespace OV_OrderDeck {

// The font of a window whose text must fit: the parent's, or a smaller copy of it. Keep it as long as
// the window; it owns the copy. On the window's thread.
class CFittedFont {
public:
    CFittedFont() = default;
    ~CFittedFont() { _release(); }
    CFittedFont(const CFittedFont&) = delete;
    CFittedFont& operator=(const CFittedFont&) = delete;

    // Chooses the font for a text that has width pixels. True when the window got another font; a combo
    // box then takes its heights from that font.
    bool Fit(HWND window, const CString& text, int width);

private:
    void _release();

    HFONT m_font = nullptr;
    // Of the font in use; 0 before the first Fit.
    LONG m_height = 0;
};

// Pixels that a text takes in a font.
int text_width(HWND window, HFONT font, const CString& text);

}  // namespace OV_OrderDeck
