#pragma once

#include <cstddef>
#include <cstdlib>
#include <mutex>
#include <new>

#include "platform/process.h"

namespace BugSlayerUtil {

// Makes the one T of this module on first use and cleans it up when the module goes. The object itself
// is never destroyed, since destructors of other static objects may report after that.
template <class T, int Id>
class BugSlayerInitializer {
public:
    // Any thread. Waits while an event of this name exists and is not signalled: that is how a debugger
    // gets the time to attach.
    static T& Get() noexcept {
        platform::wait_for_named_event_if_present("{61B26D6F-EC96-46da-A875-239EED43DF17}");
        const std::lock_guard guard(s_lock);
        if (s_object == nullptr) {
            s_object = new (s_storage) T;
            std::atexit([] { s_object->CleanUp(); });
        }
        return *s_object;
    }

private:
    alignas(T) inline static std::byte s_storage[sizeof(T)];
    inline static T* s_object = nullptr;
    inline static std::mutex s_lock;
};

}  // namespace BugSlayerUtil
