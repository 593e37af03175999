#include <windows.h>

#include <commctrl.h>

#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;

class BarInput : public window_tests::bar_test {
protected:
    // As the system asks before a click on an inactive bar.
    LRESULT activate_at(POINT screen) {
        SetCursorPos(screen.x, screen.y);
        return SendMessageW(bar->get_Hwnd(), WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(frame),
                            MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
    }
    void click_tab(int index) {
        POINT at = tab_centre(index);
        ScreenToClient(strip(), &at);
        SendMessageW(strip(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        SendMessageW(strip(), WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    }
};

TEST_F(BarInput, TheStripFillsTheBarAndThePanelItsPage) {
    add(L"A");
    MoveWindow(bar->get_Hwnd(), 0, 0, 900, 120, TRUE);
    RECT at = {};
    GetWindowRect(strip(), &at);
    MapWindowPoints(nullptr, bar->get_Hwnd(), reinterpret_cast<POINT*>(&at), 2);
    EXPECT_EQ(at.left, 0);
    EXPECT_EQ(at.top, 0);
    EXPECT_EQ(at.right, 900);
    EXPECT_EQ(at.bottom, 120);
    RECT page = {0, 0, 900, 120};
    TabCtrl_AdjustRect(strip(), FALSE, &page);
    GetWindowRect(panel(), &at);
    MapWindowPoints(nullptr, bar->get_Hwnd(), reinterpret_cast<POINT*>(&at), 2);
    EXPECT_EQ(at.left, page.left);
    EXPECT_EQ(at.top, page.top);
    EXPECT_EQ(at.right, page.right);
    EXPECT_EQ(at.bottom, page.bottom);
}

TEST_F(BarInput, OnlyTheFirstBarOfTheProcessLaysItselfOutWhenItIsShown) {
    add(L"A");
    window_tests::counting_owner second_owner;
    COrderDeckWindow second(frame, second_owner);
    const HWND second_strip = GetDlgItem(second.get_Hwnd(), 201);
    RECT before = {};
    GetWindowRect(second_strip, &before);
    ASSERT_NE(second.AddTab(boost::make_shared<window_tests::fake_tab>(host, L"B", eTM_CC_Connected), false),
              0);
    RECT after = {};
    GetWindowRect(second_strip, &after);
    EXPECT_TRUE(IsWindowVisible(second_strip));
    EXPECT_TRUE(EqualRect(&before, &after));
    SetWindowPos(second.get_Hwnd(), nullptr, 0, 0, 800, 100, SWP_NOMOVE | SWP_NOZORDER);
    GetWindowRect(second_strip, &after);
    EXPECT_EQ(after.right - after.left, 800);
}

TEST_F(BarInput, TheSetUpButtonStandsInTheMiddle) {
    MoveWindow(bar->get_Hwnd(), 0, 0, 901, 131, TRUE);
    RECT at = {};
    GetWindowRect(setup_button(), &at);
    MapWindowPoints(nullptr, bar->get_Hwnd(), reinterpret_cast<POINT*>(&at), 2);
    EXPECT_LE(std::abs(at.left + at.right - 901), 1);
    EXPECT_LE(std::abs(at.top + at.bottom - 131), 1);
    wchar_t caption[20] = {};
    GetWindowTextW(setup_button(), caption, 20);
    EXPECT_STREQ(caption, L"設定經紀商");
}

TEST_F(BarInput, AClickOnATabShowsItsFieldsAndKeepsTheQuantity) {
    const auto first = add(L"A");
    const auto second = add(L"B");
    second->symbol->value = L"OTHER";
    second->symbol->category = 7;
    SetWindowTextW(item(209), L"55");
    second->field(eODUE_Quantity).value = L"55";
    first->field(eODUE_Quantity).values.clear();
    click_tab(1);
    EXPECT_EQ(bar->get_CurTab(), second);
    EXPECT_EQ(text(203), L"OTHER");
    EXPECT_EQ(text(209), L"55");
}

TEST_F(BarInput, AClickOnATabOfAnInactiveBarWorksAtOnce) {
    add(L"A");
    const auto second = add(L"B");
    second->symbol->value = L"OTHER";
    SetFocus(frame);
    EXPECT_EQ(activate_at(tab_centre(1)), MA_ACTIVATE);
    EXPECT_EQ(bar->get_CurTab(), second);
    EXPECT_EQ(text(203), L"OTHER");
    EXPECT_EQ(GetFocus(), strip());
}

TEST_F(BarInput, AClickBesideTheTabsOnlyBringsTheFocus) {
    const auto first = add(L"A");
    add(L"B");
    SetFocus(frame);
    POINT beside = tab_centre(1);
    beside.x += 400;
    EXPECT_EQ(activate_at(beside), MA_ACTIVATE);
    EXPECT_EQ(bar->get_CurTab(), first);
    EXPECT_EQ(GetFocus(), strip());
}

TEST_F(BarInput, AFocusInTheBarStaysWhereItIs) {
    add(L"A");
    SetFocus(item(209));
    activate_at(tab_centre(0));
    EXPECT_EQ(GetFocus(), item(209));
}

TEST_F(BarInput, TheHostsFillMessageReachesTheOwnerForOneOnly) {
    SendMessageW(bar->get_Hwnd(), WM_USER + 221, 0, 0);
    SendMessageW(bar->get_Hwnd(), WM_USER + 221, 2, 0);
    EXPECT_EQ(owner.fills, 0);
    SendMessageW(bar->get_Hwnd(), 0x4dd, 1, 0);
    EXPECT_EQ(owner.fills, 1);
}

TEST_F(BarInput, WhatAHandlerThrowsIsLoggedAndTheMessageCountsAsHandled) {
    add(L"A");
    add(L"B");
    bar->RemoveAllTabs();
    reports.clear();
    NMHDR notice = {strip(), 201, static_cast<UINT>(TCN_SELCHANGE)};
    SendMessageW(bar->get_Hwnd(), WM_NOTIFY, 201, reinterpret_cast<LPARAM>(&notice));
    const auto traces = reports.traces();
    ASSERT_EQ(traces.size(), 1u);
    EXPECT_EQ(traces[0].find(L"HRESULT - 80004005; FILE - "), 0u) << test::narrow(traces[0]);
    EXPECT_NE(traces[0].find(L"OrderDeckWindow.cpp, LINE - "), CString::npos) << test::narrow(traces[0]);
}

TEST_F(BarInput, AnUnexpectedMapIdIsReportedAndTakesNothing) {
    LRESULT result = 0;
    EXPECT_FALSE(bar->ProcessWindowMessage(bar->get_Hwnd(), WM_SIZE, 0, 0, result, 1));
    EXPECT_FALSE(bar->get_Panel().ProcessWindowMessage(panel(), WM_TIMER, 0, 0, result, 7));
    EXPECT_EQ(asserted(), (std::vector<std::wstring>{L"0", L"0"}));
}

TEST_F(BarInput, AnUpdateFromAnotherThreadIsReportedAndGoesOn) {
    const auto tab = add(L"A");
    tab->asked.clear();
    struct call {
        COrderDeckWindow* bar;
        LONG id;
    } shared = {bar.get(), tab->id};
    const HANDLE thread = CreateThread(
        nullptr, 0,
        [](void* data) -> DWORD {
            const auto* const what = static_cast<call*>(data);
            what->bar->Update(what->id, UpdateMask::Buttons);
            return 0;
        },
        &shared, 0, nullptr);
    ASSERT_TRUE(pump_until([&] { return WaitForSingleObject(thread, 0) == WAIT_OBJECT_0; }));
    CloseHandle(thread);
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"not thread safe"});
    EXPECT_EQ(tab->asked, (std::vector<unsigned>{0x10000, 0x20000}));
}

TEST_F(BarInput, ABarWithoutAParentWindowIsNoBar) {
    window_tests::counting_owner nobody;
    const HWND gone =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    DestroyWindow(gone);
    EXPECT_THROW(COrderDeckWindow(gone, nobody), _com_error);
    EXPECT_EQ(asserted().size(), 1u);
}

TEST_F(BarInput, APanelWithoutABarIsRefused) {
    try {
        CProfileTabWindow panel_alone(nullptr);
        FAIL() << "nothing raised";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Error(), E_POINTER);
    }
    EXPECT_EQ(asserted().size(), 1u);
}

}  // namespace
