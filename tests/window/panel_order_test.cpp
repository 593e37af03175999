// In which order the panel asks a field and tells its windows.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include "charting/orderdeck/src/window/WindowText.h"
#include "tests/window/bar_fixture.h"
#include "tests/window/sent_messages.h"

namespace {

using namespace OV_OrderDeck;
using testing::ElementsAre;
using testing::IsEmpty;

class PanelOrder : public window_tests::bar_test {
protected:
    PanelOrder() { tab = add(L"A"); }

    // What an update sends to the windows of some items, as "message item"; the plain questions are left
    // out.
    std::vector<std::string> sent_by(unsigned mask, const std::map<UINT, std::string>& names) {
        window_tests::sent_messages messages;
        bar->Update(tab->id, mask);
        std::vector<std::string> result;
        for (const window_tests::sent_message& each : messages.take()) {
            const auto name = names.find(each.message);
            if (name != names.end() && GetParent(each.window) == panel()) {
                result.push_back(name->second + " " + std::to_string(GetDlgCtrlID(each.window)));
            }
        }
        return result;
    }

    boost::shared_ptr<window_tests::fake_tab> tab;
};

const std::map<UINT, std::string> of_a_price = {{WM_ENABLE, "enable"},
                                                {WM_SHOWWINDOW, "show"},
                                                {UDM_GETRANGE32, "range?"},
                                                {UDM_SETRANGE32, "range"},
                                                {WM_SETTEXT, "text"}};

TEST_F(PanelOrder, APriceIsEnabledThenLaidOutThenItsSpinThenItsText) {
    auto& price = tab->field(eODUE_FirstPrice);
    price.enabled = false;
    price.hidden = true;
    price.spin_high = 4321;
    price.value = L"7";
    EXPECT_THAT(sent_by(eODUE_FirstPrice, of_a_price),
                ElementsAre("enable 214", "show 214", "show 213", "range? 213", "range 213", "enable 213",
                            "text 214"));
}

TEST_F(PanelOrder, ASpinIsToldItsRangeOnlyWhenItIsAnother) {
    EXPECT_THAT(sent_by(eODUE_SecondPrice, of_a_price), ElementsAre("range? 216"));
    tab->field(eODUE_SecondPrice).spin_low = 2;
    EXPECT_THAT(sent_by(eODUE_SecondPrice, of_a_price), ElementsAre("range? 216", "range 216"));
    tab->field(eODUE_SecondPrice).spin_high = 9;
    EXPECT_THAT(sent_by(eODUE_SecondPrice, of_a_price), ElementsAre("range? 216", "range 216"));
    EXPECT_THAT(sent_by(eODUE_SecondPrice, of_a_price), ElementsAre("range? 216"));
}

TEST_F(PanelOrder, ASymbolSetsTheQuantityThenTheQuotesThenItsOwnText) {
    tab->symbol->value = L"OTHER";
    tab->symbol->category = 1;
    tab->symbol->price_scale = 4;
    EXPECT_THAT(sent_by(eODUE_Symbol, {{WM_SETTEXT, "text"}}),
                ElementsAre("text 209", "text 231", "text 203"));
}

TEST_F(PanelOrder, AListIsEmptiedThenEachTextGetsItsKeyThenOneIsChosen) {
    tab->field(eODUE_TimeInForce).selected = 4;
    const std::map<UINT, std::string> of_a_list = {
        {CB_RESETCONTENT, "empty"}, {CB_ADDSTRING, "add"}, {CB_SETITEMDATA, "key"}, {CB_SETCURSEL, "choose"}};
    EXPECT_THAT(sent_by(eODUE_TimeInForce, of_a_list),
                ElementsAre("empty 222", "add 222", "key 222", "add 222", "key 222", "choose 222"));
    tab->field(eODUE_TimeInForce).selected = 99;
    EXPECT_THAT(sent_by(eODUE_TimeInForce, of_a_list),
                ElementsAre("empty 222", "add 222", "key 222", "add 222", "key 222"));
}

TEST_F(PanelOrder, EqualTextsAreNotWritten) {
    EXPECT_THAT(sent_by(eODUE_Symbol | eODUE_FirstPrice | eODUE_SecondPrice | eODUE_Buy | eODUE_Sell,
                        {{WM_SETTEXT, "text"}}),
                IsEmpty());
}

TEST_F(PanelOrder, AFullUpdateGoesThroughTheFieldsFromTheLowestBit) {
    tab->asked.clear();
    bar->Update(tab->id, 0x3FF80);
    EXPECT_THAT(tab->asked, ElementsAre(0x80u, 0x100u, 0x200u, 0x400u, 0x800u, 0x1000u, 0x2000u, 0x4000u,
                                        0x8000u, 0x10000u, 0x20000u));
}

TEST_F(PanelOrder, TheCalendarKnowsOfTodayBeforeTheFieldHearsOfTheDate) {
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    const auto pick = [&](const SYSTEMTIME& date) {
        SendMessageW(item(228), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date));
        NMDATETIMECHANGE notice = {{item(228), 228, static_cast<UINT>(DTN_DATETIMECHANGE)}, GDT_VALID, date};
        SendMessageW(panel(), WM_NOTIFY, 228, reinterpret_cast<LPARAM>(&notice));
    };
    std::vector<bool> today;
    tab->field(eODUE_GtdDate).when_told = [&] {
        today.push_back(bar->get_Panel().get_Calendar().get_IsToday());
    };
    pick({2078, 1, 6, 1, 0, 0, 0, 0});
    pick(now);
    pick({2078, 1, 6, 1, 0, 0, 0, 0});
    EXPECT_THAT(today, ElementsAre(false, true, false));
}

// What a control is told of a date.
class told_dates {
public:
    explicit told_dates(HWND picker) : m_picker(picker) {
        SetWindowSubclass(picker, &told_dates::procedure, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    ~told_dates() { RemoveWindowSubclass(m_picker, &told_dates::procedure, 1); }
    told_dates(const told_dates&) = delete;
    told_dates& operator=(const told_dates&) = delete;

    std::vector<WPARAM> flags;
    SYSTEMTIME last = {};

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) {
        if (message == DTM_SETSYSTEMTIME) {
            auto* const told = reinterpret_cast<told_dates*>(self);
            told->flags.push_back(wParam);
            if (lParam != 0) {
                told->last = *reinterpret_cast<const SYSTEMTIME*>(lParam);
            }
        }
        return DefSubclassProc(window, message, wParam, lParam);
    }

    HWND m_picker;
};

TEST_F(PanelOrder, ADateIsToldToTheMillisecondAndAnEmptyOneAsNone) {
    told_dates told(item(228));
    _variant_t date;
    date.vt = VT_DATE;
    date.date = 65016.75 + 123.0 / 86400000.0;  // 2078-01-01 18:00:00.123
    tab->field(eODUE_GtdDate).value = date;
    bar->Update(tab->id, eODUE_GtdDate);
    EXPECT_THAT(told.flags, ElementsAre(GDT_VALID));
    EXPECT_EQ(told.last.wYear, 2078);
    EXPECT_EQ(told.last.wHour, 18);
    EXPECT_EQ(told.last.wSecond, 0);
    EXPECT_EQ(told.last.wMilliseconds, 123);
    tab->field(eODUE_GtdDate).empty = true;
    tab->field(eODUE_GtdDate).value = L"not asked for";
    bar->Update(tab->id, eODUE_GtdDate);
    EXPECT_THAT(told.flags, ElementsAre(GDT_VALID, GDT_NONE));
    EXPECT_THAT(asserted(), IsEmpty());
}

TEST_F(PanelOrder, ADateThatIsNoneIsReportedAndRaisedAndNotShown) {
    told_dates told(item(228));
    tab->field(eODUE_GtdDate).value = _variant_t(65016.75, VT_R8);
    EXPECT_THROW(bar->Update(tab->id, eODUE_GtdDate), _com_error);
    EXPECT_EQ(asserted().size(), 1u);
    EXPECT_THAT(told.flags, IsEmpty());
}

TEST_F(PanelOrder, NewQuotesKeepTheModeThatWasChosenAndComeBackWithTheMidAfterNone) {
    SetFocus(item(231));
    click(item(231));
    SendMessageW(item(231), WM_KEYDOWN, VK_UP, 1);
    SendMessageW(item(231), WM_KEYDOWN, VK_RETURN, 1);
    pump();
    EXPECT_EQ(text(231), L"101.50 ") << "the ask";
    tab->quotes->ask = 102.0;
    bar->Update(tab->id, eODUE_AskBid);
    EXPECT_EQ(text(231), L"102.00 ") << "still the ask";
    tab->quotes->empty = true;
    bar->Update(tab->id, eODUE_AskBid);
    tab->quotes->empty = false;
    tab->quotes->bid = 101.0;
    bar->Update(tab->id, eODUE_AskBid);
    EXPECT_EQ(text(231), L"101.50 ") << "the mid of 102 and 101";
}

TEST_F(PanelOrder, OneOfTheQuotesIsEnoughToShowNewOnes) {
    tab->quotes->bid = 101.0;
    bar->Update(tab->id, eODUE_AskBid);
    EXPECT_EQ(text(231), L"101.25 ") << "the mid of 101.50 and 101.00";
    tab->quotes->ask = 103.0;
    bar->Update(tab->id, eODUE_AskBid);
    EXPECT_EQ(text(231), L"102.00 ");
}

TEST_F(PanelOrder, TheQuotesFollowTheMovementOfTheSymbol) {
    tab->quotes->ask = 101.50;
    tab->quotes->bid = 101.00;
    tab->symbol->min_movement = 50.0;
    bar->Update(tab->id, eODUE_Symbol | eODUE_AskBid);
    EXPECT_EQ(text(231), L"101.50 ") << "the mid 101.25 on a grid of 0.50";
}

TEST_F(PanelOrder, AMovementBeyondAllNumbersCountsAsTheLargest) {
    tab->quotes->ask = 101.50;
    tab->quotes->bid = 101.00;
    tab->symbol->min_movement = 1e300;
    bar->Update(tab->id, eODUE_Symbol | eODUE_AskBid);
    EXPECT_EQ(text(231), L"0.00 ") << "the mid 101.25 on a grid of 21474836.47";
}

TEST_F(PanelOrder, AnEmptySymbolShowsItsTextAndLeavesTheScaleOfTheQuotes) {
    tab->symbol->empty = true;
    tab->symbol->value = L"";
    tab->symbol->price_scale = 4;
    bar->Update(tab->id, eODUE_Symbol | eODUE_AskBid);
    EXPECT_EQ(text(203), L"");
    EXPECT_EQ(text(231), L"101.38 ");
}

TEST_F(PanelOrder, WhatTheFieldAnswersToTypingIsNoSecondTyping) {
    auto& price = tab->field(eODUE_FirstPrice);
    price.values.clear();
    price.when_told = [&] {
        price.value = L"1.25";
        bar->Update(tab->id, eODUE_FirstPrice);
    };
    SetFocus(item(214));
    SendMessageW(item(214), WM_CHAR, L'1', 1);
    EXPECT_EQ(text(214), L"1.25");
    EXPECT_EQ(price.values.size(), 1u);
    price.when_told = {};
    SendMessageW(item(214), WM_CHAR, L'5', 1);
    EXPECT_EQ(price.values.size(), 2u) << "typing counts again";
}

TEST_F(PanelOrder, ASpinsArrowGivesItsStepToTheFieldAndTheTextComesFromIt) {
    auto& price = tab->field(eODUE_FirstPrice);
    price.value = L"42.5";
    price.values.clear();
    RECT spin = {};
    GetClientRect(item(213), &spin);
    const auto press = [&](LONG y) {
        SendMessageW(item(213), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(spin.right / 2, y));
        SendMessageW(item(213), WM_LBUTTONUP, 0, MAKELPARAM(spin.right / 2, y));
    };
    press(2);
    press(spin.bottom - 3);
    ASSERT_EQ(price.values.size(), 2u);
    EXPECT_EQ(price.values[0].vt, VT_INT);
    EXPECT_EQ(price.values[0].intVal, 1);
    EXPECT_EQ(price.values[1].intVal, -1);
    EXPECT_EQ(text(214), L"42.5") << "and not the spin's own number";
}

TEST_F(PanelOrder, ASpinStandsInItsEditsRightEnd) {
    for (const auto& [edit_id, spin_id] : {std::pair(214, 213), std::pair(217, 216)}) {
        EXPECT_EQ(reinterpret_cast<HWND>(SendMessageW(item(spin_id), UDM_GETBUDDY, 0, 0)), item(edit_id));
        RECT edit = {};
        RECT spin = {};
        GetWindowRect(item(edit_id), &edit);
        GetWindowRect(item(spin_id), &spin);
        EXPECT_GE(spin.left, edit.right - 4) << spin_id;
        EXPECT_LE(spin.left, edit.right) << spin_id;
        EXPECT_LE(std::abs(spin.top - edit.top), 2) << spin_id;
    }
}

}  // namespace
