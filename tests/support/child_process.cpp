#include "tests/support/child_process.h"

#include <iostream>
#include <map>

namespace test_support {
namespace {

std::map<std::string, child_main>& parts() {
    static std::map<std::string, child_main> all;
    return all;
}

}  // namespace

child_registration::child_registration(const char* name, child_main main) {
    parts()[name] = main;
}

bool run_child(int argc, char** argv, int& exit_code) {
    const std::string flag = "--child=";
    if (argc < 2 || std::string(argv[1]).rfind(flag, 0) != 0) {
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
