#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <boost/weak_ptr.hpp>

#include "tests/window/bar_fixture.h"
#include "tests/window/sent_messages.h"

namespace {

using namespace OV_OrderDeck;
using lookups = std::vector<window_tests::fake_symbol::lookup>;

class PanelNotices : public window_tests::bar_test {
protected:
    void SetUp() override {
        tab = add(L"A");
        for (const auto& [entity, field] : tab->fields) {
            if (auto* const plain = dynamic_cast<window_tests::fake_field*>(field.get())) {
                plain->values.clear();
                plain->selections.clear();
            }
        }
    }

    window_tests::fake_field& field(OD_UpdateEntity entity) { return tab->field(entity); }
    void type(int id, const wchar_t* characters) {
        SetFocus(item(id));
        for (; *characters != L'\0'; ++characters) {
            SendMessageW(item(id), WM_CHAR, *characters, 1);
        }
    }
    void press(int id, WPARAM key) { SendMessageW(item(id), WM_KEYDOWN, key, 1); }
    void choose(int id, int index) {
        SendMessageW(item(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        SendMessageW(panel(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(item(id)));
    }
    void spin(int id, int delta) {
        NMUPDOWN notice = {{item(id), static_cast<UINT_PTR>(id), static_cast<UINT>(UDN_DELTAPOS)}, 0, delta};
        SendMessageW(panel(), WM_NOTIFY, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&notice));
    }
    void pick(DWORD flags, const SYSTEMTIME& date) {
        NMDATETIMECHANGE notice = {{item(228), 228, static_cast<UINT>(DTN_DATETIMECHANGE)}, flags, date};
        SendMessageW(panel(), WM_NOTIFY, 228, reinterpret_cast<LPARAM>(&notice));
    }
    boost::shared_ptr<window_tests::fake_tab> tab;
};

TEST_F(PanelNotices, BuyAndSellPressTheirFields) {
    click(item(225));
    EXPECT_EQ(field(eODUE_Buy).selections, std::vector<LONG>{0});
    EXPECT_TRUE(field(eODUE_Sell).selections.empty());
    click(item(227));
    EXPECT_EQ(field(eODUE_Sell).selections, std::vector<LONG>{0});
}

TEST_F(PanelNotices, AClickOnAMissingFieldDoesNothing) {
    tab->fields.erase(eODUE_Buy);
    click(item(225));
    EXPECT_TRUE(reports.traces().empty());
    EXPECT_TRUE(asserted().empty());
}

TEST_F(PanelNotices, AClickOnAnUnknownWindowIsLoggedAndNothingElse) {
    SendMessageW(panel(), WM_COMMAND, MAKEWPARAM(999, BN_CLICKED), 0);
    const auto traces = reports.traces();
    ASSERT_EQ(traces.size(), 1u);
    EXPECT_EQ(traces[0].find(L"std::out_of_range - Unknown control id; FILE - "), 0u);
    EXPECT_NE(traces[0].find(L"ProfileTabWindow.cpp, LINE - "), CString::npos);
}

TEST_F(PanelNotices, TheQuotesGiveTheFieldThePriceOfTheirModeOnceAClick) {
    const auto press = [&](int key) {
        SendMessageW(item(231), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        SendMessageW(item(231), WM_KEYUP, static_cast<WPARAM>(key), 1);
        pump();
    };
    tab->quotes->ask = 101.75;
    bar->Show(true);
    SendMessageW(item(231), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
    SendMessageW(item(231), WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
    pump();
    ASSERT_EQ(tab->quotes->values.size(), 1u);
    EXPECT_EQ(tab->quotes->values[0].vt, VT_R8);
    EXPECT_EQ(tab->quotes->values[0].dblVal, 101.5) << "the mid of 101.75 and 101.25";
    SetFocus(item(231));
    press(VK_SPACE);
    EXPECT_EQ(tab->quotes->values.size(), 2u);
    press(VK_RETURN);
    EXPECT_EQ(tab->quotes->values.size(), 3u);
    EXPECT_EQ(tab->quotes->values.back().dblVal, 101.5);
    EXPECT_TRUE(tab->quotes->selections.empty());
}

TEST_F(PanelNotices, TheDropDownPartGivesNothingUntilARowIsTaken) {
    click(item(231));
    pump();
    EXPECT_TRUE(tab->quotes->values.empty());
    SetFocus(item(231));
    SendMessageW(item(231), WM_KEYDOWN, VK_UP, 1);
    SendMessageW(item(231), WM_KEYDOWN, VK_RETURN, 1);
    pump();
    ASSERT_EQ(tab->quotes->values.size(), 1u);
    EXPECT_EQ(tab->quotes->values[0].dblVal, 101.5) << "one row up from the mid is the ask";
    EXPECT_EQ(text(231), L"101.50 ");
}

TEST_F(PanelNotices, AChosenItemSelectsItsKey) {
    choose(206, 2);
    choose(220, 1);
    choose(222, 1);
    EXPECT_EQ(field(eODUE_OrderType).selections, std::vector<LONG>{3});
    EXPECT_EQ(field(eODUE_Account).selections, std::vector<LONG>{1});
    EXPECT_EQ(field(eODUE_TimeInForce).selections, std::vector<LONG>{4});
    choose(206, -1);
    EXPECT_EQ(field(eODUE_OrderType).selections, (std::vector<LONG>{3, CB_ERR}));
}

TEST_F(PanelNotices, TypingAPriceTellsTheFieldAtEachCharacter) {
    type(214, L"12");
    ASSERT_EQ(field(eODUE_FirstPrice).values.size(), 2u);
    EXPECT_EQ(field(eODUE_FirstPrice).values[0].vt, VT_BSTR);
    EXPECT_STREQ(field(eODUE_FirstPrice).values[0].bstrVal, L"1");
    EXPECT_STREQ(field(eODUE_FirstPrice).values[1].bstrVal, L"12");
    EXPECT_TRUE(field(eODUE_SecondPrice).values.empty());
}

TEST_F(PanelNotices, APriceTakesFifteenCharactersAndNoMore) {
    for (const int id : {214, 217}) {
        type(id, L"12345678901234567");
        EXPECT_EQ(text(id), L"123456789012345") << id;
    }
    EXPECT_STREQ(field(eODUE_FirstPrice).values.back().bstrVal, L"123456789012345");
}

TEST_F(PanelNotices, LeavingAPriceShowsItsValueAndKeepsWhatIsNone) {
    type(214, L"1.50");
    field(eODUE_FirstPrice).value = L"1.5";
    SetFocus(item(209));
    EXPECT_EQ(text(214), L"1.5");
    type(214, L"abc");
    const CString typed = text(214);
    field(eODUE_FirstPrice).empty = true;
    field(eODUE_FirstPrice).value = L"";
    SetFocus(item(209));
    EXPECT_EQ(text(214), typed);
}

TEST_F(PanelNotices, LeavingAPriceIsNoSecretToTheEdit) {
    for (const int id : {214, 217}) {
        SetFocus(item(id));
        window_tests::sent_messages sent;
        SetFocus(item(209));
        const auto seen = sent.take();
        EXPECT_TRUE(std::ranges::any_of(seen, [&](const window_tests::sent_message& each) {
            return each.window == panel() && each.message == WM_COMMAND &&
                   each.wParam == MAKEWPARAM(id, EN_KILLFOCUS);
        })) << id;
    }
}

TEST_F(PanelNotices, ASpinGivesItsStepsAndShowsWhatComes) {
    field(eODUE_FirstPrice).value = L"7";
    spin(213, -3);
    ASSERT_EQ(field(eODUE_FirstPrice).values.size(), 1u);
    EXPECT_EQ(field(eODUE_FirstPrice).values[0].vt, VT_INT);
    EXPECT_EQ(field(eODUE_FirstPrice).values[0].intVal, -3);
    EXPECT_EQ(text(214), L"7");
    spin(216, 1);
    EXPECT_EQ(field(eODUE_SecondPrice).values.size(), 1u);
    spin(999, 1);
    EXPECT_EQ(field(eODUE_FirstPrice).values.size(), 1u);
    EXPECT_EQ(field(eODUE_SecondPrice).values.size(), 1u);
}

TEST_F(PanelNotices, APickedDateGoesToTheFieldAsAnOleDate) {
    pick(GDT_VALID, {2026, 1, 4, 1, 18, 0, 0, 0});
    ASSERT_EQ(field(eODUE_GtdDate).values.size(), 1u);
    EXPECT_EQ(field(eODUE_GtdDate).values[0].vt, VT_DATE);
    EXPECT_EQ(field(eODUE_GtdDate).values[0].date, 46023.75);
}

TEST_F(PanelNotices, TheCalendarKnowsWhetherTodayWasPicked) {
    const auto show = [&](const SYSTEMTIME& date) {
        SendMessageW(item(228), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date));
        pick(GDT_VALID, date);
    };
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    show(now);
    EXPECT_TRUE(bar->get_Panel().get_Calendar().get_IsToday());
    show({2078, 1, 6, 1, 0, 0, 0, 0});
    EXPECT_FALSE(bar->get_Panel().get_Calendar().get_IsToday());
}

TEST_F(PanelNotices, ANoticeWithoutADateWritesTheDateZero) {
    pick(GDT_NONE, {});
    ASSERT_EQ(field(eODUE_GtdDate).values.size(), 1u);
    EXPECT_EQ(field(eODUE_GtdDate).values[0].vt, VT_DATE);
    EXPECT_EQ(field(eODUE_GtdDate).values[0].date, 0.0);
}

TEST_F(PanelNotices, TypingAQuantityTellsTheField) {
    SendMessageW(item(209), EM_SETSEL, 0, -1);
    type(209, L"7");
    ASSERT_FALSE(field(eODUE_Quantity).values.empty());
    EXPECT_EQ(field(eODUE_Quantity).values.back().vt, VT_BSTR);
}

TEST_F(PanelNotices, AQuantityIsAbbreviatedWithoutTheFocusAndPlainWithIt) {
    field(eODUE_Quantity).value = L"1500";
    bar->Update(tab->id, eODUE_Quantity);
    EXPECT_EQ(text(209), L"1.5K");
    field(eODUE_Quantity).values.clear();
    SetFocus(item(209));
    EXPECT_EQ(text(209), L"1500");
    SetFocus(item(214));
    EXPECT_EQ(text(209), L"1.5K");
    for (const _variant_t& told : field(eODUE_Quantity).values) {
        EXPECT_STREQ(told.bstrVal, L"1500") << "the text for readers is never told";
    }
}

TEST_F(PanelNotices, TheQuantityMovesInHundredsForStocksAndInOnesOtherwise) {
    const auto up = [&](LONG category) {
        tab->symbol->category = category;
        bar->Update(tab->id, eODUE_Symbol);
        SetFocus(item(209));
        SendMessageW(item(209), WM_KEYDOWN, VK_UP, 1);
        return text(209);
    };
    EXPECT_EQ(up(1), L"2");
    EXPECT_EQ(up(2), L"200");
    EXPECT_STREQ(field(eODUE_Quantity).values.back().bstrVal, L"200");
}

TEST_F(PanelNotices, AnEmptyQuantityIsKeptOnTheScreenAndToldToTheField) {
    SetFocus(item(209));
    field(eODUE_Quantity).values.clear();
    SetWindowTextW(item(209), L"");
    ASSERT_EQ(field(eODUE_Quantity).values.size(), 1u);
    SetFocus(item(214));
    EXPECT_EQ(text(209), L"");
}

TEST_F(PanelNotices, AFormatChangeIsNeverExpected) {
    bar->get_Panel().OnFormatChange(209, {});
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"0"});
}

TEST_F(PanelNotices, WithoutATabANewQuantityAndTheSymbolAreReported) {
    bar->RemoveAllTabs();
    bar->get_Panel().OnStringChanged(209, L"5");
    bar->get_Panel().OnButtonPressed(203);
    bar->get_Panel().OnEditEnd(203, true);
    EXPECT_EQ(asserted(), (std::vector<std::wstring>{L"_ctrl", L"_ctrl", L"_ctrl"}));
}

TEST_F(PanelNotices, EnterLooksTheSymbolUpAndMayAskToConnect) {
    SetWindowTextW(item(203), L"es");
    press(203, VK_RETURN);
    EXPECT_EQ(tab->symbol->lookups, (lookups{{L"es", true, false}}));
    EXPECT_EQ(text(203), L"FOUND");
}

TEST_F(PanelNotices, EnterOnTheUnchangedSymbolDoesNothing) {
    press(203, VK_RETURN);
    EXPECT_TRUE(tab->symbol->lookups.empty());
    EXPECT_TRUE(asserted().empty());
}

TEST_F(PanelNotices, EscShowsTheSymbolsNameAgainAndIsNoCancelOfTheDialog) {
    SetWindowTextW(item(203), L"es");
    MSG escape = {};
    escape.hwnd = item(203);
    escape.message = WM_KEYDOWN;
    escape.wParam = VK_ESCAPE;
    escape.lParam = 1;
    EXPECT_TRUE(IsDialogMessageW(panel(), &escape));
    EXPECT_TRUE(tab->symbol->lookups.empty());
    EXPECT_EQ(text(203), L"SYM");
}

TEST_F(PanelNotices, LeavingTheSymbolLooksItUpQuietly) {
    SetFocus(item(203));
    SetWindowTextW(item(203), L"nq");
    SetFocus(item(209));
    EXPECT_EQ(tab->symbol->lookups, (lookups{{L"nq", false, true}}));
    EXPECT_EQ(text(203), L"FOUND");
}

TEST_F(PanelNotices, TheDialogOfALookupThatTakesTheFocusStartsNoOther) {
    SetFocus(item(203));
    SetWindowTextW(item(203), L"es");
    tab->symbol->in_dialog = [this] { SetFocus(item(209)); };
    press(203, VK_RETURN);
    EXPECT_EQ(tab->symbol->lookups.size(), 1u);
    tab->symbol->lookups.clear();
    SetFocus(item(203));
    SetWindowTextW(item(203), L"cl");
    tab->symbol->found = L"PICKED";
    click(GetDlgItem(item(203), 203));
    EXPECT_EQ(tab->symbol->dialogs, 1);
    EXPECT_TRUE(tab->symbol->lookups.empty());
    EXPECT_EQ(text(203), L"PICKED");
}

// The host ends the bar while the user is asked; the windows go at once, and what stands behind them when
// nobody works in it any more.
class PanelEnd : public PanelNotices {
protected:
    void end_in_dialog() {
        tab->symbol->in_dialog = [this] {
            bar->Teardown();
            bar.reset();
            window_inside = IsWindow(panel_window) != FALSE;
            alive_inside = !watched.expired();
        };
    }

    void expect_end() const {
        EXPECT_FALSE(window_inside);
        EXPECT_TRUE(alive_inside);
        EXPECT_TRUE(watched.expired());
        EXPECT_TRUE(asserted().empty());
    }

    boost::weak_ptr<OV_OrderDeck::COrderDeckWindow> watched = bar;
    HWND panel_window = panel();
    bool window_inside = true;
    bool alive_inside = false;
};

TEST_F(PanelEnd, InTheDialogOfTheSmallButton) {
    end_in_dialog();
    click(GetDlgItem(item(203), 203));
    expect_end();
}

TEST_F(PanelEnd, InTheLookupOfEnter) {
    SetFocus(item(203));
    SetWindowTextW(item(203), L"es");
    end_in_dialog();
    press(203, VK_RETURN);
    expect_end();
}

TEST_F(PanelEnd, InTheLookupOfALostFocus) {
    SetFocus(item(203));
    SetWindowTextW(item(203), L"es");
    end_in_dialog();
    SetFocus(frame);
    expect_end();
}

// A tab that ends calls its host, which may look at the bar.
TEST_F(PanelEnd, AHostThatLooksWhileATabEndsFindsABarWithoutIt) {
    std::vector<std::size_t> found;
    const auto look = [&](auto remove) {
        boost::shared_ptr<window_tests::fake_tab> last = add(L"Last");
        const LONG id = last->id;
        const auto look_now = [&found, id, this](int* value) {
            delete value;
            found.push_back(bar->get_TabInfos().count(id) + (bar->get_Tab(id) ? 1 : 0));
        };
        last->when_told_id = [end = boost::shared_ptr<int>(new int(), look_now)](LONG) {};
        last.reset();
        remove(id);
    };
    look([this](LONG id) { bar->RemoveTab(id); });
    look([this](LONG) { bar->RemoveAllTabs(); });
    look([this](LONG) { bar->Teardown(); });
    EXPECT_EQ(found, (std::vector<std::size_t>{0, 0, 0}));
}

TEST_F(PanelNotices, AfterALookupTheEditShowsTheTabThatIsInFrontByThen) {
    const auto other = add(L"Other");
    other->symbol->value = L"ITS OWN";
    tab->symbol->in_dialog = [&] { bar->SelectTab(other->id); };
    SetFocus(item(203));
    SetWindowTextW(item(203), L"es");
    press(203, VK_RETURN);
    EXPECT_EQ(text(203), L"ITS OWN");
    SetFocus(item(209));
    EXPECT_TRUE(other->symbol->lookups.empty()) << "looked up for the wrong tab";
    bar->SelectTab(tab->id);
    click(GetDlgItem(item(203), 203));
    EXPECT_EQ(text(203), L"ITS OWN");
    EXPECT_EQ(tab->symbol->dialogs, 1);
}

TEST_F(PanelNotices, AfterItsButtonTheSymbolHasTheFocus) {
    SetFocus(item(209));
    click(GetDlgItem(item(203), 203));
    EXPECT_EQ(GetFocus(), item(203));
}

TEST_F(PanelNotices, TheFocusSelectsTheSymbolsText) {
    SetFocus(item(209));
    SetFocus(item(203));
    DWORD from = 9;
    DWORD to = 9;
    SendMessageW(item(203), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 0u);
    EXPECT_EQ(to, 3u);
}

TEST_F(PanelNotices, TheSymbolWantsEnterAndEscForItself) {
    EXPECT_EQ(SendMessageW(item(203), WM_GETDLGCODE, VK_RETURN, 0), DLGC_WANTALLKEYS);
    EXPECT_EQ(SendMessageW(item(203), WM_GETDLGCODE, VK_ESCAPE, 0), DLGC_WANTALLKEYS);
    EXPECT_NE(SendMessageW(item(203), WM_GETDLGCODE, VK_TAB, 0), DLGC_WANTALLKEYS);
}

}  // namespace
