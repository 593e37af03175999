#include "platform/thread.h"

#include <pthread.h>
#include <sched.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <memory>
#include <new>
#include <utility>

#include "platform/event.h"
#include "platform/posix/message_queue.h"

namespace platform {
namespace {

// What a thread and the object that started it share; the last of them deletes it.
struct thread_block {
    thread::function body = nullptr;
    void* argument = nullptr;
    pthread_t native{};
    DWORD id = 0;
    event started;
    event ended;
};

using block_ptr = std::shared_ptr<thread_block>;

// The signal that parks a thread for ever.
int park_signal() {
    return SIGRTMIN + 3;
}

void park(int) {
    for (;;) {
        pause();
    }
}

void install_park_handler() {
    static const bool installed = [] {
        struct sigaction action {};
        action.sa_handler = park;
        sigfillset(&action.sa_mask);
        return sigaction(park_signal(), &action, nullptr) == 0;
    }();
    (void)installed;
}

void* run(void* argument) {
    const std::unique_ptr<block_ptr> given(static_cast<block_ptr*>(argument));
    const block_ptr& block = *given;
    block->id = current_thread_id();
    block->started.Set();
    block->body(block->argument);
    posix::close_this_queue();
    block->ended.Set();
    return nullptr;
}

block_ptr& block_of(HANDLE handle) {
    return *static_cast<block_ptr*>(static_cast<void*>(handle));
}

}  // namespace

DWORD current_thread_id() noexcept {
    return GetCurrentThreadId();
}

void yield_thread() noexcept {
    sched_yield();
}

bool thread::Start(unsigned stack_size, function body, void* argument, DWORD& id) noexcept {
    Close();
    install_park_handler();
    try {
        auto block = std::make_shared<thread_block>();
        block->body = body;
        block->argument = argument;
        if (!block->started.Create(event::reset_mode::manual) ||
            !block->ended.Create(event::reset_mode::manual)) {
            return false;
        }
        auto* const given = new block_ptr(block);
        auto kept = std::make_unique<block_ptr>(block);
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
        if (stack_size != 0) {
            pthread_attr_setstacksize(&attributes, stack_size);
        }
        const int result = pthread_create(&block->native, &attributes, run, given);
        pthread_attr_destroy(&attributes);
        if (result != 0) {
            delete given;
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return false;
        }
        block->started.Wait(INFINITE);
        id = block->id;
        m_handle = reinterpret_cast<HANDLE>(kept.release());
        return true;
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
}

DWORD thread::Wait(DWORD timeout) noexcept {
    return m_handle != nullptr ? block_of(m_handle)->ended.Wait(timeout) : WAIT_FAILED;
}

bool thread::Terminate(DWORD) noexcept {
    if (m_handle == nullptr) {
        return false;
    }
    const block_ptr& block = block_of(m_handle);
    if (block->ended.Wait(0) == WAIT_OBJECT_0) {
        return true;
    }
    if (pthread_kill(block->native, park_signal()) != 0) {
        return false;
    }
    block->ended.Set();
    return true;
}

bool thread::Close() noexcept {
    const HANDLE handle = std::exchange(m_handle, nullptr);
    if (handle == nullptr) {
        return false;
    }
    delete static_cast<block_ptr*>(static_cast<void*>(handle));
    return true;
}

}  // namespace platform
