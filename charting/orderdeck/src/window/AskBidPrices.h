#pragma once

#include <memory>
#include <optional>

#include "platform/com.h"
#include "unicomp/FormatUtil/interface/PriceToString.h"

namespace OV_OrderDeck {

// What the ask/bid button knows and shows, without its window. On the window's thread.
class CAskBidPrices {
public:
    // Modes: which price the button offers. Any other is none.
    static constexpr LONG ask_mode = 1;
    static constexpr LONG mid_mode = 2;
    static constexpr LONG bid_mode = 3;

    CAskBidPrices();

    double get_Ask() const { return m_ask; }
    double get_Bid() const { return m_bid; }
    // The mid of both on the symbol's grid.
    double get_Mid() const;
    // The price last chosen.
    double get_Value() const { return m_value; }
    LONG get_Mode() const { return m_mode; }
    bool IsIdle() const { return m_mode < ask_mode || m_mode > bid_mode; }
    bool IsDirty() const { return m_dirty; }
    const CPriceToString& get_Format() const { return *m_format; }
    LONG get_MinMove() const { return m_min_move; }
    // The step of the symbol, in prices; negative for a code with no step.
    double get_Step() const;

    void SetDirty() { m_dirty = true; }
    void put_Mode(LONG mode);
    void SetQuotes(double ask, double bid);
    // A minMove below 1 counts as 1. True when that is another scale or tick than before.
    bool SetFormat(LONG code, LONG minMove);

    // Takes the price of the mode for the chosen one; without a mode the former stays.
    void Choose();
    // Takes a price of the ladder, and the mode that goes with its position: 1 ask, 0 mid, -1 bid. Any
    // price and position are taken. A position away from these leaves the mode on purpose: such a price is
    // sent once.
    void Choose(LONG position, double price);

    // A quote that is not above 0 clears both.
    void ClearBadQuotes();
    // The button's text, which is up to date from now on. Call ClearBadQuotes first.
    CString TakeCaption(bool enabled);

    // The face of the mode; nothing without one.
    std::optional<COLORREF> get_Face() const;

private:
    double _price_of_mode() const;

    double m_ask = 0.0;
    double m_bid = 0.0;
    double m_value = 0.0;
    // Faces for ask, mid and bid.
    COLORREF m_colors[3];
    LONG m_mode = mid_mode;
    std::unique_ptr<CPriceToString> m_format;
    LONG m_min_move = 1;
    // The text needs redoing.
    bool m_dirty = true;
};

}  // namespace OV_OrderDeck
