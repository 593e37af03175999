// The keys and values that a bar leaves, and in which order it writes and restores them.

#include "charting/orderdeck/src/root/RegistryHelpers.h"
#include "platform/process_mutex.h"
#include "tests/root/persistence_fixture.h"
#include "tests/support/failing_registry.h"

namespace {

using test::closing_host;
using test::panel_state;
using test::persistence_test;
using test::remember;
using test::restored;
using test::stored;
using test::texts;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

using PersistenceOrder = persistence_test;

const std::vector<panel_state> three_panels = {
    {L"Alpha", true, 7, L"TXF"}, {L"Beta", false, 0, L"ABC"}, {L"Gamma", true, 0, L""}};

// The operations on the registry of one close, without the closing of keys.
std::vector<std::wstring> operations_of_close(closing_host& bar) {
    failing_registry registry;
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    std::vector<std::wstring> calls = registry.calls();
    std::erase(calls, L"close_key");
    return calls;
}

TEST_F(PersistenceOrder, EachProfileHasAKeyWithAtMostThreeValues) {
    closing_host bar;
    bar.open(three_panels);
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(stored(),
                ElementsAre("Profiles", "Profiles\\Alpha", "Profiles\\Alpha \"Connected\" 1 \"True\"",
                            "Profiles\\Alpha \"Symbol Id\" 4 7", "Profiles\\Alpha \"Symbol Name\" 1 \"TXF\"",
                            "Profiles\\Beta", "Profiles\\Beta \"Connected\" 1 \"False\"",
                            "Profiles\\Beta \"Symbol Name\" 1 \"ABC\"", "Profiles\\Gamma",
                            "Profiles\\Gamma \"Connected\" 1 \"True\""));
}

TEST_F(PersistenceOrder, TheOldListIsDeletedBeforeTheNewOneIsWritten) {
    closing_host bar;
    bar.open(three_panels);
    const std::wstring base = closing_host::path_of_records();
    const std::wstring profiles = base + L"\\Profiles";
    EXPECT_EQ(
        operations_of_close(bar),
        (std::vector<std::wstring>{
            L"create_key " + base + L" 2001f", L"delete_tree " + profiles,
            L"create_key " + profiles + L" 2001f", L"create_key " + profiles + L"\\Alpha 2001f",
            L"set_value Connected", L"set_value Symbol Id", L"set_value Symbol Name",
            L"create_key " + profiles + L"\\Beta 2001f", L"set_value Connected", L"set_value Symbol Name",
            L"create_key " + profiles + L"\\Gamma 2001f", L"set_value Connected"}));
}

TEST_F(PersistenceOrder, ASecondLifeOfARootRestoresToo) {
    remember({L"Alpha", true, 0, L""});
    closing_host bar;
    bar.add_profile(L"Alpha");
    ASSERT_EQ(bar.create(), S_OK);
    ASSERT_EQ(bar.root->Destroy(), S_OK);
    EXPECT_THAT(restored(bar), ElementsAre());
    ASSERT_EQ(bar.create(), S_OK);
    EXPECT_THAT(restored(bar), ElementsAre("connect \"Alpha\""));
}

TEST_F(PersistenceOrder, TheIdOfASymbolAloneIsWorthARecord) {
    closing_host bar;
    bar.open({{L"Alpha", false, 7, L""}});
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(stored(),
                ElementsAre("Profiles", "Profiles\\Alpha", "Profiles\\Alpha \"Connected\" 1 \"False\"",
                            "Profiles\\Alpha \"Symbol Id\" 4 7"));
}

TEST_F(PersistenceOrder, AListOfNoProfilesLeavesTheKeyEmpty) {
    remember({L"Old", true, 0, L""});
    closing_host bar;
    bar.open({});
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(stored(), ElementsAre("Profiles"));
}

TEST_F(PersistenceOrder, TheKeyBearsTheNameOfTheProfileAndNotItsOuterId) {
    closing_host bar;
    const auto profile = bar.add_profile(L"Alpha");
    profile->outer_id = L"outer";
    profile->state = eTM_CC_Connected;
    bar.open({});
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(stored(),
                ElementsAre("Profiles", "Profiles\\Alpha", "Profiles\\Alpha \"Connected\" 1 \"True\""));
}

TEST_F(PersistenceOrder, TheBarIsGivenThePathToWriteAndToRead) {
    remember({L"Alpha", false, 0, L""});
    closing_host bar;
    bar.add_profile(L"Alpha");
    EXPECT_EQ(bar.create(), S_OK);
    bar.run_loop();
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    const std::string path = test::quoted(closing_host::path_of_records());
    EXPECT_THAT(bar.take_calls("erialize("),
                ElementsAre("Bar.Deserialize(" + path + ")", "Bar.Serialize(" + path + ")"));
}

TEST_F(PersistenceOrder, ReadingOpensForReadingOnlyAndAsksForThreeValues) {
    remember({L"Alpha", true, 7, L"TXF"});
    closing_host bar;
    failing_registry registry;
    EXPECT_EQ(bar.create(), S_OK);
    std::vector<std::wstring> calls = registry.calls();
    std::erase(calls, L"close_key");
    EXPECT_EQ(calls, (std::vector<std::wstring>{
                         L"open_key " + closing_host::path_of_records() + L"\\Profiles 20019", L"enum_key 0",
                         L"open_key Alpha 20019", L"query_value Connected", L"query_value Symbol Id",
                         L"query_value Symbol Name", L"enum_key 1"}));
    // The longest name of a key, and its end.
    EXPECT_THAT(registry.rooms(), ElementsAre(257U, 257U));
}

TEST_F(PersistenceOrder, RestoringPreparesTheCentreThenSelectsThenConnectsThenSetsTheSymbol) {
    remember({L"Alpha", true, 7, L"TXF"});
    remember({L"Beta", false, 0, L"ABC"});
    closing_host bar;
    bar.add_profile(L"Beta");
    bar.add_profile(L"Alpha");
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_EQ(bar.host.count("Center."), 0);
    EXPECT_THAT(restored(bar), ElementsAre("connect \"Alpha\"", "symbol 7", "symbol \"ABC\""));
    texts calls = bar.host.take();
    std::erase_if(calls, [](const std::string& call) {
        return call.rfind("Center.Prepare", 0) != 0 && call.rfind("Bar.Deserialize", 0) != 0 &&
               call.find(".Connect()") == std::string::npos;
    });
    EXPECT_THAT(calls, ElementsAre("Center.Prepare(-1)",
                                   "Bar.Deserialize(" + test::quoted(closing_host::path_of_records()) + ")",
                                   "Profile(\"Alpha\").Connect()"));
}

TEST_F(PersistenceOrder, ARecordOfAProfileThatIsGoneIsPassedOverAndTheOthersAreRestored) {
    remember({L"Alpha", true, 0, L""});
    remember({L"Gone", true, 5, L"X"});
    remember({L"Zeta", true, 0, L""});
    // Names are compared as they stand.
    remember({L"beta", true, 0, L""});
    closing_host bar;
    bar.add_profile(L"Alpha");
    bar.add_profile(L"Beta");
    bar.add_profile(L"Zeta");
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_THAT(restored(bar), ElementsAre("connect \"Alpha\"", "connect \"Zeta\""));
}

TEST_F(PersistenceOrder, OfTwoPanelsOfOneNameTheFirstIsRestored) {
    remember({L"Alpha", true, 0, L""});
    closing_host bar;
    const auto first = bar.add_profile(L"Alpha");
    const auto second = bar.add_profile(L"Second");
    second->name = L"Alpha";
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_THAT(restored(bar), ElementsAre("connect \"Alpha\""));
}

TEST_F(PersistenceOrder, ProfilesThatGoWhileANameIsAskedForAreRestoredAllTheSame) {
    remember({L"Beta", true, 0, L""});
    closing_host bar;
    // A name that is empty is asked for at each use.
    bar.add_profile(L"Alpha")->name = L"";
    bar.add_profile(L"Beta");
    EXPECT_EQ(bar.create(), S_OK);
    bar.host.on_call("Bar.Deserialize", [&] {
        bar.host.on_call("Profile(\"Alpha\").get_Name",
                         [&] { bar.center->profiles->fire(eTM_CTOE_DeletedAll, {}); });
    });
    EXPECT_THAT(restored(bar), ElementsAre("connect \"Beta\""));
}

TEST_F(PersistenceOrder, WithNothingRememberedTheLoopTouchesNothing) {
    closing_host bar;
    bar.add_profile(L"Alpha");
    EXPECT_EQ(bar.create(), S_OK);
    bar.host.clear();
    bar.run_loop();
    EXPECT_THAT(bar.host.calls(), ElementsAre());
}

// Failures of the registry while writing.

TEST_F(PersistenceOrder, ABaseKeyThatCannotBeMadeIsReportedAndTheRestIsWritten) {
    closing_host bar;
    bar.open({{L"Alpha", true, 0, L""}});
    failing_registry registry;
    registry.fail("create_key", ERROR_ACCESS_DENIED, 1, 1);
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(bar.take_assertions(),
                ElementsAre("key.Create(HKEY_CURRENT_USER, sOrderDeckFullPath) == ERROR_SUCCESS"));
    EXPECT_EQ(bar.host.count("Bar.Serialize"), 1);
    EXPECT_THAT(stored(), Contains("Profiles\\Alpha \"Connected\" 1 \"True\""));
}

TEST_F(PersistenceOrder, ABarThatRemembersNothingIsReportedAtBothEnds) {
    remember({L"Alpha", true, 0, L""});
    closing_host bar;
    bar.factory.remembers = false;
    bar.open({{L"Alpha", false, 7, L"TXF"}});
    EXPECT_THAT(restored(bar), ElementsAre("connect \"Alpha\""));
    EXPECT_THAT(bar.take_assertions(), ElementsAre("pPersist"));
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(bar.take_assertions(), ElementsAre("pPersist"));
    EXPECT_THAT(stored(), Contains("Profiles\\Alpha \"Symbol Id\" 4 7"));
}

TEST_F(PersistenceOrder, AnOldListThatCannotBeDeletedStaysAndNothingIsWritten) {
    remember({L"Old", true, 0, L""});
    closing_host bar;
    bar.open({{L"Alpha", true, 0, L""}});
    {
        failing_registry registry;
        registry.fail("delete_tree", ERROR_ACCESS_DENIED);
        EXPECT_EQ(bar.root->OnClose(), S_OK);
        EXPECT_THAT(registry.calls(), Not(Contains(L"set_value Connected")));
    }
    EXPECT_THAT(
        bar.take_assertions(),
        ElementsAre("deleted == ERROR_SUCCESS || deleted == ERROR_FILE_NOT_FOUND", "Serialization failed"));
    EXPECT_THAT(stored(), ElementsAre("Profiles", "Profiles\\Old", "Profiles\\Old \"Connected\" 1 \"True\""));
}

TEST_F(PersistenceOrder, AListKeyThatCannotBeMadeIsReportedAndNoRecordIsWritten) {
    closing_host bar;
    bar.open({{L"Alpha", true, 0, L""}});
    failing_registry registry;
    registry.fail("create_key", ERROR_ACCESS_DENIED, 2, 1);
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(bar.take_assertions(),
                ElementsAre("key.Create(HKEY_CURRENT_USER, sProfilesFullPath) == ERROR_SUCCESS"));
    EXPECT_THAT(stored(), ElementsAre());
}

TEST_F(PersistenceOrder, ARecordThatCannotBeMadeIsReportedAndTheNextIsWritten) {
    closing_host bar;
    bar.open({{L"Alpha", true, 0, L""}, {L"Beta", true, 0, L""}});
    failing_registry registry;
    registry.fail("create_key", ERROR_ACCESS_DENIED, 3, 1);
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(bar.take_assertions(),
                ElementsAre("key.Create(HKEY_CURRENT_USER, sProfPath) == ERROR_SUCCESS"));
    EXPECT_THAT(stored(),
                ElementsAre("Profiles", "Profiles\\Beta", "Profiles\\Beta \"Connected\" 1 \"True\""));
}

TEST_F(PersistenceOrder, EachValueThatCannotBeWrittenIsReportedAndTheNextIsTried) {
    for (int failed = 1; failed <= 3; ++failed) {
        closing_host bar;
        bar.open({{L"Alpha", true, 7, L"TXF"}});
        failing_registry registry;
        registry.fail("set_value", ERROR_ACCESS_DENIED, failed, 1);
        EXPECT_EQ(bar.root->OnClose(), S_OK);
        EXPECT_THAT(bar.take_assertions(), ElementsAre("lRes == 0L"));
        texts left = {"Profiles", "Profiles\\Alpha", "Profiles\\Alpha \"Connected\" 1 \"True\"",
                      "Profiles\\Alpha \"Symbol Id\" 4 7", "Profiles\\Alpha \"Symbol Name\" 1 \"TXF\""};
        left.erase(left.begin() + 1 + failed);
        EXPECT_EQ(stored(), left);
    }
}

// Failures while reading.

TEST_F(PersistenceOrder, AKeyThatDoesNotOpenOrIsNotNamedIsPassedOver) {
    remember({L"Alpha", true, 0, L""});
    remember({L"Beta", true, 0, L""});
    remember({L"Gamma", true, 0, L""});
    closing_host bar;
    for (const wchar_t* const name : {L"Alpha", L"Beta", L"Gamma"}) {
        bar.add_profile(name);
    }
    {
        failing_registry registry;
        // The first to be opened is the list itself.
        registry.fail("open_key", ERROR_ACCESS_DENIED, 2, 1);
        registry.fail("enum_key", ERROR_MORE_DATA, 2, 1);
        EXPECT_EQ(bar.create(), S_OK);
        EXPECT_THAT(bar.take_assertions(), ElementsAre("lRes != 234L"));
    }
    EXPECT_THAT(restored(bar), ElementsAre("connect \"Gamma\""));
}

TEST_F(PersistenceOrder, AListThatDoesNotOpenIsNoList) {
    remember({L"Alpha", true, 0, L""});
    closing_host bar;
    bar.add_profile(L"Alpha");
    {
        failing_registry registry;
        registry.fail("open_key", ERROR_ACCESS_DENIED);
        EXPECT_EQ(bar.create(), S_OK);
    }
    EXPECT_THAT(restored(bar), ElementsAre());
    EXPECT_THAT(bar.take_assertions(), ElementsAre());
}

TEST_F(PersistenceOrder, AListThatNeverEndsIsNotRestored) {
    remember({L"Alpha", true, 0, L""});
    closing_host bar;
    bar.add_profile(L"Alpha");
    {
        failing_registry registry;
        registry.fail("enum_key", ERROR_ACCESS_DENIED);
        EXPECT_EQ(bar.create(), S_OK);
        EXPECT_EQ(std::count_if(registry.calls().begin(), registry.calls().end(),
                                [](const std::wstring& call) { return call.rfind(L"enum_key ", 0) == 0; }),
                  500);
    }
    EXPECT_THAT(restored(bar), ElementsAre());
    EXPECT_THAT(bar.take_assertions(), ElementsAre("", "Serialization failed"));
}

// Whether profiles are disconnected.

TEST_F(PersistenceOrder, ACountThatCannotBeReadDisconnects) {
    closing_host bar;
    bar.open({{L"Alpha", true, 0, L""}});
    bar.center->master_counter = 5;
    bar.host.fail("Center.get_MasterCounter", E_FAIL);
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_EQ(bar.host.count(".Disconnect()"), 1);
    EXPECT_THAT(bar.reports.traces(), Contains(L"Master's counter is 1. Disconnect profiles ..."));
}

TEST_F(PersistenceOrder, WithoutACentreTheCloseDisconnectsAndEmptiesTheList) {
    remember({L"Old", true, 0, L""});
    closing_host bar;
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(bar.reports.traces(), Contains(L"Master's counter is 1. Disconnect profiles ..."));
    EXPECT_THAT(stored(), ElementsAre("Profiles"));
}

}  // namespace
