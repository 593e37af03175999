#pragma once

#include "platform/com.h"

namespace BugSlayerUtil {

// The diagnostics library of this process, loaded if need be; null when there is none. It is taken where
// the process has it already, else from the program's and the system's folder, else from the full path
// that is registered for its class. The current folder and the search path are never looked at, so that
// a file left there by somebody else is not run. Any thread; throws nothing.
HMODULE find_debug_library() noexcept;

}  // namespace BugSlayerUtil
