#include <unistd.h>
#include <windows.h>

#include <cwchar>

namespace {

thread_local DWORD t_last_error = ERROR_SUCCESS;

}  // namespace

DWORD GetLastError() noexcept {
    return t_last_error;
}

void SetLastError(DWORD error) noexcept {
    t_last_error = error;
}

DWORD GetCurrentThreadId() noexcept {
    // Asked for at every post; the system is asked once.
    static thread_local const auto id = static_cast<DWORD>(gettid());
    return id;
}

DWORD GetCurrentProcessId() noexcept {
    return static_cast<DWORD>(getpid());
}

int lstrlenW(LPCWSTR text) noexcept {
    return text == nullptr ? 0 : static_cast<int>(std::wcslen(text));
}
