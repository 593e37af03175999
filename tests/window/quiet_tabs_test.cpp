// What happens on tabs that nobody sees costs the screen nothing.
#include <windows.h>

#include <commctrl.h>

#include <utility>

#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;

// The messages that are sent to windows of this thread while it lives. One at a time.
class sent_messages {
public:
    sent_messages() : m_hook(SetWindowsHookExW(WH_CALLWNDPROC, &note, nullptr, GetCurrentThreadId())) {
        s_sent.clear();
    }
    ~sent_messages() { UnhookWindowsHookEx(m_hook); }
    sent_messages(const sent_messages&) = delete;
    sent_messages& operator=(const sent_messages&) = delete;

    std::vector<std::pair<HWND, UINT>> take() { return std::exchange(s_sent, {}); }

private:
    static LRESULT CALLBACK note(int code, WPARAM wParam, LPARAM lParam) {
        const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        s_sent.emplace_back(sent.hwnd, sent.message);
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    inline static std::vector<std::pair<HWND, UINT>> s_sent;
    HHOOK m_hook;
};

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
    bool is_question(const std::pair<HWND, UINT>& sent) const {
        return sent.first == strip() && (sent.second == TCM_GETCURSEL || sent.second == TCM_GETITEMW);
    }

    boost::shared_ptr<window_tests::fake_tab> shown;
    boost::shared_ptr<window_tests::fake_tab> other;
    sent_messages messages;
};

TEST_F(QuietTabs, QuotesOfTheShownTabReachTheirButton) {
    quote(*shown);
    int to_button = 0;
    for (const auto& sent : messages.take()) {
        to_button += sent.first == item(231) ? 1 : 0;
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
        EXPECT_TRUE(is_question(each)) << each.second;
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
