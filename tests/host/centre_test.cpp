#include "centre/trading_centre.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <olectl.h>

#include "centre_fixture.h"

namespace host {
namespace {

using ::testing::ElementsAre;

class HostCentre : public ::testing::Test {
protected:
    ref<ITC_ManualTrading> trading(profile& one) {
        ITC_ManualTrading* raw = nullptr;
        EXPECT_EQ(one.get_ManualTrading(&raw), S_OK);
        return ref<ITC_ManualTrading>(raw, false);
    }

    DWORD advise(IConnectionPointContainer& source, REFIID events, IUnknown* sink) {
        IConnectionPoint* point = nullptr;
        EXPECT_EQ(source.FindConnectionPoint(events, &point), S_OK);
        DWORD cookie = 0;
        EXPECT_EQ(point->Advise(sink, &cookie), S_OK);
        point->Release();
        return cookie;
    }

    HRESULT set_symbol(profile& one, std::string_view name) {
        const bstr text(name);
        SManualSymbol symbol{};
        symbol.Name = text;
        return trading(one)->SetSymbol(&symbol, bstr(data_feed));
    }

    HRESULT place(profile& one, LONG quantity) {
        VARIANT date{};
        date.vt = VT_DATE;
        date.date = 46346.0;
        return trading(one)->PlaceOrder(eMTPA_OA_Buy, eMTPA_OC_Market, quantity, 0.0, 0.0, eMTPA_TIF_Day,
                                        &date);
    }

    paper_world m_world;
};

TEST_F(HostCentre, AProfileWithNoDelayStartsConnectedTheOtherDoesNot) {
    ETM_ConnectionChanged state{};
    EXPECT_EQ(m_world.instant().get_ConnectionState(&state), S_OK);
    EXPECT_EQ(state, eTM_CC_Connected);
    EXPECT_EQ(m_world.remote().get_ConnectionState(&state), S_OK);
    EXPECT_EQ(state, eTM_CC_Disconnected);
}

TEST_F(HostCentre, ConnectingGoesThroughTheStateInBetween) {
    const auto sink = make<recorder>();
    advise(m_world.remote(), __uuidof(ITC_TradingProfileDataChange), sink.get());
    EXPECT_EQ(m_world.remote().Connect(), S_OK);
    EXPECT_EQ(m_world.remote().Connect(), S_OK);
    EXPECT_THAT(sink->states, ElementsAre(512));
    EXPECT_THAT(m_world.later.delays(), ElementsAre(1500u));
    m_world.later.run();
    EXPECT_THAT(sink->states, ElementsAre(512, 768));
    EXPECT_EQ(m_world.remote().Disconnect(), S_OK);
    EXPECT_EQ(m_world.remote().Disconnect(), S_OK);
    EXPECT_THAT(sink->states, ElementsAre(512, 768, 256));
}

TEST_F(HostCentre, AConnectionThatWasGivenUpDoesNotComeUp) {
    m_world.remote().Connect();
    m_world.remote().Disconnect();
    m_world.later.run();
    EXPECT_EQ(m_world.remote().state(), eTM_CC_Disconnected);

    m_world.remote().Connect();
    m_world.remote().Disconnect();
    m_world.remote().Connect();
    EXPECT_EQ(m_world.later.delays().size(), 2u);
    m_world.later.run();
    EXPECT_EQ(m_world.remote().state(), eTM_CC_Connected);
}

TEST_F(HostCentre, AccountsAreKnownWhileConnected) {
    SAFEARRAY* accounts = nullptr;
    ASSERT_EQ(trading(m_world.instant())->GetAccounts(&accounts), S_OK);
    array_ptr known(accounts);
    EXPECT_EQ(known->rgsabound[0].cElements, 3u);
    ASSERT_EQ(trading(m_world.remote())->GetAccounts(&accounts), S_OK);
    array_ptr none(accounts);
    EXPECT_EQ(none->rgsabound[0].cElements, 0u);
}

TEST_F(HostCentre, TimesInForceFollowTheCategory) {
    SAFEARRAY* codes = nullptr;
    ASSERT_EQ(trading(m_world.instant())->GetTimeInForces(eMTPA_OC_Market, &codes), S_OK);
    array_ptr kept(codes);
    LONG* data = nullptr;
    ASSERT_EQ(SafeArrayAccessData(codes, reinterpret_cast<void**>(&data)), S_OK);
    EXPECT_THAT(std::vector<LONG>(data, data + codes->rgsabound[0].cElements), ElementsAre(1, 4, 5));
    SafeArrayUnaccessData(codes);
}

TEST_F(HostCentre, AQuoteFollowsTheSymbolLaterAndNeverWithinTheCall) {
    const auto sink = make<recorder>();
    advise(m_world.instant(), __uuidof(ITC_TradingProfileDataChange), sink.get());
    EXPECT_EQ(set_symbol(m_world.instant(), "ESZ6"), S_OK);
    EXPECT_TRUE(sink->quotes.empty());
    m_world.later.run();
    EXPECT_THAT(sink->quotes, ElementsAre(std::pair(6021.25, 6021.5)));
}

TEST_F(HostCentre, NoQuoteWithoutSymbolOrConnection) {
    const auto sink = make<recorder>();
    advise(m_world.instant(), __uuidof(ITC_TradingProfileDataChange), sink.get());
    m_world.all->push_quotes();
    EXPECT_EQ(set_symbol(m_world.instant(), "no such"), E_INVALIDARG);
    m_world.all->push_quotes();
    EXPECT_EQ(set_symbol(m_world.instant(), "ESZ6"), S_OK);
    EXPECT_EQ(set_symbol(m_world.instant(), ""), S_OK);
    m_world.all->push_quotes();
    EXPECT_EQ(set_symbol(m_world.instant(), "ESZ6"), S_OK);
    m_world.instant().Disconnect();
    m_world.all->push_quotes();
    EXPECT_TRUE(sink->quotes.empty());
}

TEST_F(HostCentre, AnOrderGoesOutForTheAccountAndSymbolLastSet) {
    trading(m_world.instant())->SetAccount(bstr("DEMO-102"));
    set_symbol(m_world.instant(), "ESZ6");
    EXPECT_EQ(place(m_world.instant(), 1), S_OK);
    ASSERT_EQ(m_world.paper->orders().size(), 1u);
    const order& placed = m_world.paper->orders()[0];
    EXPECT_EQ(placed.request.account, "DEMO-102");
    EXPECT_EQ(placed.request.profile, "Paper");
    EXPECT_EQ(placed.request.instrument_id, 6);
    EXPECT_EQ(placed.status, order_status::filled);
}

TEST_F(HostCentre, AnOrderKeepsWhatItsUserSaw) {
    set_symbol(m_world.instant(), "ESZ6");
    const auto paper = trading(m_world.instant());
    ITC_OrderSight* receiver = nullptr;
    ASSERT_EQ(paper->QueryInterface(__uuidof(ITC_OrderSight), reinterpret_cast<void**>(&receiver)), S_OK);
    const ref<ITC_OrderSight> held(receiver, false);
    const bstr symbol("ESZ6");
    const bstr quantity("1.5K");
    SOrderSight sight = {};
    sight.Number = 31;
    sight.Source = eODPS_Key;
    sight.SymbolText = symbol;
    sight.QuantityText = quantity;
    EXPECT_EQ(held->BeforeOrder(&sight), S_OK);
    place(m_world.instant(), 1);
    EXPECT_EQ(held->AfterOrder(31, S_OK), S_OK);
    place(m_world.instant(), 1);
    const std::vector<order>& orders = m_world.paper->orders();
    ASSERT_EQ(orders.size(), 2u);
    ASSERT_TRUE(orders[0].request.seen.has_value());
    EXPECT_EQ(orders[0].request.seen->number, 31);
    EXPECT_EQ(orders[0].request.seen->source, press_source::key);
    EXPECT_EQ(sight_text(*orders[0].request.seen), "ESZ6 | 1.5K");
    EXPECT_FALSE(orders[1].request.seen.has_value()) << "it belongs to one order";
    EXPECT_EQ(held->BeforeOrder(nullptr), E_POINTER);
}

TEST_F(HostCentre, ARejectedOrderWasRoutedAllTheSame) {
    trading(m_world.instant())->SetAccount(bstr("nobody"));
    set_symbol(m_world.instant(), "ESZ6");
    EXPECT_EQ(place(m_world.instant(), 1), S_OK);
    EXPECT_EQ(m_world.paper->orders()[0].reason, "Unknown account");
}

TEST_F(HostCentre, NoOrderWithoutAConnectionOrADate) {
    EXPECT_EQ(place(m_world.remote(), 1), E_FAIL);
    VARIANT empty{};
    const auto remote = trading(m_world.remote());
    EXPECT_EQ(remote->PlaceOrder(eMTPA_OA_Buy, eMTPA_OC_Market, 1, 0, 0, 1, &empty), E_INVALIDARG);
    EXPECT_EQ(remote->PlaceOrder(eMTPA_OA_Buy, eMTPA_OC_Market, 1, 0, 0, 1, nullptr), E_INVALIDARG);
    EXPECT_TRUE(m_world.paper->orders().empty());
    EXPECT_EQ(m_world.events.back(), "Refused: Buy 1 ? Market DAY. Paper Remote is not connected");
}

TEST_F(HostCentre, TextsOfAProfile) {
    BSTR text = nullptr;
    m_world.remote().get_Name(&text);
    EXPECT_EQ(take(text), "Paper Remote");
    m_world.remote().get_PluginName(&text);
    EXPECT_EQ(take(text), "OrderDeck Paper Remote");
    m_world.remote().get_OuterID(&text);
    EXPECT_EQ(take(text), "orderdeck-paper-2");
    EXPECT_EQ(m_world.remote().get_Name(nullptr), E_POINTER);
    VARIANT_BOOL has = 0;
    EXPECT_EQ(m_world.remote().get_HaveSettings(&has), S_OK);
    EXPECT_EQ(has, VARIANT_TRUE);
}

TEST_F(HostCentre, SettingsAreShownOnTheirOwner) {
    EXPECT_EQ(m_world.remote().ShowSettings(0x123), S_OK);
    ASSERT_EQ(m_world.shown.size(), 1u);
    EXPECT_EQ(m_world.shown[0].first, reinterpret_cast<HWND>(0x123));
    EXPECT_EQ(m_world.shown[0].second, default_profiles().profiles[1]);
}

TEST_F(HostCentre, AcceptedSettingsHoldAndAreToldButIdNameAndBrokerStay) {
    int changes = 0;
    m_world.all->on_change = [&] { ++changes; };
    m_world.edit = [](profile_record& settings) {
        settings = {"x", "y", "z", {"A", "乙"}, 40, 100};
        return true;
    };
    EXPECT_EQ(m_world.remote().ShowSettings(0), S_OK);
    EXPECT_EQ(changes, 1);
    const profile_record expected{
        "orderdeck-paper-2", "Paper Remote", "OrderDeck Paper Remote", {"A", "乙"}, 40, 100};
    EXPECT_EQ(m_world.all->list().profiles[1], expected);
    m_world.remote().Connect();
    EXPECT_THAT(m_world.later.delays(), ElementsAre(40u));
    m_world.later.run();
    trading(m_world.remote())->SetAccount(bstr("A"));
    set_symbol(m_world.remote(), "ESZ6");
    EXPECT_EQ(place(m_world.remote(), 1), S_OK);
    EXPECT_EQ(m_world.paper->orders().at(0).reason, "Rejected by the broker");
}

TEST_F(HostCentre, RefusedSettingsChangeNothing) {
    int changes = 0;
    m_world.all->on_change = [&] { ++changes; };
    m_world.edit = [](profile_record& settings) {
        settings.accounts = {"A"};
        return false;
    };
    m_world.remote().ShowSettings(0);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(m_world.all->list(), default_profiles());
}

class item_recorder : public object<ITC_ItemsChanged> {
public:
    STDMETHODIMP OnItemChanged(ETM_ChangeTypeOfEvent kind, SAFEARRAY* items) noexcept override {
        kinds.push_back(kind);
        for (const ref<IUnknown>& one : read_objects(items)) {
            BSTR text = nullptr;
            query<ITC_TradingProfile>(one.get())->get_Name(&text);
            seen.emplace_back(kind, take(text));
        }
        return S_OK;
    }
    std::vector<int> kinds;
    std::vector<std::pair<int, std::string>> seen;
};

TEST_F(HostCentre, AddingAndRemovingProfilesIsTold) {
    const auto sink = make<item_recorder>();
    advise(*m_world.all, __uuidof(ITC_ItemsChanged), sink.get());
    EXPECT_EQ(m_world.all->Add(bstr("OrderDeck Paper"), bstr("Paper")), S_OK);
    EXPECT_EQ(m_world.all->Add(bstr("Nobody"), bstr("Paper")), E_INVALIDARG);
    EXPECT_TRUE(m_world.all->remove("orderdeck-paper-1"));
    EXPECT_FALSE(m_world.all->remove("orderdeck-paper-1"));
    EXPECT_THAT(sink->seen,
                ElementsAre(std::pair(1, std::string("Paper 2")), std::pair(2, std::string("Paper"))));
    SAFEARRAY* items = nullptr;
    ASSERT_EQ(m_world.all->get_Items(&items), S_OK);
    EXPECT_EQ(array_ptr(items)->rgsabound[0].cElements, 2u);
}

TEST_F(HostCentre, ARenameIsToldAsAnUpdateAndTakesTheOrdersAlong) {
    trading(m_world.instant())->SetAccount(bstr("DEMO-101"));
    set_symbol(m_world.instant(), "ESZ6");
    place(m_world.instant(), 1);
    const auto sink = make<item_recorder>();
    advise(*m_world.all, __uuidof(ITC_ItemsChanged), sink.get());
    EXPECT_TRUE(m_world.all->rename("orderdeck-paper-1", "新"));
    EXPECT_FALSE(m_world.all->rename("orderdeck-paper-1", ""));
    EXPECT_FALSE(m_world.all->rename("orderdeck-paper-1", "Paper Remote"));
    EXPECT_FALSE(m_world.all->rename("orderdeck-paper-9", "Other"));
    EXPECT_THAT(sink->seen, ElementsAre(std::pair(3, std::string("新"))));
    EXPECT_EQ(m_world.paper->orders().at(0).request.profile, "新");
}

TEST_F(HostCentre, AMoveIsToldAndStopsAtTheEnds) {
    const auto sink = make<item_recorder>();
    advise(*m_world.all, __uuidof(ITC_ItemsChanged), sink.get());
    EXPECT_FALSE(m_world.all->move("orderdeck-paper-1", -1));
    EXPECT_FALSE(m_world.all->move("orderdeck-paper-2", 1));
    EXPECT_FALSE(m_world.all->move("orderdeck-paper-9", 1));
    EXPECT_TRUE(m_world.all->move("orderdeck-paper-1", 1));
    EXPECT_THAT(sink->seen, ElementsAre(std::pair(7, std::string("Paper"))));
    EXPECT_EQ(m_world.all->items()[0]->shared().name, "Paper Remote");
    EXPECT_TRUE(m_world.all->move("orderdeck-paper-1", -1));
    EXPECT_EQ(m_world.all->items()[0]->shared().name, "Paper");
}

TEST_F(HostCentre, AReloadIsItsStartAndItsEnd) {
    const auto sink = make<item_recorder>();
    advise(*m_world.all, __uuidof(ITC_ItemsChanged), sink.get());
    m_world.all->reload();
    EXPECT_THAT(sink->kinds, ElementsAre(5, 4));
    EXPECT_TRUE(sink->seen.empty());
}

TEST_F(HostCentre, AfterAReloadNothingIsQuotedUntilASymbolIsSet) {
    set_symbol(m_world.instant(), "ESZ6");
    m_world.later.run();
    const auto sink = make<recorder>();
    advise(m_world.instant(), __uuidof(ITC_TradingProfileDataChange), sink.get());
    m_world.all->reload();
    m_world.all->push_quotes();
    EXPECT_TRUE(sink->quotes.empty());
    set_symbol(m_world.instant(), "ESZ6");
    m_world.all->push_quotes();
    EXPECT_EQ(sink->quotes.size(), 1u);
}

TEST_F(HostCentre, RemovingAllDisconnectsThemAndIsToldOnce) {
    const auto sink = make<item_recorder>();
    advise(*m_world.all, __uuidof(ITC_ItemsChanged), sink.get());
    const ref<profile> kept(&m_world.instant());
    m_world.all->remove_all();
    EXPECT_THAT(sink->kinds, ElementsAre(6));
    EXPECT_TRUE(m_world.all->items().empty());
    EXPECT_EQ(kept->state(), eTM_CC_Disconnected);
}

TEST_F(HostCentre, EveryChangeOfTheListIsToldToWhoeverKeepsItAndNoNumberIsUsedTwice) {
    std::vector<std::size_t> sizes;
    m_world.all->on_change = [&] { sizes.push_back(m_world.all->list().profiles.size()); };
    m_world.all->remove("orderdeck-paper-2");
    m_world.all->Add(bstr("OrderDeck Paper"), bstr("New"));
    m_world.all->rename("orderdeck-paper-3", "Newer");
    m_world.all->move("orderdeck-paper-3", -1);
    EXPECT_THAT(sizes, ElementsAre(1u, 2u, 2u, 2u));
    EXPECT_EQ(m_world.all->list().last_number, 3);
    EXPECT_EQ(m_world.all->list().profiles[0].name, "Newer");
    EXPECT_EQ(m_world.all->find("orderdeck-paper-3"), m_world.all->items()[0].get());
    EXPECT_EQ(m_world.all->find("orderdeck-paper-2"), nullptr);
}

TEST_F(HostCentre, TheMasterCounterCountsTheCentresInUse) {
    LONG masters = 0;
    const auto first = make<trading_centre>(m_world.all, masters);
    LONG count = 0;
    EXPECT_EQ(first->get_MasterCounter(&count), S_OK);
    EXPECT_EQ(count, 1);
    {
        const auto second = make<trading_centre>(m_world.all, masters);
        first->get_MasterCounter(&count);
        EXPECT_EQ(count, 2);
    }
    first->get_MasterCounter(&count);
    EXPECT_EQ(count, 1);
}

TEST_F(HostCentre, ProfilesAreGivenAfterPrepareOnly) {
    LONG masters = 0;
    const auto centre = make<trading_centre>(m_world.all, masters);
    ITC_TradingProfileS* given = nullptr;
    EXPECT_EQ(centre->get_TradingProfiles(&given), E_UNEXPECTED);
    EXPECT_EQ(centre->Prepare(0), E_INVALIDARG);
    EXPECT_EQ(centre->Prepare(-1), S_OK);
    ASSERT_EQ(centre->get_TradingProfiles(&given), S_OK);
    EXPECT_EQ(given, static_cast<ITC_TradingProfileS*>(m_world.all.get()));
    given->Release();
}

}  // namespace
}  // namespace host
