// What bar and panel do when a control does not obey.
#include <windows.h>

#include <commctrl.h>

#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using texts = std::vector<std::wstring>;

// A control that answers one message itself, without doing what it asks.
class refusal {
public:
    refusal(HWND control, UINT message, LRESULT answer)
        : m_control(control), m_message(message), m_answer(answer) {
        SetWindowSubclass(control, &refusal::procedure, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    ~refusal() { RemoveWindowSubclass(m_control, &refusal::procedure, 1); }
    refusal(const refusal&) = delete;
    refusal& operator=(const refusal&) = delete;

private:
    static LRESULT CALLBACK procedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                      DWORD_PTR self) {
        const auto* const one = reinterpret_cast<const refusal*>(self);
        return message == one->m_message ? one->m_answer : DefSubclassProc(control, message, wparam, lparam);
    }

    HWND m_control;
    UINT m_message;
    LRESULT m_answer;
};

class RefusingControls : public window_tests::bar_test {};

TEST_F(RefusingControls, ATabThatIsNotInsertedIsNotAdded) {
    const auto first = add(L"A");
    const refusal none(strip(), TCM_INSERTITEMW, -1);
    const auto second = boost::make_shared<window_tests::fake_tab>(host, L"B", eTM_CC_Disconnected);
    EXPECT_EQ(bar->AddTab(second, false), 0);
    EXPECT_EQ(second->id, 0);
    EXPECT_EQ(bar->get_TabInfos().size(), 1u);
}

TEST_F(RefusingControls, ATabThatIsNotDeletedIsReportedAndForgottenAllTheSame) {
    const auto first = add(L"A");
    const auto second = add(L"B");
    bar->SelectTab(first->id);
    const refusal none(strip(), TCM_DELETEITEM, FALSE);
    EXPECT_TRUE(bar->RemoveTab(second->id));
    EXPECT_EQ(asserted(), texts{L"bRes"});
    EXPECT_FALSE(bar->get_Tab(second->id));
    EXPECT_EQ(bar->get_Tab(first->id), first);
}

TEST_F(RefusingControls, AnItemOfTheStripThatIsNoTabIsReportedWhenItIsRemoved) {
    add(L"A");
    TCITEMW item = {};
    item.mask = TCIF_PARAM;
    item.lParam = 777777;
    SendMessageW(strip(), TCM_INSERTITEMW, 1, reinterpret_cast<LPARAM>(&item));
    EXPECT_FALSE(bar->RemoveTab(777777));
    EXPECT_EQ(asserted(), texts{L"_it != m_tab_infos.end()"});
    EXPECT_EQ(bar->get_TabCount(), 1);
}

TEST_F(RefusingControls, StripsThatWereNotEmptiedAreTold) {
    add(L"A");
    EXPECT_TRUE(bar->RemoveAllTabs());
    add(L"B");
    const refusal none(strip(), TCM_DELETEALLITEMS, FALSE);
    EXPECT_FALSE(bar->RemoveAllTabs());
    EXPECT_TRUE(bar->get_TabInfos().empty());
}

TEST_F(RefusingControls, ARenameWithoutASelectedTabIsReportedAndDone) {
    const auto tab = add(L"A");
    add(L"B");
    TabCtrl_SetCurSel(strip(), -1);
    tab->name = L"C";
    bar->Update(tab->id, UpdateMask::Name);
    EXPECT_EQ(asserted(), texts{L"iCurTab != -1"});
    EXPECT_EQ(names(), (std::vector<CString>{L"B", L"C"}));
}

TEST_F(RefusingControls, TheFocusOfAnUnknownTabIsRaisedAsAFailure) {
    add(L"A");
    try {
        bar->SetFocus(424242, eODUE_Account);
        FAIL() << "nothing raised";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Error(), E_FAIL);
    }
    EXPECT_EQ(asserted().size(), 1u);
}

TEST_F(RefusingControls, WithoutASelectedTabNoFieldGetsTheFocus) {
    const auto tab = add(L"A");
    SetFocus(item(209));
    TabCtrl_SetCurSel(strip(), -1);
    bar->SetFocus(tab->id, eODUE_Account);
    EXPECT_EQ(GetFocus(), item(209));
}

TEST_F(RefusingControls, AListItemThatIsNotAddedIsReportedAndSkipped) {
    const auto tab = add(L"A");
    for (const LRESULT answer : {CB_ERR, CB_ERRSPACE}) {
        reports.clear();
        const refusal none(item(222), CB_ADDSTRING, answer);
        bar->Update(tab->id, eODUE_TimeInForce);
        const texts twice(2, L"iIndex != CB_ERR && iIndex != CB_ERRSPACE");
        EXPECT_EQ(asserted(), twice) << answer;
        EXPECT_EQ(SendMessageW(item(222), CB_GETCOUNT, 0, 0), 0);
    }
}

TEST_F(RefusingControls, AListItemWithoutItsKeyIsReportedAndKept) {
    const auto tab = add(L"A");
    const refusal none(item(222), CB_SETITEMDATA, -1);
    bar->Update(tab->id, eODUE_TimeInForce);
    EXPECT_EQ(asserted(), texts(2, L"iRes != (-1)"));
    EXPECT_EQ(SendMessageW(item(222), CB_GETCOUNT, 0, 0), 2);
    EXPECT_EQ(SendMessageW(item(222), CB_GETCURSEL, 0, 0), 0);
}

}  // namespace
