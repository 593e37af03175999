// What hosts rely on in binary form: ids of interfaces and the order of their operations.
#include "tests/profile/command_fixture.h"

namespace {

using testing::ElementsAre;

template <class Interface>
bool has_id(const wchar_t* text) {
    IID id{};
    return SUCCEEDED(IIDFromString(text, &id)) && IsEqualIID(id, __uuidof(Interface));
}

// The operation in a slot of an object's table, counted from 0 for QueryInterface.
template <class Operation>
Operation slot(IUnknown* object, std::size_t index) {
    void** const table = *reinterpret_cast<void***>(object);
    return reinterpret_cast<Operation>(table[index]);
}

using no_argument = HRESULT(STDMETHODCALLTYPE*)(IUnknown*);
using text_out = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, BSTR*);
using bool_out = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, VARIANT_BOOL*);
using text_in = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, BSTR);

TEST(HostInterfaces, HaveTheirFixedIds) {
    EXPECT_TRUE(has_id<ITC_TradingProfile>(L"{2c49f165-339b-4924-a05d-88d6c3015823}"));
    EXPECT_TRUE(has_id<ITC_ManualTrading>(L"{82fcbcfa-d0af-4290-b5f5-c4c21a5dd310}"));
    EXPECT_TRUE(has_id<IOD_ProfileCmd>(L"{191b2211-9a3e-4385-8177-13ecc8385b5e}"));
    EXPECT_TRUE(has_id<IDisconnectConfirmer>(L"{7109a0b7-adce-463f-8a31-b5cf9e6bfb63}"));
    EXPECT_TRUE(has_id<IProfileEditor>(L"{af580cfe-30b3-4611-8914-095717f4261c}"));
    EXPECT_TRUE(has_id<symbol_mapping::ISymbolMapping>(L"{f1db3bca-9128-4009-b8f3-65902a1ce160}"));
}

TEST(HostInterfaces, HostClassesHaveTheirFixedIds) {
    const auto is = [](const CLSID& clsid, const wchar_t* text) {
        CLSID id{};
        return SUCCEEDED(CLSIDFromString(text, &id)) && IsEqualGUID(id, clsid);
    };
    EXPECT_TRUE(is(CLSID_TradingCenter, L"{cbf382c6-f391-4d87-8eb7-866434cc0d8c}"));
    EXPECT_TRUE(is(CLSID_DisconnectConfirmer, L"{f6f97e63-1e46-43c8-9fc1-eaf6399ffa2b}"));
    EXPECT_TRUE(is(CLSID_ProfileEditor, L"{f69b6f0c-191a-4b60-a610-d1f7b0be298e}"));
    EXPECT_TRUE(is(CLSID_SymbolMapping, L"{ae831e51-6bd2-48f9-97c8-c0368a01ccbb}"));
}

class InterfaceSlots : public test::command_test {};

TEST_F(InterfaceSlots, OfACommandAreExecuteExecuteExNameEnabledChecked) {
    const auto line = command(11);
    profile->have_settings = VARIANT_FALSE;
    EXPECT_EQ(slot<no_argument>(line.get(), 3)(line.get()), S_FALSE);
    EXPECT_EQ(host.count("get_HaveSettings"), 1);
    BSTR name = nullptr;
    EXPECT_EQ(slot<text_out>(line.get(), 5)(line.get(), &name), S_OK);
    EXPECT_EQ(platform::text_of(name), L"設定經紀商 Alpha");
    SysFreeString(name);
    wrap = platform::make_com<OV_OrderDeck::CProfileWrap>(profile.get());
    profile->have_settings = VARIANT_TRUE;
    const auto enabled_line = command(11);
    VARIANT_BOOL value = VARIANT_FALSE;
    EXPECT_EQ(slot<bool_out>(enabled_line.get(), 6)(enabled_line.get(), &value), S_OK);
    EXPECT_EQ(value, VARIANT_TRUE);
    EXPECT_EQ(slot<bool_out>(enabled_line.get(), 7)(enabled_line.get(), &value), S_OK);
    EXPECT_EQ(value, VARIANT_FALSE);
}

TEST_F(InterfaceSlots, OfAProfileStandInTheirOrder) {
    ITC_TradingProfile* const object = profile.get();
    BSTR text = nullptr;
    for (const std::size_t index : {3U, 4U, 11U}) {
        EXPECT_EQ(slot<text_out>(object, index)(object, &text), S_OK);
        SysFreeString(text);
    }
    slot<no_argument>(object, 6)(object);
    slot<no_argument>(object, 7)(object);
    VARIANT_BOOL have = VARIANT_FALSE;
    slot<bool_out>(object, 9)(object, &have);
    EXPECT_THAT(host.calls(),
                ElementsAre("Profile(\"Alpha\").get_Name()", "Profile(\"Alpha\").get_PluginName()",
                            "Profile(\"Alpha\").get_OuterID()", "Profile(\"Alpha\").Connect()",
                            "Profile(\"Alpha\").Disconnect()", "Profile(\"Alpha\").get_HaveSettings()"));
}

TEST_F(InterfaceSlots, OfManualTradingBeginWithTheAccount) {
    ITC_ManualTrading* const object = profile->trading.get();
    const _bstr_t account(L"A-1");
    EXPECT_EQ(slot<text_in>(object, 3)(object, account), S_OK);
    EXPECT_THAT(host.calls(), ElementsAre("ManualTrading(\"Alpha\").SetAccount(\"A-1\")"));
}

}  // namespace
