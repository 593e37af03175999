// A press that is given up leaves nothing behind: the next one is held against what the row shows then.
#include <windows.h>

#include "charting/orderdeck/interface/RowSight.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;

class pressed_field final : public window_tests::fake_field, public IPressedButton {
public:
    std::vector<CString> seen_quantities;
    row_differences Press(const CRowSight& sight) override {
        seen_quantities.push_back(sight[eODUE_Quantity].text);
        return {};
    }
};

class PanelAbandonedPress : public window_tests::bar_test {
protected:
    void SetUp() override {
        tab = add(L"A");
        tab->fields[eODUE_Buy] = buy;
        SetWindowTextW(item(209), L"100");
    }
    void mouse(UINT message, int at) {
        SendMessageW(item(225), message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(at, at));
    }
    void command() {
        SendMessageW(panel(), WM_COMMAND, MAKEWPARAM(225, BN_CLICKED), reinterpret_cast<LPARAM>(item(225)));
    }

    boost::shared_ptr<window_tests::fake_tab> tab;
    boost::shared_ptr<pressed_field> buy = boost::make_shared<pressed_field>();
};

TEST_F(PanelAbandonedPress, AReleaseOnTheButtonPressesWithWhatWasSeenAtFirst) {
    mouse(WM_LBUTTONDOWN, 5);
    SetWindowTextW(item(209), L"7");
    mouse(WM_LBUTTONUP, 5);
    EXPECT_EQ(buy->seen_quantities, (std::vector<CString>{L"100"}));
}

TEST_F(PanelAbandonedPress, AReleaseElsewherePressesNothingAndIsForgotten) {
    mouse(WM_LBUTTONDOWN, 5);
    mouse(WM_MOUSEMOVE, -30);
    mouse(WM_LBUTTONUP, -30);
    EXPECT_TRUE(buy->seen_quantities.empty());
    SetWindowTextW(item(209), L"7");
    command();
    EXPECT_EQ(buy->seen_quantities, (std::vector<CString>{L"7"}));
}

TEST_F(PanelAbandonedPress, OneThatLosesTheMouseIsForgotten) {
    mouse(WM_LBUTTONDOWN, 5);
    ReleaseCapture();
    SetWindowTextW(item(209), L"7");
    command();
    EXPECT_EQ(buy->seen_quantities, (std::vector<CString>{L"7"}));
}

TEST_F(PanelAbandonedPress, AHeldKeyThatLosesTheFocusIsForgotten) {
    SetFocus(item(225));
    SendMessageW(item(225), WM_KEYDOWN, VK_SPACE, 1);
    SetFocus(item(209));
    SetWindowTextW(item(209), L"7");
    command();
    EXPECT_EQ(buy->seen_quantities, (std::vector<CString>{L"7"}));
}

}  // namespace
