#include "platform/thread.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "platform/event.h"
#include "platform/system_error.h"

namespace {

using platform::thread;

struct piece {
    piece() {
        EXPECT_TRUE(go.Create(platform::event::reset_mode::manual));
        EXPECT_TRUE(arrived.Create(platform::event::reset_mode::manual));
    }
    static DWORD run(void* argument) {
        auto& self = *static_cast<piece*>(argument);
        self.id = platform::current_thread_id();
        self.arrived.Set();
        self.go.Wait(INFINITE);
        self.over = true;
        return 0;
    }

    platform::event go;
    platform::event arrived;
    DWORD id = 0;
    bool over = false;
};

TEST(Thread, RunsItsFunctionAndTellsItsId) {
    piece work;
    thread worker;
    EXPECT_FALSE(worker);
    DWORD id = 0;
    ASSERT_TRUE(worker.Start(0, &piece::run, &work, id));
    EXPECT_TRUE(static_cast<bool>(worker));
    EXPECT_EQ(worker.Wait(0), WAIT_TIMEOUT);
    work.go.Set();
    EXPECT_EQ(worker.Wait(INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(worker.Wait(0), WAIT_OBJECT_0);
    EXPECT_TRUE(work.over);
    EXPECT_EQ(id, work.id);
    EXPECT_NE(id, platform::current_thread_id());
    EXPECT_TRUE(worker.Close());
    EXPECT_FALSE(static_cast<bool>(worker));
}

TEST(Thread, TakesAStackSize) {
    piece work;
    work.go.Set();
    thread worker;
    DWORD id = 0;
    ASSERT_TRUE(worker.Start(1024 * 1024, &piece::run, &work, id));
    EXPECT_EQ(worker.Wait(INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(work.over);
}

TEST(Thread, IsEndedWhereItIs) {
    // Lives on: the ended thread still stands in it.
    static piece& work = *new piece;
    thread worker;
    DWORD id = 0;
    ASSERT_TRUE(worker.Start(0, &piece::run, &work, id));
    ASSERT_EQ(work.arrived.Wait(INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(worker.Terminate(1));
    EXPECT_EQ(worker.Wait(INFINITE), WAIT_OBJECT_0);
    EXPECT_FALSE(work.over);
}

TEST(Thread, OneThatEndedMayStillBeEnded) {
    piece work;
    work.go.Set();
    thread worker;
    DWORD id = 0;
    ASSERT_TRUE(worker.Start(0, &piece::run, &work, id));
    ASSERT_EQ(worker.Wait(INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(work.over);
    worker.Terminate(1);
    EXPECT_EQ(worker.Wait(INFINITE), WAIT_OBJECT_0);
}

TEST(Thread, OneThatWasNotStartedFailsInEverything) {
    thread none;
    EXPECT_EQ(none.Wait(0), WAIT_FAILED);
    EXPECT_FALSE(none.Terminate(1));
    EXPECT_FALSE(none.Close());
}

TEST(SystemError, HasATextWithoutALineEnd) {
    EXPECT_EQ(platform::system_error_text(ERROR_NOT_ENOUGH_MEMORY).find_first_of("\r\n"), std::string::npos);
    EXPECT_NE(platform::system_error_text(ERROR_NOT_ENOUGH_MEMORY), "");
}

TEST(SystemError, KnowsWhatMayBeRead) {
    const int here = 5;
    EXPECT_TRUE(platform::is_readable(&here, sizeof(here)));
    EXPECT_FALSE(platform::is_readable(nullptr, sizeof(here)));
    EXPECT_FALSE(platform::is_readable(reinterpret_cast<const void*>(std::uintptr_t{16}), sizeof(here)));
}

}  // namespace
