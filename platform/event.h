#pragma once

#include <boost/core/noncopyable.hpp>
#include <mutex>

#include "platform/com.h"

namespace platform {

// An event of this process that threads wait on. Any thread; throws nothing. Every operation on an event
// that was not created fails.
class event : private boost::noncopyable {
public:
    // automatic: one waiter goes on and the event is reset. manual: stays set until Reset.
    enum class reset_mode { automatic, manual };

    event() = default;
    ~event() { Close(); }

    // Makes it, not signalled. False with the thread's last error.
    bool Create(reset_mode mode) noexcept;
    bool Set() noexcept;
    bool Reset() noexcept;

    // timeout in milliseconds, INFINITE for ever. WAIT_OBJECT_0, WAIT_TIMEOUT, WAIT_FAILED, and for an
    // alertable wait also WAIT_IO_COMPLETION.
    DWORD Wait(DWORD timeout, bool alertable = false) noexcept;

    // False when there was nothing to close or the system refused.
    bool Close() noexcept;

    // Null while not created; still this object's. Natively the number of a descriptor, plus one.
    HANDLE get() const noexcept { return m_handle; }

private:
    HANDLE m_handle = nullptr;
    reset_mode m_mode = reset_mode::automatic;
    // Natively held while it is set: whoever saw it set and takes the lock comes after all of that.
    std::mutex m_setting;
};

}  // namespace platform
