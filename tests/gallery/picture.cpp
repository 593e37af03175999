#include "tests/gallery/picture.h"

#include <objidl.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

// The headers of GDI+ use names that the standard library took over.
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

namespace gallery {

namespace {

constexpr CLSID png_encoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

double linear(BYTE channel) {
    const double part = channel / 255.0;
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(COLORREF colour) {
    return 0.2126 * linear(GetRValue(colour)) + 0.7152 * linear(GetGValue(colour)) +
           0.0722 * linear(GetBValue(colour));
}

// What lies beyond the screen is not drawn, so a window that is wider comes part by part.
void photograph(HWND window, HDC target, int width, int height) {
    const HWND root = GetAncestor(window, GA_ROOT);
    RECT before = {};
    GetWindowRect(root, &before);
    const auto move = [&](LONG left) {
        SetWindowPos(root, nullptr, static_cast<int>(left), static_cast<int>(before.top), 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        RedrawWindow(root, nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    };
    const int part = GetSystemMetrics(SM_CXSCREEN);
    for (int x = 0; x < width; x += part) {
        if (width > part) {
            RECT at = {};
            GetWindowRect(window, &at);
            RECT of_root = {};
            GetWindowRect(root, &of_root);
            move(of_root.left - at.left - x);
        }
        const HDC source = GetWindowDC(window);
        BitBlt(target, x, 0, std::min(part, width - x), height, source, x, 0, SRCCOPY);
        ReleaseDC(window, source);
    }
    if (width > part) {
        move(before.left);
    }
}

COLORREF colour_of(DWORD pixel) {
    return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

}  // namespace

double contrast(COLORREF one, COLORREF other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

picture picture::of(HWND window) {
    RECT at = {};
    GetWindowRect(window, &at);
    picture result;
    result.m_width = static_cast<int>(at.right - at.left);
    result.m_height = static_cast<int>(at.bottom - at.top);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = result.m_width;
    info.bmiHeader.biHeight = -result.m_height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HDC memory = CreateCompatibleDC(nullptr);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    photograph(window, memory, result.m_width, result.m_height);
    GdiFlush();
    const auto* const pixels = static_cast<const DWORD*>(bits);
    result.m_pixels.assign(pixels, pixels + static_cast<std::size_t>(result.m_width) *
                                                static_cast<std::size_t>(result.m_height));
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    return result;
}

COLORREF picture::at(int x, int y) const {
    return colour_of(m_pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
                                 static_cast<std::size_t>(x)));
}

std::size_t picture::colours() const {
    std::set<COLORREF> seen;
    for (const DWORD pixel : m_pixels) {
        seen.insert(colour_of(pixel));
    }
    return seen.size();
}

double picture::contrast(int edge) const {
    std::map<COLORREF, int> counts;
    for (int y = edge; y < m_height - edge; ++y) {
        for (int x = edge; x < m_width * 2 / 3; ++x) {
            ++counts[at(x, y)];
        }
    }
    const auto ground =
        std::max_element(counts.begin(), counts.end(),
                         [](const auto& one, const auto& other) { return one.second < other.second; });
    double best = 1.0;
    for (const auto& [colour, count] : counts) {
        best = std::max(best, gallery::contrast(colour, ground->first));
    }
    return best;
}

bool picture::save(const std::wstring& path) const {
    const Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) {
        return false;
    }
    bool saved = false;
    {
        auto pixels = m_pixels;
        Gdiplus::Bitmap bitmap(m_width, m_height, m_width * 4, PixelFormat32bppRGB,
                               reinterpret_cast<BYTE*>(pixels.data()));
        saved = bitmap.Save(path.c_str(), &png_encoder, nullptr) == Gdiplus::Ok;
    }
    Gdiplus::GdiplusShutdown(token);
    return saved;
}

}  // namespace gallery
