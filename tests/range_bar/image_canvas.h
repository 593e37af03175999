// A surface in memory that a test draws on and reads. Windows only.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace range_bar_tests {

class image_canvas {
public:
    image_canvas(int width, int height) : m_width(width), m_height(height) {
        const HDC screen = GetDC(nullptr);
        m_dc = CreateCompatibleDC(screen);
        m_bitmap = CreateCompatibleBitmap(screen, width, height);
        ReleaseDC(nullptr, screen);
        m_old = SelectObject(m_dc, m_bitmap);
    }
    ~image_canvas() {
        SelectObject(m_dc, m_old);
        DeleteObject(m_bitmap);
        DeleteDC(m_dc);
    }
    image_canvas(const image_canvas&) = delete;
    image_canvas& operator=(const image_canvas&) = delete;

    HDC dc() const { return m_dc; }
    void fill(COLORREF colour) const {
        const RECT all = {0, 0, m_width, m_height};
        const HBRUSH brush = CreateSolidBrush(colour);
        FillRect(m_dc, &all, brush);
        DeleteObject(brush);
    }
    COLORREF at(int x, int y) const { return GetPixel(m_dc, x, y); }
    // Row by row.
    std::vector<COLORREF> pixels() const {
        std::vector<COLORREF> result;
        for (int i = 0; i < m_width * m_height; ++i) {
            result.push_back(at(i % m_width, i / m_width));
        }
        return result;
    }
    // Where a part has the colour.
    std::vector<std::string> lines(const RECT& part, COLORREF colour) const {
        std::vector<std::string> result;
        for (LONG y = part.top; y < part.bottom; ++y) {
            std::string line;
            for (LONG x = part.left; x < part.right; ++x) {
                line += at(static_cast<int>(x), static_cast<int>(y)) == colour ? '#' : '.';
            }
            result.push_back(line);
        }
        return result;
    }

private:
    int m_width;
    int m_height;
    HDC m_dc;
    HBITMAP m_bitmap;
    HGDIOBJ m_old;
};

}  // namespace range_bar_tests
