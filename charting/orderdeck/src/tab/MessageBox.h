#pragma once

#include "platform/text.h"

namespace OV_OrderDeck {

// A modal message to the user, owned by the host's main window and headed by the host's product name.
// The host knows for its length that a modal action runs. flags: MB_...; gives ID..., 0 on failure.
// Belongs on the bar's thread; messages of that thread are dispatched meanwhile.
int OrderDeckMessageBox(const CString& text, UINT flags);

}  // namespace OV_OrderDeck
