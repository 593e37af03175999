#pragma once

#include "diagnostics/code_location.h"
#include "platform/text.h"

namespace BugSlayerUtil {

// What the exception in flight means at a boundary.
struct caught_exception {
    HRESULT result = E_UNEXPECTED;
    // For the trace. Empty when memory ran out: nothing is written then.
    CString text;
};

// Looks at the exception in flight; to be called in a handler. An error record that was thrown is
// released here.
caught_exception describe_current_exception(const code_location& where) noexcept;

}  // namespace BugSlayerUtil
