// The dialog for the settings of one profile.
#pragma once

#include <windows.h>

#include "centre/profile_store.h"

namespace host {

// Modal on the owner. True when the user accepted; the record then has accounts, delay and reject rate as
// they are to be.
bool show_profile_settings(HWND owner, profile_record& record);

}  // namespace host
