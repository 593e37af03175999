// What a host may do to the bar while the user is asked whether to disconnect.

#include "tests/root/persistence_fixture.h"

namespace {

using test::persistence_test;
using test::stored;
using testing::ElementsAre;
using testing::IsEmpty;

// Two connected profiles; the user is asked about Alpha first.
class CloseQuestion : public persistence_test {
protected:
    CloseQuestion() {
        bar.open({{L"Alpha", true, 0, L""}, {L"Beta", true, 0, L""}});
        bar.run_loop();
        bar.host.clear();
    }

    // Happens once, while the user is asked about Alpha.
    void meanwhile(const std::function<void()>& action) {
        bar.host.on_call("DisconnectConfirmer.Confirm", [action, happened = false]() mutable {
            if (!happened) {
                happened = true;
                action();
            }
        });
    }

    HRESULT fire(ETM_ChangeTypeOfEvent kind) { return bar.center->profiles->fire(kind, {}); }

    int disconnected(const std::string& name) const {
        return bar.host.count("Profile(\"" + name + "\").Disconnect()");
    }

    test::closing_host bar;
};

TEST_F(CloseQuestion, IsAskedOverTheHostsMainWindow) {
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    const auto frame = reinterpret_cast<ULONG_PTR>(bar.desktop.main_frame());
    EXPECT_EQ(bar.host.count("DisconnectConfirmer.Confirm(" + std::to_string(frame) + ", "), 2);
}

TEST_F(CloseQuestion, ProfilesThatAllGoMeanwhileArePassedButForTheOneThatWasAskedAbout) {
    meanwhile([this] { EXPECT_EQ(fire(eTM_CTOE_DeletedAll), S_OK); });
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_EQ(disconnected("Alpha"), 1);
    EXPECT_EQ(disconnected("Beta"), 0);
    EXPECT_THAT(stored(),
                ElementsAre("Profiles", "Profiles\\Alpha", "Profiles\\Alpha \"Connected\" 1 \"True\""));
    EXPECT_THAT(bar.take_assertions(), IsEmpty());
}

TEST_F(CloseQuestion, ProfilesThatAreReloadedMeanwhileAreAllDisconnectedAndRemembered) {
    meanwhile([this] { EXPECT_EQ(fire(eTM_CTOE_ReloadComplete), S_OK); });
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_EQ(bar.host.count("DisconnectConfirmer.Confirm("), 2);
    EXPECT_EQ(disconnected("Alpha"), 1);
    EXPECT_EQ(disconnected("Beta"), 1);
    EXPECT_THAT(stored(),
                ElementsAre("Profiles", "Profiles\\Alpha", "Profiles\\Alpha \"Connected\" 1 \"True\"",
                            "Profiles\\Beta", "Profiles\\Beta \"Connected\" 1 \"True\""));
    EXPECT_THAT(bar.take_assertions(), IsEmpty());
}

TEST_F(CloseQuestion, ABarThatIsDestroyedMeanwhileRemembersWhatItWasAskedAbout) {
    meanwhile([this] { EXPECT_EQ(bar.root->Destroy(), S_OK); });
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_EQ(disconnected("Alpha"), 1);
    EXPECT_EQ(disconnected("Beta"), 0);
    EXPECT_THAT(stored(),
                ElementsAre("Profiles", "Profiles\\Alpha", "Profiles\\Alpha \"Connected\" 1 \"True\""));
    // The bar itself has nothing left to remember, which is no fault of the host's.
    EXPECT_THAT(bar.take_assertions(), IsEmpty());
    EXPECT_EQ(bar.host.count("Bar.Serialize"), 0);
    EXPECT_EQ(bar.root->UpdateLayout(), OLE_E_BLANK);
}

TEST_F(CloseQuestion, ABarThatIsDestroyedBeforeAnythingWasAskedLeavesWhatIsRemembered) {
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    const auto before = stored();
    bar.host.on_call("Center.get_MasterCounter", [this] { EXPECT_EQ(bar.root->Destroy(), S_OK); });
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_EQ(stored(), before);
    EXPECT_THAT(bar.take_assertions(), IsEmpty());
}

TEST_F(CloseQuestion, ABarThatIsDestroyedAndReleasedMeanwhileEndsItsCallFirst) {
    OV_OrderDeck::COrderDeckObj* const raw = bar.root.get();
    std::size_t withdrawn_meanwhile = 0;
    bar.desktop.forget();
    meanwhile([&] {
        EXPECT_EQ(bar.root->Destroy(), S_OK);
        bar.root = platform::make_com<OV_OrderDeck::COrderDeckObj>();
        withdrawn_meanwhile = bar.desktop.messages().size();
    });
    EXPECT_EQ(raw->OnClose(), S_OK);
    EXPECT_THAT(stored(),
                ElementsAre("Profiles", "Profiles\\Alpha", "Profiles\\Alpha \"Connected\" 1 \"True\""));
    // The object withdraws itself from its container when it ends.
    EXPECT_EQ(withdrawn_meanwhile, 0U);
    EXPECT_EQ(bar.desktop.messages().size(), 1U);
}

}  // namespace
