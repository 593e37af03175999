#include "charting/orderdeck/src/window/FittedFont.h"

#include <cstdlib>

namespace OV_OrderDeck {

namespace {

constexpr LONG smallest_height = 8;

}  // namespace

int text_width(HWND window, HFONT font, const CString& text) {
    const HDC dc = ::GetDC(window);
    const HGDIOBJ old = ::SelectObject(dc, font);
    SIZE size = {};
    ::GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
    ::SelectObject(dc, old);
    ::ReleaseDC(window, dc);
    return static_cast<int>(size.cx);
}

bool CFittedFont::Fit(HWND window, const CString& text, int width) {
    const auto regular = reinterpret_cast<HFONT>(::SendMessageW(::GetParent(window), WM_GETFONT, 0, 0));
    LOGFONTW wanted = {};
    ::GetObjectW(regular, sizeof(wanted), &wanted);
    HFONT fitting = regular;
    while (text_width(window, fitting, text) > width && std::abs(wanted.lfHeight) > smallest_height) {
        if (fitting != regular) {
            ::DeleteObject(fitting);
        }
        wanted.lfHeight += wanted.lfHeight < 0 ? 1 : -1;
        fitting = ::CreateFontIndirectW(&wanted);
    }
    if (wanted.lfHeight == m_height) {
        if (fitting != regular) {
            ::DeleteObject(fitting);
        }
        return false;
    }
    ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(fitting), TRUE);
    _release();
    m_font = fitting != regular ? fitting : nullptr;
    m_height = wanted.lfHeight;
    return true;
}

void CFittedFont::_release() {
    if (m_font != nullptr) {
        ::DeleteObject(m_font);
    }
}

}  // namespace OV_OrderDeck
