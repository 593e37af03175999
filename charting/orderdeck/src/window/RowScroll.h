#pragma once

#include <cstddef>
#include <vector>

namespace OV_OrderDeck {

// What one field takes of the order row, in pixels, where the row is shown whole.
struct row_extent {
    int left = 0;
    int right = 0;
    bool visible = true;
};

// What a window gives the row, in pixels.
struct row_room {
    int width = 0;
    // Between Buy and Sell, what stands before them, and the window's end.
    int gap = 0;
    // Of the arrows with which the user scrolls.
    int arrows = 0;
};

struct row_view {
    // The row fits: everything stands where the layout put it, and there are no arrows.
    bool whole = true;
    // What the left edges move by: of the fields that are shown, and of Buy and Sell.
    int fields_shift = 0;
    int buttons_shift = 0;
    int arrows_left = 0;
    // By field, from the left to the right. A field is shown whole or not at all: a part of a number reads
    // as another number.
    std::vector<bool> shown;
};

// Decides what a window that is narrower than the order row shows of it: Buy and Sell at the right end, and
// before them as many fields as there is room for, from the first one on that it is scrolled to.
class CRowScroll {
public:
    static constexpr int no_focus = -1;

    // Fields from the left to the right, at least one, each no further right than the next one's left edge;
    // buttons is what Buy and Sell take together. The field with the focus is scrolled to.
    row_view Arrange(const row_room& room, const std::vector<row_extent>& fields, const row_extent& buttons,
                     int focus);

    // By one field to the left (below 0) or to the right; the next Arrange shows it.
    void Scroll(int direction);

private:
    // The next field that is there, from one on in a direction; -1 for none.
    int _next(int from, int direction) const;
    bool _fits(int first, int last) const;
    void _show(int focus);

    std::vector<row_extent> m_fields;
    // Between the left edge of the first field and the arrows.
    int m_room = 0;
    // The first field that is shown.
    int m_first = 0;
};

}  // namespace OV_OrderDeck
