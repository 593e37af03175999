#include <boost/weak_ptr.hpp>
#include <functional>

#include "platform/registry.h"
#include "tests/root/root_fixture.h"
#include "tests/support/last_words.h"

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

// Does not say whether it knows the interface of commands.
struct refusing_service : platform::com_root<IRunnableObject> {
    STDMETHODIMP GetRunningClass(CLSID*) override { return E_NOTIMPL; }
    STDMETHODIMP Run(IBindCtx*) override { return S_OK; }
    STDMETHODIMP_(BOOL) IsRunning() override { return TRUE; }
    STDMETHODIMP LockRunning(BOOL, BOOL) override { return S_OK; }
    STDMETHODIMP SetContainedObject(BOOL) override { return S_OK; }

protected:
    HRESULT internal_query(REFIID iid, void** out) {
        if (IsEqualIID(iid, __uuidof(SW::IOnCommand))) {
            *out = nullptr;
            return E_ACCESSDENIED;
        }
        return com_root::internal_query(iid, out);
    }
};

TEST_F(CreateTest, AServiceThatFailsOtherwiseThanForAMissingInterfaceGivesItsResult) {
    const auto service = platform::make_com<refusing_service>();
    EXPECT_EQ(create(service.get()), E_ACCESSDENIED);
    EXPECT_EQ(root->UpdateLayout(), OLE_E_BLANK);
    EXPECT_FALSE(factory.last);
}

TEST_F(CreateTest, MakesTheBarInTheWindowOfTheHost) {
    ASSERT_EQ(create(), S_OK);
    EXPECT_EQ(factory.parent, parent);
}

TEST_F(CreateTest, TakesTheNewHoldOnTheSharedDataBeforeItLetsGoOfTheOld) {
    ASSERT_EQ(create(), S_OK);
    OV_OrderDeck::CGlobalData()->put_Center(
        platform::make_com<test::last_words<test::FakeTradingCenter>>(host, std::string("data gone")).get());
    ASSERT_EQ(create(), S_OK);
    EXPECT_EQ(host.count("data gone"), 0);
    root->Destroy();
    EXPECT_EQ(host.count("data gone"), 1);
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

// Looks into the bar when the container is told of it, and counts what is named.
class watching_desktop final : public platform::headless_desktop {
public:
    std::function<void(HWND)> on_message;
    int named = 0;

    LRESULT send_message(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override {
        if (on_message) {
            on_message(reinterpret_cast<HWND>(wParam));
        }
        return headless_desktop::send_message(window, message, wParam, lParam);
    }
    void set_window_text(HWND window, const CString& text) override {
        ++named;
        headless_desktop::set_window_text(window, text);
    }

private:
    platform::port<platform::desktop>::replacement m_replacement{*this};
};

class WatchedCreateTest : public root_test {
protected:
    HRESULT create_watched() {
        HWND window = nullptr;
        return root->Create(watched_parent, nullptr, &window);
    }

    // The end of the object, at which it withdraws what it registered.
    void end_root() {
        root->Destroy();
        root = platform::make_com<OV_OrderDeck::COrderDeckObj>();
    }

    watching_desktop watching;
    HWND watched_parent = watching.make_window();
};

TEST_F(WatchedCreateTest, TheMessageToTheContainerGoesOutBeforeThreadTextAndValidityAreSet) {
    factory.window = watching.make_window(L"before");
    CString text_at_message;
    HRESULT layout_at_message = S_OK;
    watching.on_message = [&](HWND bar) {
        text_at_message = watching.window_text(bar);
        layout_at_message = root->UpdateLayout();
        root->OnItemChanged(eTM_CTOE_Moved, nullptr);
    };
    ASSERT_EQ(create_watched(), S_OK);
    EXPECT_EQ(text_at_message, L"before");
    EXPECT_EQ(layout_at_message, OLE_E_BLANK);
    EXPECT_THAT(take_assertions(), ElementsAre("not thread safe", "m_bValid == true"));
    EXPECT_EQ(watching.window_text(factory.window), L"下單匣");
    watching.on_message = nullptr;
    end_root();
}

TEST_F(WatchedCreateTest, ABarWithoutAWindowIsNeitherRegisteredNorNamed) {
    factory.window = nullptr;
    ASSERT_EQ(create_watched(), S_OK);
    EXPECT_EQ(watching.named, 0);
    end_root();
    EXPECT_THAT(watching.messages(), IsEmpty());
}

TEST_F(WatchedCreateTest, ABarWhoseWindowIsGoneIsNotNamedAndOnlyWithdrawn) {
    factory.window = watching.make_window();
    watching.destroy_window(factory.window);
    ASSERT_EQ(create_watched(), S_OK);
    EXPECT_EQ(watching.named, 0);
    EXPECT_THAT(watching.messages(), IsEmpty());
    end_root();
    const auto messages = watching.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].window, watched_parent);
    EXPECT_EQ(messages[0].lParam, 0);
}

TEST_F(WatchedCreateTest, TheOldPairIsKeptUntilTheContainerWasToldThatItGoes) {
    factory.window = watching.make_window();
    ASSERT_EQ(create_watched(), S_OK);
    watching.forget();
    // A container that makes the bar anew at the message gets the old pair withdrawn once more. Its bar is
    // the later one and stays; the one that was being made does not come.
    bool again = false;
    watching.on_message = [&](HWND) {
        if (!again) {
            again = true;
            ASSERT_EQ(create_watched(), S_OK);
        }
    };
    root->Destroy();
    EXPECT_EQ(create_watched(), OLE_E_BLANK);
    EXPECT_EQ(root->UpdateLayout(), S_OK);
    std::vector<LPARAM> kinds;
    for (const auto& message : watching.messages()) {
        kinds.push_back(message.lParam);
    }
    EXPECT_THAT(kinds, ElementsAre(0, 1, 0));
    end_root();
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

TEST_F(CreateTest, DestroyLeavesNothingUsableBeforeItAsksTheHost) {
    const auto alpha = add_profile(L"Alpha");
    platform::registry_key key;
    ASSERT_EQ(key.Create(HKEY_CURRENT_USER, path_of_records() + L"\\Profiles\\Alpha"), ERROR_SUCCESS);
    ASSERT_EQ(create(), S_OK);
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    HRESULT layout = S_OK;
    host.on_call("ProfilesEvents.Unadvise", [&] {
        layout = root->UpdateLayout();
        run_loop();
    });
    host.on_call("Bar.Teardown", [&] { root->put_ActiveTab(_bstr_t(alpha->outer_id.c_str())); });
    EXPECT_EQ(root->Destroy(), S_OK);
    EXPECT_EQ(layout, OLE_E_BLANK);
    // The restoring that was posted has not run, and no id leads to a panel any more.
    EXPECT_EQ(host.count("Bar.Deserialize"), 0);
    EXPECT_EQ(host.count("Bar.SelectTab"), 0);
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

// Weak, so that a bar that nobody holds any more is seen to be gone.
TEST_F(CreateTest, ASecondBarEndsTheFirstOneWithItsTabs) {
    const auto alpha = add_profile(L"Alpha");
    ASSERT_EQ(create(), S_OK);
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    const boost::weak_ptr<test::fake_bar> first = factory.last;
    ASSERT_EQ(create(), S_OK);
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(alpha->events->size(), 0U);
    EXPECT_EQ(center->profiles->events->size(), 0U);
    EXPECT_THAT(tab_names(), IsEmpty());
    EXPECT_EQ(root->UpdateLayout(), S_OK);
}

TEST_F(CreateTest, ABarThatTheHostMakesWhileTheFormerOneEndsIsTheOneThatStays) {
    add_profile(L"Alpha");
    ASSERT_EQ(create(), S_OK);
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    HRESULT inner = E_FAIL;
    host.on_call("ProfilesEvents.Unadvise", [&] {
        host.forget_faults();
        inner = create();
    });
    EXPECT_EQ(root->Destroy(), S_OK);
    EXPECT_EQ(inner, S_OK);
    EXPECT_EQ(root->UpdateLayout(), S_OK);
    EXPECT_EQ(host.count("Bar.Teardown"), 1);
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    EXPECT_THAT(tab_names(), ElementsAre(L"Alpha"));
}

TEST_F(WatchedCreateTest, ABarThatItsContainerDestroysAtOnceIsNotMade) {
    factory.window = watching.make_window();
    watching.on_message = [this](HWND) { root->Destroy(); };
    EXPECT_EQ(create_watched(), OLE_E_BLANK);
    watching.on_message = nullptr;
    EXPECT_EQ(root->UpdateLayout(), OLE_E_BLANK);
    EXPECT_EQ(root->get_StatusLineString(nullptr), OLE_E_BLANK);
    end_root();
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
