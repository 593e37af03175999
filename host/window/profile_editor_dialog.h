// The dialog that lists, adds and removes profiles.
#pragma once

#include <windows.h>

#include "centre/profiles.h"

namespace host {

// Modal on the owner.
void show_profile_editor(HWND owner, profiles& all);

}  // namespace host
