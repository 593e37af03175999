#pragma once

#include <atomic>
#include <mutex>

#include "unicomp/LocalRPC/TaskStorage.h"

namespace LocalRPC::details {

// Carries tasks to the thread that runs them. Counted. Any thread, unless told otherwise.
class IAOTransport {
public:
    // False when the task was refused. An empty task is a bare wake-up.
    virtual bool Execute(const task_ptr& task) = 0;
    // From now on tasks are refused; discard also drops those that are queued.
    virtual void DisableTasks(bool discard) = 0;
    // Tasks are taken again.
    virtual void EnableTasks() = 0;
    // Stops first what runs. Whether it runs now; tasks are taken then. Throws local_rpc_exception when the
    // system gives no thread or no window.
    virtual bool Start() = 0;
    // StopEx without a time limit.
    virtual void Stop(bool discard, bool disable) = 0;
    // timeout in milliseconds, INFINITE for ever. discard drops what is queued, disable has tasks refused
    // from then on. Each transport says what its result means.
    virtual bool StopEx(bool discard, DWORD timeout, bool disable) = 0;
    virtual bool IsStarted() const = 0;
    virtual bool IsTasksDisabled() const = 0;
    // The dropped tasks die on the calling thread; who waits for one of them waits on.
    virtual void DiscardTasks() = 0;
    // Of the thread that runs the tasks.
    virtual DWORD GetThreadId() const = 0;
    // From now on a task does not start the thread. Nothing on a transport without one.
    virtual void DisableAutoStart() = 0;
    virtual ~IAOTransport() = default;
};

// Readers and one writer over a counter. A reader that finds a writer leaves its increment behind and
// adds another on the next try, on purpose: the writer's unlock sets the counter to 0 and wipes them.
class CStateLock : private boost::noncopyable {
public:
    void LockWrite();
    void UnlockWrite();
    void LockRead();
    void UnlockRead();

protected:
    std::atomic<LONG> m_counter{0};

private:
    std::recursive_mutex m_section;
};

class CReadLock : private boost::noncopyable {
public:
    explicit CReadLock(CStateLock& lock) : m_lock(lock) { m_lock.LockRead(); }
    ~CReadLock() { m_lock.UnlockRead(); }

private:
    CStateLock& m_lock;
};

class CWriteLock : private boost::noncopyable {
public:
    explicit CWriteLock(CStateLock& lock) : m_lock(lock) { m_lock.LockWrite(); }
    ~CWriteLock() { m_lock.UnlockWrite(); }

private:
    CStateLock& m_lock;
};

class CAOTransportBaseBase : public IAOTransport, private boost::noncopyable {
public:
    void AddRef() { ++m_refCount; }
    void Release() {
        if (--m_refCount == 0) {
            delete this;
        }
    }

    bool IsStarted() const override { return m_started.load() != 0; }
    bool IsTasksDisabled() const override { return m_tasksDisabled.load() != 0; }
    void EnableTasks() override { m_tasksDisabled.exchange(0); }

protected:
    // The one place where a task runs. What it throws is reported and ends here.
    static void execute_task(const task_ptr& task);

    std::atomic<ULONG> m_refCount{0};
    std::atomic<LONG> m_started{0};
    std::atomic<LONG> m_tasksDisabled{0};
    CStateLock m_stateLock;
};

inline void intrusive_ptr_add_ref(CAOTransportBaseBase* transport) {
    transport->AddRef();
}
inline void intrusive_ptr_release(CAOTransportBaseBase* transport) {
    transport->Release();
}

using transport_ptr = boost::intrusive_ptr<CAOTransportBaseBase>;

class CAOTransportBase : public CAOTransportBaseBase {
public:
    void DisableTasks(bool discard) override;
    void Stop(bool discard, bool disable) override { StopEx(discard, INFINITE, disable); }
    void DiscardTasks() override { m_pStorage->Clear(); }

protected:
    explicit CAOTransportBase(utils::ITaskStorage* storage) : m_pStorage(storage) {}

    // Recursive: the task that starts the thread holds it, and starting takes it again.
    std::recursive_mutex m_lock;
    utils::ITaskStorage* m_pStorage;
};

}  // namespace LocalRPC::details
