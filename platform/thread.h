#pragma once

#include <boost/core/noncopyable.hpp>

#include "platform/com.h"

namespace platform {

DWORD current_thread_id() noexcept;

// Lets another thread that is ready run.
void yield_thread() noexcept;

// A thread of this process. The object holds its handle and never ends it by itself. Throws nothing.
class thread : private boost::noncopyable {
public:
    using function = DWORD (*)(void*);

    thread() = default;
    ~thread() { Close(); }

    // False with the thread's last error. stack_size in bytes, 0 for the default. id is written before the
    // new thread can finish; what the function returns is its exit code.
    bool Start(unsigned stack_size, function body, void* argument, DWORD& id) noexcept;

    // WAIT_OBJECT_0 once the thread has ended, WAIT_TIMEOUT, or WAIT_FAILED.
    DWORD Wait(DWORD timeout) noexcept;

    // Ends the thread where it is: nothing is unwound, and locks that it holds stay locked. Natively the
    // thread is parked for ever.
    bool Terminate(DWORD exit_code) noexcept;

    // Gives the handle back; the thread goes on. False when there is none.
    bool Close() noexcept;

    explicit operator bool() const noexcept { return m_handle != nullptr; }

private:
    HANDLE m_handle = nullptr;
};

}  // namespace platform
