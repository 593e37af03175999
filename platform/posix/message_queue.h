// Message queues of threads. Native build only.
#pragma once

namespace platform::posix {

// The calling thread ends: its targets are gone, and whoever waits for an answer of it gets 0.
void close_this_queue() noexcept;

}  // namespace platform::posix
