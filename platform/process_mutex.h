// A mutex by name that all processes of the user share.
#pragma once

#include <cstddef>
#include <memory>

#include "platform/port.h"
#include "platform/text.h"

namespace platform {

// Owned by a thread, which may own it more than once and releases it as often. A thread or process that
// ends as the owner abandons it.
class process_mutex {
public:
    virtual ~process_mutex() = default;

    // Milliseconds, or INFINITE. WAIT_OBJECT_0: the calling thread owns it. WAIT_ABANDONED: it owns it too,
    // and the owner before it ended without releasing, so what the mutex protects may be half done.
    // WAIT_TIMEOUT: another owns it. WAIT_FAILED: the system refused.
    virtual DWORD wait(DWORD milliseconds) noexcept = 0;

    // Only for the thread that owns it; of any other it does nothing.
    virtual void release() noexcept = 0;
};

class process_mutexes {
public:
    static constexpr std::size_t longest_name = 128;

    virtual ~process_mutexes() = default;

    // The mutex of that name, made unless it exists, not owned. "Global\" in front makes it one for all
    // sessions of the user. Null for a name that is too long, and when the system refuses. Any thread.
    virtual std::unique_ptr<process_mutex> open(const CString& name) noexcept = 0;
};

template <>
process_mutexes& port<process_mutexes>::system();

// Owns a mutex to the end of the scope, when the wait gave it.
class process_mutex_lock {
public:
    process_mutex_lock(process_mutex& mutex, DWORD milliseconds)
        : m_mutex(mutex), m_result(mutex.wait(milliseconds)) {}
    ~process_mutex_lock() {
        if (owns()) {
            m_mutex.release();
        }
    }
    process_mutex_lock(const process_mutex_lock&) = delete;
    process_mutex_lock& operator=(const process_mutex_lock&) = delete;

    // What the wait gave.
    DWORD result() const { return m_result; }

    bool owns() const { return m_result == WAIT_OBJECT_0 || m_result == WAIT_ABANDONED; }

private:
    process_mutex& m_mutex;
    DWORD m_result;
};

}  // namespace platform
