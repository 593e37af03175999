#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <thread>
#include <vector>

#include "platform/com_create.h"
#include "platform/com_object.h"
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

// Makes nothing, and says so in its own way.
class refusing_factory : public platform::com_root<IClassFactory> {
public:
    STDMETHODIMP CreateInstance(IUnknown*, REFIID, void**) override { return E_ABORT; }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

TEST(NativeApartment, AnObjectIsCreatedInWhateverContextItsClassRunsIn) {
    constexpr CLSID k_class = {0x6e1f9c42, 0x83d0, 0x4ab5, {0xb7, 0x21, 0x0d, 0x5e, 0xf4, 0x98, 0x3a, 0x6c}};
    const auto factory = platform::make_com<refusing_factory>();
    CoInitialize(nullptr);
    com_ptr<IUnknown> made;
    EXPECT_EQ(platform::create_running(k_class, made), REGDB_E_CLASSNOTREG);
    for (const int context :
         {CLSCTX_INPROC_SERVER, CLSCTX_INPROC_HANDLER, CLSCTX_LOCAL_SERVER, CLSCTX_REMOTE_SERVER}) {
        DWORD cookie = 0;
        ASSERT_EQ(CoRegisterClassObject(k_class, factory->GetUnknown(), static_cast<DWORD>(context),
                                        REGCLS_MULTIPLEUSE, &cookie),
                  S_OK);
        EXPECT_EQ(platform::create_running(k_class, made), E_ABORT) << context;
        EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
    }
    CoUninitialize();
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

class plain_factory : public IClassFactory {
public:
    STDMETHODIMP QueryInterface(REFIID, void** out) override {
        *out = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** out) override {
        return QueryInterface(iid, out);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

    std::atomic<ULONG> references{1};
};

TEST(NativeClassTable, MayBeUsedFromManyThreadsAtOnce) {
    plain_factory factory;
    std::vector<std::thread> threads;
    for (std::uint32_t t = 1; t <= 4; ++t) {
        threads.emplace_back([&factory, t] {
            const CLSID id = {t, 0x1111, 0x4222, {0x83, 0x33, 0x44, 0x44, 0x55, 0x55, 0x66, 0x67}};
            CoInitializeEx(nullptr, COINIT_MULTITHREADED);
            for (int i = 0; i < 200; ++i) {
                DWORD cookie = 0;
                void* raw = nullptr;
                ASSERT_EQ(CoRegisterClassObject(id, &factory, CLSCTX_ALL, REGCLS_MULTIPLEUSE, &cookie), S_OK);
                ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_ALL, __uuidof(IUnknown), &raw), S_OK);
                factory.Release();
                ASSERT_EQ(CoRevokeClassObject(cookie), S_OK);
            }
            CoUninitialize();
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(factory.references, 1U);
}

TEST(NativeClassTable, EndsWithTheLastThreadOfTheMultithreadedApartment) {
    plain_factory factory;
    const CLSID id = {0xABCD, 0x1111, 0x4222, {0x83, 0x33, 0x44, 0x44, 0x55, 0x55, 0x66, 0x68}};
    std::thread([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        std::thread([&] {
            CoInitializeEx(nullptr, COINIT_MULTITHREADED);
            DWORD cookie = 0;
            EXPECT_EQ(CoRegisterClassObject(id, &factory, CLSCTX_ALL, REGCLS_MULTIPLEUSE, &cookie), S_OK);
            CoUninitialize();
        }).join();
        EXPECT_EQ(factory.references, 2U);
        CoUninitialize();
        EXPECT_EQ(factory.references, 1U);
    }).join();
}

TEST(NativeSafeArray, ASizeThatNoMemoryHoldsGivesNull) {
    SAFEARRAYBOUND bounds[2] = {{0xFFFFFFFF, 0}, {0xFFFFFFFF, 0}};
    EXPECT_EQ(SafeArrayCreate(VT_VARIANT, 2, bounds), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_VARIANT, 1, bounds), nullptr);
    EXPECT_EQ(SafeArrayCreateVector(VT_RECORD, 0, 1), nullptr);
}

TEST(NativeSafeArray, ALockedArrayStaysInItsVariant) {
    VARIANT value = {};
    value.vt = VT_ARRAY | VT_I4;
    value.parray = SafeArrayCreateVector(VT_I4, 0, 1);
    SafeArrayLock(value.parray);
    EXPECT_EQ(VariantClear(&value), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(value.vt, VT_ARRAY | VT_I4);
    VARIANT other = {};
    EXPECT_EQ(VariantCopy(&value, &other), DISP_E_ARRAYISLOCKED);
    SafeArrayUnlock(value.parray);
    EXPECT_EQ(VariantClear(&value), S_OK);
}

TEST(NativeVariant, WhatIsNoNumberOverflows) {
    VARIANT source = {};
    source.vt = VT_R8;
    source.dblVal = std::numeric_limits<double>::quiet_NaN();
    for (const VARTYPE vt : {VT_I1, VT_I4, VT_I8, VT_UI8, VT_R4, VT_DATE}) {
        VARIANT result = {};
        EXPECT_EQ(VariantChangeType(&result, &source, 0, vt), DISP_E_OVERFLOW) << vt;
    }
}

TEST(NativeVariant, TheLastDoubleBelowTheEndFitsSixtyFourBits) {
    VARIANT source = {};
    source.vt = VT_R8;
    source.dblVal = 9223372036854774784.0;
    VARIANT result = {};
    ASSERT_EQ(VariantChangeType(&result, &source, 0, VT_I8), S_OK);
    EXPECT_EQ(result.llVal, 9223372036854774784LL);
    source.dblVal = -9223372036854775808.0;
    ASSERT_EQ(VariantChangeType(&result, &source, 0, VT_I8), S_OK);
    EXPECT_EQ(result.llVal, std::numeric_limits<LONGLONG>::min());
}

TEST(NativeVariant, DatesHaveNoTextForm) {
    VARIANT date = {};
    date.vt = VT_DATE;
    date.date = 45000;
    VARIANT text = {};
    EXPECT_EQ(VariantChangeType(&text, &date, 0, VT_BSTR), DISP_E_TYPEMISMATCH);
    text.vt = VT_BSTR;
    text.bstrVal = SysAllocString(L"45000");
    VARIANT result = {};
    EXPECT_EQ(VariantChangeType(&result, &text, 0, VT_DATE), DISP_E_TYPEMISMATCH);
    VariantClear(&text);
}

TEST(NativeBstrT, ASharedTextIsNotGivenAway) {
    _bstr_t none;
    EXPECT_THROW(none.Detach(), _com_error);
    _bstr_t text(L"shared");
    const _bstr_t copy(text);
    EXPECT_THROW(text.Detach(), _com_error);
    EXPECT_STREQ(static_cast<const wchar_t*>(text), L"shared");
}

TEST(NativeGuid, NullPlacesAreRefused) {
    GUID id = {};
    EXPECT_EQ(StringFromCLSID(id, nullptr), E_INVALIDARG);
    EXPECT_EQ(CLSIDFromString(L"{2686F9D2-457E-44E7-B656-9ABCC802D38A}", nullptr), E_INVALIDARG);
    EXPECT_EQ(CoCreateGuid(nullptr), E_INVALIDARG);
}

}  // namespace
