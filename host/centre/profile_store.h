// What a paper profile is made of, and the file that keeps the profiles between runs.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace host {

// The longest time to connect, in milliseconds.
inline constexpr unsigned most_delay = 60000;

struct profile_record {
    // Never changes.
    std::string outer_id;
    std::string name;
    std::string plugin;
    // At least one; none is empty or there twice.
    std::vector<std::string> accounts;
    // How long a connection takes, in milliseconds.
    unsigned connect_delay = 0;
    // How many of a hundred orders the broker rejects.
    unsigned reject_percent = 0;

    bool operator==(const profile_record&) const = default;
};

struct profile_list {
    // The highest number that an outer id was made of; none is used twice.
    int last_number = 0;
    std::vector<profile_record> profiles;

    bool operator==(const profile_list&) const = default;
};

// The broker plug-ins that profiles can be made of.
const std::vector<std::string>& plugins();

// A new profile of a plug-in with what it has at first.
profile_record new_profile(const std::string& plugin, const std::string& name, int number);

// What there is before a user made anything.
profile_list default_profiles();

// What is wrong with the settings of a profile, for people; empty when nothing is.
std::string settings_problem(const profile_record& record);

// The list of a file. Without the file the default ones. Throws std::runtime_error, with a text for people,
// when the file can't be read or is not such a list.
profile_list load_profiles(const std::filesystem::path& path);

// Replaces the file whole or not at all; makes its folder. Throws std::runtime_error.
void save_profiles(const std::filesystem::path& path, const profile_list& list);

}  // namespace host
