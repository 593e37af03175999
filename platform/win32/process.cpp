#include "platform/process.h"

#include <cstdlib>

namespace platform {

void terminate_process(UINT exit_code) noexcept {
    TerminateProcess(GetCurrentProcess(), exit_code);
    std::abort();
}

void debug_break() noexcept {
    DebugBreak();
}

bool process_is_ending() noexcept {
    const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    const auto in_progress = reinterpret_cast<BOOLEAN(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(ntdll, "RtlDllShutdownInProgress")));
    return in_progress != nullptr && in_progress();
}

void wait_for_named_event_if_present(const char* name) noexcept {
    const HANDLE event = OpenEventA(SYNCHRONIZE, FALSE, name);
    if (event != nullptr) {
        WaitForSingleObject(event, INFINITE);
        CloseHandle(event);
    }
}

}  // namespace platform
