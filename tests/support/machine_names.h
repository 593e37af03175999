// What own_names needs of the system.
#pragma once

#include <string>

namespace test_support {

// Sets a variable of the environment, which child processes inherit.
void tell_children(const char* variable, const std::string& text);

// Gives this process a registry under that name where programs would share one.
void take_names(const std::string& name);

// Removes what bears the name and would outlive its last user.
void leave_names(const std::string& name);

}  // namespace test_support
