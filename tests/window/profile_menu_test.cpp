#include "charting/orderdeck/src/window/ProfileMenu.h"

#include <windows.h>

#include <commctrl.h>

#include "charting/orderdeck/src/root/GlobalData.h"
#include "tests/window/bar_fixture.h"
#include "tests/window/hot_keys_fixture.h"
#include "tests/window/menu_user.h"

namespace {

using namespace OV_OrderDeck;
using window_tests::menu_line;
using window_tests::menu_user;

class ProfileMenu : public window_tests::bar_test {
protected:
    void right_click(POINT screen) const {
        SetCursorPos(screen.x, screen.y);
        POINT at = screen;
        ScreenToClient(strip(), &at);
        NMHDR notice = {strip(), 201, static_cast<UINT>(NM_RCLICK)};
        SendMessageW(bar->get_Hwnd(), WM_NOTIFY, 201, reinterpret_cast<LPARAM>(&notice));
    }

    CGlobalData global;
    test::fake_class mapping_class{
        host, CLSID_SymbolMapping, L"SymbolMapping", [this] {
            return platform::query<IUnknown>(
                platform::make_com<test::FakeSymbolMapping>(host).get()->GetUnknown());
        }};
    test::fake_class editor_class{
        host, CLSID_ProfileEditor, L"ProfileEditor", [this] {
            return platform::query<IUnknown>(
                platform::make_com<test::FakeProfileEditor>(host).get()->GetUnknown());
        }};
};

TEST_F(ProfileMenu, HasTheLinesOfTheProfileInTheirOrder) {
    const auto tab = add(L"Alpha", eTM_CC_Connected);
    tab->host_profile->have_settings = VARIANT_FALSE;
    menu_user::press({VK_ESCAPE});
    run_profile_menu(bar->get_Hwnd(), {100, 100}, tab->profile);
    EXPECT_EQ(menu_user::lines(),
              (std::vector<menu_line>{
                  {10, L"斷線 Alpha", true}, {11, L"設定經紀商 Alpha", false}, {15, L"商品轉換...", true}}));
}

TEST_F(ProfileMenu, RunsTheLineThatWasChosen) {
    const auto tab = add(L"Alpha");
    host.clear();
    menu_user::press({VK_DOWN, VK_RETURN});
    run_profile_menu(bar->get_Hwnd(), {100, 100}, tab->profile);
    EXPECT_EQ(menu_user::lines().at(0).text, L"連線 Alpha");
    EXPECT_EQ(host.count("Profile(\"Alpha\").Connect"), 1);
}

TEST_F(ProfileMenu, RunsNothingWhenItWasLeft) {
    const auto tab = add(L"Alpha");
    host.clear();
    menu_user::press({VK_ESCAPE});
    run_profile_menu(bar->get_Hwnd(), {100, 100}, tab->profile);
    EXPECT_EQ(menu_user::seen(), 1);
    EXPECT_EQ(host.count("Connect"), 0);
    EXPECT_EQ(host.count("SymbolMapping"), 0);
}

TEST_F(ProfileMenu, ComesWithARightClickOnATabWhichItSelects) {
    add(L"Alpha");
    const auto second = add(L"Beta");
    host.clear();
    menu_user::press({VK_UP, VK_RETURN});
    right_click(tab_centre(1));
    EXPECT_EQ(bar->get_CurTab(), second);
    EXPECT_EQ(menu_user::lines().at(0).text, L"連線 Beta");
    EXPECT_EQ(host.count("SymbolMapping.ShowDialog("), 1);
}

TEST_F(ProfileMenu, ShowsTheKeysOfTheHostBehindItsLinesOnBothWindows) {
    add(L"Alpha");
    const window_tests::hot_keys keys;
    keys.told().bind(10, L"Show Symbol Mapping", 6u << 16 | 'M');
    menu_user::press({VK_ESCAPE});
    right_click(tab_centre(0));
    EXPECT_EQ(menu_user::lines().at(0).text, L"連線 Alpha");
    EXPECT_EQ(menu_user::lines().at(2).text, L"商品轉換...\tCtrl + Alt + M");
    menu_user::press({VK_ESCAPE});
    SendMessageW(panel(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(menu_user::lines().at(2).text, L"商品轉換...\tCtrl + Alt + M");
    EXPECT_TRUE(asserted().empty());
}

TEST_F(ProfileMenu, DoesNotComeBesideTheTabs) {
    add(L"Alpha");
    menu_user::press({VK_ESCAPE});
    POINT beside = tab_centre(0);
    beside.x += 500;
    right_click(beside);
    menu_user::give_up();
    EXPECT_EQ(menu_user::seen(), 0);
    EXPECT_TRUE(asserted().empty());
}

TEST_F(ProfileMenu, ComesWithARightClickOnThePanel) {
    add(L"Alpha");
    menu_user::press({VK_ESCAPE});
    SendMessageW(panel(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(menu_user::seen(), 1);
    EXPECT_EQ(menu_user::lines().size(), 3u);
}

TEST_F(ProfileMenu, OfAPanelWithoutATabIsReportedAndLogged) {
    SendMessageW(panel(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(asserted().size(), 1u);
    ASSERT_EQ(reports.traces().size(), 1u);
    EXPECT_EQ(reports.traces()[0].find(L"HRESULT - 80004003; FILE - "), 0u);
}

TEST_F(ProfileMenu, TakesNoLineOfAKindThatDoesNotExist) {
    const auto tab = add(L"Alpha");
    const HMENU menu = CreatePopupMenu();
    details::command_map commands;
    details::_append_menu_item(99, tab->profile, menu, commands);
    EXPECT_EQ(GetMenuItemCount(menu), 0);
    EXPECT_TRUE(commands.empty());
    EXPECT_TRUE(asserted().empty());
    details::_append_menu_item(eODC_SymbolMapping, tab->profile, menu, commands);
    EXPECT_EQ(GetMenuItemCount(menu), 1);
    EXPECT_EQ(commands.count(15), 1u);
    DestroyMenu(menu);
}

TEST_F(ProfileMenu, ReportsALineThatCannotBeAppended) {
    const auto tab = add(L"Alpha");
    details::command_map commands;
    details::_append_menu_item(eODC_SymbolMapping, tab->profile, nullptr, commands);
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"menu.AppendMenu(flags, _cmd.first, (LPCTSTR) bsName)"});
    EXPECT_TRUE(commands.empty());
}

TEST_F(ProfileMenu, ReportsACommandThatHasNoName) {
    const HMENU menu = CreatePopupMenu();
    details::command_map commands;
    details::_append_menu_item(eODC_ToggleConnect, {}, menu, commands);
    EXPECT_EQ(asserted().back(), L"S_OK == _cmd.second->get_Name(bsName.GetAddress())");
    EXPECT_EQ(GetMenuItemCount(menu), 0);
    EXPECT_TRUE(commands.empty());
    DestroyMenu(menu);
}

TEST_F(ProfileMenu, TheSetUpButtonOpensTheProfileEditor) {
    bar->Show(true);
    click(setup_button());
    EXPECT_EQ(host.count("ProfileEditor.Show("), 1);
    EXPECT_TRUE(asserted().empty());
}

TEST_F(ProfileMenu, AnEditorThatCannotBeOpenedIsReported) {
    host.fail("Class(\"ProfileEditor\").CreateInstance", E_FAIL);
    bar->Show(true);
    click(setup_button());
    EXPECT_FALSE(asserted().empty());
    EXPECT_TRUE(IsWindow(bar->get_Hwnd()));
}

TEST_F(ProfileMenu, OtherCommandsOfTheBarAreNotItsBusiness) {
    SendMessageW(bar->get_Hwnd(), WM_COMMAND, MAKEWPARAM(229, BN_SETFOCUS), 0);
    SendMessageW(bar->get_Hwnd(), WM_COMMAND, MAKEWPARAM(230, BN_CLICKED), 0);
    EXPECT_EQ(host.count("ProfileEditor"), 0);
}

}  // namespace
