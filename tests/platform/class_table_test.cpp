#include <gtest/gtest.h>

#include <thread>

#include "platform/com.h"
#include "tests/platform/counted_object.h"

namespace {

using platform_tests::counted_object;

constexpr CLSID k_class = {0x7c1de1a3, 0x2a55, 0x4d0e, {0x9a, 0x5c, 0x3b, 0x1f, 0x60, 0x2d, 0x11, 0x07}};

class test_factory : public IClassFactory {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool known = IsEqualIID(iid, __uuidof(IUnknown)) || IsEqualIID(iid, __uuidof(IClassFactory));
        *out = known ? this : nullptr;
        if (known) {
            AddRef();
        }
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
        last_outer = outer;
        return outer != nullptr ? CLASS_E_NOAGGREGATION : object.QueryInterface(iid, out);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

    ULONG references = 1;
    IUnknown* last_outer = nullptr;
    counted_object object;
};

class ClassTable : public testing::Test {
protected:
    DWORD add() {
        DWORD cookie = 0;
        EXPECT_EQ(CoRegisterClassObject(k_class, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
                  S_OK);
        return cookie;
    }

    static HRESULT create(DWORD context, IUnknown*& made, IUnknown* outer = nullptr) {
        void* raw = &raw;
        const HRESULT hr = CoCreateInstance(k_class, outer, context, __uuidof(IUnknown), &raw);
        made = static_cast<IUnknown*>(raw);
        return hr;
    }

    test_factory factory;
};

TEST_F(ClassTable, AnUnknownClassIsNotRegistered) {
    IUnknown* made = nullptr;
    EXPECT_EQ(create(CLSCTX_INPROC_SERVER, made), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(CoCreateInstance(k_class, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown), nullptr),
              E_POINTER);
}

TEST_F(ClassTable, ARegisteredClassIsMadeByItsFactory) {
    const DWORD cookie = add();
    EXPECT_NE(cookie, 0U);
    EXPECT_EQ(factory.references, 2U);
    IUnknown* made = nullptr;
    EXPECT_EQ(create(CLSCTX_ALL, made), S_OK);
    EXPECT_EQ(made, &factory.object);
    EXPECT_EQ(factory.object.references, 2U);
    EXPECT_EQ(factory.references, 2U);
    made->Release();
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
    EXPECT_EQ(factory.references, 1U);
    EXPECT_EQ(create(CLSCTX_INPROC_SERVER, made), REGDB_E_CLASSNOTREG);
}

TEST_F(ClassTable, ContextsMustMeet) {
    const DWORD cookie = add();
    IUnknown* made = nullptr;
    EXPECT_EQ(create(CLSCTX_INPROC_HANDLER, made), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(create(CLSCTX_INPROC_SERVER, made), S_OK);
    made->Release();
    CoRevokeClassObject(cookie);
}

TEST_F(ClassTable, TheFactoryDecidesOnAggregation) {
    const DWORD cookie = add();
    counted_object outer;
    IUnknown* made = nullptr;
    EXPECT_EQ(create(CLSCTX_ALL, made, &outer), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory.last_outer, &outer);
    EXPECT_EQ(made, nullptr);
    CoRevokeClassObject(cookie);
}

TEST_F(ClassTable, TheFactoryItselfCanBeAskedFor) {
    const DWORD cookie = add();
    void* raw = nullptr;
    EXPECT_EQ(CoGetClassObject(k_class, CLSCTX_ALL, nullptr, __uuidof(IClassFactory), &raw), S_OK);
    EXPECT_EQ(raw, &factory);
    EXPECT_EQ(factory.references, 3U);
    factory.Release();
    EXPECT_EQ(CoGetClassObject(k_class, CLSCTX_ALL, nullptr, __uuidof(IClassFactory), nullptr), E_INVALIDARG);
    CoRevokeClassObject(cookie);
}

TEST_F(ClassTable, WrongArgumentsAreRefused) {
    DWORD cookie = 0;
    EXPECT_EQ(CoRegisterClassObject(k_class, nullptr, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
              E_INVALIDARG);
    EXPECT_EQ(CoRegisterClassObject(k_class, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, nullptr),
              E_INVALIDARG);
    EXPECT_EQ(CoRevokeClassObject(0x7FFF0001), E_INVALIDARG);
    EXPECT_EQ(factory.references, 1U);
}

TEST_F(ClassTable, OnlyTheApartmentThatRegisteredMayRevoke) {
    const DWORD cookie = add();
    std::thread([&] {
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        EXPECT_EQ(CoRevokeClassObject(cookie), RPC_E_WRONG_THREAD);
        CoUninitialize();
    }).join();
    EXPECT_EQ(factory.references, 2U);
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
}

TEST_F(ClassTable, RegistrationsEndWithTheirApartment) {
    std::thread([&] {
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        add();
        EXPECT_EQ(factory.references, 2U);
        CoUninitialize();
    }).join();
    EXPECT_EQ(factory.references, 1U);
}

TEST_F(ClassTable, NothingWorksWithoutAnApartment) {
    std::thread([&] {
        DWORD cookie = 0;
        IUnknown* made = nullptr;
        EXPECT_EQ(CoRegisterClassObject(k_class, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
                  CO_E_NOTINITIALIZED);
        EXPECT_EQ(create(CLSCTX_INPROC_SERVER, made), CO_E_NOTINITIALIZED);
        EXPECT_EQ(CoRevokeClassObject(1), CO_E_NOTINITIALIZED);
    }).join();
    EXPECT_EQ(factory.references, 1U);
}

class runnable_object : public IRunnableObject {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool known = IsEqualIID(iid, __uuidof(IUnknown)) || IsEqualIID(iid, __uuidof(IRunnableObject));
        *out = known ? this : nullptr;
        if (known) {
            AddRef();
        }
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    STDMETHODIMP GetRunningClass(CLSID*) override { return E_NOTIMPL; }
    STDMETHODIMP Run(IBindCtx*) override {
        ++runs;
        return result;
    }
    STDMETHODIMP_(BOOL) IsRunning() override { return TRUE; }
    STDMETHODIMP LockRunning(BOOL, BOOL) override { return S_OK; }
    STDMETHODIMP SetContainedObject(BOOL) override { return S_OK; }

    ULONG references = 1;
    int runs = 0;
    HRESULT result = S_OK;
};

TEST(OleRunOperation, AnObjectThatCannotBeStartedRuns) {
    counted_object object;
    EXPECT_EQ(OleRun(&object), S_OK);
    EXPECT_EQ(object.references, 1U);
}

TEST(OleRunOperation, StartsAnObjectAndHandsItsResultOn) {
    runnable_object object;
    EXPECT_EQ(OleRun(&object), S_OK);
    EXPECT_EQ(object.runs, 1);
    object.result = E_ACCESSDENIED;
    EXPECT_EQ(OleRun(&object), E_ACCESSDENIED);
    EXPECT_EQ(object.runs, 2);
    EXPECT_EQ(object.references, 1U);
}

}  // namespace
