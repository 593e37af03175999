// The commands of the true root, one after another, as host and menus run them.
#include <thread>

#include "charting/orderdeck/src/root/GlobalData.h"
#include "platform/resources.h"
#include "tests/root/root_fixture.h"
#include "tests/support/safe_arrays.h"

namespace {

using test::narrow;
using test::root_test;
using testing::ElementsAre;
using testing::IsEmpty;

class Commands : public root_test {
protected:
    Commands() {
        alpha = add_profile(L"Alpha");
        beta = add_profile(L"Beta");
        beta->state = eTM_CC_Connected;
        desktop.set_main_frame(frame);
        EXPECT_EQ(create(sink.get()), S_OK);
        lines = commands();
        host.clear();
        reports.clear();
    }

    std::vector<com_ptr<IOD_ProfileCmd>> commands() {
        SAFEARRAY* items = nullptr;
        EXPECT_EQ(root->get_Commands(&items), S_OK);
        LONG high = -1;
        SafeArrayGetUBound(items, 1, &high);
        std::vector<com_ptr<IOD_ProfileCmd>> result;
        for (LONG index = 0; index <= high; ++index) {
            _variant_t item;
            EXPECT_EQ(SafeArrayGetElement(items, &index, &item), S_OK);
            result.push_back(platform::query<IOD_ProfileCmd>(item.punkVal));
        }
        SafeArrayDestroy(items);
        return result;
    }
    // A line of the right-click menu of the profile's tab.
    com_ptr<IOD_ProfileCmd> command(LONG id, const CString& profile) {
        for (const auto& [tab_id, tab] : bar().get_TabInfos()) {
            if (tab->get_Profile()->get_Name(true) == profile) {
                return platform::query<IOD_ProfileCmd>(
                    OV_OrderDeck::CGlobalData()->create_command(id, tab->get_Profile()));
            }
        }
        return {};
    }
    static CString name_of(IOD_ProfileCmd& line) {
        _bstr_t name;
        EXPECT_EQ(line.get_Name(name.GetAddress()), S_OK);
        return platform::text_of(name);
    }
    static VARIANT_BOOL enabled(IOD_ProfileCmd& line) {
        VARIANT_BOOL value = 7;
        EXPECT_EQ(line.get_Enabled(&value), S_OK);
        return value;
    }
    static std::string number(HWND window) { return std::to_string(reinterpret_cast<ULONG_PTR>(window)); }

    const std::string lock = "OnCommand.Execute(4, empty)";
    const std::string unlock = "OnCommand.Execute(5, " + number(bar_window) + ")";
    HWND frame = desktop.make_window(L"frame");
    com_ptr<test::FakeOnCommand> sink = platform::make_com<test::FakeOnCommand>(host);
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
    com_ptr<test::FakeProfile> alpha;
    com_ptr<test::FakeProfile> beta;
    // Alpha, Beta, the separator, the editor.
    std::vector<com_ptr<IOD_ProfileCmd>> lines;
};

TEST_F(Commands, OfTheHostsMenuAreAllUsableAndUncheckedAndOnlyTheSeparatorHasNoName) {
    ASSERT_EQ(lines.size(), 4U);
    std::vector<CString> names;
    for (const auto& line : lines) {
        names.push_back(name_of(*line));
        EXPECT_EQ(enabled(*line), VARIANT_TRUE);
        VARIANT_BOOL checked = 7;
        EXPECT_EQ(line->get_Checked(&checked), S_OK);
        EXPECT_EQ(checked, VARIANT_FALSE);
    }
    EXPECT_THAT(names, ElementsAre(L"連線 Alpha", L"斷線 Beta", L"", L"設定經紀商..."));
}

TEST_F(Commands, OfTheHostsMenuDoWhatTheirLinesSayInOneGo) {
    EXPECT_EQ(lines[0]->Execute(), S_OK);
    EXPECT_THAT(host.take(),
                ElementsAre("Profile(\"Alpha\").get_ConnectionState()", "Profile(\"Alpha\").Connect()"));
    EXPECT_EQ(lines[1]->Execute(), S_OK);
    EXPECT_THAT(host.take(),
                ElementsAre("Profile(\"Beta\").get_ConnectionState()",
                            "Class(\"DisconnectConfirmer\").CreateInstance()", "DisconnectConfirmer.Run()",
                            "DisconnectConfirmer.Confirm(" + number(frame) + ", \"Beta\")",
                            "Profile(\"Beta\").Disconnect()"));
    EXPECT_EQ(lines[2]->Execute(), S_FALSE);
    EXPECT_THAT(host.take(), IsEmpty());
    EXPECT_EQ(lines[3]->Execute(), S_OK);
    EXPECT_THAT(host.take(),
                ElementsAre(lock, "Class(\"ProfileEditor\").CreateInstance()", "ProfileEditor.Run()",
                            "ProfileEditor.Show(" + number(frame) + ")", unlock));
    EXPECT_THAT(take_assertions(), IsEmpty());
    EXPECT_THAT(desktop.message_boxes(), IsEmpty());
}

TEST_F(Commands, HaveNoExtendedForm) {
    for (const auto& line : lines) {
        EXPECT_EQ(line->ExecuteEx(_variant_t(LONG{0x00140064})), S_FALSE);
    }
    EXPECT_THAT(host.calls(), IsEmpty());
    EXPECT_THAT(desktop.menus(), IsEmpty());
}

TEST_F(Commands, ALineFollowsTheEventsOfItsProfile) {
    alpha->fire_state(eTM_CC_Connecting);
    host.clear();
    EXPECT_EQ(name_of(*lines[0]), L"斷線 Alpha");
    EXPECT_THAT(host.calls(), IsEmpty()) << "nobody is asked for a line";
    EXPECT_EQ(lines[0]->Execute(), S_OK);
    EXPECT_EQ(host.count("Profile(\"Alpha\").Disconnect()"), 1);
    alpha->fire_state(eTM_CC_Disconnected);
    EXPECT_EQ(name_of(*lines[0]), L"連線 Alpha");
}

TEST_F(Commands, ARefusedDisconnectLeavesTheLineAsItWas) {
    confirmer->answer = S_FALSE;
    EXPECT_EQ(lines[1]->Execute(), S_OK);
    EXPECT_EQ(host.count("Disconnect()"), 0);
    EXPECT_EQ(name_of(*lines[1]), L"斷線 Beta");
}

TEST_F(Commands, WithoutAFrameTheActiveWindowIsTheOwner) {
    desktop.destroy_window(frame);
    const HWND active = desktop.make_window(L"active");
    desktop.set_active_window(active);
    EXPECT_EQ(lines[3]->Execute(), S_OK);
    EXPECT_EQ(host.count("ProfileEditor.Show(" + number(active) + ")"), 1);
}

TEST_F(Commands, TheSettingsComeForADisconnectedProfileAndAMessageForAnyOther) {
    EXPECT_EQ(command(11, L"Alpha")->Execute(), S_OK);
    EXPECT_THAT(host.take(), ElementsAre("Profile(\"Alpha\").get_HaveSettings()", lock,
                                         "Profile(\"Alpha\").ShowSettings(" + number(frame) + ")", unlock));
    EXPECT_THAT(desktop.message_boxes(), IsEmpty());
    alpha->fire_state(eTM_CC_Connecting);
    for (const CString& name : {CString(L"Alpha"), CString(L"Beta")}) {
        host.clear();
        desktop.forget();
        EXPECT_EQ(command(11, name)->Execute(), S_OK);
        ASSERT_EQ(desktop.message_boxes().size(), 1U) << narrow(name);
        const auto box = desktop.message_boxes()[0];
        EXPECT_EQ(box.text, name + L" 已連線，目前無法調整設定。\n請先中斷連線。");
        EXPECT_EQ(box.caption, platform::main_version_string(L"ProductName"));
        EXPECT_EQ(box.flags, 0U);
        EXPECT_EQ(box.owner, frame);
        EXPECT_EQ(host.count("ShowSettings"), 0);
        EXPECT_EQ(host.calls().back(), unlock);
    }
}

TEST_F(Commands, AProfileWithoutSettingsHasAGreyLineThatRefuses) {
    alpha->have_settings = VARIANT_FALSE;
    const auto line = command(11, L"Alpha");
    EXPECT_EQ(enabled(*line), VARIANT_FALSE);
    EXPECT_EQ(line->Execute(), S_FALSE);
    EXPECT_EQ(take_assertions().size(), 1U);
    EXPECT_EQ(host.count("OnCommand"), 0);
    EXPECT_EQ(host.count("get_HaveSettings"), 1) << "once told is known";
}

TEST_F(Commands, TheMappingComesOnTheBarForTheNameOfTheProfile) {
    EXPECT_EQ(command(15, L"Beta")->Execute(), S_OK);
    EXPECT_THAT(host.calls(),
                ElementsAre("Class(\"SymbolMapping\").CreateInstance()", lock,
                            "SymbolMapping.ShowDialog(" + number(bar_window) + ", \"Beta\")", unlock));
}

TEST_F(Commands, ANewProfileIsAddedOfferedAndShown) {
    center->profiles->plugins = {L"Paper", L"Real"};
    const auto line = platform::query<IOD_ProfileCmd>(OV_OrderDeck::CGlobalData()->create_command(14));
    desktop.answer_menu(2);
    VARIANT at;
    VariantInit(&at);
    at.vt = 23;
    V_UINT(&at) = 0x00140064;
    EXPECT_EQ(line->ExecuteEx(at), S_OK);
    EXPECT_THAT(host.take(),
                ElementsAre("Profiles.get_AvailablePlugins()", "Profiles.Add(\"Real\", \"Real\")"));
    const auto added = add_profile(L"Real");
    center->profiles->fire(eTM_CTOE_Added, {added});
    EXPECT_THAT(tab_names(), testing::Contains(L"Real"));
    EXPECT_EQ(commands().size(), 5U);
}

TEST_F(Commands, OfARootThatEndedStillActOnTheirProfileWithoutALock) {
    root->Destroy();
    host.clear();
    EXPECT_EQ(lines[0]->Execute(), S_OK);
    EXPECT_EQ(host.count("Profile(\"Alpha\").Connect()"), 1);
    EXPECT_EQ(lines[3]->Execute(), S_OK);
    EXPECT_EQ(host.count("ProfileEditor.Show("), 1);
    EXPECT_EQ(host.count("OnCommand"), 0);
}

TEST_F(Commands, OfAProfileThatWentKeepIt) {
    center->profiles->fire(eTM_CTOE_Deleted, {alpha});
    EXPECT_EQ(commands().size(), 3U);
    EXPECT_EQ(name_of(*lines[0]), L"連線 Alpha");
    EXPECT_EQ(lines[0]->Execute(), S_OK);
    EXPECT_EQ(host.count("Profile(\"Alpha\").Connect()"), 1);
}

TEST_F(Commands, AreCountedFromAnyThread) {
    IOD_ProfileCmd* const line = lines[3].get();
    const auto count = [&] {
        for (int i = 0; i < 200000; ++i) {
            line->AddRef();
            line->Release();
        }
    };
    line->AddRef();
    const ULONG before = line->Release();
    std::thread other(count);
    count();
    other.join();
    line->AddRef();
    EXPECT_EQ(line->Release(), before);
}

}  // namespace
