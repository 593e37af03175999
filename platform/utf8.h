#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace platform {

// Text of the C runtime, of exceptions and of source names as the component's text. What is not UTF-8 is
// taken byte by byte, so nothing is refused or lost. Throws std::bad_alloc.
CString from_utf8(std::string_view bytes);

// Half of a surrogate pair becomes U+FFFD. Throws std::bad_alloc.
std::string to_utf8(const CString& text);

}  // namespace platform
