#include "diagnostics/BugSlayerUtil.h"

#include <iterator>

namespace BugSlayerUtil {

void assertion(const code_location&, const char*, std::optional<HRESULT>) noexcept {}

void trace(const code_location&, const CString&) noexcept {}

void tracef(const code_location&, const char*, ...) noexcept {}

void throw_error(const code_location&, const char* text) {
    thread_local wchar_t thrown[256];
    std::size_t length = 0;
    while (text[length] != '\0' && length + 1 < std::size(thrown)) {
        thrown[length] = static_cast<unsigned char>(text[length]);
        ++length;
    }
    thrown[length] = L'\0';
    throw static_cast<wchar_t*>(thrown);
}

}  // namespace BugSlayerUtil
