#include "benchmarks/threads.h"

#include "platform/message_pump.h"

namespace benchmarks {

pumping_thread::pumping_thread() {
    m_end.Create(platform::event::reset_mode::manual);
    std::promise<void> ready;
    m_thread = std::thread([this, &ready] { run(ready); });
    ready.get_future().wait();
}

pumping_thread::~pumping_thread() {
    m_end.Set();
    m_thread.join();
}

void pumping_thread::run(std::promise<void>& ready) {
    m_object.Start();
    ready.set_value();
    MSG message;
    while (platform::wait_for_event_or_message(m_end, INFINITE, false) != WAIT_OBJECT_0) {
        while (platform::peek_message(message)) {
            platform::dispatch_message(message);
        }
    }
    m_object.Stop(true, true);
}

}  // namespace benchmarks
