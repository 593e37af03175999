// Posts per second and the round trip of a synchronous call on both transports, beside Boost.Asio in the
// same run. With ORDERDECK_IDLE_SECONDS set it first tells what an idle worker costs in that time.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <thread>

#include "platform/message_pump.h"
#include "unicomp/LocalRPC/ActiveObject.h"
#include "unicomp/LocalRPC/TaskFactory.h"

namespace {

using namespace LocalRPC;

constexpr int Burst = 1000;

// A thread that handles messages and owns a window transport.
class pumping_thread {
public:
    pumping_thread() {
        m_end.Create(platform::event::reset_mode::manual);
        std::promise<void> ready;
        m_thread = std::thread([this, &ready] {
            m_object.Start();
            ready.set_value();
            MSG message;
            while (platform::wait_for_event_or_message(m_end, INFINITE, false) != WAIT_OBJECT_0) {
                while (platform::peek_message(message)) {
                    platform::dispatch_message(message);
                }
            }
            m_object.Stop(true, true);
        });
        ready.get_future().wait();
    }
    ~pumping_thread() {
        m_end.Set();
        m_thread.join();
    }
    pumping_thread(const pumping_thread&) = delete;
    pumping_thread& operator=(const pumping_thread&) = delete;

    CActiveObject_WndMsg& get_Object() { return m_object; }

private:
    CActiveObject_WndMsg m_object{false};
    platform::event m_end;
    std::thread m_thread;
};

class worker_thread {
public:
    CActiveObject_thread& get_Object() { return m_object; }

private:
    CActiveObject_thread m_object{0};
};

class asio_thread {
public:
    ~asio_thread() {
        m_work.reset();
        m_thread.join();
    }
    template <class Call>
    void post(Call call) {
        boost::asio::post(m_context, std::move(call));
    }
    template <class Call>
    void call(Call call) {
        std::promise<void> done;
        post([&] {
            call();
            done.set_value();
        });
        done.get_future().wait();
    }

private:
    boost::asio::io_context m_context{1};
    boost::asio::executor_work_guard<boost::asio::io_context::executor_type> m_work{m_context.get_executor()};
    std::thread m_thread{[this] { m_context.run(); }};
};

// A burst and a call that ends it.
template <class Thread>
void posts(benchmark::State& state) {
    Thread thread;
    int sum = 0;
    for (auto turn : state) {
        for (int i = 0; i < Burst; ++i) {
            AsyncCall(thread.get_Object(), [&sum] { ++sum; });
        }
        SyncCall(thread.get_Object(), [&sum] { benchmark::DoNotOptimize(sum); });
    }
    state.SetItemsProcessed(state.iterations() * Burst);
}

template <class Thread>
void round_trip(benchmark::State& state) {
    Thread thread;
    int sum = 0;
    for (auto turn : state) {
        SyncCall(thread.get_Object(), [&sum] { ++sum; });
    }
    benchmark::DoNotOptimize(sum);
}

void asio_posts(benchmark::State& state) {
    asio_thread thread;
    int sum = 0;
    for (auto turn : state) {
        for (int i = 0; i < Burst; ++i) {
            thread.post([&sum] { ++sum; });
        }
        thread.call([&sum] { benchmark::DoNotOptimize(sum); });
    }
    state.SetItemsProcessed(state.iterations() * Burst);
}

void asio_round_trip(benchmark::State& state) {
    asio_thread thread;
    int sum = 0;
    for (auto turn : state) {
        thread.call([&sum] { ++sum; });
    }
    benchmark::DoNotOptimize(sum);
}

BENCHMARK_TEMPLATE(posts, worker_thread)->UseRealTime();
BENCHMARK_TEMPLATE(posts, pumping_thread)->UseRealTime();
BENCHMARK(asio_posts)->UseRealTime();
BENCHMARK_TEMPLATE(round_trip, worker_thread)->UseRealTime();
BENCHMARK_TEMPLATE(round_trip, pumping_thread)->UseRealTime();
BENCHMARK(asio_round_trip)->UseRealTime();

double milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1000.0 + static_cast<double>(time.tv_usec) / 1000.0;
}

void report_idle(int seconds) {
    CActiveObject_thread worker(0);
    pumping_thread pump;
    SyncCall(worker, [] {});
    rusage before{};
    rusage after{};
    getrusage(RUSAGE_SELF, &before);
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    getrusage(RUSAGE_SELF, &after);
    std::printf("idle for %d s: %.3f ms of processor time, %ld context switches\n", seconds,
                milliseconds(after.ru_utime) + milliseconds(after.ru_stime) - milliseconds(before.ru_utime) -
                    milliseconds(before.ru_stime),
                after.ru_nvcsw + after.ru_nivcsw - before.ru_nvcsw - before.ru_nivcsw);
}

}  // namespace

int main(int argc, char** argv) {
    if (const char* const seconds = std::getenv("ORDERDECK_IDLE_SECONDS")) {
        report_idle(std::atoi(seconds));
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
