#include "platform/message_pump.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>
#include <vector>

#include "platform/thread.h"

namespace {

using platform::message_target;

constexpr UINT First = WM_USER + 1;

// A target that writes down what it gets.
struct told_target {
    told_target() { EXPECT_TRUE(target.Create(&receive, this)); }

    static LRESULT receive(void* context, UINT message, WPARAM wParam, LPARAM lParam) {
        auto& self = *static_cast<told_target*>(context);
        self.received.push_back(message);
        self.thread_id = platform::current_thread_id();
        if (self.at_message) {
            self.at_message();
        }
        return static_cast<LRESULT>(wParam) + lParam;
    }

    std::vector<UINT> received;
    DWORD thread_id = 0;
    std::function<void()> at_message;
    message_target target;
};

using messages = std::vector<UINT>;

void handle_messages() {
    MSG message;
    while (platform::peek_message(message)) {
        platform::dispatch_message(message);
    }
}

platform::event& made(platform::event& event) {
    EXPECT_TRUE(event.Create(platform::event::reset_mode::automatic));
    return event;
}

void handle_messages_until(platform::event& event) {
    while (platform::wait_for_event_or_message(event, INFINITE, true) == WAIT_OBJECT_0 + 1) {
        handle_messages();
    }
}

TEST(MessagePump, HandlesPostedMessagesInOrderOnTheTargetsThread) {
    told_target told;
    EXPECT_TRUE(told.target.is_alive());
    std::thread([&] {
        EXPECT_TRUE(told.target.Post(First, 0, 0));
        EXPECT_TRUE(told.target.Post(First + 1, 0, 0));
    }).join();
    EXPECT_EQ(told.received, messages{});
    handle_messages();
    EXPECT_EQ(told.received, (messages{First, First + 1}));
    EXPECT_EQ(told.thread_id, platform::current_thread_id());
}

TEST(MessagePump, GivesWhatWasPostedToThePeeker) {
    told_target told;
    EXPECT_TRUE(told.target.Post(First, 3, -4));
    MSG message;
    ASSERT_TRUE(platform::peek_message(message));
    EXPECT_EQ(message.message, First);
    EXPECT_EQ(message.wParam, 3u);
    EXPECT_EQ(message.lParam, -4);
    EXPECT_FALSE(platform::peek_message(message));
    EXPECT_EQ(told.received, messages{});
}

TEST(MessagePump, SendOnTheOwnThreadIsHandledAtOnce) {
    told_target told;
    EXPECT_TRUE(told.target.Post(First, 0, 0));
    EXPECT_EQ(told.target.Send(First + 1, 40, 2), 42);
    EXPECT_TRUE(told.target.SendBlocking(First + 2, 0, 0, INFINITE));
    EXPECT_EQ(told.received, (messages{First + 1, First + 2}));
}

TEST(MessagePump, SendOfAnotherThreadWaitsForTheAnswer) {
    told_target told;
    platform::event done;
    made(done);
    LRESULT answer = 0;
    bool in_time = false;
    std::thread sender([&] {
        answer = told.target.Send(First, 40, 2);
        in_time = told.target.SendBlocking(First, 0, 0, INFINITE);
        done.Set();
    });
    handle_messages_until(done);
    sender.join();
    EXPECT_EQ(answer, 42);
    EXPECT_TRUE(in_time);
    EXPECT_EQ(told.thread_id, platform::current_thread_id());
}

TEST(MessagePump, ABlockingSendGivesUpWhenItsTimeIsOver) {
    told_target told;
    bool in_time = true;
    std::thread([&] { in_time = told.target.SendBlocking(First, 0, 0, 10); }).join();
    EXPECT_FALSE(in_time);
}

// Each thread sends to the other at the same time: the one that waits handles what comes meanwhile.
TEST(MessagePump, AThreadThatSendsHandlesWhatIsSentToItMeanwhile) {
    told_target here;
    platform::event ready;
    platform::event over;
    made(ready);
    made(over);
    message_target* there = nullptr;
    std::thread other([&] {
        told_target theirs;
        theirs.at_message = [&] { EXPECT_EQ(here.target.Send(First, 1, 1), 2); };
        there = &theirs.target;
        ready.Set();
        handle_messages_until(over);
    });
    ASSERT_EQ(ready.Wait(INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(there->Send(First, 2, 2), 4);
    EXPECT_EQ(here.received, messages{First});
    over.Set();
    other.join();
}

TEST(MessagePump, AfterItsEndATargetGetsNothing) {
    told_target told;
    EXPECT_TRUE(told.target.Post(First, 0, 0));
    EXPECT_TRUE(told.target.Destroy());
    EXPECT_FALSE(told.target.Destroy());
    EXPECT_FALSE(told.target.is_alive());
    EXPECT_FALSE(told.target.Post(First, 0, 0));
    EXPECT_EQ(told.target.Send(First, 1, 1), 0);
    EXPECT_FALSE(told.target.SendBlocking(First, 0, 0, 10));
    EXPECT_FALSE(told.target.SetTimer(0, 10));
    EXPECT_FALSE(told.target.KillTimer(0));
    handle_messages();
    EXPECT_EQ(told.received, messages{});
}

TEST(MessagePump, ATargetOfAThreadThatEndedIsGone) {
    message_target target;
    std::thread([&] {
        EXPECT_TRUE(target.Create([](void*, UINT, WPARAM, LPARAM) -> LRESULT { return 1; }, nullptr));
        EXPECT_TRUE(target.is_alive());
    }).join();
    EXPECT_FALSE(target.Post(First, 0, 0));
    EXPECT_EQ(target.Send(First, 0, 0), 0);
}

TEST(MessagePump, ATimerComesBackUntilItIsTakenAway) {
    told_target told;
    platform::event twice;
    made(twice);
    told.at_message = [&] {
        if (told.received.size() == 2) {
            // At once: a slow machine would meet a third before the loop is left.
            EXPECT_TRUE(told.target.KillTimer(7));
            twice.Set();
        }
    };
    EXPECT_TRUE(told.target.SetTimer(7, 10));
    handle_messages_until(twice);
    EXPECT_EQ(told.received, (messages{WM_TIMER, WM_TIMER}));
    EXPECT_FALSE(told.target.KillTimer(7));
}

TEST(MessagePump, TheEndOfTheLoopComesAfterWhatWasPosted) {
    told_target told;
    platform::post_quit_message(5);
    EXPECT_TRUE(told.target.Post(First, 0, 0));
    MSG message;
    ASSERT_TRUE(platform::peek_message(message));
    EXPECT_EQ(message.message, First);
    ASSERT_TRUE(platform::peek_message(message));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 5u);
    EXPECT_FALSE(platform::peek_message(message));
}

TEST(MessagePump, AThreadItselfGetsMessagesToo) {
    handle_messages();
    EXPECT_TRUE(platform::post_thread_message(platform::current_thread_id(), First, 1, 2));
    MSG message;
    ASSERT_TRUE(platform::peek_message(message));
    EXPECT_EQ(message.hwnd, nullptr);
    EXPECT_EQ(message.message, First);
    EXPECT_FALSE(platform::post_thread_message(0xFFFFFFF0, First, 0, 0));
}

TEST(MessagePump, WaitsForTheEventOrAMessageTheEventFirst) {
    told_target told;
    platform::event event;
    EXPECT_EQ(platform::wait_for_event_or_message(event, 0, false), WAIT_FAILED);
    made(event);
    EXPECT_EQ(platform::wait_for_event_or_message(event, 0, false), WAIT_TIMEOUT);
    EXPECT_TRUE(told.target.Post(First, 0, 0));
    EXPECT_EQ(platform::wait_for_event_or_message(event, INFINITE, false), WAIT_OBJECT_0 + 1);
    // A message that was seen but not taken counts again.
    EXPECT_EQ(platform::wait_for_event_or_message(event, INFINITE, false), WAIT_OBJECT_0 + 1);
    event.Set();
    EXPECT_EQ(platform::wait_for_event_or_message(event, INFINITE, false), WAIT_OBJECT_0);
    EXPECT_EQ(platform::wait_for_event_or_message(event, INFINITE, false), WAIT_OBJECT_0 + 1);
    handle_messages();
    EXPECT_EQ(platform::wait_for_event_or_message(event, 0, false), WAIT_TIMEOUT);
}

}  // namespace
