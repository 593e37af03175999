// The button that shows the quotes, and the ladder of prices beside it.
#pragma once

#include <array>
#include <optional>

#include "platform/text.h"

namespace monkey {

class quotes_model {
public:
    void put_usable(bool usable);
    bool usable() const { return m_usable; }
    void put_format(LONG code, LONG min_move);
    // Without quotes there is no side that could be offered.
    void put_quotes(std::optional<std::pair<double, double>> bid_and_ask);
    const CString& caption() const { return m_caption; }

    // Milliseconds.
    void pass_time(int ticks) { m_now += ticks; }

    // A press on the price; what it asks for.
    double press();
    // A press beside it.
    void toggle_ladder();
    void hide_ladder() { m_open = false; }
    bool ladder_is_open() const { return m_open; }
    void scroll(int rows);
    // The price of a row, 0 the upmost, which goes out. None when the quotes moved it just now.
    std::optional<double> pick(int row);

private:
    void draw();
    void work_out_rows();
    // Of the ask, the middle and the bid.
    std::array<double, 3> anchors() const { return {m_ask, middle(), m_bid}; }
    void note_moves();
    double middle() const;
    double offered() const;

    double m_ask = 0.0;
    double m_bid = 0.0;
    LONG m_code = -1;
    LONG m_min_move = 1;
    // 1 the ask, 2 the middle, 3 the bid, 0 none.
    int m_side = 0;
    bool m_usable = true;
    bool m_changed = true;
    double m_hit = 0.0;
    CString m_caption = L"AskBid";
    bool m_open = false;
    int m_position = 3;
    std::array<double, 7> m_rows{};
    int m_now = 0;
    std::array<double, 3> m_anchors{};
    std::array<std::optional<int>, 3> m_moved_at{};
};

}  // namespace monkey
