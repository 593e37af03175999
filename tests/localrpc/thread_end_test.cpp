// How the thread transport ends its worker when the system does not play along.
#include <chrono>
#include <thread>

#include "platform/com_object.h"
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
    using CThreadBase::m_wakeEvent;
};

// Makes nothing.
class empty_factory : public platform::com_root<IClassFactory> {
public:
    STDMETHODIMP CreateInstance(IUnknown*, REFIID, void**) override { return E_NOTIMPL; }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

HRESULT find_class(REFCLSID id) {
    com_ptr<IUnknown> found;
    return CoGetClassObject(id, CLSCTX_ALL, nullptr, __uuidof(IUnknown),
                            static_cast<void**>(platform::receive(found)));
}

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

// Gives whether it came true.
template <class Condition>
bool comes_true(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(300);
    while (!condition() && std::chrono::steady_clock::now() < end) {
        platform::yield_thread();
    }
    return condition();
}

TEST_F(ThreadEnd, AWakeUpThatDoesNotSayStoppedMakesAnEndlessStopFalse) {
    gate busy;
    gate go;
    EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([&] {
        busy.open();
        go.wait();
    })));
    busy.wait();
    std::thread waker([&] {
        EXPECT_TRUE(comes_true([&] { return m_thread->m_wakeEvent.GetState() == 2; }));
        m_thread->m_threadState.SetState(0);
        EXPECT_TRUE(comes_true([&] { return m_recorder.assertions().size() == 1; }));
        go.open();
    });
    EXPECT_FALSE(m_thread->StopEx(true, INFINITE, true));
    waker.join();
    EXPECT_FALSE(m_thread->IsStarted());
    EXPECT_EQ(descriptions(m_recorder), std::vector<std::wstring>{L"1==m_threadState.GetState()"});
}

TEST_F(ThreadEnd, TheApartmentOfTheWorkerEndsWithIt) {
    const CLSID id = {0x5d8f3a61, 0x2c47, 0x4e0b, {0x9a, 0x13, 0x6e, 0x7d, 0x42, 0xf8, 0xb5, 0x0c}};
    const auto factory = platform::make_com<empty_factory>();
    DWORD cookie = 0;
    HRESULT there = E_FAIL;
    SyncCall(*m_thread, [&] {
        EXPECT_EQ(CoRegisterClassObject(id, factory->GetUnknown(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                        &cookie),
                  S_OK);
        there = find_class(id);
    });
    EXPECT_EQ(there, S_OK);
    m_thread->Stop(true, false);
    HRESULT afterwards = S_OK;
    SyncCall(*m_thread, [&] { afterwards = find_class(id); });
    EXPECT_EQ(afterwards, REGDB_E_CLASSNOTREG);
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
