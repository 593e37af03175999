// A bar that is narrower than its order row.
#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>

#include "charting/orderdeck/src/window/LayoutPanel.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr int row_items[] = {203, 206, 209, 214, 217, 231, 220, 222, 228, 225, 227};

class NarrowRow : public window_tests::bar_test {
protected:
    NarrowRow() {
        tab = add(L"A");
        MoveWindow(bar->get_Hwnd(), 0, 0, 480, 90, TRUE);
    }

    RECT place(HWND window) const {
        RECT rect = {};
        GetWindowRect(window, &rect);
        MapWindowPoints(nullptr, panel(), reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }
    LONG left(int id) const { return place(item(id)).left; }
    LONG panel_width() const {
        RECT client = {};
        GetClientRect(panel(), &client);
        return client.right;
    }
    std::vector<int> in_sight() const {
        std::vector<int> result;
        RECT client = {};
        GetClientRect(panel(), &client);
        for (const int id : row_items) {
            const RECT rect = place(item(id));
            RECT both = {};
            if (IsWindowVisible(item(id)) && IntersectRect(&both, &rect, &client)) {
                result.push_back(id);
            }
        }
        return result;
    }
    HWND arrows() const { return item(CLayoutPanel::Arrows); }
    // One press of the left or the right arrow.
    void press_arrow(int direction) const {
        RECT client = {};
        GetClientRect(arrows(), &client);
        const LPARAM at = MAKELPARAM(direction < 0 ? 3 : client.right - 3, client.bottom / 2);
        SendMessageW(arrows(), WM_LBUTTONDOWN, MK_LBUTTON, at);
        SendMessageW(arrows(), WM_LBUTTONUP, 0, at);
    }

    boost::shared_ptr<window_tests::fake_tab> tab;
};

TEST_F(NarrowRow, BuyAndSellStandAtTheRightEndWithTheArrowsBeforeThem) {
    EXPECT_EQ(place(item(227)).right, panel_width() - 4);
    EXPECT_TRUE(IsWindowVisible(arrows()));
    EXPECT_EQ(place(arrows()).right, left(225) - 4);
    EXPECT_THAT(in_sight(), Contains(203));
    EXPECT_THAT(in_sight(), Not(Contains(228)));
}

TEST_F(NarrowRow, TheArrowsScrollFieldByField) {
    const LONG first = left(203);
    press_arrow(1);
    EXPECT_THAT(in_sight(), Not(Contains(203)));
    EXPECT_EQ(left(206), first) << "the next stands where the first stood";
    press_arrow(-1);
    EXPECT_THAT(in_sight(), Contains(203));
    EXPECT_EQ(left(203), first);
    for (int i = 0; i < 12; ++i) {
        press_arrow(1);
    }
    EXPECT_THAT(in_sight(), Contains(228)) << "the last field ends the way";
}

TEST_F(NarrowRow, TheFocusLeavesAFieldThatIsScrolledOutOfSightForTheNextThatIsSeen) {
    SetFocus(item(203));
    press_arrow(1);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), 206);
    SetFocus(item(228));
    const int first_seen = in_sight().front();
    press_arrow(-1);
    const auto seen = in_sight();
    EXPECT_NE(seen.front(), first_seen);
    EXPECT_THAT(seen, Contains(GetDlgCtrlID(GetFocus())));
    EXPECT_THAT(seen, Not(Contains(228)));
}

TEST_F(NarrowRow, TheFocusOfTheOnlyUsableFieldKeepsItInSight) {
    for (const int id : row_items) {
        EnableWindow(item(id), id == 203);
    }
    SetFocus(item(203));
    press_arrow(1);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), 203);
    EXPECT_THAT(in_sight(), Contains(203));
}

TEST_F(NarrowRow, TheFocusOnBuyStaysThereWhileTheFieldsScroll) {
    SetFocus(item(225));
    const LONG buy = left(225);
    press_arrow(1);
    EXPECT_EQ(GetFocus(), item(225));
    EXPECT_EQ(left(225), buy);
    EXPECT_THAT(in_sight(), Not(Contains(203)));
}

TEST_F(NarrowRow, AFieldThatAProgramGivesTheFocusComesIntoSight) {
    ASSERT_THAT(in_sight(), Not(Contains(222)));
    SetFocus(item(222));
    EXPECT_THAT(in_sight(), Contains(222));
    EXPECT_TRUE(IsWindowVisible(item(203))) << "what is scrolled away is there all the same";
}

TEST_F(NarrowRow, AWiderBarShowsTheRowAsTheLayoutHasIt) {
    SetFocus(item(228));
    MoveWindow(bar->get_Hwnd(), 0, 0, 1500, 90, TRUE);
    EXPECT_FALSE(IsWindowVisible(arrows()));
    EXPECT_THAT(in_sight(), testing::ElementsAreArray(row_items));
    std::vector<LONG> lefts;
    for (const int id : row_items) {
        lefts.push_back(left(id));
    }
    EXPECT_TRUE(std::is_sorted(lefts.begin(), lefts.end()));
}

TEST_F(NarrowRow, ASlideMovesTheFieldsAndNeitherBuyNorSell) {
    const LONG buy = left(225);
    const LONG sell = left(227);
    const LONG account = left(220);
    press_arrow(1);
    tab->field(eODUE_FirstPrice).hidden = true;
    bar->Update(tab->id, eODUE_FirstPrice);
    bool stood = true;
    const bool ended = pump_until([&] {
        stood = stood && left(225) == buy && left(227) == sell;
        return left(220) < account;
    });
    EXPECT_TRUE(ended);
    bar->Show(true);
    EXPECT_TRUE(stood);
    EXPECT_EQ(left(225), buy);
    EXPECT_THAT(in_sight(), Not(Contains(214)));
}

}  // namespace
