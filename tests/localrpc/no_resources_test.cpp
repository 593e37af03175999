// What happens when the system gives no more events, threads and targets.
#include <dlfcn.h>
#include <sys/eventfd.h>

#include <atomic>
#include <cerrno>
#include <thread>

#include "tests/localrpc/local_rpc_fixture.h"

namespace {

using namespace LocalRPC;

constexpr char NoMemory[] = "Not enough memory resources are available to process this command.";

std::atomic<bool> refusing{false};

// While it lives the system gives no event. A limit on descriptors would stop the sanitizers too.
class no_events {
public:
    no_events() { refusing = true; }
    ~no_events() { refusing = false; }
    no_events(const no_events&) = delete;
    no_events& operator=(const no_events&) = delete;
};

template <class Exception, class Piece>
std::string text_of(Piece piece) {
    try {
        piece();
        return "nothing was thrown";
    } catch (const Exception& error) {
        return error.what();
    }
}

TEST(NoResources, ASynchronousTaskWithoutEventThrows) {
    const no_events none;
    EXPECT_EQ(text_of<std::runtime_error>([] { CreateSyncTask([] {}); }), "can't create event");
    EXPECT_NO_THROW(CreateAsyncTask([] {}));
}

TEST(NoResources, AnEventWithAStateThrowsAnExceptionOfItsOwn) {
    const no_events none;
    const auto make = [] { MTUtils::CMTUEvent event(platform::event::reset_mode::manual, 0); };
    EXPECT_EQ(text_of<std::exception>(make), "can't create event");
    EXPECT_EQ(text_of<std::exception>([] { CActiveObject_thread object(0); }), "can't create event");
}

TEST(NoResources, AThreadThatTheSystemRefusesThrowsItsText) {
    CActiveObject_thread object(0);
    {
        const no_events none;
        EXPECT_EQ(text_of<local_rpc_exception>([&] { object.Start(); }), NoMemory);
        EXPECT_FALSE(object.get_Transport().IsStarted());
        EXPECT_EQ(text_of<local_rpc_exception>([&] { object.Execute(nullptr); }), NoMemory);
    }
    int out = 0;
    SyncCall(object, [&out] { out = 1; });
    EXPECT_EQ(out, 1);
}

TEST(NoResources, AWindowThatTheSystemRefusesThrowsItsText) {
    // On a thread that has no queue yet.
    std::thread([] {
        CActiveObject_WndMsg object(false);
        {
            const no_events none;
            EXPECT_EQ(text_of<local_rpc_exception>([&] { object.Start(); }),
                      std::string("can't create transport Window. Last error: ") + NoMemory);
            EXPECT_FALSE(object.get_Transport().IsStarted());
        }
        EXPECT_TRUE(object.Start());
        EXPECT_EQ(object.get_Transport().GetThreadId(), platform::current_thread_id());
    }).join();
}

}  // namespace

// Stands before the system's own.
int eventfd(unsigned count, int flags) noexcept {
    if (refusing) {
        errno = EMFILE;
        return -1;
    }
    static const auto next = reinterpret_cast<int (*)(unsigned, int)>(dlsym(RTLD_NEXT, "eventfd"));
    return next(count, flags);
}
