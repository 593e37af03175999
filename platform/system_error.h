#pragma once

#include <cstddef>
#include <string>

#include "platform/com.h"

namespace platform {

// The system's text of an error code, as its HRESULT names it, in the system's narrow encoding and
// without a line end; empty when there is none. Any thread. Throws std::bad_alloc.
std::string system_error_text(DWORD error);

// Whether this process may read the memory now. Says nothing about a moment later.
bool is_readable(const void* memory, std::size_t size) noexcept;

}  // namespace platform
