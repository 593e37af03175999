#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/text.h"

namespace platform {

// Text of a module's string table; nothing when the id does not exist. A null module is the one that this
// code is part of. Natively a process has one table, whatever the module. Any thread.
std::optional<CString> load_string(UINT id, HMODULE module = nullptr);

// Bytes of a resource of type "PNG", valid as long as the module is loaded; empty when the id does not
// exist. Any thread.
std::span<const std::byte> load_png(UINT id);

// A string of the version block of the process's main executable, such as L"ProductName", read through
// the first entry of its translation table; empty when it is missing. Any thread.
CString main_version_string(const wchar_t* name);

}  // namespace platform
