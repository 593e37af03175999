// Which hot key stands behind which line of a menu. On the window's thread.
#pragma once

#include <functional>

#include "charting/orderdeck/src/window/HKHandler.h"

namespace OV_OrderDeck {

// From the id of a menu's item to the command that the host binds keys to.
using command_mapper = std::function<hotkeys::CommandsMap::cmd_id(UINT id)>;

// The mapper of the bar's own menus; the empty command for an item that has none.
hotkeys::CommandsMap::cmd_id CommandIdFromMenuId(UINT id);

// The text of the key that the host has bound to the item's command. The text may be empty. False when
// there is no key, or one that has no text; nothing is reported.
bool GetMenuHotKeyText(UINT id, CString& text, const command_mapper& mapper,
                       const hotkeys::CHotKeyLibrary& library = hotkeys::CHotKeyLibrary::installed());

// An item's text with the key in its column; a key that was there is replaced, or removed by an empty one.
CString WithHotKey(const CString& item, const CString& key);

}  // namespace OV_OrderDeck
