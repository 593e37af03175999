#include <atomic>
#include <stdexcept>
#include <thread>

#include "tests/localrpc/local_rpc_fixture.h"

namespace {

using namespace LocalRPC;
using details::CStateLock;
using details::IAOTransport;

// Writes down what is asked of it.
class told_transport final : public details::CAOTransportBase {
public:
    explicit told_transport(call_log& log) : CAOTransportBase(&m_storage), m_log(log) {}
    ~told_transport() override { m_log.add("end"); }

    bool Execute(const task_ptr&) override { return true; }
    bool Start() override { return true; }
    bool StopEx(bool discard, DWORD timeout, bool disable) override {
        m_log.add("StopEx " + std::to_string(discard) + " " + std::to_string(timeout) + " " +
                  std::to_string(disable));
        return true;
    }
    DWORD GetThreadId() const override { return 0; }
    void DisableAutoStart() override {}

private:
    call_log& m_log;
    details::utils::CTaskStorage m_storage;
};

struct told_object : CActiveObject_base {
    explicit told_object(call_log& log) : CActiveObject_base(new told_transport(log)) {}
};

TEST(ActiveObject, StopIsAStopWithoutTimeLimit) {
    call_log log;
    told_object object(log);
    object.Stop(false, true);
    object.StopEx(true, 7, false);
    EXPECT_EQ(log.texts(), (Texts{"StopEx 0 4294967295 1", "StopEx 1 7 0"}));
}

TEST(ActiveObject, ItsEndStopsWithDiscardAndDropsTheTransport) {
    call_log log;
    { told_object object(log); }
    EXPECT_EQ(log.texts(), (Texts{"StopEx 1 4294967295 0", "end"}));
}

TEST(ActiveObject, WithAThreadStartsNothingUntilTheFirstTask) {
    CActiveObject_thread object(0);
    EXPECT_FALSE(object.get_Transport().IsStarted());
    int out = 0;
    SyncCall(object, [&out] { out = 1; });
    EXPECT_EQ(out, 1);
    EXPECT_TRUE(object.get_Transport().IsStarted());
}

TEST(ActiveObject, WithAWindowStartsOnTheCallersThreadWhenTold) {
    CActiveObject_WndMsg started(true);
    EXPECT_TRUE(started.get_Transport().IsStarted());
    EXPECT_EQ(started.get_Transport().GetThreadId(), platform::current_thread_id());
    CActiveObject_WndMsg waiting(false);
    EXPECT_FALSE(waiting.get_Transport().IsStarted());
    EXPECT_TRUE(waiting.Start());
    EXPECT_TRUE(waiting.get_Transport().IsStarted());
}

TEST(ActiveObject, ItsEndDropsWhatIsQueued) {
    bool ran = false;
    int ends = 0;
    {
        CActiveObject_WndMsg object(true);
        const life_count life([&] { ++ends; });
        AsyncCall(object, [&ran, token = life.token()] { ran = true; });
    }
    handle_messages();
    EXPECT_FALSE(ran);
    EXPECT_EQ(ends, 1);
}

TEST(ActiveObject, TheTerminatingProxyStopsForEverAndDisablesAtItsEnd) {
    static_assert(std::is_base_of_v<CActiveObject_thread, CTerminate_Local_RPC_Proxy>);
    gate busy;
    gate go;
    bool over = false;
    {
        CTerminate_Local_RPC_Proxy object(0);
        const life_count life([&] { go.open(); });
        AsyncCall(object, [&] {
            busy.open();
            go.wait();
            over = true;
        });
        busy.wait();
        AsyncCall(object, [token = life.token()] {});
    }
    EXPECT_TRUE(over);
}

TEST(ActiveObject, WhatACallWroteBeforeItThrewStays) {
    diagnostics_recorder recorder;
    CActiveObject_thread object(0);
    int first = 0;
    int second = 0;
    EXPECT_NO_THROW(SyncCall(object, [&] {
        first = 1;
        throw std::runtime_error("lost");
    }));
    SyncCall(object, [&second] { second = 2; });
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(descriptions(recorder), UnhandledException);
}

TEST(StateLock, AdmitsManyReadersAndOneWriter) {
    CStateLock lock;
    // A writer raises one and then the other.
    std::atomic<int> first{0};
    std::atomic<int> second{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int n = 0; n < 200; ++n) {
                const details::CWriteLock guard(lock);
                ++first;
                platform::yield_thread();
                ++second;
            }
        });
        threads.emplace_back([&] {
            for (int n = 0; n < 200; ++n) {
                const details::CReadLock outer(lock);
                const details::CReadLock inner(lock);
                const int before = first;
                platform::yield_thread();
                EXPECT_EQ(second, before);
            }
        });
    }
    for (std::thread& each : threads) {
        each.join();
    }
    EXPECT_EQ(first, 800);
    EXPECT_EQ(second, 800);
}

// Opens what is protected.
struct open_lock final : CStateLock {
    using CStateLock::m_counter;
};

TEST(StateLock, TheWritersEndWipesTheIncrementsOfReadersThatFailed) {
    open_lock lock;
    lock.LockWrite();
    EXPECT_EQ(lock.m_counter, std::numeric_limits<LONG>::min());
    gate got_in;
    std::thread reader([&] {
        lock.LockRead();
        got_in.open();
    });
    while (lock.m_counter == std::numeric_limits<LONG>::min()) {
        platform::yield_thread();
    }
    // The failed attempt left its increment behind.
    EXPECT_EQ(lock.m_counter, std::numeric_limits<LONG>::min() + 1);
    EXPECT_FALSE(got_in.is_open());
    lock.UnlockWrite();
    reader.join();
    EXPECT_EQ(lock.m_counter, 1);
    lock.UnlockRead();
    EXPECT_EQ(lock.m_counter, 0);
}

}  // namespace
