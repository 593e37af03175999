// What happens on tabs that nobody sees costs the screen nothing.
#include <windows.h>

#include <commctrl.h>

#include <cmath>

#include "tests/window/bar_fixture.h"
#include "tests/window/sent_messages.h"

namespace {

using namespace OV_OrderDeck;

class QuietTabs : public window_tests::bar_test {
protected:
    QuietTabs() : shown(add(L"Alpha")), other(add(L"Beta")) {
        pump();
        shown->asked.clear();
        other->asked.clear();
        messages.take();
    }

    // Quotes that differ each time, as they do in a market.
    void quote(window_tests::fake_tab& tab) {
        tab.quotes->ask += 0.25;
        tab.quotes->bid += 0.25;
        bar->Update(tab.id, eODUE_AskBid);
    }
    // A hundred quotes of a tab that is not shown: no message to any window, sent or posted.
    void expect_quiet(window_tests::fake_tab& tab) {
        pump();
        messages.take();
        tab.asked.clear();
        for (int i = 0; i < 100; ++i) {
            quote(tab);
        }
        EXPECT_EQ(messages.take().size(), 0U);
        MSG posted = {};
        EXPECT_FALSE(PeekMessageW(&posted, nullptr, 0, 0, PM_NOREMOVE)) << posted.message;
        EXPECT_TRUE(tab.asked.empty());
    }
    void expect_shown(window_tests::fake_tab& tab) {
        tab.asked.clear();
        quote(tab);
        EXPECT_EQ(tab.asked, std::vector<unsigned>{eODUE_AskBid});
        const long cents = std::lround((tab.quotes->ask + tab.quotes->bid) / 2 * 100);
        CString middle = std::to_wstring(cents);
        middle.insert(middle.size() - 2, L".");
        EXPECT_EQ(text(231), middle + L" ");
    }

    boost::shared_ptr<window_tests::fake_tab> shown;
    boost::shared_ptr<window_tests::fake_tab> other;
    window_tests::sent_messages messages;
};

// Hundreds of profiles open in a time that grows as their number: a tab's place is not looked for tab by tab.
TEST_F(QuietTabs, OneMoreTabAmongManyReadsFewOfThem) {
    for (int i = 0; i < 64; ++i) {
        add(L"Gamma " + std::to_wstring(i));
    }
    messages.take();
    const auto last = add(L"Zeta");
    int reads = 0;
    for (const auto& sent : messages.take()) {
        reads += sent.message == TCM_GETITEMW ? 1 : 0;
    }
    EXPECT_GT(reads, 0);
    EXPECT_LE(reads, 8);
    bar->Update(last->id, UpdateMask::ConnectionState);
    reads = 0;
    for (const auto& sent : messages.take()) {
        reads += sent.message == TCM_GETITEMW ? 1 : 0;
    }
    EXPECT_EQ(reads, 1);
}

TEST_F(QuietTabs, QuotesOfTheShownTabReachTheirButton) {
    expect_shown(*shown);
    int to_button = 0;
    for (const auto& sent : messages.take()) {
        to_button += sent.window == item(231) ? 1 : 0;
    }
    EXPECT_GT(to_button, 0);
}

TEST_F(QuietTabs, QuotesOfAnotherTabTouchNoWindowAndAskNoField) {
    expect_quiet(*other);
    EXPECT_TRUE(shown->asked.empty());
    expect_shown(*shown);
}

TEST_F(QuietTabs, StaySoWhileTheBarIsHidden) {
    bar->Show(false);
    expect_quiet(*other);
    ShowWindow(bar->get_Hwnd(), SW_HIDE);
    expect_quiet(*other);
    expect_shown(*shown);
    ShowWindow(bar->get_Hwnd(), SW_SHOW);
}

TEST_F(QuietTabs, StaySoAfterAChoiceByTheUserOrTheProgram) {
    POINT at = tab_centre(1);
    ScreenToClient(strip(), &at);
    SendMessageW(strip(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    SendMessageW(strip(), WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    expect_quiet(*shown);
    expect_shown(*other);
    SendMessageW(strip(), WM_KEYDOWN, VK_LEFT, 1);
    expect_quiet(*other);
    expect_shown(*shown);
    bar->SelectTab(other->id);
    expect_quiet(*shown);
    expect_shown(*other);
}

TEST_F(QuietTabs, StaySoAfterAChoiceByAnotherProgram) {
    SendMessageW(strip(), TCM_SETCURSEL, 1, 0);
    expect_quiet(*shown);
    expect_shown(*other);
    SendMessageW(strip(), TCM_SETCURFOCUS, 0, 0);
    expect_quiet(*other);
    expect_shown(*shown);
}

TEST_F(QuietTabs, StaySoAfterARename) {
    other->name = L"A first";
    bar->Update(other->id, UpdateMask::Name);
    EXPECT_EQ(current(), L"Alpha");
    expect_quiet(*other);
    expect_shown(*shown);
    shown->name = L"Zeta";
    bar->Update(shown->id, UpdateMask::Name);
    EXPECT_EQ(current(), L"Zeta");
    expect_quiet(*other);
    expect_shown(*shown);
}

TEST_F(QuietTabs, StaySoAfterTabsCameAndWent) {
    const auto before_all = add(L"Aaa");
    expect_quiet(*before_all);
    expect_shown(*shown);
    bar->RemoveTab(shown->id);
    EXPECT_EQ(current(), L"Aaa") << "the leftmost follows";
    expect_quiet(*other);
    expect_shown(*before_all);
}

TEST_F(QuietTabs, StaySoAfterAReload) {
    bar->RemoveAllTabs();
    EXPECT_FALSE(bar->get_CurTab());
    const auto last = boost::make_shared<window_tests::fake_tab>(host, L"Beta", eTM_CC_Connected);
    bar->AddTab(last, true);
    const auto first = add(L"Alpha");
    EXPECT_EQ(current(), L"Beta") << "the first that came";
    expect_quiet(*first);
    expect_shown(*last);
    bar->Deserialize(L"Software\\OrderDeck Tests\\absent");
    EXPECT_EQ(current(), L"Alpha");
    expect_quiet(*last);
    expect_shown(*first);
}

TEST_F(QuietTabs, NoTabIsCurrentOnceAnotherProgramDeletedItsItem) {
    SendMessageW(strip(), TCM_DELETEITEM, 0, 0);
    EXPECT_FALSE(bar->get_CurTab());
    expect_quiet(*shown);
    SendMessageW(strip(), TCM_SETCURSEL, 0, 0);
    EXPECT_EQ(bar->get_CurTab(), other);
    SendMessageW(strip(), TCM_DELETEALLITEMS, 0, 0);
    EXPECT_FALSE(bar->get_CurTab());
    expect_quiet(*other);
}

TEST_F(QuietTabs, NoTabIsCurrentOnceTheWindowIsGone) {
    DestroyWindow(bar->get_Hwnd());
    EXPECT_FALSE(bar->get_CurTab());
    EXPECT_EQ(bar->get_TabCount(), 0);
    EXPECT_NO_THROW(quote(*shown));
    EXPECT_TRUE(shown->asked.empty());
}

TEST_F(QuietTabs, QuotesOfAnotherTabLeaveNothingToPaint) {
    RedrawWindow(frame, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    quote(*other);
    pump();
    for (const int id : {203, 206, 209, 214, 217, 220, 222, 225, 227, 228, 231}) {
        EXPECT_FALSE(GetUpdateRect(item(id), nullptr, FALSE)) << id;
    }
}

TEST_F(QuietTabs, ATabComesToTheScreenWithTheQuotesItHasGotMeanwhile) {
    quote(*other);
    bar->SelectTab(other->id);
    EXPECT_EQ(text(231), L"101.63 ") << "the middle of the quotes";
}

}  // namespace
