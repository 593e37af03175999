// Names of keys, as menus show them.
#pragma once

#include "platform/text.h"

namespace Unicomp {

// A hot key holds the key code in its low 16 bits and the modifiers in its high 16.
constexpr DWORD hotkey_shift = 1;
constexpr DWORD hotkey_control = 2;
constexpr DWORD hotkey_alt = 4;
// The key is one of those beside the number pad.
constexpr DWORD hotkey_extended = 8;

constexpr DWORD make_hotkey(DWORD modifiers, DWORD code) {
    return modifiers << 16 | code;
}

// True for no hot key, 0, and for a key that has a name and may be used with these modifiers, or without
// any. Any thread; throws std::bad_alloc.
bool IsHotKeyValid(DWORD hotkey);

// The name of a hot key, such as "Ctrl + A"; empty for 0. False, with an empty text, when it isn't valid.
// Any thread; throws std::bad_alloc.
bool HotKeyToText(DWORD hotkey, CString& text);

}  // namespace Unicomp
