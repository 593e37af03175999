#pragma once

#include <set>
#include <string>
#include <vector>

namespace monkey {

// What one action has to bring about, or what it brought about.
struct outcome {
    // What the host saw: order entry, lookups, connecting; and in the logic's form what the bar was told.
    std::vector<std::string> calls;
    // Message boxes, with their flags.
    std::vector<std::string> boxes;
    // Texts of assertions. Those without a settled text stand as "*" in what is expected, and any one report
    // answers them.
    std::vector<std::string> assertions;
    // "0x80004005" for an error that was raised or returned, one after the other; empty for none.
    std::string error;
};

// What can be seen between two actions, one line for each thing.
using view = std::vector<std::string>;

}  // namespace monkey
