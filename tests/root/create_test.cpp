#include "tests/root/root_fixture.h"

namespace {

using test::root_test;
using testing::ElementsAre;
using testing::IsEmpty;

using CreateTest = root_test;

constexpr UINT container_message = 1702;

TEST_F(CreateTest, ANullHandleIsAnInvalidArgumentAndNothingElseHappens) {
    EXPECT_EQ(root->Create(parent, nullptr, nullptr), E_INVALIDARG);
    EXPECT_THAT(host.calls(), IsEmpty());
    EXPECT_EQ(root->UpdateLayout(), OLE_E_BLANK);
}

TEST_F(CreateTest, ADeadParentFailsWithAnEmptyAssertionAndLeavesTheRootInvalid) {
    desktop.destroy_window(parent);
    HWND window = nullptr;
    EXPECT_EQ(root->Create(parent, nullptr, &window), E_FAIL);
    EXPECT_THAT(take_assertions(), ElementsAre(""));
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(root->UpdateLayout(), OLE_E_BLANK);
    EXPECT_FALSE(factory.last);
}

TEST_F(CreateTest, GivesTheBarsWindowNamesItAndShowsIt) {
    HWND window = nullptr;
    ASSERT_EQ(root->Create(parent, nullptr, &window), S_OK);
    EXPECT_EQ(window, bar_window);
    EXPECT_EQ(desktop.window_text(bar_window), L"下單匣");
    EXPECT_THAT(take_calls("Bar."), ElementsAre("Bar.Show(true)"));
    EXPECT_EQ(root->UpdateLayout(), S_OK);
    EXPECT_THAT(take_assertions(), IsEmpty());
}

TEST_F(CreateTest, SucceedsWithoutAServiceAndWithOneThatKnowsNoCommands) {
    EXPECT_EQ(create(nullptr), S_OK);
    OV_OrderDeck::CGlobalData global;
    EXPECT_FALSE(global->get_OnCommand());
    EXPECT_EQ(root->Destroy(), S_OK);
    EXPECT_EQ(create(center.get()), S_OK);
    EXPECT_FALSE(global->get_OnCommand());
}

TEST_F(CreateTest, KeepsTheHostsCommandSinkAndTheWindowForEveryObjectOfTheComponent) {
    const auto sink = platform::make_com<test::FakeOnCommand>(host);
    ASSERT_EQ(create(sink.get()), S_OK);
    OV_OrderDeck::CGlobalData global;
    EXPECT_EQ(global->get_OnCommand().get(), sink.get());
    EXPECT_EQ(global->get_Hwnd(), bar_window);
}

TEST_F(CreateTest, TouchesNoTradingCentreAlsoWhenTheLoopRuns) {
    add_profile(L"Alpha");
    ASSERT_EQ(create(), S_OK);
    run_loop();
    EXPECT_THAT(take_calls("Center"), IsEmpty());
    EXPECT_THAT(tab_names(), IsEmpty());
}

TEST_F(CreateTest, RegistersTheBarWithItsContainer) {
    ASSERT_EQ(create(), S_OK);
    const auto messages = desktop.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].window, parent);
    EXPECT_EQ(messages[0].message, container_message);
    EXPECT_EQ(messages[0].wParam, reinterpret_cast<WPARAM>(bar_window));
    EXPECT_EQ(messages[0].lParam, 1);
}

TEST_F(CreateTest, DestroyLeavesTheRegistrationToTheEndOfTheObject) {
    ASSERT_EQ(create(), S_OK);
    desktop.forget();
    EXPECT_EQ(root->Destroy(), S_OK);
    EXPECT_THAT(desktop.messages(), IsEmpty());
    root = platform::make_com<OV_OrderDeck::COrderDeckObj>();
    const auto messages = desktop.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].window, parent);
    EXPECT_EQ(messages[0].message, container_message);
    EXPECT_EQ(messages[0].wParam, reinterpret_cast<WPARAM>(bar_window));
    EXPECT_EQ(messages[0].lParam, 0);
}

TEST_F(CreateTest, ASecondLifeWithdrawsTheOldPairBeforeItRegistersTheNew) {
    ASSERT_EQ(create(), S_OK);
    ASSERT_EQ(root->Destroy(), S_OK);
    desktop.forget();
    const HWND other_parent = desktop.make_window();
    const HWND other_bar = desktop.make_window();
    factory.window = other_bar;
    HWND window = nullptr;
    ASSERT_EQ(root->Create(other_parent, nullptr, &window), S_OK);
    EXPECT_EQ(window, other_bar);
    const auto messages = desktop.messages();
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].window, parent);
    EXPECT_EQ(messages[0].wParam, reinterpret_cast<WPARAM>(bar_window));
    EXPECT_EQ(messages[0].lParam, 0);
    EXPECT_EQ(messages[1].window, other_parent);
    EXPECT_EQ(messages[1].wParam, reinterpret_cast<WPARAM>(other_bar));
    EXPECT_EQ(messages[1].lParam, 1);
}

TEST_F(CreateTest, TheMessageToTheContainerGoesOutBeforeTheTextIsSet) {
    CString text_at_message = L"not asked";
    // The text is still the old one when the container is told.
    struct watching_desktop : platform::headless_desktop {
        LRESULT send_message(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override {
            seen = window_text(reinterpret_cast<HWND>(wParam));
            return headless_desktop::send_message(window, message, wParam, lParam);
        }
        CString seen;
    } watching;
    const platform::port<platform::desktop>::replacement replacement(watching);
    const HWND watched_parent = watching.make_window();
    factory.window = watching.make_window(L"before");
    HWND window = nullptr;
    ASSERT_EQ(root->Create(watched_parent, nullptr, &window), S_OK);
    EXPECT_EQ(watching.seen, L"before");
    EXPECT_EQ(watching.window_text(factory.window), L"下單匣");
    root->Destroy();
    root = platform::make_com<OV_OrderDeck::COrderDeckObj>();
}

TEST_F(CreateTest, ABarThatCannotBeMadeSurfacesAsItsOwnResult) {
    factory.failure = E_OUTOFMEMORY;
    EXPECT_EQ(create(), E_OUTOFMEMORY);
    EXPECT_EQ(root->UpdateLayout(), OLE_E_BLANK);
    factory.failure = S_OK;
    EXPECT_EQ(create(), S_OK);
}

TEST_F(CreateTest, DestroyTearsDownInOrderAndGivesSOk) {
    add_profile(L"Alpha");
    ASSERT_EQ(create(), S_OK);
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    host.clear();
    EXPECT_EQ(root->Destroy(), S_OK);
    EXPECT_THAT(host.calls(), ElementsAre("ProfilesEvents.Unadvise(1)", "Bar.Teardown()",
                                          "ProfileEvents(\"Alpha\").Unadvise(1)"));
    EXPECT_EQ(root->UpdateLayout(), OLE_E_BLANK);
    EXPECT_EQ(root->Destroy(), S_OK);
}

TEST_F(CreateTest, DestroyDropsTheSharedData) {
    ASSERT_EQ(create(), S_OK);
    {
        OV_OrderDeck::CGlobalData global;
        EXPECT_EQ(global->get_Hwnd(), bar_window);
    }
    root->Destroy();
    OV_OrderDeck::CGlobalData global;
    EXPECT_EQ(global->get_Hwnd(), nullptr);
}

TEST_F(CreateTest, ASecondLifeIsValidAndUnfilled) {
    add_profile(L"Alpha");
    ASSERT_EQ(create(), S_OK);
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    ASSERT_EQ(root->OnItemChanged(eTM_CTOE_ReloadStart, nullptr), S_OK);
    ASSERT_EQ(root->Destroy(), S_OK);
    ASSERT_EQ(create(), S_OK);
    EXPECT_THAT(tab_names(), IsEmpty());
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
    // The reload of the first life is over too.
    const auto beta = add_profile(L"Beta");
    center->profiles->fire(eTM_CTOE_Added, {beta});
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha", L"Beta"));
}

TEST_F(CreateTest, TheWindowMessageOfTheHostFillsTheTabsOnce) {
    add_profile(L"Alpha");
    ASSERT_EQ(create(), S_OK);
    host.clear();
    bar().owner.EnsureFilled();
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
    host.clear();
    bar().owner.EnsureFilled();
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(CreateTest, OperationsOutsideOfItsLifeFailAndNeverCrash) {
    _bstr_t text;
    OD_SSymbolInfo info{};
    SAFEARRAY* commands = nullptr;
    for (int life = 0; life < 2; ++life) {
        EXPECT_EQ(root->UpdateLayout(), OLE_E_BLANK);
        EXPECT_EQ(root->get_Commands(&commands), OLE_E_BLANK);
        EXPECT_EQ(root->get_Commands(nullptr), OLE_E_BLANK);
        EXPECT_EQ(root->get_StatusLineString(text.GetAddress()), OLE_E_BLANK);
        EXPECT_EQ(root->OnClose(), S_OK);
        EXPECT_TRUE(FAILED(root->put_SymbolInfo(nullptr, &info)));
        EXPECT_TRUE(FAILED(root->get_SymbolInfo(nullptr, &info)));
        EXPECT_TRUE(FAILED(root->put_Account(nullptr, nullptr)));
        EXPECT_TRUE(FAILED(root->put_ActiveTab(nullptr)));
        EXPECT_TRUE(FAILED(root->get_ActiveTab(text.GetAddress())));
        EXPECT_TRUE(FAILED(root->OnItemChanged(eTM_CTOE_DeletedAll, nullptr)));
        ASSERT_EQ(create(), S_OK);
        ASSERT_EQ(root->Destroy(), S_OK);
    }
}

}  // namespace
