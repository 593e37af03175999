// What happens on tabs that nobody sees costs the screen nothing.
#include <windows.h>

#include <commctrl.h>

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
    // Which tab is current is asked of the strip; nothing else is a question only.
    bool is_question(const window_tests::sent_message& sent) const {
        return sent.window == strip() && (sent.message == TCM_GETCURSEL || sent.message == TCM_GETITEMW);
    }

    boost::shared_ptr<window_tests::fake_tab> shown;
    boost::shared_ptr<window_tests::fake_tab> other;
    window_tests::sent_messages messages;
};

TEST_F(QuietTabs, QuotesOfTheShownTabReachTheirButton) {
    quote(*shown);
    int to_button = 0;
    for (const auto& sent : messages.take()) {
        to_button += sent.window == item(231) ? 1 : 0;
    }
    EXPECT_GT(to_button, 0);
    EXPECT_EQ(shown->asked, std::vector<unsigned>{eODUE_AskBid});
}

TEST_F(QuietTabs, QuotesOfAnotherTabTouchNoWindowAndAskNoField) {
    for (int i = 0; i < 100; ++i) {
        quote(*other);
    }
    const auto sent = messages.take();
    for (const auto& each : sent) {
        EXPECT_TRUE(is_question(each)) << each.message;
    }
    EXPECT_LE(sent.size(), 200U) << "no more than which tab it is and what its id is";
    EXPECT_TRUE(other->asked.empty());
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
