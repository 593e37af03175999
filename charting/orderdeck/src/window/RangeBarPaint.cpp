// What the range bar draws.
#include <algorithm>
#include <cstdlib>

#include "charting/orderdeck/src/window/LadderColours.h"
#include "charting/orderdeck/src/window/RangeBar.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr int down_id = 10002;
constexpr int images_each_way = 3;
constexpr int hot_image = 1;
constexpr int pressed_image = 2;
constexpr LONG text_margin = 3;
constexpr LONG smallest_font = 8;
constexpr UINT ask_mark = 124;
constexpr UINT bid_mark = 125;

void fill(HDC dc, const RECT& rect, COLORREF colour) {
    const HBRUSH brush = ::CreateSolidBrush(colour);
    ::FillRect(dc, &rect, brush);
    ::DeleteObject(brush);
}

void frame_rect(HDC dc, const RECT& rect, COLORREF colour) {
    const HBRUSH brush = ::CreateSolidBrush(colour);
    ::FrameRect(dc, &rect, brush);
    ::DeleteObject(brush);
}

void draw_text(HDC dc, const CString& text, RECT at, UINT align) {
    at.left += text_margin;
    at.right -= text_margin;
    ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &at,
                DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | align);
}

LONG text_width(HDC dc, const CString& text) {
    SIZE size = {};
    ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

// The font in use, or a smaller copy in which a text of such a width needs no more than the room.
class fitting_font {
public:
    template <class Measure>
    fitting_font(HDC dc, LONG room, Measure&& measure)
        : m_dc(dc), m_old(::SelectObject(dc, ::GetStockObject(DEFAULT_GUI_FONT))) {
        LOGFONTW wanted = {};
        ::GetObjectW(::GetStockObject(DEFAULT_GUI_FONT), sizeof(wanted), &wanted);
        while (measure() > room && std::abs(wanted.lfHeight) > smallest_font) {
            wanted.lfHeight += wanted.lfHeight < 0 ? 1 : -1;
            const HFONT smaller = ::CreateFontIndirectW(&wanted);
            ::SelectObject(dc, smaller);
            _drop();
            m_smaller = smaller;
        }
    }
    ~fitting_font() {
        ::SelectObject(m_dc, m_old);
        _drop();
    }
    fitting_font(const fitting_font&) = delete;
    fitting_font& operator=(const fitting_font&) = delete;

private:
    void _drop() {
        if (m_smaller != nullptr) {
            ::DeleteObject(m_smaller);
        }
    }

    HDC m_dc;
    HGDIOBJ m_old;
    HFONT m_smaller = nullptr;
};

}  // namespace

// A price must never lose a digit: the width is that of the ask's text, and another may be longer.
LONG RangeBar::_needed_width(HDC dc) const {
    LONG widest = 0;
    for (LONG row = 0; row < m_ladder.get_Rows(); ++row) {
        CString text = m_ladder.get_Text(row);
        if (m_ladder.IsAsk(row) || m_ladder.IsBid(row)) {
            text += resource_string::text(ask_mark) + L' ';
        }
        widest = std::max(widest, text_width(dc, text));
    }
    return widest + 2 * text_margin;
}

void RangeBar::_on_paint() {
    PAINTSTRUCT painting = {};
    const HDC target = ::BeginPaint(m_hWnd, &painting);
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    {
        CustomDraw::CMemoryDCEx memory(m_surface, target, client);
        if (memory != nullptr) {
            fill(memory, client, ::GetSysColor(COLOR_BTNFACE));
            const fitting_font font(memory, client.right, [&] { return _needed_width(memory); });
            ::SetBkMode(memory, TRANSPARENT);
            for (LONG row = 0; row < m_ladder.get_Rows(); ++row) {
                _paint_row(memory, row);
            }
        }
    }
    ::EndPaint(m_hWnd, &painting);
}

void RangeBar::_paint_row(HDC dc, LONG row) {
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    RECT at = m_ladder.get_RowRect(row);
    at.right = client.right;
    const COLORREF ground = ladder_colours[m_ladder.get_Side(row)];
    fill(dc, at, ground);
    ::SetTextColor(dc, WTLControls::readable_text(::GetSysColor(COLOR_BTNTEXT), ground, ground));
    // Ask and bid are told by a letter too, for those who see no colours.
    if (m_ladder.IsAsk(row) || m_ladder.IsBid(row)) {
        draw_text(dc, resource_string::text(m_ladder.IsAsk(row) ? ask_mark : bid_mark), at, DT_LEFT);
    }
    draw_text(dc, m_ladder.get_Text(row), at, DT_RIGHT);
    if (row == m_ladder.get_HotRow()) {
        ::InvertRect(dc, &at);
    }
    frame_rect(dc, at, ::GetSysColor(COLOR_3DDKSHADOW));
}

frame::answer RangeBar::_on_draw_item(const DRAWITEMSTRUCT& item) {
    const bool down = item.CtlID == down_id;
    const CRangeArrow& arrow = down ? m_down : m_up;
    int image = down ? images_each_way : 0;
    if ((item.itemState & ODS_SELECTED) != 0) {
        image += pressed_image;
    } else if (arrow.IsHot()) {
        image += hot_image;
    }
    ::ImageList_Draw(m_images, image, item.hDC, 0, 0, ILD_NORMAL);
    return TRUE;
}

}  // namespace OV_OrderDeck
