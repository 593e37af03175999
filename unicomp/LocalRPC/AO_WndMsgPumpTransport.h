#pragma once

#include <boost/shared_ptr.hpp>

#include "platform/message_pump.h"
#include "unicomp/LocalRPC/AO_Transport.h"

namespace LocalRPC::details {

class CWndMsgPumpBase;

// The window-less target through which a pump wakes its thread. Made and destroyed on that thread.
class CWndImpl : private boost::noncopyable {
public:
    enum Messages : UINT {
        RunTasks = WM_USER + 1,
        Suicide = WM_USER + 2,
        // wParam non-zero: a timer of lParam milliseconds; zero: none.
        TimerControl = WM_USER + 3
    };

    // Throws local_rpc_exception when the system gives no target.
    explicit CWndImpl(CWndMsgPumpBase* pump);

    DWORD GetThreadId() const { return m_threadId; }
    bool Post(UINT message) { return m_target.Post(message, 0, 0); }
    bool SendBlocking(UINT message) { return m_target.SendBlocking(message, 0, 0, INFINITE); }
    void SendSuicide() { m_target.Send(Suicide, 0, 0); }

    // False when the message is not one of these. dwMsgMapID is 0: there is one map.
    bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, DWORD dwMsgMapID);

private:
    static LRESULT WindowProc(void* context, UINT message, WPARAM wParam, LPARAM lParam);
    void _run_tasks();
    void OnSuicide();
    void OnTimerControl(WPARAM wParam, LPARAM lParam);

    std::recursive_mutex m_lock;
    boost::intrusive_ptr<CWndMsgPumpBase> m_pPump;
    DWORD m_threadId;
    platform::message_target m_target;
};

// Tasks run on the thread that started the pump, out of that thread's message loop. Lock order: lock,
// then the lock of the window's holder. The window and the pump hold references to each other until the
// pump is stopped.
class CWndMsgPumpBase : public CAOTransportBase {
public:
    bool Execute(const task_ptr& task) override;
    bool Start() override;
    // The timeout counts for nothing. False when the pump was not started. With disable and without
    // discard the queued tasks run once more before the window goes; otherwise they are dropped.
    bool StopEx(bool discard, DWORD timeout, bool disable) override;
    // 0 while not started.
    DWORD GetThreadId() const override;
    void DisableAutoStart() override {}

    // For the window, on its thread.
    void OnWakeUp();

protected:
    explicit CWndMsgPumpBase(utils::ITaskStorage* storage) : CAOTransportBase(storage) {}

    struct window_holder {
        boost::shared_ptr<CWndImpl> window;
        mutable std::recursive_mutex lock;
        // A wake-up message is already on its way.
        bool pending = false;
    };

    window_holder m_wndHolder;
    bool m_allowNested = false;
    std::atomic<LONG> m_runningTasks{0};
    bool m_suspended = false;

private:
    bool _wake_up(bool synchronous);
    void _process_tasks(DWORD budget);
    void _swap_window(boost::shared_ptr<CWndImpl>& window);
};

inline void intrusive_ptr_add_ref(CWndMsgPumpBase* pump) {
    pump->AddRef();
}
inline void intrusive_ptr_release(CWndMsgPumpBase* pump) {
    pump->Release();
}

class CWndMsgPump : public CWndMsgPumpBase {
public:
    CWndMsgPump() : CWndMsgPumpBase(&m_storage) {}

private:
    utils::CTaskStorage m_storage;
};

}  // namespace LocalRPC::details
