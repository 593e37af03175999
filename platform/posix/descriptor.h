// Event descriptors behind handles, and deadlines for polling them. Native build only.
#pragma once

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>

#include "platform/com.h"

namespace platform::posix {

// Descriptor 0 is a descriptor too, and a null handle is none.
inline HANDLE handle_of(int descriptor) noexcept {
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(descriptor) + 1);
}

inline int descriptor_of(HANDLE handle) noexcept {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(handle) - 1);
}

inline bool signal(int descriptor) noexcept {
    const std::uint64_t one = 1;
    return write(descriptor, &one, sizeof(one)) == sizeof(one);
}

// Takes the signal away. False when there was none.
inline bool consume(int descriptor) noexcept {
    std::uint64_t count = 0;
    return read(descriptor, &count, sizeof(count)) == sizeof(count);
}

class deadline {
public:
    explicit deadline(DWORD timeout) noexcept
        : m_infinite(timeout == INFINITE), m_end(clock::now() + std::chrono::milliseconds(timeout)) {}

    bool passed() const noexcept { return !m_infinite && clock::now() >= m_end; }

    // What is left, for poll: rounded up so that a wait never ends too early, -1 for ever.
    int poll_timeout() const noexcept {
        if (m_infinite) {
            return -1;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - clock::now()).count();
        return static_cast<int>(std::clamp<std::int64_t>(left, 0, std::numeric_limits<int>::max()));
    }

private:
    using clock = std::chrono::steady_clock;

    bool m_infinite;
    clock::time_point m_end;
};

}  // namespace platform::posix
