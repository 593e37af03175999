#include "charting/orderdeck/src/root/ProfileWrap.h"

#include "tests/profile/profile_fixture.h"

namespace {

using OV_OrderDeck::CProfileWrap;
using testing::ElementsAre;
using testing::IsEmpty;

class ProfileWrap : public test::profile_test {};

TEST_F(ProfileWrap, IsAnEventSinkOfProfilesAndNothingElse) {
    EXPECT_TRUE(platform::query<ITC_TradingProfileDataChange>(wrap->GetUnknown()));
    EXPECT_FALSE(platform::query<ITC_ItemsChanged>(wrap->GetUnknown()));
}

TEST_F(ProfileWrap, ANullProfileIsReportedWithoutTextAndRaisesEPointer) {
    EXPECT_EQ(test::thrown_result([] { platform::make_com<CProfileWrap>(nullptr); }),
              static_cast<HRESULT>(0x80004003));
    const auto assertions = reports.assertions();
    ASSERT_EQ(assertions.size(), 1U);
    EXPECT_EQ(assertions[0].description, L"");
}

TEST_F(ProfileWrap, MakingOneAsksTheHostNothing) {
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(ProfileWrap, AsksForTheNameOnceWhateverTheArgument) {
    EXPECT_EQ(wrap->get_Name(true), L"Alpha");
    EXPECT_EQ(wrap->get_Name(false), L"Alpha");
    EXPECT_THAT(host.calls(), ElementsAre("Profile(\"Alpha\").get_Name()"));
}

TEST_F(ProfileWrap, ARenamedProfileKeepsItsOldNameUntilAnotherWrapperIsMade) {
    wrap->get_Name(true);
    profile->name = L"Beta";
    EXPECT_EQ(wrap->get_Name(true), L"Alpha");
    EXPECT_EQ(platform::make_com<CProfileWrap>(profile.get())->get_Name(true), L"Beta");
}

TEST_F(ProfileWrap, AFailedNameIsReportedAndAskedAgain) {
    host.fail("Profile.get_Name", E_FAIL, 1);
    EXPECT_EQ(wrap->get_Name(true), L"");
    EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L"S_OK == hr"));
    EXPECT_EQ(wrap->get_Name(true), L"Alpha");
    EXPECT_EQ(host.count("get_Name"), 2);
    EXPECT_EQ(reports.assertions().size(), 1U);
}

TEST_F(ProfileWrap, ANameThatCameWithAFailureIsNotKept) {
    host.fail_and_write("Profile.get_Name", E_FAIL, 1);
    EXPECT_EQ(wrap->get_Name(true), L"");
    EXPECT_EQ(wrap->get_Name(true), L"Alpha");
}

TEST_F(ProfileWrap, ASuccessOtherThanSOkIsAFailureToo) {
    host.fail("Profile.get_Name", S_FALSE, 1);
    EXPECT_EQ(wrap->get_Name(true), L"");
    EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L"S_OK == hr"));
}

TEST_F(ProfileWrap, AnEmptyNameIsAskedAgainWithNoReport) {
    profile->name.clear();
    EXPECT_EQ(wrap->get_Name(true), L"");
    EXPECT_EQ(wrap->get_Name(true), L"");
    EXPECT_EQ(host.count("get_Name"), 2);
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileWrap, AsksForThePluginNameOnceWhateverTheArgument) {
    EXPECT_EQ(wrap->get_PluginName(false), L"Plugin");
    EXPECT_EQ(wrap->get_PluginName(true), L"Plugin");
    EXPECT_THAT(host.calls(), ElementsAre("Profile(\"Alpha\").get_PluginName()"));
}

TEST_F(ProfileWrap, AFailedPluginNameIsReportedAndAskedAgain) {
    host.fail("Profile.get_PluginName", E_ACCESSDENIED, 1);
    EXPECT_EQ(wrap->get_PluginName(true), L"");
    EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L"S_OK == hr"));
    EXPECT_EQ(wrap->get_PluginName(true), L"Plugin");
    EXPECT_EQ(host.count("get_PluginName"), 2);
}

TEST_F(ProfileWrap, AlwaysAsksForTheOuterId) {
    EXPECT_EQ(wrap->get_OuterID(), L"Alpha-id");
    profile->outer_id = L"other";
    EXPECT_EQ(wrap->get_OuterID(), L"other");
    EXPECT_EQ(host.count("get_OuterID"), 2);
}

TEST_F(ProfileWrap, AFailedOuterIdIsReportedAndEmpty) {
    host.fail("Profile.get_OuterID", E_FAIL);
    EXPECT_EQ(wrap->get_OuterID(), L"");
    EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L"S_OK == hr"));
}

TEST_F(ProfileWrap, AsksForHaveSettingsOnceWhateverTheArgument) {
    EXPECT_TRUE(wrap->HaveSettings(true));
    profile->have_settings = VARIANT_FALSE;
    EXPECT_TRUE(wrap->HaveSettings(false));
    EXPECT_THAT(host.calls(), ElementsAre("Profile(\"Alpha\").get_HaveSettings()"));
}

TEST_F(ProfileWrap, HasSettingsOnlyForExactlyVariantTrue) {
    struct row {
        int answer;
        bool expected;
    };
    for (const row& r : {row{-1, true}, row{-2, false}, row{1, false}, row{0, false}, row{0x7FFF, false}}) {
        const auto other = platform::make_com<test::FakeProfile>(host, L"Other");
        other->have_settings = static_cast<VARIANT_BOOL>(r.answer);
        EXPECT_EQ(platform::make_com<CProfileWrap>(other.get())->HaveSettings(true), r.expected) << r.answer;
    }
}

TEST_F(ProfileWrap, AFailedHaveSettingsIsReportedAndKeptAsNo) {
    host.fail("Profile.get_HaveSettings", E_FAIL, 1);
    EXPECT_FALSE(wrap->HaveSettings(true));
    EXPECT_FALSE(wrap->HaveSettings(true));
    EXPECT_EQ(host.count("get_HaveSettings"), 1);
    EXPECT_EQ(reports.assertions().size(), 1U);
}

TEST_F(ProfileWrap, HaveSettingsStartsFromNoWhenTheHostLeavesItUnwritten) {
    host.leave_unwritten("Profile.get_HaveSettings");
    EXPECT_FALSE(wrap->HaveSettings(true));
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileWrap, AsksForManualTradingAtEachCall) {
    EXPECT_EQ(wrap->get_ManualTrading().get(), profile->trading.get());
    EXPECT_EQ(wrap->get_ManualTrading().get(), profile->trading.get());
    EXPECT_EQ(host.count("get_ManualTrading"), 2);
}

TEST_F(ProfileWrap, ManualTradingMayBeNull) {
    profile->trading.reset();
    EXPECT_FALSE(wrap->get_ManualTrading());
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileWrap, AnyOtherResultOfManualTradingIsReportedWithIt) {
    host.fail("Profile.get_ManualTrading", E_NOTIMPL, 1);
    EXPECT_FALSE(wrap->get_ManualTrading());
    host.fail("Profile.get_ManualTrading", S_FALSE, 1);
    EXPECT_TRUE(wrap->get_ManualTrading());
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(E_NOTIMPL, S_FALSE));
}

TEST_F(ProfileWrap, ShowSettingsHandsTheWindowOnAndGivesTheResult) {
    EXPECT_EQ(wrap->ShowSettings(0x123456789AULL), S_OK);
    EXPECT_THAT(host.calls(), ElementsAre("Profile(\"Alpha\").ShowSettings(78187493530)"));
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileWrap, ANegativeResultOfShowSettingsIsReportedWithIt) {
    host.fail("Profile.ShowSettings", E_ABORT, 1);
    EXPECT_EQ(wrap->ShowSettings(1), E_ABORT);
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(E_ABORT));
}

TEST_F(ProfileWrap, APositiveResultOfShowSettingsIsGivenWithNoReport) {
    host.fail("Profile.ShowSettings", S_FALSE, 1);
    EXPECT_EQ(wrap->ShowSettings(1), S_FALSE);
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileWrap, ReleasesTheProfileWithItsLastReference) {
    profile->AddRef();
    const ULONG with_wrapper = profile->Release();
    wrap.reset();
    profile->AddRef();
    EXPECT_EQ(profile->Release(), with_wrapper - 1);
}

}  // namespace
