#include "diagnostics/init_failure.h"

#include "platform/registry.h"

namespace BugSlayerUtil {

bool init_failure_is_shown() noexcept {
    platform::registry_key key;
    DWORD type = 0;
    DWORD bytes = 0;
    return key.Open(HKEY_CURRENT_USER, L"Software\\Orvane\\BugSlayer", KEY_READ) == ERROR_SUCCESS &&
           key.QueryValue(CString(), type, nullptr, bytes) == ERROR_SUCCESS;
}

}  // namespace BugSlayerUtil
