#pragma once

#include "platform/thread.h"
#include "unicomp/LocalRPC/AO_Transport.h"

namespace LocalRPC::details {

// Tasks run on a worker thread of the transport's own: a COM apartment with a message loop. The first
// task starts it unless that was forbidden. Lock order: state lock for writing, lock, storage.
class CThreadBase : public CAOTransportBase {
public:
    bool Execute(const task_ptr& task) override;
    // Throws local_rpc_exception when there can be no thread. A thread that runs is stopped first, and
    // what is queued is dropped.
    bool Start() override;
    // Ends the worker after its present task; with discard false it first runs what is queued. It gets up
    // to twice a finite timeout before it is ended by force, and the result is true even then. False when
    // the worker itself calls.
    bool StopEx(bool discard, DWORD timeout, bool disable) override;
    DWORD GetThreadId() const override { return m_threadId.load(); }
    void DisableAutoStart() override { m_noAutoStart = true; }

protected:
    CThreadBase(utils::ITaskStorage* storage, unsigned stackSize);

    enum ThreadState : LONG { Running = 0, Stopped = 1 };
    enum WakeState : LONG { Idle = 0, Pending = 1, Stopping = 2 };

    // What the new thread runs; argument is the transport.
    static DWORD ThrFunc(void* argument);

    unsigned m_stackSize;
    std::atomic<bool> m_noAutoStart{false};
    MTUtils::CMTUEvent m_threadState;
    MTUtils::CMTUEvent m_wakeEvent;
    std::atomic<DWORD> m_threadId{0};
    platform::thread m_threadHandle;

private:
    DWORD _thread_body();
    void _loop();
    bool _start_worker();
    bool _wait_for_work();
    void _drain();
    static void _dispatch_messages();
    void _ensure_started();
    void _end_thread(DWORD timeout);
};

class CThread : public CThreadBase {
public:
    explicit CThread(unsigned stackSize) : CThreadBase(&m_storage, stackSize) {}

private:
    utils::CTaskStorage m_storage;
};

}  // namespace LocalRPC::details
