// The menus of the host and of the bar, and what comes in between while a question is open.
#include "tests/monkey/bar_model.h"
#include "tests/support/host_record.h"

namespace monkey {

namespace {

constexpr int profile_commands[] = {10, 11, 15};

}  // namespace

void bar_model::profile_menu(row_model& row, int which) {
    const int chosen = which % 5;
    std::string lines = "menu:";
    for (const int id : profile_commands) {
        const bool grey = id == 11 && !row.have_settings();
        lines += " " + std::to_string(id) + "=" + row.command_name(id) + (grey ? " grey" : "");
    }
    m_out.calls.push_back(lines);
    if (chosen >= 3 || (chosen == 1 && !row.have_settings())) {
        return;
    }
    row.run_command(profile_commands[chosen]);
}

void bar_model::edit_profiles() {
    const locked lock(m_host, m_out);
    m_out.calls.emplace_back("Class(\"ProfileEditor\").CreateInstance()");
    if (m_host.fails(broken::editor_class)) {
        throw raised{"0x80004005"};
    }
    m_out.calls.emplace_back("ProfileEditor.Run()");
    if (m_host.fails(broken::editor_start)) {
        throw raised{"0x80004005"};
    }
    m_out.calls.emplace_back("ProfileEditor.Show(frame)");
}

// One line for each name; of two profiles with one name the one that came first.
void bar_model::host_menu(int which) {
    fill();
    std::map<CString, row_model*> by_name;
    for (const auto& row : m_rows) {
        if (!by_name.try_emplace(row->name, row.get()).second) {
            m_out.assertions.emplace_back("isOK");
        }
    }
    std::vector<row_model*> lines;
    std::string menu = "menu:";
    for (const auto& [name, row] : by_name) {
        lines.push_back(row);
        menu += " " + row->command_name(10);
    }
    m_out.calls.push_back(menu + (lines.empty() ? "" : " -") + " 設定經紀商...");
    const std::size_t count = lines.empty() ? 1 : lines.size() + 2;
    const std::size_t chosen = static_cast<std::size_t>(which) % count;
    if (chosen < lines.size()) {
        lines[chosen]->run_command(10);
    } else if (chosen + 1 == count) {
        edit_profiles();
    } else {
        // The separator does nothing.
        throw raised{"0x00000001"};
    }
}

void bar_model::asked() {
    if (!m_interrupt) {
        return;
    }
    const action event = *m_interrupt;
    m_interrupt.reset();
    try {
        dispatch(event);
    } catch (const raised& failure) {
        raised_inside(failure);
    }
}

}  // namespace monkey
