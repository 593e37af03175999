#include "platform/posix/thread_queue.h"

#include <sys/eventfd.h>

#include <algorithm>
#include <utility>

#include "platform/posix/descriptor.h"
#include "platform/posix/message_queue.h"
#include "platform/thread.h"

namespace platform::posix {

thread_queue::thread_queue() : wake(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}

thread_queue::~thread_queue() {
    close(wake);
}

// Lives for ever: a thread may still end while the process does.
queue_table& table() {
    static auto& the_table = *new queue_table;
    return the_table;
}

namespace {

// Removes the queue of a thread that was not started here, when it ends.
struct queue_owner {
    ~queue_owner() {
        if (queue) {
            close_this_queue();
        }
    }
    queue_ptr queue;
};

thread_local queue_owner this_thread;

}  // namespace

queue_ptr this_queue_locked() {
    if (!this_thread.queue || this_thread.queue->wake < 0) {
        this_thread.queue = std::make_shared<thread_queue>();
        table().queues[current_thread_id()] = this_thread.queue;
    }
    return this_thread.queue;
}

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

namespace {

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

}  // namespace

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
    signal(queue->wake);
}

namespace {

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

}  // namespace

void drop_target(const queue_ptr& queue, HWND target) {
    std::erase_if(queue->posted, [target](const MSG& message) { return message.hwnd == target; });
    queue->timers.remove_if([target](const timer& candidate) { return candidate.target == target; });
    answer_all(queue, target);
}

void close_this_queue() noexcept {
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

}  // namespace platform::posix
