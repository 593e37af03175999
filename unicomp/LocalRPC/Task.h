// Calls wrapped as objects that run on another thread.
#pragma once

#include <atomic>
#include <boost/core/noncopyable.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <stdexcept>
#include <utility>

#include "platform/clock.h"
#include "unicomp/LocalRPC/EventUtils.h"

namespace LocalRPC {

// A synchronous call that was refused, or a transport that would not start.
class local_rpc_exception : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// One call on its way to the thread that runs it. Counted; the last reference, on whichever thread,
// destroys it.
class ITask {
public:
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;
    // Runs the call. What the call throws goes through.
    virtual void Execute() = 0;
    // timeout in milliseconds; flags of MTUtils::WaitFlags. 0 once the call has run.
    virtual DWORD Wait(DWORD timeout, DWORD flags) = 0;
    virtual bool IsSynchronous() const = 0;
    // The system's tick count when the task was made.
    virtual DWORD GetCreationTime() const = 0;

protected:
    ~ITask() = default;
};

inline void intrusive_ptr_add_ref(ITask* task) {
    task->AddRef();
}
inline void intrusive_ptr_release(ITask* task) {
    task->Release();
}

using task_ptr = boost::intrusive_ptr<ITask>;

// The count. Nobody holds a new task: the factory takes the first reference.
class CTaskCounter : public ITask, private boost::noncopyable {
public:
    ULONG AddRef() override { return ++m_refCount; }
    ULONG Release() override {
        const ULONG left = --m_refCount;
        if (left == 0) {
            delete this;
        }
        return left;
    }
    virtual ~CTaskCounter() = default;

private:
    std::atomic<ULONG> m_refCount{0};
};

// No task carries a result: what a call gives back goes through references that it holds.
template <class Result>
class CTaskResult;

template <>
class CTaskResult<void> : public CTaskCounter {};

namespace details {

// Stands where an asynchronous call has nobody to wake.
struct CFakeEvent {
    bool Signal() { return true; }
    DWORD Wait(DWORD, DWORD) { return WAIT_OBJECT_0; }
};

}  // namespace details

// Holds the call, the time of its making and the event that Wait waits on, which lives as long as the task.
template <class Functor, class Event>
class CBaseTask : public CTaskResult<void> {
public:
    DWORD GetCreationTime() const override { return m_creationTime; }
    DWORD Wait(DWORD timeout, DWORD flags) override { return m_pEvent->Wait(timeout, flags); }

protected:
    CBaseTask(Functor call, Event* event)
        : m_call(std::move(call)),
          m_pEvent(event),
          m_creationTime(platform::port<platform::clock>::get().tick_count()) {}

    Functor m_call;
    Event* m_pEvent;

private:
    DWORD m_creationTime;
};

template <class Functor>
class CAsyncTask final : public CBaseTask<Functor, details::CFakeEvent> {
    using base = CBaseTask<Functor, details::CFakeEvent>;

public:
    explicit CAsyncTask(Functor call) : base(std::move(call), &s_event) {}

    void Execute() override { this->m_call(); }
    bool IsSynchronous() const override { return false; }

private:
    inline static details::CFakeEvent s_event;
};

template <class Functor>
class CSyncTask final : public CBaseTask<Functor, details::CSyncTaskEvent> {
    using base = CBaseTask<Functor, details::CSyncTaskEvent>;

public:
    explicit CSyncTask(Functor call) : base(std::move(call), &m_event) {}

    // Wakes the waiter also when the call throws.
    void Execute() override {
        const signal_guard guard{this->m_pEvent};
        this->m_call();
    }
    bool IsSynchronous() const override { return true; }

private:
    struct signal_guard {
        details::CSyncTaskEvent* event;
        ~signal_guard() { event->Signal(); }
    };

    details::CSyncTaskEvent m_event;
};

}  // namespace LocalRPC
