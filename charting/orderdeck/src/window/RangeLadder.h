#pragma once

#include <array>
#include <optional>
#include <vector>

#include "charting/orderdeck/src/window/AskBidPrices.h"

namespace OV_OrderDeck {

// Prices and measures of the range bar, without its window: seven prices round the market that can be
// scrolled. On the window's thread.
class CRangeLadder {
public:
    enum class action { none, moved, hide };

    // The prices are not owned and outlive the ladder.
    explicit CRangeLadder(const CAskBidPrices& market);

    // Takes the measures of a font: the width of the letters A to Z and a to z in one line, and its height.
    void SetFont(int alphabet_width, int height);

    LONG get_RowHeight() const { return m_row_height; }
    LONG get_ButtonHeight() const { return m_button_height; }
    LONG get_Rows() const { return m_rows; }
    LONG get_Width() const { return m_width; }
    LONG get_CharWidth() const { return m_char_width; }
    // Of the whole window: neighbouring rows share a line.
    LONG get_Height() const;
    RECT get_RowRect(LONG row) const;
    // The row of a height in the window; -1 for none. Rows are taken to be as high as they are drawn, so
    // that the lower rows begin a little higher up than the hit test finds them; the hot row, which follows
    // the same rule, shows what a click takes.
    LONG HitTest(LONG y) const;
    // Beside the button, centred on it, and moved to fit the monitor.
    RECT get_Placement(const RECT& button, const RECT& monitor) const;

    LONG get_Pos() const { return m_pos; }
    // Goes to its first place, with nothing that moved under the user's hand.
    void Open();
    LONG get_Pick() const { return m_pick; }
    LONG get_HotRow() const { return m_hot_row; }
    // True when that is another row than before.
    bool put_HotRow(LONG row);

    // Brings all prices up to date.
    void Recalculate();
    // The same after the quotes changed, whose time is noted.
    void Follow();
    // The quotes moved the row's price so lately that a press on it may be meant for the former one. What
    // the user moves himself counts for nothing, nor what moved before he opened it.
    bool IsFresh(LONG row) const;
    // Throws std::out_of_range.
    double get_Price(LONG row) const;
    CString get_Text(LONG row) const;
    // By its place in the market: 0 for the ask and above, 1 for the mid, 2 for the bid and below.
    int get_Side(LONG row) const;
    // True for the row of the ask, of the bid.
    bool IsAsk(LONG row) const { return _offset(row) == ask_offset; }
    bool IsBid(LONG row) const { return _offset(row) == bid_offset; }

    // Scrolls by a key; hide says that the key closes the bar.
    action Key(int code);
    // Scrolls by one, up for a positive delta. False when nothing moved.
    bool Wheel(int delta);
    void Scroll(LONG steps) { m_pos += steps; }
    // Marks the row as picked. Throws std::out_of_range for a row that is none.
    double Pick(LONG row);

    // Wide enough for the ask; never narrower than before. True when the width changed.
    bool Widen();
    // The width of a new symbol. True when the width changed.
    bool ResetWidth();

private:
    static constexpr LONG ask_offset = -2;
    static constexpr LONG mid_offset = -3;
    static constexpr LONG bid_offset = -4;

    // A row's place as the ladder counts it: upwards, and past the three anchors above.
    LONG _offset(LONG row) const { return m_pos - 3 - row; }
    double _price(LONG row) const;
    // Of ask, mid and bid, by side: all rows of a side move together.
    std::array<double, 3> _anchors() const;

    const CAskBidPrices* m_market;
    LONG m_row_height = 0;
    LONG m_button_height = 0;
    LONG m_rows = 7;
    LONG m_width = 40;
    std::vector<double> m_prices;
    // As they were followed last, and when they changed, by the system's ticks.
    std::array<double, 3> m_followed{};
    std::array<std::optional<DWORD>, 3> m_changed{};
    LONG m_pos = 3;
    LONG m_pick = 3;
    LONG m_char_width = 0;
    LONG m_char_height = 0;
    LONG m_hot_row = -1;
};

}  // namespace OV_OrderDeck
