// The worker's own messages, between its tasks.
#include "tests/localrpc/thread_transport_fixture.h"

namespace {

using namespace LocalRPC;
using details::CThread;

// A target on the worker that counts its messages. The hundredth opens hundred, the closing one closed.
struct counting_target {
    enum Messages : UINT { Counted = WM_USER + 7, Closing };

    platform::message_target target;
    int received = 0;
    gate hundred;
    gate closed;

    static LRESULT count(void* context, UINT message, WPARAM, LPARAM) {
        auto& self = *static_cast<counting_target*>(context);
        if (message == Closing) {
            self.closed.open();
        } else if (++self.received == 100) {
            self.hundred.open();
        }
        return 0;
    }
};

// How many of so many messages that wait for the worker are dispatched.
int dispatched_of(CThread& thread, int messages) {
    counting_target counter;
    SyncCall(thread, [&] {
        EXPECT_TRUE(counter.target.Create(&counting_target::count, &counter));
        for (int i = 0; i < messages; ++i) {
            EXPECT_TRUE(counter.target.Post(counting_target::Counted, 0, 0));
        }
    });
    counter.hundred.wait();
    // Runs in the turn after the one that dispatched the hundredth; the closing message ends that turn.
    SyncCall(thread, [&] { EXPECT_TRUE(counter.target.Post(counting_target::Closing, 0, 0)); });
    counter.closed.wait();
    int received = 0;
    SyncCall(thread, [&] {
        received = counter.received;
        EXPECT_TRUE(counter.target.Destroy());
    });
    return received;
}

TEST_F(ThreadTransport, DispatchesTheMessagesOfTheWorker) {
    EXPECT_EQ(dispatched_of(*m_thread, 100), 100);
}

TEST_F(ThreadTransport, LosesTheMessageAfterTheHundredthOfATurn) {
    EXPECT_EQ(dispatched_of(*m_thread, 101), 100);
}

TEST_F(ThreadTransport, TakesTheMessagesAfterTheLostOneInTheNextTurn) {
    EXPECT_EQ(dispatched_of(*m_thread, 102), 101);
}

}  // namespace
