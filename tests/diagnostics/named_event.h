// A named event that the process under test may wait on; not signalled at first, gone at the end.
#pragma once

#include <memory>
#include <string>

class named_event {
public:
    explicit named_event(const std::string& name);
    ~named_event();
    named_event(const named_event&) = delete;
    named_event& operator=(const named_event&) = delete;

    // Lets everybody on who waits or will wait.
    void signal();

private:
    struct system_event;
    std::unique_ptr<system_event> m_event;
};
