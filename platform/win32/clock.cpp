#include "platform/clock.h"

namespace platform {
namespace {

// Of 100 nanoseconds since 1601.
constexpr LONGLONG ticks_of_1970 = 116444736000000000;
constexpr LONGLONG ticks_per_millisecond = 10000;

class win32_clock final : public clock {
public:
    win32_clock() { QueryPerformanceFrequency(&m_frequency); }

    SYSTEMTIME local_time() override {
        SYSTEMTIME now;
        GetLocalTime(&now);
        return now;
    }

    DWORD tick_count() override { return GetTickCount(); }

    LONGLONG utc_milliseconds() override {
        FILETIME now;
        GetSystemTimeAsFileTime(&now);
        const LONGLONG ticks =
            static_cast<LONGLONG>(static_cast<ULONGLONG>(now.dwHighDateTime) << 32 | now.dwLowDateTime);
        return (ticks - ticks_of_1970) / ticks_per_millisecond;
    }

    double milliseconds() override {
        LARGE_INTEGER count;
        QueryPerformanceCounter(&count);
        return static_cast<double>(count.QuadPart) / (static_cast<double>(m_frequency.QuadPart) / 1000.0);
    }

private:
    LARGE_INTEGER m_frequency{};
};

}  // namespace

LONGLONG clock::utc_milliseconds() {
    return port<clock>::system().utc_milliseconds();
}

template <>
clock& port<clock>::system() {
    static win32_clock the_clock;
    return the_clock;
}

}  // namespace platform
