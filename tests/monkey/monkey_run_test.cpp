// The monkey itself: a driver that misses what it is there to find would let everything pass.
#include "tests/monkey/monkey_run.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using monkey::act;
using monkey::action;
using monkey::outcome;
using monkey::pair_maker;
using monkey::sequence;
using monkey::view;

// Has no tab to be seen and sees one thing, whatever happens.
class still_model final : public monkey::bar_model {
public:
    explicit still_model(view shows = {}) : m_shows(std::move(shows)) {}
    view seen() const override { return m_shows; }

private:
    void user(monkey::row_model&, const action&) override {}
    void show_tab(const action&) override {}
    LONG current_id() const override { return 0; }
    void update(const monkey::row_model&, unsigned) override {}
    void focus(const monkey::row_model&, monkey::bit) override {}
    void added(const monkey::row_model&, bool) override {}
    void removed(const monkey::row_model&) override {}
    void removed_all() override {}
    void drive_to(LONG) override {}
    void remember(monkey::memory_model&) override {}
    void take_up(const monkey::memory_model&) override {}

    view m_shows;
};

// Does as the still model wants until it has seen some actions, in their order; then something else.
class spoiled_bar final : public monkey::subject {
public:
    spoiled_bar(std::vector<act> trap, outcome sprung)
        : m_trap(std::move(trap)), m_sprung(std::move(sprung)) {
        m_model.start();
    }

    outcome perform(const action& done) override {
        const outcome wanted = m_model.perform(done);
        if (m_seen < m_trap.size() && done.what == m_trap[m_seen]) {
            ++m_seen;
        }
        return m_seen == m_trap.size() ? m_sprung : wanted;
    }
    view seen(const view&) override { return {}; }

private:
    still_model m_model;
    std::vector<act> m_trap;
    outcome m_sprung;
    std::size_t m_seen = 0;
};

pair_maker trap(const std::vector<act>& told, const outcome& sprung) {
    return {[=] { return std::make_unique<spoiled_bar>(told, sprung); },
            [] { return std::make_unique<still_model>(); }};
}

sequence user_actions(int count) {
    sequence all;
    for (int i = 0; i < count; ++i) {
        all.push_back({static_cast<act>(i % static_cast<int>(act::quote)), i, i, false});
    }
    return all;
}

std::vector<act> kinds(const sequence& actions) {
    std::vector<act> result;
    for (const action& each : actions) {
        result.push_back(each.what);
    }
    return result;
}

const std::vector<act> three = {act::sell, act::buy, act::pick_date};

TEST(monkey_run, finds_a_call_that_was_not_expected) {
    const monkey::difference found =
        monkey::play(trap({act::buy}, {{"a call"}, {}, {}, {}}), user_actions(20));
    ASSERT_TRUE(found.found());
    EXPECT_EQ(act::buy, found.done.back().what);
    EXPECT_NE(std::string::npos, found.text.find("a call"));
}

TEST(monkey_run, finds_a_message_box_an_assertion_and_an_error) {
    for (const outcome& each : {outcome{{}, {"a box"}, {}, {}}, outcome{{}, {}, {"an assertion"}, {}},
                                outcome{{}, {}, {}, "0x80004005"}}) {
        EXPECT_TRUE(monkey::play(trap({act::buy}, each), user_actions(20)).found());
    }
}

TEST(monkey_run, finds_what_is_seen_before_the_first_action) {
    const pair_maker make = {[] { return std::make_unique<spoiled_bar>(three, outcome{}); },
                             [] { return std::make_unique<still_model>(view{"something"}); }};
    const monkey::difference found = monkey::play(make, {});
    ASSERT_TRUE(found.found());
    EXPECT_NE(std::string::npos, found.text.find("something"));
}

TEST(monkey_run, passes_where_bar_and_model_agree) {
    EXPECT_FALSE(monkey::play(trap({act::rest}, {{"a call"}, {}, {}, {}}), user_actions(100)).found());
}

TEST(monkey_run, shrinks_to_the_actions_that_matter_in_their_order) {
    const pair_maker make = trap(three, {{"a call"}, {}, {}, {}});
    const monkey::difference found = monkey::play(make, user_actions(200));
    ASSERT_TRUE(found.found());
    ASSERT_LT(3U, found.done.size());
    EXPECT_EQ(three, kinds(monkey::shrink(make, found).done));
}

TEST(monkey_run, reports_the_seed_and_the_shortest_sequence) {
    const pair_maker make = trap({act::buy}, {{"a call"}, {}, {}, {}});
    const monkey::run_result result = monkey::run(make, {7, 0, 300});
    ASSERT_TRUE(result.shortest.found());
    EXPECT_EQ(7U, result.seed);
    const std::string text = monkey::report(result);
    EXPECT_NE(std::string::npos, text.find("seed 7,"));
    EXPECT_NE(std::string::npos, text.find("{act::buy, "));
    EXPECT_EQ(1U, result.shortest.done.size());
}

TEST(monkey_run, plays_one_sequence_for_one_seed) {
    const pair_maker make = trap(std::vector<act>(51, act::rest), {});
    const monkey::run_result result = monkey::run(make, {3, 1000, 50});
    EXPECT_EQ(1U, result.sequences);
    EXPECT_EQ(50U, result.actions);
}

TEST(monkey_run, draws_the_same_actions_for_a_seed_and_each_of_them_in_time) {
    std::mt19937 first(1);
    std::mt19937 second(1);
    std::vector<bool> drawn(monkey::act_count);
    for (int i = 0; i < 5000; ++i) {
        const action done = monkey::random_action(first);
        ASSERT_EQ(done, monkey::random_action(second));
        drawn.at(static_cast<std::size_t>(done.what)) = true;
    }
    EXPECT_EQ(0, std::count(drawn.begin(), drawn.end(), false));
}

TEST(monkey_options, come_from_the_arguments_before_the_defaults) {
    std::string seed = "--seed=12";
    std::string seconds = "--seconds=3";
    std::string steps = "--steps=40";
    char* arguments[] = {seed.data(), seed.data(), seconds.data(), steps.data()};
    const monkey::run_options options = monkey::options_of(4, arguments, 30);
    EXPECT_EQ(12U, options.seed);
    EXPECT_EQ(3, options.seconds);
    EXPECT_EQ(40, options.steps);
}

}  // namespace
