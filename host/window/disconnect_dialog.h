// Asks whether a profile whose orders are live may be disconnected.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "market/order.h"

namespace host {

// Modal on the owner; true is yes. Staying connected is what Enter and Esc do.
bool may_disconnect(HWND owner, const std::string& profile, const std::vector<order>& live);

}  // namespace host
