#include "tests/monkey/quotes_model.h"

#include "tests/monkey/price_model.h"

namespace monkey {

void quotes_model::put_usable(bool usable) {
    m_changed = m_changed || usable != m_usable;
    m_usable = usable;
    m_open = m_open && usable;
}

void quotes_model::put_format(LONG code, LONG min_move) {
    m_open = m_open && code == m_code && min_move == m_min_move;
    m_code = code;
    m_min_move = min_move;
    m_changed = true;
    draw();
}

void quotes_model::put_quotes(std::optional<std::pair<double, double>> bid_and_ask) {
    if (bid_and_ask) {
        const auto [bid, ask] = *bid_and_ask;
        m_changed = m_changed || ask != m_ask || bid != m_bid || m_side == 0;
        m_ask = ask;
        m_bid = bid;
        m_side = m_side == 0 ? 2 : m_side;
    } else {
        m_changed = m_changed || m_side != 0;
        m_side = 0;
    }
    draw();
}

double quotes_model::middle() const {
    return on_grid((m_ask + m_bid) * 0.5, m_code, m_min_move);
}

double quotes_model::offered() const {
    return m_side == 1 ? m_ask : m_side == 2 ? middle() : m_bid;
}

void quotes_model::draw() {
    if (!m_changed) {
        return;
    }
    if (!(m_ask > 0.0 && m_bid > 0.0)) {
        m_ask = m_bid = 0.0;
    }
    note_moves();
    work_out_rows();
    const bool shows_price = m_usable && m_side != 0 && m_ask > 0.0;
    m_caption = (shows_price ? price_to_text(offered(), m_code, m_min_move) : L"買價/賣價") + L" ";
    m_changed = false;
    if (m_side == 0) {
        m_usable = m_open = false;
    }
}

void quotes_model::note_moves() {
    const std::array<double, 3> now = anchors();
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (now[i] != m_anchors[i]) {
            m_moved_at[i] = m_now;
        }
    }
    m_anchors = now;
}

// Two above the ask, the ask, the middle, the bid, and two below it, moved by what was scrolled.
void quotes_model::work_out_rows() {
    const double step = step_of(m_code) * m_min_move;
    for (int row = 0; row < 7; ++row) {
        const int above_ask = m_position - 1 - row;
        const int above_bid = m_position + 1 - row;
        m_rows[static_cast<std::size_t>(row)] = above_ask >= 0   ? m_ask + step * above_ask
                                                : above_bid <= 0 ? m_bid + step * above_bid
                                                                 : middle();
    }
}

double quotes_model::press() {
    m_open = false;
    if (m_side != 0) {
        m_hit = offered();
    }
    return m_hit;
}

void quotes_model::toggle_ladder() {
    m_position = 3;
    work_out_rows();
    m_anchors = anchors();
    m_moved_at = {};
    m_open = !m_open;
}

void quotes_model::scroll(int rows) {
    m_position += rows;
    work_out_rows();
}

std::optional<double> quotes_model::pick(int row) {
    constexpr int reaction = 300;
    const int position = m_position - row;
    const std::optional<int>& moved = m_moved_at.at(position > 0 ? 0 : position == 0 ? 1 : 2);
    if (moved && m_now - *moved < reaction) {
        return {};
    }
    m_hit = m_rows.at(static_cast<std::size_t>(row));
    if (position >= -1 && position <= 1) {
        m_side = 2 - position;
    }
    m_changed = true;
    draw();
    m_open = false;
    return m_hit;
}

}  // namespace monkey
