#pragma once

#include <windows.h>

namespace WTLControls {

// A decoded picture of 32 bits with its own alpha. On the window's thread.
class CGdiPlusBitmap {
public:
    CGdiPlusBitmap() = default;
    ~CGdiPlusBitmap() { Empty(); }
    CGdiPlusBitmap(const CGdiPlusBitmap&) = delete;
    CGdiPlusBitmap& operator=(const CGdiPlusBitmap&) = delete;

    // Null while there is no picture.
    HBITMAP get_Bitmap() const { return m_bitmap; }
    SIZE get_Size() const { return m_size; }
    void Empty();

protected:
    HBITMAP m_bitmap = nullptr;
    SIZE m_size = {};
};

// A picture of type "PNG" from the module's resources.
class CGdiPlusBitmapResource final : public CGdiPlusBitmap {
public:
    // False, with no message, when the resource is missing or is no picture; there is no picture then.
    bool Load(UINT id);
};

}  // namespace WTLControls
