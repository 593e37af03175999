// The rule of the press, and nothing else: what the row showed has to read as what goes out.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/monkey/bits.h"
#include "tests/monkey/world.h"

namespace monkey {

struct seen_item {
    CString text;
    bool shown = false;
    bool enabled = false;
};

// What somebody saw who looked at the row.
struct seen_row {
    std::map<bit, seen_item> items;
    // Of the date, as the whole part of an OLE date.
    LONG day = 0;
    // By place in the world's list.
    int profile = 0;
};

// What the host got, and what it had been told before.
struct sent_order {
    int profile = 0;
    LONG action = 0;
    LONG category = 0;
    LONG quantity = 0;
    double stop_price = 0.0;
    double limit_price = 0.0;
    LONG time_in_force = 0;
    double date = 0.0;
    CString account;
    CString symbol;
    // The host took the symbol.
    bool symbol_taken = false;
};

// The items that do not read as what goes out, in words; none where the order keeps the rule.
std::vector<std::string> broken_items(const seen_row& seen, const sent_order& sent);

// What the lists say for an order's category and its time in force; empty for one that they do not have.
CString type_text(LONG category);
CString time_text(LONG code);
// The face of a button.
CString caption_of(LONG action, LONG category, LONG quantity);

// Looks at the row with other eyes: most numbers change nothing, the others make one item stale or wild.
void alter(seen_row& seen, int which);

}  // namespace monkey
