// The clock of the traces counts in milliseconds.
#include "platform/clock.h"

#include <gtest/gtest.h>

namespace {

double milliseconds_now() {
    LARGE_INTEGER count;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(count.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

TEST(Clock, CountsTheMillisecondsOfTheSystemsCounter) {
    platform::clock& clock = platform::port<platform::clock>::get();
    // A millionth for what the divisions round.
    constexpr double rounding = 1e-6;
    const double before = milliseconds_now();
    const double between = clock.milliseconds();
    const double after = milliseconds_now();
    EXPECT_GE(between, before * (1 - rounding));
    EXPECT_LE(between, after * (1 + rounding));
    EXPECT_GT(before, 0.0);
}

}  // namespace
