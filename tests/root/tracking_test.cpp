#include <limits>
#include <thread>

#include "tests/root/root_fixture.h"
#include "tests/support/no_memory.h"
#include "tests/support/safe_arrays.h"

namespace {

using test::root_test;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class TrackingTest : public root_test {
protected:
    TrackingTest() {
        alpha = add_profile(L"Alpha");
        EXPECT_EQ(create(), S_OK);
        EXPECT_EQ(root->put_ActiveTab(nullptr), S_OK);
        host.clear();
        reports.clear();
    }

    HRESULT fire(ETM_ChangeTypeOfEvent kind, const std::vector<com_ptr<test::FakeProfile>>& profiles = {}) {
        return center->profiles->fire(kind, profiles);
    }

    com_ptr<test::FakeProfile> alpha;
};

TEST_F(TrackingTest, AnAddedProfileGetsAPanelThatShowsItself) {
    const auto beta = add_profile(L"Beta");
    EXPECT_EQ(fire(eTM_CTOE_Added, {beta}), S_OK);
    EXPECT_THAT(take_calls("Bar."), ElementsAre("Bar.AddTab(\"Beta\", shown)"));
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha", L"Beta"));
}

TEST_F(TrackingTest, ARepeatedAdditionAddsNothing) {
    EXPECT_EQ(fire(eTM_CTOE_Added, {alpha}), S_OK);
    EXPECT_THAT(host.calls(), ElementsAre("Profile(\"Alpha\").get_OuterID()"));
}

TEST_F(TrackingTest, AProfileForWhichThereIsNoMemoryIsReportedAndANullPointer) {
    const auto beta = add_profile(L"Beta");
    {
        const test::no_memory none;
        EXPECT_EQ(fire(eTM_CTOE_Added, {beta}), E_POINTER);
    }
    EXPECT_THAT(take_assertions(), ElementsAre(""));
    EXPECT_EQ(host.count("Bar.AddTab"), 0);
}

// Hosts send these numbers.
static_assert(eTM_CTOE_Added == 1 && eTM_CTOE_Deleted == 2 && eTM_CTOE_Updated == 3 &&
              eTM_CTOE_ReloadComplete == 4 && eTM_CTOE_ReloadStart == 5 && eTM_CTOE_DeletedAll == 6 &&
              eTM_CTOE_Moved == 7);

TEST_F(TrackingTest, ANewPanelReadsItsListsAfterItWasAdded) {
    const auto beta = add_profile(L"Beta");
    bar().record_updates = true;
    fire(eTM_CTOE_Added, {beta});
    const auto calls = host.calls();
    const auto at = [&](const std::string& part) {
        for (std::size_t i = 0; i < calls.size(); ++i) {
            if (calls[i].find(part) != std::string::npos) {
                return i;
            }
        }
        return calls.size();
    };
    EXPECT_LT(at("Bar.AddTab"), at("ManualTrading(\"Beta\").GetAccounts"));
    EXPECT_EQ(calls.back(), "Bar.Update(2, " + std::to_string(0x3FF87) + ")");
}

TEST_F(TrackingTest, ATabThatTheBarRefusesIsReportedHasNoEntryAndIsRefreshedAllTheSame) {
    bar().refuse_tabs = true;
    const auto beta = add_profile(L"Beta");
    EXPECT_EQ(fire(eTM_CTOE_Added, {beta}), S_OK);
    EXPECT_THAT(take_assertions(), Contains("tag != 0"));
    EXPECT_EQ(host.count("ManualTrading(\"Beta\").GetAccounts"), 1);
    host.clear();
    EXPECT_EQ(fire(eTM_CTOE_Deleted, {beta}), S_OK);
    EXPECT_EQ(host.count("Bar.RemoveTab"), 0);
}

TEST_F(TrackingTest, ADeletedProfileLosesItsPanel) {
    EXPECT_EQ(fire(eTM_CTOE_Deleted, {alpha}), S_OK);
    EXPECT_THAT(take_calls("Bar."), ElementsAre("Bar.RemoveTab(1)"));
    EXPECT_EQ(fire(eTM_CTOE_Deleted, {alpha}), S_OK);
    EXPECT_THAT(take_calls("Bar."), IsEmpty());
    EXPECT_THAT(take_assertions(), IsEmpty());
}

TEST_F(TrackingTest, AFailedRemovalIsReportedAndTheEntryGoesAllTheSame) {
    bar().removal_result = false;
    EXPECT_EQ(fire(eTM_CTOE_Deleted, {alpha}), S_OK);
    EXPECT_THAT(take_assertions(), ElementsAre("bRes == true"));
    EXPECT_EQ(fire(eTM_CTOE_Added, {alpha}), S_OK);
    EXPECT_EQ(host.count("Bar.AddTab(\"Alpha\", shown)"), 1);
}

TEST_F(TrackingTest, AnUpdatedProfileIsReadAgainExceptForItsName) {
    alpha->name = L"Renamed";
    EXPECT_EQ(fire(eTM_CTOE_Updated, {alpha}), S_OK);
    EXPECT_EQ(host.count("ManualTrading(\"Alpha\").GetAccounts"), 1);
    EXPECT_EQ(host.count("get_Name"), 0);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
}

TEST_F(TrackingTest, AnUpdateOfAnUnknownProfileIsIgnored) {
    const auto stranger = add_profile(L"Stranger");
    host.clear();
    EXPECT_EQ(fire(eTM_CTOE_Updated, {stranger}), S_OK);
    EXPECT_THAT(host.calls(), ElementsAre("Profile(\"Stranger\").get_OuterID()"));
    EXPECT_THAT(take_assertions(), IsEmpty());
}

TEST_F(TrackingTest, AnOuterIdThatTheHostCannotTellIsReported) {
    host.fail("Profile(\"Alpha\").get_OuterID", E_FAIL);
    EXPECT_EQ(fire(eTM_CTOE_Deleted, {alpha}), S_OK);
    EXPECT_THAT(take_assertions(), ElementsAre("S_OK == _prof->get_OuterID(_val.GetAddress())"));
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
}

TEST_F(TrackingTest, DeletingAllLeavesTheEmptyBarShowing) {
    EXPECT_EQ(fire(eTM_CTOE_DeletedAll), S_OK);
    EXPECT_THAT(take_calls("Bar."), ElementsAre("Bar.RemoveAllTabs()", "Bar.Show(true)"));
    EXPECT_EQ(fire(eTM_CTOE_Added, {alpha}), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
}

TEST_F(TrackingTest, AFailedDeletionOfAllIsReported) {
    bar().removal_result = false;
    EXPECT_EQ(fire(eTM_CTOE_DeletedAll), S_OK);
    EXPECT_THAT(take_assertions(), ElementsAre("bRes == true"));
}

TEST_F(TrackingTest, BetweenTheReloadEventsSingleEventsDoNotCount) {
    const auto beta = add_profile(L"Beta");
    EXPECT_EQ(fire(eTM_CTOE_ReloadStart), S_OK);
    host.clear();
    EXPECT_EQ(fire(eTM_CTOE_Added, {beta}), S_OK);
    EXPECT_EQ(fire(eTM_CTOE_Updated, {alpha}), S_OK);
    EXPECT_EQ(fire(eTM_CTOE_Deleted, {alpha}), S_OK);
    EXPECT_EQ(fire(eTM_CTOE_DeletedAll), S_OK);
    EXPECT_THAT(host.calls(), IsEmpty());
    EXPECT_EQ(fire(eTM_CTOE_ReloadComplete), S_OK);
    EXPECT_THAT(take_calls("Bar."),
                ElementsAre("Bar.RemoveAllTabs()", "Bar.Show(true)", "Bar.AddTab(\"Alpha\", shown)",
                            "Bar.AddTab(\"Beta\", shown)"));
    EXPECT_EQ(fire(eTM_CTOE_Deleted, {beta}), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
}

TEST_F(TrackingTest, AReloadCompletesAlsoWithoutAStartAndLeavesExactlyTheCollection) {
    center->profiles->items.clear();
    add_profile(L"Gamma");
    EXPECT_EQ(fire(eTM_CTOE_ReloadComplete), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Gamma"));
    EXPECT_EQ(fire(eTM_CTOE_Added, {alpha}), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Gamma", L"Alpha"));
}

TEST_F(TrackingTest, AReloadKeepsTheSubscription) {
    EXPECT_EQ(fire(eTM_CTOE_ReloadComplete), S_OK);
    EXPECT_EQ(host.count("ProfilesEvents"), 0);
    EXPECT_EQ(center->profiles->events->size(), 1U);
}

TEST_F(TrackingTest, ANewPanelStartsEmptyAfterAReload) {
    OD_SSymbolInfo info{};
    info.Name = SysAllocString(L"TXF");
    const _bstr_t id(alpha->outer_id.c_str());
    ASSERT_EQ(root->put_SymbolInfo(id, &info), S_OK);
    SysFreeString(info.Name);
    const auto name_of_symbol = [&] {
        return dynamic_cast<OV_OrderDeck::ITradeInfoProperties&>(*bar().get_CurTab()).get_SymbolName();
    };
    EXPECT_EQ(name_of_symbol(), L"TXF");
    fire(eTM_CTOE_ReloadComplete);
    EXPECT_EQ(name_of_symbol(), L"");
}

TEST_F(TrackingTest, AReloadWhoseListFailsStaysAReload) {
    EXPECT_EQ(fire(eTM_CTOE_ReloadStart), S_OK);
    host.fail("Profiles.get_Items", E_FAIL);
    EXPECT_EQ(fire(eTM_CTOE_ReloadComplete), E_POINTER);
    host.forget_faults();
    EXPECT_EQ(fire(eTM_CTOE_Added, {alpha}), S_OK);
    EXPECT_THAT(tab_names(), IsEmpty());
    EXPECT_EQ(fire(eTM_CTOE_ReloadComplete), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
}

TEST_F(TrackingTest, AReloadBeforeTheFirstFillEmptiesTheBarAndHasNoCollection) {
    ASSERT_EQ(root->Destroy(), S_OK);
    ASSERT_EQ(create(), S_OK);
    host.clear();
    EXPECT_EQ(root->OnItemChanged(eTM_CTOE_ReloadComplete, nullptr), E_POINTER);
    EXPECT_THAT(take_calls("Bar."), ElementsAre("Bar.RemoveAllTabs()", "Bar.Show(true)"));
}

TEST_F(TrackingTest, MovedAndUnknownEventsChangeNothing) {
    EXPECT_EQ(fire(eTM_CTOE_Moved, {alpha}), S_OK);
    for (const LONG unknown : {LONG{0}, LONG{8}, LONG{99}, LONG{-1}, std::numeric_limits<LONG>::max()}) {
        EXPECT_EQ(fire(ETM_ChangeTypeOfEvent{unknown}, {alpha}), S_OK) << unknown;
    }
    EXPECT_THAT(host.calls(), IsEmpty());
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
}

TEST_F(TrackingTest, ANullListIsANullPointerWithAnAssertion) {
    EXPECT_EQ(root->OnItemChanged(eTM_CTOE_Added, nullptr), E_POINTER);
    EXPECT_THAT(take_assertions(), SizeIs(1));
}

TEST_F(TrackingTest, AListOfAnotherTypeIsRefused) {
    SAFEARRAY* numbers = test::long_array({1, 2, 3});
    EXPECT_EQ(root->OnItemChanged(eTM_CTOE_Added, numbers), DISP_E_TYPEMISMATCH);
    SafeArrayDestroy(numbers);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
}

TEST_F(TrackingTest, AQueryThatFailsOtherwiseThanForAMissingInterfaceEndsTheEvent) {
    struct broken : platform::com_root<IOnCommand> {
        STDMETHODIMP Execute(LONG, VARIANT) override { return S_OK; }

    protected:
        HRESULT internal_query(REFIID iid, void** out) {
            if (IsEqualIID(iid, __uuidof(ITC_TradingProfile))) {
                return E_ACCESSDENIED;
            }
            return platform::com_root<IOnCommand>::internal_query(iid, out);
        }
    };
    SAFEARRAY* items = test::object_array({com_ptr<IUnknown>(platform::make_com<broken>()->GetUnknown())});
    EXPECT_EQ(root->OnItemChanged(eTM_CTOE_Added, items), E_ACCESSDENIED);
    SafeArrayDestroy(items);
}

TEST_F(TrackingTest, AnEventOnAForeignThreadIsReportedAndHandled) {
    SAFEARRAY* items = test::object_array({com_ptr<IUnknown>(alpha->GetUnknown())});
    std::thread foreign([&] { EXPECT_EQ(root->OnItemChanged(eTM_CTOE_Deleted, items), S_OK); });
    foreign.join();
    SafeArrayDestroy(items);
    EXPECT_THAT(take_assertions(), ElementsAre("not thread safe"));
    EXPECT_THAT(tab_names(), IsEmpty());
}

TEST_F(TrackingTest, AnEventAfterTheEndIsReportedAndFails) {
    ASSERT_EQ(root->Destroy(), S_OK);
    reports.clear();
    SAFEARRAY* items = test::object_array({com_ptr<IUnknown>(alpha->GetUnknown())});
    EXPECT_TRUE(FAILED(root->OnItemChanged(eTM_CTOE_Added, items)));
    SafeArrayDestroy(items);
    EXPECT_THAT(take_assertions(), Contains("m_bValid == true"));
}

TEST_F(TrackingTest, NamesAndIdsOfAnyLengthAreTakenAsTheyAre) {
    const auto empty = add_profile(L"");
    empty->outer_id = L"";
    const auto wide = add_profile(CString(10000, L'名'));
    wide->outer_id = CString(10000, L'x');
    EXPECT_EQ(fire(eTM_CTOE_Added, {empty, wide}), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha", L"", CString(10000, L'名')));
    EXPECT_EQ(fire(eTM_CTOE_Deleted, {wide, empty}), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
}

}  // namespace
