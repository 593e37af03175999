#include "charting/orderdeck/src/window/RangeLadder.h"

#include <algorithm>

#include "platform/clock.h"

namespace OV_OrderDeck {

namespace {

constexpr LONG first_width = 40;
constexpr LONG row_count = 7;
constexpr int letters = 26;
constexpr LONG page = 10;
constexpr LONG first_pos = 3;
// Less than it takes to see a price and to press it.
constexpr DWORD fresh_for = 300;

// Virtual keys, by the names that the platform gives them. The four pairs take what the number pad sends.
enum key : int {
    key_escape = 27,
    key_prior = 33,
    key_next = 34,
    key_up = 38,
    key_down = 40,
    key_pad2 = 98,
    key_pad3 = 99,
    key_pad8 = 104,
    key_pad9 = 105,
};

// As MulDiv rounds, for what is not negative.
LONG scaled(LONG value, LONG numerator, LONG denominator) {
    return (value * numerator + denominator / 2) / denominator;
}

// Moves a span of a length into bounds; one that is too long starts where they start.
LONG fitted(LONG from, LONG length, LONG low, LONG high) {
    return std::max(low, std::min(from, high - length));
}

}  // namespace

CRangeLadder::CRangeLadder(const CAskBidPrices& market)
    : m_market(&market), m_prices(static_cast<std::size_t>(row_count)) {}

void CRangeLadder::SetFont(int alphabet_width, int height) {
    m_char_width = (alphabet_width / letters + 1) / 2;
    m_char_height = height;
    m_row_height = scaled(m_char_height, 14, 8) + 1;
    m_button_height = m_row_height / 2;
}

LONG CRangeLadder::get_Height() const {
    return (m_row_height - 1) * m_rows + 1 + 2 * m_button_height;
}

RECT CRangeLadder::get_RowRect(LONG row) const {
    const LONG top = m_button_height + row * (m_row_height - 1);
    return {0, top, m_width, top + m_row_height};
}

LONG CRangeLadder::HitTest(LONG y) const {
    for (LONG row = 0; row < m_rows; ++row) {
        if (y < m_button_height + (row + 1) * m_row_height) {
            return row;
        }
    }
    return -1;
}

RECT CRangeLadder::get_Placement(const RECT& button, const RECT& monitor) const {
    const LONG width = m_width + 1;
    const LONG height = get_Height();
    const LONG left = fitted(button.right, width, monitor.left, monitor.right);
    const LONG centre = button.top + (button.bottom - button.top) / 2;
    const LONG top = fitted(centre - height / 2, height, monitor.top, monitor.bottom);
    return {left, top, left + width, top + height};
}

bool CRangeLadder::put_HotRow(LONG row) {
    const bool changed = row != m_hot_row;
    m_hot_row = row;
    return changed;
}

double CRangeLadder::_price(LONG row) const {
    const LONG offset = _offset(row);
    if (offset >= ask_offset) {
        return m_market->get_Ask() + m_market->get_Step() * (offset - ask_offset);
    }
    if (offset <= bid_offset) {
        return m_market->get_Bid() + m_market->get_Step() * (offset - bid_offset);
    }
    return m_market->get_Mid();
}

void CRangeLadder::Recalculate() {
    for (LONG row = 0; row < m_rows; ++row) {
        m_prices[static_cast<std::size_t>(row)] = _price(row);
    }
}

std::array<double, 3> CRangeLadder::_anchors() const {
    return {m_market->get_Ask(), m_market->get_Mid(), m_market->get_Bid()};
}

void CRangeLadder::Follow() {
    const std::array<double, 3> now = _anchors();
    for (std::size_t side = 0; side < now.size(); ++side) {
        if (now[side] != m_followed[side]) {
            m_changed[side] = platform::port<platform::clock>::get().tick_count();
        }
    }
    m_followed = now;
    Recalculate();
}

void CRangeLadder::Open() {
    m_pos = first_pos;
    m_changed = {};
    m_followed = _anchors();
    Recalculate();
}

bool CRangeLadder::IsFresh(LONG row) const {
    const std::optional<DWORD>& changed = m_changed[static_cast<std::size_t>(get_Side(row))];
    // Ticks wrap.
    return changed && platform::port<platform::clock>::get().tick_count() - *changed < fresh_for;
}

double CRangeLadder::get_Price(LONG row) const {
    return m_prices.at(static_cast<std::size_t>(row));
}

CString CRangeLadder::get_Text(LONG row) const {
    return m_market->get_Format().ToTextEx(get_Price(row), m_market->get_MinMove());
}

int CRangeLadder::get_Side(LONG row) const {
    const LONG offset = _offset(row);
    if (offset >= ask_offset) {
        return 0;
    }
    return offset == mid_offset ? 1 : 2;
}

CRangeLadder::action CRangeLadder::Key(int code) {
    switch (code) {
        case key_escape:
            return action::hide;
        case key_prior:
        case key_pad9:
            Scroll(page);
            return action::moved;
        case key_next:
        case key_pad3:
            Scroll(-page);
            return action::moved;
        case key_up:
        case key_pad8:
            Scroll(1);
            return action::moved;
        case key_down:
        case key_pad2:
            Scroll(-1);
            return action::moved;
        default:
            return action::none;
    }
}

bool CRangeLadder::Wheel(int delta) {
    if (delta == 0) {
        return false;
    }
    Scroll(delta > 0 ? 1 : -1);
    return true;
}

double CRangeLadder::Pick(LONG row) {
    const double price = get_Price(row);
    m_pick = m_pos - row;
    return price;
}

bool CRangeLadder::Widen() {
    const CPriceToString& format = m_market->get_Format();
    const CString text = format.ToTextEx(m_market->get_Ask(), m_market->get_MinMove());
    const LONG needed = (format.Scale->GetTextWidthInChars(text) + 2) * m_char_width;
    if (needed <= m_width) {
        return false;
    }
    m_width = needed;
    return true;
}

bool CRangeLadder::ResetWidth() {
    const bool changed = m_width != first_width;
    m_width = first_width;
    return changed;
}

}  // namespace OV_OrderDeck
