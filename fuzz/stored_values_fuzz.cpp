// Stored values: bytes of any type and length where the bar expects its own.
#include <algorithm>
#include <cstring>
#include <map>
#include <vector>

#include "charting/orderdeck/src/root/RegistryHelpers.h"
#include "fuzz/input.h"

namespace {

using fuzz::require;

// One key with one value, told as it stands: what another program, or a crash, may have left.
class one_value final : public platform::registry {
public:
    LONG create_key(HKEY, const CString&, REGSAM, HKEY&) noexcept override { return ERROR_ACCESS_DENIED; }
    LONG open_key(HKEY, const CString&, REGSAM, HKEY& key) noexcept override {
        key = HKEY_CURRENT_USER;
        return ERROR_SUCCESS;
    }
    LONG close_key(HKEY) noexcept override { return ERROR_SUCCESS; }
    LONG query_value(HKEY, const CString&, DWORD& kind, BYTE* room, DWORD& bytes) noexcept override {
        const DWORD given = bytes;
        // It may have grown since it was asked for its size.
        bytes = static_cast<DWORD>(value.size());
        kind = type;
        if (growth > 0) {
            --growth;
            value.insert(value.end(), 300, 'x');
        }
        if (room != nullptr && given < bytes) {
            return ERROR_MORE_DATA;
        }
        if (room != nullptr) {
            std::copy(value.begin(), value.end(), room);
        }
        return ERROR_SUCCESS;
    }
    LONG set_value(HKEY, const CString&, DWORD, const BYTE*, DWORD) noexcept override {
        return ERROR_ACCESS_DENIED;
    }
    LONG delete_value(HKEY, const CString&) noexcept override { return ERROR_ACCESS_DENIED; }
    LONG enum_key(HKEY, DWORD, wchar_t*, DWORD&) noexcept override { return ERROR_NO_MORE_ITEMS; }
    LONG enum_value(HKEY, DWORD, wchar_t*, DWORD&) noexcept override { return ERROR_NO_MORE_ITEMS; }
    LONG query_info(HKEY, DWORD&, DWORD&) noexcept override { return ERROR_ACCESS_DENIED; }
    LONG delete_tree(HKEY, const CString&) noexcept override { return ERROR_ACCESS_DENIED; }

    DWORD type = 0;
    int growth = 0;
    std::vector<std::uint8_t> value;
};

// The text that the bytes are, when they are one: whole characters, the last of them the terminator.
const wchar_t* text_in(const one_value& stored, std::vector<wchar_t>& room) {
    const std::size_t size = stored.value.size();
    const bool is_text = stored.type == REG_SZ || stored.type == REG_EXPAND_SZ;
    if (!is_text || size == 0 || size % sizeof(wchar_t) != 0) {
        return nullptr;
    }
    room.resize(size / sizeof(wchar_t));
    std::memcpy(room.data(), stored.value.data(), size);
    return room.back() == L'\0' ? room.data() : nullptr;
}

// What was read of a value that grew meanwhile: its beginning, or nothing of it.
bool begins_with(const one_value& stored, const CString& read) {
    const std::size_t size = read.size() * sizeof(wchar_t);
    return size <= stored.value.size() && std::memcmp(stored.value.data(), read.data(), size) == 0;
}

void check_text(one_value& stored, const platform::registry_key& key) {
    const CString fallback = L"the default";
    const bool grows = stored.growth > 0;
    const CString read = OV_OrderDeck::read_string(key, L"Symbol Name", fallback);
    if (grows) {
        require(read == fallback || read.empty() || begins_with(stored, read));
        return;
    }
    std::vector<wchar_t> room;
    const wchar_t* const text = text_in(stored, room);
    require(read == (text == nullptr ? fallback : CString(text)));
}

void check_number(const one_value& stored, const platform::registry_key& key) {
    constexpr DWORD untouched = 0xABCD1234;
    DWORD number = untouched;
    const LONG result = key.QueryDWORD(L"Symbol Id", number);
    const bool is_number = stored.type == REG_DWORD && stored.value.size() == sizeof(DWORD);
    require(is_number == (result == ERROR_SUCCESS));
    DWORD expected = untouched;
    if (is_number) {
        std::memcpy(&expected, stored.value.data(), sizeof(expected));
    }
    require(number == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t header = 2;
    if (size < header) {
        return 0;
    }
    one_value stored;
    stored.type = data[0] % 12;
    stored.value.assign(data + header, data + size);
    const platform::port<platform::registry>::replacement replacement(stored);
    platform::registry_key key;
    require(key.Open(HKEY_CURRENT_USER, L"SOFTWARE") == ERROR_SUCCESS);
    check_number(stored, key);
    stored.growth = data[1] % 12;
    check_text(stored, key);
    return 0;
}
