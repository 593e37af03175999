#include "tests/support/no_memory.h"

#include <new>

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (test::no_memory::active()) {
        return nullptr;
    }
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
