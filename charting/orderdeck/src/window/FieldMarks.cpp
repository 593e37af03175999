#include "charting/orderdeck/src/window/FieldMarks.h"

namespace OV_OrderDeck {

namespace {

constexpr COLORREF mark_colour = RGB(214, 40, 40);
constexpr int thickness = 2;

}  // namespace

void CFieldMarks::Set(const std::vector<field>& fields) {
    if (fields.empty() && m_fields.empty()) {
        return;
    }
    _invalidate();
    m_fields = fields;
    _invalidate();
}

RECT CFieldMarks::_frame_of(const field& marked) const {
    RECT frame = {};
    RECT spin = {};
    ::GetWindowRect(marked.window, &frame);
    if (marked.spin != nullptr && ::GetWindowRect(marked.spin, &spin)) {
        ::UnionRect(&frame, &frame, &spin);
    }
    ::MapWindowPoints(nullptr, m_panel, reinterpret_cast<POINT*>(&frame), 2);
    ::InflateRect(&frame, thickness, thickness);
    return frame;
}

void CFieldMarks::_invalidate() const {
    for (const field& marked : m_fields) {
        const RECT frame = _frame_of(marked);
        ::InvalidateRect(m_panel, &frame, TRUE);
    }
}

void CFieldMarks::Draw(HDC dc) const {
    const HBRUSH brush = ::CreateSolidBrush(mark_colour);
    for (const field& marked : m_fields) {
        RECT frame = _frame_of(marked);
        for (int i = 0; i < thickness; ++i) {
            ::FrameRect(dc, &frame, brush);
            ::InflateRect(&frame, -1, -1);
        }
    }
    ::DeleteObject(brush);
}

}  // namespace OV_OrderDeck
