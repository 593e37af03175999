#include <windows.h>

#include <commctrl.h>

#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using window_tests::fake_field;

class PanelUpdate : public window_tests::bar_test {
protected:
    void SetUp() override { tab = add(L"A"); }

    void update(unsigned mask) { bar->Update(tab->id, mask); }
    CString list_text(int id, int index) const {
        wchar_t entry[100] = {};
        SendMessageW(item(id), CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(entry));
        return entry;
    }

    boost::shared_ptr<window_tests::fake_tab> tab;
};

TEST_F(PanelUpdate, EveryWindowIsUsableExactlyWhenItsFieldIs) {
    const std::pair<OD_UpdateEntity, int> rows[] = {
        {eODUE_OrderType, 206},   {eODUE_Quantity, 209}, {eODUE_FirstPrice, 214},
        {eODUE_SecondPrice, 217}, {eODUE_Account, 220},  {eODUE_Buy, 225},
        {eODUE_TimeInForce, 222}, {eODUE_Sell, 227},     {eODUE_GtdDate, 228}};
    for (const auto& [entity, id] : rows) {
        tab->field(entity).enabled = false;
        update(entity);
        EXPECT_FALSE(IsWindowEnabled(item(id))) << id;
        tab->field(entity).enabled = true;
        update(entity);
        EXPECT_TRUE(IsWindowEnabled(item(id))) << id;
    }
    tab->symbol->enabled = false;
    tab->quotes->enabled = false;
    update(eODUE_Symbol | eODUE_AskBid);
    EXPECT_FALSE(IsWindowEnabled(item(203)));
    EXPECT_FALSE(IsWindowEnabled(item(231)));
}

TEST_F(PanelUpdate, ASpinIsUsableWithItsPriceAndTakesItsRange) {
    tab->field(eODUE_FirstPrice).spin_high = 4321;
    tab->field(eODUE_FirstPrice).enabled = false;
    update(eODUE_FirstPrice);
    EXPECT_FALSE(IsWindowEnabled(item(213)));
    int low = 0;
    int high = 0;
    SendMessageW(item(213), UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low), reinterpret_cast<LPARAM>(&high));
    EXPECT_EQ(low, 1);
    EXPECT_EQ(high, 4321);
    EXPECT_TRUE(IsWindowEnabled(item(216)));
}

TEST_F(PanelUpdate, ACaptionAndAPriceShowTheFieldsText) {
    tab->field(eODUE_Buy).value = L"買進 停限\n1,000";
    tab->field(eODUE_SecondPrice).value = L"12 3/32";
    update(eODUE_Buy | eODUE_SecondPrice);
    EXPECT_EQ(text(225), L"買進 停限\n1,000");
    EXPECT_EQ(text(217), L"12 3/32");
}

TEST_F(PanelUpdate, EqualTextIsNotWrittenSoTheCaretStays) {
    tab->field(eODUE_FirstPrice).value = L"101.25";
    update(eODUE_FirstPrice);
    SendMessageW(item(214), EM_SETSEL, 3, 3);
    update(eODUE_FirstPrice);
    DWORD from = 0;
    SendMessageW(item(214), EM_GETSEL, reinterpret_cast<WPARAM>(&from), 0);
    EXPECT_EQ(from, 3u);
}

TEST_F(PanelUpdate, TextThatThePanelWritesIsNoInputOfTheUser) {
    auto& price = tab->field(eODUE_FirstPrice);
    price.values.clear();
    price.value = L"99";
    update(eODUE_FirstPrice);
    EXPECT_EQ(text(214), L"99");
    EXPECT_TRUE(price.values.empty());
}

TEST_F(PanelUpdate, AListShowsTextsKeysAndTheSelectedItem) {
    update(eODUE_TimeInForce);
    EXPECT_EQ(SendMessageW(item(222), CB_GETCOUNT, 0, 0), 2);
    EXPECT_EQ(list_text(222, 1), L"IOC(立即成交否則取消)");
    EXPECT_EQ(SendMessageW(item(222), CB_GETITEMDATA, 1, 0), 4);
    EXPECT_EQ(SendMessageW(item(222), CB_GETCURSEL, 0, 0), 0);
    tab->field(eODUE_TimeInForce).selected = 4;
    update(eODUE_TimeInForce);
    EXPECT_EQ(SendMessageW(item(222), CB_GETCURSEL, 0, 0), 1);
}

TEST_F(PanelUpdate, ASelectionThatIsNotInTheListShowsNothing) {
    tab->field(eODUE_TimeInForce).selected = 3;
    update(eODUE_TimeInForce);
    EXPECT_EQ(SendMessageW(item(222), CB_GETCURSEL, 0, 0), CB_ERR);
    EXPECT_EQ(SendMessageW(item(222), CB_GETCOUNT, 0, 0), 2);
}

TEST_F(PanelUpdate, ListsAreNotSorted) {
    EXPECT_EQ(list_text(206, 0), L"市價單");
    EXPECT_EQ(list_text(206, 1), L"停止單");
    EXPECT_EQ(list_text(206, 2), L"限價單");
    EXPECT_EQ(list_text(206, 3), L"停止限價單");
}

TEST_F(PanelUpdate, ALongNameOfAnAccountDropsAListThatHoldsIt) {
    tab->field(eODUE_Account).items = {{0, CString(60, L'帳')}};
    update(eODUE_Account);
    RECT box = {};
    GetWindowRect(item(220), &box);
    EXPECT_GT(SendMessageW(item(220), CB_GETDROPPEDWIDTH, 0, 0), box.right - box.left);
}

TEST_F(PanelUpdate, BoxesAreWideEnoughForTheirLongestTextAndNothingOverlaps) {
    const auto rect_of = [&](int id) {
        RECT rect = {};
        GetWindowRect(item(id), &rect);
        return rect;
    };
    const auto needed = [&](std::initializer_list<const wchar_t*> texts) {
        const HDC dc = GetDC(panel());
        const HGDIOBJ old =
            SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(panel(), WM_GETFONT, 0, 0)));
        LONG widest = 0;
        for (const wchar_t* text : texts) {
            SIZE size = {};
            GetTextExtentPoint32W(dc, text, lstrlenW(text), &size);
            widest = size.cx > widest ? size.cx : widest;
        }
        SelectObject(dc, old);
        ReleaseDC(panel(), dc);
        return widest + GetSystemMetrics(SM_CXVSCROLL);
    };
    const auto width = [&](int id) { return rect_of(id).right - rect_of(id).left; };
    EXPECT_GT(width(206), needed({L"停止限價單"}));
    EXPECT_GT(width(222), needed({L"GTC(取消前有效)", L"IOC(立即成交否則取消)"}));
    // Where they stand with every field shown, in the order of the row.
    constexpr int row[] = {203, 206, 209, 231, 220, 222, 225, 227};
    for (std::size_t i = 1; i < std::size(row); ++i) {
        EXPECT_LE(rect_of(row[i - 1]).right, rect_of(row[i]).left) << row[i - 1] << " and " << row[i];
    }
}

// What a box makes of a height is the system's; a box that was told the same one says so.
TEST_F(PanelUpdate, BoxesAreAsHighAsTheSymbolLessSix) {
    RECT symbol = {};
    GetWindowRect(item(203), &symbol);
    const HWND other = CreateWindowExW(0, L"COMBOBOX", L"", WS_CHILD | CBS_DROPDOWNLIST, 0, 0, 100, 100,
                                       frame, nullptr, nullptr, nullptr);
    const LRESULT untold = SendMessageW(other, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
    SendMessageW(other, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), symbol.bottom - symbol.top - 6);
    const LRESULT told = SendMessageW(other, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
    EXPECT_NE(told, untold);
    for (const int id : {206, 220, 222}) {
        EXPECT_EQ(SendMessageW(item(id), CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0), told) << id;
    }
    DestroyWindow(other);
}

TEST_F(PanelUpdate, TheQuantityIsGivenOnlyWhenTheBoxShowsAnother) {
    auto& quantity = tab->field(eODUE_Quantity);
    quantity.value = L"25";
    update(eODUE_Quantity);
    EXPECT_EQ(text(209), L"25");
    const std::size_t told = quantity.values.size();
    update(eODUE_Quantity);
    EXPECT_EQ(quantity.values.size(), told);
}

TEST_F(PanelUpdate, AnEmptyQuantityIsReportedAndRaised) {
    tab->field(eODUE_Quantity).empty = true;
    try {
        update(eODUE_Quantity);
        FAIL() << "nothing raised";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Error(), E_FAIL);
    }
    EXPECT_EQ(asserted().size(), 1u);
}

TEST_F(PanelUpdate, TheStartingQuantityFollowsTheKindOfInstrument) {
    auto& quantity = tab->field(eODUE_Quantity);
    const auto show_category = [&](LONG category) {
        quantity.values.clear();
        tab->symbol->category = category;
        update(eODUE_Symbol);
        return quantity.values.empty() ? CString() : CString(quantity.values.back().bstrVal);
    };
    EXPECT_EQ(show_category(2), L"") << "stays within the category of the first symbol";
    EXPECT_EQ(show_category(1), L"1");
    EXPECT_EQ(show_category(2), L"100");
    EXPECT_EQ(show_category(2), L"");
    tab->symbol->empty = true;
    EXPECT_EQ(show_category(1), L"") << "an empty symbol keeps the quantity and the category";
    tab->symbol->empty = false;
    EXPECT_EQ(show_category(2), L"");
    EXPECT_EQ(show_category(3), L"1");
}

TEST_F(PanelUpdate, AStartingQuantityThatIsShownAlreadyIsNotToldAgain) {
    auto& quantity = tab->field(eODUE_Quantity);
    quantity.value = L"1";
    update(eODUE_Quantity);
    quantity.values.clear();
    tab->symbol->category = 1;
    update(eODUE_Symbol);
    EXPECT_EQ(text(209), L"1");
    EXPECT_TRUE(quantity.values.empty()) << "a row that kept another quantity would lose it";
}

TEST_F(PanelUpdate, TheFirstSymbolSetsTheQuantityWhateverItsCategory) {
    EXPECT_FALSE(tab->field(eODUE_Quantity).values.empty());
    EXPECT_STREQ(tab->field(eODUE_Quantity).values.front().bstrVal, L"100");
}

TEST_F(PanelUpdate, AFieldOfTheWrongKindIsReported) {
    tab->fields[eODUE_Symbol] = boost::make_shared<fake_field>();
    update(eODUE_Symbol);
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"pSymbolCtrl"});
    reports.clear();
    tab->fields[eODUE_AskBid] = boost::make_shared<fake_field>();
    EXPECT_THROW(update(eODUE_AskBid), _com_error);
    EXPECT_EQ(asserted().size(), 1u);
}

TEST_F(PanelUpdate, ThePickerShowsTheDate) {
    _variant_t date;
    date.vt = VT_DATE;
    date.date = 65016.75;  // 2078-01-01 18:00
    tab->field(eODUE_GtdDate).value = date;
    update(eODUE_GtdDate);
    SYSTEMTIME shown = {};
    EXPECT_EQ(SendMessageW(item(228), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown)), GDT_VALID);
    EXPECT_EQ(shown.wYear, 2078);
    EXPECT_EQ(shown.wMonth, 1);
    EXPECT_EQ(shown.wDay, 1);
    tab->field(eODUE_GtdDate).value = L"tomorrow";
    EXPECT_THROW(update(eODUE_GtdDate), _com_error);
}

TEST_F(PanelUpdate, TheButtonShowsTheMidOfTheQuotesOrWhatTheyAre) {
    EXPECT_EQ(text(231), L"101.38 ");
    tab->quotes->ask = 101.75;
    update(eODUE_AskBid);
    EXPECT_EQ(text(231), L"101.50 ");
    tab->quotes->empty = true;
    update(eODUE_AskBid);
    EXPECT_EQ(text(231), L"買價/賣價 ");
    EXPECT_FALSE(IsWindowEnabled(item(231))) << "there is nothing to choose";
    tab->quotes->empty = false;
    update(eODUE_AskBid);
    EXPECT_EQ(text(231), L"101.50 ");
    EXPECT_TRUE(IsWindowEnabled(item(231)));
    tab->quotes->bid = 0.0;
    update(eODUE_AskBid);
    EXPECT_EQ(text(231), L"買價/賣價 ");
}

TEST_F(PanelUpdate, QuotesFollowTheScaleOfTheSymbol) {
    tab->symbol->price_scale = 'k';
    tab->quotes->ask = 101.5;
    tab->quotes->bid = 101.0;
    update(eODUE_Symbol | eODUE_AskBid);
    EXPECT_EQ(text(231), L"101 8/32 ");
}

TEST_F(PanelUpdate, AFieldThatGoesVanishesWithItsSpinAndTheRowClosesUp) {
    RECT before = {};
    GetWindowRect(item(231), &before);
    tab->field(eODUE_FirstPrice).hidden = true;
    bar->Show(true);
    EXPECT_FALSE(IsWindowVisible(item(214)));
    EXPECT_FALSE(IsWindowVisible(item(213)));
    RECT after = {};
    GetWindowRect(item(231), &after);
    EXPECT_LT(after.left, before.left);
}

TEST_F(PanelUpdate, AUsersChangeSlidesToTheSamePlaceByItself) {
    tab->field(eODUE_FirstPrice).hidden = true;
    bar->Show(true);
    RECT closed = {};
    GetWindowRect(item(225), &closed);
    tab->field(eODUE_FirstPrice).hidden = false;
    update(eODUE_FirstPrice);
    EXPECT_FALSE(IsWindowVisible(item(214))) << "it comes when the others have made room";
    ASSERT_TRUE(pump_until([&] { return IsWindowVisible(item(214)) != FALSE; }));
    RECT open = {};
    GetWindowRect(item(225), &open);
    EXPECT_GT(open.left, closed.left);
    tab->field(eODUE_FirstPrice).hidden = true;
    update(eODUE_FirstPrice);
    EXPECT_FALSE(IsWindowVisible(item(214)));
    EXPECT_TRUE(pump_until([&] {
        RECT now = {};
        GetWindowRect(item(225), &now);
        return now.left == closed.left;
    }));
}

TEST_F(PanelUpdate, PricesTakeFifteenCharactersAndSayWhatTheyAre) {
    EXPECT_EQ(SendMessageW(item(214), EM_GETLIMITTEXT, 0, 0), 15);
    EXPECT_EQ(SendMessageW(item(217), EM_GETLIMITTEXT, 0, 0), 15);
    wchar_t cue[20] = {};
    SendMessageW(item(214), EM_GETCUEBANNER, reinterpret_cast<WPARAM>(cue), 20);
    EXPECT_STREQ(cue, L" 觸發價");
    SendMessageW(item(217), EM_GETCUEBANNER, reinterpret_cast<WPARAM>(cue), 20);
    EXPECT_STREQ(cue, L" 委託價");
}

TEST_F(PanelUpdate, TheSymbolBoxHoldsItsButtonAtItsRightEnd) {
    EXPECT_NE(GetWindowLongPtrW(item(203), GWL_STYLE) & WS_CLIPCHILDREN, 0);
    const HWND button = GetDlgItem(item(203), 203);
    ASSERT_NE(button, nullptr);
    RECT client = {};
    GetClientRect(item(203), &client);
    RECT at = {};
    GetWindowRect(button, &at);
    MapWindowPoints(nullptr, item(203), reinterpret_cast<POINT*>(&at), 2);
    EXPECT_EQ(at.right, client.right);
    EXPECT_EQ(at.right - at.left, 16);
}

TEST_F(PanelUpdate, ATabsColoursFillTheBackgroundFromLeftToRight) {
    tab->gradient = {RGB(255, 0, 0), RGB(0, 0, 255)};
    const HDC screen = GetDC(panel());
    const HDC memory = CreateCompatibleDC(screen);
    RECT client = {};
    GetClientRect(panel(), &client);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, client.right, client.bottom);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    EXPECT_EQ(SendMessageW(panel(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(memory), 0), 1);
    const COLORREF left = GetPixel(memory, 1, 2);
    const COLORREF right = GetPixel(memory, client.right - 2, 2);
    EXPECT_GT(GetRValue(left), 240);
    EXPECT_LT(GetBValue(left), 15);
    EXPECT_LT(GetRValue(right), 15);
    EXPECT_GT(GetBValue(right), 240);
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(panel(), screen);
}

}  // namespace
