// How often a synchronous call's waiter yields before it blocks.
#include <dlfcn.h>
#include <sched.h>

#include "tests/localrpc/local_rpc_fixture.h"

namespace {

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
