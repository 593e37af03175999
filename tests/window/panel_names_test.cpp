// What those who do not see the screen are told of the fields.
#include <windows.h>

#include <oleacc.h>

#include <algorithm>
#include <vector>

#include "platform/com_ptr.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using window_tests::bar_test;

class PanelNames : public bar_test {
protected:
    PanelNames() { tab = add(L"Alpha", eTM_CC_Connected); }

    com_ptr<IAccessible> object(int id) const {
        com_ptr<IAccessible> result;
        EXPECT_EQ(
            AccessibleObjectFromWindow(item(id), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                       static_cast<void**>(platform::receive(result))),
            S_OK);
        return result;
    }
    CString name(int id) const {
        _bstr_t text;
        EXPECT_EQ(object(id)->get_accName(_variant_t(LONG{CHILDID_SELF}, VT_I4), text.GetAddress()), S_OK);
        return platform::text_of(text);
    }
    CString value(int id) const {
        _bstr_t text;
        EXPECT_EQ(object(id)->get_accValue(_variant_t(LONG{CHILDID_SELF}, VT_I4), text.GetAddress()), S_OK);
        return platform::text_of(text);
    }

    boost::shared_ptr<window_tests::fake_tab> tab;
};

TEST_F(PanelNames, AnEditBearsTheTitleOfItsField) {
    EXPECT_EQ(name(203), L"選擇商品");
    EXPECT_EQ(name(209), L"數量");
    EXPECT_EQ(name(214), L"觸發價");
    EXPECT_EQ(name(217), L"委託價");
}

TEST_F(PanelNames, AnEditsValueIsItsText) {
    EXPECT_EQ(value(203), L"SYM");
    SetWindowTextW(item(209), L"250");
    EXPECT_EQ(value(209), L"250");
    SetWindowTextW(item(214), L"12 1/2");
    EXPECT_EQ(value(214), L"12 1/2");
}

TEST_F(PanelNames, AListAndTheDateBearTheNameOfTheirField) {
    EXPECT_EQ(name(206), L"委託類型");
    EXPECT_EQ(name(220), L"帳戶");
    EXPECT_EQ(name(222), L"有效期限");
    EXPECT_EQ(name(228), L"到期日");
}

TEST_F(PanelNames, AListsValueIsWhatIsChosen) {
    for (const int id : {206, 220, 222}) {
        EXPECT_EQ(value(id), text(id)) << id;
        EXPECT_FALSE(text(id).empty()) << id;
    }
}

TEST_F(PanelNames, TheDatesValueIsTheDateThatShows) {
    const SYSTEMTIME date = {2031, 5, 0, 23, 0, 0, 0, 0};
    SendMessageW(item(228), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date));
    EXPECT_NE(value(228).find(L"2031"), CString::npos) << test::narrow(value(228));
}

TEST_F(PanelNames, AButtonIsNamedByWhatItWouldDo) {
    EXPECT_EQ(name(231), L"買價/賣價 101.38 ");
    tab->quotes->empty = true;
    bar->Show(true);
    EXPECT_EQ(name(231), L"買價/賣價");
    EXPECT_EQ(name(225), L"買進 市價\n1");
    EXPECT_EQ(name(227), L"賣出 市價\n1");
}

TEST_F(PanelNames, TheTabKeyGoesAlongTheRow) {
    std::vector<LONG> lefts;
    const HWND first = item(203);
    HWND at = first;
    do {
        RECT place = {};
        GetWindowRect(at, &place);
        lefts.push_back(place.left);
        at = GetNextDlgTabItem(panel(), at, FALSE);
    } while (at != first && lefts.size() < 20);
    EXPECT_GE(lefts.size(), 8U);
    EXPECT_TRUE(std::is_sorted(lefts.begin(), lefts.end())) << testing::PrintToString(lefts);
}

TEST_F(PanelNames, AnEditIsStillAnEditToThem) {
    _variant_t role;
    EXPECT_EQ(object(209)->get_accRole(_variant_t(LONG{CHILDID_SELF}, VT_I4), role.GetAddress()), S_OK);
    EXPECT_EQ(role.vt, VT_I4);
    EXPECT_EQ(role.lVal, ROLE_SYSTEM_TEXT);
    com_ptr<IDispatch> automation;
    EXPECT_EQ(object(209)->QueryInterface(IID_IDispatch, static_cast<void**>(platform::receive(automation))),
              S_OK);
}

}  // namespace
