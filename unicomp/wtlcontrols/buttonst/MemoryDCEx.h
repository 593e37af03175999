#pragma once

#include <windows.h>

#include "unicomp/wtlcontrols/buttonst/ButtonFace.h"

namespace CustomDraw {

// A drawing surface in memory. It is kept between paints, and grows when a larger one is needed. On the
// window's thread.
class CMemorySurface {
public:
    CMemorySurface() = default;
    ~CMemorySurface() { Release(); }
    CMemorySurface(const CMemorySurface&) = delete;
    CMemorySurface& operator=(const CMemorySurface&) = delete;

    // At least as large as told; null when there is no memory for it.
    HDC Prepare(HDC target, int width, int height);
    // Deletes the surface and its bitmap.
    void Release();
    // What is drawn on it, in pixels.
    WTLControls::SPixels get_Pixels() const { return {m_bits, m_width, m_height}; }

private:
    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_old = nullptr;
    std::uint32_t* m_bits = nullptr;
    int m_width = 0;
    int m_height = 0;
};

// Drawing of one rectangle that begins at the corner: it happens in memory and is copied to the target at
// once when this ends.
class CMemoryDCEx {
public:
    CMemoryDCEx(CMemorySurface& surface, HDC target, const RECT& rect);
    ~CMemoryDCEx() { __Reset(); }
    CMemoryDCEx(const CMemoryDCEx&) = delete;
    CMemoryDCEx& operator=(const CMemoryDCEx&) = delete;

    operator HDC() const { return m_dc; }
    WTLControls::SPixels get_Pixels() const { return m_surface->get_Pixels(); }
    // Copies what was drawn to the target; nothing more comes of this object.
    void __Reset();

private:
    CMemorySurface* m_surface;
    HDC m_target;
    RECT m_rect;
    HDC m_dc;
};

}  // namespace CustomDraw
