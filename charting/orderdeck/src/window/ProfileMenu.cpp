#include "charting/orderdeck/src/window/ProfileMenu.h"

#include <utility>

#include "charting/orderdeck/src/root/GlobalData.h"
#include "charting/orderdeck/src/window/AddHotKeysToMenu.h"
#include "diagnostics/BugSlayerUtil.h"

namespace OV_OrderDeck {

namespace {

class popup_menu {
public:
    popup_menu() : m_menu(::CreatePopupMenu()) {}
    ~popup_menu() { ::DestroyMenu(m_menu); }
    popup_menu(const popup_menu&) = delete;
    popup_menu& operator=(const popup_menu&) = delete;
    HMENU get() const { return m_menu; }

private:
    HMENU m_menu;
};

}  // namespace

void details::_append_menu_item(UINT kind, const com_ptr<CProfileWrap>& profile, HMENU menu,
                                command_map& commands) {
    CGlobalData global;
    const std::pair<UINT, com_ptr<IOD_ProfileCmd>> _cmd(
        kind, platform::query<IOD_ProfileCmd>(global->create_command(static_cast<LONG>(kind), profile)));
    if (!_cmd.second) {
        return;
    }
    _bstr_t bsName;
    if (!BS_ASSERT(S_OK == _cmd.second->get_Name(bsName.GetAddress()))) {
        return;
    }
    VARIANT_BOOL bEnable = VARIANT_FALSE;
    if (!BS_ASSERT(S_OK == _cmd.second->get_Enabled(&bEnable))) {
        return;
    }
    const UINT flags = bEnable != VARIANT_FALSE ? 0 : MF_GRAYED | MF_DISABLED;
    const CString name = platform::text_of(bsName.GetBSTR());
    if (BS_ASSERT_TEXT(::AppendMenuW(menu, flags, _cmd.first, name.c_str()),
                       "menu.AppendMenu(flags, _cmd.first, (LPCTSTR) bsName)")) {
        commands.insert(_cmd);
    }
}

void run_profile_menu(HWND owner, POINT at, const com_ptr<CProfileWrap>& profile) {
    const popup_menu menu;
    BS_REQUIRE(menu.get() != nullptr, E_FAIL);
    details::command_map commands;
    for (const UINT kind : {eODC_ToggleConnect, eODC_EditProfile, eODC_SymbolMapping}) {
        details::_append_menu_item(kind, profile, menu.get(), commands);
    }
    AddHotKeysToMenu(menu.get(), &CommandIdFromMenuId);
    const int chosen =
        ::TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, 0, owner, nullptr);
    const auto command = commands.find(static_cast<UINT>(chosen));
    if (command != commands.end()) {
        command->second->Execute();
    }
}

void run_if_enabled(IOD_ProfileCmd& command) {
    VARIANT_BOOL bEnabled = VARIANT_FALSE;
    BS_ASSERT_OK(command.get_Enabled(&bEnabled));
    if (BS_ASSERT(bEnabled)) {
        BS_ASSERT_OK(command.Execute());
    }
}

}  // namespace OV_OrderDeck
