#include "platform/message_pump.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <deque>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <utility>

#include "platform/clock.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/message_queue.h"
#include "platform/thread.h"

namespace platform {
namespace {

// A message that another thread sent and waits for.
struct sent_message {
    HWND target = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    LRESULT result = 0;
    bool done = false;
    bool abandoned = false;
    // Of the queue of the thread that waits.
    std::shared_ptr<std::condition_variable> answered;
};

struct timer {
    HWND target;
    UINT_PTR id;
    std::chrono::milliseconds period;
    std::chrono::steady_clock::time_point due;
};

// The queue of one thread. Everything in it is guarded by the one lock of all queues: messages are rare
// and short, and one lock can't be taken in a wrong order.
struct thread_queue {
    thread_queue() : wake(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}
    ~thread_queue() { close(wake); }
    thread_queue(const thread_queue&) = delete;
    thread_queue& operator=(const thread_queue&) = delete;

    std::deque<MSG> posted;
    std::list<std::shared_ptr<sent_message>> sent;
    // Notified when something was sent here, or when what this thread sent was answered.
    const std::shared_ptr<std::condition_variable> sent_changed = std::make_shared<std::condition_variable>();
    std::list<timer> timers;
    bool quit = false;
    int quit_code = 0;
    // Signalled while there may be something to take.
    const int wake;
};

using queue_ptr = std::shared_ptr<thread_queue>;

struct target_entry {
    message_target::handler handle = nullptr;
    void* context = nullptr;
    DWORD thread_id = 0;
    queue_ptr queue;
};

struct queue_table {
    std::mutex mutex;
    std::map<DWORD, queue_ptr> queues;
    std::map<HWND, target_entry> targets;
    std::uintptr_t next_handle = 0x10000;
};

// Lives for ever: a thread may still end while the process does.
queue_table& table() {
    static auto& the_table = *new queue_table;
    return the_table;
}

// Removes the queue of a thread that was not started here, when it ends.
struct queue_owner {
    ~queue_owner() {
        if (queue) {
            posix::close_this_queue();
        }
    }
    queue_ptr queue;
};

thread_local queue_owner this_thread;

// With the lock held by the caller.
queue_ptr this_queue_locked() {
    if (!this_thread.queue || this_thread.queue->wake < 0) {
        this_thread.queue = std::make_shared<thread_queue>();
        table().queues[current_thread_id()] = this_thread.queue;
    }
    return this_thread.queue;
}

// Takes one message that was sent here out of the queue and runs it, with the lock released meanwhile.
bool run_sent_message(std::unique_lock<std::mutex>& lock, const queue_ptr& queue) {
    if (queue->sent.empty()) {
        return false;
    }
    const std::shared_ptr<sent_message> message = queue->sent.front();
    queue->sent.pop_front();
    if (message->abandoned) {
        return true;
    }
    const auto found = table().targets.find(message->target);
    LRESULT result = 0;
    if (found != table().targets.end()) {
        const target_entry entry = found->second;
        lock.unlock();
        result = entry.handle(entry.context, message->message, message->wParam, message->lParam);
        lock.lock();
    }
    message->result = result;
    message->done = true;
    message->answered->notify_all();
    return true;
}

bool take_timer(const queue_ptr& queue, MSG& message) {
    const auto now = std::chrono::steady_clock::now();
    for (timer& candidate : queue->timers) {
        if (candidate.due <= now) {
            candidate.due = now + candidate.period;
            message = MSG{};
            message.hwnd = candidate.target;
            message.message = WM_TIMER;
            message.wParam = candidate.id;
            return true;
        }
    }
    return false;
}

// Posted messages come first, then the end of the loop, then timers: the order in which a loop sees them.
bool take_message(const queue_ptr& queue, MSG& message) {
    if (!queue->posted.empty()) {
        message = queue->posted.front();
        queue->posted.pop_front();
        return true;
    }
    if (queue->quit) {
        queue->quit = false;
        message = MSG{};
        message.message = WM_QUIT;
        message.wParam = static_cast<WPARAM>(queue->quit_code);
        return true;
    }
    return take_timer(queue, message);
}

bool has_message(const queue_ptr& queue) {
    const auto now = std::chrono::steady_clock::now();
    return !queue->posted.empty() || !queue->sent.empty() || queue->quit ||
           std::any_of(queue->timers.begin(), queue->timers.end(),
                       [now](const timer& candidate) { return candidate.due <= now; });
}

// Milliseconds until the next timer, -1 without one.
int until_timer(const queue_ptr& queue) {
    int result = -1;
    const auto now = std::chrono::steady_clock::now();
    for (const timer& candidate : queue->timers) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(candidate.due - now).count();
        const int wait = static_cast<int>(std::max<std::int64_t>(left, 0));
        result = result < 0 ? wait : std::min(result, wait);
    }
    return result;
}

void post_to(const queue_ptr& queue, HWND target, UINT message, WPARAM wParam, LPARAM lParam) {
    MSG entry{};
    entry.hwnd = target;
    entry.message = message;
    entry.wParam = wParam;
    entry.lParam = lParam;
    queue->posted.push_back(entry);
    posix::signal(queue->wake);
}

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

void answer_all(const queue_ptr& queue, HWND target) {
    for (auto it = queue->sent.begin(); it != queue->sent.end();) {
        if (target == nullptr || (*it)->target == target) {
            (*it)->done = true;
            (*it)->answered->notify_all();
            it = queue->sent.erase(it);
        } else {
            ++it;
        }
    }
}

void drop_target(const queue_ptr& queue, HWND target) {
    std::erase_if(queue->posted, [target](const MSG& message) { return message.hwnd == target; });
    queue->timers.remove_if([target](const timer& candidate) { return candidate.target == target; });
    answer_all(queue, target);
}

}  // namespace

void posix::close_this_queue() noexcept {
    const queue_ptr queue = std::move(this_thread.queue);
    this_thread.queue.reset();
    if (!queue) {
        return;
    }
    const std::lock_guard lock(table().mutex);
    table().queues.erase(current_thread_id());
    std::erase_if(table().targets, [&](const auto& target) { return target.second.queue == queue; });
    answer_all(queue, nullptr);
}

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
    drop_target(queue, handle);
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
            const int timer_wait = until_timer(queue);
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
