// What the panel asks of the system, and what becomes of it when the system refuses.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>
#include <uxtheme.h>

#include <tuple>

#include "charting/orderdeck/src/root/GlobalData.h"
#include "tests/support/win32/told_import.h"
#include "tests/window/bar_fixture.h"
#include "tests/window/menu_user.h"

namespace {

using namespace OV_OrderDeck;
using test::told_import;
using testing::ElementsAre;
using testing::IsEmpty;
using window_tests::menu_line;

class PanelBirth : public window_tests::bar_test {
protected:
    // Another panel of the bar, made and ended.
    void make_panel() {
        CProfileTabWindow another(bar.get());
        EXPECT_TRUE(another.Create(bar->get_Hwnd()));
    }
};

TEST_F(PanelBirth, PartsAreAttachedInTheirOrder) {
    using system_call = told_import<"SetWindowSubclass", decltype(SetWindowSubclass)>;
    std::vector<int> attached;
    const system_call told([&](HWND window, SUBCLASSPROC procedure, UINT_PTR id, DWORD_PTR data) {
        attached.push_back(GetDlgCtrlID(window));
        return system_call::real(window, procedure, id, data);
    });
    make_panel();
    const std::vector<int> parts = {228, 225, 227, 203, 203, 214, 217, 209, 10003, 231};
    ASSERT_GE(attached.size(), parts.size());
    attached.resize(parts.size());
    EXPECT_EQ(attached, parts) << "the second 203 and 10003 are the small buttons in 203 and 209";
}

TEST_F(PanelBirth, TheDatesTimerComesEveryMinuteToTheDate) {
    using system_call = told_import<"SetTimer", decltype(SetTimer)>;
    std::vector<std::tuple<int, UINT_PTR, UINT>> timers;
    const system_call told([&](HWND window, UINT_PTR id, UINT period, TIMERPROC procedure) {
        timers.emplace_back(GetDlgCtrlID(window), id, period);
        return system_call::real(window, id, period, procedure);
    });
    make_panel();
    EXPECT_THAT(timers, ElementsAre(std::tuple(228, 1751, 60000)));
}

TEST_F(PanelBirth, BoxesAreToldTheHeightOfTheSymbolLessSixForBothParts) {
    using system_call = told_import<"SendMessageW", decltype(SendMessageW)>;
    std::vector<std::tuple<int, int, LPARAM>> heights;
    LPARAM expected = 0;
    const system_call told([&](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == CB_SETITEMHEIGHT) {
            heights.emplace_back(GetDlgCtrlID(window), static_cast<int>(wParam), lParam);
            RECT symbol = {};
            GetWindowRect(GetDlgItem(GetParent(window), 203), &symbol);
            expected = symbol.bottom - symbol.top - 6;
        }
        return system_call::real(window, message, wParam, lParam);
    });
    make_panel();
    EXPECT_GT(expected, 0);
    EXPECT_THAT(heights, ElementsAre(std::tuple(206, -1, expected), std::tuple(206, 0, expected),
                                     std::tuple(220, -1, expected), std::tuple(220, 0, expected),
                                     std::tuple(222, -1, expected), std::tuple(222, 0, expected)));
}

TEST_F(PanelBirth, WithoutASymbolEditThePanelStandsWithoutItsSmallButton) {
    using system_call = told_import<"IsWindow", decltype(IsWindow)>;
    const system_call told(
        [](HWND window) { return GetDlgCtrlID(window) == 203 ? FALSE : system_call::real(window); });
    CProfileTabWindow another(bar.get());
    EXPECT_TRUE(another.Create(bar->get_Hwnd()));
    EXPECT_EQ(GetDlgItem(GetDlgItem(another.get_Hwnd(), 203), 203), nullptr);
    EXPECT_NE(GetDlgItem(GetDlgItem(another.get_Hwnd(), 209), 10003), nullptr) << "the others stand";
}

TEST_F(PanelBirth, ThePanelIsItsSymbolsSinkThenItsQuantitysHostThenADialog) {
    const CProfileTabWindow& panel_window = bar->get_Panel();
    const void* const sink = static_cast<const WTLControls::IEditCommandSink2*>(&panel_window);
    const void* const number_host =
        static_cast<const WTLControls::NumberEditors::INumberEditorHost*>(&panel_window);
    const void* const dialog = static_cast<const frame::dialog*>(&panel_window);
    EXPECT_EQ(sink, static_cast<const void*>(&panel_window));
    EXPECT_LT(sink, number_host);
    EXPECT_LT(number_host, dialog);
}

// The visual style of the process as a test says.
class told_theme {
public:
    bool themed = true;
    bool textured = true;
    HRESULT result = S_OK;
    std::vector<DWORD> flags;

private:
    told_import<"IsAppThemed", decltype(IsAppThemed)> m_themed{[this] { return BOOL{themed}; }};
    told_import<"IsThemeDialogTextureEnabled", decltype(IsThemeDialogTextureEnabled)> m_textured{
        [this](HWND) { return BOOL{textured}; }};
    told_import<"EnableThemeDialogTexture", decltype(EnableThemeDialogTexture)> m_enable{
        [this](HWND, DWORD told) {
            flags.push_back(told);
            return result;
        }};
};

TEST_F(PanelBirth, AThemedPanelAsksForTheTextureOfATabsPage) {
    told_theme theme;
    make_panel();
    EXPECT_THAT(theme.flags, ElementsAre(6u));
    EXPECT_THAT(asserted(), IsEmpty());
}

TEST_F(PanelBirth, ATextureThatIsRefusedIsReportedAndThePanelStands) {
    told_theme theme;
    theme.result = E_ACCESSDENIED;
    make_panel();
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].hresult, E_ACCESSDENIED);
}

TEST_F(PanelBirth, WithoutAVisualStyleOrTexturesNoneIsAskedFor) {
    told_theme theme;
    theme.themed = false;
    make_panel();
    theme.themed = true;
    theme.textured = false;
    make_panel();
    EXPECT_THAT(theme.flags, IsEmpty());
}

// The system's menu, which at once gives the id that a test chose.
class PanelMenu : public window_tests::bar_test {
protected:
    PanelMenu() { tab = add(L"Alpha", eTM_CC_Connected); }

    LRESULT right_click() {
        reports.clear();
        host.clear();
        return SendMessageW(panel(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(7, 5));
    }
    bool logged(const wchar_t* start) const {
        return reports.traces().size() == 1 && reports.traces()[0].find(start) == 0;
    }

    struct shown_menu {
        HMENU menu;
        UINT flags;
        POINT at;
        HWND owner;
        std::vector<menu_line> lines;
    };
    std::vector<shown_menu> shown;
    BOOL chosen = 0;

    CGlobalData global;
    test::fake_class mapping_class{
        host, CLSID_SymbolMapping, L"SymbolMapping", [this] {
            return platform::query<IUnknown>(
                platform::make_com<test::FakeSymbolMapping>(host).get()->GetUnknown());
        }};
    boost::shared_ptr<window_tests::fake_tab> tab;
    told_import<"TrackPopupMenu", decltype(TrackPopupMenu)> tracked{
        [this](HMENU menu, UINT flags, int x, int y, int, HWND asker, const RECT*) {
            shown.push_back({menu, flags, {x, y}, asker, window_tests::lines_of(menu)});
            return chosen;
        }};
};

TEST_F(PanelMenu, StandsAtTheMouseWithItsLinesInOrderAndTellsThePanelNothing) {
    tab->host_profile->have_settings = VARIANT_FALSE;
    right_click();
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].flags, 0x180u);
    POINT at = {7, 5};
    ClientToScreen(panel(), &at);
    EXPECT_EQ(shown[0].at.x, at.x);
    EXPECT_EQ(shown[0].at.y, at.y);
    EXPECT_EQ(shown[0].owner, panel());
    EXPECT_EQ(shown[0].lines,
              (std::vector<menu_line>{
                  {10, L"斷線 Alpha", true}, {11, L"設定經紀商 Alpha", false}, {15, L"商品轉換...", true}}));
}

TEST_F(PanelMenu, EndsWithTheClickWhateverWasChosen) {
    for (const BOOL each : {0, 10, 15, 99}) {
        shown.clear();
        chosen = each;
        right_click();
        ASSERT_EQ(shown.size(), 1u) << each;
        EXPECT_FALSE(IsMenu(shown[0].menu)) << each;
    }
}

TEST_F(PanelMenu, RunsTheLineOfTheIdThatCameBackAndNoneForAnother) {
    chosen = 15;
    right_click();
    EXPECT_EQ(host.count("SymbolMapping.ShowDialog("), 1);
    for (const BOOL each : {0, 1, 2, 12, 13, 14, 99}) {
        chosen = each;
        right_click();
        EXPECT_EQ(host.count("SymbolMapping"), 0) << each;
        EXPECT_EQ(host.count("Connect()"), 0) << each;
        EXPECT_THAT(asserted(), IsEmpty()) << each;
    }
}

TEST_F(PanelMenu, ALineThatCannotBeUsedIsGreyAndDisabled) {
    using system_call = told_import<"AppendMenuW", decltype(AppendMenuW)>;
    std::vector<std::pair<UINT, UINT_PTR>> appended;
    const system_call told([&](HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text) {
        appended.emplace_back(flags, id);
        return system_call::real(menu, flags, id, text);
    });
    tab->host_profile->have_settings = VARIANT_FALSE;
    right_click();
    EXPECT_THAT(appended, ElementsAre(std::pair(0u, 10u), std::pair(3u, 11u), std::pair(0u, 15u)));
}

TEST_F(PanelMenu, WithoutAMenuIsReportedAndLogged) {
    const told_import<"CreatePopupMenu", decltype(CreatePopupMenu)> told([] { return HMENU{nullptr}; });
    right_click();
    EXPECT_EQ(asserted().size(), 1u);
    EXPECT_TRUE(logged(L"HRESULT - 80004005; FILE - "));
    EXPECT_THAT(shown, IsEmpty());
    EXPECT_THAT(host.calls(), IsEmpty()) << "no line is made";
}

TEST_F(PanelMenu, APlaceThatIsNotOnTheScreenIsReportedAndLoggedBeforeTheTabIsAsked) {
    const told_import<"ClientToScreen", decltype(ClientToScreen)> told(
        [](HWND, LPPOINT) { return BOOL{FALSE}; });
    bar->RemoveAllTabs();
    right_click();
    EXPECT_EQ(asserted().size(), 1u);
    EXPECT_TRUE(logged(L"HRESULT - 80004005; FILE - ")) << "a missing tab would be 80004003";
    EXPECT_THAT(shown, IsEmpty());
}

TEST_F(PanelMenu, ACommandThatCannotTellItsStateIsReportedAndHasNoLine) {
    host.on_call("Profile.get_HaveSettings", [] { throw std::bad_alloc(); });
    right_click();
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"S_OK == _cmd.second->get_Enabled(&bEnable)"});
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].lines,
              (std::vector<menu_line>{{10, L"斷線 Alpha", true}, {15, L"商品轉換...", true}}));
    chosen = 11;
    right_click();
    EXPECT_EQ(host.count("ShowSettings"), 0) << "nor is it among the commands";
}

TEST_F(PanelMenu, ALineThatCannotBeAppendedIsReportedAndIsNotAmongTheCommands) {
    using system_call = told_import<"AppendMenuW", decltype(AppendMenuW)>;
    const system_call told([](HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text) {
        return id == 15 ? FALSE : system_call::real(menu, flags, id, text);
    });
    chosen = 15;
    right_click();
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"menu.AppendMenu(flags, _cmd.first, (LPCTSTR) bsName)"});
    EXPECT_EQ(host.count("SymbolMapping"), 0);
}

}  // namespace
