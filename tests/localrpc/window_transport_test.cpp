#include <stdexcept>
#include <thread>

#include "tests/localrpc/window_transport_fixture.h"

namespace {

using namespace LocalRPC;
using details::CWndImpl;

TEST_F(WindowTransport, RefusesBeforeItsStart) {
    const boost::intrusive_ptr<open_pump> pump(new open_pump);
    EXPECT_FALSE(pump->IsStarted());
    EXPECT_EQ(pump->GetThreadId(), 0u);
    EXPECT_FALSE(pump->Execute(adding("never")));
    EXPECT_FALSE(pump->Execute(nullptr));
    EXPECT_FALSE(pump->IsStarted());
    EXPECT_THROW(SyncCall(*pump, [] {}), local_rpc_exception);
    EXPECT_FALSE(pump->m_allowNested);
    EXPECT_FALSE(pump->m_suspended);
    EXPECT_EQ(pump->m_runningTasks, 0);
}

TEST_F(WindowTransport, RunsTasksInOrderOutOfTheMessageLoopOfItsThread) {
    EXPECT_EQ(m_pump->GetThreadId(), platform::current_thread_id());
    m_pump->DisableAutoStart();
    elsewhere([this] {
        post("1");
        post("2");
    });
    post("3");
    EXPECT_EQ(m_log.texts(), Texts{});
    handle_messages();
    EXPECT_EQ(m_log.texts(), (Texts{"1", "2", "3"}));
}

TEST_F(WindowTransport, ASynchronousCallOfAnotherThreadWaitsForTheLoop) {
    gate done;
    DWORD where = 0;
    std::thread caller([&] {
        SyncCall(*m_pump, [&] { where = platform::current_thread_id(); });
        done.open();
    });
    handle_messages_until(done);
    caller.join();
    EXPECT_EQ(where, platform::current_thread_id());
}

TEST_F(WindowTransport, ASynchronousCallOfItsOwnThreadRunsAtOnceAndCountsAsRunning) {
    post("queued");
    LONG running = 0;
    SyncCall(*m_pump, [&] {
        running = m_pump->m_runningTasks;
        handle_messages();
        m_log.add("inline");
    });
    EXPECT_EQ(running, 1);
    EXPECT_EQ(m_pump->m_runningTasks, 0);
    EXPECT_EQ(m_log.texts(), Texts{"inline"});
    EXPECT_TRUE(m_pump->Execute(nullptr));
    handle_messages();
    EXPECT_EQ(m_log.texts(), (Texts{"inline", "queued"}));
}

TEST_F(WindowTransport, AThrowingTaskIsReportedOnceAndTheNextRuns) {
    EXPECT_TRUE(m_pump->Execute(CreateAsyncTask([] { throw std::runtime_error("lost"); })));
    post("next");
    handle_messages();
    EXPECT_EQ(m_log.texts(), Texts{"next"});
    EXPECT_EQ(m_pump->m_runningTasks, 0);
    ASSERT_EQ(descriptions(m_recorder), UnhandledException);
    EXPECT_NE(m_recorder.assertions()[0].file.find(L"AO_Transport"), std::wstring::npos);
}

TEST_F(WindowTransport, AThrowingInlineTaskIsReportedAndNoLongerCounted) {
    EXPECT_NO_THROW(SyncCall(*m_pump, [] { throw std::runtime_error("lost"); }));
    EXPECT_EQ(descriptions(m_recorder), UnhandledException);
    EXPECT_EQ(m_pump->m_runningTasks, 0);
}

TEST_F(WindowTransport, OneWakeUpServesABurstOfOtherThreads) {
    elsewhere([this] {
        for (int i = 0; i < 5; ++i) {
            post("task");
        }
    });
    EXPECT_TRUE(m_pump->m_wndHolder.pending);
    EXPECT_EQ(take_wake_ups(), 1);
}

TEST_F(WindowTransport, ATaskPushedWhileAWakeUpIsOnItsWayRunsWithIt) {
    elsewhere([this] {
        post("1");
        post("2");
    });
    MSG message;
    ASSERT_TRUE(platform::peek_message(message));
    EXPECT_EQ(message.message, 1025u);
    platform::dispatch_message(message);
    EXPECT_EQ(m_log.texts(), (Texts{"1", "2"}));
    EXPECT_FALSE(m_pump->m_wndHolder.pending);
    EXPECT_EQ(take_wake_ups(), 0);
}

TEST_F(WindowTransport, ItsOwnThreadAlwaysPosts) {
    elsewhere([this] { post("1"); });
    post("2");
    post("3");
    EXPECT_EQ(take_wake_ups(), 3);
}

TEST_F(WindowTransport, AnEmptyTaskIsABareWakeUp) {
    elsewhere([this] { EXPECT_TRUE(m_pump->Execute(nullptr)); });
    EXPECT_EQ(take_wake_ups(), 1);
}

TEST_F(WindowTransport, ATaskWithALoopOfItsOwnHoldsBackLaterTasks) {
    EXPECT_TRUE(m_pump->Execute(CreateAsyncTask([this] {
        post("later");
        handle_messages();
        m_log.add("modal");
    })));
    handle_messages();
    // The loop goes on to the later task once the modal one has returned.
    EXPECT_EQ(m_log.texts(), (Texts{"modal", "later"}));
}

TEST_F(WindowTransport, NestedTasksRunWhereTheyAreAllowed) {
    m_pump->m_allowNested = true;
    EXPECT_TRUE(m_pump->Execute(CreateAsyncTask([this] {
        post("nested");
        handle_messages();
        m_log.add("modal");
    })));
    handle_messages();
    EXPECT_EQ(m_log.texts(), (Texts{"nested", "modal"}));
}

TEST_F(WindowTransport, ASuspendedOneClearsItsWakeUpAndRunsNothing) {
    m_pump->m_suspended = true;
    post("waits");
    handle_messages();
    EXPECT_FALSE(m_pump->m_wndHolder.pending);
    EXPECT_EQ(m_log.texts(), Texts{});
    m_pump->m_suspended = false;
    EXPECT_TRUE(m_pump->Execute(nullptr));
    handle_messages();
    EXPECT_EQ(m_log.texts(), Texts{"waits"});
}

TEST_F(WindowTransport, RefusesWhileDisabled) {
    post("kept");
    m_pump->DisableTasks(false);
    EXPECT_FALSE(m_pump->Execute(adding("refused")));
    EXPECT_THROW(SyncCall(*m_pump, [] {}), local_rpc_exception);
    m_pump->EnableTasks();
    post("taken");
    handle_messages();
    EXPECT_EQ(m_log.texts(), (Texts{"kept", "taken"}));
}

TEST_F(WindowTransport, DiscardingDropsTheQueue) {
    post("dropped");
    m_pump->DisableTasks(true);
    m_pump->EnableTasks();
    post("taken");
    m_pump->DiscardTasks();
    post("last");
    handle_messages();
    EXPECT_EQ(m_log.texts(), Texts{"last"});
}
TEST_F(WindowTransport, ItsWindowKnowsFourMessages) {
    CWndImpl& window = *m_pump->m_wndHolder.window;
    const auto run_by = [&](UINT message) {
        post("ran");
        EXPECT_GT(take_wake_ups(), 0);
        return window.ProcessWindowMessage(message, 0, 0, 0);
    };
    EXPECT_TRUE(run_by(1025));
    EXPECT_EQ(m_log.texts(), (Texts{"ran"}));
    EXPECT_TRUE(run_by(275));
    EXPECT_EQ(m_log.texts(), (Texts{"ran", "ran"}));
    EXPECT_FALSE(run_by(1024));
    EXPECT_FALSE(run_by(1028));
    EXPECT_TRUE(window.ProcessWindowMessage(1027, 0, 0, 0));
    EXPECT_EQ(m_log.texts(), (Texts{"ran", "ran"}));
    EXPECT_TRUE(window.ProcessWindowMessage(1026, 0, 0, 0));
    EXPECT_EQ(m_log.texts(), (Texts{"ran", "ran", "ran", "ran"}));
}

TEST_F(WindowTransport, AnotherMessageMapIsReportedAndHandlesNothing) {
    post("waits");
    EXPECT_FALSE(m_pump->m_wndHolder.window->ProcessWindowMessage(1025, 0, 0, 1));
    EXPECT_EQ(m_log.texts(), Texts{});
    EXPECT_EQ(descriptions(m_recorder), std::vector<std::wstring>{L"0"});
}

TEST_F(WindowTransport, TheTimerRunsTasksUntilItIsTakenAway) {
    CWndImpl& window = *m_pump->m_wndHolder.window;
    EXPECT_TRUE(window.ProcessWindowMessage(1027, 1, 10, 0));
    gate ran;
    EXPECT_TRUE(m_pump->Execute(CreateAsyncTask([&] { ran.open(); })));
    EXPECT_EQ(take_wake_ups(), 1);
    platform::event never;
    ASSERT_TRUE(never.Create(platform::event::reset_mode::automatic));
    MSG message{};
    while (!platform::peek_message(message)) {
        platform::wait_for_event_or_message(never, INFINITE, false);
    }
    EXPECT_EQ(message.message, 275u);
    EXPECT_EQ(message.wParam, 0u);
    platform::dispatch_message(message);
    EXPECT_TRUE(ran.is_open());
    EXPECT_TRUE(window.ProcessWindowMessage(1027, 0, 0, 0));
    handle_messages();
    EXPECT_EQ(platform::wait_for_event_or_message(never, 30, false), WAIT_TIMEOUT);
}

}  // namespace
