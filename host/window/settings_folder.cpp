#include "window/settings_folder.h"

#include <windows.h>

#include <shlobj.h>

#include <array>

#include "com/text.h"

namespace host {

std::filesystem::path settings_folder(const options& settings) {
    if (!settings.settings.empty()) {
        return std::filesystem::absolute(to_wide(settings.settings));
    }
    std::array<wchar_t, MAX_PATH> folder{};
    SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder.data());
    return std::filesystem::path(folder.data()) / L"OrderDeck Host";
}

}  // namespace host
