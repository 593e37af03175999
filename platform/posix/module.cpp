#include "platform/module.h"

#include <dlfcn.h>

#include <climits>
#include <cstdlib>
#include <string>

#include "platform/utf8.h"

namespace platform {
namespace {

HMODULE opened(const std::string& path, int flags) noexcept {
    return static_cast<HMODULE>(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | flags));
}

HMODULE load(const std::string& name) {
    if (name.find('/') == std::string::npos) {
        return opened(to_utf8(folder_of(program_path())) + name, 0);
    }
    return name.front() == '/' ? opened(name, 0) : nullptr;
}

}  // namespace

HMODULE find_loaded_library(const CString& file_name) noexcept {
    try {
        return opened(to_utf8(file_name), RTLD_NOLOAD);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

HMODULE load_library(const CString& name) noexcept {
    try {
        return load(to_utf8(name));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

HMODULE load_library(const char* path) noexcept {
    try {
        return load(path);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

std::string narrow(const CString& text) {
    return to_utf8(text);
}

void* find_export(HMODULE library, const char* name) noexcept {
    return dlsym(library, name);
}

CString this_module_path() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&load), &info) == 0 || info.dli_fname == nullptr) {
        return {};
    }
    char full[PATH_MAX];
    return from_utf8(realpath(info.dli_fname, full) != nullptr ? full : info.dli_fname);
}

CString program_path() {
    char full[PATH_MAX];
    return realpath("/proc/self/exe", full) != nullptr ? from_utf8(full) : CString();
}

}  // namespace platform
