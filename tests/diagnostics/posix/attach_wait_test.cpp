// Who looks for the event that holds reports back, and who waits on it.
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <semaphore.h>

#include <atomic>
#include <chrono>
#include <cstdarg>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "diagnostics/BugSlayerClient.h"
#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/crash_handlers.h"
#include "tests/diagnostics/named_event.h"
#include "tests/support/own_names.h"

namespace {

// What this thread looked for last, and how many threads wait.
thread_local std::string looked_for;
std::atomic<int> waiting{0};

constexpr char event_path[] = "/{61B26D6F-EC96-46da-A875-239EED43DF17}";

TEST(AttachEvent, IsLookedForByWhoeverWantsTheClient) {
    looked_for.clear();
    BugSlayerUtil::Client::Get();
    EXPECT_EQ(looked_for, event_path);
}

TEST(AttachEvent, IsLookedForByAnExpressionThatFailsAndByNoOther) {
    looked_for.clear();
    EXPECT_TRUE(BS_ASSERT(1 + 1 == 2));
    EXPECT_TRUE(BS_ASSERT_OK(S_OK));
    BS_REQUIRE(1 + 1 == 2, E_FAIL);
    EXPECT_EQ(looked_for, "");
    EXPECT_FALSE(BS_ASSERT(1 + 1 == 3));
    EXPECT_EQ(looked_for, event_path);
    looked_for.clear();
    EXPECT_FALSE(BS_ASSERT_OK(E_FAIL));
    EXPECT_EQ(looked_for, event_path);
}

TEST(AttachEvent, IsLookedForWhereATraceIsWrittenAndAnExceptionCaught) {
    looked_for.clear();
    BugSlayerUtil::tracef(BS_HERE, "work");
    EXPECT_EQ(looked_for, event_path);
    looked_for.clear();
    BugSlayerUtil::guard(BS_HERE, [] { throw 1; });
    EXPECT_EQ(looked_for, event_path);
}

TEST(AttachEvent, IsLookedForWhereCrashHandlersAreInstalled) {
    std::string seen;
    std::thread([&] {
        BugSlayerUtil::install_crash_handlers();
        seen = looked_for;
    }).join();
    BugSlayerUtil::remove_crash_handlers();
    EXPECT_EQ(seen, event_path);
}

TEST(AttachEvent, LetsNobodyOnBeforeItIsSignalled) {
    const std::string name = test_support::own_name() + "-waiting";
    named_event event(name);
    std::mutex lock;
    std::vector<std::string> order;
    const auto note = [&](const char* what) {
        const std::lock_guard guard(lock);
        order.push_back(what);
    };
    const auto wait = [&] {
        platform::wait_for_named_event_if_present(name.c_str());
        note("went on");
    };
    waiting = 0;
    std::thread first(wait);
    std::thread second(wait);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(300);
    while (waiting < 2 && std::chrono::steady_clock::now() < end) {
        std::this_thread::yield();
    }
    EXPECT_EQ(waiting, 2);
    note("signalled");
    event.signal();
    first.join();
    second.join();
    EXPECT_EQ(order, (std::vector<std::string>{"signalled", "went on", "went on"}));
}

template <class Function>
Function* systems_own(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// These stand before the system's own.
sem_t* sem_open(const char* name, int flags, ...) noexcept {
    looked_for = name;
    static const auto next = systems_own<sem_t*(const char*, int, ...)>("sem_open");
    if ((flags & O_CREAT) == 0) {
        return next(name, flags);
    }
    va_list more;
    va_start(more, flags);
    const auto mode = va_arg(more, mode_t);
    const auto value = va_arg(more, unsigned);
    va_end(more);
    return next(name, flags, mode, value);
}

int sem_wait(sem_t* semaphore) {
    static const auto next = systems_own<int(sem_t*)>("sem_wait");
    ++waiting;
    return next(semaphore);
}
