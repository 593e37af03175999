// How the module registers itself, seen from below: every operation on the registry, in order.

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "charting/orderdeck/module/OrderDeckModule.h"
#include "tests/module/component.h"
#include "tests/support/failing_registry.h"

namespace {

using platform::registry_key;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr wchar_t app_id[] = L"AppID\\{982CCCAA-CFD2-4374-B806-E4915078B52D}";
constexpr wchar_t bar_class[] = L"CLSID\\{44B37A4C-17EF-4301-B05A-A54B611DB7C2}";
constexpr wchar_t lookup_class[] = L"CLSID\\{63AFE10E-1D65-4006-AA5E-AB090A2876F8}";
constexpr wchar_t library_key[] = L"TypeLib\\{982CCCAA-CFD2-4374-B806-E4915078B52D}";
constexpr wchar_t users_classes[] = L"Software\\Classes\\";

bool exists(HKEY root, const std::wstring& path) {
    registry_key key;
    return key.Open(root, path, KEY_READ) == ERROR_SUCCESS;
}

class ModuleObject : public testing::Test {
protected:
    ModuleObject() { m_module.Attach(m_dll.handle()); }
    ~ModuleObject() override { m_module.UnregisterServer(); }

    // Of the classes, the application and the type library, which of them a call is about, in order; each
    // once.
    static std::vector<std::wstring> order_of(const std::vector<std::wstring>& calls,
                                              const std::wstring& operation) {
        std::vector<std::wstring> order;
        for (const std::wstring& call : calls) {
            for (const wchar_t* const part : {app_id, bar_class, lookup_class}) {
                if (call.rfind(operation + L" ", 0) == 0 && call.find(part) != std::wstring::npos &&
                    std::find(order.begin(), order.end(), part) == order.end()) {
                    order.emplace_back(part);
                }
            }
        }
        return order;
    }

    test::component m_dll;
    OV_OrderDeck::COrderDeckModule m_module;
};

TEST_F(ModuleObject, RegistersTheApplicationThenItsClassesForEverybody) {
    const failing_registry registry;
    EXPECT_EQ(m_module.RegisterServer(), S_OK);
    EXPECT_THAT(order_of(registry.calls(), L"create_key"), ElementsAre(app_id, bar_class, lookup_class));
    for (const std::wstring& call : registry.calls()) {
        EXPECT_EQ(call.find(users_classes), std::wstring::npos);
    }
}

TEST_F(ModuleObject, UnregistersItsClassesBeforeTheApplication) {
    ASSERT_EQ(m_module.RegisterServer(), S_OK);
    const failing_registry registry;
    EXPECT_EQ(m_module.UnregisterServer(), S_OK);
    std::vector<std::wstring> calls = registry.calls();
    std::erase_if(calls,
                  [](const std::wstring& call) { return call.find(users_classes) != std::wstring::npos; });
    EXPECT_EQ(order_of(calls, L"delete_tree").back(), app_id);
    EXPECT_EQ(order_of(calls, L"delete_tree").size(), 3U);
}

TEST_F(ModuleObject, AFailureStopsTheRegistrationThere) {
    {
        failing_registry registry;
        registry.fail("create_key", ERROR_DISK_FULL);
        EXPECT_EQ(m_module.RegisterServer(), HRESULT_FROM_WIN32(ERROR_DISK_FULL));
        EXPECT_EQ(registry.calls().size(), 1U);
    }
    EXPECT_FALSE(exists(HKEY_CLASSES_ROOT, library_key));
}

TEST_F(ModuleObject, AFailureStopsTheUnregistrationThere) {
    ASSERT_EQ(m_module.RegisterServer(), S_OK);
    {
        failing_registry registry;
        registry.fail("delete_tree", ERROR_DISK_FULL);
        EXPECT_EQ(m_module.UnregisterServer(), HRESULT_FROM_WIN32(ERROR_DISK_FULL));
    }
    EXPECT_TRUE(exists(HKEY_CLASSES_ROOT, app_id));
    EXPECT_FALSE(exists(HKEY_CLASSES_ROOT, library_key));
}

TEST_F(ModuleObject, WithoutTheRightsForEverybodyItRegistersForTheUser) {
    const std::wstring users = users_classes;
    {
        failing_registry registry;
        registry.fail("create_key", ERROR_ACCESS_DENIED, 1, 1);
        EXPECT_EQ(m_module.RegisterServer(), S_OK);
        EXPECT_THAT(order_of(registry.calls(), L"create_key"), ElementsAre(app_id, bar_class, lookup_class));
    }
    for (const wchar_t* const key : {app_id, bar_class, lookup_class}) {
        EXPECT_TRUE(exists(HKEY_CURRENT_USER, users + key));
    }
    EXPECT_EQ(m_module.UnregisterServer(), S_OK);
    for (const wchar_t* const key : {app_id, bar_class, lookup_class}) {
        EXPECT_FALSE(exists(HKEY_CURRENT_USER, users + key));
    }
}

TEST_F(ModuleObject, WithoutAnyRightsItIsRefused) {
    failing_registry registry;
    registry.fail("create_key", ERROR_ACCESS_DENIED);
    EXPECT_EQ(m_module.RegisterServer(), E_ACCESSDENIED);
    EXPECT_EQ(registry.calls().size(), 2U);
}

TEST_F(ModuleObject, WritesAndDeletesUnderTheLocaleOfTheSystem) {
    const LCID before = GetThreadLocale();
    ASSERT_TRUE(SetThreadLocale(MAKELCID(MAKELANGID(LANG_FRENCH, SUBLANG_FRENCH), SORT_DEFAULT)));
    ASSERT_NE(GetThreadLocale(), ConvertDefaultLocale(2048));
    std::vector<LCID> locales;
    {
        failing_registry registry;
        registry.before_change = [&] { locales.push_back(GetThreadLocale()); };
        EXPECT_EQ(m_module.RegisterServer(), S_OK);
        const std::size_t written = locales.size();
        EXPECT_EQ(m_module.UnregisterServer(), S_OK);
        EXPECT_GT(written, 0U);
        EXPECT_GT(locales.size(), written);
    }
    EXPECT_THAT(locales, Each(ConvertDefaultLocale(2048)));
    SetThreadLocale(before);
}

}  // namespace
