#include "diagnostics/formatted_text.h"

#include <cstdio>
#include <string>

#include "platform/utf8.h"

namespace BugSlayerUtil {

CString formatted_text(const char* format, std::va_list arguments) {
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    return platform::from_utf8(text);
}

CString formatted_text(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    struct ending {
        std::va_list& list;
        ~ending() { va_end(list); }
    } const end{arguments};
    return formatted_text(format, arguments);
}

}  // namespace BugSlayerUtil
