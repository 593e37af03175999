// A host that fails each of its calls in turn: nothing crashes, and a bar that is made anew with a host
// that works again has all of it.

#include "tests/root/root_fixture.h"

namespace {

using test::root_test;
using testing::ElementsAre;

class FaultTest : public root_test, public testing::WithParamInterface<const char*> {};

TEST_P(FaultTest, AFailingHostCallLeavesTheBarAlive) {
    add_profile(L"Alpha");
    ASSERT_EQ(create(), S_OK);
    host.fail(GetParam(), E_FAIL);
    OD_SSymbolInfo info{};
    SAFEARRAY* commands = nullptr;
    root->get_Commands(&commands);
    SafeArrayDestroy(commands);
    root->put_SymbolInfo(nullptr, &info);
    root->OnItemChanged(eTM_CTOE_DeletedAll, nullptr);
    center->profiles->fire(eTM_CTOE_ReloadComplete, {});
    EXPECT_EQ(root->UpdateLayout(), S_OK);
    host.forget_faults();
    EXPECT_EQ(root->Destroy(), S_OK);
    // A second life with a host that works again has all of it.
    ASSERT_EQ(create(), S_OK);
    EXPECT_EQ(root->put_ActiveTab(nullptr), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
}

TEST_P(FaultTest, AHostCallThatWritesNothingLeavesTheBarAlive) {
    add_profile(L"Alpha");
    ASSERT_EQ(create(), S_OK);
    host.leave_unwritten(GetParam());
    SAFEARRAY* commands = nullptr;
    root->get_Commands(&commands);
    SafeArrayDestroy(commands);
    center->profiles->fire(eTM_CTOE_ReloadComplete, {});
    EXPECT_EQ(root->UpdateLayout(), S_OK);
    host.forget_faults();
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_EQ(root->Destroy(), S_OK);
}

INSTANTIATE_TEST_SUITE_P(
    EachCall, FaultTest,
    testing::Values("Class.CreateInstance", "Center.Prepare", "Center.get_TradingProfiles",
                    "Center.get_MasterCounter", "Profiles.get_Items", "ProfilesEvents.Advise",
                    "ProfilesEvents.Unadvise", "Profile.get_Name", "Profile.get_PluginName",
                    "Profile.get_ManualTrading", "Profile.get_ConnectionState", "Profile.get_OuterID",
                    "ProfileEvents.Advise", "ProfileEvents.Unadvise", "ManualTrading.GetAccounts",
                    "ManualTrading.GetTimeInForces", "ManualTrading.SetSymbol"),
    [](const auto& call) {
        std::string name = call.param;
        name.erase(name.find('.'), 1);
        std::erase(name, '_');
        return name;
    });

}  // namespace
