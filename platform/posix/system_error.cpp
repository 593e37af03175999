#include "platform/system_error.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace platform {

std::string system_error_text(DWORD error) {
    switch (error) {
        case ERROR_SUCCESS:
            return {};
        case ERROR_NOT_ENOUGH_MEMORY:
            return "Not enough memory resources are available to process this command.";
        default:
            return "System error " + std::to_string(error);
    }
}

bool is_readable(const void* memory, std::size_t size) noexcept {
    if (memory == nullptr) {
        return false;
    }
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto start = reinterpret_cast<std::uintptr_t>(memory) / page * page;
    const auto end = reinterpret_cast<std::uintptr_t>(memory) + size;
    // Fails for a range that is not mapped.
    return msync(reinterpret_cast<void*>(start), end - start, MS_ASYNC) == 0;
}

}  // namespace platform
