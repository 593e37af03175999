#include "platform/message_pump.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <mutex>
#include <new>
#include <utility>

#include "platform/clock.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/thread_queue.h"
#include "platform/thread.h"

namespace platform {

using posix::has_message;
using posix::post_to;
using posix::queue_ptr;
using posix::run_sent_message;
using posix::sent_message;
using posix::table;
using posix::take_message;
using posix::target_entry;
using posix::this_queue_locked;
using posix::timer;

namespace {

// Whether the message was answered in time. A thread that may handle others meanwhile can't be held up by
// one that waits for it.
bool wait_for_answer(std::unique_lock<std::mutex>& lock, const queue_ptr& own, sent_message& sent,
                     DWORD timeout, bool handle_others) {
    const posix::deadline deadline(timeout);
    while (!sent.done) {
        if (handle_others && run_sent_message(lock, own)) {
            continue;
        }
        if (timeout == INFINITE) {
            own->sent_changed->wait(lock);
            continue;
        }
        own->sent_changed->wait_for(lock, std::chrono::milliseconds(deadline.poll_timeout()));
        if (!sent.done && deadline.passed()) {
            return false;
        }
    }
    return true;
}

// timeout INFINITE waits for ever. False when the time is over or there is no such target.
bool send_to(HWND target, UINT message, WPARAM wParam, LPARAM lParam, DWORD timeout, bool handle_others,
             LRESULT& result) {
    std::unique_lock lock(table().mutex);
    const auto found = table().targets.find(target);
    if (found == table().targets.end()) {
        return false;
    }
    const target_entry entry = found->second;
    if (entry.thread_id == current_thread_id()) {
        lock.unlock();
        result = entry.handle(entry.context, message, wParam, lParam);
        return true;
    }
    const queue_ptr own = this_queue_locked();
    auto sent = std::make_shared<sent_message>();
    sent->answered = own->sent_changed;
    sent->target = target;
    sent->message = message;
    sent->wParam = wParam;
    sent->lParam = lParam;
    entry.queue->sent.push_back(sent);
    posix::signal(entry.queue->wake);
    entry.queue->sent_changed->notify_all();
    if (!wait_for_answer(lock, own, *sent, timeout, handle_others)) {
        sent->abandoned = true;
        return false;
    }
    result = sent->result;
    return true;
}

}  // namespace

bool message_target::Create(handler handle, void* context) noexcept {
    Destroy();
    try {
        const std::lock_guard lock(table().mutex);
        if (this_queue_locked()->wake < 0) {
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return false;
        }
        const HWND fresh = reinterpret_cast<HWND>(table().next_handle++);
        table().targets[fresh] = target_entry{handle, context, current_thread_id(), this_queue_locked()};
        m_handle = fresh;
        return true;
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
}

bool message_target::Destroy() noexcept {
    const HWND handle = std::exchange(m_handle, nullptr);
    const std::lock_guard lock(table().mutex);
    const auto found = table().targets.find(handle);
    if (found == table().targets.end() || found->second.thread_id != current_thread_id()) {
        return false;
    }
    const queue_ptr queue = found->second.queue;
    table().targets.erase(found);
    posix::drop_target(queue, handle);
    return true;
}

bool message_target::Post(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    try {
        const std::lock_guard lock(table().mutex);
        const auto found = table().targets.find(m_handle);
        if (found == table().targets.end()) {
            return false;
        }
        post_to(found->second.queue, m_handle, message, wParam, lParam);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

LRESULT message_target::Send(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    LRESULT result = 0;
    send_to(m_handle, message, wParam, lParam, INFINITE, true, result);
    return result;
}

bool message_target::SendBlocking(UINT message, WPARAM wParam, LPARAM lParam, DWORD timeout) noexcept {
    LRESULT result = 0;
    return send_to(m_handle, message, wParam, lParam, timeout, false, result);
}

bool message_target::SetTimer(UINT_PTR id, UINT period) noexcept {
    const std::lock_guard lock(table().mutex);
    const auto found = table().targets.find(m_handle);
    if (found == table().targets.end()) {
        return false;
    }
    const queue_ptr& queue = found->second.queue;
    queue->timers.remove_if([&](const timer& old) { return old.target == m_handle && old.id == id; });
    // The shortest period that the system grants.
    const std::chrono::milliseconds span(std::max(period, 10U));
    queue->timers.push_back({m_handle, id, span, std::chrono::steady_clock::now() + span});
    posix::signal(queue->wake);
    return true;
}

bool message_target::KillTimer(UINT_PTR id) noexcept {
    const std::lock_guard lock(table().mutex);
    const auto found = table().targets.find(m_handle);
    return found != table().targets.end() && found->second.queue->timers.remove_if([&](const timer& old) {
        return old.target == m_handle && old.id == id;
    }) != 0;
}

bool message_target::is_alive() const noexcept {
    const std::lock_guard lock(table().mutex);
    return table().targets.count(m_handle) != 0;
}

bool peek_message(MSG& message) noexcept {
    std::unique_lock lock(table().mutex);
    const queue_ptr queue = this_queue_locked();
    while (run_sent_message(lock, queue)) {
    }
    return take_message(queue, message);
}

void dispatch_message(const MSG& message) noexcept {
    std::unique_lock lock(table().mutex);
    const auto found = table().targets.find(message.hwnd);
    if (found == table().targets.end()) {
        return;
    }
    const target_entry entry = found->second;
    lock.unlock();
    entry.handle(entry.context, message.message, message.wParam, message.lParam);
}

void post_quit_message(int exit_code) noexcept {
    const std::lock_guard lock(table().mutex);
    const queue_ptr queue = this_queue_locked();
    queue->quit = true;
    queue->quit_code = exit_code;
    posix::signal(queue->wake);
}

bool post_thread_message(DWORD thread_id, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const std::lock_guard lock(table().mutex);
    const auto found = table().queues.find(thread_id);
    if (found == table().queues.end()) {
        return false;
    }
    post_to(found->second, nullptr, message, wParam, lParam);
    return true;
}

DWORD wait_for_event_or_message(event& what, DWORD timeout, bool) noexcept {
    if (what.get() == nullptr) {
        return WAIT_FAILED;
    }
    const posix::deadline deadline(timeout);
    for (;;) {
        if (what.Wait(0) == WAIT_OBJECT_0) {
            return WAIT_OBJECT_0;
        }
        queue_ptr queue;
        int wait = deadline.poll_timeout();
        {
            const std::lock_guard lock(table().mutex);
            queue = this_queue_locked();
            posix::consume(queue->wake);
            if (has_message(queue)) {
                return WAIT_OBJECT_0 + 1;
            }
            const int timer_wait = posix::until_timer(queue);
            wait = wait < 0 || (timer_wait >= 0 && timer_wait < wait) ? timer_wait : wait;
        }
        if (deadline.passed()) {
            return WAIT_TIMEOUT;
        }
        pollfd sources[] = {{posix::descriptor_of(what.get()), POLLIN, 0}, {queue->wake, POLLIN, 0}};
        if (poll(sources, 2, wait) < 0 && errno != EINTR) {
            return WAIT_FAILED;
        }
    }
}

}  // namespace platform
