#pragma once

#include "unicomp/LocalRPC/AO_Transport.h"

namespace LocalRPC {

// An object with a thread on which its tasks run in order. Any thread.
class CActiveObject_base : private boost::noncopyable {
public:
    // False when the task was refused. Throws local_rpc_exception when the transport will not start.
    bool Execute(const task_ptr& task) { return m_pTransport->Execute(task); }
    // As the transport's: Start throws local_rpc_exception when the system gives no thread or no window;
    // timeout in milliseconds.
    bool Start() { return m_pTransport->Start(); }
    void Stop(bool discard, bool disable) { m_pTransport->Stop(discard, disable); }
    bool StopEx(bool discard, DWORD timeout, bool disable) {
        return m_pTransport->StopEx(discard, timeout, disable);
    }
    details::IAOTransport& get_Transport() { return *m_pTransport; }

protected:
    explicit CActiveObject_base(details::transport_ptr transport) : m_pTransport(std::move(transport)) {}
    // Drops what is queued.
    ~CActiveObject_base() { m_pTransport->Stop(true, false); }

private:
    details::transport_ptr m_pTransport;
};

// Tasks run on a worker thread, which the first of them starts. stackSize in bytes, 0 for the default.
class CActiveObject_thread : public CActiveObject_base {
public:
    explicit CActiveObject_thread(unsigned stackSize);
};

// Tasks run on the thread that starts the object, out of its message loop. startNow starts it at once on
// the calling thread.
class CActiveObject_WndMsg : public CActiveObject_base {
public:
    explicit CActiveObject_WndMsg(bool startNow);
};

// Waits for its thread for ever before it ends.
class CTerminate_Local_RPC_Proxy : public CActiveObject_thread {
public:
    using CActiveObject_thread::CActiveObject_thread;
    ~CTerminate_Local_RPC_Proxy() { StopEx(true, INFINITE, true); }
};

}  // namespace LocalRPC
