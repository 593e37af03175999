// Who yields instead of waiting, and how often: the waiter of a synchronous call before it blocks, and a
// writer until the readers are out.
#include <dlfcn.h>
#include <sched.h>

#include "tests/localrpc/local_rpc_fixture.h"

namespace {

using LocalRPC::details::CStateLock;
using LocalRPC::details::CSyncTaskEvent;

thread_local bool counting = false;
thread_local int yields = 0;
thread_local std::function<void()> at_yield;

// Counts the yields of this thread while it lives.
class yield_count {
public:
    explicit yield_count(std::function<void()> action = {}) {
        yields = 0;
        at_yield = std::move(action);
        counting = true;
    }
    ~yield_count() {
        counting = false;
        at_yield = nullptr;
    }
    yield_count(const yield_count&) = delete;
    yield_count& operator=(const yield_count&) = delete;
};

// Opens what is protected.
struct open_event : CSyncTaskEvent {
    using CSyncTaskEvent::m_handle;
};

TEST(Spin, YieldsTwentyFiveTimesAndBlocksThen) {
    CSyncTaskEvent event;
    const yield_count count;
    EXPECT_EQ(event.Wait(0, 0), WAIT_TIMEOUT);
    EXPECT_EQ(yields, 25);
}

TEST(Spin, ACallThatIsOverCostsNoYield) {
    CSyncTaskEvent event;
    event.Signal();
    const yield_count count;
    EXPECT_EQ(event.Wait(INFINITE, 0), WAIT_OBJECT_0);
    EXPECT_EQ(yields, 0);
}

TEST(Spin, ACallThatEndsMeanwhileIsSeenInTheNextPassAndTheEventStaysSet) {
    open_event event;
    const yield_count count([&] {
        if (yields == 24) {
            event.Signal();
        }
    });
    EXPECT_EQ(event.Wait(INFINITE, 0), WAIT_OBJECT_0);
    EXPECT_EQ(yields, 24);
    EXPECT_EQ(event.m_handle.Wait(0), WAIT_OBJECT_0);
}

TEST(Spin, ACallThatEndsInTheLastPassIsFoundByTheBlockingWait) {
    open_event event;
    const yield_count count([&] {
        if (yields == 25) {
            event.Signal();
        }
    });
    EXPECT_EQ(event.Wait(INFINITE, 0), WAIT_OBJECT_0);
    EXPECT_EQ(event.m_handle.Wait(0), WAIT_TIMEOUT);
}

// Opens what is protected.
struct open_lock final : CStateLock {
    using CStateLock::m_counter;
};

TEST(Spin, AWriterYieldsUntilTheReaderIsOut) {
    open_lock lock;
    lock.LockRead();
    const yield_count count([&] {
        if (yields == 3) {
            lock.UnlockRead();
        }
    });
    lock.LockWrite();
    EXPECT_EQ(yields, 3);
    lock.UnlockWrite();
    EXPECT_EQ(lock.m_counter, 0);
}

TEST(Spin, AWriterAloneCostsNoYield) {
    CStateLock lock;
    const yield_count count;
    lock.LockWrite();
    EXPECT_EQ(yields, 0);
    lock.UnlockWrite();
}

}  // namespace

// Stands before the system's own.
int sched_yield() noexcept {
    if (counting) {
        ++yields;
        if (at_yield) {
            at_yield();
        }
    }
    static const auto next = reinterpret_cast<int (*)()>(dlsym(RTLD_NEXT, "sched_yield"));
    return next();
}
