#pragma once

#include <array>
#include <bit>
#include <vector>

#include "charting/orderdeck/interface/OD_UpdateEntity.h"
#include "platform/com.h"
#include "platform/text.h"

namespace OV_OrderDeck {

// Who pressed Buy or Sell.
enum class EPressSource : LONG { Mouse = 1, Key = 2, Program = 3 };

// One item of the order row as it stood on the screen. What is not shown has no text.
struct SShownItem {
    CString text;
    bool shown = false;
    bool enabled = false;
};

// What the order row showed when a press of Buy or Sell began, before the focus moved: the text of each
// item, the chosen row of a list, the caption of a button, the day of the date.
class CRowSight {
public:
    // Throws std::out_of_range for anything but one bit of a field.
    SShownItem& operator[](OD_UpdateEntity entity) { return m_items.at(_place(entity)); }
    const SShownItem& operator[](OD_UpdateEntity entity) const { return m_items.at(_place(entity)); }

    EPressSource source = EPressSource::Program;
    // Day number of the date shown, 0 for none.
    LONG day = 0;

private:
    static std::size_t _place(OD_UpdateEntity entity) {
        constexpr int first_bit = std::countr_zero(static_cast<unsigned>(eODUE_Symbol));
        return static_cast<std::size_t>(std::countr_zero(static_cast<unsigned>(entity)) - first_bit);
    }

    std::array<SShownItem, 11> m_items;
};

// Why a press sent nothing, item by item.
struct SRowDifference {
    enum class Kind {
        // The text reads as another value than would be sent.
        Other,
        // The text reads as no value, or as more than one.
        Unreadable,
        // The host changed the item inside one of its own calls.
        ByHost,
        // There is no symbol.
        NoSymbol,
        // The button can no longer be used.
        Unusable,
        // An order of this row is under way.
        UnderWay
    };

    OD_UpdateEntity entity;
    Kind kind;
    // As it was shown, and what would have been sent; for Other alone, shown for Unreadable too.
    CString shown;
    CString sent;
};

using row_differences = std::vector<SRowDifference>;

// What Buy and Sell offer beside the operations of every field.
class IPressedButton {
public:
    // Selects the button, and so sends the order, if every visible item of the sight reads as what would be
    // sent. Otherwise nothing goes out, and what differs is given. Nothing is given either when a message has
    // told the user why. May show a message and dispatch others. Throws _com_error when a field other than a
    // price lacks its value.
    virtual row_differences Press(const CRowSight& sight) = 0;

protected:
    ~IPressedButton() = default;
};

// One sentence for the user: what differs, and what to do.
CString TextOfDifferences(const row_differences& differences);

}  // namespace OV_OrderDeck
