#include <stdexcept>
#include <thread>

#include "diagnostics/crash_handlers.h"
#include "platform/crash.h"
#include "tests/localrpc/thread_transport_fixture.h"

namespace {

using namespace LocalRPC;
using details::CThread;
using details::CThreadBase;

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

// Disabled by somebody between the first look of a call and the second.
struct late_disabled_thread final : CThread {
    using CThread::CThread;
    bool IsTasksDisabled() const override { return ++looks == 2; }
    mutable int looks = 0;
};

TEST_F(ThreadTransport, RefusesATaskWhenItIsDisabledWhileTheTaskComes) {
    const boost::intrusive_ptr<late_disabled_thread> thread(new late_disabled_thread(0));
    m_thread = thread;
    EXPECT_FALSE(thread->Execute(CreateAsyncTask([this] { m_log.add("never"); })));
    EXPECT_TRUE(thread->IsStarted());
    SyncCall(*thread, [this] { m_log.add("next"); });
    EXPECT_EQ(m_log.texts(), Texts{"next"});
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
