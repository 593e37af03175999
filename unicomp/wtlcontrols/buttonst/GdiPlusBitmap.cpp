#include "unicomp/wtlcontrols/buttonst/GdiPlusBitmap.h"

#include "platform/win32/frame/png_image.h"

namespace WTLControls {

void CGdiPlusBitmap::Empty() {
    if (m_bitmap != nullptr) {
        ::DeleteObject(m_bitmap);
        m_bitmap = nullptr;
        m_size = {};
    }
}

bool CGdiPlusBitmapResource::Load(UINT id) {
    Empty();
    m_bitmap = frame::load_png_bitmap(id, m_size);
    return m_bitmap != nullptr;
}

}  // namespace WTLControls
