#include "unicomp/LocalRPC/AO_ThreadTransport.h"

#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/crash_handlers.h"
#include "platform/message_pump.h"
#include "platform/system_error.h"

namespace LocalRPC::details {
namespace {

constexpr int MaxMessagesInTurn = 100;

using reset_mode = platform::event::reset_mode;

[[noreturn]] void raise_thread_error(DWORD error) {
    const std::string text = platform::system_error_text(error);
    throw local_rpc_exception(text.empty() ? "create thread unknown error" : text);
}

}  // namespace

CThreadBase::CThreadBase(utils::ITaskStorage* storage, unsigned stackSize)
    : CAOTransportBase(storage),
      m_stackSize(stackSize),
      m_threadState(reset_mode::manual, Stopped),
      m_wakeEvent(reset_mode::automatic, Idle) {
    m_threadState.SetState(Stopped);
}

void CThreadBase::_ensure_started() {
    if (m_noAutoStart) {
        return;
    }
    const std::lock_guard guard(m_lock);
    if (!IsStarted() && !Start()) {
        throw local_rpc_exception("object wasn't initialized!");
    }
}

bool CThreadBase::Execute(const task_ptr& task) {
    if (IsTasksDisabled()) {
        return false;
    }
    _ensure_started();
    if (!IsStarted()) {
        return false;
    }
    // Held over the push and the wake-up, so that a stop can't slip in between.
    const CReadLock guard(m_stateLock);
    if (IsTasksDisabled()) {
        return false;
    }
    if (task) {
        if (task->IsSynchronous() && platform::current_thread_id() == m_threadId) {
            execute_task(task);
            return true;
        }
        m_pStorage->Push(task);
    }
    m_wakeEvent.SetState(Pending);
    return true;
}

bool CThreadBase::Start() {
    for (;;) {
        // Before the lock, so that the lock order of StopEx holds.
        if (IsStarted() && !StopEx(true, INFINITE, false)) {
            return false;
        }
        const std::lock_guard guard(m_lock);
        // Another thread may have started it in between.
        if (!IsStarted()) {
            return _start_worker();
        }
    }
}

bool CThreadBase::_start_worker() {
    m_threadState.Reset();
    m_wakeEvent.SetState(Pending);
    DWORD id = 0;
    if (!m_threadHandle.Start(m_stackSize, ThrFunc, this, id)) {
        raise_thread_error(GetLastError());
    }
    m_threadId = id;
    m_threadState.Wait(INFINITE);
    const bool running = m_threadState.GetState() == Running;
    EnableTasks();
    m_started.exchange(1);
    return running;
}

bool CThreadBase::StopEx(bool discard, DWORD timeout, bool disable) {
    const CWriteLock state(m_stateLock);
    const std::lock_guard guard(m_lock);
    if (!IsStarted()) {
        return true;
    }
    if (platform::current_thread_id() == m_threadId) {
        BugSlayerUtil::assertion(BS_HERE, "!\"Can't stop thread from itself!\"");
        return false;
    }
    if (disable) {
        DisableTasks(false);
    }
    if (discard) {
        DiscardTasks();
    }
    m_threadState.Reset();
    m_wakeEvent.SetState(Stopping);
    m_threadState.Wait(timeout);
    bool result = true;
    if (timeout == INFINITE) {
        result = m_threadState.GetState() == Stopped;
        BS_ASSERT_TEXT(result, "1==m_threadState.GetState()");
    }
    _end_thread(timeout);
    m_started.exchange(0);
    return result;
}

void CThreadBase::_end_thread(DWORD timeout) {
    const DWORD wfsoRes = m_threadHandle.Wait(timeout);
    BS_ASSERT_TEXT(wfsoRes != WAIT_FAILED, "((DWORD)0xFFFFFFFF)!=wfsoRes");
    if (wfsoRes == WAIT_TIMEOUT) {
        const bool terminated = m_threadHandle.Terminate(1);
        BS_ASSERT(terminated);
    }
    const bool closed = m_threadHandle.Close();
    BS_ASSERT(closed);
}

DWORD CThreadBase::ThrFunc(void* argument) {
    auto* const This = static_cast<CThreadBase*>(argument);
    if (!BS_ASSERT_TEXT(platform::is_readable(This, sizeof(CThreadBase)),
                        "!IsBadReadPtr(This,sizeof(CThreadBase))")) {
        return 0xFFFFFFFF;
    }
    return This->_thread_body();
}

DWORD CThreadBase::_thread_body() {
    BugSlayerUtil::install_crash_handlers();
    m_threadState.SetState(Running);
    CoInitialize(nullptr);
    _loop();
    CoUninitialize();
    m_threadState.SetState(Stopped);
    return 0;
}

void CThreadBase::_loop() {
    bool stopping = false;
    while (!stopping) {
        stopping = _wait_for_work();
        _drain();
        _dispatch_messages();
    }
}

// Whether the worker is to end after this turn.
bool CThreadBase::_wait_for_work() {
    if (m_wakeEvent.GetState() != Pending) {
        platform::wait_for_event_or_message(m_wakeEvent.get_Event(), INFINITE, true);
    }
    return m_wakeEvent.GetState() == Stopping;
}

// A signal between the last task and the exchange is not lost: the event stays set, and the next wait
// returns at once.
void CThreadBase::_drain() {
    for (;;) {
        task_ptr task;
        m_pStorage->Pop(task);
        if (!task) {
            break;
        }
        execute_task(task);
        m_pStorage->OnTaskDone();
    }
    m_wakeEvent.CompareExchange(Pending, Idle);
}

// The message is taken before the count is looked at, so one beyond the cap is removed and not
// dispatched. That loss is deliberate: a flood must not starve the tasks.
void CThreadBase::_dispatch_messages() {
    MSG message;
    for (int dispatched = 0; platform::peek_message(message) && dispatched < MaxMessagesInTurn;
         ++dispatched) {
        platform::dispatch_message(message);
    }
}

}  // namespace LocalRPC::details
