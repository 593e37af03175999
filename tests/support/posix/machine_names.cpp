#include "tests/support/machine_names.h"

#include <cstdlib>
#include <filesystem>

namespace test_support {
namespace {

namespace files = std::filesystem;

// Beside the program.
files::path folder_of_registries() {
    return files::read_symlink("/proc/self/exe").parent_path() / "registries";
}

void remove_what_bears(const std::string& name, const files::path& folder) {
    std::error_code gone;
    for (const auto& each : files::directory_iterator(folder, gone)) {
        if (each.path().filename().string().find(name) != std::string::npos) {
            files::remove(each.path(), gone);
        }
    }
}

}  // namespace

void tell_children(const char* variable, const std::string& text) {
    setenv(variable, text.c_str(), 1);
}

void take_names(const std::string& name) {
    files::create_directories(folder_of_registries());
    tell_children("ORDERDECK_REGISTRY_FILE", folder_of_registries() / (name + ".db"));
}

void leave_names(const std::string& name) {
    remove_what_bears(name, folder_of_registries());
    remove_what_bears(name, "/dev/shm");
}

}  // namespace test_support
