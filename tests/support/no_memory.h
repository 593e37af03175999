#pragma once

namespace test {

// Makes the allocations of this thread fail that ask for no exception, while it lives. For programs that
// are built with no_memory.cpp.
class no_memory {
public:
    no_memory() { s_active = true; }
    ~no_memory() { s_active = false; }
    no_memory(const no_memory&) = delete;
    no_memory& operator=(const no_memory&) = delete;
    static bool active() { return s_active; }

private:
    inline static thread_local bool s_active = false;
};

}  // namespace test
