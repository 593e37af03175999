#include "platform/clock.h"

#include <chrono>
#include <ctime>

namespace platform {
namespace {

class posix_clock final : public clock {
public:
    SYSTEMTIME local_time() override {
        const auto now = std::chrono::system_clock::now();
        const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
        const auto rest = now - std::chrono::system_clock::from_time_t(seconds);
        std::tm local{};
        localtime_r(&seconds, &local);
        SYSTEMTIME result{};
        result.wYear = static_cast<WORD>(local.tm_year + 1900);
        result.wMonth = static_cast<WORD>(local.tm_mon + 1);
        result.wDayOfWeek = static_cast<WORD>(local.tm_wday);
        result.wDay = static_cast<WORD>(local.tm_mday);
        result.wHour = static_cast<WORD>(local.tm_hour);
        result.wMinute = static_cast<WORD>(local.tm_min);
        result.wSecond = static_cast<WORD>(local.tm_sec);
        result.wMilliseconds =
            static_cast<WORD>(std::chrono::duration_cast<std::chrono::milliseconds>(rest).count());
        return result;
    }

    DWORD tick_count() override {
        const auto since = std::chrono::steady_clock::now().time_since_epoch();
        return static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(since).count());
    }

    LONGLONG utc_milliseconds() override {
        const auto since = std::chrono::system_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::milliseconds>(since).count();
    }

    double milliseconds() override {
        const auto since = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration<double, std::milli>(since).count();
    }
};

}  // namespace

LONGLONG clock::utc_milliseconds() {
    return port<clock>::system().utc_milliseconds();
}

template <>
clock& port<clock>::system() {
    static posix_clock the_clock;
    return the_clock;
}

}  // namespace platform
