// The quantity calculator's dialog.
#pragma once

#include <windows.h>

#include <optional>

namespace host {

// Modal on the window that the owner is part of. The quantity that the user took, or nothing.
std::optional<LONG> calculate_quantity(HWND owner, LONG category);

}  // namespace host
