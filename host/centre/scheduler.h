// Work for later, on the thread of the application.
#pragma once

#include <functional>

namespace host {

class scheduler {
public:
    virtual ~scheduler() = default;

    // Runs the work once from the message loop, never within this call. What still waits when the
    // application ends is dropped.
    virtual void after(unsigned milliseconds, std::function<void()> work) = 0;
};

}  // namespace host
