#include <atomic>
#include <stdexcept>
#include <thread>
#include <type_traits>

#include "tests/localrpc/local_rpc_fixture.h"

namespace {

using namespace LocalRPC;
using LocalRPC::details::CSyncTaskEvent;
using LocalRPC::details::utils::CTaskStorage;
using LocalRPC::details::utils::ITaskStorage;

using call = std::function<void()>;

static_assert(std::is_base_of_v<ITask, CTaskCounter>);
static_assert(std::is_base_of_v<CTaskCounter, CTaskResult<void>>);
static_assert(std::is_base_of_v<CTaskResult<void>, CBaseTask<call, details::CFakeEvent>>);
static_assert(std::is_base_of_v<CBaseTask<call, details::CFakeEvent>, CAsyncTask<call>>);
static_assert(std::is_base_of_v<CBaseTask<call, CSyncTaskEvent>, CSyncTask<call>>);
static_assert(std::has_virtual_destructor_v<CTaskCounter> && !std::has_virtual_destructor_v<ITask>);
static_assert(std::is_empty_v<details::CFakeEvent>);
static_assert(std::is_base_of_v<std::runtime_error, local_rpc_exception>);

// Runs nothing; says which slot was called.
class slot_task final : public ITask {
public:
    ULONG AddRef() override { return 1; }
    ULONG Release() override { return 2; }
    void Execute() override { executed = true; }
    DWORD Wait(DWORD timeout, DWORD flags) override { return timeout + flags; }
    bool IsSynchronous() const override { return true; }
    DWORD GetCreationTime() const override { return 6; }

    bool executed = false;
};

// Both systems put an object's table first and its operations there in order of declaration.
template <class Result, class... Arguments>
Result call_slot(ITask& task, std::size_t slot, Arguments... arguments) {
    void** const table = *reinterpret_cast<void***>(&task);
    return reinterpret_cast<Result (*)(ITask*, Arguments...)>(table[slot])(&task, arguments...);
}

TEST(Task, KeepsTheOrderOfItsSixOperations) {
    slot_task task;
    EXPECT_EQ(call_slot<ULONG>(task, 0), 1u);
    EXPECT_EQ(call_slot<ULONG>(task, 1), 2u);
    call_slot<void>(task, 2);
    EXPECT_TRUE(task.executed);
    EXPECT_EQ((call_slot<DWORD, DWORD, DWORD>(task, 3, 40, 2)), 42u);
    EXPECT_TRUE(call_slot<bool>(task, 4));
    EXPECT_EQ(call_slot<DWORD>(task, 5), 6u);
}

TEST(Task, BeginsWithoutReferenceAndTheFactoryTakesTheFirst) {
    CAsyncTask<call>* const bare = new CAsyncTask<call>([] {});
    EXPECT_EQ(bare->AddRef(), 1u);
    EXPECT_EQ(bare->AddRef(), 2u);
    EXPECT_EQ(bare->Release(), 1u);
    EXPECT_EQ(bare->Release(), 0u);
    for (const task_ptr& made : {CreateSyncTask([] {}), CreateAsyncTask([] {})}) {
        EXPECT_EQ(made->AddRef(), 2u);
        EXPECT_EQ(made->Release(), 1u);
    }
}

TEST(Task, DiesOnceOnTheThreadThatDropsTheLastReference) {
    std::atomic<int> ends{0};
    std::atomic<DWORD> where{0};
    const life_count life([&] {
        ++ends;
        where = platform::current_thread_id();
    });
    task_ptr task = CreateSyncTask([token = life.token()] {});
    std::atomic<DWORD> other{0};
    std::thread([&other, held = std::move(task)]() mutable {
        other = platform::current_thread_id();
        held.reset();
    }).join();
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(where, other);
    EXPECT_NE(other, platform::current_thread_id());
}

TEST(Task, RemembersTheTickCountOfItsMaking) {
    told_clock clock;
    const platform::port<platform::clock>::replacement told(clock);
    clock.now = 1234;
    const task_ptr async = CreateAsyncTask([] {});
    clock.now = 4321;
    const task_ptr sync = CreateSyncTask([] {});
    clock.now = 9999;
    EXPECT_EQ(async->GetCreationTime(), 1234u);
    EXPECT_EQ(sync->GetCreationTime(), 4321u);
}

TEST(Task, AnAsynchronousOneNeverBlocks) {
    int runs = 0;
    const task_ptr task = CreateAsyncTask([&] { ++runs; });
    EXPECT_FALSE(task->IsSynchronous());
    EXPECT_EQ(task->Wait(INFINITE, 0), 0u);
    EXPECT_EQ(runs, 0);
    task->Execute();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(task->Wait(INFINITE, 0), 0u);
}

TEST(Task, ASynchronousOneWakesItsWaiterAfterTheCall) {
    int runs = 0;
    const task_ptr task = CreateSyncTask([&] { ++runs; });
    EXPECT_TRUE(task->IsSynchronous());
    EXPECT_EQ(task->Wait(0, 0), WAIT_TIMEOUT);
    task->Execute();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(task->Wait(INFINITE, 0), WAIT_OBJECT_0);
}

TEST(Task, ASynchronousOneWakesItsWaiterAlsoWhenTheCallThrows) {
    const task_ptr task = CreateSyncTask([] { throw std::runtime_error("lost"); });
    EXPECT_THROW(task->Execute(), std::runtime_error);
    EXPECT_EQ(task->Wait(INFINITE, 0), WAIT_OBJECT_0);
}

TEST(Task, HoldsTextsByPointerAndResultsByReference) {
    wchar_t name[] = L"OLD";
    std::wstring seen;
    const auto read = [](wchar_t* text, std::wstring& out) { out = text; };
    const task_ptr task =
        CreateSyncTask([read, text = static_cast<wchar_t*>(name), &seen] { read(text, seen); });
    name[0] = L'B';
    task->Execute();
    EXPECT_EQ(seen, L"BLD");
}

// Lets a test close the event under the object.
struct open_event : CSyncTaskEvent {
    using CSyncTaskEvent::m_handle;
};

TEST(SyncTaskEvent, TheSpinFindsTheStateAndLeavesTheEventSet) {
    open_event event;
    EXPECT_TRUE(event.Signal());
    EXPECT_EQ(event.Wait(INFINITE, 0), WAIT_OBJECT_0);
    EXPECT_EQ(event.m_handle.Wait(0), WAIT_OBJECT_0);
    EXPECT_EQ(event.m_handle.Wait(0), WAIT_TIMEOUT);
    EXPECT_EQ(event.Wait(INFINITE, 0), WAIT_OBJECT_0);
}

TEST(SyncTaskEvent, TheBlockingWaitTakesWhatTheSystemSays) {
    open_event event;
    EXPECT_EQ(event.Wait(0, 0), WAIT_TIMEOUT);
    event.m_handle.Set();
    EXPECT_EQ(event.Wait(INFINITE, 0), WAIT_OBJECT_0);
    EXPECT_EQ(event.Wait(0, 0), WAIT_TIMEOUT);
}

TEST(SyncTaskEvent, AClosedHandleIsReportedAndTheStateIsSetAllTheSame) {
    diagnostics_recorder recorder;
    {
        open_event event;
        event.m_handle.Close();
        EXPECT_EQ(event.Wait(INFINITE, 0), WAIT_FAILED);
        EXPECT_FALSE(event.Signal());
        EXPECT_EQ(event.Wait(INFINITE, 0), WAIT_OBJECT_0);
        EXPECT_EQ(recorder.assertions().size(), 0u);
    }
    EXPECT_EQ(descriptions(recorder), std::vector<std::wstring>{L"1==_res"});
}

TEST(MTUEvent, IsNotSignalledAtFirstAndTellsItsWordToWhoeverItWakes) {
    MTUtils::CMTUEvent event(platform::event::reset_mode::automatic, 5);
    EXPECT_EQ(event.GetState(), 5);
    EXPECT_EQ(event.Wait(0), WAIT_TIMEOUT);
    std::thread setter([&] { event.SetState(7); });
    EXPECT_EQ(event.Wait(INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(event.GetState(), 7);
    setter.join();
    EXPECT_FALSE(event.CompareExchange(5, 1));
    EXPECT_TRUE(event.CompareExchange(7, 1));
    EXPECT_EQ(event.GetState(), 1);
    EXPECT_EQ(event.Wait(0), WAIT_TIMEOUT);
}

TEST(MTUEvent, AHandleThatDoesNotCloseIsReported) {
    diagnostics_recorder recorder;
    {
        MTUtils::CMTUEvent event(platform::event::reset_mode::manual, 0);
        event.get_Event().Close();
    }
    EXPECT_EQ(descriptions(recorder), std::vector<std::wstring>{L"1==_res"});
}

TEST(TaskStorage, GivesTasksInTheOrderOfTheirComing) {
    CTaskStorage storage;
    const task_ptr first = CreateAsyncTask([] {});
    const task_ptr second = CreateAsyncTask([] {});
    storage.Push(first);
    storage.Push(second);
    task_ptr out;
    storage.Pop(out);
    EXPECT_EQ(out, first);
    storage.OnTaskDone();
    storage.Pop(out);
    EXPECT_EQ(out, second);
}

TEST(TaskStorage, AnEmptyOneLeavesThePointerAsItWas) {
    CTaskStorage storage;
    task_ptr out;
    storage.Pop(out);
    EXPECT_EQ(out, nullptr);
    const task_ptr task = CreateAsyncTask([] {});
    out = task;
    storage.Pop(out);
    EXPECT_EQ(out, task);
}

// A destructor that uses the storage would wait for ever if the lock were still held.
TEST(TaskStorage, ClearDropsEveryTaskOnTheCallersThreadOutsideTheLock) {
    CTaskStorage storage;
    int ends = 0;
    const DWORD here = platform::current_thread_id();
    const life_count life([&] {
        ++ends;
        EXPECT_EQ(platform::current_thread_id(), here);
        storage.Push(CreateAsyncTask([] {}));
    });
    storage.Push(CreateAsyncTask([token = life.token()] {}));
    const task_ptr waited = CreateSyncTask([token = life.token()] {});
    storage.Push(waited);
    storage.Clear();
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(waited->Wait(0, 0), WAIT_TIMEOUT);
    task_ptr left;
    storage.Pop(left);
    EXPECT_NE(left, nullptr);
    left.reset();
    storage.Pop(left);
    EXPECT_EQ(left, nullptr);
}

// Takes nothing, or runs what it takes at once.
struct told_object {
    bool accepts = true;
    std::vector<task_ptr> given;

    bool Execute(const task_ptr& task) {
        given.push_back(task);
        if (accepts) {
            task->Execute();
        }
        return accepts;
    }
};

TEST(Call, ASynchronousOneThatIsRefusedThrowsAndHasNotRun) {
    told_object object{false, {}};
    bool ran = false;
    try {
        SyncCall(object, [&] { ran = true; });
        FAIL() << "nothing was thrown";
    } catch (const local_rpc_exception& error) {
        EXPECT_STREQ(error.what(), "Synchronous function execution failed!");
    }
    EXPECT_FALSE(ran);
    EXPECT_TRUE(object.given.at(0)->IsSynchronous());
}

TEST(Call, ASynchronousOneDropsItsReferencesWhenItIsOver) {
    told_object object;
    int out = 0;
    SyncCall(object, [&out] { out = 3; });
    EXPECT_EQ(out, 3);
    EXPECT_EQ(object.given.at(0)->AddRef(), 2u);
    EXPECT_EQ(object.given.at(0)->Release(), 1u);
}

TEST(Call, AnAsynchronousOneThatIsRefusedIsLostWithoutAWord) {
    diagnostics_recorder recorder;
    told_object object{false, {}};
    EXPECT_NO_THROW(AsyncCall(object, [] {}));
    EXPECT_EQ(object.given.size(), 1u);
    EXPECT_FALSE(object.given.at(0)->IsSynchronous());
    EXPECT_EQ(recorder.records().size(), 0u);
}

}  // namespace
