#include "centre/profile_store.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>

namespace host {
namespace {

using nlohmann::json;

const std::string instant = "OrderDeck Paper";
const std::string remote = "OrderDeck Paper Remote";
constexpr unsigned remote_delay = 1500;

json to_json(const profile_record& one) {
    return {{"id", one.outer_id},
            {"name", one.name},
            {"plugin", one.plugin},
            {"accounts", one.accounts},
            {"delay_ms", one.connect_delay},
            {"reject_percent", one.reject_percent}};
}

profile_record from_json(const json& one) {
    profile_record record;
    one.at("id").get_to(record.outer_id);
    one.at("name").get_to(record.name);
    one.at("plugin").get_to(record.plugin);
    one.at("accounts").get_to(record.accounts);
    one.at("delay_ms").get_to(record.connect_delay);
    one.at("reject_percent").get_to(record.reject_percent);
    if (std::ranges::find(plugins(), record.plugin) == plugins().end()) {
        throw std::runtime_error("\"" + record.plugin + "\" is no broker");
    }
    if (const std::string problem = settings_problem(record); !problem.empty()) {
        throw std::runtime_error(problem);
    }
    return record;
}

bool has_twice(const std::vector<profile_record>& all, std::string profile_record::*member) {
    std::set<std::string> seen;
    return std::ranges::any_of(all,
                               [&](const profile_record& one) { return !seen.insert(one.*member).second; });
}

}  // namespace

const std::vector<std::string>& plugins() {
    static const std::vector<std::string> names{instant, remote};
    return names;
}

profile_record new_profile(const std::string& plugin, const std::string& name, int number) {
    const std::string text = std::to_string(number);
    profile_record made;
    made.outer_id = "orderdeck-paper-" + text;
    made.name = name;
    made.plugin = plugin;
    made.accounts = {"DEMO-" + text + "01", "DEMO-" + text + "02", "模擬帳戶-" + text};
    made.connect_delay = plugin == remote ? remote_delay : 0;
    return made;
}

profile_list default_profiles() {
    return {2, {new_profile(instant, "Paper", 1), new_profile(remote, "Paper Remote", 2)}};
}

std::string settings_problem(const profile_record& record) {
    if (record.name.empty()) {
        return "A profile wants a name.";
    }
    if (record.accounts.empty()) {
        return "At least one account is needed.";
    }
    std::set<std::string> seen;
    for (const std::string& account : record.accounts) {
        if (account.empty()) {
            return "An account wants a name.";
        }
        if (!seen.insert(account).second) {
            return "Account \"" + account + "\" is there twice.";
        }
    }
    if (record.connect_delay > most_delay) {
        return "The time to connect is at most " + std::to_string(most_delay) + " ms.";
    }
    return record.reject_percent > 100 ? "At most 100 of 100 orders can be rejected." : "";
}

profile_list load_profiles(const std::filesystem::path& path) {
    if (!std::filesystem::exists(path)) {
        return default_profiles();
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("can't be opened");
    }
    try {
        const json all = json::parse(file);
        profile_list list;
        all.at("last_number").get_to(list.last_number);
        for (const json& one : all.at("profiles")) {
            list.profiles.push_back(from_json(one));
        }
        if (has_twice(list.profiles, &profile_record::outer_id) ||
            has_twice(list.profiles, &profile_record::name)) {
            throw std::runtime_error("a profile is there twice");
        }
        return list;
    } catch (const json::exception& error) {
        throw std::runtime_error(error.what());
    }
}

void save_profiles(const std::filesystem::path& path, const profile_list& list) {
    json all{{"last_number", list.last_number}, {"profiles", json::array()}};
    for (const profile_record& one : list.profiles) {
        all["profiles"].push_back(to_json(one));
    }
    std::filesystem::path fresh = path;
    fresh += ".new";
    try {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
        file << all.dump(2) << "\n";
        file.close();
        if (!file) {
            throw std::runtime_error("can't be written");
        }
        std::filesystem::rename(fresh, path);
    } catch (const std::filesystem::filesystem_error& error) {
        throw std::runtime_error(error.what());
    }
}

}  // namespace host
