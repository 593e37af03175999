// Messages to a thread and to window-less targets on it.
#pragma once

#include <boost/core/noncopyable.hpp>

#include "platform/event.h"

namespace platform {

// A target without a window that receives messages on the thread that made it, out of that thread's
// message loop. On Windows a message-only window; natively an entry of the thread's queue.
class message_target : private boost::noncopyable {
public:
    // Runs on the target's thread. Must not throw. A message that it does not know it answers with 0.
    using handler = LRESULT (*)(void* context, UINT message, WPARAM wParam, LPARAM lParam);

    message_target() = default;
    // On the target's thread, unless it was destroyed before.
    ~message_target() { Destroy(); }

    // On the calling thread. False with the thread's last error.
    bool Create(handler handle, void* context) noexcept;

    // On the target's own thread. Messages still queued for it are dropped, its timers end.
    bool Destroy() noexcept;

    // The rest: any thread, as long as the object lives. Of a target that was destroyed: false or 0.
    bool Post(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    // Waits until the message was handled; on the target's own thread it is handled at once.
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    // As Send, with a timeout in milliseconds, and no other message handled meanwhile. False when the
    // time is over.
    bool SendBlocking(UINT message, WPARAM wParam, LPARAM lParam, DWORD timeout) noexcept;
    bool SetTimer(UINT_PTR id, UINT period) noexcept;
    bool KillTimer(UINT_PTR id) noexcept;
    bool is_alive() const noexcept;

private:
    HWND m_handle = nullptr;
};

// Takes the next message of this thread's queue and removes it. False when there is none. Messages that
// were sent by other threads are handled on the way.
bool peek_message(MSG& message) noexcept;

void dispatch_message(const MSG& message) noexcept;

// Puts WM_QUIT into this thread's queue.
void post_quit_message(int exit_code) noexcept;

// A message to a thread itself. False when the thread has no queue yet or has ended.
bool post_thread_message(DWORD thread_id, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

// Waits until the event is set (WAIT_OBJECT_0, an automatic event is then reset), until this thread's
// queue holds a message (WAIT_OBJECT_0 + 1), or for the timeout (WAIT_TIMEOUT). Messages that were there
// before the call count too.
DWORD wait_for_event_or_message(event& what, DWORD timeout, bool alertable) noexcept;

}  // namespace platform
