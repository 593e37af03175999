#include "platform/win32/frame/png_image.h"

#include <objidl.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <span>

#include "platform/com_ptr.h"
#include "platform/resources.h"

// The headers of GDI+ use names that the standard library took over.
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

namespace frame {

namespace {

// GDI+ is started for one picture at a time: a component must not start it when its module is loaded.
class gdiplus_session {
public:
    gdiplus_session() {
        const Gdiplus::GdiplusStartupInput input;
        m_started = Gdiplus::GdiplusStartup(&m_token, &input, nullptr) == Gdiplus::Ok;
    }
    ~gdiplus_session() {
        if (m_started) {
            Gdiplus::GdiplusShutdown(m_token);
        }
    }
    gdiplus_session(const gdiplus_session&) = delete;
    gdiplus_session& operator=(const gdiplus_session&) = delete;
    explicit operator bool() const { return m_started; }

private:
    ULONG_PTR m_token = 0;
    bool m_started = false;
};

com_ptr<IStream> stream_of(std::span<const std::byte> bytes) {
    com_ptr<IStream> stream;
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    if (memory == nullptr) {
        return stream;
    }
    std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
    GlobalUnlock(memory);
    if (FAILED(CreateStreamOnHGlobal(memory, TRUE, platform::receive(stream)))) {
        GlobalFree(memory);
    }
    return stream;
}

// A top-down bitmap of 32 bits with its own alpha, not premultiplied, as image lists take it.
HBITMAP copy_pixels(Gdiplus::Bitmap& picture) {
    const auto width = static_cast<int>(picture.GetWidth());
    const auto height = static_cast<int>(picture.GetHeight());
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP result = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (result == nullptr) {
        return nullptr;
    }
    Gdiplus::BitmapData data = {};
    data.Width = static_cast<UINT>(width);
    data.Height = static_cast<UINT>(height);
    data.Stride = width * 4;
    data.PixelFormat = PixelFormat32bppARGB;
    data.Scan0 = bits;
    const Gdiplus::Rect all(0, 0, width, height);
    if (picture.LockBits(&all, Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeUserInputBuf,
                         PixelFormat32bppARGB, &data) != Gdiplus::Ok) {
        DeleteObject(result);
        return nullptr;
    }
    picture.UnlockBits(&data);
    return result;
}

}  // namespace

HBITMAP load_png_bitmap(UINT id, SIZE& size) {
    const std::span<const std::byte> bytes = platform::load_png(id);
    const gdiplus_session session;
    if (bytes.empty() || !session) {
        return nullptr;
    }
    const com_ptr<IStream> stream = stream_of(bytes);
    const std::unique_ptr<Gdiplus::Bitmap> picture(Gdiplus::Bitmap::FromStream(stream.get()));
    if (!picture || picture->GetLastStatus() != Gdiplus::Ok) {
        return nullptr;
    }
    size = {static_cast<LONG>(picture->GetWidth()), static_cast<LONG>(picture->GetHeight())};
    return copy_pixels(*picture);
}

HIMAGELIST load_image_strip(UINT id) {
    SIZE strip_size = {};
    const HBITMAP strip = load_png_bitmap(id, strip_size);
    if (strip == nullptr) {
        return nullptr;
    }
    const auto size = static_cast<int>(strip_size.cy);
    const int count = std::max(1, static_cast<int>(strip_size.cx) / size);
    const HIMAGELIST list = ImageList_Create(size, size, ILC_COLOR32, count, 0);
    ImageList_Add(list, strip, nullptr);
    DeleteObject(strip);
    return list;
}

HIMAGELIST load_image_strip(UINT id, int size) {
    constexpr int larger_sizes[] = {32, 24, 20};
    for (const int drawn : larger_sizes) {
        if (drawn <= size) {
            return load_image_strip(id * 100 + static_cast<UINT>(drawn));
        }
    }
    return load_image_strip(id);
}

}  // namespace frame
