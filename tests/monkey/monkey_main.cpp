#include <gtest/gtest.h>

#include <iostream>

#include "tests/monkey/monkey_pair.h"
#include "tests/monkey/witness.h"
#include "tests/support/own_mutexes.h"
#include "tests/support/own_names.h"

namespace {

int argument_count = 0;
char** arguments = nullptr;

// A run of one sequence may not have come to an order.
constexpr unsigned enough_sequences = 10;

void let_loose(const monkey::pair_maker& on) {
    monkey::all_told() = {};
    const monkey::run_options options = monkey::options_of(argument_count, arguments, monkey::usual_seconds);
    const monkey::run_result result = monkey::run(on, options);
    const monkey::tally& told = monkey::all_told();
    std::cout << result.actions << " actions in " << result.sequences << " sequences: " << told.presses
              << " presses, " << told.sent << " orders sent, " << told.stopped << " presses stopped, "
              << told.differences << " against the rule\n";
    if (result.shortest.found()) {
        FAIL() << monkey::report(result);
    }
    EXPECT_NE(0U, result.actions) << "nothing was played";
    if (result.sequences >= enough_sequences) {
        EXPECT_NE(0U, told.sent) << "no order went out";
        EXPECT_NE(0U, told.stopped) << "no press was stopped";
    }
}

TEST(monkey, finds_no_difference_between_the_bar_and_the_model) {
    let_loose(monkey::the_pair());
}

TEST(monkey, gets_no_order_out_that_was_not_seen_whatever_the_host_does_in_its_calls) {
    let_loose(monkey::the_unruly_host());
}

}  // namespace

int main(int argc, char** argv) {
    const test_support::own_names names(false);
    test_support::own_mutexes mutexes;
    testing::InitGoogleTest(&argc, argv);
    argument_count = argc;
    arguments = argv;
    return RUN_ALL_TESTS();
}
