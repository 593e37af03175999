// The balloons over the prices.
#include <windows.h>

#include <commctrl.h>

#include <limits>

#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;

// The titles that a balloon is given.
class balloon_titles {
public:
    explicit balloon_titles(HWND balloon) : m_balloon(balloon) {
        s_last.clear();
        SetWindowSubclass(balloon, &balloon_titles::procedure, 1, 0);
    }
    ~balloon_titles() { RemoveWindowSubclass(m_balloon, &balloon_titles::procedure, 1); }
    balloon_titles(const balloon_titles&) = delete;
    balloon_titles& operator=(const balloon_titles&) = delete;
    const CString& last() const { return s_last; }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR) {
        if (message == TTM_SETTITLEW) {
            s_last = reinterpret_cast<const wchar_t*>(lParam);
        }
        return DefSubclassProc(window, message, wParam, lParam);
    }

    inline static CString s_last;
    HWND m_balloon;
};

class PanelBalloons : public window_tests::bar_test {
protected:
    PanelBalloons() { tab = add(L"A"); }

    window_tests::fake_field& field(OD_UpdateEntity entity) { return tab->field(entity); }
    void type(int id, const wchar_t* characters) {
        SetFocus(item(id));
        for (; *characters != L'\0'; ++characters) {
            SendMessageW(item(id), WM_CHAR, *characters, 1);
        }
    }
    void spin(int id, int delta) {
        NMUPDOWN notice = {{item(id), static_cast<UINT_PTR>(id), static_cast<UINT>(UDN_DELTAPOS)}, 0, delta};
        SendMessageW(panel(), WM_NOTIFY, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&notice));
    }
    bool balloon_visible() const { return IsWindowVisible(balloon()) != FALSE; }
    HWND balloon() const { return bar->get_Panel().get_Tips().get_Hwnd(); }
    CString balloon_text(int id) const {
        wchar_t shown[200] = {};
        TTTOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = panel();
        tool.uId = reinterpret_cast<UINT_PTR>(item(id));
        tool.lpszText = shown;
        SendMessageW(balloon(), TTM_GETTEXTW, 200, reinterpret_cast<LPARAM>(&tool));
        return shown;
    }

    boost::shared_ptr<window_tests::fake_tab> tab;
};

TEST_F(PanelBalloons, APriceThatIsNoneShowsTheRangeAtOnceWithItsTitle) {
    field(eODUE_SecondPrice).empty = true;
    field(eODUE_SecondPrice).low = 0.25;
    field(eODUE_SecondPrice).high = 250000.0;
    const balloon_titles titles(balloon());
    EXPECT_FALSE(balloon_visible());
    type(217, L"x");
    EXPECT_TRUE(balloon_visible());
    EXPECT_EQ(balloon_text(217), L"請輸入 0 至 250000 的數值。");
    EXPECT_EQ(titles.last(), L"委託價");
    field(eODUE_SecondPrice).empty = false;
    type(217, L"1");
    EXPECT_FALSE(balloon_visible());
}

TEST_F(PanelBalloons, TheBalloonBelongsToThePriceThatIsTypedAndGoesWhenItIsLeft) {
    field(eODUE_FirstPrice).empty = true;
    field(eODUE_FirstPrice).low = -3.9;
    field(eODUE_FirstPrice).high = 12.9;
    field(eODUE_SecondPrice).empty = true;
    const balloon_titles titles(balloon());
    type(214, L"x");
    EXPECT_TRUE(balloon_visible());
    EXPECT_EQ(balloon_text(214), L"請輸入 -3 至 12 的數值。") << "the whole parts";
    EXPECT_EQ(titles.last(), L"觸發價");
    RECT edit = {};
    RECT shown = {};
    GetWindowRect(item(214), &edit);
    GetWindowRect(balloon(), &shown);
    EXPECT_LT(shown.left, edit.right);
    EXPECT_GT(shown.right, edit.left);
    SetFocus(item(209));
    EXPECT_FALSE(balloon_visible());
    EXPECT_EQ(text(214), L"x") << "what is no price stays for the user to mend";
    type(217, L"x");
    EXPECT_TRUE(balloon_visible());
    EXPECT_EQ(titles.last(), L"委託價");
    spin(216, 1);
    EXPECT_FALSE(balloon_visible()) << "a spin ends it";
}

TEST_F(PanelBalloons, ARangeBeyondAllNumbersShowsItsEndsAndOneThatIsNoneZero) {
    auto& price = field(eODUE_FirstPrice);
    price.empty = true;
    price.low = -1e300;
    price.high = 1e300;
    type(214, L"x");
    EXPECT_EQ(balloon_text(214), L"請輸入 -2147483648 至 2147483647 的數值。");
    price.low = std::numeric_limits<double>::quiet_NaN();
    type(214, L"y");
    EXPECT_EQ(balloon_text(214), L"請輸入 0 至 2147483647 的數值。");
}

TEST_F(PanelBalloons, APriceThatThePanelWritesShowsNoBalloon) {
    field(eODUE_FirstPrice).empty = true;
    field(eODUE_FirstPrice).value = L"x";
    bar->Update(tab->id, eODUE_FirstPrice);
    EXPECT_EQ(text(214), L"x");
    EXPECT_FALSE(balloon_visible());
}

TEST_F(PanelBalloons, APriceShowsNone) {
    type(214, L"12");
    EXPECT_FALSE(balloon_visible());
}

}  // namespace
