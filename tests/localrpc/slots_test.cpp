// The operations of the interfaces stand in their tables in this order.
#include "tests/localrpc/local_rpc_fixture.h"

namespace {

using namespace LocalRPC;
using details::IAOTransport;
using details::utils::ITaskStorage;

// Both systems put an object's table first and its operations there in order of declaration.
template <class Result, class Interface, class... Arguments>
Result call_slot(Interface& object, std::size_t slot, Arguments... arguments) {
    void** const table = *reinterpret_cast<void***>(&object);
    return reinterpret_cast<Result (*)(Interface*, Arguments...)>(table[slot])(&object, arguments...);
}

class slot_storage final : public ITaskStorage {
public:
    explicit slot_storage(call_log& log) : m_log(log) {}
    void Push(const task_ptr& task) override { m_log.add(task ? "Push" : "Push null"); }
    void Pop(task_ptr& task) override {
        m_log.add("Pop");
        task.reset();
    }
    void OnTaskDone() override { m_log.add("OnTaskDone"); }
    void Clear() override { m_log.add("Clear"); }

private:
    call_log& m_log;
};

TEST(Slots, TheStorageHasFour) {
    call_log log;
    slot_storage storage(log);
    task_ptr task = CreateAsyncTask([] {});
    call_slot<void, ITaskStorage, const task_ptr*>(storage, 0, &task);
    call_slot<void, ITaskStorage, task_ptr*>(storage, 1, &task);
    EXPECT_EQ(task, nullptr);
    call_slot<void, ITaskStorage>(storage, 2);
    call_slot<void, ITaskStorage>(storage, 3);
    EXPECT_EQ(log.texts(), (Texts{"Push", "Pop", "OnTaskDone", "Clear"}));
}

class slot_transport final : public IAOTransport {
public:
    explicit slot_transport(call_log& log) : m_log(log) {}
    ~slot_transport() override { m_log.add("end"); }

    bool Execute(const task_ptr& task) override { return add(task ? "Execute" : "Execute null"); }
    void DisableTasks(bool discard) override { add("DisableTasks", discard); }
    void EnableTasks() override { add("EnableTasks"); }
    bool Start() override { return add("Start"); }
    void Stop(bool discard, bool disable) override { add("Stop", discard, disable); }
    bool StopEx(bool discard, DWORD timeout, bool disable) override {
        return add("StopEx", discard, timeout, disable);
    }
    bool IsStarted() const override { return add("IsStarted"); }
    bool IsTasksDisabled() const override { return add("IsTasksDisabled"); }
    void DiscardTasks() override { add("DiscardTasks"); }
    DWORD GetThreadId() const override { return add("GetThreadId") ? 11 : 0; }
    void DisableAutoStart() override { add("DisableAutoStart"); }

private:
    template <class... Arguments>
    bool add(std::string name, Arguments... arguments) const {
        ((name += " " + std::to_string(arguments)), ...);
        m_log.add(name);
        return true;
    }

    call_log& m_log;
};

TEST(Slots, TheTransportHasElevenAndItsEnd) {
    call_log log;
    auto* const transport = new slot_transport(log);
    IAOTransport& object = *transport;
    const task_ptr task = CreateAsyncTask([] {});
    EXPECT_TRUE((call_slot<bool, IAOTransport, const task_ptr*>(object, 0, &task)));
    call_slot<void>(object, 1, true);
    call_slot<void>(object, 2);
    EXPECT_TRUE(call_slot<bool>(object, 3));
    call_slot<void>(object, 4, true, false);
    EXPECT_TRUE((call_slot<bool, IAOTransport, bool, DWORD, bool>(object, 5, false, 7, true)));
    EXPECT_TRUE(call_slot<bool>(object, 6));
    EXPECT_TRUE(call_slot<bool>(object, 7));
    call_slot<void>(object, 8);
    EXPECT_EQ(call_slot<DWORD>(object, 9), 11U);
    call_slot<void>(object, 10);
    // The end that leaves the memory alone.
    call_slot<void>(object, 11);
    EXPECT_EQ(log.texts(), (Texts{"Execute", "DisableTasks 1", "EnableTasks", "Start", "Stop 1 0",
                                  "StopEx 0 7 1", "IsStarted", "IsTasksDisabled", "DiscardTasks",
                                  "GetThreadId", "DisableAutoStart", "end"}));
    ::operator delete(transport);
}

}  // namespace
