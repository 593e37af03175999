// The scheduler of the running application: timers of a message-only window.
#pragma once

#include <windows.h>

#include <map>

#include "centre/scheduler.h"

namespace host {

class timer_scheduler final : public scheduler {
public:
    // Throws std::runtime_error when the window can't be made.
    timer_scheduler();
    ~timer_scheduler() override;
    timer_scheduler(const timer_scheduler&) = delete;
    timer_scheduler& operator=(const timer_scheduler&) = delete;

    void after(unsigned milliseconds, std::function<void()> work) override;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    void run(UINT_PTR id);

    HWND m_window;
    UINT_PTR m_last_id = 0;
    std::map<UINT_PTR, std::function<void()>> m_waiting;
};

}  // namespace host
