// Stopping and starting again, what becomes of the queue, and how the window goes.
#include <thread>

#include "tests/localrpc/window_transport_fixture.h"

namespace {

using namespace LocalRPC;
using details::CWndMsgPump;

// The stop table: what becomes of the queue, and whether tasks are refused for being disabled.
struct stop_row {
    bool discard;
    bool disable;
    bool runs;
};

class WindowTransportStop : public WindowTransport, public testing::WithParamInterface<stop_row> {};

TEST_P(WindowTransportStop, DecidesWhatBecomesOfTheQueue) {
    const stop_row row = GetParam();
    post("queued");
    EXPECT_TRUE(m_pump->StopEx(row.discard, 0, row.disable));
    EXPECT_EQ(m_log.texts(), row.runs ? Texts{"queued"} : Texts{});
    EXPECT_FALSE(m_pump->IsStarted());
    EXPECT_EQ(m_pump->IsTasksDisabled(), row.disable);
    EXPECT_EQ(m_pump->GetThreadId(), 0u);
    EXPECT_FALSE(m_pump->m_wndHolder.pending);
    EXPECT_FALSE(m_pump->Execute(adding("refused")));
    EXPECT_FALSE(m_pump->StopEx(row.discard, INFINITE, row.disable));
    EXPECT_TRUE(m_pump->Start());
    EXPECT_FALSE(m_pump->IsTasksDisabled());
    handle_messages();
    EXPECT_EQ(m_log.texts(), row.runs ? Texts{"queued"} : Texts{});
    EXPECT_EQ(m_recorder.records().size(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Rows, WindowTransportStop,
                         testing::Values(stop_row{true, true, false}, stop_row{false, true, true},
                                         stop_row{true, false, false}, stop_row{false, false, false}));

TEST_F(WindowTransport, AStopOfAnotherThreadEndsTheWindowOnItsOwn) {
    DWORD where = 0;
    EXPECT_TRUE(m_pump->Execute(CreateAsyncTask([&] { where = platform::current_thread_id(); })));
    gate done;
    bool stopped = false;
    std::thread stopper([&] {
        stopped = m_pump->StopEx(false, INFINITE, true);
        done.open();
    });
    handle_messages_until(done);
    stopper.join();
    EXPECT_TRUE(stopped);
    EXPECT_EQ(where, platform::current_thread_id());
}

TEST_F(WindowTransport, TheWindowAsksForTheEndOfItsTimerThenRunsTasksAndIsGoneThen) {
    std::vector<std::pair<UINT, WPARAM>> queued;
    EXPECT_TRUE(m_pump->Execute(CreateAsyncTask([&] {
        for (MSG message; platform::peek_message(message);) {
            queued.emplace_back(message.message, message.wParam);
        }
    })));
    EXPECT_TRUE(m_pump->StopEx(false, INFINITE, true));
    EXPECT_EQ(queued, (std::vector<std::pair<UINT, WPARAM>>{{1025, 0}, {1027, 0}}));
}

// Stops only when told to.
struct stubborn_pump final : CWndMsgPump {
    bool stubborn = true;
    bool StopEx(bool discard, DWORD timeout, bool disable) override {
        return !stubborn && CWndMsgPump::StopEx(discard, timeout, disable);
    }
};

TEST_F(WindowTransport, StartOfOneThatDoesNotStopIsRefused) {
    const boost::intrusive_ptr<stubborn_pump> pump(new stubborn_pump);
    EXPECT_TRUE(pump->Start());
    pump->DisableTasks(false);
    EXPECT_FALSE(pump->Start());
    EXPECT_TRUE(pump->IsTasksDisabled()) << "nothing was begun anew";
    pump->stubborn = false;
    EXPECT_TRUE(pump->Start());
    EXPECT_FALSE(pump->IsTasksDisabled());
    pump->Stop(true, true);
}

TEST_F(WindowTransport, AStopInsideATaskHoldsTheQueueBack) {
    EXPECT_TRUE(m_pump->Execute(CreateAsyncTask([this] {
        post("left");
        EXPECT_TRUE(m_pump->StopEx(false, INFINITE, true));
        m_log.add("stopped");
    })));
    handle_messages();
    // The loop that ran the task takes what is left.
    EXPECT_EQ(m_log.texts(), (Texts{"stopped", "left"}));
    EXPECT_EQ(m_recorder.records().size(), 0u);
}

TEST_F(WindowTransport, StartOfAStartedOneDropsTheQueueAndMovesToTheCallersThread) {
    post("dropped");
    EXPECT_EQ(take_wake_ups(), 1);
    gate done;
    std::thread starter([&] {
        EXPECT_TRUE(m_pump->Start());
        EXPECT_EQ(m_pump->GetThreadId(), platform::current_thread_id());
        EXPECT_FALSE(m_pump->IsTasksDisabled());
        post("moved");
        handle_messages();
        EXPECT_TRUE(m_pump->StopEx(true, INFINITE, true));
        done.open();
    });
    handle_messages_until(done);
    starter.join();
    EXPECT_EQ(m_log.texts(), Texts{"moved"});
}

TEST_F(WindowTransport, APostThatFailsClearsThePendingMark) {
    // Ends the window while the pump believes it started.
    m_pump->m_wndHolder.window->ProcessWindowMessage(1026, 0, 0, 0);
    EXPECT_FALSE(m_pump->Execute(adding("lost")));
    EXPECT_FALSE(m_pump->m_wndHolder.pending);
    elsewhere([this] { EXPECT_FALSE(m_pump->Execute(nullptr)); });
    EXPECT_FALSE(m_pump->m_wndHolder.pending);
}

TEST_F(WindowTransport, AWindowThatIsGoneIsReportedOnceMore) {
    m_pump->m_wndHolder.window->ProcessWindowMessage(1026, 0, 0, 0);
    EXPECT_EQ(m_recorder.assertions().size(), 0u);
    m_pump->m_wndHolder.window->ProcessWindowMessage(1026, 0, 0, 0);
    ASSERT_EQ(m_recorder.assertions().size(), 1u);
    EXPECT_NE(m_recorder.assertions()[0].file.find(L"AO_WndMsgPumpTransport"), std::wstring::npos);
}

}  // namespace
