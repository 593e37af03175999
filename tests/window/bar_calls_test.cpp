// What the bar asks of the system and of its tabs, and what becomes of it when the system refuses.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include "charting/orderdeck/src/root/GlobalData.h"
#include "charting/orderdeck/src/window/ProfileMenu.h"
#include "tests/support/win32/told_import.h"
#include "tests/window/bar_fixture.h"
#include "tests/window/menu_user.h"

namespace {

using namespace OV_OrderDeck;
using test::told_import;
using testing::ElementsAre;
using testing::IsEmpty;
using window_tests::fake_tab;
using window_tests::menu_line;

class BarCalls : public window_tests::bar_test {
protected:
    LRESULT activate() { return SendMessageW(bar->get_Hwnd(), WM_MOUSEACTIVATE, 0, 0); }
    LRESULT right_click() {
        NMHDR notice = {strip(), 201, static_cast<UINT>(NM_RCLICK)};
        return SendMessageW(bar->get_Hwnd(), WM_NOTIFY, 201, reinterpret_cast<LPARAM>(&notice));
    }
    void expect_logged(const wchar_t* code) const {
        EXPECT_EQ(asserted().size(), 1u);
        ASSERT_EQ(reports.traces().size(), 1u);
        EXPECT_EQ(reports.traces()[0].find(std::wstring(L"HRESULT - ") + code + L"; FILE - "), 0u);
    }
};

TEST_F(BarCalls, WithoutAMouseAnActivationAndARightClickAreReportedAndLogged) {
    add(L"A");
    const told_import<"GetCursorPos", decltype(GetCursorPos)> told([](LPPOINT) { return BOOL{FALSE}; });
    EXPECT_EQ(activate(), 0);
    expect_logged(L"80004005");
    EXPECT_EQ(GetFocus(), strip()) << "the focus comes first";
    reports.clear();
    right_click();
    expect_logged(L"80004005");
}

TEST_F(BarCalls, APlaceThatIsNotOnTheStripIsReportedAndLogged) {
    add(L"A");
    const told_import<"ScreenToClient", decltype(ScreenToClient)> told(
        [](HWND, LPPOINT) { return BOOL{FALSE}; });
    activate();
    expect_logged(L"80004005");
    reports.clear();
    right_click();
    expect_logged(L"80004005");
}

// The mouse and the system's menu, as a test says.
class BarMenu : public BarCalls {
protected:
    BarMenu() : tab(add(L"Alpha", eTM_CC_Connected)), other(add(L"Beta")) {
        at = tab_centre(0);
        reports.clear();
        host.clear();
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
    POINT at = {};

    CGlobalData global;
    test::fake_class mapping_class{
        host, CLSID_SymbolMapping, L"SymbolMapping", [this] {
            return platform::query<IUnknown>(
                platform::make_com<test::FakeSymbolMapping>(host).get()->GetUnknown());
        }};
    boost::shared_ptr<fake_tab> tab;
    boost::shared_ptr<fake_tab> other;
    told_import<"GetCursorPos", decltype(GetCursorPos)> cursor{[this](LPPOINT where) {
        *where = at;
        return TRUE;
    }};
    told_import<"TrackPopupMenu", decltype(TrackPopupMenu)> tracked{
        [this](HMENU menu, UINT flags, int x, int y, int, HWND asker, const RECT*) {
            shown.push_back({menu, flags, {x, y}, asker, window_tests::lines_of(menu)});
            return chosen;
        }};
};

TEST_F(BarMenu, StandsAtTheMouseWithItsLinesInOrderAndTellsTheBarNothing) {
    EXPECT_EQ(right_click(), 0);
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].flags, 0x180u);
    EXPECT_EQ(shown[0].at.x, at.x);
    EXPECT_EQ(shown[0].at.y, at.y);
    EXPECT_EQ(shown[0].owner, bar->get_Hwnd());
    EXPECT_EQ(shown[0].lines,
              (std::vector<menu_line>{
                  {10, L"斷線 Alpha", true}, {11, L"設定經紀商 Alpha", true}, {15, L"商品轉換...", true}}));
    EXPECT_FALSE(IsMenu(shown[0].menu)) << "it ends with the click";
}

TEST_F(BarMenu, RunsTheLineOfTheIdThatCameBackAndNoneForAnother) {
    chosen = 15;
    right_click();
    EXPECT_EQ(host.count("SymbolMapping.ShowDialog("), 1);
    for (const BOOL each : {0, 1, 2, 12, 13, 99}) {
        host.clear();
        chosen = each;
        right_click();
        EXPECT_EQ(host.count("SymbolMapping"), 0) << each;
        EXPECT_EQ(host.count("Connect()"), 0) << each;
    }
    EXPECT_THAT(asserted(), IsEmpty());
}

TEST_F(BarMenu, OnAnotherTabSelectsItAsAProgramDoesBeforeItsLinesAreMade) {
    other->symbol->category = 7;
    other->asked.clear();
    at = tab_centre(1);
    right_click();
    EXPECT_EQ(bar->get_CurTab(), other);
    EXPECT_FALSE(other->asked.empty());
    EXPECT_FALSE(other->field(eODUE_Quantity).values.empty()) << "another category starts with its quantity";
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].lines.at(0).text, L"連線 Beta");
}

TEST_F(BarMenu, OnTheCurrentTabAsksNoFieldAnew) {
    tab->asked.clear();
    right_click();
    EXPECT_THAT(tab->asked, IsEmpty());
    EXPECT_EQ(shown.size(), 1u);
}

TEST_F(BarMenu, BesideTheTabsThereIsNone) {
    at.x += 500;
    EXPECT_EQ(right_click(), 0);
    EXPECT_THAT(shown, IsEmpty());
    EXPECT_EQ(bar->get_CurTab(), tab);
}

TEST_F(BarMenu, OnAnItemThatIsNoTabIsReportedAndLogged) {
    TCITEMW item = {};
    item.mask = TCIF_PARAM | TCIF_TEXT;
    item.pszText = const_cast<wchar_t*>(L"Stranger");
    item.lParam = 777777;
    SendMessageW(strip(), TCM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    SendMessageW(strip(), TCM_SETCURSEL, 0, 0);
    at = tab_centre(0);
    right_click();
    expect_logged(L"80004003");
    EXPECT_THAT(shown, IsEmpty());
}

TEST_F(BarMenu, WithoutAMenuIsReportedAndLogged) {
    const told_import<"CreatePopupMenu", decltype(CreatePopupMenu)> told([] { return HMENU{nullptr}; });
    right_click();
    expect_logged(L"80004005");
    EXPECT_THAT(shown, IsEmpty());
    EXPECT_THAT(host.calls(), IsEmpty()) << "no line is made";
}

TEST_F(BarCalls, WithoutItsPictureIsReportedAndTheStripHasNoImages) {
    using system_call = told_import<"FindResourceW", decltype(FindResourceW)>;
    const system_call told([](HMODULE module, LPCWSTR name, LPCWSTR type) {
        return name == MAKEINTRESOURCEW(212) ? nullptr : system_call::real(module, name, type);
    });
    window_tests::counting_owner second_owner;
    COrderDeckWindow second(frame, second_owner);
    EXPECT_THAT(asserted(), ElementsAre(L"0"));
    EXPECT_EQ(TabCtrl_GetImageList(GetDlgItem(second.get_Hwnd(), 201)), nullptr);
    EXPECT_NE(second.AddTab(boost::make_shared<fake_tab>(host, L"A", eTM_CC_Connected), false), 0);
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(second.get_Hwnd(), 201))) << "the bar stands without them";
}

// The mean colour of what an image shows on black.
struct colour_sum {
    int red = 0;
    int green = 0;
    int blue = 0;
};

colour_sum colours_of(HIMAGELIST list, int image) {
    const HDC dc = CreateCompatibleDC(nullptr);
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(info.bmiHeader), 16, -16, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    ImageList_Draw(list, image, dc, 0, 0, ILD_TRANSPARENT);
    colour_sum result;
    for (int i = 0; i < 256; ++i) {
        const COLORREF pixel = GetPixel(dc, i % 16, i / 16);
        result.red += GetRValue(pixel);
        result.green += GetGValue(pixel);
        result.blue += GetBValue(pixel);
    }
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    return result;
}

TEST_F(BarCalls, TheMarksAreRedGreenAndYellow) {
    const HIMAGELIST list = TabCtrl_GetImageList(strip());
    const colour_sum red = colours_of(list, 0);
    EXPECT_GT(red.red, 2 * red.green);
    EXPECT_GT(red.red, 2 * red.blue);
    const colour_sum green = colours_of(list, 1);
    EXPECT_GT(2 * green.green, 3 * green.red);
    EXPECT_GT(2 * green.green, 3 * green.blue);
    const colour_sum yellow = colours_of(list, 2);
    EXPECT_GT(yellow.red, 2 * yellow.blue);
    EXPECT_GT(yellow.green, 2 * yellow.blue);
    for (const colour_sum& each : {red, green, yellow}) {
        EXPECT_LT(each.red + each.green + each.blue, 256 * 3 * 200) << "transparent round the mark";
    }
}

// Answers as told; notes how often it ran.
class told_command : public platform::com_root<IOD_ProfileCmd> {
public:
    HRESULT asked = S_OK;
    VARIANT_BOOL enabled = VARIANT_TRUE;
    HRESULT result = S_OK;
    int runs = 0;

    STDMETHODIMP Execute() noexcept override {
        ++runs;
        return result;
    }
    STDMETHODIMP ExecuteEx(VARIANT) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP get_Name(BSTR*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP get_Enabled(VARIANT_BOOL* out) noexcept override {
        *out = enabled;
        return asked;
    }
    STDMETHODIMP get_Checked(VARIANT_BOOL*) noexcept override { return E_NOTIMPL; }
};

TEST_F(BarCalls, ACommandThatIsUsableRunsAndReportsItsFailure) {
    const auto command = platform::make_com<told_command>();
    run_if_enabled(*command);
    EXPECT_EQ(command->runs, 1);
    EXPECT_THAT(asserted(), IsEmpty());
    command->result = E_ACCESSDENIED;
    run_if_enabled(*command);
    EXPECT_EQ(command->runs, 2);
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].hresult, E_ACCESSDENIED);
}

TEST_F(BarCalls, ACommandThatIsNotUsableIsReportedAndDoesNotRun) {
    const auto command = platform::make_com<told_command>();
    command->enabled = VARIANT_FALSE;
    run_if_enabled(*command);
    EXPECT_EQ(command->runs, 0);
    EXPECT_THAT(asserted(), ElementsAre(L"bEnabled"));
}

TEST_F(BarCalls, ACommandThatCannotTellIsReported) {
    const auto command = platform::make_com<told_command>();
    command->asked = E_OUTOFMEMORY;
    command->enabled = VARIANT_FALSE;
    run_if_enabled(*command);
    EXPECT_EQ(command->runs, 0);
    ASSERT_EQ(reports.assertions().size(), 2u);
    EXPECT_EQ(reports.assertions()[0].hresult, E_OUTOFMEMORY);
    EXPECT_EQ(asserted()[1], L"bEnabled");
}

}  // namespace
