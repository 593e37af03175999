#pragma once

#include "platform/win32/frame/message_map.h"

namespace frame {

// Hands what a control asks of its owner back to the control, as the same message moved up by OCM__BASE:
// commands, drawing of buttons, and colours of buttons and edits. What the control declines, and every other
// message, is declined.
answer reflect(UINT uMsg, WPARAM wParam, LPARAM lParam);

}  // namespace frame
