#pragma once

#include <cstddef>
#include <cstdlib>
#include <mutex>
#include <new>

#include "platform/process.h"

namespace BugSlayerUtil {

// While an event of this name exists and is not signalled, whoever wants to report waits: that is how a
// debugger gets the time to attach.
inline constexpr char attach_event_name[] = "{61B26D6F-EC96-46da-A875-239EED43DF17}";

// Makes the one T of this module on first use and cleans it up when the module goes. The object itself
// is never destroyed, since destructors of other static objects may report after that.
template <class T, int Id>
class BugSlayerInitializer {
public:
    // Any thread. Waits for the event above. Keeps the thread's last error.
    static T& Get() noexcept {
        const platform::last_error_keeper keeper;
        platform::wait_for_named_event_if_present(attach_event_name);
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
