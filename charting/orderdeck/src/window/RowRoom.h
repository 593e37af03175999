#pragma once

#include "charting/orderdeck/src/window/LayoutPanel.h"

namespace OV_OrderDeck {

// Gives the lists and the quotes of the order row the width that their longest text takes in the user's
// font, and moves what stands to the right of them along. The template's boxes are narrower than the
// texts, and a trader must be able to read what is chosen. Once, before the layout learns where the items
// stand; an item that is wide enough stays as it is. On the window's thread.
void make_room_for_texts(HWND panel, CLayoutPanel& layout);

}  // namespace OV_OrderDeck
