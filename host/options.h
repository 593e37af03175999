// The command line.
#pragma once

#include <string>
#include <vector>

namespace host {

struct options {
    // Where orders are logged; empty for nowhere.
    std::string order_log;
    // Where the windows are described for a script; empty for nowhere.
    std::string describe;
    // The component's library; empty for the registered one, or else the one beside the program.
    std::string dll;
    // Where this application keeps its profiles and hot keys; empty for a folder of the user's own.
    std::string settings;
    unsigned seed = 1;
    bool frozen_quotes = false;
    int width = 1440;
    int height = 860;
};

// From the arguments after the program's name, UTF-8. Throws std::invalid_argument with a text for people.
options parse_options(const std::vector<std::string>& arguments);

}  // namespace host
