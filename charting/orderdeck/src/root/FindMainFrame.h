#pragma once

#include "platform/com.h"

namespace OV_OrderDeck {

// The owner of modal dialogs and message boxes: the host's main window, or else the active window of
// this thread, which may be null.
HWND FindMainFrame();

}  // namespace OV_OrderDeck
