// Whatever the host does inside whichever call: the bar ends cleanly, or goes on.
#include <gtest/gtest.h>

#include <atomic>
#include <cctype>
#include <iostream>
#include <map>
#include <tuple>

#include "platform/com_object.h"
#include "tests/hostile/at_crash.h"
#include "tests/hostile/world.h"

namespace hostile {
namespace {

using pair = std::tuple<std::string, int>;

std::string joined(const std::string& call) {
    std::string name;
    for (const char c : call) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
            name += c;
        }
    }
    return name;
}

std::string name_of_pair(const pair& both) {
    return joined(std::get<0>(both)) + "_" + name_of(static_cast<trick>(std::get<1>(both)));
}

std::string again(const pair& both) {
    return "hostile_tests --gtest_filter=*/" + name_of_pair(both);
}

// The steps in which each call is made when the host plays no trick.
const std::map<std::string, std::vector<int>>& places() {
    static const std::map<std::string, std::vector<int>> all = [] {
        std::map<std::string, std::vector<int>> found;
        world quiet;
        quiet.play(trick::none, {}, -1);
        for (const auto& [call, step] : quiet.made) {
            found[call].push_back(step);
        }
        return found;
    }();
    return all;
}

struct tally {
    ~tally() {
        if (pairs != 0) {
            std::cout << "hostile host: " << pairs << " pairs of call and trick in " << played << " places\n";
        }
    }
    int pairs = 0;
    int played = 0;
} counted;

std::vector<std::string> faults_of(trick what, const std::string& call, int step) {
    std::vector<std::string> faults;
    const LONG before = platform::module_lock_count();
    {
        world hostile_world;
        if (!hostile_world.play(what, call, step)) {
            faults.emplace_back("the call was not made");
        }
        const std::vector<std::string> seen = hostile_world.faults();
        faults.insert(faults.end(), seen.begin(), seen.end());
    }
    if (platform::module_lock_count() != before) {
        faults.push_back("objects left: " + std::to_string(platform::module_lock_count() - before));
    }
    return faults;
}

class HostileHost : public testing::TestWithParam<pair> {};

TEST_P(HostileHost, LeavesNothingBehind) {
    const auto& [call, number] = GetParam();
    const auto found = places().find(call);
    ASSERT_NE(found, places().end()) << "the scenario never makes this call";
    counted.pairs += 1;
    for (const int step : found->second) {
        const std::string text = std::string(name_of(static_cast<trick>(number))) + " inside " + call +
                                 ", step " + world::name_of_step(step) + "; again: " + again(GetParam());
        say_at_crash(text.c_str());
        counted.played += 1;
        for (const std::string& fault : faults_of(static_cast<trick>(number), call, step)) {
            ADD_FAILURE() << text << "\n  " << fault;
        }
        say_at_crash(nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(Every, HostileHost,
                         testing::Combine(testing::ValuesIn(calls_of_the_bar()),
                                          testing::Range(0, trick_count)),
                         [](const auto& row) { return name_of_pair(row.param); });

TEST(HostileHostList, HasEveryCallThatTheBarMakes) {
    const std::vector<std::string>& listed = calls_of_the_bar();
    for (const auto& [call, steps] : places()) {
        if (!call.starts_with("Bar.")) {
            EXPECT_NE(std::find(listed.begin(), listed.end(), call), listed.end()) << call;
        }
    }
}

TEST(HostileHostList, AHostWithoutTricksSeesNoFault) {
    world quiet;
    quiet.play(trick::none, {}, -1);
    const std::vector<std::string> faults = quiet.faults();
    EXPECT_TRUE(faults.empty()) << faults.front();
}

}  // namespace
}  // namespace hostile
