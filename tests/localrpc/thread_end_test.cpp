// How the thread transport ends its worker when the system does not play along.
#include "tests/localrpc/local_rpc_fixture.h"

namespace {

using namespace LocalRPC;
using details::CThread;
using details::CThreadBase;

// Opens what is protected.
struct open_thread final : CThread {
    using CThread::CThread;
    using CThreadBase::m_threadHandle;
    using CThreadBase::m_threadState;
};

class ThreadEnd : public testing::Test {
protected:
    ThreadEnd() {
        SyncCall(*m_thread, [] {});
    }
    ~ThreadEnd() override { m_thread->Stop(true, true); }

    diagnostics_recorder m_recorder;
    boost::intrusive_ptr<open_thread> m_thread{new open_thread(0)};
};

TEST_F(ThreadEnd, AHandleThatIsGoneIsReportedTwiceAndTheTransportIsStoppedAllTheSame) {
    EXPECT_TRUE(m_thread->m_threadHandle.Close());
    EXPECT_TRUE(m_thread->StopEx(true, INFINITE, false));
    EXPECT_FALSE(m_thread->IsStarted());
    EXPECT_EQ(descriptions(m_recorder),
              (std::vector<std::wstring>{L"((DWORD)0xFFFFFFFF)!=wfsoRes", L"closed"}));
    for (const reported_assertion& each : m_recorder.assertions()) {
        EXPECT_NE(each.file.find(L"AO_ThreadTransport"), std::wstring::npos);
    }
    int out = 0;
    SyncCall(*m_thread, [&out] { out = 1; });
    EXPECT_EQ(out, 1);
}

// Two turns of a finite stop: the time for the state, and the time for the thread.
TEST_F(ThreadEnd, AFiniteStopOfABusyWorkerIsTrueAlthoughTheStateStillSaysRunning) {
    // Lives on: the ended worker still stands in it.
    static gate& never = *new gate;
    gate busy;
    EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([&] {
        busy.open();
        never.wait();
    })));
    busy.wait();
    EXPECT_TRUE(m_thread->StopEx(true, 5, true));
    EXPECT_FALSE(m_thread->IsStarted());
    EXPECT_EQ(m_thread->m_threadState.GetState(), 0);
    EXPECT_EQ(m_recorder.records().size(), 0U);
    EXPECT_TRUE(m_thread->StopEx(true, INFINITE, true)) << "a stopped one";
}

}  // namespace
