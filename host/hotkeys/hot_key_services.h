// HotKeyServices.dll as this application itself uses it, beside what sdk/HotKeyServices.h tells of it.
// All calls on the thread of the window.
#pragma once

#include <cstdint>

extern "C" {

// Reads the keys from a file; a file that is not there is made, with the keys of a new installation.
// complain hears of each line that can't be used, UTF-8. 0 when the file can be neither read nor made.
std::int32_t HotKeyServices_Load(const wchar_t* path, void (*complain)(void* context, const char* text),
                                 void* context);

// The command that a key runs, UTF-8, null for none; it lives until the next load.
const char* HotKeyServices_CommandOf(std::uint32_t key);

// The key of a command, with which a menu is written; 0 for none.
std::uint32_t HotKeyServices_KeyOf(const char* command);
}
