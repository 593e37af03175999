#pragma once

#include <atomic>

#include "platform/event.h"

namespace MTUtils {

// An event with a state word beside it. The word is changed before the event is set, so a reader that
// wakes always sees the state that was set. Any thread.
class CMTUEvent : private boost::noncopyable {
public:
    // Not signalled. Throws a class derived from std::exception, "can't create event".
    CMTUEvent(platform::event::reset_mode mode, LONG state);
    ~CMTUEvent();

    void SetState(LONG state);
    LONG GetState() const { return m_state.load(); }
    // Changes the word alone, when it is as expected.
    bool CompareExchange(LONG expected, LONG state) {
        return m_state.compare_exchange_strong(expected, state);
    }
    void Reset() { m_event.Reset(); }
    // timeout in milliseconds. WAIT_OBJECT_0, WAIT_TIMEOUT or WAIT_FAILED.
    DWORD Wait(DWORD timeout) { return m_event.Wait(timeout); }
    platform::event& get_Event() { return m_event; }

private:
    void _free();

    platform::event m_event;
    std::atomic<LONG> m_state;
};

// Alertable: calls that the system queued to this thread run and end the wait. Pumping: this thread's
// messages are handled meanwhile.
enum WaitFlags : DWORD { Alertable = 1, Pumping = 2 };

// The blocking wait behind a synchronous call; flags of WaitFlags. timeout in milliseconds; that of a
// pumping wait bounds one turn of the loop and not the whole wait. WAIT_OBJECT_0, WAIT_TIMEOUT,
// WAIT_FAILED, or WAIT_IO_COMPLETION when such a call has run.
DWORD WaitForEvent(platform::event& event, DWORD timeout, DWORD flags);

}  // namespace MTUtils

namespace LocalRPC::details {

// What a synchronous call waits on. One waiter.
class CSyncTaskEvent : private boost::noncopyable {
public:
    // Throws std::runtime_error, "can't create event".
    CSyncTaskEvent();
    ~CSyncTaskEvent();

    // Whether the system's event was set. Any thread.
    bool Signal();

    // Yields for a short while, so that a quick call returns without a wait in the kernel, and then
    // blocks. WAIT_OBJECT_0 once the task is done.
    DWORD Wait(DWORD timeout, DWORD flags);

protected:
    platform::event m_handle;

private:
    void _free();

    // 1 while the task is pending, 0 once it is done.
    std::atomic<LONG> m_state{1};
};

}  // namespace LocalRPC::details
