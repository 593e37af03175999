#include "tests/profile/profile_fixture.h"

namespace {

using OV_OrderDeck::CProfileWrap;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* s_state = "Profile(\"Alpha\").get_ConnectionState()";
constexpr const char* s_connect = "Profile(\"Alpha\").Connect()";
constexpr const char* s_disconnect = "Profile(\"Alpha\").Disconnect()";

class ProfileConnection : public test::profile_test {
protected:
    com_ptr<test::FakeDisconnectConfirmer> confirmer =
        platform::make_com<test::FakeDisconnectConfirmer>(host);
    test::fake_class confirmer_class{host, CLSID_DisconnectConfirmer, L"DisconnectConfirmer",
                                     [this] { return com_ptr<IUnknown>(confirmer->GetUnknown()); }};
    HWND owner = reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0x1234));
};

TEST_F(ProfileConnection, TheFirstQuestionGoesToTheHostThoughTheCacheWouldDo) {
    profile->state = eTM_CC_Connecting;
    EXPECT_EQ(wrap->get_ConnectionState(true), eTM_CC_Connecting);
    EXPECT_THAT(host.calls(), ElementsAre(s_state));
}

TEST_F(ProfileConnection, AKnownStateIsGivenWithoutTheHost) {
    wrap->get_ConnectionState(false);
    host.clear();
    profile->state = eTM_CC_Connected;
    EXPECT_EQ(wrap->get_ConnectionState(true), eTM_CC_Disconnected);
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(ProfileConnection, ALiveQuestionRefreshesTheKnownState) {
    wrap->get_ConnectionState(false);
    profile->state = eTM_CC_Connected;
    EXPECT_EQ(wrap->get_ConnectionState(false), eTM_CC_Connected);
    EXPECT_EQ(wrap->get_ConnectionState(true), eTM_CC_Connected);
    EXPECT_EQ(host.count("get_ConnectionState"), 2);
}

TEST_F(ProfileConnection, AStateThatTheHostLeavesUnwrittenIsDisconnected) {
    host.leave_unwritten("Profile.get_ConnectionState");
    EXPECT_EQ(static_cast<int>(wrap->get_ConnectionState(false)), 0x100);
}

TEST_F(ProfileConnection, AFailedQuestionIsReportedAndTheStateIsKnownAllTheSame) {
    profile->state = eTM_CC_Connected;
    host.fail("Profile.get_ConnectionState", E_FAIL, 1);
    EXPECT_EQ(wrap->get_ConnectionState(false), eTM_CC_Disconnected);
    EXPECT_EQ(reports.assertions().size(), 1U);
    EXPECT_EQ(wrap->get_ConnectionState(true), eTM_CC_Disconnected);
    EXPECT_EQ(host.count("get_ConnectionState"), 1);
}

TEST_F(ProfileConnection, WhatAFailedQuestionWroteCounts) {
    profile->state = eTM_CC_Connected;
    host.fail_and_write("Profile.get_ConnectionState", E_FAIL, 1);
    EXPECT_EQ(wrap->get_ConnectionState(false), eTM_CC_Connected);
}

TEST_F(ProfileConnection, ADisconnectedProfileIsConnectedAfterOneLiveQuestion) {
    wrap->Connect();
    EXPECT_THAT(host.calls(), ElementsAre(s_state, s_connect));
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileConnection, AConnectedProfileIsLeftAlone) {
    profile->state = eTM_CC_Connected;
    wrap->Connect();
    EXPECT_THAT(host.calls(), ElementsAre(s_state));
}

TEST_F(ProfileConnection, AConnectingProfileIsLeftAlone) {
    profile->state = eTM_CC_Connecting;
    wrap->Connect();
    EXPECT_THAT(host.calls(), ElementsAre(s_state));
}

TEST_F(ProfileConnection, ConnectLooksAtTheLiveStateAndNotAtTheRememberedOne) {
    profile->state = eTM_CC_Connected;
    wrap->get_ConnectionState(false);
    profile->state = eTM_CC_Disconnected;
    host.clear();
    wrap->Connect();
    EXPECT_THAT(host.calls(), ElementsAre(s_state, s_connect));
}

TEST_F(ProfileConnection, AnyOtherResultOfConnectIsReportedWithIt) {
    host.fail("Profile.Connect", E_FAIL, 1);
    wrap->Connect();
    host.fail("Profile.Connect", S_FALSE, 1);
    wrap->Connect();
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(E_FAIL, S_FALSE));
}

TEST_F(ProfileConnection, ADisconnectedProfileNeedsNoDisconnectingAndNoConfirmer) {
    EXPECT_TRUE(wrap->Disconnect(owner));
    EXPECT_THAT(host.calls(), ElementsAre(s_state));
}

TEST_F(ProfileConnection, WithoutAWindowThereIsNoQuestion) {
    profile->state = eTM_CC_Connected;
    EXPECT_TRUE(wrap->Disconnect(nullptr));
    EXPECT_THAT(host.calls(), ElementsAre(s_state, s_disconnect));
}

TEST_F(ProfileConnection, AConnectingProfileIsDisconnectedToo) {
    profile->state = eTM_CC_Connecting;
    EXPECT_TRUE(wrap->Disconnect(nullptr));
    EXPECT_THAT(host.calls(), ElementsAre(s_state, s_disconnect));
}

TEST_F(ProfileConnection, TheConfirmerIsMadeAndRunAndAskedForTheProfile) {
    profile->state = eTM_CC_Connected;
    EXPECT_TRUE(wrap->Disconnect(owner));
    EXPECT_THAT(host.calls(), ElementsAre(s_state, "Class(\"DisconnectConfirmer\").CreateInstance()",
                                          "DisconnectConfirmer.Run()",
                                          "DisconnectConfirmer.Confirm(4660, \"Alpha\")", s_disconnect));
}

TEST_F(ProfileConnection, TheConfirmerGetsTheLowHalfOfTheHandle) {
    profile->state = eTM_CC_Connected;
    wrap->Disconnect(reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0xABCD0000FFFFFFFEULL)));
    EXPECT_EQ(host.count("Confirm(-2, \"Alpha\")"), 1);
}

TEST_F(ProfileConnection, AUserWhoRefusesKeepsTheProfileConnected) {
    profile->state = eTM_CC_Connected;
    confirmer->answer = S_FALSE;
    EXPECT_FALSE(wrap->Disconnect(owner));
    EXPECT_EQ(host.count("Disconnect()"), 0);
    EXPECT_EQ(wrap->get_ConnectionState(true), eTM_CC_Connected);
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileConnection, AConfirmerThatFailsHasNotRefused) {
    profile->state = eTM_CC_Connected;
    confirmer->answer = E_FAIL;
    EXPECT_TRUE(wrap->Disconnect(owner));
    EXPECT_EQ(host.count("Disconnect()"), 1);
}

TEST_F(ProfileConnection, AConfirmerThatCannotBeMadeIsReportedAndThrown) {
    profile->state = eTM_CC_Connected;
    host.fail("Class.CreateInstance", E_ACCESSDENIED, 1);
    EXPECT_EQ(test::thrown_result([&] { wrap->Disconnect(owner); }), E_ACCESSDENIED);
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(E_ACCESSDENIED));
    EXPECT_EQ(host.count("Disconnect()"), 0);
}

TEST_F(ProfileConnection, AConfirmerThatCannotBeRunIsReportedAndThrown) {
    profile->state = eTM_CC_Connected;
    host.fail("DisconnectConfirmer.Run", E_ABORT, 1);
    EXPECT_EQ(test::thrown_result([&] { wrap->Disconnect(owner); }), E_ABORT);
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(E_ABORT));
}

TEST_F(ProfileConnection, AnObjectThatIsNoConfirmerIsReportedAndThrown) {
    profile->state = eTM_CC_Connected;
    confirmer->query_result = E_NOINTERFACE;
    EXPECT_EQ(test::thrown_result([&] { wrap->Disconnect(owner); }), E_NOINTERFACE);
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(E_NOINTERFACE));
    EXPECT_EQ(host.count("Disconnect()"), 0);
}

TEST_F(ProfileConnection, AnyOtherResultOfDisconnectIsReportedWithItAndGivesTrue) {
    profile->state = eTM_CC_Connected;
    host.fail("Profile.Disconnect", E_FAIL, 1);
    EXPECT_TRUE(wrap->Disconnect(nullptr));
    host.fail("Profile.Disconnect", S_FALSE, 1);
    EXPECT_TRUE(wrap->Disconnect(nullptr));
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(E_FAIL, S_FALSE));
}

}  // namespace
