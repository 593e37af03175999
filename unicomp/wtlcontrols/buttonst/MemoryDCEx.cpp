#include "unicomp/wtlcontrols/buttonst/MemoryDCEx.h"

#include <algorithm>

namespace CustomDraw {

HDC CMemorySurface::Prepare(HDC target, int width, int height) {
    if (m_dc != nullptr && width <= m_width && height <= m_height) {
        return m_dc;
    }
    const int wide = std::max({width, m_width, 1});
    const int high = std::max({height, m_height, 1});
    Release();
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = wide;
    info.bmiHeader.biHeight = -high;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = ::CreateDIBSection(target, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap == nullptr) {
        return nullptr;
    }
    m_dc = ::CreateCompatibleDC(target);
    m_bitmap = bitmap;
    m_old = ::SelectObject(m_dc, m_bitmap);
    m_bits = static_cast<std::uint32_t*>(bits);
    m_width = wide;
    m_height = high;
    return m_dc;
}

void CMemorySurface::Release() {
    if (m_dc == nullptr) {
        return;
    }
    ::SelectObject(m_dc, m_old);
    ::DeleteDC(m_dc);
    ::DeleteObject(m_bitmap);
    m_dc = nullptr;
    m_bitmap = nullptr;
    m_bits = nullptr;
    m_width = 0;
    m_height = 0;
}

CMemoryDCEx::CMemoryDCEx(CMemorySurface& surface, HDC target, const RECT& rect)
    : m_surface(&surface),
      m_target(target),
      m_rect(rect),
      m_dc(surface.Prepare(target, static_cast<int>(rect.right), static_cast<int>(rect.bottom))) {}

void CMemoryDCEx::__Reset() {
    if (m_dc == nullptr) {
        return;
    }
    ::BitBlt(m_target, m_rect.left, m_rect.top, m_rect.right - m_rect.left, m_rect.bottom - m_rect.top, m_dc,
             m_rect.left, m_rect.top, SRCCOPY);
    m_dc = nullptr;
}

}  // namespace CustomDraw
