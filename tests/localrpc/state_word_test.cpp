// The word beside an event is changed before the event is set.
#include <dlfcn.h>
#include <unistd.h>

#include "tests/localrpc/local_rpc_fixture.h"

namespace {

thread_local std::function<void()> at_setting;

// While it lives, each setting of an event on this thread is preceded by the action.
class before_setting {
public:
    explicit before_setting(std::function<void()> action) { at_setting = std::move(action); }
    ~before_setting() { at_setting = nullptr; }
    before_setting(const before_setting&) = delete;
    before_setting& operator=(const before_setting&) = delete;
};

TEST(StateWord, IsTheNewOneWhenTheEventIsSet) {
    MTUtils::CMTUEvent event(platform::event::reset_mode::automatic, 5);
    std::vector<LONG> seen;
    const before_setting look([&] { seen.push_back(event.GetState()); });
    event.SetState(7);
    EXPECT_EQ(seen, std::vector<LONG>{7});
}

TEST(StateWord, OfASynchronousCallSaysDoneBeforeTheEventIsSet) {
    LocalRPC::details::CSyncTaskEvent event;
    std::vector<DWORD> seen;
    const before_setting look([&] { seen.push_back(event.Wait(0, 0)); });
    EXPECT_TRUE(event.Signal());
    EXPECT_EQ(seen, std::vector<DWORD>{WAIT_OBJECT_0});
}

}  // namespace

// Stands before the system's own.
ssize_t write(int descriptor, const void* bytes, size_t count) {
    if (at_setting) {
        at_setting();
    }
    static const auto next =
        reinterpret_cast<ssize_t (*)(int, const void*, size_t)>(dlsym(RTLD_NEXT, "write"));
    return next(descriptor, bytes, count);
}
