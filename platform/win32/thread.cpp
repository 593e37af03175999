#include "platform/thread.h"

#include <process.h>

#include <memory>
#include <utility>

namespace platform {
namespace {

struct start_block {
    thread::function body;
    void* argument;
};

unsigned __stdcall run(void* argument) {
    const std::unique_ptr<start_block> block(static_cast<start_block*>(argument));
    return block->body(block->argument);
}

}  // namespace

DWORD current_thread_id() noexcept {
    return GetCurrentThreadId();
}

void yield_thread() noexcept {
    Sleep(0);
}

bool thread::Start(unsigned stack_size, function body, void* argument, DWORD& id) noexcept {
    Close();
    auto* const block = new (std::nothrow) start_block{body, argument};
    if (block == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
    unsigned new_id = 0;
    // Held back until the id is written, so that the new thread can rely on it.
    const auto handle = _beginthreadex(nullptr, stack_size, run, block, CREATE_SUSPENDED, &new_id);
    if (handle == 0) {
        delete block;
        return false;
    }
    m_handle = reinterpret_cast<HANDLE>(handle);
    id = new_id;
    ResumeThread(m_handle);
    return true;
}

DWORD thread::Wait(DWORD timeout) noexcept {
    return WaitForSingleObject(m_handle, timeout);
}

bool thread::Terminate(DWORD exit_code) noexcept {
    return TerminateThread(m_handle, exit_code) != FALSE;
}

bool thread::Close() noexcept {
    const HANDLE handle = std::exchange(m_handle, nullptr);
    return handle != nullptr && CloseHandle(handle) != FALSE;
}

}  // namespace platform
