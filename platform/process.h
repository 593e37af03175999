// This process as a whole.
#pragma once

#include "platform/com.h"

namespace platform {

// Ends this process at once: no destructor and no exit handler runs. Natively a parent sees the low
// eight bits of the code.
[[noreturn]] void terminate_process(UINT exit_code) noexcept;

// Stops in a debugger; without one the process ends as after a crash.
void debug_break() noexcept;

// Whether the process is past its exit call and libraries may be gone already.
bool process_is_ending() noexcept;

// Waits for ever on a named event of the system when somebody has made one of that name, else returns
// at once. Natively the event is the named semaphore "/name", signalled while above 0.
void wait_for_named_event_if_present(const char* name) noexcept;

// Puts the thread's last error back at the end of a scope.
class last_error_keeper {
public:
    last_error_keeper() noexcept : m_error(GetLastError()) {}
    ~last_error_keeper() { SetLastError(m_error); }
    last_error_keeper(const last_error_keeper&) = delete;
    last_error_keeper& operator=(const last_error_keeper&) = delete;

    DWORD get() const noexcept { return m_error; }

private:
    DWORD m_error;
};

}  // namespace platform
