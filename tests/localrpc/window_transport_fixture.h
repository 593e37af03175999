// A transport that runs its tasks out of this thread's message loop, stopped at the end of the test.
#pragma once

#include <thread>

#include "tests/localrpc/local_rpc_fixture.h"

// Opens what is protected.
struct open_pump final : LocalRPC::details::CWndMsgPump {
    using LocalRPC::details::CWndMsgPumpBase::m_allowNested;
    using LocalRPC::details::CWndMsgPumpBase::m_runningTasks;
    using LocalRPC::details::CWndMsgPumpBase::m_suspended;
    using LocalRPC::details::CWndMsgPumpBase::m_wndHolder;
};

// Runs a piece on a thread of its own, to its end.
template <class Piece>
void elsewhere(Piece piece) {
    std::thread(piece).join();
}

class WindowTransport : public testing::Test {
protected:
    WindowTransport() { EXPECT_TRUE(m_pump->Start()); }
    ~WindowTransport() override {
        m_pump->Stop(true, true);
        handle_messages();
    }

    LocalRPC::task_ptr adding(const std::string& name) {
        return LocalRPC::CreateAsyncTask([this, name] { m_log.add(name); });
    }

    void post(const std::string& name) { EXPECT_TRUE(m_pump->Execute(adding(name))); }

    // How many wake-ups are in this thread's queue; they are taken and not handled.
    static int take_wake_ups() {
        int result = 0;
        MSG message;
        while (platform::peek_message(message)) {
            result += message.message == LocalRPC::details::CWndImpl::RunTasks ? 1 : 0;
        }
        return result;
    }

    call_log m_log;
    diagnostics_recorder m_recorder;
    boost::intrusive_ptr<open_pump> m_pump{new open_pump};
};
