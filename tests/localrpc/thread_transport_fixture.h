// A transport with a thread of its own, which the test stops at its end.
#pragma once

#include "tests/localrpc/local_rpc_fixture.h"

class ThreadTransport : public testing::Test {
protected:
    ~ThreadTransport() override {
        if (m_thread) {
            m_thread->Stop(true, true);
        }
    }

    void post(const std::string& name) {
        EXPECT_TRUE(m_thread->Execute(LocalRPC::CreateAsyncTask([this, name] { m_log.add(name); })));
    }

    // Occupies the worker until m_go is open; gives back once it does.
    void occupy() {
        EXPECT_TRUE(m_thread->Execute(LocalRPC::CreateAsyncTask([this] {
            m_busy.open();
            m_go.wait();
            m_log.add("busy");
        })));
        m_busy.wait();
    }

    call_log m_log;
    gate m_busy;
    gate m_go;
    diagnostics_recorder m_recorder;
    boost::intrusive_ptr<LocalRPC::details::CThread> m_thread{new LocalRPC::details::CThread(0)};
};
