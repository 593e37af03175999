#include "tests/support/machine_names.h"

#include <cstdlib>

namespace test_support {

void tell_children(const char* variable, const std::string& text) {
    _putenv_s(variable, text.c_str());
}

// The system has one registry, in which each program has a place of its own.
void take_names(const std::string&) {}

// Named objects end with their last handle.
void leave_names(const std::string&) {}

}  // namespace test_support
