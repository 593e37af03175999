#include <gtest/gtest.h>

#include <thread>

#include "platform/com.h"
#include "platform/posix/com/apartment.h"
#include "tests/platform/counted_object.h"

namespace {

TEST(NativeApartment, DepthCountsTheCallsOfTheThread) {
    std::thread([] {
        EXPECT_EQ(posix_com::apartment_depth(), 0U);
        CoInitialize(nullptr);
        CoInitialize(nullptr);
        EXPECT_EQ(posix_com::apartment_depth(), 2U);
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        EXPECT_EQ(posix_com::apartment_depth(), 2U);
        std::thread([] { EXPECT_EQ(posix_com::apartment_depth(), 0U); }).join();
        CoUninitialize();
        EXPECT_EQ(posix_com::apartment_depth(), 1U);
        CoUninitialize();
        EXPECT_EQ(posix_com::apartment_depth(), 0U);
    }).join();
}

TEST(NativeApartment, ApartmentsHaveTheirIds) {
    std::thread([] {
        EXPECT_EQ(posix_com::current_apartment(), posix_com::k_no_apartment);
        CoInitialize(nullptr);
        EXPECT_EQ(posix_com::current_apartment(), GetCurrentThreadId());
        CoUninitialize();
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        EXPECT_EQ(posix_com::current_apartment(), posix_com::k_multithreaded);
        CoUninitialize();
    }).join();
}

TEST(NativeApartment, AClassIsSeenFromEveryThread) {
    constexpr CLSID k_class = {0x1b2c3d4e, 0x5f60, 0x4718, {0x92, 0xa3, 0xb4, 0xc5, 0xd6, 0xe7, 0xf8, 0x09}};
    platform_tests::counted_object class_object;
    CoInitialize(nullptr);
    DWORD cookie = 0;
    ASSERT_EQ(
        CoRegisterClassObject(k_class, &class_object, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
        S_OK);
    std::thread([&] {
        CoInitialize(nullptr);
        void* raw = nullptr;
        EXPECT_EQ(CoGetClassObject(k_class, CLSCTX_ALL, nullptr, __uuidof(IUnknown), &raw), S_OK);
        EXPECT_EQ(raw, &class_object);
        class_object.Release();
        CoUninitialize();
    }).join();
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
    EXPECT_EQ(class_object.references, 1U);
    CoUninitialize();
}

}  // namespace
