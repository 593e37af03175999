// The ids that the headers only declare get their one definition here.
#define INITGUID
#include <ocidl.h>
#include <ole2.h>
#include <sys/random.h>

#include <cwchar>
#include <iterator>
#include <optional>

namespace {

constexpr wchar_t k_digits[] = L"0123456789ABCDEF";
// Braces, thirty-two digits, four hyphens.
constexpr std::size_t k_length = 38;
// A digit pair of the text for each byte of Data1 to Data4, most significant first.
constexpr std::size_t k_pair_positions[] = {1, 3, 5, 7, 10, 12, 15, 17, 20, 22, 25, 27, 29, 31, 33, 35};
constexpr std::size_t k_hyphens[] = {9, 14, 19, 24};

void to_bytes(REFGUID id, std::uint8_t (&bytes)[16]) {
    for (std::size_t i = 0; i < 4; ++i) {
        bytes[i] = static_cast<std::uint8_t>(id.Data1 >> (24 - 8 * i));
    }
    for (std::size_t i = 0; i < 2; ++i) {
        bytes[4 + i] = static_cast<std::uint8_t>(id.Data2 >> (8 - 8 * i));
        bytes[6 + i] = static_cast<std::uint8_t>(id.Data3 >> (8 - 8 * i));
    }
    std::memcpy(bytes + 8, id.Data4, sizeof id.Data4);
}

GUID from_bytes(const std::uint8_t (&bytes)[16]) {
    GUID id = {};
    for (std::size_t i = 0; i < 4; ++i) {
        id.Data1 = (id.Data1 << 8) | bytes[i];
    }
    id.Data2 = static_cast<std::uint16_t>((bytes[4] << 8) | bytes[5]);
    id.Data3 = static_cast<std::uint16_t>((bytes[6] << 8) | bytes[7]);
    std::memcpy(id.Data4, bytes + 8, sizeof id.Data4);
    return id;
}

std::optional<unsigned> digit_value(wchar_t digit) {
    if (digit >= L'0' && digit <= L'9') {
        return static_cast<unsigned>(digit - L'0');
    }
    if (digit >= L'A' && digit <= L'F') {
        return static_cast<unsigned>(digit - L'A') + 10;
    }
    if (digit >= L'a' && digit <= L'f') {
        return static_cast<unsigned>(digit - L'a') + 10;
    }
    return std::nullopt;
}

std::optional<GUID> parse(LPCOLESTR text) {
    if (std::wcslen(text) != k_length || text[0] != L'{' || text[k_length - 1] != L'}') {
        return std::nullopt;
    }
    for (const std::size_t position : k_hyphens) {
        if (text[position] != L'-') {
            return std::nullopt;
        }
    }
    std::uint8_t bytes[16];
    for (std::size_t i = 0; i < std::size(k_pair_positions); ++i) {
        const auto high = digit_value(text[k_pair_positions[i]]);
        const auto low = digit_value(text[k_pair_positions[i] + 1]);
        if (!high || !low) {
            return std::nullopt;
        }
        bytes[i] = static_cast<std::uint8_t>(*high * 16 + *low);
    }
    return from_bytes(bytes);
}

}  // namespace

int StringFromGUID2(REFGUID rguid, LPOLESTR lpsz, int cchMax) noexcept {
    if (lpsz == nullptr || cchMax < static_cast<int>(k_length + 1)) {
        return 0;
    }
    std::uint8_t bytes[16];
    to_bytes(rguid, bytes);
    lpsz[0] = L'{';
    for (const std::size_t position : k_hyphens) {
        lpsz[position] = L'-';
    }
    for (std::size_t i = 0; i < std::size(k_pair_positions); ++i) {
        lpsz[k_pair_positions[i]] = k_digits[bytes[i] >> 4];
        lpsz[k_pair_positions[i] + 1] = k_digits[bytes[i] & 15];
    }
    lpsz[k_length - 1] = L'}';
    lpsz[k_length] = L'\0';
    return static_cast<int>(k_length + 1);
}

HRESULT StringFromCLSID(REFCLSID rclsid, LPOLESTR* lplpsz) noexcept {
    if (lplpsz == nullptr) {
        return E_INVALIDARG;
    }
    *lplpsz = static_cast<LPOLESTR>(CoTaskMemAlloc((k_length + 1) * sizeof(OLECHAR)));
    if (*lplpsz == nullptr) {
        return E_OUTOFMEMORY;
    }
    StringFromGUID2(rclsid, *lplpsz, static_cast<int>(k_length + 1));
    return S_OK;
}

HRESULT StringFromIID(REFIID rclsid, LPOLESTR* lplpsz) noexcept {
    return StringFromCLSID(rclsid, lplpsz);
}

HRESULT CLSIDFromString(LPCOLESTR lpsz, CLSID* pclsid) noexcept {
    if (pclsid == nullptr) {
        return E_INVALIDARG;
    }
    *pclsid = CLSID{};
    if (lpsz == nullptr) {
        return S_OK;
    }
    const auto id = parse(lpsz);
    if (!id) {
        return CO_E_CLASSSTRING;
    }
    *pclsid = *id;
    return S_OK;
}

HRESULT IIDFromString(LPCOLESTR lpsz, IID* lpiid) noexcept {
    if (lpiid != nullptr && lpsz != nullptr && std::wcslen(lpsz) != k_length) {
        *lpiid = IID{};
        return E_INVALIDARG;
    }
    const HRESULT hr = CLSIDFromString(lpsz, lpiid);
    return hr == CO_E_CLASSSTRING ? CO_E_IIDSTRING : hr;
}

HRESULT CoCreateGuid(GUID* pguid) noexcept {
    if (pguid == nullptr) {
        return E_INVALIDARG;
    }
    std::uint8_t bytes[16];
    if (getrandom(bytes, sizeof bytes, 0) != static_cast<ssize_t>(sizeof bytes)) {
        return E_UNEXPECTED;
    }
    // A random id says so: version 4, variant 1.
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    *pguid = from_bytes(bytes);
    return S_OK;
}
