#include "unicomp/LocalRPC/AO_WndMsgPumpTransport.h"

#include "diagnostics/BugSlayerUtil.h"
#include "platform/clock.h"
#include "platform/system_error.h"
#include "platform/thread.h"

namespace LocalRPC::details {
namespace {

constexpr DWORD NoBudget = 0xFFFFFFFF;
constexpr UINT_PTR TimerId = 0;

class running_count : private boost::noncopyable {
public:
    explicit running_count(std::atomic<LONG>& count) : m_count(count) { ++m_count; }
    ~running_count() { --m_count; }

private:
    std::atomic<LONG>& m_count;
};

// The last reference, on whichever thread, lets the window end itself on its own.
void end_window(CWndImpl* window) {
    window->SendSuicide();
    delete window;
}

}  // namespace

CWndImpl::CWndImpl(CWndMsgPumpBase* pump) : m_pPump(pump), m_threadId(platform::current_thread_id()) {
    if (!m_target.Create(&WindowProc, this)) {
        throw local_rpc_exception("can't create transport Window. Last error: " +
                                  platform::system_error_text(GetLastError()));
    }
}

LRESULT CWndImpl::WindowProc(void* context, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const This = static_cast<CWndImpl*>(context);
    BugSlayerUtil::guard(BS_HERE, [&] { This->ProcessWindowMessage(message, wParam, lParam, 0); });
    return 0;
}

bool CWndImpl::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return false;
    }
    switch (message) {
        case RunTasks:
        case WM_TIMER:
            _run_tasks();
            return true;
        case Suicide:
            OnSuicide();
            return true;
        case TimerControl:
            OnTimerControl(wParam, lParam);
            return true;
        default:
            return false;
    }
}

void CWndImpl::_run_tasks() {
    boost::intrusive_ptr<CWndMsgPumpBase> pump;
    {
        const std::lock_guard guard(m_lock);
        pump = m_pPump;
    }
    if (pump) {
        pump->OnWakeUp();
    }
}

void CWndImpl::OnTimerControl(WPARAM wParam, LPARAM lParam) {
    if (wParam != 0) {
        m_target.SetTimer(TimerId, static_cast<UINT>(lParam));
    } else {
        m_target.KillTimer(TimerId);
    }
}

void CWndImpl::OnSuicide() {
    Post(TimerControl);
    _run_tasks();
    const bool destroyed = m_target.Destroy();
    BS_ASSERT(destroyed);
    const std::lock_guard guard(m_lock);
    m_pPump.reset();
}

bool CWndMsgPumpBase::Execute(const task_ptr& task) {
    {
        const std::lock_guard guard(m_lock);
        if (IsTasksDisabled() || !IsStarted()) {
            return false;
        }
    }
    const bool synchronous = task && task->IsSynchronous();
    if (task) {
        if (synchronous && platform::current_thread_id() == GetThreadId()) {
            const running_count running(m_runningTasks);
            execute_task(task);
            return true;
        }
        m_pStorage->Push(task);
    }
    return _wake_up(synchronous);
}

bool CWndMsgPumpBase::_wake_up(bool synchronous) {
    const std::lock_guard guard(m_wndHolder.lock);
    if (!m_wndHolder.window) {
        return false;
    }
    const bool on_thread = platform::current_thread_id() == m_wndHolder.window->GetThreadId();
    // One message serves a whole burst from other threads. The window's own thread always posts: its
    // message must come after what it has queued for itself.
    if (m_wndHolder.pending && !on_thread) {
        return true;
    }
    m_wndHolder.pending = true;
    if (synchronous && on_thread) {
        return m_wndHolder.window->SendBlocking(CWndImpl::RunTasks);
    }
    const bool posted = m_wndHolder.window->Post(CWndImpl::RunTasks);
    if (!posted) {
        m_wndHolder.pending = false;
    }
    return posted;
}

void CWndMsgPumpBase::OnWakeUp() {
    {
        const std::lock_guard guard(m_wndHolder.lock);
        m_wndHolder.pending = false;
    }
    if (!m_suspended) {
        _process_tasks(NoBudget);
    }
}

// A task that runs a message loop of its own, such as a modal dialog, must not have later tasks on top of
// it: they wait until it returns.
void CWndMsgPumpBase::_process_tasks(DWORD budget) {
    platform::clock& clock = platform::port<platform::clock>::get();
    const DWORD start = clock.tick_count();
    while (clock.tick_count() - start < budget) {
        if (!m_allowNested && m_runningTasks.load() > 0) {
            return;
        }
        task_ptr task;
        m_pStorage->Pop(task);
        if (!task) {
            return;
        }
        const running_count running(m_runningTasks);
        execute_task(task);
        m_pStorage->OnTaskDone();
    }
}

void CWndMsgPumpBase::_swap_window(boost::shared_ptr<CWndImpl>& window) {
    const std::lock_guard guard(m_wndHolder.lock);
    m_wndHolder.window.swap(window);
    m_wndHolder.pending = false;
}

bool CWndMsgPumpBase::Start() {
    if (IsStarted()) {
        Stop(true, true);
        if (IsStarted()) {
            return false;
        }
    }
    boost::shared_ptr<CWndImpl> window(new CWndImpl(this), end_window);
    _swap_window(window);
    EnableTasks();
    m_started.exchange(1);
    return true;
}

bool CWndMsgPumpBase::StopEx(bool discard, DWORD, bool disable) {
    boost::shared_ptr<CWndImpl> window;
    {
        const std::lock_guard guard(m_lock);
        if (!IsStarted()) {
            return false;
        }
        if (disable) {
            DisableTasks(discard);
        } else {
            DiscardTasks();
        }
        _swap_window(window);
        m_started.exchange(0);
    }
    return true;
}

DWORD CWndMsgPumpBase::GetThreadId() const {
    const std::lock_guard guard(m_wndHolder.lock);
    return m_wndHolder.window ? m_wndHolder.window->GetThreadId() : 0;
}

}  // namespace LocalRPC::details
