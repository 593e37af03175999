// Small helpers round single windows.
#pragma once

#include "charting/orderdeck/interface/IUnifyControl.h"
#include "platform/text.h"
#include "platform/win32/frame/window_text.h"

namespace OV_OrderDeck {

using frame::window_text;

// The value of a field as text. Throws _com_error when it is none.
CString text_of_value(IUnifyControl& field);

// Makes the list of a combo box as wide as its longest item, however narrow the box is.
void widen_list(HWND combo);

}  // namespace OV_OrderDeck
