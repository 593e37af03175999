// The key column of a popup menu.
#pragma once

#include <windows.h>

#include "charting/orderdeck/src/window/MenuHotKeys.h"

namespace OV_OrderDeck {

// Writes behind each item of the menu, and of its submenus at any depth, the key that the host has bound to
// its command. Deliberate: an item without a key keeps any key text that it had, since a host may have
// written it there; only a key with an empty text removes it. Nothing happens when
// the menu is none or the mapper is empty; nothing is reported. On the window's thread.
void AddHotKeysToMenu(HMENU menu, const command_mapper& mapper,
                      const hotkeys::CHotKeyLibrary& library = hotkeys::CHotKeyLibrary::installed());

}  // namespace OV_OrderDeck
