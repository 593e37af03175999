#include "charting/orderdeck/src/window/LayoutPanel.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "charting/orderdeck/src/window/PanelItems.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"
#include "platform/win32/frame/resolution.h"

namespace OV_OrderDeck {

namespace {

constexpr UINT move_flags = SWP_NOSIZE | SWP_NOZORDER;
// At 96 to the inch.
constexpr int row_gap = 4;
constexpr int arrows_width = 28;
// Where a field waits that the panel has no room for. It stays visible and enabled there, so that the Tab key
// still goes to it and a reader still finds it.
constexpr LONG out_of_sight = -1000;

// From the left to the right.
struct field_items {
    int item;
    int spin = 0;
};
constexpr field_items row_fields[] = {{PanelItem::Symbol},
                                      {PanelItem::OrderType},
                                      {PanelItem::Quantity},
                                      {PanelItem::FirstPrice, PanelItem::FirstSpin},
                                      {PanelItem::SecondPrice, PanelItem::SecondSpin},
                                      {PanelItem::AskBid},
                                      {PanelItem::Account},
                                      {PanelItem::TimeInForce},
                                      {PanelItem::GtdDate}};

bool has_visible_style(HWND window) {
    return (::GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

bool holds_focus(HWND window, HWND focus) {
    return window != nullptr && (window == focus || ::IsChild(window, focus));
}

}  // namespace

void CLayoutPanel::Follow() {
    const auto place = [&](HWND window) {
        const RECT rect = _real_rect(window);
        m_places[window] = {rect.left, rect.top};
        return window;
    };
    static_assert(std::size(row_fields) == field_count);
    for (std::size_t i = 0; i < field_count; ++i) {
        m_fields[i].window = place(get_Item(row_fields[i].item));
        m_watches[i].Attach(m_fields[i].window, [this] { Fit(); });
        if (row_fields[i].spin != 0) {
            m_fields[i].spin = place(get_Item(row_fields[i].spin));
        }
    }
    m_buttons = {place(get_Item(PanelItem::Buy)), place(get_Item(PanelItem::Sell))};
    const frame::common_controls_scope scope;
    m_arrows = ::CreateWindowExW(0, UPDOWN_CLASSW, L"", WS_CHILD | UDS_HORZ, 0, 0, 0, 0, m_panel,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(Arrows)),
                                 frame::module_instance(), nullptr);
    // The right one counts up; the middle is never left, since no step is granted.
    ::SendMessageW(m_arrows, UDM_SETRANGE32, 0, 2);
    ::SendMessageW(m_arrows, UDM_SETPOS32, 0, 1);
}

void CLayoutPanel::Fit() {
    if (!m_places.empty()) {
        _fit(_arrange(_focused()));
    }
}

void CLayoutPanel::Scroll(int direction) {
    const int focus = _focused();
    m_scroll.Scroll(direction);
    const row_view view = _arrange(CRowScroll::no_focus);
    HWND next = nullptr;
    if (focus != CRowScroll::no_focus && !view.shown[static_cast<std::size_t>(focus)]) {
        for (std::size_t i = 0; i < field_count; ++i) {
            const std::size_t place = direction > 0 ? i : field_count - 1 - i;
            if (view.shown[place] && ::IsWindowEnabled(m_fields[place].window)) {
                next = m_fields[place].window;
                break;
            }
        }
        if (next == nullptr) {
            _fit(_arrange(focus));
            return;
        }
    }
    _fit(view);
    // The last thing that is done: what hears of it may end the panel.
    if (next != nullptr) {
        ::SetFocus(next);
    }
}

HWND CLayoutPanel::get_Item(int item) {
    return ::GetDlgItem(m_panel, item);
}

RECT CLayoutPanel::get_ItemRect(HWND window) {
    RECT rect = _real_rect(window);
    const auto found = m_places.find(window);
    if (found != m_places.end()) {
        ::OffsetRect(&rect, static_cast<int>(found->second.x - rect.left),
                     static_cast<int>(found->second.y - rect.top));
    }
    return rect;
}

bool CLayoutPanel::IsItemVisible(HWND window) {
    return ::IsWindowVisible(window) != FALSE;
}

void CLayoutPanel::ShowItem(HWND window, bool visible) {
    ::ShowWindow(window, visible ? SW_SHOW : SW_HIDE);
}

void CLayoutPanel::StartTimer(const void* id, UINT milliseconds) {
    ::SetTimer(m_panel, reinterpret_cast<UINT_PTR>(id), milliseconds, nullptr);
}

void CLayoutPanel::StopTimer(const void* id) {
    ::KillTimer(m_panel, reinterpret_cast<UINT_PTR>(id));
}

void* CLayoutPanel::BeginMoves(int count) {
    m_moved.clear();
    return ::BeginDeferWindowPos(count);
}

// The place of each window on the screen depends on all of them, so they go when all are known.
void* CLayoutPanel::MoveItem(void* batch, HWND window, int x, int y) {
    m_places[window] = {x, y};
    m_moved.insert(window);
    return batch;
}

bool CLayoutPanel::EndMoves(void* batch) {
    const row_view view = _arrange(_focused());
    auto* moves = static_cast<HDWP>(batch);
    _defer(moves, _to_move(view));
    m_moved.clear();
    _place_arrows(view);
    return ::EndDeferWindowPos(moves) != FALSE;
}

// A field that came or went leaves what is whole as it is.
void CLayoutPanel::Repaint() {
    if (!m_whole) {
        Fit();
    }
    _redraw();
}

RECT CLayoutPanel::_real_rect(HWND window) const {
    RECT rect = {};
    ::GetWindowRect(window, &rect);
    ::MapWindowPoints(nullptr, m_panel, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

int CLayoutPanel::_focused() const {
    const HWND focus = ::GetFocus();
    for (std::size_t i = 0; i < field_count; ++i) {
        if (holds_focus(m_fields[i].window, focus) || holds_focus(m_fields[i].spin, focus)) {
            return static_cast<int>(i);
        }
    }
    return CRowScroll::no_focus;
}

row_view CLayoutPanel::_arrange(int focus) {
    const auto extent = [&](HWND first, HWND last) {
        const RECT from = get_ItemRect(first);
        const RECT to = last != nullptr ? get_ItemRect(last) : from;
        return row_extent{static_cast<int>(from.left), static_cast<int>(to.right), has_visible_style(first)};
    };
    std::vector<row_extent> fields;
    fields.reserve(field_count);
    for (const field& each : m_fields) {
        fields.push_back(extent(each.window, each.spin));
    }
    RECT client = {};
    ::GetClientRect(m_panel, &client);
    const row_room room = {static_cast<int>(client.right), frame::scaled(m_panel, row_gap),
                           frame::scaled(m_panel, arrows_width)};
    row_view view = m_scroll.Arrange(room, fields, extent(m_buttons[0], m_buttons[1]), focus);
    m_whole = view.whole;
    return view;
}

CLayoutPanel::places CLayoutPanel::_wanted(const row_view& view) const {
    places result = m_places;
    if (view.whole) {
        return result;
    }
    for (std::size_t i = 0; i < field_count; ++i) {
        for (const HWND window : {m_fields[i].window, m_fields[i].spin}) {
            if (window == nullptr) {
                continue;
            }
            POINT& at = result[window];
            at = view.shown[i] ? POINT{at.x + view.fields_shift, at.y} : POINT{at.x, out_of_sight};
        }
    }
    for (const HWND window : m_buttons) {
        result[window].x += view.buttons_shift;
    }
    return result;
}

// Those that the layout moved, and those that stand elsewhere than they should.
CLayoutPanel::places CLayoutPanel::_to_move(const row_view& view) const {
    places result = _wanted(view);
    std::erase_if(result, [&](const auto& each) {
        const RECT now = _real_rect(each.first);
        return !m_moved.contains(each.first) && now.left == each.second.x && now.top == each.second.y;
    });
    return result;
}

void CLayoutPanel::_fit(const row_view& view) {
    const places moves = _to_move(view);
    _place_arrows(view);
    if (moves.empty()) {
        return;
    }
    HDWP batch = ::BeginDeferWindowPos(static_cast<int>(moves.size()));
    BS_REQUIRE(batch != nullptr, E_FAIL);
    _defer(batch, moves);
    const bool _res = ::EndDeferWindowPos(batch) != FALSE;
    BS_ASSERT(_res);
    _redraw();
}

void CLayoutPanel::_defer(HDWP& batch, const places& moves) const {
    for (const auto& [window, at] : moves) {
        batch = ::DeferWindowPos(batch, window, nullptr, static_cast<int>(at.x), static_cast<int>(at.y), 0, 0,
                                 move_flags);
        BS_REQUIRE(batch != nullptr, E_FAIL);
    }
}

void CLayoutPanel::_place_arrows(const row_view& view) {
    if (view.whole) {
        ::ShowWindow(m_arrows, SW_HIDE);
        return;
    }
    const RECT symbol = get_ItemRect(m_fields[0].window);
    ::SetWindowPos(m_arrows, nullptr, view.arrows_left, static_cast<int>(symbol.top),
                   frame::scaled(m_panel, arrows_width), static_cast<int>(symbol.bottom - symbol.top),
                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void CLayoutPanel::_redraw() const {
    ::RedrawWindow(m_panel, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

}  // namespace OV_OrderDeck
