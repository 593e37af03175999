// Posts per second and the round trip of a synchronous call on both transports, beside Boost.Asio with one
// thread in the same run.
//
// "--idle" keeps both transports idle instead: says "idle" once they are, and ends with the input.
#include <cstring>
#include <iostream>

#include "benchmarks/stopwatch.h"
#include "benchmarks/threads.h"

namespace {

using namespace benchmarks;

constexpr int Burst = 1000;

// One of a burst of posts that a call ends.
template <class Thread>
double post() {
    Thread thread;
    int sum = 0;
    return nanoseconds_of_one(Burst, [&] {
        for (int i = 0; i < Burst; ++i) {
            thread.post([&sum] { ++sum; });
        }
        thread.call([] {});
    });
}

template <class Thread>
double round_trip() {
    Thread thread;
    int sum = 0;
    return nanoseconds_of_one(1, [&] { thread.call([&sum] { ++sum; }); });
}

void print_table(const char* what, double thread, double window, double asio) {
    print_head(what, "of Boost.Asio");
    print_line("thread transport", thread, asio);
    print_line("window transport", window, asio);
    print_line("Boost.Asio", asio, asio);
}

void stay_idle() {
    worker_thread worker;
    const pumping_thread pump;
    worker.call([] {});
    std::cout << "idle" << '\n' << std::flush;
    while (std::cin.get() != std::char_traits<char>::eof()) {
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "--idle") == 0) {
        stay_idle();
        return 0;
    }
    print_table("one post of a burst of a thousand", post<worker_thread>(), post<pumping_thread>(),
                post<asio_thread>());
    print_table("one synchronous call", round_trip<worker_thread>(), round_trip<pumping_thread>(),
                round_trip<asio_thread>());
    return 0;
}
