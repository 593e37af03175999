// Times and tables for programs of both systems.
#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>

namespace benchmarks {

// Nanoseconds that one of the items takes which an action does: the median of seven runs, each long enough
// that the clock's steps do not count. The first run is not counted.
template <class Action>
double nanoseconds_of_one(int items, Action action) {
    using clock = std::chrono::steady_clock;
    constexpr auto shortest = std::chrono::milliseconds(100);
    std::array<double, 8> runs{};
    for (double& run : runs) {
        long times = 0;
        const clock::time_point start = clock::now();
        clock::duration passed{};
        do {
            action();
            ++times;
            passed = clock::now() - start;
        } while (passed < shortest);
        run = std::chrono::duration<double, std::nano>(passed).count() / static_cast<double>(times) / items;
    }
    std::sort(runs.begin() + 1, runs.end());
    return runs[4];
}

// The head of a table and one line of it; relative is what the line takes as a part of its yardstick.
inline void print_head(const char* what, const char* yardstick) {
    std::printf("%-44s %12s %14s   %s\n", what, "ns each", "per second", yardstick);
}
inline void print_line(const char* name, double nanoseconds, double of_yardstick) {
    std::printf("  %-42s %12.0f %14.0f   %.2f\n", name, nanoseconds, 1e9 / nanoseconds,
                nanoseconds / of_yardstick);
}

}  // namespace benchmarks
