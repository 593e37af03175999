#pragma once

#include <atomic>

namespace platform {

// A service of the operating system that a test may replace by an object of its own. The real one is
// made on first use, lives to the end of the process, and may be used on any thread.
template <class T>
class port {
public:
    static T& get() {
        T* const replaced = s_replacement.load(std::memory_order_acquire);
        return replaced != nullptr ? *replaced : system();
    }

    // The operating system's own, replaced or not.
    static T& system();

    // Stands in for the system's service while it lives. Replacements nest; the replaced object must
    // outlive this one.
    class replacement {
    public:
        explicit replacement(T& object) : m_previous(s_replacement.exchange(&object)) {}
        ~replacement() { s_replacement.store(m_previous); }
        replacement(const replacement&) = delete;
        replacement& operator=(const replacement&) = delete;

    private:
        T* m_previous;
    };

private:
    inline static std::atomic<T*> s_replacement{nullptr};
};

}  // namespace platform
