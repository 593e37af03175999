#include "charting/orderdeck/src/window/AddHotKeysToMenu.h"

#include <array>

namespace OV_OrderDeck {

namespace {

constexpr UINT text_limit = 0x104;

void add_hot_key(HMENU menu, UINT position, UINT id, const command_mapper& mapper,
                 const hotkeys::CHotKeyLibrary& library) {
    CString key;
    if (!GetMenuHotKeyText(id, key, mapper, library)) {
        return;
    }
    std::array<wchar_t, text_limit> text{};
    MENUITEMINFOW item{};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_STRING;
    item.dwTypeData = text.data();
    item.cch = text_limit;
    if (!::GetMenuItemInfoW(menu, position, TRUE, &item)) {
        return;
    }
    CString decorated = WithHotKey(text.data(), key);
    item.dwTypeData = decorated.data();
    item.cch = 0;
    ::SetMenuItemInfoW(menu, position, TRUE, &item);
}

}  // namespace

void AddHotKeysToMenu(HMENU menu, const command_mapper& mapper, const hotkeys::CHotKeyLibrary& library) {
    if (!::IsMenu(menu) || !mapper) {
        return;
    }
    const int count = ::GetMenuItemCount(menu);
    for (int index = 0; index < count; ++index) {
        const auto position = static_cast<UINT>(index);
        MENUITEMINFOW item{};
        item.cbSize = sizeof(item);
        item.fMask = MIIM_ID | MIIM_SUBMENU;
        item.cch = text_limit;
        if (!::GetMenuItemInfoW(menu, position, TRUE, &item)) {
            continue;
        }
        if (item.hSubMenu != nullptr) {
            AddHotKeysToMenu(item.hSubMenu, mapper, library);
        }
        add_hot_key(menu, position, item.wID, mapper, library);
    }
}

}  // namespace OV_OrderDeck
