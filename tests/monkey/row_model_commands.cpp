// What can be done with a profile: its commands, and the ways to connect and to leave.
#include "tests/monkey/row_model.h"
#include "tests/support/host_record.h"

namespace monkey {

// As the fake host writes them: by the profile's first name.
void row_model::profile_call(const std::string& operation) {
    const CString& first = profiles().at(static_cast<std::size_t>(profile)).name;
    m_out.calls.push_back("Profile(" + test::quoted(first) + ")." + operation);
}

void row_model::connect() {
    query_state();
    if (m_state == 768 || m_state == 512) {
        return;
    }
    profile_call("Connect()");
    if (m_host.fails(broken::connect)) {
        m_out.assertions.emplace_back("*");
    }
}

bool row_model::disconnect() {
    query_state();
    if (m_state != 768 && m_state != 512) {
        return true;
    }
    m_out.calls.emplace_back("Class(\"DisconnectConfirmer\").CreateInstance()");
    bool made = !m_host.fails(broken::confirmer_class);
    if (made) {
        m_out.calls.emplace_back("DisconnectConfirmer.Run()");
        made = !m_host.fails(broken::confirmer_start);
    }
    if (!made) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004005"};
    }
    const CString& now = m_host.profiles.at(static_cast<std::size_t>(profile)).name;
    m_out.calls.push_back("DisconnectConfirmer.Confirm(frame, " + test::quoted(now) + ")");
    bar.asked();
    // A confirmer that fails has refused nothing.
    if (!m_host.fails(broken::confirm) && m_host.refused != 0) {
        m_host.refused -= 1;
        if (m_host.refused == 0) {
            return false;
        }
    }
    profile_call("Disconnect()");
    if (m_host.fails(broken::disconnect)) {
        m_out.assertions.emplace_back("*");
    }
    return true;
}

// Asked once for the life of the tab, whatever the answer.
bool row_model::have_settings() {
    if (!m_have_settings) {
        const bool fails = m_host.fails(broken::have_settings);
        if (fails) {
            m_out.assertions.emplace_back("S_OK == hr");
        }
        m_have_settings = !fails && m_host.profiles.at(static_cast<std::size_t>(profile)).have_settings;
    }
    return *m_have_settings;
}

void row_model::toggle_connection() {
    if (m_state == 768 || m_state == 512) {
        disconnect();
    } else {
        connect();
    }
}

void row_model::edit_profile() {
    if (m_state != 256) {
        box(name + L" 已連線，目前無法調整設定。\n請先中斷連線。", 0);
        return;
    }
    const locked lock(m_host, m_out);
    profile_call("ShowSettings(frame)");
    if (m_host.fails(broken::show_settings)) {
        m_out.assertions.emplace_back("*");
    }
}

void row_model::map_symbols() {
    m_out.calls.emplace_back("Class(\"SymbolMapping\").CreateInstance()");
    if (m_host.fails(broken::mapping_class)) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004003"};
    }
    const locked lock(m_host, m_out);
    m_out.calls.push_back("SymbolMapping.ShowDialog(bar, " + test::quoted(name) + ")");
    if (m_host.fails(broken::mapping)) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004005"};
    }
}

std::string row_model::command_name(int command) const {
    const bool up = m_state == 768 || m_state == 512;
    switch (command) {
        case 10:
            return test::narrow((up ? L"斷線 " : L"連線 ") + name);
        case 11:
            return test::narrow(L"設定經紀商 " + name);
        default:
            return test::narrow(L"商品轉換...");
    }
}

void row_model::run_command(int command) {
    if (command == 10) {
        toggle_connection();
    } else if (command == 11) {
        edit_profile();
    } else {
        map_symbols();
    }
}

locked::locked(const host_model& host, outcome& out) : m_host(host), m_out(out) {
    m_out.calls.emplace_back("lock");
    if (m_host.fails(broken::lock)) {
        m_out.assertions.emplace_back("*");
    }
}

locked::~locked() {
    m_out.calls.emplace_back("unlock");
    if (m_host.fails(broken::lock)) {
        m_out.assertions.emplace_back("*");
    }
}

}  // namespace monkey
