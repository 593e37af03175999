#include "tests/support/own_names.h"

#include <cstdlib>
#include <random>

#include "platform/com.h"
#include "tests/support/machine_names.h"

namespace test_support {
namespace {

// How a child process is told.
constexpr char variable[] = "ORDERDECK_TEST_NAME";

std::string& the_name() {
    static std::string name;
    return name;
}

std::string new_name() {
    std::random_device random;
    return "OrderDeckTest-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(random()) + "-" +
           std::to_string(random());
}

}  // namespace

const std::string& own_name() {
    return the_name();
}

own_names::own_names(bool child) : m_child(child) {
    const char* const told = std::getenv(variable);
    if (child && told != nullptr) {
        the_name() = told;
    } else {
        the_name() = new_name();
        tell_children(variable, the_name());
        take_names(the_name());
    }
}

own_names::~own_names() {
    if (!m_child) {
        leave_names(the_name());
    }
}

}  // namespace test_support
