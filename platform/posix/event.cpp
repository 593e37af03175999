#include "platform/event.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <mutex>
#include <utility>

#include "platform/posix/descriptor.h"

namespace platform {

bool event::Create(reset_mode mode) noexcept {
    Close();
    m_mode = mode;
    const int fd = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    if (fd < 0) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
    m_handle = posix::handle_of(fd);
    return true;
}

bool event::Set() noexcept {
    const std::lock_guard guard(m_setting);
    return m_handle != nullptr && posix::signal(posix::descriptor_of(m_handle));
}

bool event::Reset() noexcept {
    if (m_handle == nullptr) {
        return false;
    }
    posix::consume(posix::descriptor_of(m_handle));
    return true;
}

DWORD event::Wait(DWORD timeout, bool) noexcept {
    if (m_handle == nullptr) {
        return WAIT_FAILED;
    }
    const int fd = posix::descriptor_of(m_handle);
    posix::deadline deadline(timeout);
    for (;;) {
        pollfd source{fd, POLLIN, 0};
        const int ready = poll(&source, 1, deadline.poll_timeout());
        if (ready < 0 && errno != EINTR) {
            return WAIT_FAILED;
        }
        // Another waiter may have been faster.
        if (ready > 0 && (m_mode == reset_mode::manual || posix::consume(fd))) {
            const std::lock_guard after_the_setter(m_setting);
            return WAIT_OBJECT_0;
        }
        if (deadline.passed()) {
            return WAIT_TIMEOUT;
        }
    }
}

bool event::Close() noexcept {
    const HANDLE handle = std::exchange(m_handle, nullptr);
    return handle != nullptr && close(posix::descriptor_of(handle)) == 0;
}

}  // namespace platform
