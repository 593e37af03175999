#include "tests/support/own_mutexes.h"

#include <new>

#include "tests/support/own_names.h"

namespace test_support {
namespace {

constexpr std::wstring_view for_all_sessions = L"Global\\";

CString own(const CString& name) {
    const std::size_t start = name.starts_with(for_all_sessions) ? for_all_sessions.size() : 0;
    const std::string& inserted = own_name();
    return name.substr(0, start) + CString(inserted.begin(), inserted.end()) + L" " + name.substr(start);
}

}  // namespace

std::unique_ptr<platform::process_mutex> own_mutexes::open(const CString& name) noexcept {
    try {
        return platform::port<platform::process_mutexes>::system().open(own(name));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

}  // namespace test_support
