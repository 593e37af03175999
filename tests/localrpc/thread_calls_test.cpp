// What the thread transport asks of the system for its worker, and what it makes of a refusal.
#include "tests/localrpc/local_rpc_fixture.h"
#include "tests/support/win32/told_import.h"

namespace {

using namespace LocalRPC;
using details::CThread;
using thread_body = unsigned(__stdcall*)(void*);
using told_begin = test::told_import<"_beginthreadex", std::uintptr_t(void*, unsigned, thread_body, void*,
                                                                      unsigned, unsigned*)>;
using told_terminate = test::told_import<"TerminateThread", BOOL(HANDLE, DWORD)>;

// The text of the refusal when the system makes no thread and gives this error.
std::string refusal(DWORD error) {
    const told_begin none([error](auto...) {
        SetLastError(error);
        return std::uintptr_t{0};
    });
    CActiveObject_thread object(0);
    try {
        object.Start();
    } catch (const local_rpc_exception& thrown) {
        EXPECT_FALSE(object.get_Transport().IsStarted());
        return thrown.what();
    }
    return "nothing was thrown";
}

TEST(ThreadCalls, TheStackIsAsLargeAsTold) {
    std::vector<unsigned> sizes;
    const told_begin told([&](void* security, unsigned size, auto... rest) {
        sizes.push_back(size);
        return told_begin::real(security, size, rest...);
    });
    for (const unsigned size : {0U, 0x80000U}) {
        CActiveObject_thread object(size);
        EXPECT_TRUE(object.Start());
    }
    EXPECT_EQ(sizes, (std::vector<unsigned>{0, 0x80000}));
}

TEST(ThreadCalls, ARefusedThreadThrowsTheSystemsText) {
    const std::string text = refusal(ERROR_ACCESS_DENIED);
    EXPECT_FALSE(text.empty());
    EXPECT_NE(text, "create thread unknown error");
    EXPECT_NE(text, "nothing was thrown");
    EXPECT_NE(text, refusal(ERROR_NOT_ENOUGH_MEMORY));
    // A result is taken as it is.
    EXPECT_EQ(text, refusal(static_cast<DWORD>(E_ACCESSDENIED)));
}

TEST(ThreadCalls, ARefusalThatTheSystemHasNoTextForThrowsOurs) {
    EXPECT_EQ(refusal(0xFFFE), "create thread unknown error");
}

class ThreadEndByForce : public testing::Test {
protected:
    // Ends a busy worker with no time to spare; the exit code of its thread.
    DWORD end() {
        // Lives on: the worker still stands in it.
        static gate& never = *new gate;
        gate busy;
        EXPECT_TRUE(m_thread->Execute(CreateAsyncTask([&] {
            EXPECT_NE(DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &m_worker,
                                      0, FALSE, DUPLICATE_SAME_ACCESS),
                      0);
            busy.open();
            never.wait();
        })));
        busy.wait();
        EXPECT_TRUE(m_thread->StopEx(true, 0, true));
        EXPECT_FALSE(m_thread->IsStarted());
        DWORD code = 0;
        EXPECT_NE(GetExitCodeThread(m_worker, &code), 0);
        CloseHandle(m_worker);
        return code;
    }

    diagnostics_recorder m_recorder;
    boost::intrusive_ptr<CThread> m_thread{new CThread(0)};
    HANDLE m_worker = nullptr;
};

TEST_F(ThreadEndByForce, HasTheExitCodeOne) {
    EXPECT_EQ(end(), 1U);
    EXPECT_EQ(m_recorder.assertions().size(), 0U);
}

TEST_F(ThreadEndByForce, ThatTheSystemRefusesIsReportedAndTheTransportIsStoppedAllTheSame) {
    const told_terminate refused([](HANDLE, DWORD) { return FALSE; });
    EXPECT_EQ(end(), DWORD{STILL_ACTIVE});
    ASSERT_EQ(m_recorder.assertions().size(), 1U);
    EXPECT_EQ(m_recorder.assertions()[0].description, L"terminated");
    // The worker lives on and holds the transport's address.
    m_thread->AddRef();
}

}  // namespace
