#include "window/profile_settings_dialog.h"

#include <sstream>

#include "window/dialog.h"
#include "window/resource.h"

namespace host {
namespace {

class profile_settings_dialog final : public dialog {
public:
    explicit profile_settings_dialog(profile_record& record) : m_record(record) {}

private:
    void on_init() override {
        set_text(IDC_SETTINGS_NAME, m_record.name);
        set_text(IDC_SETTINGS_BROKER, m_record.plugin);
        std::string lines;
        for (const std::string& account : m_record.accounts) {
            lines += (lines.empty() ? "" : "\r\n") + account;
        }
        set_text(IDC_ACCOUNTS, lines);
        SendDlgItemMessageW(window(), IDC_DELAY_SPIN, UDM_SETRANGE32, 0, most_delay);
        SendDlgItemMessageW(window(), IDC_REJECT_SPIN, UDM_SETRANGE32, 0, 100);
        UDACCEL hundreds{0, 100};
        SendDlgItemMessageW(window(), IDC_DELAY_SPIN, UDM_SETACCEL, 1, reinterpret_cast<LPARAM>(&hundreds));
        SetDlgItemInt(window(), IDC_DELAY, m_record.connect_delay, FALSE);
        SetDlgItemInt(window(), IDC_REJECT, m_record.reject_percent, FALSE);
    }

    void on_button(int id) override {
        if (id != IDOK) {
            dialog::on_button(id);
            return;
        }
        profile_record wanted = m_record;
        wanted.accounts.clear();
        std::istringstream lines(text(IDC_ACCOUNTS));
        for (std::string line; std::getline(lines, line);) {
            line.erase(0, line.find_first_not_of(" \t\r"));
            line.erase(line.find_last_not_of(" \t\r") + 1);
            if (!line.empty()) {
                wanted.accounts.push_back(line);
            }
        }
        // A number that is too large to be read is too large in any case.
        BOOL read = FALSE;
        wanted.connect_delay = GetDlgItemInt(window(), IDC_DELAY, &read, FALSE);
        wanted.connect_delay =
            read == FALSE && !text(IDC_DELAY).empty() ? most_delay + 1 : wanted.connect_delay;
        wanted.reject_percent = GetDlgItemInt(window(), IDC_REJECT, &read, FALSE);
        wanted.reject_percent = read == FALSE && !text(IDC_REJECT).empty() ? 101 : wanted.reject_percent;
        const std::string problem = settings_problem(wanted);
        if (!problem.empty()) {
            complain(problem, wanted.connect_delay > most_delay ? IDC_DELAY
                              : wanted.reject_percent > 100     ? IDC_REJECT
                                                                : IDC_ACCOUNTS);
            return;
        }
        m_record = wanted;
        end(IDOK);
    }

    profile_record& m_record;
};

}  // namespace

bool show_profile_settings(HWND owner, profile_record& record) {
    return profile_settings_dialog(record).run(owner, IDD_PROFILE_SETTINGS) == IDOK;
}

}  // namespace host
