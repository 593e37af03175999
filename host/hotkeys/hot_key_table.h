// Which key runs which command of this application.
#pragma once

#include <cstdint>
#include <istream>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// The kind under which this application's commands are known to those who ask for keys.
inline constexpr std::uint32_t trading_commands = 10;

// A key has its key code in the low 16 bits and its modifiers in the high 16.
inline constexpr std::uint32_t key_shift = 1u << 16;
inline constexpr std::uint32_t key_control = 2u << 16;
inline constexpr std::uint32_t key_alt = 4u << 16;
// One of the keys beside the number pad.
inline constexpr std::uint32_t key_extended = 8u << 16;

// "Ctrl + Shift + M", "F9", "Alt + Page Up"; blanks and the case of letters don't matter. 0 for "None".
// Nothing for any other text, and for a key that would keep people from typing: a letter or a digit wants
// Ctrl or Alt.
std::optional<std::uint32_t> parse_key(std::string_view text);

// The same the other way round; empty for 0 and for a key without a name.
std::string key_text(std::uint32_t key);

class hot_key_table {
public:
    // Reads lines "KEY = COMMAND", UTF-8; empty lines and those that begin with # say nothing. Replaces
    // what was there. Gives a text for people about each line that could not be used; the others count.
    std::vector<std::string> read(std::istream& lines);

    // The key of a command, 0 for one that is to have none; nothing for a command that is not in the list.
    std::optional<std::uint32_t> key_of(std::string_view command) const;

    // The command of a key, or null.
    const std::string* command_of(std::uint32_t key) const;

private:
    std::map<std::string, std::uint32_t, std::less<>> m_keys;
    std::map<std::uint32_t, std::string> m_commands;
};

// The lines that a new file begins with.
std::string_view default_hot_keys();

}  // namespace host
