#include <gtest/gtest.h>

#include <future>
#include <thread>

#include "platform/com.h"

namespace {

constexpr CLSID k_nobodys_class = {
    0x5a5a0001, 0x1111, 0x4222, {0x83, 0x33, 0x44, 0x44, 0x55, 0x55, 0x66, 0x66}};

// What creating a class that nobody registered says tells whether the thread is in an apartment.
HRESULT probe() {
    void* raw = nullptr;
    return CoCreateInstance(k_nobodys_class, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown), &raw);
}

TEST(Apartment, InitialisationsAreCounted) {
    std::thread([] {
        EXPECT_EQ(probe(), CO_E_NOTINITIALIZED);
        EXPECT_EQ(CoInitialize(nullptr), S_OK);
        EXPECT_EQ(CoInitialize(nullptr), S_FALSE);
        CoUninitialize();
        EXPECT_EQ(probe(), REGDB_E_CLASSNOTREG);
        CoUninitialize();
        EXPECT_EQ(probe(), CO_E_NOTINITIALIZED);
        EXPECT_EQ(CoInitialize(nullptr), S_OK);
        CoUninitialize();
    }).join();
}

TEST(Apartment, TheKindOfAThreadStays) {
    std::thread([] {
        EXPECT_EQ(CoInitialize(nullptr), S_OK);
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
        CoUninitialize();
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
        EXPECT_EQ(CoInitialize(nullptr), RPC_E_CHANGED_MODE);
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_FALSE);
        CoUninitialize();
        CoUninitialize();
    }).join();
}

TEST(Apartment, EveryThreadInitialisesForItself) {
    std::thread([] {
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        std::thread([] { EXPECT_EQ(probe(), CO_E_NOTINITIALIZED); }).join();
        CoUninitialize();
    }).join();
}

TEST(Apartment, AThreadWithoutOneSharesTheMultithreadedOneWhileItLasts) {
    std::promise<void> started;
    std::promise<void> finish;
    std::thread keeper([&] {
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
        started.set_value();
        finish.get_future().wait();
        CoUninitialize();
    });
    started.get_future().wait();
    std::thread([] { EXPECT_EQ(probe(), REGDB_E_CLASSNOTREG); }).join();
    finish.set_value();
    keeper.join();
    std::thread([] { EXPECT_EQ(probe(), CO_E_NOTINITIALIZED); }).join();
}

TEST(Apartment, AnUninitialiseTooManyIsIgnored) {
    std::thread([] {
        CoUninitialize();
        EXPECT_EQ(CoInitialize(nullptr), S_OK);
        CoUninitialize();
    }).join();
}

}  // namespace
