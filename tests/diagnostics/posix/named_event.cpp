#include "tests/diagnostics/named_event.h"

#include <fcntl.h>
#include <semaphore.h>

struct named_event::system_event {
    std::string path;
    sem_t* semaphore;
};

named_event::named_event(const std::string& name)
    : m_event(new system_event{"/" + name, sem_open(("/" + name).c_str(), O_CREAT | O_EXCL, 0600, 0)}) {}

named_event::~named_event() {
    sem_close(m_event->semaphore);
    sem_unlink(m_event->path.c_str());
}

void named_event::signal() {
    sem_post(m_event->semaphore);
}
