#include "charting/orderdeck/src/window/RowScroll.h"

#include <algorithm>

namespace OV_OrderDeck {

row_view CRowScroll::Arrange(const row_room& room, const std::vector<row_extent>& fields,
                             const row_extent& buttons, int focus) {
    row_view view;
    view.shown.assign(fields.size(), true);
    if (buttons.right <= room.width) {
        m_first = 0;
        return view;
    }
    view.whole = false;
    view.buttons_shift = room.width - room.gap - buttons.right;
    view.arrows_left = buttons.left + view.buttons_shift - room.gap - room.arrows;
    m_fields = fields;
    m_room = view.arrows_left - room.gap - fields.front().left;
    _show(focus);
    view.fields_shift = fields.front().left - fields[static_cast<std::size_t>(m_first)].left;
    for (int i = 0; i < static_cast<int>(fields.size()); ++i) {
        const auto place = static_cast<std::size_t>(i);
        view.shown[place] = fields[place].visible && i >= m_first && _fits(m_first, i);
    }
    return view;
}

void CRowScroll::Scroll(int direction) {
    const int next = _next(m_first + (direction < 0 ? -1 : 1), direction);
    m_first = next >= 0 ? next : m_first;
}

int CRowScroll::_next(int from, int direction) const {
    const auto count = static_cast<int>(m_fields.size());
    for (int i = from; i >= 0 && i < count; i += direction < 0 ? -1 : 1) {
        if (m_fields[static_cast<std::size_t>(i)].visible) {
            return i;
        }
    }
    return -1;
}

bool CRowScroll::_fits(int first, int last) const {
    return m_fields[static_cast<std::size_t>(last)].right - m_fields[static_cast<std::size_t>(first)].left <=
           m_room;
}

// Brings m_first to a field that is there, leaves no room at the end that a field could take, and then looks
// after the focus.
void CRowScroll::_show(int focus) {
    const auto end = static_cast<int>(m_fields.size()) - 1;
    const int last = _next(end, -1);
    if (last < 0) {
        m_first = 0;
        return;
    }
    const int present = _next(m_first, 1);
    m_first = present >= 0 ? present : last;
    for (int before = _next(m_first - 1, -1); before >= 0 && _fits(before, last);
         before = _next(m_first - 1, -1)) {
        m_first = before;
    }
    if (focus == no_focus || !m_fields[static_cast<std::size_t>(focus)].visible) {
        return;
    }
    m_first = std::min(m_first, focus);
    while (m_first < focus && !_fits(m_first, focus)) {
        m_first = _next(m_first + 1, 1);
    }
}

}  // namespace OV_OrderDeck
