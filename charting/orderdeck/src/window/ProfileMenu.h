// The right-click menu of a profile, shared by bar and panel.
#pragma once

#include <map>

#include "OrderDeck.h"
#include "charting/orderdeck/src/root/ProfileWrap.h"

namespace OV_OrderDeck {

namespace details {

using command_map = std::map<UINT, com_ptr<IOD_ProfileCmd>>;

// Appends the line of one command and notes the command under its kind. A kind that does not exist for
// the profile adds nothing; a command that can't tell its name or state, or a line that can't be
// appended, is reported and adds nothing.
void _append_menu_item(UINT kind, const com_ptr<CProfileWrap>& profile, HMENU menu, command_map& commands);

}  // namespace details

// Shows the menu at a screen point and runs what the user chose. Modal; on the bar's thread. Throws
// _com_error when there can be no menu.
void run_profile_menu(HWND owner, POINT at, const com_ptr<CProfileWrap>& profile);

// Runs a command that is usable. That it can't tell, is not usable or fails is reported and nothing more.
void run_if_enabled(IOD_ProfileCmd& command);

}  // namespace OV_OrderDeck
