// What stands when a host comes back into the bar in the middle of a change of its profiles.

#include "tests/root/root_fixture.h"

namespace {

using test::root_test;
using testing::ElementsAre;
using testing::IsEmpty;

class TrackingReentry : public root_test {
protected:
    TrackingReentry() {
        alpha = add_profile(L"Alpha");
        EXPECT_EQ(create(), S_OK);
        EXPECT_EQ(root->put_ActiveTab(nullptr), S_OK);
        host.clear();
        reports.clear();
    }

    HRESULT fire(ETM_ChangeTypeOfEvent kind, const std::vector<com_ptr<test::FakeProfile>>& profiles = {}) {
        return center->profiles->fire(kind, profiles);
    }

    HRESULT select_alpha() { return root->put_ActiveTab(_bstr_t(alpha->outer_id.c_str())); }

    com_ptr<test::FakeProfile> alpha;
};

TEST_F(TrackingReentry, ADeletedProfileIsKnownByItsIdUntilItsTabIsRemoved) {
    host.on_call("Bar.RemoveTab", [this] { EXPECT_EQ(select_alpha(), S_OK); });
    EXPECT_EQ(fire(eTM_CTOE_Deleted, {alpha}), S_OK);
    EXPECT_THAT(take_calls("Bar."), ElementsAre("Bar.RemoveTab(1)", "Bar.SelectTab(1)"));
    EXPECT_EQ(select_alpha(), S_OK);
    EXPECT_THAT(take_calls("Bar."), IsEmpty());
}

TEST_F(TrackingReentry, ARemovalThatThrowsForgetsTheProfileAllTheSame) {
    host.on_call("Bar.RemoveTab", [] { _com_issue_error(E_ABORT); });
    EXPECT_EQ(fire(eTM_CTOE_Deleted, {alpha}), E_ABORT);
    host.clear();
    EXPECT_EQ(select_alpha(), S_OK);
    EXPECT_THAT(take_calls("Bar."), IsEmpty());
}

TEST_F(TrackingReentry, AReloadDuringARemovalKeepsThePanelsThatItMade) {
    host.on_call("Bar.RemoveTab", [this] { EXPECT_EQ(fire(eTM_CTOE_ReloadComplete), S_OK); });
    EXPECT_EQ(fire(eTM_CTOE_Deleted, {alpha}), S_OK);
    host.clear();
    EXPECT_EQ(select_alpha(), S_OK);
    EXPECT_THAT(take_calls("Bar."), ElementsAre("Bar.SelectTab(2)"));
}

TEST_F(TrackingReentry, WhenAllAreDeletedTheirIdsAreForgottenBeforeTheTabsGo) {
    host.on_call("Bar.RemoveAllTabs", [this] { EXPECT_EQ(fire(eTM_CTOE_Deleted, {alpha}), S_OK); });
    EXPECT_EQ(fire(eTM_CTOE_DeletedAll), S_OK);
    EXPECT_THAT(take_calls("Bar."), ElementsAre("Bar.RemoveAllTabs()", "Bar.Show(true)"));
}

TEST_F(TrackingReentry, ANewPanelHasItsBarBeforeTheBarHasIt) {
    bar().record_updates = true;
    bar().on_add = [](OV_OrderDeck::ITab& tab) {
        dynamic_cast<OV_OrderDeck::IManageContent&>(tab).Refresh();
    };
    EXPECT_EQ(fire(eTM_CTOE_Added, {add_profile(L"Beta")}), S_OK);
    // One for the bar, which has given no id yet, and the one that ends each addition.
    EXPECT_EQ(host.count("Bar.Update(0, "), 1);
    EXPECT_EQ(host.count("Bar.Update(2, "), 1);
}

TEST_F(TrackingReentry, AProfileThatIsAddedWhileItIsBeingAddedHasOnePanel) {
    const auto beta = add_profile(L"Beta");
    host.on_call("ProfileEvents(\"Beta\").Advise", [&] {
        host.forget_faults();
        EXPECT_EQ(fire(eTM_CTOE_Added, {beta}), S_OK);
    });
    EXPECT_EQ(fire(eTM_CTOE_Added, {beta}), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha", L"Beta"));
    EXPECT_EQ(beta->events->size(), 1U);
}

TEST_F(TrackingReentry, AProfileThatGoesWhileItIsBeingAddedIsNotKnown) {
    const auto beta = add_profile(L"Beta");
    host.on_call("ManualTrading(\"Beta\").GetAccounts", [&] {
        host.forget_faults();
        EXPECT_EQ(fire(eTM_CTOE_DeletedAll), S_OK);
    });
    EXPECT_EQ(fire(eTM_CTOE_Added, {beta}), S_OK);
    EXPECT_THAT(tab_names(), IsEmpty());
    EXPECT_EQ(fire(eTM_CTOE_Added, {beta}), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Beta"));
    EXPECT_THAT(take_assertions(), IsEmpty());
}

TEST_F(TrackingReentry, ATabThatTheBarHasLostIsReportedWhenItsProfileChanges) {
    bar().RemoveTab(1);
    EXPECT_EQ(fire(eTM_CTOE_Updated, {alpha}), S_OK);
    EXPECT_THAT(take_assertions(), ElementsAre("_cont"));
}

// A name that is empty is asked for at each use.

TEST_F(TrackingReentry, ProfilesThatGoWhileTheMenuAsksForANameStayInThisMenu) {
    alpha->name = L"";
    add_profile(L"Beta");
    EXPECT_EQ(fire(eTM_CTOE_ReloadComplete), S_OK);
    host.on_call("Profile(\"Alpha\").get_Name", [this] { fire(eTM_CTOE_DeletedAll); });
    SAFEARRAY* items = nullptr;
    EXPECT_EQ(root->get_Commands(&items), S_OK);
    LONG last = -1;
    EXPECT_EQ(SafeArrayGetUBound(items, 1, &last), S_OK);
    // Two profiles, the separator and the editor.
    EXPECT_EQ(last, 3);
    SafeArrayDestroy(items);
    EXPECT_THAT(tab_names(), IsEmpty());
}

}  // namespace
