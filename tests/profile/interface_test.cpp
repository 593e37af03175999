// What hosts rely on in binary form: ids of interfaces and the order of their operations.
#include "OrderDeck.h"
#include "tests/profile/command_fixture.h"
#include "tests/support/interface_order.h"

namespace {

using test::has_id;
using test::place;
using testing::ElementsAre;

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
    EXPECT_TRUE(has_id<ISWUnifyAccess>(L"{ae6fb339-1c79-44fc-bd93-3eb4b9f1531a}"));
    EXPECT_TRUE(has_id<IOD_BrokerProfiles>(L"{a853b1c7-94e5-4b4e-806b-51f64db190fa}"));
    EXPECT_TRUE(has_id<IOD_OrderDeckDriver>(L"{86b13c72-9902-432d-8afb-eb88afc2d043}"));
    EXPECT_TRUE(has_id<ITC_ItemsChanged>(L"{3dd2ce32-61b4-483c-a7f2-765bda9c5992}"));
    EXPECT_TRUE(has_id<SW::IOnCommand>(L"{ce906e25-1b6e-4776-99d4-b7c5fa810b1a}"));
    EXPECT_TRUE(has_id<ITC_TradingCenter>(L"{12657051-4a20-4f73-95c2-5993b24f82a0}"));
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

TEST(HostInterfaces, OperationsOfTheBarKeepTheirPlaces) {
    EXPECT_EQ(place(&ISWUnifyAccess::Create), 4U);
    EXPECT_EQ(place(&ISWUnifyAccess::Destroy), 5U);
    EXPECT_EQ(place(&ISWUnifyAccess::UpdateLayout), 6U);
    EXPECT_EQ(place(&IOD_BrokerProfiles::get_Commands), 4U);
    EXPECT_EQ(place(&IOD_BrokerProfiles::get_StatusLineString), 5U);
    EXPECT_EQ(place(&IOD_BrokerProfiles::OnClose), 6U);
    EXPECT_EQ(place(&ITC_ItemsChanged::OnItemChanged), 4U);
    EXPECT_EQ(place(&IOD_OrderDeckDriver::put_SymbolInfo), 4U);
    EXPECT_EQ(place(&IOD_OrderDeckDriver::get_SymbolInfo), 5U);
    EXPECT_EQ(place(&IOD_OrderDeckDriver::put_Account), 6U);
    EXPECT_EQ(place(&IOD_OrderDeckDriver::get_Account), 7U);
    EXPECT_EQ(place(&IOD_OrderDeckDriver::put_ActiveTab), 8U);
    EXPECT_EQ(place(&IOD_OrderDeckDriver::get_ActiveTab), 9U);
}

TEST(HostInterfaces, OperationsOfTheTradingCentreKeepTheirPlaces) {
    EXPECT_EQ(place(&ITC_TradingCenter::Prepare), 4U);
    EXPECT_EQ(place(&ITC_TradingCenter::get_TradingProfiles), 5U);
    EXPECT_EQ(place(&ITC_TradingCenter::get_MasterCounter), 6U);
    EXPECT_EQ(place(&ITC_TradingProfileS::get_Items), 4U);
    EXPECT_EQ(place(&ITC_TradingProfileS::get_AvailablePlugins), 5U);
    EXPECT_EQ(place(&ITC_TradingProfileS::Add), 6U);
}

TEST(HostInterfaces, OperationsOfAProfileKeepTheirPlaces) {
    EXPECT_EQ(place(&ITC_TradingProfile::get_Name), 4U);
    EXPECT_EQ(place(&ITC_TradingProfile::get_PluginName), 5U);
    EXPECT_EQ(place(&ITC_TradingProfile::get_ManualTrading), 6U);
    EXPECT_EQ(place(&ITC_TradingProfile::Connect), 7U);
    EXPECT_EQ(place(&ITC_TradingProfile::Disconnect), 8U);
    EXPECT_EQ(place(&ITC_TradingProfile::ShowSettings), 9U);
    EXPECT_EQ(place(&ITC_TradingProfile::get_HaveSettings), 10U);
    EXPECT_EQ(place(&ITC_TradingProfile::get_ConnectionState), 11U);
    EXPECT_EQ(place(&ITC_TradingProfile::get_OuterID), 12U);
    EXPECT_EQ(place(&ITC_ManualTrading::SetAccount), 4U);
    EXPECT_EQ(place(&ITC_ManualTrading::GetAccounts), 5U);
    EXPECT_EQ(place(&ITC_ManualTrading::PlaceOrder), 6U);
    EXPECT_EQ(place(&ITC_ManualTrading::SetSymbol), 7U);
    EXPECT_EQ(place(&ITC_ManualTrading::GetTimeInForces), 8U);
    EXPECT_EQ(place(&ITC_TradingProfileDataChange::OnQuote), 4U);
    EXPECT_EQ(place(&ITC_TradingProfileDataChange::OnConnectionState), 5U);
    EXPECT_EQ(place(&ITC_TradingProfileDataChange::OnTradingAllowed), 6U);
    EXPECT_EQ(place(&ITC_TradingProfileDataChange::OnStatusText), 7U);
}

// Hosts send these numbers.
static_assert(eTM_CC_Disconnected == 0x100 && eTM_CC_Connecting == 0x200 && eTM_CC_Connected == 0x300);

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
