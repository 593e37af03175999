#include "com/text.h"

#include <new>

namespace host {

std::wstring to_wide(std::string_view text) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0)), 0);
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string to_utf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), 0);
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

std::string bstr_text(BSTR text) {
    return to_utf8(std::wstring_view(text, SysStringLen(text)));
}

BSTR to_bstr(std::string_view text) {
    const std::wstring wide = to_wide(text);
    BSTR made = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (made == nullptr) {
        throw std::bad_alloc();
    }
    return made;
}

}  // namespace host
