#include "tests/support/allocation_faults.h"

#include <cstdlib>
#include <new>

namespace {

struct thread_faults {
    bool is_exposed = false;
    bool failed = false;
    int counted = 0;
    int fails_at = -1;
};
thread_local thread_faults here;

void* allocate(std::size_t size) {
    if (here.is_exposed && here.counted++ == here.fails_at) {
        here.failed = true;
        throw std::bad_alloc();
    }
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

}  // namespace

// All forms that the component uses, since a sanitizer has its own of each.
void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

namespace test {

void fail_allocation(int number) {
    here.failed = false;
    here.counted = 0;
    here.fails_at = number;
}

bool allocation_failed() {
    return here.failed;
}

exposed::exposed() {
    here.is_exposed = true;
}

exposed::~exposed() {
    here.is_exposed = false;
}

sheltered::sheltered() : m_before(here.is_exposed) {
    here.is_exposed = false;
}

sheltered::~sheltered() {
    here.is_exposed = m_before;
}

}  // namespace test
