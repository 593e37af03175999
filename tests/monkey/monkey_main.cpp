#include <gtest/gtest.h>

#include <iostream>

#include "tests/monkey/monkey_pair.h"
#include "tests/support/own_mutexes.h"
#include "tests/support/own_names.h"

namespace {

int argument_count = 0;
char** arguments = nullptr;

TEST(monkey, finds_no_difference_between_the_bar_and_the_model) {
    const monkey::run_options options = monkey::options_of(argument_count, arguments, monkey::usual_seconds);
    const monkey::run_result result = monkey::run(monkey::the_pair(), options);
    std::cout << result.actions << " actions in " << result.sequences << " sequences\n";
    if (result.shortest.found()) {
        FAIL() << monkey::report(result);
    }
    EXPECT_NE(0U, result.actions) << "nothing was played";
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
