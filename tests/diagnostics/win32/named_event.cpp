#include "tests/diagnostics/named_event.h"

#include "platform/com.h"

struct named_event::system_event {
    HANDLE handle;
};

named_event::named_event(const std::string& name)
    : m_event(new system_event{CreateEventA(nullptr, TRUE, FALSE, name.c_str())}) {}

named_event::~named_event() {
    CloseHandle(m_event->handle);
}

void named_event::signal() {
    SetEvent(m_event->handle);
}
