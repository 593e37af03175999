#include "charting/orderdeck/src/root/ProfileCommands.h"

#include <functional>
#include <stdexcept>
#include <utility>

#include "platform/resources.h"
#include "tests/profile/command_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* s_state = "Profile(\"Alpha\").get_ConnectionState()";

class ProfileCommands : public test::command_test {
protected:
    com_ptr<test::FakeDisconnectConfirmer> confirmer =
        platform::make_com<test::FakeDisconnectConfirmer>(host);
    com_ptr<test::FakeProfileEditor> editor = platform::make_com<test::FakeProfileEditor>(host);
    com_ptr<test::FakeSymbolMapping> mapping = platform::make_com<test::FakeSymbolMapping>(host);
    test::fake_class confirmer_class{host, CLSID_DisconnectConfirmer, L"DisconnectConfirmer",
                                     [this] { return com_ptr<IUnknown>(confirmer->GetUnknown()); }};
    test::fake_class editor_class{host, CLSID_ProfileEditor, L"ProfileEditor",
                                  [this] { return com_ptr<IUnknown>(editor->GetUnknown()); }};
    test::fake_class mapping_class{host, CLSID_SymbolMapping, L"SymbolMapping",
                                   [this] { return com_ptr<IUnknown>(mapping->GetUnknown()); }};
};

TEST_F(ProfileCommands, EveryLineButTheNewProfilesIsUncheckedAndEnabledAndHasNoExtendedForm) {
    for (const LONG id : {10, 11, 12, 13, 14, 15}) {
        const auto line = command(id);
        VARIANT_BOOL value = 5;
        EXPECT_EQ(line->get_Checked(&value), S_OK);
        EXPECT_EQ(value, VARIANT_FALSE) << id;
        EXPECT_EQ(line->get_Enabled(&value), S_OK);
        EXPECT_EQ(value, VARIANT_TRUE) << id;
        if (id != 14) {
            EXPECT_EQ(line->ExecuteEx(_variant_t(LONG{1})), S_FALSE) << id;
        }
    }
}

TEST_F(ProfileCommands, ANullOutPointerIsAnInvalidArgument) {
    for (const LONG id : {10, 11, 12, 13, 14, 15}) {
        const auto line = command(id);
        EXPECT_EQ(line->get_Name(nullptr), E_INVALIDARG) << id;
        EXPECT_EQ(line->get_Enabled(nullptr), E_INVALIDARG) << id;
        EXPECT_EQ(line->get_Checked(nullptr), E_INVALIDARG) << id;
    }
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(ProfileCommands, TheSeparatorAndTheNewProfileLineDoNothingAndHaveNoName) {
    for (const LONG id : {12, 14}) {
        const auto line = command(id);
        EXPECT_EQ(line->Execute(), S_FALSE) << id;
        EXPECT_EQ(name_of(*line), L"") << id;
    }
    EXPECT_THAT(host.calls(), IsEmpty());
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileCommands, ALineWithoutItsProfileIsReportedWithoutTextAndGivesEPointer) {
    wrap.reset();
    for (const LONG id : {10, 11, 15}) {
        reports.clear();
        const auto line = command(id);
        EXPECT_EQ(line->Execute(), E_POINTER) << id;
        EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L"")) << id;
    }
    BSTR name = nullptr;
    EXPECT_EQ(command(10)->get_Name(&name), E_POINTER);
    EXPECT_EQ(command(11)->get_Name(&name), E_POINTER);
    VARIANT_BOOL enabled = VARIANT_FALSE;
    EXPECT_EQ(command(11)->get_Enabled(&enabled), E_POINTER);
}

TEST_F(ProfileCommands, TheToggleIsNamedByTheLastKnownState) {
    struct row {
        ETM_ConnectionChanged state;
        const wchar_t* name;
    };
    for (const row& r : {row{eTM_CC_Disconnected, L"連線 Alpha"}, row{eTM_CC_Connecting, L"斷線 Alpha"},
                         row{eTM_CC_Connected, L"斷線 Alpha"}}) {
        wrap->OnConnectionState(r.state);
        EXPECT_EQ(name_of(*command(10)), r.name);
    }
    EXPECT_EQ(host.count("get_ConnectionState"), 0);
}

TEST_F(ProfileCommands, TheToggleConnectsADisconnectedProfileWithoutALock) {
    wrap->OnConnectionState(eTM_CC_Disconnected);
    EXPECT_EQ(command(10)->Execute(), S_OK);
    EXPECT_THAT(host.calls(), ElementsAre(s_state, "Profile(\"Alpha\").Connect()"));
}

TEST_F(ProfileCommands, TheToggleDisconnectsAConnectedOrConnectingProfileAskingOnTheMainFrame) {
    for (const ETM_ConnectionChanged state : {eTM_CC_Connected, eTM_CC_Connecting}) {
        host.clear();
        profile->state = state;
        wrap->OnConnectionState(state);
        EXPECT_EQ(command(10)->Execute(), S_OK);
        EXPECT_THAT(host.calls(), ElementsAre(s_state, "Class(\"DisconnectConfirmer\").CreateInstance()",
                                              "DisconnectConfirmer.Run()",
                                              "DisconnectConfirmer.Confirm(" + number(frame) + ", \"Alpha\")",
                                              "Profile(\"Alpha\").Disconnect()"));
    }
}

TEST_F(ProfileCommands, TheToggleGoesByTheLastKnownStateAndNotByTheLiveOne) {
    wrap->OnConnectionState(eTM_CC_Connected);
    profile->state = eTM_CC_Disconnected;
    EXPECT_EQ(command(10)->Execute(), S_OK);
    EXPECT_EQ(host.count("Connect()"), 0);
}

TEST_F(ProfileCommands, ATogglesRefusalIsSOkToo) {
    profile->state = eTM_CC_Connected;
    wrap->OnConnectionState(eTM_CC_Connected);
    confirmer->answer = S_FALSE;
    EXPECT_EQ(command(10)->Execute(), S_OK);
    EXPECT_EQ(host.count("Disconnect()"), 0);
}

TEST_F(ProfileCommands, WhatTheToggleThrowsBecomesItsResult) {
    profile->state = eTM_CC_Connected;
    host.fail("Class.CreateInstance", E_ACCESSDENIED);
    EXPECT_EQ(command(10)->Execute(), E_ACCESSDENIED);
    EXPECT_EQ(reports.traces().size(), 1U);
}

TEST_F(ProfileCommands, TheEditLineIsNamedAfterItsProfile) {
    EXPECT_EQ(name_of(*command(11)), L"設定經紀商 Alpha");
}

TEST_F(ProfileCommands, TheEditLineIsEnabledForAProfileWithSettings) {
    profile->have_settings = VARIANT_FALSE;
    VARIANT_BOOL enabled = VARIANT_TRUE;
    EXPECT_EQ(command(11)->get_Enabled(&enabled), S_OK);
    EXPECT_EQ(enabled, VARIANT_FALSE);
}

TEST_F(ProfileCommands, TheEditLineOfAProfileWithoutSettingsIsReportedAndGivesSFalse) {
    profile->have_settings = VARIANT_FALSE;
    EXPECT_EQ(command(11)->Execute(), S_FALSE);
    EXPECT_EQ(reports.assertions().size(), 1U);
    EXPECT_THAT(host.calls(), ElementsAre("Profile(\"Alpha\").get_HaveSettings()"));
}

TEST_F(ProfileCommands, TheEditLineShowsTheSettingsOnTheMainFrameUnderTheLock) {
    EXPECT_EQ(command(11)->Execute(), S_OK);
    EXPECT_THAT(host.calls(),
                ElementsAre("Profile(\"Alpha\").get_HaveSettings()", lock_call, s_state,
                            "Profile(\"Alpha\").ShowSettings(" + number(frame) + ")", unlock_call()));
    EXPECT_THAT(desktop.message_boxes(), IsEmpty());
}

TEST_F(ProfileCommands, TheEditLineOfAnyOtherStateShowsAMessageUnderTheLockAndNoSettings) {
    for (const int state : {0x300, 0x200, 0x123, 0}) {
        host.clear();
        desktop.forget();
        wrap->OnConnectionState(static_cast<ETM_ConnectionChanged>(state));
        desktop.while_modal([&] { host.note("box"); });
        EXPECT_EQ(command(11)->Execute(), S_OK);
        ASSERT_EQ(desktop.message_boxes().size(), 1U);
        const auto shown = desktop.message_boxes().front();
        EXPECT_EQ(shown.text, L"Alpha 已連線，目前無法調整設定。\n請先中斷連線。");
        EXPECT_EQ(shown.caption, platform::main_version_string(L"ProductName"));
        EXPECT_NE(shown.caption, L"");
        EXPECT_EQ(shown.flags, 0U);
        EXPECT_EQ(shown.owner, frame);
        EXPECT_EQ(host.count("ShowSettings"), 0);
        const auto calls = host.calls();
        EXPECT_EQ(calls.back(), unlock_call());
        EXPECT_EQ(calls[calls.size() - 2], "box");
    }
}

TEST_F(ProfileCommands, APercentSignInANameIsNoFormat) {
    profile->name = L"100%s %n";
    wrap->OnConnectionState(eTM_CC_Connected);
    EXPECT_EQ(command(11)->Execute(), S_OK);
    ASSERT_EQ(desktop.message_boxes().size(), 1U);
    EXPECT_EQ(desktop.message_boxes()[0].text, L"100%s %n 已連線，目前無法調整設定。\n請先中斷連線。");
}

TEST_F(ProfileCommands, SettingsThatFailAreReportedAndTheLineGivesSOk) {
    host.fail("Profile.ShowSettings", E_FAIL);
    EXPECT_EQ(command(11)->Execute(), S_OK);
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(E_FAIL));
    EXPECT_EQ(host.calls().back(), unlock_call());
}

TEST_F(ProfileCommands, SettingsThatSucceedInAnyWayAreNotReported) {
    host.fail("Profile.ShowSettings", S_FALSE);
    EXPECT_EQ(command(11)->Execute(), S_OK);
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileCommands, WhateverIsThrownInALineBecomesItsResultAndTheLockEnds) {
    struct fault {
        std::function<void()> raise;
        HRESULT result;
        const wchar_t* logged;
    };
    const fault faults[] = {
        {[] { throw std::bad_alloc(); }, E_OUTOFMEMORY, nullptr},
        {[] { _com_issue_error(E_ABORT); }, E_ABORT, L"HRESULT - 80004004; FILE - "},
        {[] { throw std::out_of_range("row"); }, E_INVALIDARG, L"std::out_of_range - row; FILE - "},
        {[] { throw std::runtime_error("trouble"); }, E_UNEXPECTED, L"std::exception - trouble; FILE - "},
        {[] { throw 5; }, E_UNEXPECTED, L"unknown exception; FILE - "},
    };
    const std::pair<LONG, const char*> lines[] = {{10, "Profile.Connect"},
                                                  {11, "Profile.ShowSettings"},
                                                  {13, "ProfileEditor.Show"},
                                                  {15, "SymbolMapping.ShowDialog"}};
    for (const auto& [id, operation] : lines) {
        for (const fault& each : faults) {
            host.clear();
            host.forget_faults();
            reports.clear();
            host.on_call(operation, each.raise);
            EXPECT_EQ(command(id)->Execute(), each.result) << id;
            EXPECT_EQ(host.count("OnCommand.Execute(4"), id == 10 ? 0 : 1) << id;
            EXPECT_EQ(host.count(unlock_call()), id == 10 ? 0 : 1) << id;
            const auto traces = reports.traces();
            ASSERT_EQ(traces.size(), each.logged != nullptr ? 1U : 0U) << id;
            if (each.logged != nullptr) {
                EXPECT_EQ(traces[0].find(each.logged), 0U) << id;
            }
        }
    }
}

TEST_F(ProfileCommands, WhatNameOrStateThrowIsTheirResultToo) {
    const auto fresh = [&] {
        wrap = platform::make_com<OV_OrderDeck::CProfileWrap>(profile.get());
        return command(11);
    };
    for (const char* operation : {"Profile.get_Name", "Profile.get_HaveSettings"}) {
        host.on_call(operation, [] { throw std::bad_alloc(); });
    }
    BSTR name = nullptr;
    EXPECT_EQ(fresh()->get_Name(&name), E_OUTOFMEMORY);
    EXPECT_EQ(name, nullptr);
    VARIANT_BOOL enabled = 7;
    EXPECT_EQ(fresh()->get_Enabled(&enabled), E_OUTOFMEMORY);
    EXPECT_EQ(enabled, 7);
}

TEST_F(ProfileCommands, TheEditorLineHasAFixedName) {
    EXPECT_EQ(name_of(*command(13)), L"設定經紀商...");
}

TEST_F(ProfileCommands, TheEditorLineLocksThenMakesRunsAndShowsTheEditor) {
    EXPECT_EQ(command(13)->Execute(), S_OK);
    EXPECT_THAT(host.calls(),
                ElementsAre(lock_call, "Class(\"ProfileEditor\").CreateInstance()", "ProfileEditor.Run()",
                            "ProfileEditor.Show(" + number(frame) + ")", unlock_call()));
}

TEST_F(ProfileCommands, TheResultOfTheEditorIsIgnored) {
    host.fail("ProfileEditor.Show", E_FAIL);
    EXPECT_EQ(command(13)->Execute(), S_OK);
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileCommands, AnEditorThatCannotBeMadeOrRunIsThrownAndUnlocks) {
    for (const char* operation : {"Class.CreateInstance", "ProfileEditor.Run"}) {
        host.clear();
        host.forget_faults();
        host.fail(operation, E_ACCESSDENIED);
        EXPECT_EQ(command(13)->Execute(), E_ACCESSDENIED) << operation;
        EXPECT_EQ(host.calls().back(), unlock_call());
    }
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileCommands, AnObjectThatIsNoEditorIsReportedAndGivesEPointer) {
    editor->query_result = E_NOINTERFACE;
    EXPECT_EQ(command(13)->Execute(), E_POINTER);
    EXPECT_EQ(reports.assertions().size(), 1U);
    EXPECT_EQ(host.count("Show"), 0);
}

TEST_F(ProfileCommands, AnEditorThatFailsToAnswerForItselfIsThrown) {
    editor->query_result = E_ABORT;
    EXPECT_EQ(command(13)->Execute(), E_ABORT);
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileCommands, TheMappingLineHasAFixedName) {
    EXPECT_EQ(name_of(*command(15)), L"商品轉換...");
}

TEST_F(ProfileCommands, TheMappingLineMakesTheMappingThenLocksAndShowsItOnTheBar) {
    EXPECT_EQ(command(15)->Execute(), S_OK);
    EXPECT_THAT(
        host.calls(),
        ElementsAre("Class(\"SymbolMapping\").CreateInstance()", lock_call, "Profile(\"Alpha\").get_Name()",
                    "SymbolMapping.ShowDialog(" + number(bar) + ", \"Alpha\")", unlock_call()));
}

TEST_F(ProfileCommands, AMappingThatCannotBeMadeIsReportedAndGivesEPointerWithoutALock) {
    host.fail("Class.CreateInstance", E_FAIL);
    EXPECT_EQ(command(15)->Execute(), E_POINTER);
    EXPECT_EQ(reports.assertions().size(), 1U);
    EXPECT_EQ(host.count("OnCommand"), 0);
}

TEST_F(ProfileCommands, AMappingThatFailsIsReportedWithItsResultAndThrown) {
    host.fail("SymbolMapping.ShowDialog", E_ABORT);
    EXPECT_EQ(command(15)->Execute(), E_ABORT);
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(E_ABORT));
    EXPECT_EQ(host.calls().back(), unlock_call());
}

TEST_F(ProfileCommands, APositiveResultOfTheMappingIsSOk) {
    host.fail("SymbolMapping.ShowDialog", S_FALSE);
    EXPECT_EQ(command(15)->Execute(), S_OK);
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileCommands, WithoutACommandSinkTheLinesWorkWithoutALock) {
    global->put_OnCommand(nullptr);
    EXPECT_EQ(command(13)->Execute(), S_OK);
    EXPECT_EQ(host.count("OnCommand"), 0);
    EXPECT_EQ(host.count("ProfileEditor.Show"), 1);
}

}  // namespace
