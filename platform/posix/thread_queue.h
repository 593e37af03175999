// The message queues of the threads. Native build only.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <list>
#include <map>
#include <memory>
#include <mutex>

#include "platform/message_pump.h"

namespace platform::posix {

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
    thread_queue();
    ~thread_queue();
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

// The one table of the process. All below is called with its lock held, except this.
queue_table& table();

// The queue of the calling thread, made when there is none. Throws std::bad_alloc.
queue_ptr this_queue_locked();

// Takes one message that was sent here out of the queue and runs it, with the lock released meanwhile. False
// when there is none.
bool run_sent_message(std::unique_lock<std::mutex>& lock, const queue_ptr& queue);

// Posted messages come first, then the end of the loop, then timers: the order in which a loop sees them.
bool take_message(const queue_ptr& queue, MSG& message);
bool has_message(const queue_ptr& queue);

// Milliseconds until the next timer, -1 without one.
int until_timer(const queue_ptr& queue);

// A null target: to the thread itself.
void post_to(const queue_ptr& queue, HWND target, UINT message, WPARAM wParam, LPARAM lParam);

// What waits for a target that is gone: posted messages and timers are dropped, and who sent gets 0.
void drop_target(const queue_ptr& queue, HWND target);

}  // namespace platform::posix
