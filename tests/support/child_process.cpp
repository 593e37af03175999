#include "tests/support/child_process.h"

#include <iostream>
#include <map>
#include <string_view>

namespace test_support {
namespace {

constexpr std::string_view flag = "--child=";

std::map<std::string, child_main>& parts() {
    static std::map<std::string, child_main> all;
    return all;
}

}  // namespace

child_registration::child_registration(const char* name, child_main main) {
    parts()[name] = main;
}

bool is_child(int argc, char** argv) {
    return argc > 1 && std::string_view(argv[1]).starts_with(flag);
}

bool run_child(int argc, char** argv, int& exit_code) {
    if (!is_child(argc, argv)) {
        return false;
    }
    const auto part = parts().find(argv[1] + flag.size());
    if (part == parts().end()) {
        std::cerr << "no such part: " << argv[1] << '\n';
        exit_code = 127;
    } else {
        exit_code = part->second({argv + 2, argv + argc});
    }
    return true;
}

}  // namespace test_support
