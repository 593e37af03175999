#pragma once

#include <windows.h>

#include "platform/text.h"

namespace frame {

// The whole text of a window; empty for none.
CString window_text(HWND window);

}  // namespace frame
