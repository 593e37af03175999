#include "window/feed_association.h"

#include <windows.h>

#include <array>

#include "centre/profiles.h"
#include "com/text.h"
#include "market/instruments.h"

namespace host {
namespace {

// Company and product as in the version block of this program.
constexpr const wchar_t* key_path = L"SOFTWARE\\OrderDeck\\OrderDeck Host\\Plugin vs DataFeed";

}  // namespace

std::string feed_of(const std::string& plugin) {
    std::array<wchar_t, 256> feed{};
    auto bytes = static_cast<DWORD>(sizeof(feed));
    const LSTATUS result = RegGetValueW(HKEY_CURRENT_USER, key_path, to_wide(plugin).c_str(), RRF_RT_REG_SZ,
                                        nullptr, feed.data(), &bytes);
    return result == ERROR_SUCCESS ? to_utf8(feed.data()) : std::string();
}

bool set_feed(const std::string& plugin, const std::string& feed) {
    const std::wstring value = to_wide(feed);
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_CURRENT_USER, key_path, to_wide(plugin).c_str(), REG_SZ, value.c_str(),
                           bytes) == ERROR_SUCCESS;
}

void associate_data_feed() {
    for (const std::string& plugin : plugins()) {
        if (feed_of(plugin).empty()) {
            set_feed(plugin, std::string(data_feed));
        }
    }
}

}  // namespace host
