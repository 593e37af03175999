#include "platform/process_mutex.h"

#include <new>

namespace platform {
namespace {

class win32_process_mutex final : public process_mutex {
public:
    explicit win32_process_mutex(HANDLE handle) : m_handle(handle) {}
    ~win32_process_mutex() override { CloseHandle(m_handle); }
    win32_process_mutex(const win32_process_mutex&) = delete;
    win32_process_mutex& operator=(const win32_process_mutex&) = delete;

    DWORD wait(DWORD milliseconds) noexcept override { return WaitForSingleObject(m_handle, milliseconds); }
    void release() noexcept override { ReleaseMutex(m_handle); }

private:
    HANDLE m_handle;
};

class win32_process_mutexes final : public process_mutexes {
public:
    std::unique_ptr<process_mutex> open(const CString& name) noexcept override {
        if (name.size() > longest_name) {
            return nullptr;
        }
        const HANDLE handle = CreateMutexW(nullptr, FALSE, name.c_str());
        if (handle == nullptr) {
            return nullptr;
        }
        std::unique_ptr<process_mutex> made(new (std::nothrow) win32_process_mutex(handle));
        if (!made) {
            CloseHandle(handle);
        }
        return made;
    }
};

}  // namespace

template <>
process_mutexes& port<process_mutexes>::system() {
    static win32_process_mutexes the_mutexes;
    return the_mutexes;
}

}  // namespace platform
