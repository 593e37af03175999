#include "charting/orderdeck/src/root/RegistryHelpers.h"
#include "platform/process_mutex.h"
#include "platform/registry.h"
#include "tests/root/root_fixture.h"
#include "tests/support/failing_registry.h"

namespace {

using platform::registry_key;
using test::root_test;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class CloseTest : public root_test {
protected:
    CloseTest()
        : confirmer(platform::make_com<test::FakeDisconnectConfirmer>(host)),
          confirmer_class(host, CLSID_DisconnectConfirmer, L"DisconnectConfirmer",
                          [this] { return com_ptr<IUnknown>(confirmer->GetUnknown()); }) {
        desktop.set_main_frame(desktop.make_window());
    }

    void fill() {
        EXPECT_EQ(create(), S_OK);
        EXPECT_EQ(root->put_ActiveTab(nullptr), S_OK);
        host.clear();
        reports.clear();
    }

    // The names of the remembered profiles.
    static std::vector<CString> remembered() {
        std::vector<CString> names;
        registry_key key;
        if (key.Open(HKEY_CURRENT_USER, path_of_records() + L"\\Profiles", KEY_READ) != ERROR_SUCCESS) {
            return {L"(no key)"};
        }
        CString name;
        for (DWORD index = 0; OV_OrderDeck::registry_helpers::reg_enum_key(key, index, name) == ERROR_SUCCESS;
             ++index) {
            names.push_back(name);
        }
        return names;
    }

    static CString remembered_text(const CString& profile, const CString& value) {
        registry_key key;
        key.Open(HKEY_CURRENT_USER, path_of_records() + L"\\Profiles\\" + profile, KEY_READ);
        return OV_OrderDeck::read_string(key, value, L"(none)");
    }

    // As an earlier bar would have left it.
    static void remember(const CString& profile, const CString& connected, DWORD id, const CString& symbol) {
        registry_key key;
        ASSERT_EQ(key.Create(HKEY_CURRENT_USER, path_of_records() + L"\\Profiles\\" + profile),
                  ERROR_SUCCESS);
        ASSERT_EQ(key.SetString(L"Connected", connected), ERROR_SUCCESS);
        if (id != 0) {
            ASSERT_EQ(key.SetDWORD(L"Symbol Id", id), ERROR_SUCCESS);
        }
        if (!symbol.empty()) {
            ASSERT_EQ(key.SetString(L"Symbol Name", symbol), ERROR_SUCCESS);
        }
    }

    com_ptr<test::FakeDisconnectConfirmer> confirmer;
    test::fake_class confirmer_class;
};

TEST_F(CloseTest, WithACountOfOneConnectedProfilesAreDisconnectedAndRemembered) {
    add_profile(L"Alpha")->state = eTM_CC_Connected;
    add_profile(L"Beta")->state = eTM_CC_Connected;
    fill();
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_EQ(host.count(".Disconnect()"), 2);
    EXPECT_THAT(reports.traces(), Contains(L"Master's counter is 1. Disconnect profiles ..."));
    EXPECT_THAT(remembered(), ElementsAre(L"Alpha", L"Beta"));
    EXPECT_EQ(remembered_text(L"Alpha", L"Connected"), L"True");
    EXPECT_EQ(root->UpdateLayout(), S_OK);
}

TEST_F(CloseTest, WithAHigherCountNothingIsDisconnectedAndTheListIsEmptied) {
    remember(L"Old", L"True", 0, L"");
    add_profile(L"Alpha")->state = eTM_CC_Connected;
    center->master_counter = 2;
    fill();
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_EQ(host.count(".Disconnect()"), 0);
    EXPECT_THAT(reports.traces(), Contains(L"Master's counter is 2. Don't disconnect profiles"));
    EXPECT_THAT(remembered(), IsEmpty());
}

TEST_F(CloseTest, AConnectingProfileIsClosedButNotRememberedAsConnected) {
    const auto alpha = add_profile(L"Alpha");
    alpha->state = eTM_CC_Connecting;
    fill();
    OD_SSymbolInfo info{};
    info.id = 7;
    info.Name = SysAllocString(L"TXF");
    ASSERT_EQ(root->put_SymbolInfo(_bstr_t(alpha->outer_id.c_str()), &info), S_OK);
    SysFreeString(info.Name);
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_EQ(host.count(".Disconnect()"), 1);
    EXPECT_EQ(remembered_text(L"Alpha", L"Connected"), L"False");
    EXPECT_EQ(remembered_text(L"Alpha", L"Symbol Name"), L"TXF");
}

TEST_F(CloseTest, ARefusalLeavesEarlierProfilesDisconnectedLaterOnesAloneAndTheRegistryUnchanged) {
    remember(L"Old", L"True", 0, L"");
    add_profile(L"Alpha")->state = eTM_CC_Connected;
    add_profile(L"Beta")->state = eTM_CC_Connected;
    add_profile(L"Gamma")->state = eTM_CC_Connected;
    EXPECT_EQ(create(), S_OK);
    EXPECT_EQ(root->put_ActiveTab(nullptr), S_OK);
    host.on_call("DisconnectConfirmer.Confirm", [this] {
        confirmer->answer = host.count("DisconnectConfirmer.Confirm") == 2 ? S_FALSE : S_OK;
    });
    host.clear();
    EXPECT_EQ(root->OnClose(), S_FALSE);
    EXPECT_EQ(host.count("Profile(\"Alpha\").Disconnect()"), 1);
    EXPECT_EQ(host.count("Profile(\"Beta\").Disconnect()"), 0);
    EXPECT_EQ(host.count("Profile(\"Gamma\")."), 0);
    EXPECT_THAT(remembered(), ElementsAre(L"Old"));
}

TEST_F(CloseTest, ProfilesThatTheHostRemovesDuringTheQuestionArePassed) {
    const auto first = add_profile(L"Alpha");
    const auto second = add_profile(L"Beta");
    const auto third = add_profile(L"Gamma");
    for (const auto& profile : {first, second, third}) {
        profile->state = eTM_CC_Connected;
    }
    fill();
    // It asks about the first one when that and its neighbour go.
    bool gone = false;
    host.on_call("DisconnectConfirmer.Confirm", [&] {
        if (!gone) {
            gone = true;
            center->profiles->fire(eTM_CTOE_Deleted, {first, second});
        }
    });
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_EQ(host.count("Profile(\"Alpha\").Disconnect()"), 1);
    EXPECT_EQ(host.count("Profile(\"Beta\").Disconnect()"), 0);
    EXPECT_EQ(host.count("Profile(\"Gamma\").Disconnect()"), 1);
    EXPECT_THAT(remembered(), ElementsAre(L"Alpha", L"Gamma"));
}

TEST_F(CloseTest, AProfileWithNothingToRememberIsNotRecorded) {
    add_profile(L"Alpha");
    fill();
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_THAT(remembered(), IsEmpty());
}

TEST_F(CloseTest, TheBarSerializesItselfBeforeTheListIsTouched) {
    fill();
    failing_registry registry;
    std::vector<std::wstring> before;
    host.on_call("Bar.Serialize", [&] { before = registry.calls(); });
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_THAT(before, ElementsAre(L"create_key " + path_of_records() + L" 2001f"));
    EXPECT_THAT(take_calls("Bar."), ElementsAre("Bar.Serialize(" + test::quoted(path_of_records()) + ")"));
}

TEST_F(CloseTest, WhatIsRememberedIsRestoredByTheMessageLoop) {
    remember(L"Alpha", L"tRUE", 0, L"");
    remember(L"Gone", L"True", 3, L"X");
    add_profile(L"Alpha");
    EXPECT_EQ(create(), S_OK);
    EXPECT_EQ(host.count("Center.Prepare"), 0);
    run_loop();
    EXPECT_EQ(host.count("Center.Prepare(-1)"), 1);
    EXPECT_EQ(host.count("Bar.Deserialize("), 1);
    EXPECT_EQ(host.count("Profile(\"Alpha\").Connect()"), 1);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
}

TEST_F(CloseTest, NothingPostedRunsAfterDestroy) {
    remember(L"Alpha", L"True", 0, L"");
    add_profile(L"Alpha");
    EXPECT_EQ(create(), S_OK);
    EXPECT_EQ(root->Destroy(), S_OK);
    host.clear();
    reports.clear();
    run_loop();
    EXPECT_THAT(host.calls(), IsEmpty());
    // Restoring without a bar would be reported.
    EXPECT_THAT(take_assertions(), IsEmpty());
}

TEST_F(CloseTest, TheIdOfASymbolWinsOverItsName) {
    const auto lookup = platform::make_com<test::FakeLookup>(host);
    const CLSID lookup_clsid = {0x63afe10e, 0x1d65, 0x4006, {0xaa, 0x5e, 0xab, 0x09, 0x0a, 0x28, 0x76, 0xf8}};
    const test::fake_class lookup_class(host, lookup_clsid, L"Lookup",
                                        [&] { return com_ptr<IUnknown>(lookup->GetUnknown()); });
    remember(L"Alpha", L"False", 7, L"ABC");
    add_profile(L"Alpha");
    EXPECT_EQ(create(), S_OK);
    run_loop();
    EXPECT_EQ(host.count("GetSymbolInfoById(7"), 1);
    EXPECT_EQ(host.count("GetSymbolInfo("), 0);
    EXPECT_EQ(host.count(".Connect()"), 0);
}

TEST_F(CloseTest, FiveHundredProfilesAreReadAndNothingIsRestored) {
    registry_key key;
    for (int index = 0; index < 500; ++index) {
        ASSERT_EQ(
            key.Create(HKEY_CURRENT_USER, path_of_records() + L"\\Profiles\\P" + std::to_wstring(index)),
            ERROR_SUCCESS);
    }
    EXPECT_EQ(create(), S_OK);
    EXPECT_THAT(take_assertions(), Contains("Serialization failed"));
    run_loop();
    EXPECT_EQ(host.count("Center.Prepare"), 0);
}

TEST_F(CloseTest, AMutexThatAnotherHoldsSkipsReadingAndWritingAndIsReported) {
    static DWORD waited;
    waited = 0;
    struct held : platform::process_mutex {
        DWORD wait(DWORD milliseconds) noexcept override {
            waited = milliseconds;
            return WAIT_TIMEOUT;
        }
        void release() noexcept override {}
    };
    struct held_mutexes : platform::process_mutexes {
        std::unique_ptr<platform::process_mutex> open(const CString& name) noexcept override {
            asked = name;
            return std::make_unique<held>();
        }
        CString asked;
    } mutexes;
    remember(L"Old", L"True", 0, L"");
    const platform::port<platform::process_mutexes>::replacement replacement(mutexes);
    EXPECT_EQ(create(), S_OK);
    EXPECT_EQ(mutexes.asked, L"Global\\2686F9D2-457E-44e7-B656-9ABCC802D38A");
    EXPECT_EQ(waited, 60000U);
    EXPECT_THAT(take_assertions(), ElementsAre("dwRes == WAIT_OBJECT_0 || dwRes == WAIT_ABANDONED"));
    run_loop();
    EXPECT_EQ(host.count("Center.Prepare"), 0);
    EXPECT_EQ(root->OnClose(), S_OK);
    EXPECT_THAT(remembered(), ElementsAre(L"Old"));
}

}  // namespace
