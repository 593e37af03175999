// The dialog that shows and edits which data feed serves a broker's symbols.
#pragma once

#include <windows.h>

#include <string>

namespace host {

// Modal on the owner. True when the feed was changed.
bool show_symbol_mapping(HWND owner, const std::string& profile, const std::string& plugin);

}  // namespace host
