#pragma once

namespace OV_OrderDeck {

class CTab;

// The rule that nearly all fields share: the tab's profile is connected and its symbol is valid. Asked
// anew at each call.
bool is_connected_with_symbol(CTab& tab);

}  // namespace OV_OrderDeck
