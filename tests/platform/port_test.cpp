#include "platform/port.h"

#include <gtest/gtest.h>

#include "platform/clock.h"

namespace {

class stopped_clock final : public platform::clock {
public:
    SYSTEMTIME local_time() override { return {}; }
    DWORD tick_count() override { return 42; }
    double milliseconds() override { return 42.0; }
};

TEST(Port, GivesTheSystemsServiceUntilAReplacementStandsIn) {
    EXPECT_EQ(&platform::port<platform::clock>::get(), &platform::port<platform::clock>::system());
    stopped_clock outer;
    stopped_clock inner;
    {
        const platform::port<platform::clock>::replacement first(outer);
        EXPECT_EQ(&platform::port<platform::clock>::get(), &outer);
        {
            const platform::port<platform::clock>::replacement second(inner);
            EXPECT_EQ(&platform::port<platform::clock>::get(), &inner);
        }
        EXPECT_EQ(&platform::port<platform::clock>::get(), &outer);
    }
    EXPECT_EQ(&platform::port<platform::clock>::get(), &platform::port<platform::clock>::system());
}

TEST(SystemClock, GivesAValidLocalTime) {
    const SYSTEMTIME now = platform::port<platform::clock>::get().local_time();
    EXPECT_GE(now.wYear, 2024);
    EXPECT_GE(now.wMonth, 1);
    EXPECT_LE(now.wMonth, 12);
    EXPECT_GE(now.wDay, 1);
    EXPECT_LE(now.wDay, 31);
    EXPECT_LE(now.wHour, 23);
    EXPECT_LE(now.wMilliseconds, 999);
}

TEST(SystemClock, HighResolutionTimeNeverGoesBack) {
    platform::clock& clock = platform::port<platform::clock>::get();
    double last = clock.milliseconds();
    for (int i = 0; i < 1000; ++i) {
        const double next = clock.milliseconds();
        ASSERT_GE(next, last);
        last = next;
    }
}

}  // namespace
