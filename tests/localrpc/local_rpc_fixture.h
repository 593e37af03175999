// What the tests of the active objects share.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/message_pump.h"
#include "platform/thread.h"
#include "tests/support/diagnostics_recorder.h"
#include "unicomp/LocalRPC/AO_ThreadTransport.h"
#include "unicomp/LocalRPC/AO_WndMsgPumpTransport.h"
#include "unicomp/LocalRPC/ActiveObject.h"
#include "unicomp/LocalRPC/TaskFactory.h"

using Texts = std::vector<std::string>;

// Stays open once opened.
class gate {
public:
    gate() { EXPECT_TRUE(m_event.Create(platform::event::reset_mode::manual)); }
    void open() { m_event.Set(); }
    void wait() { EXPECT_EQ(m_event.Wait(INFINITE), WAIT_OBJECT_0); }
    bool is_open() { return m_event.Wait(0) == WAIT_OBJECT_0; }
    platform::event& get_Event() { return m_event; }

private:
    platform::event m_event;
};

// What happened, in order. Any thread.
class call_log {
public:
    void add(const std::string& what) {
        const std::lock_guard guard(m_lock);
        m_calls.push_back(what);
    }
    Texts texts() const {
        const std::lock_guard guard(m_lock);
        return m_calls;
    }

private:
    mutable std::mutex m_lock;
    Texts m_calls;
};

// Counts the tasks that are alive: copies of it are bound into their calls.
class life_count {
public:
    life_count() = default;
    explicit life_count(std::function<void()> at_end) : m_at_end(std::move(at_end)) {}
    std::shared_ptr<void> token() const {
        return std::shared_ptr<void>(nullptr, [at_end = m_at_end](void*) {
            if (at_end) {
                at_end();
            }
        });
    }

private:
    std::function<void()> m_at_end;
};

// Handles what this thread's queue holds now.
inline void handle_messages() {
    MSG message;
    while (platform::peek_message(message)) {
        platform::dispatch_message(message);
    }
}

// Handles messages until the gate is open.
inline void handle_messages_until(gate& opened) {
    while (platform::wait_for_event_or_message(opened.get_Event(), INFINITE, false) != WAIT_OBJECT_0) {
        handle_messages();
    }
}

// A clock whose tick count is what the test says.
class told_clock final : public platform::clock {
public:
    SYSTEMTIME local_time() override { return {}; }
    DWORD tick_count() override {
        if (at_tick) {
            at_tick();
        }
        return now;
    }
    double milliseconds() override { return 0.0; }

    DWORD now = 0;
    std::function<void()> at_tick;
};

inline std::vector<std::wstring> descriptions(const diagnostics_recorder& recorder) {
    std::vector<std::wstring> result;
    for (const reported_assertion& each : recorder.assertions()) {
        result.push_back(each.description);
    }
    return result;
}

inline const std::vector<std::wstring> UnhandledException = {
    L"Unhandled exception occure during execute task."};
