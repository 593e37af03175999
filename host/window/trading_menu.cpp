#include "window/trading_menu.h"

#include "com/text.h"
#include "hotkeys/hot_key_services.h"
#include "hotkeys/hot_key_table.h"
#include "window/resource.h"

namespace host {
namespace {

// The profile that a line of the bar is about stands behind the first blank.
std::string profile_of(const std::string& text) {
    const auto blank = text.find(' ');
    return blank == std::string::npos ? std::string() : text.substr(blank + 1);
}

std::wstring with_key(const std::string& text, const std::string& command) {
    const std::uint32_t key = command.empty() ? 0 : HotKeyServices_KeyOf(command.c_str());
    return to_wide(key == 0 ? text : text + "\t" + key_text(key));
}

}  // namespace

std::string literal_menu_text(std::string text) {
    for (auto at = text.find('&'); at != std::string::npos; at = text.find('&', at + 2)) {
        text.insert(at, 1, '&');
    }
    return text;
}

void trading_menu::refresh(const std::string& active, std::vector<menu_command> own) {
    m_lines.clear();
    add_bar_lines(active);
    m_lines.emplace_back();
    for (menu_command& one : own) {
        m_lines.push_back({one.name, one.text, one.enabled, false, std::move(one.run)});
    }
}

void trading_menu::add_bar_lines(const std::string& active) {
    const std::vector<bar_command> lines = m_bar.commands();
    for (std::size_t index = 0; index < lines.size(); ++index) {
        const bar_command& one = lines[index];
        // The editor of profiles is the last of the bar's lines.
        const bool is_editor = index + 1 == lines.size();
        const bool is_active = !is_editor && !active.empty() && profile_of(one.name) == active;
        const std::string command = is_editor ? "Show Profile Editor" : is_active ? "Toggle Connection" : "";
        m_lines.push_back(
            {command, literal_menu_text(one.name), one.enabled, one.checked, [run = one.command] {
                 if (run != nullptr) {
                     run->Execute();
                 }
             }});
    }
}

void trading_menu::fill(HMENU menu) const {
    UINT id = IDM_PROFILE_FIRST;
    for (const line& one : m_lines) {
        const UINT flags = (one.enabled ? MF_ENABLED : MF_GRAYED) | (one.checked ? MF_CHECKED : MF_UNCHECKED);
        if (one.text.empty() && one.command.empty()) {
            AppendMenuW(menu, MF_SEPARATOR, id, nullptr);
        } else if (!one.text.empty()) {
            AppendMenuW(menu, MF_STRING | flags, id, with_key(one.text, one.command).c_str());
        }
        ++id;
    }
}

bool trading_menu::run_line(int id) {
    const auto index = static_cast<std::size_t>(id - IDM_PROFILE_FIRST);
    if (index >= m_lines.size() || !m_lines[index].enabled || !m_lines[index].run) {
        return false;
    }
    // A copy: what runs may open a loop in which the lines are made anew.
    const std::function<void()> run = m_lines[index].run;
    run();
    return true;
}

bool trading_menu::run_command(const std::string& name) {
    for (std::size_t index = 0; index < m_lines.size(); ++index) {
        if (m_lines[index].command == name) {
            return run_line(IDM_PROFILE_FIRST + static_cast<int>(index));
        }
    }
    return false;
}

void trading_menu::clear() {
    m_lines.clear();
}

std::uint32_t pressed_key(const MSG& message) {
    constexpr LPARAM was_down = 1 << 30;
    constexpr LPARAM is_extended = 1 << 24;
    if ((message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) ||
        (message.lParam & was_down) != 0) {
        return 0;
    }
    const auto held = [](int key) { return GetKeyState(key) < 0; };
    auto key = static_cast<std::uint32_t>(message.wParam);
    const bool may_be_extended = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
    key |= may_be_extended && (message.lParam & is_extended) != 0 ? key_extended : 0;
    key |= held(VK_SHIFT) ? key_shift : 0;
    key |= held(VK_CONTROL) ? key_control : 0;
    key |= held(VK_MENU) ? key_alt : 0;
    return key;
}

}  // namespace host
