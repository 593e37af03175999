// The true tab on the true panel: what a user does there and what the host hears of it.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include "charting/orderdeck/src/root/GlobalData.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "platform/resources.h"
#include "tests/support/recording_desktop.h"
#include "tests/support/win32/told_import.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using testing::ElementsAre;
using testing::IsEmpty;
using calls = std::vector<std::string>;

test::symbol instrument(LONG id, const CString& name, LONG category) {
    test::symbol result;
    result.id = id;
    result.name = name;
    result.category = category;
    result.price_scale_code = 2;
    result.expiry = 45000.0;
    return result;
}

// Two rows of a host that knows the stocks AAA and BBB and the future ESZ6, the first one connected.
class WholeRow : public window_tests::bar_test {
protected:
    WholeRow() {
        desktop.set_main_frame(main_frame);
        global->put_Hwnd(bar->get_Hwnd());
        global->put_OnCommand(sink.get());
        lookup->supported = false;
        lookup->by_name[L"AAA"] = instrument(1, L"AAA", 2);
        lookup->by_name[L"BBB"] = instrument(2, L"BBB", 2);
        lookup->by_name[L"ESZ6"] = instrument(3, L"ESZ6", 3);
        first = add_row(L"Alpha", eTM_CC_Connected);
        second = add_row(L"Beta", eTM_CC_Disconnected);
        bar->SelectTab(rows[0]->get_Id());
        host.clear();
        reports.clear();
    }
    ~WholeRow() override { bar->RemoveAllTabs(); }

    com_ptr<test::FakeProfile> add_row(const CString& name, ETM_ConnectionChanged state) {
        const auto profile = platform::make_com<test::FakeProfile>(host, name);
        profile->plugin = L"CQG-FIX";
        profile->state = state;
        profile->trading->accounts = {L"A1", L"A2"};
        for (LONG category = 1; category <= 4; ++category) {
            profile->trading->times_in_force[category] = {1, 2, 3, 4, 5, 6};
        }
        const auto row = boost::make_shared<CTab>(platform::make_com<CProfileWrap>(profile.get()));
        row->SetContent(bar);
        EXPECT_NE(bar->AddTab(row, false), 0);
        window_tests::fake_tab::note_id(row->get_Id());
        profile->fire_state(state);
        rows.push_back(row);
        return profile;
    }

    void type(int id, const wchar_t* characters) {
        SetFocus(item(id));
        SendMessageW(item(id), EM_SETSEL, 0, -1);
        for (; *characters != L'\0'; ++characters) {
            SendMessageW(item(id), WM_CHAR, *characters, 1);
        }
    }
    // Types a name and presses Enter.
    void enter_symbol(const wchar_t* name) {
        SetFocus(item(203));
        SetWindowTextW(item(203), name);
        SendMessageW(item(203), WM_KEYDOWN, VK_RETURN, 1);
    }
    void choose(int id, const CString& entry) {
        const LRESULT index = SendMessageW(item(id), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                           reinterpret_cast<LPARAM>(entry.c_str()));
        ASSERT_NE(index, CB_ERR) << test::narrow(entry);
        SendMessageW(item(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        SendMessageW(panel(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(item(id)));
    }
    void pick(DWORD flags, const SYSTEMTIME& date) {
        NMDATETIMECHANGE notice = {{item(228), 228, static_cast<UINT>(DTN_DATETIMECHANGE)}, flags, date};
        SendMessageW(panel(), WM_NOTIFY, 228, reinterpret_cast<LPARAM>(&notice));
    }
    void press_quotes() {
        SendMessageW(item(231), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
        SendMessageW(item(231), WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
        pump();
    }
    bool usable(int id) const { return IsWindowEnabled(item(id)) != FALSE; }
    // The calls so far that a host's desk would see.
    calls of_trading() {
        calls result = host.take();
        std::erase_if(result, [](const std::string& call) {
            return call.find("ManualTrading(\"") == std::string::npos;
        });
        return result;
    }

    test::com_apartment apartment;
    test::recording_desktop desktop;
    HWND main_frame = desktop.make_window(L"host");
    CGlobalData global;
    com_ptr<test::FakeOnCommand> sink = platform::make_com<test::FakeOnCommand>(host);
    com_ptr<test::FakeLookup> lookup = platform::make_com<test::FakeLookup>(host);
    test::fake_class lookup_class{host, __uuidof(LookupImpl), L"LookupImpl",
                                  [this] { return com_ptr<IUnknown>(lookup->GetUnknown()); }};
    std::vector<boost::shared_ptr<CTab>> rows;
    com_ptr<test::FakeProfile> first;
    com_ptr<test::FakeProfile> second;
};

TEST_F(WholeRow, ASymbolThatIsTypedIsLookedUpOnceAndQuotedOnce) {
    enter_symbol(L"AAA");
    EXPECT_THAT(
        host.take(),
        ElementsAre("Class(\"LookupImpl\").CreateInstance()", "Profile(\"Alpha\").get_PluginName()",
                    "Lookup.Initialize(" + std::to_string(reinterpret_cast<INT_PTR>(main_frame)) +
                        ", \"CQG-FIX\", 0, null)",
                    "Lookup.GetSymbolInfo(\"AAA\", 0, null)", "Profile(\"Alpha\").get_ManualTrading()",
                    "ManualTrading(\"Alpha\").GetAccounts()", "Profile(\"Alpha\").get_ManualTrading()",
                    "ManualTrading(\"Alpha\").SetSymbol(\"AAA\", \"CQG\")"));
    EXPECT_EQ(text(203), L"AAA");
    EXPECT_THAT(desktop.message_boxes(), IsEmpty()) << "the profile is connected";
    SetFocus(item(209));
    EXPECT_THAT(host.calls(), IsEmpty()) << "leaving it unchanged is nothing new";
}

TEST_F(WholeRow, EnterOnTheUnchangedSymbolOfADisconnectedProfileAsksNothing) {
    bar->SelectTab(rows[1]->get_Id());
    desktop.answer_message_box(IDNO);
    enter_symbol(L"AAA");
    ASSERT_EQ(desktop.message_boxes().size(), 1u);
    EXPECT_EQ(desktop.message_boxes()[0].text, L"目前尚未連線至 Beta 。是否建立連線?");
    EXPECT_EQ(desktop.message_boxes()[0].owner, main_frame);
    EXPECT_EQ(desktop.message_boxes()[0].caption, platform::main_version_string(L"ProductName"));
    desktop.forget();
    host.clear();
    enter_symbol(L"AAA");
    EXPECT_THAT(desktop.message_boxes(), IsEmpty());
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(WholeRow, LeavingANewSymbolOfADisconnectedProfileAsksNothing) {
    bar->SelectTab(rows[1]->get_Id());
    SetFocus(item(203));
    SetWindowTextW(item(203), L"BBB");
    host.clear();
    SetFocus(frame);
    EXPECT_EQ(host.count("Lookup.GetSymbolInfo(\"BBB\", 1, null)"), 1) << "quietly";
    EXPECT_EQ(text(203), L"BBB");
    EXPECT_THAT(desktop.message_boxes(), IsEmpty());
}

TEST_F(WholeRow, ANameThatIsNoneComesBackAsTheSymbolThatWas) {
    enter_symbol(L"AAA");
    enter_symbol(L"NONE");
    EXPECT_EQ(text(203), L"AAA");
    SetWindowTextW(item(203), L"half");
    SendMessageW(item(203), WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_EQ(text(203), L"AAA");
}

TEST_F(WholeRow, TheStartingQuantityFollowsTheCategoryOfTheSymbolAndOnlyItsChange) {
    EXPECT_EQ(text(225), L"買進 市價\n1");
    enter_symbol(L"AAA");
    EXPECT_EQ(text(209), L"100");
    EXPECT_EQ(text(225), L"買進 市價\n100");
    type(209, L"250");
    enter_symbol(L"BBB");
    EXPECT_EQ(text(209), L"250") << "a stock after a stock";
    enter_symbol(L"ESZ6");
    EXPECT_EQ(text(209), L"1");
    type(209, L"7");
    enter_symbol(L"");
    EXPECT_EQ(text(209), L"7") << "no symbol keeps it";
    enter_symbol(L"ESZ6");
    EXPECT_EQ(text(209), L"7") << "the category is still the same";
    enter_symbol(L"AAA");
    EXPECT_EQ(text(209), L"100");
}

TEST_F(WholeRow, AQuantityStaysWithItsRowWhenTheUserChangesTabs) {
    enter_symbol(L"AAA");
    type(209, L"250");
    const auto click_tab = [&](int index) {
        POINT at = tab_centre(index);
        ScreenToClient(strip(), &at);
        SendMessageW(strip(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        SendMessageW(strip(), WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    };
    click_tab(1);
    EXPECT_EQ(text(203), L"");
    EXPECT_EQ(text(209), L"1");
    desktop.answer_message_box(IDNO);
    enter_symbol(L"ESZ6");
    type(209, L"3");
    click_tab(0);
    EXPECT_EQ(text(203), L"AAA");
    EXPECT_EQ(text(209), L"250") << "though the category is another";
    click_tab(1);
    EXPECT_EQ(text(209), L"3");
}

TEST_F(WholeRow, ALimitOrderGoesOutAsItStandsOnTheScreen) {
    enter_symbol(L"AAA");
    choose(206, L"限價單");
    ASSERT_TRUE(pump_until([&] { return IsWindowVisible(item(217)) != FALSE; }));
    type(217, L"101.25");
    choose(220, L"A2");
    choose(222, L"IOC(立即成交否則取消)");
    pick(GDT_VALID, {2026, 1, 4, 1, 18, 0, 0, 0});
    EXPECT_EQ(text(225), L"買進 限價\n100");
    host.clear();
    click(item(225));
    EXPECT_THAT(of_trading(),
                ElementsAre("ManualTrading(\"Alpha\").SetAccount(\"A2\")",
                            "ManualTrading(\"Alpha\").PlaceOrder(1, 3, 100, 0, 101.25, 4, date(46023.75))"));
    click(item(227));
    EXPECT_EQ(host.count("PlaceOrder(2, 3, 100, 0, 101.25, 4, date(46023.75))"), 1);
    EXPECT_EQ(text(217), L"101.25") << "ready for the next";
    EXPECT_TRUE(asserted().empty());
}

TEST_F(WholeRow, AStopOrderWithoutItsPriceTellsTheRangeAndBringsTheFocusThere) {
    enter_symbol(L"AAA");
    choose(206, L"停止單");
    host.clear();
    calls at_box;
    desktop.while_modal([&] { at_box = host.calls(); });
    click(item(227));
    ASSERT_EQ(desktop.message_boxes().size(), 1u);
    EXPECT_EQ(desktop.message_boxes()[0].text, L"請輸入 0 至 250000 的數值。");
    EXPECT_EQ(desktop.message_boxes()[0].owner, main_frame);
    EXPECT_EQ(desktop.message_boxes()[0].caption, platform::main_version_string(L"ProductName"));
    EXPECT_EQ(desktop.message_boxes()[0].flags, 0u);
    EXPECT_THAT(at_box, ElementsAre("OnCommand.Execute(4, empty)")) << "the host's menus are locked";
    EXPECT_THAT(of_trading(), IsEmpty()) << "not even an account";
    EXPECT_EQ(GetFocus(), item(214));
}

TEST_F(WholeRow, NoDateDoesNotGoOutWhileThePickerShowsOne) {
    enter_symbol(L"AAA");
    choose(222, L"GTD(到期前有效)");
    ASSERT_TRUE(pump_until([&] { return IsWindowVisible(item(228)) != FALSE; }));
    pick(GDT_NONE, {});
    host.clear();
    click(item(225));
    EXPECT_EQ(host.count("PlaceOrder"), 0);
    // The row is shown anew, with a date that both agree on.
    click(item(225));
    EXPECT_EQ(host.count("PlaceOrder(1, 1, 100, 0, 0, 3,"), 1);
    EXPECT_EQ(host.count("date(0)"), 0);
    EXPECT_TRUE(asserted().empty());
}

TEST_F(WholeRow, QuotesOfTheHostShowAndAPressOnThemFillsBothPrices) {
    enter_symbol(L"AAA");
    EXPECT_EQ(text(231), L"買價/賣價 ");
    EXPECT_FALSE(usable(231));
    EXPECT_EQ(first->fire_quote(101.25, 101.75), S_OK);
    EXPECT_EQ(text(231), L"101.50 ");
    EXPECT_TRUE(usable(231));
    press_quotes();
    EXPECT_EQ(text(214), L"101.50");
    EXPECT_EQ(text(217), L"101.50");
    EXPECT_EQ(first->fire_quote(102.0, 101.0), S_FALSE) << "crossed";
    EXPECT_EQ(text(231), L"買價/賣價 ");
    EXPECT_FALSE(usable(231));
}

TEST_F(WholeRow, ASpinStepsThePriceInTheScaleOfTheSymbol) {
    enter_symbol(L"AAA");
    choose(206, L"限價單");
    type(217, L"10");
    RECT arrows = {};
    GetClientRect(item(216), &arrows);
    SendMessageW(item(216), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(arrows.right / 2, 2));
    SendMessageW(item(216), WM_LBUTTONUP, 0, MAKELPARAM(arrows.right / 2, 2));
    EXPECT_EQ(text(217), L"10.01");
    SendMessageW(item(216), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(arrows.right / 2, arrows.bottom - 3));
    SendMessageW(item(216), WM_LBUTTONUP, 0, MAKELPARAM(arrows.right / 2, arrows.bottom - 3));
    EXPECT_EQ(text(217), L"10.00");
}

TEST_F(WholeRow, ALostConnectionLeavesOnlyTheSymbolUsable) {
    enter_symbol(L"AAA");
    choose(206, L"停止限價單");
    for (const int id : {203, 206, 209, 214, 217, 220, 222, 225, 227}) {
        EXPECT_TRUE(usable(id)) << id;
    }
    first->fire_state(eTM_CC_Disconnected);
    EXPECT_TRUE(usable(203));
    for (const int id : {206, 209, 214, 213, 217, 216, 220, 222, 225, 227, 231}) {
        EXPECT_FALSE(usable(id)) << id;
    }
}

TEST_F(WholeRow, TheMenuOfThePanelConnectsItsRowsProfile) {
    bar->SelectTab(rows[1]->get_Id());
    host.clear();
    const test::told_import<"TrackPopupMenu", decltype(TrackPopupMenu)> told(
        [](HMENU, UINT, int, int, int, HWND, const RECT*) { return BOOL{10}; });
    SendMessageW(panel(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(host.count("Profile(\"Beta\").Connect()"), 1);
    EXPECT_EQ(host.count("OnCommand"), 0) << "this line takes no lock";
    EXPECT_EQ(host.count("Alpha"), 0);
}

TEST_F(WholeRow, TheMenuOfThePanelRefusesTheSettingsOfAConnectedProfile) {
    const test::told_import<"TrackPopupMenu", decltype(TrackPopupMenu)> told(
        [](HMENU, UINT, int, int, int, HWND, const RECT*) { return BOOL{11}; });
    SendMessageW(panel(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
    ASSERT_EQ(desktop.message_boxes().size(), 1u);
    EXPECT_EQ(desktop.message_boxes()[0].text, L"Alpha 已連線，目前無法調整設定。\n請先中斷連線。");
    EXPECT_EQ(host.count("ShowSettings"), 0);
    EXPECT_EQ(host.calls().back(),
              "OnCommand.Execute(5, " +
                  std::to_string(static_cast<LONG>(reinterpret_cast<INT_PTR>(bar->get_Hwnd()))) + ")");
}

}  // namespace
