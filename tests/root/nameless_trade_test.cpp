// A bar in a program whose version block leaves out its company or its product: no place for settings, so no
// plug-in has a data feed; its user trades all the same.

#include "charting/orderdeck/interface/IUnifyControl.h"
#include "tests/root/root_fixture.h"

namespace {

using namespace OV_OrderDeck;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class NamelessTrade : public testing::Test, protected test::root_host {
protected:
    NamelessTrade() {
        profile = add_profile(L"Alpha");
        profile->plugin = L"CQG-FIX";
        profile->state = eTM_CC_Connected;
        profile->trading->accounts = {L"A1"};
        for (LONG category = 1; category <= 4; ++category) {
            profile->trading->times_in_force[category] = {1, 2};
        }
    }

    // The bar with its one tab, as after the host's first look at its menu.
    void dock() {
        ASSERT_EQ(create(), S_OK);
        SAFEARRAY* commands = nullptr;
        ASSERT_EQ(root->get_Commands(&commands), S_OK);
        SafeArrayDestroy(commands);
        ASSERT_EQ(bar().get_TabCount(), 1);
        bar().selected = bar().get_TabInfos().begin()->first;
        take_assertions();
        host.clear();
    }

    IUnifyControl& field(OD_UpdateEntity entity) { return *bar().get_CurTab()->get_Control(entity); }
    void type(OD_UpdateEntity entity, const wchar_t* text) { field(entity).put_Value(_variant_t(text)); }

    com_ptr<test::FakeProfile> profile;
};

TEST_F(NamelessTrade, SendsOrdersForATypedSymbolThatHasNoFeed) {
    dock();
    type(eODUE_Symbol, L"TXF");
    EXPECT_THAT(host.calls(), Contains("ManualTrading(\"Alpha\").SetSymbol(\"TXF\", \"\")"));
    type(eODUE_Quantity, L"10");
    field(eODUE_Buy).Select(0);
    ASSERT_EQ(profile->trading->orders.size(), 1u);
    EXPECT_EQ(profile->trading->orders[0].action, eMTPA_OA_Buy);
    EXPECT_EQ(profile->trading->orders[0].category, eMTPA_OC_Market);
    EXPECT_EQ(profile->trading->orders[0].quantity, 10);

    field(eODUE_OrderType).Select(eMTPA_OC_Limit);
    type(eODUE_SecondPrice, L"90");
    field(eODUE_Sell).Select(0);
    ASSERT_EQ(profile->trading->orders.size(), 2u);
    EXPECT_EQ(profile->trading->orders[1].action, eMTPA_OA_Sell);
    EXPECT_EQ(profile->trading->orders[1].category, eMTPA_OC_Limit);
    EXPECT_EQ(profile->trading->orders[1].limit_price, 90.0);
    EXPECT_THAT(desktop.message_boxes(), IsEmpty());
}

TEST_F(NamelessTrade, SendsOrdersForASymbolOfTheHosts) {
    dock();
    OD_SSymbolInfo info{};
    const _bstr_t name(L"ESZ6");
    info.Name = name.copy(false);
    info.PriceScaleCode = 2;
    info.MinMovement = 25.0;
    const _bstr_t id = profile->outer_id.c_str();
    EXPECT_EQ(root->put_SymbolInfo(id.copy(false), &info), S_OK);
    EXPECT_THAT(host.calls(), Contains("ManualTrading(\"Alpha\").SetSymbol(\"ESZ6\", \"\")"));
    type(eODUE_Quantity, L"3");
    field(eODUE_Sell).Select(0);
    ASSERT_EQ(profile->trading->orders.size(), 1u);
    EXPECT_EQ(profile->trading->orders[0].quantity, 3);
}

TEST_F(NamelessTrade, WritesNothingForAProgramWithoutAPlace) {
    dock();
    type(eODUE_Symbol, L"TXF");
    profile->fire_state(eTM_CC_Disconnected);
    host.clear();
    take_assertions();
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_THAT(take_calls("Serialize"), IsEmpty());
    EXPECT_THAT(take_assertions(), ElementsAre("sPath.GetLength() > 0"));
}

}  // namespace
