#include "platform/system_error.h"

namespace platform {

std::string system_error_text(DWORD error) {
    const HRESULT hr = HRESULT_FROM_WIN32(error);
    char* text = nullptr;
    const DWORD length = FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        static_cast<DWORD>(hr), 0, reinterpret_cast<char*>(&text), 0, nullptr);
    std::string result;
    if (text != nullptr) {
        result.assign(text, length);
        LocalFree(text);
    }
    while (!result.empty() && (result.back() == '\n' || result.back() == '\r')) {
        result.pop_back();
    }
    return result;
}

bool is_readable(const void* memory, std::size_t size) noexcept {
    return !IsBadReadPtr(memory, size);
}

}  // namespace platform
