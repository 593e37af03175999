// One intention of the user is one press of Buy or Sell.
#include <windows.h>

#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;

class PanelDoubleClick : public window_tests::bar_test {
protected:
    void SetUp() override { tab = add(L"A"); }

    std::size_t presses(OD_UpdateEntity entity) { return tab->field(entity).selections.size(); }
    void mouse(int id, UINT down) {
        SendMessageW(item(id), down, MK_LBUTTON, MAKELPARAM(5, 5));
        SendMessageW(item(id), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    }
    // As a key comes from the queue of a host that serves dialogs.
    void key(UINT message, WPARAM code, LPARAM details) {
        MSG told = {};
        told.hwnd = GetFocus();
        told.message = message;
        told.wParam = code;
        told.lParam = details;
        if (!IsDialogMessageW(panel(), &told)) {
            DispatchMessageW(&told);
        }
    }

    boost::shared_ptr<window_tests::fake_tab> tab;
};

TEST_F(PanelDoubleClick, OfBuyOrSellIsOnePress) {
    for (const auto& [id, entity] : {std::pair(225, eODUE_Buy), std::pair(227, eODUE_Sell)}) {
        mouse(id, WM_LBUTTONDOWN);
        mouse(id, WM_LBUTTONDBLCLK);
        EXPECT_EQ(presses(entity), 1u) << id;
    }
}

TEST_F(PanelDoubleClick, ATripleClickIsOnePress) {
    mouse(225, WM_LBUTTONDOWN);
    mouse(225, WM_LBUTTONDBLCLK);
    mouse(225, WM_LBUTTONDOWN);
    EXPECT_EQ(presses(eODUE_Buy), 1u);
}

TEST_F(PanelDoubleClick, BuyAndSellInTurnsAreOneEach) {
    for (int i = 0; i < 3; ++i) {
        mouse(225, WM_LBUTTONDOWN);
        mouse(227, WM_LBUTTONDOWN);
    }
    EXPECT_EQ(presses(eODUE_Buy), 3u);
    EXPECT_EQ(presses(eODUE_Sell), 3u);
}

TEST_F(PanelDoubleClick, ItsNoticeIsDeclined) {
    LRESULT result = 0;
    EXPECT_FALSE(bar->get_Panel().ProcessWindowMessage(panel(), WM_COMMAND, MAKEWPARAM(225, BN_DOUBLECLICKED),
                                                       reinterpret_cast<LPARAM>(item(225)), result, 0));
    EXPECT_EQ(presses(eODUE_Buy), 0u);
}

TEST_F(PanelDoubleClick, OfTheQuotesIsTwo) {
    mouse(231, WM_LBUTTONDOWN);
    mouse(231, WM_LBUTTONDBLCLK);
    pump();
    EXPECT_EQ(tab->quotes->values.size(), 2u);
}

TEST_F(PanelDoubleClick, AHeldSpaceKeyPressesOnce) {
    SetFocus(item(225));
    key(WM_KEYDOWN, VK_SPACE, 1);
    for (int i = 0; i < 4; ++i) {
        key(WM_KEYDOWN, VK_SPACE, LPARAM{KF_REPEAT} << 16 | 1);
    }
    EXPECT_EQ(presses(eODUE_Buy), 0u);
    key(WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(presses(eODUE_Buy), 1u);
}

TEST_F(PanelDoubleClick, EnterPressesNeither) {
    for (const int id : {225, 227}) {
        SetFocus(item(id));
        ASSERT_EQ(GetFocus(), item(id));
        key(WM_KEYDOWN, VK_RETURN, 1);
        key(WM_KEYUP, VK_RETURN, 1);
    }
    pump();
    EXPECT_EQ(presses(eODUE_Buy), 0u);
    EXPECT_EQ(presses(eODUE_Sell), 0u);
}

}  // namespace
