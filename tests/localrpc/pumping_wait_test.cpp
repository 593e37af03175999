#include <thread>

#include "tests/localrpc/local_rpc_fixture.h"

namespace {

using MTUtils::Pumping;
using MTUtils::WaitForEvent;

// A target of this thread and an event; each message does what the test says.
class PumpingWait : public testing::Test {
protected:
    PumpingWait() {
        EXPECT_TRUE(m_event.Create(platform::event::reset_mode::automatic));
        EXPECT_TRUE(m_target.Create(&receive, this));
    }
    ~PumpingWait() override { handle_messages(); }

    static LRESULT receive(void* context, UINT message, WPARAM, LPARAM) {
        auto& self = *static_cast<PumpingWait*>(context);
        self.m_received.push_back(message);
        if (self.m_at_message) {
            self.m_at_message();
        }
        return 0;
    }

    void post(UINT message) { EXPECT_TRUE(m_target.Post(message, 0, 0)); }

    using messages = std::vector<UINT>;

    platform::event m_event;
    platform::message_target m_target;
    messages m_received;
    std::function<void()> m_at_message;
    told_clock m_clock;
    platform::port<platform::clock>::replacement m_told{m_clock};
};

constexpr UINT First = WM_USER + 10;

TEST_F(PumpingWait, WithoutTheFlagHandlesNoMessage) {
    post(First);
    EXPECT_EQ(WaitForEvent(m_event, 0, 0), WAIT_TIMEOUT);
    EXPECT_EQ(m_received, messages{});
    m_event.Set();
    EXPECT_EQ(WaitForEvent(m_event, INFINITE, 0), WAIT_OBJECT_0);
    EXPECT_EQ(m_received, messages{});
}

TEST_F(PumpingWait, AnEventThatIsSetEndsItBeforeAnyMessage) {
    post(First);
    m_event.Set();
    EXPECT_EQ(WaitForEvent(m_event, INFINITE, Pumping), WAIT_OBJECT_0);
    EXPECT_EQ(m_received, messages{});
}

TEST_F(PumpingWait, HandlesMessagesUntilTheEventIsSet) {
    post(First);
    post(First + 1);
    m_at_message = [this] {
        if (m_received.size() == 2) {
            m_event.Set();
        }
    };
    EXPECT_EQ(WaitForEvent(m_event, INFINITE, Pumping), WAIT_OBJECT_0);
    EXPECT_EQ(m_received, (messages{First, First + 1}));
}

TEST_F(PumpingWait, IsWokenByAMessageOfAnotherThread) {
    std::thread poster([this] { post(First); });
    m_at_message = [this] { m_event.Set(); };
    EXPECT_EQ(WaitForEvent(m_event, INFINITE, Pumping), WAIT_OBJECT_0);
    poster.join();
    EXPECT_EQ(m_received, messages{First});
}

TEST_F(PumpingWait, ATurnEndsAfterElevenMilliseconds) {
    for (UINT i = 0; i < 4; ++i) {
        post(First + i);
    }
    // The event is set at once, but is looked at again only when the turn is over: after the second
    // message ten milliseconds have passed, after the third eleven.
    m_at_message = [this] {
        m_event.Set();
        m_clock.now += m_received.size() == 2 ? 10 : m_received.size() == 3 ? 1 : 0;
    };
    EXPECT_EQ(WaitForEvent(m_event, INFINITE, Pumping), WAIT_OBJECT_0);
    EXPECT_EQ(m_received, (messages{First, First + 1, First + 2}));
}

TEST_F(PumpingWait, TheTimeoutRestartsAtEveryTurn) {
    post(First);
    m_at_message = [this] {
        m_clock.now += 11;
        if (m_received.size() < 5) {
            post(First);
        }
    };
    EXPECT_EQ(WaitForEvent(m_event, 0, Pumping), WAIT_TIMEOUT);
    EXPECT_EQ(m_received.size(), 5u);
}

TEST_F(PumpingWait, TheEndOfTheLoopIsPostedAgainWithCodeZero) {
    platform::post_quit_message(7);
    int looks = 0;
    m_clock.at_tick = [&] {
        if (++looks == 2) {
            m_clock.now += 11;
            m_event.Set();
        }
    };
    EXPECT_EQ(WaitForEvent(m_event, INFINITE, Pumping), WAIT_OBJECT_0);
    EXPECT_EQ(looks, 2);
    MSG message;
    ASSERT_TRUE(platform::peek_message(message));
    EXPECT_EQ(message.message, 18u);
    EXPECT_EQ(message.wParam, 0u);
    EXPECT_FALSE(platform::peek_message(message));
}

TEST_F(PumpingWait, ATaskWaitsInThisWayWhenTheFlagSaysSo) {
    const LocalRPC::task_ptr task = LocalRPC::CreateSyncTask([] {});
    m_at_message = [&] { task->Execute(); };
    post(First);
    EXPECT_EQ(task->Wait(INFINITE, Pumping), WAIT_OBJECT_0);
    EXPECT_EQ(m_received, messages{First});
}

}  // namespace
