#include <oleauto.h>

#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>

namespace {

// Room in front of the first unit: the length in bytes stands in its last four, the rest keeps what
// follows aligned as malloc aligns.
constexpr std::size_t k_header = 16;
constexpr std::size_t k_longest = std::numeric_limits<INT>::max() - k_header - sizeof(OLECHAR);

char* block_of(BSTR text) {
    return reinterpret_cast<char*>(text) - k_header;
}

void set_byte_length(char* block, UINT bytes) {
    std::memcpy(block + k_header - sizeof bytes, &bytes, sizeof bytes);
}

// Content and length are copied in; the terminator is a whole unit, also behind an odd byte count.
BSTR allocate(const void* content, std::size_t bytes) {
    if (bytes > k_longest) {
        return nullptr;
    }
    auto* const block = static_cast<char*>(std::malloc(k_header + bytes + sizeof(OLECHAR)));
    if (block == nullptr) {
        return nullptr;
    }
    set_byte_length(block, static_cast<UINT>(bytes));
    if (content != nullptr) {
        std::memcpy(block + k_header, content, bytes);
    } else {
        std::memset(block + k_header, 0, bytes);
    }
    std::memset(block + k_header + bytes, 0, sizeof(OLECHAR));
    return reinterpret_cast<BSTR>(block + k_header);
}

// The new text is made before the old one is freed: it may be a piece of it.
INT replace(BSTR* target, BSTR next) {
    if (next == nullptr) {
        return FALSE;
    }
    SysFreeString(*target);
    *target = next;
    return TRUE;
}

}  // namespace

BSTR SysAllocString(const OLECHAR* text) noexcept {
    return text == nullptr ? nullptr : allocate(text, std::wcslen(text) * sizeof(OLECHAR));
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length) noexcept {
    return allocate(text, std::size_t{length} * sizeof(OLECHAR));
}

BSTR SysAllocStringByteLen(LPCSTR bytes, UINT length) noexcept {
    return allocate(bytes, length);
}

INT SysReAllocString(BSTR* target, const OLECHAR* text) noexcept {
    if (text == nullptr) {
        SysFreeString(*target);
        *target = nullptr;
        return TRUE;
    }
    return replace(target, SysAllocString(text));
}

INT SysReAllocStringLen(BSTR* target, const OLECHAR* text, UINT length) noexcept {
    return replace(target, SysAllocStringLen(text, length));
}

void SysFreeString(BSTR text) noexcept {
    if (text != nullptr) {
        std::free(block_of(text));
    }
}

UINT SysStringByteLen(BSTR text) noexcept {
    UINT bytes = 0;
    if (text != nullptr) {
        std::memcpy(&bytes, block_of(text) + k_header - sizeof bytes, sizeof bytes);
    }
    return bytes;
}

UINT SysStringLen(BSTR text) noexcept {
    return SysStringByteLen(text) / static_cast<UINT>(sizeof(OLECHAR));
}
