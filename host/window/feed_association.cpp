#include "window/feed_association.h"

#include <windows.h>

#include "centre/profiles.h"
#include "com/text.h"
#include "market/instruments.h"

namespace host {
namespace {

// Company and product as in the version block of this program.
constexpr const wchar_t* key_path = L"SOFTWARE\\OrderDeck\\OrderDeck Host\\Plugin vs DataFeed";

}  // namespace

void associate_data_feed() {
    const std::wstring feed = to_wide(data_feed);
    const auto bytes = static_cast<DWORD>((feed.size() + 1) * sizeof(wchar_t));
    for (const std::string& plugin : plugins()) {
        RegSetKeyValueW(HKEY_CURRENT_USER, key_path, to_wide(plugin).c_str(), REG_SZ, feed.c_str(), bytes);
    }
}

}  // namespace host
