#include "window/symbol_mapping_dialog.h"

#include <algorithm>

#include "centre/profiles.h"
#include "centre/symbol_record.h"
#include "market/instruments.h"
#include "window/dialog.h"
#include "window/feed_association.h"
#include "window/resource.h"

namespace host {
namespace {

class symbol_mapping_dialog final : public dialog {
public:
    symbol_mapping_dialog(const std::string& profile, const std::string& plugin)
        : m_profile(profile), m_plugin(plugin), m_feed(feed_of(plugin)) {}

private:
    void on_init() override {
        set_text(IDC_SETTINGS_NAME, m_profile);
        set_text(IDC_SETTINGS_BROKER, m_plugin);
        // The feed of this application and whatever any broker has.
        std::vector<std::string> feeds{std::string(data_feed)};
        for (const std::string& one : plugins()) {
            const std::string feed = feed_of(one);
            if (!feed.empty() && std::ranges::find(feeds, feed) == feeds.end()) {
                feeds.push_back(feed);
            }
        }
        add_choices(IDC_FEED, feeds, -1);
        SendDlgItemMessageW(window(), IDC_FEED, CB_LIMITTEXT, 255, 0);
        set_text(IDC_FEED, m_feed);
        add_columns(IDC_SYMBOLS, {{"Symbol", 90}, {"Description", 200}, {"Exchange", 84}});
        std::vector<std::vector<std::string>> rows;
        for (const instrument& one : instruments()) {
            rows.push_back({one.name, one.description, one.exchange});
        }
        set_rows(IDC_SYMBOLS, rows);
    }

    void on_button(int id) override {
        if (id != IDOK) {
            dialog::on_button(id);
            return;
        }
        const std::string feed = text(IDC_FEED);
        if (feed.empty()) {
            complain("A broker's symbols want a feed.", IDC_FEED);
        } else if (feed == m_feed) {
            end(IDCANCEL);
        } else if (!set_feed(m_plugin, feed)) {
            complain("The feed can't be kept.", IDC_FEED);
        } else {
            end(IDOK);
        }
    }

    const std::string& m_profile;
    const std::string& m_plugin;
    std::string m_feed;
};

}  // namespace

bool show_symbol_mapping(HWND owner, const std::string& profile, const std::string& plugin) {
    return symbol_mapping_dialog(profile, plugin).run(owner, IDD_SYMBOL_MAPPING) == IDOK;
}

}  // namespace host
