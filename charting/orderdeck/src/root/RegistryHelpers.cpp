#include "charting/orderdeck/src/root/RegistryHelpers.h"

#include <algorithm>
#include <array>
#include <vector>

#include "diagnostics/BugSlayerUtil.h"

namespace OV_OrderDeck {

CString read_string(const platform::registry_key& key, const CString& value_name,
                    const CString& default_value) {
    std::vector<wchar_t> buffer(256);
    DWORD type = 0;
    DWORD bytes = 0;
    LONG result = ERROR_MORE_DATA;
    // The value may grow between two reads; the size told last is the one to try next.
    for (int attempt = 0; attempt < 8 && result == ERROR_MORE_DATA; ++attempt) {
        buffer.resize(std::max<std::size_t>(buffer.size(), bytes / sizeof(wchar_t) + 1));
        bytes = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
        result = key.QueryValue(value_name, type, reinterpret_cast<BYTE*>(buffer.data()), bytes);
    }
    const bool is_text = type == REG_SZ || type == REG_EXPAND_SZ;
    if (result != ERROR_SUCCESS || !is_text || bytes % sizeof(wchar_t) != 0 || bytes == 0) {
        return default_value;
    }
    buffer.resize(bytes / sizeof(wchar_t));
    if (buffer.back() != L'\0') {
        return default_value;
    }
    return buffer.data();
}

namespace registry_helpers {

LONG reg_enum_key(const platform::registry_key& key, DWORD index, CString& name) {
    std::array<wchar_t, 257> buffer{};
    auto length = static_cast<DWORD>(buffer.size());
    const LONG lRes = key.EnumKey(index, buffer.data(), length);
    BS_ASSERT_TEXT(lRes != ERROR_MORE_DATA, "lRes != 234L");
    if (lRes == ERROR_SUCCESS) {
        name.assign(buffer.data(), length);
    }
    return lRes;
}

}  // namespace registry_helpers

}  // namespace OV_OrderDeck
