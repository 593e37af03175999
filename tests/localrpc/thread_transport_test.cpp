#include <atomic>
#include <stdexcept>
#include <thread>

#include "diagnostics/crash_handlers.h"
#include "platform/crash.h"
#include "tests/localrpc/local_rpc_fixture.h"

namespace {

using namespace LocalRPC;
using details::CThread;
using details::CThreadBase;

using thread_ptr = boost::intrusive_ptr<CThread>;

class ThreadTransport : public testing::Test {
protected:
    ~ThreadTransport() override {
        if (m_thread) {
            m_thread->Stop(true, true);
        }
    }

    void post(const std::string& name) {
        EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([this, name] { m_log.add(name); })));
    }

    // Occupies the worker until m_go is open; gives back once it does.
    void occupy() {
        EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([this] {
            m_busy.open();
            m_go.wait();
            m_log.add("busy");
        })));
        m_busy.wait();
    }

    call_log m_log;
    gate m_busy;
    gate m_go;
    diagnostics_recorder m_recorder;
    thread_ptr m_thread{new CThread(0)};
};

TEST_F(ThreadTransport, IsBuiltStoppedAndTheFirstTaskStartsIt) {
    EXPECT_FALSE(m_thread->IsStarted());
    EXPECT_FALSE(m_thread->IsTasksDisabled());
    DWORD where = 0;
    SyncCall(*m_thread, [&] { where = platform::current_thread_id(); });
    EXPECT_TRUE(m_thread->IsStarted());
    EXPECT_EQ(where, m_thread->GetThreadId());
    EXPECT_NE(where, platform::current_thread_id());
}

TEST_F(ThreadTransport, TheWorkerIsASingleThreadedApartmentBeforeItsFirstTask) {
    HRESULT kind = S_OK;
    SyncCall(*m_thread, [&] { kind = CoInitializeEx(nullptr, COINIT_MULTITHREADED); });
    EXPECT_EQ(kind, RPC_E_CHANGED_MODE);
}

TEST_F(ThreadTransport, TheWorkerHasTheCrashHandlers) {
    const auto translator_of_this_thread = [] {
        const platform::se_translator found = platform::set_se_translator(nullptr);
        platform::set_se_translator(found);
        return found;
    };
    platform::se_translator there = nullptr;
    SyncCall(*m_thread, [&] { there = translator_of_this_thread(); });
    platform::se_translator bare = nullptr;
    platform::se_translator installed = nullptr;
    std::thread([&] {
        bare = translator_of_this_thread();
        BugSlayerUtil::install_crash_handlers();
        installed = translator_of_this_thread();
    }).join();
    EXPECT_NE(there, bare);
    EXPECT_EQ(there, installed);
}

TEST_F(ThreadTransport, RunsTasksInTheOrderOfTheirComing) {
    occupy();
    post("1");
    post("2");
    post("3");
    m_go.open();
    SyncCall(*m_thread, [this] { m_log.add("last"); });
    EXPECT_EQ(m_log.texts(), (Texts{"busy", "1", "2", "3", "last"}));
}

TEST_F(ThreadTransport, AThrowingTaskIsReportedOnceAndTheLoopGoesOn) {
    bool ended = false;
    SyncCall(*m_thread, [&] {
        ended = true;
        throw std::runtime_error("lost");
    });
    EXPECT_TRUE(ended);
    SyncCall(*m_thread, [this] { m_log.add("next"); });
    EXPECT_EQ(m_log.texts(), Texts{"next"});
    ASSERT_EQ(descriptions(m_recorder), UnhandledException);
    EXPECT_NE(m_recorder.assertions()[0].file.find(L"AO_Transport"), std::wstring::npos);
}

TEST_F(ThreadTransport, AnythingThatATaskThrowsIsCaught) {
    SyncCall(*m_thread, [] { throw 5; });
    SyncCall(*m_thread, [] {});
    EXPECT_EQ(descriptions(m_recorder), UnhandledException);
}

TEST_F(ThreadTransport, ASynchronousCallOfTheWorkerItselfRunsAtOnceOnItsStack) {
    SyncCall(*m_thread, [this] {
        post("queued");
        SyncCall(*m_thread, [this] { m_log.add("inline"); });
        m_log.add("outer");
    });
    SyncCall(*m_thread, [] {});
    EXPECT_EQ(m_log.texts(), (Texts{"inline", "outer", "queued"}));
}

TEST_F(ThreadTransport, AThrowingInlineTaskIsReportedToo) {
    bool went_on = false;
    SyncCall(*m_thread, [&] {
        SyncCall(*m_thread, [] { throw std::runtime_error("lost"); });
        went_on = true;
    });
    EXPECT_TRUE(went_on);
    EXPECT_EQ(descriptions(m_recorder), UnhandledException);
}

TEST_F(ThreadTransport, AnEmptyTaskIsABareWakeUpThatAlsoStarts) {
    EXPECT_TRUE(m_thread->Execute(nullptr));
    EXPECT_TRUE(m_thread->IsStarted());
    EXPECT_TRUE(m_thread->Execute(nullptr));
    SyncCall(*m_thread, [] {});
}

TEST_F(ThreadTransport, WithoutAutoStartAStoppedOneRefusesAndThrowsNothing) {
    m_thread->DisableAutoStart();
    EXPECT_FALSE(m_thread->Execute(CreateAsyncTask([] {})));
    EXPECT_FALSE(m_thread->Execute(nullptr));
    EXPECT_FALSE(m_thread->IsStarted());
    EXPECT_TRUE(m_thread->Start());
    SyncCall(*m_thread, [this] { m_log.add("ran"); });
    EXPECT_EQ(m_log.texts(), Texts{"ran"});
}

TEST_F(ThreadTransport, RefusesWhileDisabledWithoutStarting) {
    m_thread->DisableTasks(false);
    EXPECT_TRUE(m_thread->IsTasksDisabled());
    EXPECT_FALSE(m_thread->Execute(CreateAsyncTask([] {})));
    EXPECT_FALSE(m_thread->IsStarted());
    EXPECT_THROW(SyncCall(*m_thread, [] {}), local_rpc_exception);
    m_thread->EnableTasks();
    EXPECT_FALSE(m_thread->IsTasksDisabled());
    EXPECT_NO_THROW(SyncCall(*m_thread, [] {}));
}

TEST_F(ThreadTransport, DisablingKeepsTheQueueAndDiscardingDropsIt) {
    occupy();
    post("kept");
    m_thread->DisableTasks(false);
    m_thread->EnableTasks();
    gate ran;
    EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([&] { ran.open(); })));
    m_go.open();
    ran.wait();
    EXPECT_EQ(m_log.texts(), (Texts{"busy", "kept"}));
}

TEST_F(ThreadTransport, DisablingWithDiscardDropsTheQueue) {
    occupy();
    post("dropped");
    m_thread->DisableTasks(true);
    m_thread->EnableTasks();
    gate ran;
    EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([&] { ran.open(); })));
    m_go.open();
    ran.wait();
    EXPECT_EQ(m_log.texts(), Texts{"busy"});
}

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
    EXPECT_TRUE(m_thread->StopEx(true, 60000, true));
    EXPECT_FALSE(m_thread->IsStarted());
    EXPECT_EQ(m_recorder.records().size(), 0u);
}

// A target on the worker that counts its messages. The hundredth opens hundred, the closing one closed.
struct counting_target {
    enum Messages : UINT { Counted = WM_USER + 7, Closing };

    platform::message_target target;
    int received = 0;
    gate hundred;
    gate closed;

    static LRESULT count(void* context, UINT message, WPARAM, LPARAM) {
        auto& self = *static_cast<counting_target*>(context);
        if (message == Closing) {
            self.closed.open();
        } else if (++self.received == 100) {
            self.hundred.open();
        }
        return 0;
    }
};

// How many of so many messages that wait for the worker are dispatched.
int dispatched_of(CThread& thread, int messages) {
    counting_target counter;
    SyncCall(thread, [&] {
        EXPECT_TRUE(counter.target.Create(&counting_target::count, &counter));
        for (int i = 0; i < messages; ++i) {
            EXPECT_TRUE(counter.target.Post(counting_target::Counted, 0, 0));
        }
    });
    counter.hundred.wait();
    // Runs in the turn after the one that dispatched the hundredth; the closing message ends that turn.
    SyncCall(thread, [&] { EXPECT_TRUE(counter.target.Post(counting_target::Closing, 0, 0)); });
    counter.closed.wait();
    int received = 0;
    SyncCall(thread, [&] {
        received = counter.received;
        EXPECT_TRUE(counter.target.Destroy());
    });
    return received;
}

TEST_F(ThreadTransport, DispatchesTheMessagesOfTheWorker) {
    EXPECT_EQ(dispatched_of(*m_thread, 100), 100);
}

TEST_F(ThreadTransport, LosesTheMessageAfterTheHundredthOfATurn) {
    EXPECT_EQ(dispatched_of(*m_thread, 101), 100);
}

TEST_F(ThreadTransport, TakesTheMessagesAfterTheLostOneInTheNextTurn) {
    EXPECT_EQ(dispatched_of(*m_thread, 102), 101);
}

// Opens what is protected.
struct open_thread final : CThread {
    using CThread::CThread;
    using CThreadBase::m_threadState;
    using CThreadBase::m_wakeEvent;
    using CThreadBase::ThrFunc;
};

TEST_F(ThreadTransport, ItsEventsTellBuiltRunningAndStopped) {
    const boost::intrusive_ptr<open_thread> thread(new open_thread(0));
    EXPECT_EQ(thread->m_threadState.GetState(), 1);
    EXPECT_EQ(thread->m_threadState.Wait(0), WAIT_OBJECT_0);
    EXPECT_EQ(thread->m_threadState.Wait(0), WAIT_OBJECT_0);
    EXPECT_EQ(thread->m_wakeEvent.GetState(), 0);
    EXPECT_EQ(thread->m_wakeEvent.Wait(0), WAIT_TIMEOUT);
    EXPECT_TRUE(thread->Start());
    EXPECT_EQ(thread->m_threadState.GetState(), 0);
    thread->Stop(true, false);
    EXPECT_EQ(thread->m_threadState.GetState(), 1);
    EXPECT_EQ(thread->m_wakeEvent.GetState(), 2);
}

// Waits until the worker has drained its queue; it handles its messages before the next task.
void wait_until_idle(open_thread& thread) {
    while (thread.m_wakeEvent.GetState() != 0) {
        platform::yield_thread();
    }
}

TEST_F(ThreadTransport, TheWakeEventTellsPendingWorkAndTheDrainReturnsItToIdle) {
    const boost::intrusive_ptr<open_thread> thread(new open_thread(0));
    m_thread = thread;
    occupy();
    EXPECT_TRUE(thread->Execute(nullptr));
    EXPECT_EQ(thread->m_wakeEvent.GetState(), 1);
    m_go.open();
    wait_until_idle(*thread);
    SyncCall(*thread, [this] { m_log.add("woken"); });
    EXPECT_EQ(m_log.texts(), (Texts{"busy", "woken"}));
}

TEST_F(ThreadTransport, AQuitMessageDoesNotEndTheWorker) {
    const boost::intrusive_ptr<open_thread> thread(new open_thread(0));
    m_thread = thread;
    SyncCall(*thread, [] { platform::post_quit_message(0); });
    wait_until_idle(*thread);
    SyncCall(*thread, [this] { m_log.add("alive"); });
    EXPECT_EQ(m_log.texts(), Texts{"alive"});
    EXPECT_EQ(thread->m_threadState.GetState(), 0);
}

TEST_F(ThreadTransport, ABadObjectEndsTheThreadFunctionWithAReport) {
    EXPECT_EQ(open_thread::ThrFunc(nullptr), 0xFFFFFFFF);
    EXPECT_EQ(descriptions(m_recorder),
              std::vector<std::wstring>{L"!IsBadReadPtr(This,sizeof(CThreadBase))"});
}

// A transport that can't be started.
struct lame_thread final : CThread {
    using CThread::CThread;
    bool Start() override { return false; }
};

TEST_F(ThreadTransport, ATaskThatCannotStartItThrows) {
    const boost::intrusive_ptr<lame_thread> thread(new lame_thread(0));
    try {
        thread->Execute(CreateAsyncTask([] {}));
        FAIL() << "nothing was thrown";
    } catch (const local_rpc_exception& error) {
        EXPECT_STREQ(error.what(), "object wasn't initialized!");
    }
}

}  // namespace
