#include "platform/process.h"

#include <fcntl.h>
#include <semaphore.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>

namespace platform {

void terminate_process(UINT exit_code) noexcept {
    _exit(static_cast<int>(exit_code));
}

void debug_break() noexcept {
    raise(SIGTRAP);
}

bool process_is_ending() noexcept {
    return false;
}

void wait_for_named_event_if_present(const char* name) noexcept {
    char path[NAME_MAX] = "/";
    std::strncat(path, name, sizeof(path) - 2);
    sem_t* const event = sem_open(path, 0);
    if (event == SEM_FAILED) {
        return;
    }
    while (sem_wait(event) != 0 && errno == EINTR) {
    }
    // Whoever waits too shall go on as well.
    sem_post(event);
    sem_close(event);
}

}  // namespace platform
