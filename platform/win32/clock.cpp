#include "platform/clock.h"

namespace platform {
namespace {

class win32_clock final : public clock {
public:
    win32_clock() { QueryPerformanceFrequency(&m_frequency); }

    SYSTEMTIME local_time() override {
        SYSTEMTIME now;
        GetLocalTime(&now);
        return now;
    }

    DWORD tick_count() override { return GetTickCount(); }

    double milliseconds() override {
        LARGE_INTEGER count;
        QueryPerformanceCounter(&count);
        return static_cast<double>(count.QuadPart) / (static_cast<double>(m_frequency.QuadPart) / 1000.0);
    }

private:
    LARGE_INTEGER m_frequency{};
};

}  // namespace

template <>
clock& port<clock>::system() {
    static win32_clock the_clock;
    return the_clock;
}

}  // namespace platform
