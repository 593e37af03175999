#include <gmock/gmock.h>

#include <set>

#include "OrderDeck.h"
#include "tests/module/component.h"

namespace {

com_ptr<ITypeLib> load() {
    com_ptr<ITypeLib> library;
    LoadTypeLibEx(test::component::path().c_str(), REGKIND_NONE, platform::receive(library));
    return library;
}

std::set<std::wstring> names_of(ITypeLib* library) {
    std::set<std::wstring> names;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        _bstr_t name;
        if (SUCCEEDED(library->GetDocumentation(static_cast<INT>(i), name.GetAddress(), nullptr, nullptr,
                                                nullptr))) {
            names.insert(static_cast<const wchar_t*>(name));
        }
    }
    return names;
}

TEST(TypeLibrary, IsTheFirstOfTheModuleAndNamedOrderDeckVersionOne) {
    const com_ptr<ITypeLib> library = load();
    ASSERT_TRUE(library);
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
    constexpr GUID libid = {0x982cccaa, 0xcfd2, 0x4374, {0xb8, 0x06, 0xe4, 0x91, 0x50, 0x78, 0xb5, 0x2d}};
    EXPECT_TRUE(IsEqualGUID(attributes->guid, libid));
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    library->ReleaseTLibAttr(attributes);
    _bstr_t name;
    ASSERT_EQ(library->GetDocumentation(-1, name.GetAddress(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_STREQ(static_cast<const wchar_t*>(name), L"OrderDeck");
}

TEST(TypeLibrary, HoldsInterfacesRecordsAndEnumerations) {
    const com_ptr<ITypeLib> library = load();
    ASSERT_TRUE(library);
    const std::set<std::wstring> names = names_of(library.get());
    for (const wchar_t* expected :
         {L"ISWUnifyAccess", L"IOD_BrokerProfiles", L"ITC_ItemsChanged", L"IOD_OrderDeckDriver",
          L"IOD_ProfileCmd", L"IOD_LookupImpl", L"IOD_LookupFilter", L"IBrokerSettings", L"OD_SSymbolInfo",
          L"OD_SSymbolReq", L"OD_LookupResult", L"ETM_ChangeTypeOfEvent"}) {
        EXPECT_EQ(names.count(expected), 1U) << testing::PrintToString(std::wstring(expected));
    }
}

TEST(TypeLibrary, TellsTheClassOfTheBar) {
    const test::component dll;
    com_ptr<IProvideClassInfo> bar;
    ASSERT_EQ(dll.factory(test::clsid_order_deck)
                  ->CreateInstance(nullptr, __uuidof(IProvideClassInfo),
                                   static_cast<void**>(platform::receive(bar))),
              S_OK);
    com_ptr<ITypeInfo> info;
    ASSERT_EQ(bar->GetClassInfo(platform::receive(info)), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, test::clsid_order_deck));
    info->ReleaseTypeAttr(attributes);
    EXPECT_EQ(bar->GetClassInfo(nullptr), E_POINTER);
}

}  // namespace
