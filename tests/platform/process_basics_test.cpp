#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "platform/com.h"

namespace {

TEST(ProcessBasics, LastErrorBelongsToTheThread) {
    // The flags are bare, since a call that waits may set the last error itself.
    std::atomic<bool> go{false};
    std::atomic<bool> done{false};
    DWORD of_the_other = ERROR_SUCCESS;
    std::thread other([&] {
        while (!go) {
        }
        SetLastError(ERROR_MORE_DATA);
        of_the_other = GetLastError();
        done = true;
    });
    SetLastError(ERROR_ACCESS_DENIED);
    go = true;
    while (!done) {
    }
    const DWORD kept = GetLastError();
    other.join();
    EXPECT_EQ(kept, static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(of_the_other, static_cast<DWORD>(ERROR_MORE_DATA));
}

TEST(ProcessBasics, ThreadsOfOneProcessDifferInTheThreadIdOnly) {
    const DWORD thread = GetCurrentThreadId();
    const DWORD process = GetCurrentProcessId();
    EXPECT_NE(thread, 0U);
    EXPECT_NE(process, 0U);
    EXPECT_EQ(GetCurrentThreadId(), thread);
    std::thread([&] {
        EXPECT_NE(GetCurrentThreadId(), thread);
        EXPECT_EQ(GetCurrentProcessId(), process);
    }).join();
}

TEST(ProcessBasics, InterlockedOperationsLoseNoStep) {
    LONG value = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 10000; ++i) {
                InterlockedIncrement(&value);
                InterlockedIncrement(&value);
                InterlockedDecrement(&value);
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(value, 40000);
    EXPECT_EQ(InterlockedIncrement(&value), 40001);
    EXPECT_EQ(InterlockedDecrement(&value), 40000);
}

TEST(ProcessBasics, ExchangesGiveTheOldValue) {
    LONG value = 5;
    EXPECT_EQ(InterlockedExchange(&value, 6), 5);
    EXPECT_EQ(InterlockedCompareExchange(&value, 7, 99), 6);
    EXPECT_EQ(value, 6);
    EXPECT_EQ(InterlockedCompareExchange(&value, 7, 6), 6);
    EXPECT_EQ(value, 7);
}

TEST(ProcessBasics, ANullTextHasNoLength) {
    EXPECT_EQ(lstrlenW(nullptr), 0);
    EXPECT_EQ(lstrlenW(L""), 0);
    EXPECT_EQ(lstrlenW(L"abc"), 3);
}

TEST(ProcessBasics, TaskMemoryKeepsItsContentWhenItGrows) {
    auto* memory = static_cast<char*>(CoTaskMemAlloc(4));
    ASSERT_NE(memory, nullptr);
    memory[3] = 'x';
    memory = static_cast<char*>(CoTaskMemRealloc(memory, 4096));
    ASSERT_NE(memory, nullptr);
    EXPECT_EQ(memory[3], 'x');
    CoTaskMemFree(memory);
    CoTaskMemFree(nullptr);
}

}  // namespace
