#include "hotkeys/hot_key_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace host {
namespace {

struct named_key {
    const char* name;
    std::uint32_t key;
};

constexpr std::array modifiers{
    named_key{"Ctrl", key_control},
    named_key{"Shift", key_shift},
    named_key{"Alt", key_alt},
};

constexpr std::array other_keys{
    named_key{"Page Up", 33 | key_extended}, named_key{"Page Down", 34 | key_extended},
    named_key{"End", 35 | key_extended},     named_key{"Home", 36 | key_extended},
    named_key{"Left", 37 | key_extended},    named_key{"Up", 38 | key_extended},
    named_key{"Right", 39 | key_extended},   named_key{"Down", 40 | key_extended},
    named_key{"Insert", 45 | key_extended},  named_key{"Delete", 46 | key_extended},
};

constexpr std::uint32_t first_function_key = 112;
constexpr std::uint32_t function_keys = 12;

std::string_view trim(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool same(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, lower, lower);
}

template <std::size_t Count>
std::uint32_t find(const std::array<named_key, Count>& keys, std::string_view name) {
    const auto found = std::ranges::find_if(keys, [&](const named_key& one) { return same(one.name, name); });
    return found == keys.end() ? 0 : found->key;
}

bool is_letter_or_digit(std::uint32_t code) {
    return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z');
}

// 0 for none.
std::uint32_t last_key(std::string_view name) {
    if (name.size() == 1) {
        const char upper = lower(name[0]) >= 'a' && lower(name[0]) <= 'z'
                               ? static_cast<char>(lower(name[0]) - 'a' + 'A')
                               : name[0];
        const auto code = static_cast<std::uint32_t>(static_cast<unsigned char>(upper));
        return is_letter_or_digit(code) ? code : 0;
    }
    std::uint32_t number = 0;
    const char* const end = name.data() + name.size();
    if (lower(name[0]) == 'f' && std::from_chars(name.data() + 1, end, number).ptr == end && number >= 1 &&
        number <= function_keys) {
        return first_function_key + number - 1;
    }
    return find(other_keys, name);
}

}  // namespace

std::optional<std::uint32_t> parse_key(std::string_view text) {
    if (same(trim(text), "None")) {
        return 0;
    }
    std::uint32_t key = 0;
    for (auto plus = text.find('+'); plus != std::string_view::npos; plus = text.find('+')) {
        const std::uint32_t modifier = find(modifiers, trim(text.substr(0, plus)));
        if (modifier == 0 || (key & modifier) != 0) {
            return std::nullopt;
        }
        key |= modifier;
        text.remove_prefix(plus + 1);
    }
    const std::string_view name = trim(text);
    const std::uint32_t last = name.empty() ? 0 : last_key(name);
    if (last == 0 || (is_letter_or_digit(last) && (key & (key_control | key_alt)) == 0)) {
        return std::nullopt;
    }
    return key | last;
}

std::string key_text(std::uint32_t key) {
    std::string text;
    for (const named_key& one : modifiers) {
        if ((key & one.key) != 0) {
            text += std::string(one.name) + " + ";
        }
    }
    const std::uint32_t last = key & ~(key_control | key_shift | key_alt);
    const auto other = std::ranges::find(other_keys, last, &named_key::key);
    if (is_letter_or_digit(last)) {
        return text + static_cast<char>(last);
    }
    if (last >= first_function_key && last < first_function_key + function_keys) {
        return text + "F" + std::to_string(last - first_function_key + 1);
    }
    return other == other_keys.end() ? std::string() : text + other->name;
}

std::vector<std::string> hot_key_table::read(std::istream& lines) {
    m_keys.clear();
    m_commands.clear();
    std::vector<std::string> problems;
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        const std::string_view content = trim(line);
        if (content.empty() || content[0] == '#') {
            continue;
        }
        const auto complain = [&](const std::string& why) {
            problems.push_back("line " + std::to_string(number) + ": " + why);
        };
        const auto equal = content.find('=');
        const std::string command(equal == std::string_view::npos ? std::string_view()
                                                                  : trim(content.substr(equal + 1)));
        if (command.empty()) {
            complain("no \"KEY = COMMAND\"");
            continue;
        }
        const std::string_view name = trim(content.substr(0, equal));
        const auto key = parse_key(name);
        if (!key) {
            complain("\"" + std::string(name) + "\" is no key");
        } else if (m_commands.contains(*key)) {
            complain("\"" + std::string(name) + "\" runs \"" + m_commands[*key] + "\" already");
        } else if (!m_keys.emplace(command, *key).second) {
            complain("\"" + command + "\" has a key already");
        } else if (*key != 0) {
            m_commands.emplace(*key, command);
        }
    }
    return problems;
}

std::optional<std::uint32_t> hot_key_table::key_of(std::string_view command) const {
    const auto found = m_keys.find(command);
    return found == m_keys.end() ? std::nullopt : std::optional(found->second);
}

const std::string* hot_key_table::command_of(std::uint32_t key) const {
    const auto found = m_commands.find(key);
    return found == m_commands.end() ? nullptr : &found->second;
}

std::string_view default_hot_keys() {
    return "# Keys of OrderDeck Host: KEY = COMMAND, one on a line. \"None\" takes a key away.\n"
           "# Read when the application starts.\n"
           "Ctrl + Shift + T = Toggle Connection\n"
           "Ctrl + Shift + S = Show Profile Settings\n"
           "Ctrl + Shift + P = Show Profile Editor\n"
           "Ctrl + Shift + M = Show Symbol Mapping\n"
           "Ctrl + Shift + X = Cancel All Orders\n";
}

}  // namespace host
