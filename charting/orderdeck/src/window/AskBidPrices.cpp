#include "charting/orderdeck/src/window/AskBidPrices.h"

#include <algorithm>
#include <iterator>

#include "charting/orderdeck/src/window/LadderColours.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr UINT no_quotes_text = 140;
constexpr LONG no_scale = -1;

}  // namespace

CAskBidPrices::CAskBidPrices() : m_format(std::make_unique<CPriceToString>(no_scale)) {
    std::copy(std::begin(ladder_colours), std::end(ladder_colours), std::begin(m_colors));
}

double CAskBidPrices::get_Mid() const {
    return m_format->Scale->Round((m_ask + m_bid) * 0.5, m_min_move);
}

double CAskBidPrices::get_Step() const {
    return m_format->Scale->GetStep(m_min_move);
}

void CAskBidPrices::put_Mode(LONG mode) {
    m_dirty = m_dirty || mode != m_mode;
    m_mode = mode;
}

void CAskBidPrices::SetQuotes(double ask, double bid) {
    m_dirty = m_dirty || ask != m_ask || bid != m_bid;
    m_ask = ask;
    m_bid = bid;
}

bool CAskBidPrices::SetFormat(LONG code, LONG minMove) {
    const LONG move = std::max<LONG>(minMove, 1);
    const bool changed = code != m_format->Code || move != m_min_move;
    m_dirty = true;
    m_format = std::make_unique<CPriceToString>(code);
    m_min_move = move;
    return changed;
}

double CAskBidPrices::_price_of_mode() const {
    switch (m_mode) {
        case ask_mode:
            return m_ask;
        case mid_mode:
            return get_Mid();
        default:
            return m_bid;
    }
}

void CAskBidPrices::Choose() {
    if (!IsIdle()) {
        m_value = _price_of_mode();
    }
}

void CAskBidPrices::Choose(LONG position, double price) {
    m_value = price;
    m_dirty = true;
    if (position >= -1 && position <= 1) {
        m_mode = mid_mode - position;
    }
}

void CAskBidPrices::ClearBadQuotes() {
    if (!(m_ask > 0.0) || !(m_bid > 0.0)) {
        m_ask = 0.0;
        m_bid = 0.0;
    }
}

CString CAskBidPrices::TakeCaption(bool enabled) {
    CString text = enabled && !IsIdle() && m_ask > 0.0 ? m_format->ToTextEx(_price_of_mode(), m_min_move)
                                                       : resource_string::text(no_quotes_text);
    // The blank keeps the text off the drop-down part.
    text += L' ';
    m_dirty = false;
    return text;
}

std::optional<COLORREF> CAskBidPrices::get_Face() const {
    if (IsIdle()) {
        return {};
    }
    return m_colors[m_mode - 1];
}

}  // namespace OV_OrderDeck
