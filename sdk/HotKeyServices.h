// HotKeyServices.dll: the host's hot keys, as a bar asks for them when it shows a menu.
//
// The library is optional. It lies in the host's program folder and exports the four functions below by
// their undecorated names; a library that lacks one of them is not used. All calls come on the thread of
// the bar's window, between HKHandler_Construct and HKHandler_Destruct of the same handler.
#pragma once

#include <cstddef>
#include <cstdint>

namespace hotkeys {

// What the library knows of its commands; only the library looks into it.
struct commands;

// Room for the library's handler, on the stack of whoever asks.
struct handler_room {
    void* words[4];
};

// Which command is asked for.
struct command_record {
    std::uint32_t kind;
    // Ends with 0, never null, and lives as long as the call.
    const wchar_t* text;
    // An object of the asker that tells one command from another of the same text; null for none. The
    // library compares it and keeps it no longer than the call.
    const void* reference;
    // Always null: the asker counts its object itself.
    const void* counter;
};

static_assert(offsetof(command_record, text) == 8 && offsetof(command_record, reference) == 16 &&
              sizeof(command_record) == 32);

extern "C" {
// Prepares the room. 0 when there are no commands now; the handler is then not destructed.
using HKHandler_Construct = std::int32_t(handler_room* handler);
using HKHandler_Destruct = void(handler_room* handler);
// The commands, which live as long as the handler; null for none.
using HKHandler_GetCommands = const commands*(handler_room* handler);
// Not 0 when a key is bound to the command. The key has its key code in the low 16 bits and its modifiers
// in the high 16: 1 shift, 2 control, 4 alt, 8 one of the keys beside the number pad. The key 0 says that
// the command has none and that no menu is to show one.
using CommandsMap_get_key = std::int32_t(const commands* all, const command_record* command,
                                         std::uint32_t* key);
}

}  // namespace hotkeys
