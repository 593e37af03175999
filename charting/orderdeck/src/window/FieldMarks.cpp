#include "charting/orderdeck/src/window/FieldMarks.h"

namespace OV_OrderDeck {

namespace {

constexpr COLORREF mark_colour = RGB(214, 40, 40);
constexpr int thickness = 2;

}  // namespace

void CFieldMarks::Set(const std::vector<HWND>& fields) {
    if (fields.empty() && m_fields.empty()) {
        return;
    }
    _invalidate();
    m_fields = fields;
    _invalidate();
}

RECT CFieldMarks::_frame_of(HWND field) const {
    RECT frame = {};
    ::GetWindowRect(field, &frame);
    ::MapWindowPoints(nullptr, m_panel, reinterpret_cast<POINT*>(&frame), 2);
    ::InflateRect(&frame, thickness, thickness);
    return frame;
}

void CFieldMarks::_invalidate() const {
    for (const HWND field : m_fields) {
        const RECT frame = _frame_of(field);
        ::InvalidateRect(m_panel, &frame, TRUE);
    }
}

void CFieldMarks::Draw(HDC dc) const {
    const HBRUSH brush = ::CreateSolidBrush(mark_colour);
    for (const HWND field : m_fields) {
        RECT frame = _frame_of(field);
        for (int i = 0; i < thickness; ++i) {
            ::FrameRect(dc, &frame, brush);
            ::InflateRect(&frame, -1, -1);
        }
    }
    ::DeleteObject(brush);
}

}  // namespace OV_OrderDeck
