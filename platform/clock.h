#pragma once

#include "platform/com.h"
#include "platform/port.h"

namespace platform {

class clock {
public:
    virtual ~clock() = default;

    // Local wall time of the user's time zone.
    virtual SYSTEMTIME local_time() = 0;

    // Milliseconds since some start; wraps after 49.7 days.
    virtual DWORD tick_count() = 0;

    // UTC, milliseconds since 1970-01-01. The system's own unless a clock has another.
    virtual LONGLONG utc_milliseconds();

    // Milliseconds with the resolution of the high-resolution counter; never goes back.
    virtual double milliseconds() = 0;
};

// Throws nothing; a time that the system cannot give does not exist.
template <>
clock& port<clock>::system();

}  // namespace platform
