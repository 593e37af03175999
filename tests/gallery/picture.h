#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace gallery {

// What a window shows, pixel by pixel.
class picture {
public:
    // The window as it stands, with its frame.
    static picture of(HWND window);

    int width() const { return m_width; }
    int height() const { return m_height; }
    COLORREF at(int x, int y) const;

    std::size_t colours() const;
    // The best contrast that a pixel makes with the commonest colour. The outermost pixels and the right
    // third are left out: frames and arrows stand out without saying anything of the text.
    double contrast(int edge) const;
    // False when the file could not be written.
    bool save(const std::wstring& path) const;

private:
    int m_width = 0;
    int m_height = 0;
    std::vector<DWORD> m_pixels;
};

// Of two colours by their relative luminance: 1 for equal ones, 21 for black and white.
double contrast(COLORREF one, COLORREF other);

}  // namespace gallery
