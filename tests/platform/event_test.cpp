#include "platform/event.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using platform::event;
using mode = event::reset_mode;

TEST(Event, IsMadeNotSignalled) {
    for (const mode each : {mode::automatic, mode::manual}) {
        event made;
        EXPECT_EQ(made.get(), nullptr);
        EXPECT_TRUE(made.Create(each));
        EXPECT_NE(made.get(), nullptr);
        EXPECT_EQ(made.Wait(0), WAIT_TIMEOUT);
        EXPECT_EQ(made.Wait(1), WAIT_TIMEOUT);
    }
}

TEST(Event, AnAutomaticOneServesOneWaitHoweverOftenItWasSet) {
    event made;
    ASSERT_TRUE(made.Create(mode::automatic));
    EXPECT_TRUE(made.Set());
    EXPECT_TRUE(made.Set());
    EXPECT_EQ(made.Wait(INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(made.Wait(0), WAIT_TIMEOUT);
}

TEST(Event, AManualOneStaysSetUntilReset) {
    event made;
    ASSERT_TRUE(made.Create(mode::manual));
    EXPECT_TRUE(made.Set());
    EXPECT_TRUE(made.Set());
    EXPECT_EQ(made.Wait(INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(made.Wait(0), WAIT_OBJECT_0);
    EXPECT_TRUE(made.Reset());
    EXPECT_EQ(made.Wait(0), WAIT_TIMEOUT);
    EXPECT_TRUE(made.Reset());
}

TEST(Event, WakesAnotherThread) {
    event go;
    event back;
    ASSERT_TRUE(go.Create(mode::automatic));
    ASSERT_TRUE(back.Create(mode::manual));
    int passed = 0;
    std::thread waiter([&] {
        EXPECT_EQ(go.Wait(INFINITE), WAIT_OBJECT_0);
        passed = 1;
        back.Set();
    });
    go.Set();
    EXPECT_EQ(back.Wait(INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(passed, 1);
    waiter.join();
}

TEST(Event, OneThatWasNotMadeFailsInEverything) {
    event none;
    EXPECT_FALSE(none.Set());
    EXPECT_FALSE(none.Reset());
    EXPECT_EQ(none.Wait(INFINITE), WAIT_FAILED);
    EXPECT_FALSE(none.Close());
}

TEST(Event, ClosesOnceAndMayBeMadeAgain) {
    event made;
    ASSERT_TRUE(made.Create(mode::manual));
    EXPECT_TRUE(made.Set());
    EXPECT_TRUE(made.Close());
    EXPECT_FALSE(made.Close());
    EXPECT_FALSE(made.Set());
    EXPECT_TRUE(made.Create(mode::automatic));
    EXPECT_EQ(made.Wait(0), WAIT_TIMEOUT);
}

}  // namespace
