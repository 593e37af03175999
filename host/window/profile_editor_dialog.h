// The dialog that lists, adds, renames, moves and removes profiles.
#pragma once

#include <windows.h>

#include <functional>

#include "centre/profiles.h"

namespace host {

// Modal on the owner. may_remove asks before a profile with live orders is taken out.
void show_profile_editor(HWND owner, profiles& all,
                         std::function<bool(HWND owner, const profile& one)> may_remove);

}  // namespace host
