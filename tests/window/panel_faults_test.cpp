// What is thrown while the panel handles a message ends there.
#include <windows.h>

#include <commctrl.h>
#include <uxtheme.h>

#include <stdexcept>

#include "tests/support/win32/told_import.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using lookups = std::vector<window_tests::fake_symbol::lookup>;

struct fault {
    std::function<void()> raise;
    const wchar_t* logged;
};

const fault faults[] = {
    {[] { _com_issue_error(E_ABORT); }, L"HRESULT - 80004004; FILE - "},
    {[] { throw std::out_of_range("no row"); }, L"std::out_of_range - no row; FILE - "},
    {[] { throw std::runtime_error("trouble"); }, L"std::exception - trouble; FILE - "},
    {[] { throw 5; }, L"unknown exception; FILE - "},
};

class PanelFaults : public window_tests::bar_test {
protected:
    PanelFaults() { tab = add(L"A"); }

    // Handled by the panel's own map, whatever the message's result is.
    bool handles(UINT message, WPARAM wParam, LPARAM lParam) {
        LRESULT result = 0;
        return bar->get_Panel().ProcessWindowMessage(panel(), message, wParam, lParam, result, 0) != FALSE;
    }
    bool command(int id, int code) {
        return handles(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(item(id)));
    }
    // One trace that begins as told and names the file.
    void expect_logged(const std::wstring& start, const wchar_t* file = L"ProfileTabWindow.cpp, LINE - ") {
        const auto traces = reports.traces();
        ASSERT_EQ(traces.size(), 1u);
        EXPECT_EQ(traces[0].find(start), 0u) << test::narrow(traces[0]);
        EXPECT_NE(traces[0].find(file), CString::npos) << test::narrow(traces[0]);
        reports.clear();
    }
    // Whatever a field throws at a message of its window is logged, and the message counts as handled.
    void expect_kept(OD_UpdateEntity entity, const std::function<bool()>& send) {
        for (const fault& each : faults) {
            tab->field(entity).when_told = each.raise;
            reports.clear();
            EXPECT_TRUE(send()) << each.logged;
            expect_logged(each.logged);
        }
        tab->field(entity).when_told = {};
    }

    boost::shared_ptr<window_tests::fake_tab> tab;
};

TEST_F(PanelFaults, OfAClickAreLogged) {
    expect_kept(eODUE_Buy, [&] { return command(225, BN_CLICKED); });
}

TEST_F(PanelFaults, OfAChoiceAreLogged) {
    expect_kept(eODUE_OrderType, [&] { return command(206, CBN_SELCHANGE); });
}

TEST_F(PanelFaults, OfATypedPriceAreLogged) {
    expect_kept(eODUE_FirstPrice, [&] { return command(214, EN_UPDATE); });
    expect_kept(eODUE_SecondPrice, [&] { return command(217, EN_UPDATE); });
}

TEST_F(PanelFaults, OfASpinAreLogged) {
    NMUPDOWN notice = {{item(213), 213, static_cast<UINT>(UDN_DELTAPOS)}, 0, 1};
    expect_kept(eODUE_FirstPrice, [&] { return handles(WM_NOTIFY, 213, reinterpret_cast<LPARAM>(&notice)); });
}

TEST_F(PanelFaults, OfADateAreLogged) {
    NMDATETIMECHANGE notice = {
        {item(228), 228, static_cast<UINT>(DTN_DATETIMECHANGE)}, GDT_VALID, {2030, 1, 0, 1, 0, 0, 0, 0}};
    expect_kept(eODUE_GtdDate, [&] { return handles(WM_NOTIFY, 228, reinterpret_cast<LPARAM>(&notice)); });
}

TEST_F(PanelFaults, OfTheBackgroundAreLogged) {
    const HDC dc = GetDC(panel());
    for (const fault& each : faults) {
        tab->when_coloured = each.raise;
        reports.clear();
        EXPECT_TRUE(handles(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0));
        expect_logged(each.logged);
    }
    tab->when_coloured = {};
    ReleaseDC(panel(), dc);
}

TEST_F(PanelFaults, OfASlideAreLogged) {
    using begin_moves = test::told_import<"BeginDeferWindowPos", decltype(BeginDeferWindowPos)>;
    using start_timer = test::told_import<"SetTimer", decltype(SetTimer)>;
    UINT_PTR slide = 0;
    {
        const start_timer noting([&](HWND window, UINT_PTR id, UINT period, TIMERPROC procedure) {
            slide = id;
            return start_timer::real(window, id, period, procedure);
        });
        tab->field(eODUE_FirstPrice).hidden = true;
        bar->Update(tab->id, eODUE_FirstPrice);
    }
    ASSERT_NE(slide, 0u);
    reports.clear();
    const begin_moves refusing([](int) { return HDWP{nullptr}; });
    EXPECT_TRUE(handles(WM_TIMER, slide, 0));
    expect_logged(L"HRESULT - 80004005; FILE - ");
}

TEST_F(PanelFaults, OfThePanelsBirthAreLoggedAndThePanelStands) {
    const test::told_import<"IsAppThemed", decltype(IsAppThemed)> failing(
        []() -> BOOL { throw std::runtime_error("no style"); });
    reports.clear();
    CProfileTabWindow another(bar.get());
    EXPECT_TRUE(another.Create(bar->get_Hwnd()));
    EXPECT_TRUE(IsWindow(another.get_Hwnd()));
    ASSERT_FALSE(reports.traces().empty());
    EXPECT_NE(reports.traces()[0].find(L"std::exception - no style; FILE - "), CString::npos);
}

TEST_F(PanelFaults, OfAQuantityAreLoggedAndTheNextOneArrives) {
    auto& quantity = tab->field(eODUE_Quantity);
    quantity.when_told = faults[0].raise;
    reports.clear();
    SetWindowTextW(item(209), L"25");
    ASSERT_EQ(reports.traces().size(), 1u);
    EXPECT_EQ(reports.traces()[0].find(faults[0].logged), 0u);
    quantity.when_told = {};
    SetWindowTextW(item(209), L"26");
    EXPECT_STREQ(quantity.values.back().bstrVal, L"26");
}

TEST_F(PanelFaults, OfALookupAreLoggedAndTheNextOneIsMade) {
    for (const fault& each : faults) {
        reports.clear();
        SetFocus(item(203));
        SetWindowTextW(item(203), L"es");
        tab->symbol->in_dialog = each.raise;
        SendMessageW(item(203), WM_KEYDOWN, VK_RETURN, 1);
        expect_logged(each.logged, L"EditCommand.cpp, LINE - ");
        tab->symbol->in_dialog = {};
        tab->symbol->lookups.clear();
        SetWindowTextW(item(203), L"nq");
        SetFocus(item(209));
        EXPECT_EQ(tab->symbol->lookups, (lookups{{L"nq", false, true}})) << "no action runs any more";
        tab->symbol->lookups.clear();
    }
}

TEST_F(PanelFaults, OfALookupsDialogAreLoggedAndTheNextLookupIsMade) {
    SetFocus(item(203));
    tab->symbol->in_dialog = faults[0].raise;
    reports.clear();
    click(GetDlgItem(item(203), 203));
    expect_logged(faults[0].logged, L"DrawnButton.cpp, LINE - ");
    tab->symbol->in_dialog = {};
    SetFocus(item(203));
    SetWindowTextW(item(203), L"nq");
    SetFocus(item(209));
    EXPECT_EQ(tab->symbol->lookups, (lookups{{L"nq", false, true}}));
}

TEST_F(PanelFaults, MessagesThatNoHandlerTakesAreDeclined) {
    EXPECT_FALSE(command(209, EN_UPDATE)) << "the quantity hears of it itself";
    EXPECT_FALSE(command(203, EN_UPDATE));
    EXPECT_FALSE(command(999, EN_UPDATE));
    EXPECT_FALSE(command(214, EN_CHANGE));
    EXPECT_FALSE(command(206, CBN_DROPDOWN));
    EXPECT_FALSE(handles(WM_SIZE, 0, 0));
    EXPECT_FALSE(handles(WM_ERASEBKGND, 0, 0)) << "a tab without colours leaves the background";
    NMHDR notice = {item(228), 228, static_cast<UINT>(DTN_DROPDOWN)};
    EXPECT_FALSE(handles(WM_NOTIFY, 228, reinterpret_cast<LPARAM>(&notice)));
    EXPECT_TRUE(reports.traces().empty());
    bar->RemoveAllTabs();
    EXPECT_FALSE(handles(WM_ERASEBKGND, 0, 0)) << "no tab";
    EXPECT_TRUE(reports.traces().empty());
}

}  // namespace
