#include <boost/weak_ptr.hpp>

#include "tests/root/root_fixture.h"
#include "tests/support/last_words.h"

namespace {

using test::root_test;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// A centre that has to be run before use.
class running_center : public test::FakeRunnable<ITC_TradingCenter> {
public:
    explicit running_center(test::fake_host host) : FakeRunnable(std::move(host), "Center") {}

    STDMETHODIMP Prepare(LONG) override { return m_host.enter(m_kind, {}, "Prepare").hr; }
    STDMETHODIMP get_TradingProfiles(ITC_TradingProfileS**) override { return E_FAIL; }
    STDMETHODIMP get_MasterCounter(LONG*) override { return E_FAIL; }
};

class FillTest : public root_test {
protected:
    FillTest() { EXPECT_EQ(create(), S_OK); }
    HRESULT demand() { return root->put_ActiveTab(nullptr); }

    // What the assertions carried.
    std::vector<std::optional<HRESULT>> results() const {
        std::vector<std::optional<HRESULT>> all;
        for (const auto& assertion : reports.assertions()) {
            all.push_back(assertion.hresult);
        }
        return all;
    }
};

TEST_F(FillTest, AFirstDemandConnectsInOrder) {
    add_profile(L"Alpha");
    host.clear();
    ASSERT_EQ(demand(), S_OK);
    const std::vector<std::string> calls = host.calls();
    std::vector<std::string> frame;
    for (const std::string& call : calls) {
        if (call.find("Class(") == 0 || call.find("Center.") == 0 || call.find("Profiles.") == 0 ||
            call.find("ProfilesEvents.") == 0 || call.find("Bar.") == 0) {
            frame.push_back(call);
        }
    }
    EXPECT_THAT(frame, ElementsAre("Class(\"TradingCenter\").CreateInstance()", "Center.Prepare(-1)",
                                   "Center.get_TradingProfiles()", "Profiles.get_Items()",
                                   "Bar.AddTab(\"Alpha\", silent)", "Profiles.FindConnectionPoint()",
                                   "ProfilesEvents.Advise(1)", "Bar.Show(true)"));
    EXPECT_THAT(take_assertions(), IsEmpty());
}

TEST_F(FillTest, TheSharedDataHoldsCentreAndCollectionAfterwards) {
    ASSERT_EQ(demand(), S_OK);
    OV_OrderDeck::CGlobalData global;
    EXPECT_EQ(global->get_Center().get(), center.get());
    EXPECT_EQ(global->get_Profiles().get(), center->profiles.get());
}

TEST_F(FillTest, ASecondDemandAsksNothing) {
    ASSERT_EQ(demand(), S_OK);
    host.clear();
    ASSERT_EQ(demand(), S_OK);
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(FillTest, AMissingClassGivesItsResultAndIsNotTriedAgain) {
    center_class.reset();
    EXPECT_EQ(demand(), REGDB_E_CLASSNOTREG);
    EXPECT_THAT(tab_names(), IsEmpty());
    host.clear();
    EXPECT_EQ(demand(), S_OK);
    EXPECT_THAT(host.calls(), IsEmpty());
}

class FillOfARunningCentre : public FillTest {
protected:
    FillOfARunningCentre() {
        center_class.reset();
        running_class =
            std::make_unique<test::fake_class>(host, CLSID_TradingCenter, L"TradingCenter",
                                               [this] { return com_ptr<IUnknown>(running->GetUnknown()); });
    }

    com_ptr<running_center> running = platform::make_com<running_center>(host);
    std::unique_ptr<test::fake_class> running_class;
};

TEST_F(FillOfARunningCentre, RunsItBeforeItIsAskedForAnything) {
    EXPECT_EQ(demand(), E_POINTER);
    EXPECT_THAT(take_calls("Center."), ElementsAre("Center.Run()", "Center.Prepare()"));
}

TEST_F(FillOfARunningCentre, GivesTheResultOfARunThatFails) {
    host.fail("Center.Run", E_ABORT);
    EXPECT_EQ(demand(), E_ABORT);
    EXPECT_THAT(take_assertions(), IsEmpty());
}

TEST_F(FillOfARunningCentre, GivesTheResultOfAQueryThatFails) {
    running->query_result = E_ACCESSDENIED;
    EXPECT_EQ(demand(), E_ACCESSDENIED);
    EXPECT_THAT(take_assertions(), IsEmpty());
}

TEST_F(FillOfARunningCentre, TakesAMissingInterfaceAtAnyStepForNoCentre) {
    host.fail("Center.Run", E_NOINTERFACE);
    EXPECT_EQ(demand(), E_POINTER);
    EXPECT_THAT(take_assertions(), ElementsAre("center"));
}

TEST_F(FillTest, AnObjectThatIsNoTradingCentreIsANullPointer) {
    center_class.reset();
    const test::fake_class stranger(host, CLSID_TradingCenter, L"Stranger", [this] {
        return com_ptr<IUnknown>(platform::make_com<test::FakeOnCommand>(host)->GetUnknown());
    });
    EXPECT_EQ(demand(), E_POINTER);
    EXPECT_THAT(take_assertions(), SizeIs(1));
}

TEST_F(FillTest, ACentreWithoutACollectionIsANullPointer) {
    center->profiles.reset();
    EXPECT_EQ(demand(), E_POINTER);
    EXPECT_THAT(take_assertions(), SizeIs(1));
}

TEST_F(FillTest, AFailedListIsAskedASecondTimeAndThatResultCounts) {
    host.fail("Profiles.get_Items", E_ABORT, 1);
    host.fail("Profiles.get_Items", E_ACCESSDENIED, 2);
    EXPECT_EQ(demand(), E_ACCESSDENIED);
    EXPECT_EQ(host.count("Profiles.get_Items"), 2);
    EXPECT_EQ(host.count("Bar.AddTab"), 0);
    const auto assertions = reports.assertions();
    ASSERT_FALSE(assertions.empty());
    EXPECT_EQ(assertions[0].hresult, E_ABORT);
}

TEST_F(FillTest, ACollectionWithoutEventsIsReportedAndTheFillGoesOn) {
    add_profile(L"Alpha");
    center->profiles->container_result = E_NOINTERFACE;
    EXPECT_EQ(demand(), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
    const auto assertions = reports.assertions();
    ASSERT_EQ(assertions.size(), 1U);
    EXPECT_EQ(assertions[0].hresult, E_INVALIDARG);
    OV_OrderDeck::CGlobalData global;
    EXPECT_TRUE(global->get_Profiles());
}

TEST_F(FillTest, ACollectionThatFailsToTellItsEventsIsOneWithoutEvents) {
    center->profiles->container_result = E_ACCESSDENIED;
    EXPECT_EQ(demand(), S_OK);
    EXPECT_THAT(results(), ElementsAre(E_INVALIDARG));
    OV_OrderDeck::CGlobalData global;
    EXPECT_TRUE(global->get_Profiles());
}

TEST_F(FillTest, APointOfEventsThatIsNotThereIsReported) {
    host.leave_unwritten("Profiles.FindConnectionPoint");
    EXPECT_EQ(demand(), S_OK);
    EXPECT_THAT(results(), ElementsAre(E_POINTER));
}

TEST_F(FillTest, ABarThatIsDestroyedMeanwhileIsNotSubscribed) {
    host.on_call("Profiles.get_Items", [this] { EXPECT_EQ(root->Destroy(), S_OK); });
    EXPECT_EQ(demand(), OLE_E_BLANK);
    EXPECT_EQ(host.count("ProfilesEvents.Advise"), 0);
}

// Wherever the bar goes in a fill, neither it nor a tab stays behind, nobody listens, and nothing is
// reported: the host may do that.
TEST_F(FillTest, ABarThatIsDestroyedInAnyCallOfTheFillLeavesNothingBehind) {
    const auto alpha = add_profile(L"Alpha");
    add_profile(L"Beta");
    for (const char* const call :
         {"Class(\"TradingCenter\").CreateInstance", "Center.Prepare", "Center.get_TradingProfiles",
          "Profiles.get_Items", "Profile.get_OuterID", "Profile.FindConnectionPoint", "ProfileEvents.Advise",
          "Bar.AddTab", "Profile.get_Name", "Profile.get_ConnectionState", "ManualTrading.GetAccounts",
          "ManualTrading.GetTimeInForces", "Profiles.FindConnectionPoint", "ProfilesEvents.Advise"}) {
        SCOPED_TRACE(call);
        boost::weak_ptr<test::fake_bar> bar = factory.last;
        host.on_call(call, [&] {
            host.forget_faults();
            factory.last.reset();
            EXPECT_EQ(root->Destroy(), S_OK);
        });
        EXPECT_EQ(demand(), OLE_E_BLANK);
        EXPECT_TRUE(bar.expired());
        EXPECT_EQ(alpha->events->size(), 0U);
        EXPECT_EQ(center->profiles->events->size(), 0U);
        EXPECT_THAT(take_assertions(), IsEmpty());
        ASSERT_EQ(create(), S_OK);
    }
}

TEST_F(FillTest, TheCollectionIsReplacedBeforeTheCentre) {
    OV_OrderDeck::CGlobalData global;
    global->put_Center(
        platform::make_com<test::last_words<test::FakeTradingCenter>>(host, std::string("old center")).get());
    global->put_Profiles(
        platform::make_com<test::last_words<test::FakeProfiles>>(host, std::string("old profiles")).get());
    EXPECT_EQ(demand(), S_OK);
    EXPECT_THAT(take_calls("old "), ElementsAre("old profiles", "old center"));
}

TEST_F(FillTest, ARefusedSubscriptionIsReportedWithItsResultAndTheFillGoesOn) {
    add_profile(L"Alpha");
    host.fail("ProfilesEvents.Advise", CONNECT_E_ADVISELIMIT);
    EXPECT_EQ(demand(), S_OK);
    const auto assertions = reports.assertions();
    ASSERT_EQ(assertions.size(), 1U);
    EXPECT_EQ(assertions[0].hresult, CONNECT_E_ADVISELIMIT);
    host.clear();
    root->Destroy();
    EXPECT_EQ(host.count("ProfilesEvents.Unadvise"), 0);
}

TEST_F(FillTest, AProfileThatComesBetweenPanelsAndSubscriptionShowsAtTheNextReload) {
    add_profile(L"Alpha");
    com_ptr<test::FakeProfile> late;
    host.on_call("ProfilesEvents.Advise", [&] {
        late = add_profile(L"Late");
        center->profiles->fire(eTM_CTOE_Added, {late});
    });
    ASSERT_EQ(demand(), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
    host.forget_faults();
    center->profiles->fire(eTM_CTOE_ReloadComplete, {});
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha", L"Late"));
}

TEST_F(FillTest, GarbageInTheListIsReportedAndTheOtherProfilesGoOn) {
    center->profiles->items.push_back(nullptr);
    center->profiles->items.push_back(platform::make_com<test::FakeOnCommand>(host)->GetUnknown());
    add_profile(L"Alpha");
    EXPECT_EQ(demand(), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
    EXPECT_THAT(take_assertions(), ElementsAre("_prof", "_prof"));
}

TEST_F(FillTest, AListThatWasNeverWrittenIsANullPointer) {
    host.leave_unwritten("Profiles.get_Items");
    EXPECT_EQ(demand(), E_POINTER);
    EXPECT_THAT(tab_names(), IsEmpty());
}

TEST_F(FillTest, EveryOperationOfTheDriverIsADemand) {
    OD_SSymbolInfo info{};
    _bstr_t text;
    const auto is_demand = [&](auto&& operation) {
        EXPECT_EQ(root->Destroy(), S_OK);
        EXPECT_EQ(create(), S_OK);
        host.clear();
        operation();
        return host.count("Center.Prepare(-1)") == 1;
    };
    EXPECT_TRUE(is_demand([&] { root->put_SymbolInfo(nullptr, &info); }));
    EXPECT_TRUE(is_demand([&] { root->get_SymbolInfo(nullptr, &info); }));
    EXPECT_TRUE(is_demand([&] { root->put_Account(nullptr, nullptr); }));
    EXPECT_TRUE(is_demand([&] { root->get_Account(nullptr, text.GetAddress()); }));
    EXPECT_TRUE(is_demand([&] { root->put_ActiveTab(nullptr); }));
    EXPECT_TRUE(is_demand([&] { root->get_ActiveTab(text.GetAddress()); }));
    EXPECT_TRUE(is_demand([&] {
        SAFEARRAY* commands = nullptr;
        root->get_Commands(&commands);
        SafeArrayDestroy(commands);
    }));
    EXPECT_FALSE(is_demand([&] { root->get_StatusLineString(text.GetAddress()); }));
    EXPECT_FALSE(is_demand([&] { root->UpdateLayout(); }));
}

}  // namespace
