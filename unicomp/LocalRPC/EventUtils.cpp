#include "unicomp/LocalRPC/EventUtils.h"

#include <stdexcept>

#include "diagnostics/BugSlayerUtil.h"
#include "platform/clock.h"
#include "platform/message_pump.h"
#include "platform/thread.h"

namespace MTUtils {
namespace {

constexpr DWORD PumpingTurnMs = 11;

class event_error : public std::exception {
public:
    const char* what() const noexcept override { return "can't create event"; }
};

// A quit message must reach the loop that this one stands in for: it is posted again, and dispatched too.
void pump_for_a_turn() {
    platform::clock& clock = platform::port<platform::clock>::get();
    const DWORD start = clock.tick_count();
    MSG message;
    do {
        if (!platform::peek_message(message)) {
            return;
        }
        if (message.message == WM_QUIT) {
            platform::post_quit_message(0);
        }
        platform::dispatch_message(message);
    } while (clock.tick_count() - start < PumpingTurnMs);
}

}  // namespace

CMTUEvent::CMTUEvent(platform::event::reset_mode mode, LONG state) : m_state(state) {
    if (!m_event.Create(mode)) {
        throw event_error();
    }
}

CMTUEvent::~CMTUEvent() {
    _free();
}

void CMTUEvent::SetState(LONG state) {
    m_state.exchange(state);
    m_event.Set();
}

void CMTUEvent::_free() {
    const bool closed = m_event.Close();
    BS_ASSERT_TEXT(closed, "1==_res");
}

DWORD WaitForEvent(platform::event& event, DWORD timeout, DWORD flags) {
    const bool alertable = (flags & Alertable) != 0;
    if ((flags & Pumping) == 0) {
        return event.Wait(timeout, alertable);
    }
    for (;;) {
        DWORD result = event.Wait(0, alertable);
        if (result != WAIT_TIMEOUT) {
            return result;
        }
        result = platform::wait_for_event_or_message(event, timeout, alertable);
        if (result != WAIT_OBJECT_0 + 1) {
            return result;
        }
        pump_for_a_turn();
    }
}

}  // namespace MTUtils

namespace LocalRPC::details {
namespace {

constexpr int SpinPasses = 25;

}  // namespace

CSyncTaskEvent::CSyncTaskEvent() {
    if (!m_handle.Create(platform::event::reset_mode::automatic)) {
        throw std::runtime_error("can't create event");
    }
}

CSyncTaskEvent::~CSyncTaskEvent() {
    _free();
}

bool CSyncTaskEvent::Signal() {
    m_state.exchange(0);
    return m_handle.Set();
}

DWORD CSyncTaskEvent::Wait(DWORD timeout, DWORD flags) {
    for (int pass = 0; pass < SpinPasses; ++pass) {
        if (m_state.load() == 0) {
            return WAIT_OBJECT_0;
        }
        platform::yield_thread();
    }
    return MTUtils::WaitForEvent(m_handle, timeout, flags);
}

void CSyncTaskEvent::_free() {
    const bool closed = m_handle.Close();
    BS_ASSERT_TEXT(closed, "1==_res");
}

}  // namespace LocalRPC::details
