#include <gmock/gmock.h>

#include "OrderDeck.h"
#include "tests/module/component.h"

namespace {

using testing::UnorderedElementsAre;

TEST(Module, ExportsItsFiveEntryPointsAndNothingElse) {
    const test::component dll;
    EXPECT_THAT(dll.exports(), UnorderedElementsAre("DllMain", "DllCanUnloadNow", "DllGetClassObject",
                                                    "DllRegisterServer", "DllUnregisterServer"));
}

TEST(Module, AnswersTrueToEveryReasonButItsOwnStart) {
    const test::component dll;
    using entry_point = BOOL(WINAPI*)(HINSTANCE, DWORD, LPVOID);
    const auto main =
        reinterpret_cast<entry_point>(reinterpret_cast<void*>(GetProcAddress(dll.handle(), "DllMain")));
    ASSERT_NE(main, nullptr);
    for (const DWORD reason : {DLL_THREAD_ATTACH, DLL_THREAD_DETACH, DLL_PROCESS_DETACH}) {
        EXPECT_EQ(main(dll.handle(), reason, nullptr), TRUE) << reason;
    }
}

TEST(Module, ServesBarAndLookupAndRefusesAnyOtherClass) {
    const test::component dll;
    EXPECT_TRUE(dll.factory(test::clsid_order_deck));
    EXPECT_TRUE(dll.factory(__uuidof(LookupImpl)));
    void* out = &out;
    EXPECT_EQ(dll.get_class_object(CLSID_NULL, __uuidof(IClassFactory), &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(dll.get_class_object(test::clsid_order_deck, __uuidof(ISWUnifyAccess), &out), E_NOINTERFACE);
    EXPECT_EQ(dll.get_class_object(test::clsid_order_deck, __uuidof(IClassFactory), nullptr), E_POINTER);
}

TEST(Module, AllClientsShareOneBar) {
    const test::component dll;
    const com_ptr<IClassFactory> factory = dll.factory(test::clsid_order_deck);
    ASSERT_TRUE(factory);
    com_ptr<IUnknown> first;
    com_ptr<IUnknown> second;
    ASSERT_EQ(
        factory->CreateInstance(nullptr, __uuidof(IUnknown), static_cast<void**>(platform::receive(first))),
        S_OK);
    ASSERT_EQ(
        dll.factory(test::clsid_order_deck)
            ->CreateInstance(nullptr, __uuidof(IUnknown), static_cast<void**>(platform::receive(second))),
        S_OK);
    EXPECT_EQ(first, second);
}

TEST(Module, EachClientHasALookupServiceOfItsOwnThatKeepsTheModuleLoaded) {
    const test::component dll;
    const auto make = [&] {
        com_ptr<IOD_LookupImpl> lookup;
        EXPECT_EQ(dll.factory(__uuidof(LookupImpl))
                      ->CreateInstance(nullptr, __uuidof(IOD_LookupImpl),
                                       static_cast<void**>(platform::receive(lookup))),
                  S_OK);
        return lookup;
    };
    com_ptr<IOD_LookupImpl> first = make();
    com_ptr<IOD_LookupImpl> second = make();
    ASSERT_TRUE(first);
    EXPECT_NE(first, second);
    EXPECT_FALSE(platform::query<ISWUnifyAccess>(first));
    VARIANT_BOOL supported = VARIANT_FALSE;
    EXPECT_EQ(first->IsPluginSupported(_bstr_t(L"CQG-FIX"), &supported), S_OK);
    EXPECT_EQ(supported, VARIANT_TRUE);
    first.reset();
    EXPECT_EQ(dll.can_unload_now(), S_FALSE);
    second.reset();
    EXPECT_EQ(dll.can_unload_now(), S_OK);
}

TEST(Module, TheBarAnswersItsInterfacesWithOneIdentity) {
    const test::component dll;
    com_ptr<ISWUnifyAccess> bar;
    ASSERT_EQ(
        dll.factory(test::clsid_order_deck)
            ->CreateInstance(nullptr, __uuidof(ISWUnifyAccess), static_cast<void**>(platform::receive(bar))),
        S_OK);
    EXPECT_TRUE(platform::query<IOD_BrokerProfiles>(bar));
    EXPECT_TRUE(platform::query<ITC_ItemsChanged>(bar));
    EXPECT_TRUE(platform::query<IOD_OrderDeckDriver>(bar));
    EXPECT_TRUE(platform::query<IProvideClassInfo>(bar));
    EXPECT_EQ(platform::query<IUnknown>(bar),
              platform::query<IUnknown>(platform::query<IOD_OrderDeckDriver>(bar)));
    EXPECT_FALSE(platform::query<IOD_ProfileCmd>(bar));
}

TEST(Module, TheBarIsNoPartOfAnotherObject) {
    const test::component dll;
    const com_ptr<IClassFactory> factory = dll.factory(test::clsid_order_deck);
    void* out = &out;
    EXPECT_EQ(factory->CreateInstance(factory.get(), __uuidof(IUnknown), &out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);
}

TEST(Module, MayBeUnloadedWhenNobodyHoldsAnObjectOrALock) {
    const test::component dll;
    EXPECT_EQ(dll.can_unload_now(), S_OK);
    com_ptr<IClassFactory> factory = dll.factory(test::clsid_order_deck);
    ASSERT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(dll.can_unload_now(), S_FALSE);
    ASSERT_EQ(factory->LockServer(FALSE), S_OK);
    com_ptr<IUnknown> bar;
    ASSERT_EQ(
        factory->CreateInstance(nullptr, __uuidof(IUnknown), static_cast<void**>(platform::receive(bar))),
        S_OK);
    factory.reset();
    EXPECT_EQ(dll.can_unload_now(), S_FALSE);
    // The kept object alone does not hold the module.
    bar.reset();
    EXPECT_EQ(dll.can_unload_now(), S_OK);
}

TEST(Module, UpdateLayoutOfABarWithoutAWindowIsBlank) {
    const test::component dll;
    com_ptr<ISWUnifyAccess> bar;
    ASSERT_EQ(
        dll.factory(test::clsid_order_deck)
            ->CreateInstance(nullptr, __uuidof(ISWUnifyAccess), static_cast<void**>(platform::receive(bar))),
        S_OK);
    EXPECT_EQ(bar->UpdateLayout(), OLE_E_BLANK);
}

}  // namespace
