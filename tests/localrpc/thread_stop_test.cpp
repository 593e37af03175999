// Stopping and starting again, and what becomes of the queue.
#include <atomic>
#include <thread>

#include "tests/localrpc/thread_transport_fixture.h"

namespace {

using namespace LocalRPC;
using details::CThread;

// Lets the worker go on once somebody stops the transport: from then on the tasks are refused.
std::thread open_when_disabled(CThread& transport, gate& go) {
    return std::thread([&] {
        while (!transport.IsTasksDisabled()) {
            platform::yield_thread();
        }
        go.open();
    });
}

TEST_F(ThreadTransport, StopWithDiscardDropsTheQueueOnTheStoppingThread) {
    const DWORD here = platform::current_thread_id();
    std::atomic<DWORD> died{0};
    const life_count life([&] {
        died = platform::current_thread_id();
        m_go.open();
    });
    occupy();
    EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([this, token = life.token()] { m_log.add("dropped"); })));
    EXPECT_TRUE(m_thread->StopEx(true, INFINITE, true));
    EXPECT_EQ(m_log.texts(), Texts{"busy"});
    EXPECT_EQ(died, here);
    EXPECT_FALSE(m_thread->IsStarted());
    EXPECT_EQ(m_recorder.records().size(), 0u);
}

TEST_F(ThreadTransport, StopWithoutDiscardRunsTheQueueFirst) {
    occupy();
    post("1");
    post("2");
    std::thread opener = open_when_disabled(*m_thread, m_go);
    EXPECT_TRUE(m_thread->StopEx(false, INFINITE, true));
    opener.join();
    EXPECT_EQ(m_log.texts(), (Texts{"busy", "1", "2"}));
    EXPECT_EQ(m_recorder.records().size(), 0u);
}

TEST_F(ThreadTransport, AfterAStopThatDisablesItRefusesUntilStarted) {
    SyncCall(*m_thread, [] {});
    m_thread->Stop(true, true);
    EXPECT_FALSE(m_thread->Execute(CreateAsyncTask([] {})));
    EXPECT_TRUE(m_thread->Start());
    EXPECT_FALSE(m_thread->IsTasksDisabled());
    SyncCall(*m_thread, [] {});
}

TEST_F(ThreadTransport, AfterAStopThatDoesNotDisableTheNextTaskStartsItAgain) {
    SyncCall(*m_thread, [] {});
    m_thread->Stop(true, false);
    EXPECT_FALSE(m_thread->IsStarted());
    SyncCall(*m_thread, [this] { m_log.add("again"); });
    EXPECT_EQ(m_log.texts(), Texts{"again"});
}

TEST_F(ThreadTransport, StoppingAStoppedOneIsTrueAndChangesNothing) {
    EXPECT_TRUE(m_thread->StopEx(true, INFINITE, true));
    EXPECT_FALSE(m_thread->IsTasksDisabled());
    SyncCall(*m_thread, [] {});
}

TEST_F(ThreadTransport, StartOfARunningOneDropsTheQueueAndMakesAnotherThread) {
    const life_count life([this] { m_go.open(); });
    occupy();
    EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([this, token = life.token()] { m_log.add("dropped"); })));
    EXPECT_TRUE(m_thread->Start());
    EXPECT_TRUE(m_thread->IsStarted());
    SyncCall(*m_thread, [this] { m_log.add("new"); });
    EXPECT_EQ(m_log.texts(), (Texts{"busy", "new"}));
}

TEST_F(ThreadTransport, TheWorkerCannotStopItself) {
    bool stopped = true;
    gate done;
    EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([&] {
        stopped = m_thread->StopEx(true, INFINITE, true);
        done.open();
    })));
    done.wait();
    EXPECT_FALSE(stopped);
    EXPECT_TRUE(m_thread->IsStarted());
    EXPECT_FALSE(m_thread->IsTasksDisabled());
    ASSERT_EQ(descriptions(m_recorder), std::vector<std::wstring>{L"!\"Can't stop thread from itself!\""});
    EXPECT_NE(m_recorder.assertions()[0].file.find(L"AO_ThreadTransport"), std::wstring::npos);
    SyncCall(*m_thread, [] {});
}

TEST_F(ThreadTransport, StartOnTheWorkerItselfIsRefused) {
    bool started = true;
    gate done;
    EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([&] {
        started = m_thread->Start();
        done.open();
    })));
    done.wait();
    EXPECT_FALSE(started);
    EXPECT_EQ(m_recorder.assertions().size(), 1u);
}

TEST_F(ThreadTransport, ABusyWorkerIsEndedByForceWhenThereIsNoTimeAndTheResultIsTrue) {
    // Lives on: the ended worker still stands in it.
    static gate& never = *new gate;
    EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([this] {
        m_busy.open();
        never.wait();
    })));
    m_busy.wait();
    post("kept");
    EXPECT_TRUE(m_thread->StopEx(false, 0, true));
    EXPECT_FALSE(m_thread->IsStarted());
    EXPECT_TRUE(m_thread->IsTasksDisabled());
    EXPECT_EQ(m_recorder.records().size(), 0u);
    // The queue was neither run nor dropped: the next worker finds it at once.
    EXPECT_TRUE(m_thread->Start());
    SyncCall(*m_thread, [] {});
    EXPECT_EQ(m_log.texts(), Texts{"kept"});
}

TEST_F(ThreadTransport, AFiniteTimeoutLetsAnIdleWorkerEndByItself) {
    SyncCall(*m_thread, [] {});
    EXPECT_TRUE(m_thread->StopEx(true, 600000, true));
    EXPECT_FALSE(m_thread->IsStarted());
    EXPECT_EQ(m_recorder.records().size(), 0u);
}

}  // namespace
