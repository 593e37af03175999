// Names that no other program of the machine uses: neither another of this run, nor this one from another
// copy of the sources, nor an earlier one that crashed.
#pragma once

#include <string>

namespace test_support {

// Letters, digits and hyphens that this run of the program has alone; its child processes have them too.
const std::string& own_name();

// Made once, before anything of the system is used by name, and let go at the program's end.
class own_names {
public:
    // A child process takes what its parent gave it.
    explicit own_names(bool child);
    ~own_names();
    own_names(const own_names&) = delete;
    own_names& operator=(const own_names&) = delete;

private:
    bool m_child;
};

}  // namespace test_support
