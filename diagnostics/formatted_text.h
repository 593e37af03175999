#pragma once

#include <cstdarg>

#include "platform/text.h"

namespace BugSlayerUtil {

// printf-style text of any length; its parts are data in UTF-8. Throws std::bad_alloc.
__attribute__((format(printf, 1, 2))) CString formatted_text(const char* format, ...);
CString formatted_text(const char* format, std::va_list arguments);

}  // namespace BugSlayerUtil
