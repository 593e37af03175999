#include "diagnostics/init_failure.h"

#include "platform/desktop.h"
#include "platform/registry.h"
#include "platform/resources.h"

namespace BugSlayerUtil {

bool init_failure_is_shown() noexcept {
    try {
        platform::registry_key key;
        DWORD type = 0;
        DWORD bytes = 0;
        return key.Open(HKEY_CURRENT_USER, L"Software\\Orvane\\BugSlayer", KEY_READ) == ERROR_SUCCESS &&
               key.QueryValue(CString(), type, nullptr, bytes) == ERROR_SUCCESS;
    } catch (...) {
        // Out of memory: nobody could read a box now.
        return false;
    }
}

void show_init_failure() noexcept {
    try {
        platform::port<platform::desktop>::get().message_box(
            nullptr, L"BugSlayer Init Failed.", platform::main_version_string(L"ProductName"), MB_ICONERROR);
    } catch (...) {
        // A box that can't be shown changes nothing: the start has failed all the same.
        return;
    }
}

}  // namespace BugSlayerUtil
