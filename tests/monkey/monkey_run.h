// Lets the monkey loose: compares a bar with its model action by action, and makes what fails as short as it
// gets.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "tests/monkey/bar_model.h"
#include "tests/monkey/subject.h"

namespace monkey {

// Makes a fresh bar and a fresh model of it.
struct pair_maker {
    std::function<std::unique_ptr<subject>()> bar;
    // None where only the rule of the press is held against the bar, whatever else it does.
    std::function<std::unique_ptr<bar_model>()> model;
};

// Where bar and model part.
struct difference {
    // The actions that were done, the last of which showed it.
    sequence done;
    // Empty: they agree.
    std::string text;

    bool found() const { return !text.empty(); }
};

// Plays a sequence from the start, up to the first difference.
difference play(const pair_maker& make, const sequence& actions);

// The shortest sequence of parts of the given one that still differs, by leaving out ever smaller pieces.
difference shrink(const pair_maker& make, difference found);

struct run_options {
    // 0: one after the other from 1.
    unsigned seed = 0;
    int seconds = 30;
    // Of one sequence, each of which starts in a fresh bar.
    int steps = 250;
    // So many at least, however long it takes.
    std::size_t actions = 0;
};

struct run_result {
    unsigned sequences = 0;
    std::size_t actions = 0;
    // The last seed; the one that failed if there is a difference.
    unsigned seed = 0;
    difference shortest;
};

// --seed=, --seconds=, --actions= and --steps=; without --seconds the environment's ORDERDECK_MONKEY_SECONDS,
// without it the given time. Leaves other arguments alone.
run_options options_of(int argc, char** argv, int seconds);

run_result run(const pair_maker& make, const run_options& options);

// What a run's failure says to who reads it.
std::string report(const run_result& result);

}  // namespace monkey
