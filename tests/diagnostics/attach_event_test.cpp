// The event that holds reports back until a debugger has attached.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "diagnostics/BugSlayerInitializer.h"
#include "tests/diagnostics/named_event.h"
#include "tests/support/own_names.h"

namespace {

using test_support::own_name;

TEST(AttachEvent, HasItsFixedName) {
    EXPECT_STREQ(BugSlayerUtil::attach_event_name, "{61B26D6F-EC96-46da-A875-239EED43DF17}");
}

TEST(AttachEvent, IsWaitedOnByEverybodyWhileItExists) {
    named_event event(own_name());
    std::mutex lock;
    std::vector<std::string> order;
    const auto note = [&](const char* what) {
        const std::lock_guard guard(lock);
        order.push_back(what);
    };
    const auto wait = [&] {
        platform::wait_for_named_event_if_present(own_name().c_str());
        note("went on");
    };
    std::atomic<int> arrived{0};
    const auto arrive = [&] {
        ++arrived;
        wait();
    };
    std::thread first(arrive);
    std::thread second(arrive);
    while (arrived < 2) {
        std::this_thread::yield();
    }
    note("signalled");
    event.signal();
    first.join();
    second.join();
    EXPECT_EQ(order, (std::vector<std::string>{"signalled", "went on", "went on"}));
}

TEST(AttachEvent, HoldsNobodyBackWhenItDoesNotExist) {
    std::future<void> wait = std::async(std::launch::async, [] {
        platform::wait_for_named_event_if_present((own_name() + " not there").c_str());
    });
    ASSERT_EQ(wait.wait_for(std::chrono::seconds(300)), std::future_status::ready);
}

}  // namespace
