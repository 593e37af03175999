// Calls that the system queues to a thread wake its alertable waits.
#include "tests/localrpc/local_rpc_fixture.h"

namespace {

using namespace LocalRPC;
using MTUtils::Alertable;
using MTUtils::Pumping;
using MTUtils::WaitForEvent;

void CALLBACK count_call(ULONG_PTR count) {
    ++*reinterpret_cast<int*>(count);
}

void CALLBACK open_gate(ULONG_PTR which) {
    reinterpret_cast<gate*>(which)->open();
}

class AlertableWait : public testing::Test {
protected:
    AlertableWait() { EXPECT_TRUE(m_event.Create(platform::event::reset_mode::automatic)); }

    void queue_call() {
        EXPECT_NE(QueueUserAPC(count_call, GetCurrentThread(), reinterpret_cast<ULONG_PTR>(&m_calls)), 0U);
    }

    platform::event m_event;
    int m_calls = 0;
};

TEST_F(AlertableWait, ACallEndsItWithAResultOfItsOwn) {
    queue_call();
    EXPECT_EQ(WaitForEvent(m_event, INFINITE, Alertable), DWORD{WAIT_IO_COMPLETION});
    EXPECT_EQ(m_calls, 1);
}

TEST_F(AlertableWait, ACallEndsAPumpingWaitToo) {
    queue_call();
    EXPECT_EQ(WaitForEvent(m_event, INFINITE, Alertable | Pumping), DWORD{WAIT_IO_COMPLETION});
    EXPECT_EQ(m_calls, 1);
}

TEST_F(AlertableWait, AWaitThatIsNotAlertableLeavesTheCallQueued) {
    queue_call();
    EXPECT_EQ(WaitForEvent(m_event, 0, 0), DWORD{WAIT_TIMEOUT});
    EXPECT_EQ(WaitForEvent(m_event, 0, Pumping), DWORD{WAIT_TIMEOUT});
    EXPECT_EQ(m_calls, 0);
    SleepEx(0, TRUE);
    EXPECT_EQ(m_calls, 1);
}

TEST_F(AlertableWait, AnIdleWorkerRunsACallAndGoesOn) {
    CActiveObject_thread object(0);
    HANDLE worker = nullptr;
    SyncCall(object, [&worker] {
        EXPECT_TRUE(DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &worker, 0,
                                    FALSE, DUPLICATE_SAME_ACCESS));
    });
    gate ran;
    EXPECT_NE(QueueUserAPC(open_gate, worker, reinterpret_cast<ULONG_PTR>(&ran)), 0U);
    ran.wait();
    int out = 0;
    SyncCall(object, [&out] { out = 1; });
    EXPECT_EQ(out, 1);
    CloseHandle(worker);
}

}  // namespace
