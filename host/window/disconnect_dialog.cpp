#include "window/disconnect_dialog.h"

#include "market/desk.h"
#include "window/dialog.h"
#include "window/resource.h"

namespace host {
namespace {

class disconnect_dialog final : public dialog {
public:
    disconnect_dialog(const std::string& profile, const std::vector<order>& live)
        : m_profile(profile), m_live(live) {}

private:
    void on_init() override {
        const bool single = m_live.size() == 1;
        const std::string count = single ? "1 live order" : std::to_string(m_live.size()) + " live orders";
        set_text(IDC_QUESTION, m_profile + " has " + count + (single ? ". It stays" : ". They stay") +
                                   " at the exchange, but this application can't cancel " +
                                   (single ? "it" : "them") + " until the profile is connected again.");
        add_columns(IDC_LIVE_ORDERS, {{"Order", 240}, {"Account", 100}, {"Status", 76}});
        std::vector<std::vector<std::string>> rows;
        for (const order& one : m_live) {
            rows.push_back(
                {describe(one.request), one.request.account, std::string(status_text(one.status))});
        }
        set_rows(IDC_LIVE_ORDERS, rows);
    }

    const std::string& m_profile;
    const std::vector<order>& m_live;
};

}  // namespace

bool may_disconnect(HWND owner, const std::string& profile, const std::vector<order>& live) {
    return disconnect_dialog(profile, live).run(owner, IDD_DISCONNECT) == IDOK;
}

}  // namespace host
