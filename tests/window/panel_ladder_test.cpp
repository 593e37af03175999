// The ladder of prices belongs to one symbol of one tab.
#include <windows.h>

#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;

class PanelLadder : public window_tests::bar_test {
protected:
    void SetUp() override {
        tab = add(L"A");
        other = add(L"B");
        bar->SelectTab(tab->id);
        SendMessageW(item(231), WM_KEYDOWN, VK_F4, 1);
        ASSERT_TRUE(is_open());
    }
    void TearDown() override {
        if (is_open()) {
            SendMessageW(item(231), WM_KEYDOWN, VK_ESCAPE, 1);
        }
    }
    bool is_open() const {
        bool open = false;
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM found) -> BOOL {
                wchar_t name[64] = {};
                GetClassNameW(window, name, 64);
                if (CString(name) == L"OrderDeckRangeBar" && IsWindowVisible(window)) {
                    *reinterpret_cast<bool*>(found) = true;
                }
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&open));
        return open;
    }

    boost::shared_ptr<window_tests::fake_tab> tab;
    boost::shared_ptr<window_tests::fake_tab> other;
};

TEST_F(PanelLadder, StaysForARefreshOfTheSameSymbolAndForQuotes) {
    bar->Update(tab->id, UpdateMask::AllFieldsAndRepaint);
    tab->quotes->ask = 102.0;
    bar->Update(tab->id, eODUE_AskBid);
    bar->Update(other->id, UpdateMask::AllFieldsAndRepaint);
    EXPECT_TRUE(is_open());
}

TEST_F(PanelLadder, ClosesWithItsTab) {
    bar->SelectTab(other->id);
    EXPECT_FALSE(is_open());
}

TEST_F(PanelLadder, ClosesWhenItsTabGoes) {
    bar->RemoveTab(tab->id);
    EXPECT_FALSE(is_open());
}

TEST_F(PanelLadder, ClosesWithItsSymbol) {
    tab->symbol->value = L"OTHER";
    bar->Update(tab->id, eODUE_Symbol);
    EXPECT_FALSE(is_open());
}

TEST_F(PanelLadder, ClosesWhenTheQuotesCanNotBeUsed) {
    tab->quotes->enabled = false;
    bar->Update(tab->id, eODUE_AskBid);
    EXPECT_FALSE(is_open());
}

TEST_F(PanelLadder, ClosesWhenThePanelIsHidden) {
    bar->Show(false);
    EXPECT_FALSE(is_open());
}

}  // namespace
