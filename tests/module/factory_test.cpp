// The class factories of the component.

#include <gmock/gmock.h>

#include <stdexcept>

#include "charting/orderdeck/module/GuardedFactory.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

using OV_OrderDeck::CGuardedFactory;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

// An object whose making throws as told.
class product : public platform::com_root<IRunnableObject> {
public:
    product() {
        if (failure) {
            failure();
        }
    }

    inline static std::function<void()> failure;

    STDMETHODIMP GetRunningClass(CLSID*) override { return E_NOTIMPL; }
    STDMETHODIMP Run(IBindCtx*) override { return S_OK; }
    STDMETHODIMP_(BOOL) IsRunning() override { return TRUE; }
    STDMETHODIMP LockRunning(BOOL, BOOL) override { return S_OK; }
    STDMETHODIMP SetContainedObject(BOOL) override { return S_OK; }
};

template <class Factory>
class FactoryTest : public testing::Test {
protected:
    FactoryTest() { product::failure = nullptr; }
    ~FactoryTest() override { product::failure = nullptr; }

    HRESULT make(com_ptr<IRunnableObject>& object) {
        return m_factory->CreateInstance(nullptr, __uuidof(IRunnableObject),
                                         static_cast<void**>(platform::receive(object)));
    }

    // The result of making an object, and of a failure the one trace of it.
    HRESULT make_failing(std::function<void()> failure) {
        product::failure = std::move(failure);
        m_reports.clear();
        com_ptr<IRunnableObject> object;
        const HRESULT hr = make(object);
        EXPECT_FALSE(object);
        return hr;
    }

    diagnostics_recorder m_reports;
    com_ptr<IClassFactory> m_factory{new platform::com_cached_object<CGuardedFactory<Factory>>};
};

using factories = testing::Types<platform::class_factory<product>, platform::singleton_factory<product>>;
TYPED_TEST_SUITE(FactoryTest, factories);

TYPED_TEST(FactoryTest, ReportsWhatTheMakingThrowsAndGivesItsResult) {
    EXPECT_EQ(this->make_failing([] { throw std::runtime_error("no window"); }), E_UNEXPECTED);
    ASSERT_THAT(this->m_reports.traces(), SizeIs(1));
    EXPECT_THAT(this->m_reports.traces()[0], StartsWith(L"std::exception - no window; FILE - "));
    EXPECT_EQ(this->make_failing([] { throw std::out_of_range("far"); }), E_INVALIDARG);
    ASSERT_THAT(this->m_reports.traces(), SizeIs(1));
    EXPECT_THAT(this->m_reports.traces()[0], StartsWith(L"std::out_of_range - far; FILE - "));
    EXPECT_EQ(this->make_failing([] { _com_issue_error(E_ACCESSDENIED); }), E_ACCESSDENIED);
    EXPECT_THAT(this->m_reports.traces(), SizeIs(1));
    EXPECT_EQ(this->make_failing([] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_THAT(this->m_reports.traces(), IsEmpty());
}

TYPED_TEST(FactoryTest, MakesAnObjectAfterAFailure) {
    this->make_failing([] { throw std::runtime_error("once"); });
    product::failure = nullptr;
    com_ptr<IRunnableObject> object;
    EXPECT_EQ(this->make(object), S_OK);
    EXPECT_TRUE(object);
}

TYPED_TEST(FactoryTest, RefusesToBePartOfAnotherObjectAndANullOutPointer) {
    void* out = this;
    EXPECT_EQ(this->m_factory->CreateInstance(this->m_factory.get(), __uuidof(IUnknown), &out),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(this->m_factory->CreateInstance(nullptr, __uuidof(IUnknown), nullptr), E_POINTER);
}

TYPED_TEST(FactoryTest, GivesAnInterfaceThatTheObjectHasAndNoOther) {
    com_ptr<IClassFactory> stranger;
    EXPECT_EQ(this->m_factory->CreateInstance(nullptr, __uuidof(IClassFactory),
                                              static_cast<void**>(platform::receive(stranger))),
              E_NOINTERFACE);
    EXPECT_FALSE(stranger);
}

TYPED_TEST(FactoryTest, LocksKeepTheModuleLoaded) {
    const LONG before = platform::module_lock_count();
    EXPECT_EQ(this->m_factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(platform::module_lock_count(), before + 1);
    EXPECT_EQ(this->m_factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(platform::module_lock_count(), before);
}

TYPED_TEST(FactoryTest, ObjectsInUseKeepTheModuleLoaded) {
    const LONG before = platform::module_lock_count();
    com_ptr<IRunnableObject> object;
    ASSERT_EQ(this->make(object), S_OK);
    EXPECT_EQ(platform::module_lock_count(), before + 1);
    object.reset();
    EXPECT_EQ(platform::module_lock_count(), before);
}

TEST(Factories, OfOneKindGiveEachClientItsOwnObjectAndOfTheOtherAllTheSame) {
    const auto two_are_one = [](IClassFactory& factory) {
        com_ptr<IUnknown> first;
        com_ptr<IUnknown> second;
        for (com_ptr<IUnknown>* const target : {&first, &second}) {
            EXPECT_EQ(factory.CreateInstance(nullptr, __uuidof(IUnknown),
                                             static_cast<void**>(platform::receive(*target))),
                      S_OK);
        }
        return first == second;
    };
    EXPECT_FALSE(two_are_one(*platform::make_com<CGuardedFactory<platform::class_factory<product>>>()));
    EXPECT_TRUE(two_are_one(*platform::make_com<CGuardedFactory<platform::singleton_factory<product>>>()));
}

}  // namespace
