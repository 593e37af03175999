#include <gmock/gmock.h>

#include <map>

#include "OrderDeck.h"
#include "platform/registry.h"
#include "tests/module/component.h"

namespace {

using platform::registry_key;

constexpr wchar_t classes[] = L"Software\\Classes";
constexpr wchar_t libid_text[] = L"{982CCCAA-CFD2-4374-B806-E4915078B52D}";
constexpr wchar_t clsid_text[] = L"{44B37A4C-17EF-4301-B05A-A54B611DB7C2}";
constexpr wchar_t lookup_clsid_text[] = L"{63AFE10E-1D65-4006-AA5E-AB090A2876F8}";

std::wstring value_of(const std::wstring& path, const wchar_t* name) {
    registry_key key;
    wchar_t text[512] = {};
    DWORD type = 0;
    DWORD bytes = sizeof(text) - sizeof(wchar_t);
    if (key.Open(HKEY_CLASSES_ROOT, path, KEY_READ) != ERROR_SUCCESS ||
        key.QueryValue(name, type, reinterpret_cast<BYTE*>(text), bytes) != ERROR_SUCCESS || type != REG_SZ) {
        return L"(none)";
    }
    return text;
}

// Every key below a key.
std::vector<std::wstring> all_keys(HKEY root, const std::wstring& path) {
    std::vector<std::wstring> result;
    registry_key key;
    if (key.Open(root, path, KEY_READ) != ERROR_SUCCESS) {
        return result;
    }
    for (DWORD index = 0;; ++index) {
        wchar_t name[257] = {};
        DWORD length = 257;
        if (key.EnumKey(index, name, length) != ERROR_SUCCESS) {
            return result;
        }
        const std::wstring child = path + L"\\" + name;
        result.push_back(child);
        for (const std::wstring& below : all_keys(root, child)) {
            result.push_back(below);
        }
    }
}

// What a registration may touch: the user's classes, and the machine's by kind.
std::vector<std::wstring> all_class_keys() {
    std::vector<std::wstring> result = all_keys(HKEY_CURRENT_USER, classes);
    for (const wchar_t* kind :
         {L"AppID", L"CLSID", L"TypeLib", L"OrderDeck.OrderDeckObj", L"OrderDeck.OrderDeckObj.1",
          L"OrderDeck.LookupImpl", L"OrderDeck.LookupImpl.1"}) {
        const std::vector<std::wstring> keys = all_keys(HKEY_CLASSES_ROOT, kind);
        result.insert(result.end(), keys.begin(), keys.end());
    }
    return result;
}

// Registered while it lives.
struct registered {
    explicit registered(const test::component& which) : dll(which), result(dll.register_server()) {}
    ~registered() { dll.unregister_server(); }
    const test::component& dll;
    HRESULT result;
};

TEST(Registration, NamesTheApplication) {
    const test::component dll;
    const registered registration(dll);
    ASSERT_EQ(registration.result, S_OK);
    EXPECT_EQ(value_of(std::wstring(L"AppID\\") + libid_text, L""), L"OrderDeck");
    EXPECT_EQ(value_of(L"AppID\\OrderDeck.DLL", L"AppID"), libid_text);
}

void expect_class(const test::component& dll, const std::wstring& id, const std::wstring& friendly_name,
                  const std::wstring& progid) {
    const std::wstring clsid = L"CLSID\\" + id;
    EXPECT_EQ(value_of(clsid, L""), friendly_name);
    EXPECT_EQ(value_of(clsid, L"AppID"), libid_text);
    EXPECT_EQ(value_of(clsid + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(value_of(clsid + L"\\ProgID", L""), progid + L".1");
    EXPECT_EQ(value_of(clsid + L"\\VersionIndependentProgID", L""), progid);
    EXPECT_EQ(value_of(progid + L".1\\CLSID", L""), id);
    EXPECT_EQ(value_of(progid + L"\\CLSID", L""), id);
    EXPECT_EQ(value_of(progid + L"\\CurVer", L""), progid + L".1");
    wchar_t module[MAX_PATH] = {};
    GetModuleFileNameW(dll.handle(), module, MAX_PATH);
    EXPECT_EQ(value_of(clsid + L"\\InprocServer32", L""), module);
}

TEST(Registration, NamesTheClassesTheirServerAndTheirProgIds) {
    const test::component dll;
    const registered registration(dll);
    ASSERT_EQ(registration.result, S_OK);
    expect_class(dll, clsid_text, L"COrderDeckObj Object", L"OrderDeck.OrderDeckObj");
    expect_class(dll, lookup_clsid_text, L"CLookupImpl Object", L"OrderDeck.LookupImpl");
}

TEST(Registration, LetsAHostCreateTheBarByClassAndLoadTheTypeLibrary) {
    const test::component dll;
    const registered registration(dll);
    ASSERT_EQ(registration.result, S_OK);
    com_ptr<ISWUnifyAccess> bar;
    ASSERT_EQ(CoCreateInstance(test::clsid_order_deck, nullptr, CLSCTX_INPROC_SERVER,
                               __uuidof(ISWUnifyAccess), static_cast<void**>(platform::receive(bar))),
              S_OK);
    constexpr GUID libid = {0x982cccaa, 0xcfd2, 0x4374, {0xb8, 0x06, 0xe4, 0x91, 0x50, 0x78, 0xb5, 0x2d}};
    com_ptr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(libid, 1, 0, LOCALE_NEUTRAL, platform::receive(library)), S_OK);
}

TEST(Registration, NamesTheFolderOfTheModuleAsThatOfTheHelp) {
    const test::component dll;
    const registered registration(dll);
    ASSERT_EQ(registration.result, S_OK);
    const std::wstring path = test::component::path();
    EXPECT_EQ(value_of(std::wstring(L"TypeLib\\") + libid_text + L"\\1.0\\HELPDIR", L""),
              path.substr(0, path.find_last_of(L'\\')));
}

TEST(Registration, LetsAClientCreateALookupServiceOfItsOwnByClassOrProgId) {
    const test::component dll;
    const registered registration(dll);
    ASSERT_EQ(registration.result, S_OK);
    CLSID id{};
    ASSERT_EQ(CLSIDFromProgID(L"OrderDeck.LookupImpl", &id), S_OK);
    EXPECT_TRUE(IsEqualCLSID(id, __uuidof(LookupImpl)));
    com_ptr<IOD_LookupImpl> first;
    com_ptr<IOD_LookupImpl> second;
    for (com_ptr<IOD_LookupImpl>* const lookup : {&first, &second}) {
        ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IOD_LookupImpl),
                                   static_cast<void**>(platform::receive(*lookup))),
                  S_OK);
    }
    EXPECT_NE(first, second);
}

TEST(Registration, LeavesNoKeyBehind) {
    const test::component dll;
    const std::vector<std::wstring> before = all_class_keys();
    ASSERT_EQ(dll.register_server(), S_OK);
    EXPECT_NE(all_class_keys(), before);
    ASSERT_EQ(dll.unregister_server(), S_OK);
    EXPECT_EQ(all_class_keys(), before);
}

TEST(Registration, MayBeRepeatedAndUndoneTwice) {
    const test::component dll;
    EXPECT_EQ(dll.register_server(), S_OK);
    EXPECT_EQ(dll.register_server(), S_OK);
    EXPECT_EQ(dll.unregister_server(), S_OK);
    EXPECT_EQ(dll.unregister_server(), S_OK);
}

TEST(Registration, KeepsTheLocaleOfTheThread) {
    const test::component dll;
    const LCID before = GetThreadLocale();
    ASSERT_TRUE(SetThreadLocale(MAKELCID(MAKELANGID(LANG_FRENCH, SUBLANG_FRENCH), SORT_DEFAULT)));
    const LCID french = GetThreadLocale();
    EXPECT_EQ(dll.register_server(), S_OK);
    EXPECT_EQ(GetThreadLocale(), french);
    EXPECT_EQ(dll.unregister_server(), S_OK);
    EXPECT_EQ(GetThreadLocale(), french);
    SetThreadLocale(before);
}

}  // namespace
