// A thread to hand calls to, in three makes with the same two operations.
#pragma once

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <future>
#include <thread>

#include "platform/event.h"
#include "unicomp/LocalRPC/ActiveObject.h"
#include "unicomp/LocalRPC/TaskFactory.h"

namespace benchmarks {

// The worker of a thread transport.
class worker_thread {
public:
    template <class Call>
    void post(Call call) {
        LocalRPC::AsyncCall(m_object, std::move(call));
    }
    // Back when the call has run; so are those below.
    template <class Call>
    void call(Call call) {
        LocalRPC::SyncCall(m_object, std::move(call));
    }

private:
    LocalRPC::CActiveObject_thread m_object{0};
};

// A thread with a message loop that owns a window transport.
class pumping_thread {
public:
    pumping_thread();
    ~pumping_thread();
    pumping_thread(const pumping_thread&) = delete;
    pumping_thread& operator=(const pumping_thread&) = delete;

    template <class Call>
    void post(Call call) {
        LocalRPC::AsyncCall(m_object, std::move(call));
    }
    template <class Call>
    void call(Call call) {
        LocalRPC::SyncCall(m_object, std::move(call));
    }

private:
    void run(std::promise<void>& ready);

    LocalRPC::CActiveObject_WndMsg m_object{false};
    platform::event m_end;
    std::thread m_thread;
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

}  // namespace benchmarks
