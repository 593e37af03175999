#pragma once

#include "platform/com.h"

namespace platform {

// The text of a _bstr_t, which is then empty; the caller owns the result. Throws _com_error (E_POINTER)
// when there is nothing to give or a copy shares it. The member of that name ends the process instead with
// some headers of the system.
BSTR detach(_bstr_t& text);

}  // namespace platform
