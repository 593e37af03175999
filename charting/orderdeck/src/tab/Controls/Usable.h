#pragma once

namespace OV_OrderDeck {

class CTab;

// What the fields ask of their tab to know whether they are usable. Worked out anew at each call.

// The last known state of the tab's profile is connected.
bool is_connected(CTab& tab);
// The tab's symbol is valid.
bool has_symbol(CTab& tab);

// The rule that nearly all fields share.
inline bool is_connected_with_symbol(CTab& tab) {
    return is_connected(tab) && has_symbol(tab);
}

}  // namespace OV_OrderDeck
