#include "platform/process_mutex.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <ctime>
#include <map>
#include <mutex>
#include <new>
#include <string>

namespace platform {
namespace {

// What the shared-memory object holds. The mark is written last, so that an object whose maker died, or
// that has another layout, is made again.
struct shared_state {
    static constexpr std::uint32_t made = 0x4D555802;
    std::atomic<std::uint32_t> mark;
    // Thread id of the owner, and how often it owns the mutex; the latter is the owner's alone.
    std::atomic<pid_t> owner;
    int depth;
    pthread_mutex_t mutex;
};

// A shared-memory object, locked against the other processes while it is open here.
class locked_object {
public:
    explicit locked_object(const std::string& name)
        : m_fd(shm_open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
        if (m_fd >= 0) {
            m_locked = flock(m_fd, LOCK_EX) == 0;
        }
    }
    ~locked_object() {
        if (m_fd >= 0) {
            // Closing is not enough: memory that was mapped from the object keeps the lock.
            flock(m_fd, LOCK_UN);
            close(m_fd);
        }
    }
    locked_object(const locked_object&) = delete;
    locked_object& operator=(const locked_object&) = delete;
    bool locked() const { return m_locked; }
    int get() const { return m_fd; }

private:
    int m_fd;
    bool m_locked = false;
};

// Letters and digits stand for themselves; everything else is told by its number.
std::string object_name(const CString& name) {
    std::string result = "/orderdeck-" + std::to_string(getuid()) + "-";
    for (const wchar_t each : name) {
        const bool plain = (each >= L'0' && each <= L'9') || (each >= L'A' && each <= L'Z') ||
                           (each >= L'a' && each <= L'z') || each == L'-';
        result += plain ? std::string(1, static_cast<char>(each))
                        : "." + std::to_string(static_cast<unsigned>(each)) + ".";
    }
    return result;
}

bool make_mutex(shared_state& state) {
    pthread_mutexattr_t attributes;
    if (pthread_mutexattr_init(&attributes) != 0) {
        return false;
    }
    pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
    pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    const int result = pthread_mutex_init(&state.mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
    return result == 0;
}

shared_state* map_object(const std::string& name) {
    // One process at a time makes the mutex.
    const locked_object object(name);
    if (!object.locked() || ftruncate(object.get(), sizeof(shared_state)) != 0) {
        return nullptr;
    }
    void* const start =
        mmap(nullptr, sizeof(shared_state), PROT_READ | PROT_WRITE, MAP_SHARED, object.get(), 0);
    if (start == MAP_FAILED) {
        return nullptr;
    }
    auto* const state = static_cast<shared_state*>(start);
    if (state->mark.load() != shared_state::made) {
        state->owner.store(0);
        state->depth = 0;
        if (!make_mutex(*state)) {
            munmap(start, sizeof(shared_state));
            return nullptr;
        }
        state->mark.store(shared_state::made);
    }
    return state;
}

timespec time_after(DWORD milliseconds) {
    timespec result{};
    clock_gettime(CLOCK_REALTIME, &result);
    result.tv_sec += milliseconds / 1000;
    result.tv_nsec += static_cast<long>(milliseconds % 1000) * 1000000;
    if (result.tv_nsec >= 1000000000) {
        result.tv_nsec -= 1000000000;
        ++result.tv_sec;
    }
    return result;
}

class posix_process_mutex final : public process_mutex {
public:
    explicit posix_process_mutex(shared_state& state) : m_state(state) {}

    DWORD wait(DWORD milliseconds) noexcept override {
        switch (lock(milliseconds)) {
            case 0:
                m_state.owner.store(gettid());
                ++m_state.depth;
                return WAIT_OBJECT_0;
            case EOWNERDEAD:
                pthread_mutex_consistent(&m_state.mutex);
                m_state.owner.store(gettid());
                m_state.depth = 1;
                return WAIT_ABANDONED;
            case EBUSY:
            case ETIMEDOUT:
                return WAIT_TIMEOUT;
            default:
                return WAIT_FAILED;
        }
    }

    void release() noexcept override {
        if (m_state.owner.load() != gettid()) {
            return;
        }
        if (--m_state.depth == 0) {
            m_state.owner.store(0);
        }
        pthread_mutex_unlock(&m_state.mutex);
    }

private:
    int lock(DWORD milliseconds) noexcept {
        if (milliseconds == 0) {
            return pthread_mutex_trylock(&m_state.mutex);
        }
        if (milliseconds == INFINITE) {
            return pthread_mutex_lock(&m_state.mutex);
        }
        const timespec until = time_after(milliseconds);
        return pthread_mutex_timedlock(&m_state.mutex, &until);
    }

    shared_state& m_state;
};

class posix_process_mutexes final : public process_mutexes {
public:
    std::unique_ptr<process_mutex> open(const CString& name) noexcept override {
        if (name.size() > longest_name) {
            return nullptr;
        }
        try {
            const std::lock_guard lock(m_lock);
            shared_state*& state = m_states[object_name(name)];
            if (state == nullptr) {
                state = map_object(object_name(name));
            }
            return state != nullptr ? std::make_unique<posix_process_mutex>(*state) : nullptr;
        } catch (const std::bad_alloc&) {
            return nullptr;
        }
    }

private:
    std::mutex m_lock;
    // Mapped to the end of the process: the system finds what a thread owned at its end through this memory.
    std::map<std::string, shared_state*> m_states;
};

}  // namespace

template <>
process_mutexes& port<process_mutexes>::system() {
    static posix_process_mutexes the_mutexes;
    return the_mutexes;
}

}  // namespace platform
